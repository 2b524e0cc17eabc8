// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A piece of text at one height of the line.
struct Run {
    enum Height { Normal, Sub, Super };

    std::string Text;  // UTF-8; lines end in "\n"
    Height Position = Normal;

    bool operator==(const Run&) const = default;
};

/// A text with lowered and raised pieces: all the formatting that a formula has.
using RichText = std::vector<Run>;

/// The same text in its one shortest form: no empty runs, no two neighbours of the same height; CR LF and CR
/// become "\n"; other control characters but the tab are gone; what is no UTF-8 is U+FFFD.
RichText Normalised(const RichText& text);

/// Reads RTF, of which only the text and its heights count; what does not begin with "{\rtf" is plain text.
/// Takes any bytes, in linear time; the result is normalised. The line end that editors put behind the last
/// line is not part of the text.
RichText ParseRtf(std::string_view rtf);

/// Writes a text as RTF in ASCII. What ParseRtf makes of it is the text normalised. Point sizes are rounded
/// to half points and kept within 1 to 1638.
std::string WriteRtf(const RichText& text, std::string_view fontName, double pointSize);

/// The text alone.
std::string PlainText(const RichText& text);

/// Sets a formula typed as plain text ("H2SO4", "CuSO4·5H2O", "SO4^2-", "C10–C13") as chemists write it:
/// numbers behind an element or a bracket go down, charges behind "^" go up and lose the "^", all other
/// numbers are coefficients and stay.
RichText FormulaRichText(std::string_view formula);

}  // namespace platform
