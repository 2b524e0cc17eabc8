// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "platform/forms/control.h"

namespace platform {

/// A control with a caption; an "&" before a letter makes it the mnemonic.
class CaptionControl : public Control {
  public:
    Property<std::string> Caption;
    void SetCaption(const std::string& text) override { Caption = text; }
    std::string CaptionText() const override { return Caption; }

  protected:
    CaptionControl(Form& parent, std::string name, const Design& design, int index)
        : Control(parent, std::move(name), design, index), Caption(*this, design.Caption) {}
};

class Label final : public CaptionControl {
  public:
    Label(Form& parent, std::string name, const Design& design, int index = -1)
        : CaptionControl(parent, std::move(name), design, index), Alignment(*this, design.Alignment) {}
    std::string_view TypeName() const override { return "Label"; }
    Property<Align> Alignment;
};

class Frame final : public CaptionControl {
  public:
    Frame(Form& parent, std::string name, const Design& design, int index = -1)
        : CaptionControl(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "Frame"; }
};

}  // namespace platform
