// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/richtext/rtf.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/text/codepage.h"

namespace platform {

namespace {

// Hex number of a byte as RTF writes it.
std::string Hex(unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[byte >> 4], digits[byte & 15]};
}

std::string UnicodeWord(char16_t unit) {
    return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

void AppendEscaped(std::string& rtf, UChar32 code) {
    if (code == '\n') {
        rtf += "\\par ";
    } else if (code == '\t') {
        rtf += "\\tab ";
    } else if (code == '\\' || code == '{' || code == '}') {
        rtf += '\\';
        rtf += static_cast<char>(code);
    } else if (code < 0x80) {
        rtf += static_cast<char>(code);
    } else if (code > 0xFFFF) {
        rtf += UnicodeWord(U16_LEAD(code));
        rtf += UnicodeWord(U16_TRAIL(code));
    } else {
        std::array<char, U8_MAX_LENGTH> utf8{};
        std::size_t length = 0;
        U8_APPEND_UNSAFE(utf8.data(), length, code);
        const std::string byte = ToWindows1252({utf8.data(), length});
        rtf += byte == "?" ? UnicodeWord(static_cast<char16_t>(code))
                           : "\\'" + Hex(static_cast<unsigned char>(byte.front()));
    }
}

void AppendEscaped(std::string& rtf, std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        UChar32 code = 0;
        U8_NEXT_OR_FFFD(text.data(), i, text.size(), code);
        AppendEscaped(rtf, code);
    }
}

}  // namespace

std::string WriteRtf(const RichText& text, std::string_view fontName, double pointSize) {
    std::string font;
    for (const Run& run : Normalised({{std::string(fontName), Run::Normal}})) {
        AppendEscaped(font, run.Text);
    }
    font.erase(std::remove(font.begin(), font.end(), ';'), font.end());
    // Written so that a size that is no number comes out as the smallest one.
    const double points = pointSize > 1 ? std::min(pointSize, 1638.0) : 1.0;

    std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil " + font + ";}}\\f0\\fs" +
                      std::to_string(std::lround(points * 2)) + " ";
    const RichText content = Normalised(text);
    for (const Run& run : content) {
        if (run.Position == Run::Normal) {
            AppendEscaped(rtf, run.Text);
        } else {
            rtf += run.Position == Run::Sub ? "{\\sub " : "{\\super ";
            AppendEscaped(rtf, run.Text);
            rtf += '}';
        }
    }
    if (!content.empty() && content.back().Text.back() == '\n') {
        rtf += "\\par ";  // readers take the last line end for the one behind the last line
    }
    rtf += '}';
    return rtf;
}

}  // namespace platform
