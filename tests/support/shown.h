// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "platform/richtext/richtext.h"

namespace test {

/// A rich text on one line: "H_{2}O", "Fe^{3+}".
inline std::string Shown(const platform::RichText& text) {
    std::string shown;
    for (const platform::Run& run : text) {
        shown += run.Position == platform::Run::Normal
                     ? run.Text
                     : (run.Position == platform::Run::Sub ? "_{" : "^{") + run.Text + "}";
    }
    return shown;
}

}  // namespace test
