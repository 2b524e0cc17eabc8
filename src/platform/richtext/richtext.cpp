// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/richtext/richtext.h"

#include <unicode/utf.h>
#include <unicode/utf8.h>

#include <array>

namespace platform {

void RichTextBuilder::Add(UChar32 code, Run::Height height) {
    constexpr UChar32 kLineSeparator = 0x2028;
    constexpr UChar32 kParagraphSeparator = 0x2029;
    if (code == '\r' || code == kLineSeparator || code == kParagraphSeparator) {
        code = '\n';
    } else if (code >= 0 && code < 0x20 && code != '\n' && code != '\t') {
        return;
    }
    if (!U_IS_UNICODE_CHAR(code)) {
        code = 0xFFFD;
    }
    if (text_.empty() || text_.back().Position != height) {
        text_.push_back({{}, height});
    }
    std::array<char, U8_MAX_LENGTH> utf8{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(utf8.data(), length, code);
    text_.back().Text.append(utf8.data(), length);
}

void RichTextBuilder::AddText(std::string_view utf8, Run::Height height) {
    for (std::size_t i = 0; i < utf8.size();) {
        UChar32 code = 0;
        U8_NEXT_OR_FFFD(utf8.data(), i, utf8.size(), code);
        const bool lineEndFollows = code == '\r' && i < utf8.size() && utf8[i] == '\n';
        if (!lineEndFollows) {
            Add(code, height);
        }
    }
}

void RichTextBuilder::DropLastLineEnd() {
    if (!text_.empty() && text_.back().Text.back() == '\n') {
        text_.back().Text.pop_back();
        if (text_.back().Text.empty()) {
            text_.pop_back();
        }
    }
}

std::u32string CodePoints(std::string_view utf8) {
    std::u32string codes;
    codes.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        UChar32 code = 0;
        U8_NEXT_OR_FFFD(utf8.data(), i, utf8.size(), code);
        codes += static_cast<char32_t>(code);
    }
    return codes;
}

RichText Normalised(const RichText& text) {
    RichTextBuilder builder;
    for (const Run& run : text) {
        builder.AddText(run.Text, run.Position);
    }
    return builder.Take();
}

std::string PlainText(const RichText& text) {
    std::string plain;
    for (const Run& run : text) {
        plain += run.Text;
    }
    return plain;
}

}  // namespace platform
