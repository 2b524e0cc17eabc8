// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/richtext/richtext.h"

namespace platform {

/// A formula that is being edited. Each of its characters has a height that somebody has set for it, or
/// follows the rule of formulas (TypedHeights), which each change applies anew.
///
/// Positions and lengths count characters (code points); what reaches beyond the text is cut.
class FormulaText {
  public:
    struct Character {
        char32_t Code = 0;
        Run::Height Position = Run::Normal;
        bool Set = false;  // the rule leaves the height alone
        bool operator==(const Character&) const = default;
    };

    FormulaText() = default;
    /// A stored text: it keeps its heights.
    explicit FormulaText(const RichText& stored);
    /// A state that a formula had.
    explicit FormulaText(std::vector<Character> characters) : characters_(std::move(characters)) {}

    const std::vector<Character>& Characters() const { return characters_; }
    RichText Content() const;

    /// Puts a text in the place of `removed` characters. The number of characters that it has.
    std::size_t Replace(std::size_t start, std::size_t removed, const RichText& text, bool set);
    void SetHeight(std::size_t start, std::size_t length, Run::Height height);
    void ApplyRule();

  private:
    std::vector<Character> characters_;
};

/// Typed or pasted text as a formula takes it, on one line: line ends and tabs are blanks, or nothing at its
/// ends, where they come with the cell or line that was copied; control characters are gone.
RichText OneLine(const RichText& text);

/// Whether the text has a height of its own and isn't just text.
bool HasHeights(const RichText& text);

}  // namespace platform
