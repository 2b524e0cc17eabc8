// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/buttons.h"

#include "platform/forms/form.h"

namespace platform {

// --- CommandButton ---

CommandButton::CommandButton(Form& parent, std::string name, const Design& design, int index)
    : CaptionControl(parent, std::move(name), design, index),
      Default(*this, design.Default),
      Cancel(*this, design.Cancel) {}

CommandButton::PressProperty& CommandButton::PressProperty::operator=(bool pressed) {
    if (pressed && button_.Enabled) {
        Raise(button_.Click);
    }
    return *this;
}

bool CommandButton::Press() {
    if (!Reachable()) {
        return false;
    }
    Raise(Click);
    return true;
}

void CommandButton::PropertyChanged(const PropertyBase& property) {
    if (&property == &Default && Default) {
        for (Control* control : Parent().Controls()) {
            auto* other = dynamic_cast<CommandButton*>(control);
            if (other != nullptr && other != this) {
                other->Default = false;
            }
        }
    }
    Notify();
}

void CommandButton::InputClick() {
    Parent().Screen().Event([this] { Press(); });
}

// --- CheckBox ---

CheckBox::CheckBox(Form& parent, std::string name, const Design& design, int index)
    : CaptionControl(parent, std::move(name), design, index),
      Value(*this, design.Value),
      style_(design.Style) {}

void CheckBox::PropertyChanged(const PropertyBase& property) {
    Notify();
    if (&property == &Value) {
        Raise(Click);
    }
}

void CheckBox::InputClick() {
    Parent().Screen().Event([this] {
        if (Reachable()) {
            Value = Value == 0 ? 1 : 0;
        }
    });
}

// --- OptionButton ---

OptionButton::OptionButton(Form& parent, std::string name, const Design& design, int index)
    : CaptionControl(parent, std::move(name), design, index), Value(*this, design.Value != 0) {}

void OptionButton::PropertyChanged(const PropertyBase& property) {
    Notify();
    if (&property != &Value || !Value) {
        return;
    }
    for (Control* control : Parent().Controls()) {
        auto* other = dynamic_cast<OptionButton*>(control);
        if (other != nullptr && other != this && other->Container() == Container()) {
            other->Value = false;
        }
    }
    Raise(Click);
}

void OptionButton::InputClick() {
    Parent().Screen().Event([this] {
        if (Reachable()) {
            Value = true;
        }
    });
}

}  // namespace platform
