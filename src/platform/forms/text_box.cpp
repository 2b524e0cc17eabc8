// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/text_box.h"

#include "platform/adodb/adodb.h"
#include "platform/forms/form.h"

namespace platform {

TextBox::TextBox(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index),
      Text(*this, design.Text),
      Locked(*this, design.Locked),
      SelStart(*this, 0),
      SelLength(*this, 0),
      DataField(*this, design.DataField),
      multiLine_(design.MultiLine) {}

TextBox::~TextBox() = default;

void TextBox::SetDataSource(adodb::Recordset* source) {
    subscription_.reset();
    source_ = source;
    if (source_ != nullptr) {
        subscription_ = source_->Subscribe([this] { ShowField(); });
        ShowField();
    }
}

void TextBox::ShowField() {
    const bool hasRow = source_->IsOpen() && !source_->Eof() && !source_->Bof();
    Text = hasRow ? (*source_)[DataField.Get()].Joined() : std::string();
}

void TextBox::PropertyChanged(const PropertyBase& property) {
    Notify();
    if (&property == &Text) {
        Raise(Change);
    } else if (&property == &DataField && source_ != nullptr) {
        ShowField();
    }
}

void TextBox::Reset() {
    subscription_.reset();
    source_ = nullptr;
    Control::Reset();
}

void TextBox::InputText(const std::string& text) {
    Parent().Screen().Event([&] {
        if (Reachable() && !Locked) {
            Text = text;
        }
    });
}

}  // namespace platform
