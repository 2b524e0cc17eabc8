// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/control.h"

#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

Control::Control(Form& parent, std::string name, const Design& design, int index)
    : Left(*this, design.Left),
      Top(*this, design.Top),
      Width(*this, design.Width),
      Height(*this, design.Height),
      Visible(*this, design.Visible),
      Enabled(*this, design.Enabled),
      Tag(*this, design.Tag),
      ToolTipText(*this, design.ToolTipText),
      Font(*this, design.Font),
      ForeColor(*this, design.ForeColor),
      parent_(parent),
      name_(std::move(name)),
      index_(index),
      container_(design.Container),
      page_(design.Page) {
    parent.controls_.push_back(this);
}

Control::~Control() {
    std::erase(parent_.controls_, this);
}

std::string Control::FullName() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::SetCaption(const std::string&) {
    throw Error(errors::PropertyNotSupported, "The control " + FullName() + " has no property Caption.",
                "forms");
}

void Control::SetToolTipText(const std::string& text) {
    ToolTipText = text;
}

bool Control::CanFocus() const {
    for (const Control* control = this; control != nullptr; control = control->container_) {
        const bool shown = control->container_ == nullptr || control->container_->Shows(*control);
        if (!control->Visible || !control->Enabled || !shown) {
            return false;
        }
    }
    return true;
}

bool Control::Covered() const {
    for (const Control* control = this; control != nullptr; control = control->container_) {
        for (const Control* above : parent_.controls_) {
            if (above == control) {
                break;
            }
            if (above->Covers(*control)) {
                return true;
            }
        }
    }
    return false;
}

bool Control::Covers(const Control& other) const {
    // Menu entries have no size: they lie nowhere.
    return Visible && container_ == other.container_ && page_ == other.page_ && Width > 0 && Height > 0 &&
           other.Width > 0 && other.Height > 0 && Left <= other.Left &&
           Left + Width >= other.Left + other.Width && Top <= other.Top &&
           Top + Height >= other.Top + other.Height;
}

void Control::SetFocus() {
    if (!TakesFocus() || !CanFocus()) {
        throw Error(errors::InvalidCall, "The control " + FullName() + " can't have the focus now.", "forms");
    }
    parent_.SetActive(*this);
    parent_.Screen().Focus(*this);
}

void Control::InputFocus() {
    parent_.Screen().Event([this] {
        if (TakesFocus() && Reachable()) {
            parent_.SetActive(*this);
        }
    });
}

void Control::PropertyChanged(const PropertyBase&) {
    Notify();
}

void Control::Reset() {
    ResetProperties();
    Notify();
}

void Control::Notify() {
    if (view_ != nullptr) {
        view_->ControlChanged();
    }
}

}  // namespace platform
