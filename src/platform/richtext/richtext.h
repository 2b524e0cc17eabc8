// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <unicode/umachine.h>

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

/// The same text in its one shortest form: no empty runs, no two neighbours of the same height; CR LF, CR and
/// Unicode's separators of lines and paragraphs become "\n"; other control characters but the tab are gone;
/// what is no UTF-8 or no character is U+FFFD.
RichText Normalised(const RichText& text);

/// The text alone.
std::string PlainText(const RichText& text);

/// The code points of a text; what is no UTF-8 is U+FFFD.
std::u32string CodePoints(std::string_view utf8);

/// Puts a rich text together piece by piece and keeps it normalised at each step (see Normalised).
class RichTextBuilder {
  public:
    /// One character. Anything that is no character becomes U+FFFD, what ends a line "\n"; other control
    /// characters but the tab are left out.
    void Add(UChar32 code, Run::Height height);
    /// Any bytes, taken as UTF-8.
    void AddText(std::string_view utf8, Run::Height height);
    /// Takes one line end off the end of the text, if there is one.
    void DropLastLineEnd();
    RichText Take() { return std::move(text_); }

  private:
    RichText text_;
};

}  // namespace platform
