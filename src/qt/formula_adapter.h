// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/formula_box.h"
#include "platform/forms/rich_text_box.h"
#include "qt/adapter.h"

class QKeyEvent;

namespace qt {

class FormulaWidget;
struct ShownFormula;

/// A formula. What the user types goes to the control at once, and the heights that the control gives it are
/// part of the same step for undo.
class FormulaAdapter final : public WidgetAdapter {
  public:
    FormulaAdapter(FormWindow& window, platform::oFormula& formula);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;

  private:
    using Characters = std::vector<platform::FormulaText::Character>;

    void Edited();
    void Typed(const Characters& now);
    void CaretMoved();
    bool KeyPressed(const QKeyEvent& key);
    void SetHeight(platform::Run::Height height);
    void Amend(const ShownFormula& shown, bool partOfLastStep);
    /// The document shows what the control has.
    void Settle();

    platform::oFormula& formula_;
    FormulaWidget* widget_;
    // What the document shows at its revision, and what the last step led to that was not taken back.
    Characters settled_;
    int revision_ = -1;
    Characters latest_;
    bool amending_ = false;
};

/// A box that shows rich text, drawn as a formula is in reading.
class RichTextBoxAdapter final : public WidgetAdapter {
  public:
    RichTextBoxAdapter(FormWindow& window, platform::RichTextBox& box);

  protected:
    void CarryOwn() override;

  private:
    platform::RichTextBox& box_;
    FormulaWidget* widget_;
};

}  // namespace qt
