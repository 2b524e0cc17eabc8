// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

#include "platform/forms/control.h"
#include "platform/richtext/formula_text.h"

namespace platform {

/// Shows a chemical formula, given as plain text or as rich text; each replaces what the other set. Unless
/// it is locked the user edits it, and the heights of what is typed follow from the rule of formulas.
class oFormula final : public Control {
  public:
    oFormula(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "oFormula"; }

    std::string PlainText() const;
    void SetPlainText(const std::string& text);
    /// What SetRichText has set, to the byte, as long as the content is the same. Otherwise the content as
    /// RTF in the control's font; empty for an empty formula.
    std::string RichText() const;
    /// Anything that is no RTF shows as the plain text that it is.
    void SetRichText(const std::string& rtf);
    const platform::RichText& Content() const { return content_; }
    const FormulaText& Formula() const { return formula_; }

    Property<bool> Locked;
    Property<int> Padding;  // space around the formula, points

    bool TakesFocus() const override { return true; }
    void Reset() override;

    // --- the user. Positions and lengths count code points. ---
    /// Types a text in the place of `removed` characters. It follows the rule of formulas, or has the height
    /// that the user has asked for here.
    void InputText(int start, int removed, const std::string& text);
    /// Sets the height of what is selected; with nothing selected that of what is typed next at this place,
    /// which the same height again ends.
    void InputHeight(int start, int length, Run::Height height);
    /// Changes the formula as a whole: a rich text is pasted, a piece is moved.
    void InputFormula(const FormulaText& formula);
    /// Takes a step back or does it again: the formula as it was then.
    void InputEarlier(const FormulaText& formula);
    /// Moves the caret. A height asked for elsewhere is forgotten.
    void InputCaret(int position);

  private:
    struct NextHeight {
        std::size_t Position;
        Run::Height Height;
    };
    template <class F>
    void Edit(F&& change);
    void Load(const platform::RichText& content, const std::string& rtf);

    FormulaText formula_;
    platform::RichText content_;
    std::string stored_;
    platform::RichText storedContent_;
    std::optional<NextHeight> next_;
};

}  // namespace platform
