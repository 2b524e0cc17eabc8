// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/buttons.h"
#include "qt/adapter.h"

class QAbstractButton;
class QPushButton;
class QRadioButton;

namespace qt {

/// What the three kinds of buttons have in common: the caption, and a mnemonic that moves the focus and
/// presses.
class ButtonAdapter : public WidgetAdapter {
  public:
    ButtonAdapter(FormWindow& window, platform::CaptionControl& control, QAbstractButton* button);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;
    /// The user has pressed the button.
    virtual void Pressed() = 0;

  private:
    platform::CaptionControl& control_;
    QAbstractButton* button_;
};

class CommandButtonAdapter final : public ButtonAdapter {
  public:
    CommandButtonAdapter(FormWindow& window, platform::CommandButton& button);

  protected:
    void CarryOwn() override;
    void Pressed() override { button_.InputClick(); }

  private:
    platform::CommandButton& button_;
    QPushButton* widget_;
};

class CheckBoxAdapter final : public ButtonAdapter {
  public:
    CheckBoxAdapter(FormWindow& window, platform::CheckBox& box);

  protected:
    void CarryOwn() override;
    void Pressed() override { box_.InputClick(); }

  private:
    platform::CheckBox& box_;
    QAbstractButton* widget_;
};

class OptionButtonAdapter final : public ButtonAdapter {
  public:
    OptionButtonAdapter(FormWindow& window, platform::OptionButton& option);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;
    void Pressed() override { option_.InputClick(); }

  private:
    platform::OptionButton& option_;
    QRadioButton* widget_;
};

}  // namespace qt
