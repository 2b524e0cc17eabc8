// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/richtext/formula.h"
#include "platform/richtext/rtf.h"

namespace {

void RequireStable(const platform::RichText& text) {
    const std::string rtf = platform::WriteRtf(text, "Arial", 10);
    if (platform::Normalised(text) != text || platform::ParseRtf(rtf) != text) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    RequireStable(platform::ParseRtf(bytes));
    RequireStable(platform::ParseRtf("{\\rtf1 " + std::string(bytes)));
    RequireStable(platform::FormulaRichText(bytes));
    return 0;
}
