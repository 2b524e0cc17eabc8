// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "platform/forms/captions.h"

namespace platform {

class CommandButton final : public CaptionControl {
  public:
    CommandButton(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "CommandButton"; }
    /// Enter presses it wherever the focus is; one button of a window at a time.
    Property<bool> Default;
    /// Esc presses it while it is visible.
    Property<bool> Cancel;
    std::function<void()> Click;
    /// Assigning true presses the button from code, hidden or not; a disabled one stays unpressed.
    class PressProperty {
      public:
        explicit PressProperty(CommandButton& button) : button_(button) {}
        PressProperty(const PressProperty&) = delete;
        PressProperty& operator=(const PressProperty&) = delete;
        PressProperty& operator=(bool pressed);

      private:
        CommandButton& button_;
    } Value{*this};

    bool TakesFocus() const override { return true; }
    bool Press() override;
    bool WantsEnter() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();
};

class CheckBox final : public CaptionControl {
  public:
    CheckBox(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "CheckBox"; }
    Property<int> Value;  // 0 unticked, 1 ticked, 2 neither
    /// Drawn as a button that stays down.
    bool ButtonLike() const { return style_ == 1; }
    std::function<void()> Click;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();

  private:
    int style_;
};

/// One of the options of its container: at most one is on.
class OptionButton final : public CaptionControl {
  public:
    OptionButton(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "OptionButton"; }
    Property<bool> Value;
    std::function<void()> Click;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void InputClick();
};

}  // namespace platform
