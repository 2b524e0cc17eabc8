// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "platform/error.h"
#include "platform/files/files.h"

namespace vemora_db {

/// Runs an action on one of several databases. The store doesn't tell which file it is about: a failure of
/// its gets the file's name.
template <class Action>
auto OnFile(const std::filesystem::path& file, Action action) {
    try {
        return action();
    } catch (const platform::Error& error) {
        if (error.Source != "store") {
            throw;
        }
        throw platform::Error(error.Number, platform::Utf8FromPath(file) + ": " + error.Description);
    }
}

}  // namespace vemora_db
