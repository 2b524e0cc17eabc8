// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <vector>

#include "platform/richtext/formula_text.h"

class QMimeData;
class QTextCursor;
class QTextDocument;
class QTextEdit;

namespace qt {

/// A formula as a document of the window system holds it: one block, one fragment a height. Its formats tell
/// who has set the heights, so that undo brings that back, too.
struct ShownFormula {
    std::vector<platform::FormulaText::Character> Characters;
    // What comes from PasteFormula and isn't the control's yet.
    std::size_t PastedBegin = 0, PastedEnd = 0;
    bool Foreign = false;  // it has formats or blocks that no formula has
};
ShownFormula ReadFormula(const QTextDocument& document);

/// Shows another formula, which is no step that can be taken back.
void LoadFormula(QTextDocument& document, const platform::FormulaText& formula);
/// Brings the editor from what it shows to the formula, as part of the last step or as a step of its own. The
/// caret stays where it is.
void AmendFormula(QTextEdit& editor, const ShownFormula& shown, const platform::FormulaText& formula,
                  bool partOfLastStep);
/// Puts a text in the place of what the cursor has selected.
void PasteFormula(QTextCursor cursor, const platform::RichText& text);

/// What a formula takes of a piece of data: text and heights, on one line.
platform::RichText FormulaOf(const QMimeData& data);

/// Number of UTF-16 units of the first `count` characters, and of characters in the first `units` units.
int UnitsOf(const std::vector<platform::FormulaText::Character>& characters, std::size_t count);
int CharactersIn(const std::vector<platform::FormulaText::Character>& characters, int units);

}  // namespace qt
