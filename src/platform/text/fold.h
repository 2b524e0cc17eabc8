// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <string>
#include <string_view>

namespace platform {

// The one rule of which texts are equal: those that fold to the same. Folding puts a text into Unicode's
// canonical form C and takes case out of it by the simple folding of each character, so that nothing but case
// and the way of writing an accent is lost: accents, raised and lowered digits, signs and invisible
// characters count, and ß is no ss. Ill-formed bytes count as U+FFFD.

/// The folded text, in UTF-8 or as code points. Byte order of the one is number order of the other.
void Fold(std::string_view text, std::string& folded);
void Fold(std::string_view text, std::u32string& folded);

/// The folding of a text in ASCII, a byte at a time; other bytes stay.
inline constexpr std::array<unsigned char, 256> kAsciiFolds = [] {
    std::array<unsigned char, 256> made{};
    for (unsigned c = 0; c < 256; ++c) {
        made[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    }
    return made;
}();

bool IsAscii(std::string_view text);

}  // namespace platform
