// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

// Operations on UTF-8 texts as the windows' logic knows them. Lengths and positions are characters (code
// points), positions count from 1. A text that is no valid UTF-8 is never refused: every byte that does not
// continue a character counts as the start of one.

/// Number of characters.
std::size_t Len(std::string_view text);

/// The first count characters, or the whole text when it is no longer than that.
std::string Left(std::string_view text, std::size_t count);

/// The last count characters, or the whole text when it is no longer than that.
std::string Right(std::string_view text, std::size_t count);

/// What stands from position start on; empty behind the end. Error 5 when start is 0.
std::string Mid(std::string_view text, std::size_t start);

/// At most count characters from position start on. Error 5 when start is 0.
std::string Mid(std::string_view text, std::size_t start, std::size_t count);

/// The text without the blanks (U+0020 only) at both of its ends.
std::string Trim(std::string_view text);

/// The text with every occurrence of from, left to right, replaced; unchanged when from is empty.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

/// Lower case in every script, by no language's special rules.
std::string LCase(std::string_view text);

/// Upper case, a letter for a letter: what has no single upper-case letter stays.
std::string UCase(std::string_view text);

/// Position of the first occurrence of what, compared exactly; 0 when there is none.
std::size_t InStr(std::string_view text, std::string_view what);

/// Position of the last occurrence of what, compared exactly; 0 when there is none.
std::size_t InStrRev(std::string_view text, std::string_view what);

/// A number in decimal.
std::string Text(long number);

/// Whether two texts are equal by the system's rule (fold.h): but for case, in every script.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace platform
