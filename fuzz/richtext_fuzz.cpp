// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/richtext/formula.h"
#include "platform/richtext/formula_text.h"
#include "platform/richtext/rtf.h"

namespace {

void RequireStable(const platform::RichText& text) {
    const std::string rtf = platform::WriteRtf(text, "Arial", 10);
    if (platform::Normalised(text) != text || platform::ParseRtf(rtf) != text ||
        platform::WriteRtf(platform::ParseRtf(rtf), "Arial", 10) != rtf) {
        std::abort();
    }
}

// The bytes as an editor's work: each two say where it types, pastes or sets, a letter ends the piece of
// text.
void Edit(std::string_view bytes) {
    platform::FormulaText formula;
    while (bytes.size() > 2) {
        const auto at = static_cast<unsigned char>(bytes[0]);
        const auto what = static_cast<unsigned char>(bytes[1]);
        const auto height = static_cast<platform::Run::Height>(what % 3);
        const std::string_view piece = bytes.substr(2, bytes.find_first_of("xyz", 2) - 2);
        bytes.remove_prefix(2 + piece.size());
        const platform::RichText pasted = platform::OneLine(
            what % 2 == 0 ? platform::ParseRtf(piece) : platform::RichText{{std::string(piece), height}});
        if (what % 5 == 0) {
            formula.SetHeight(at, what / 5, height);
        } else {
            formula.Replace(at, what / 16, pasted, what % 7 < 2 || platform::HasHeights(pasted));
        }
        platform::FormulaText again(formula.Characters());
        again.ApplyRule();
        RequireStable(formula.Content());
        if (platform::OneLine(pasted) != pasted || again.Characters() != formula.Characters() ||
            platform::FormulaText(formula.Content()).Content() != formula.Content()) {
            std::abort();
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    RequireStable(platform::ParseRtf(bytes));
    RequireStable(platform::ParseRtf("{\\rtf1 " + std::string(bytes)));
    RequireStable(platform::FormulaRichText(bytes));
    Edit(bytes);
    return 0;
}
