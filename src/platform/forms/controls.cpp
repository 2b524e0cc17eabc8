// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/controls.h"

#include "platform/adodb.h"
#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

// --- CommandButton ---

CommandButton::CommandButton(Form& parent, std::string name, const Design& design, int index)
    : CaptionControl(parent, std::move(name), design, index),
      Default(*this, design.Default),
      Cancel(*this, design.Cancel) {}

bool CommandButton::Press() {
    if (!CanFocus()) {
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
        if (CanFocus()) {
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
        if (CanFocus()) {
            Value = true;
        }
    });
}

// --- TextBox ---

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
        if (CanFocus() && !Locked) {
            Text = text;
        }
    });
}

// --- ComboBox ---

ComboBox::ComboBox(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), ListIndex(*this, -1) {}

void ComboBox::AddItem(const std::string& text) {
    entries_.push_back({text, 0});
    newIndex_ = ListCount() - 1;
    Notify();
}

void ComboBox::Clear() {
    entries_.clear();
    newIndex_ = -1;
    ListIndex.SetSilently(-1);
    Notify();
}

const ComboBox::Entry& ComboBox::At(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw Error(381, "The list " + FullName() + " has no entry " + std::to_string(index) + ".", "forms");
    }
    return entries_[static_cast<std::size_t>(index)];
}

const std::string& ComboBox::List(int index) const {
    return At(index).Text;
}
std::int32_t ComboBox::ItemData(int index) const {
    return At(index).Data;
}

void ComboBox::SetItemData(int index, std::int32_t data) {
    At(index);
    entries_[static_cast<std::size_t>(index)].Data = data;
}

std::string ComboBox::Text() const {
    return ListIndex < 0 ? std::string() : At(ListIndex).Text;
}

void ComboBox::PropertyChanged(const PropertyBase& property) {
    if (&property == &ListIndex && (ListIndex < -1 || ListIndex >= ListCount())) {
        const int wanted = ListIndex;
        ListIndex.SetSilently(-1);
        throw Error(380, "The list " + FullName() + " has no entry " + std::to_string(wanted) + " to select.",
                    "forms");
    }
    Notify();
    if (&property == &ListIndex) {
        Raise(Click);
    }
}

void ComboBox::Reset() {
    entries_.clear();
    newIndex_ = -1;
    Control::Reset();
}

void ComboBox::InputIndex(int index) {
    Parent().Screen().Event([&] {
        if (CanFocus() && index >= 0 && index < ListCount()) {
            // The user's choice counts as a click even when it is the entry that stood there.
            if (ListIndex == index) {
                Raise(Click);
            } else {
                ListIndex = index;
            }
        }
    });
}

// --- Image, ImageList, Menu ---

Image::Image(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), Picture(*this, design.Picture) {}

ImageList::ImageList(Form& parent, std::string name, std::vector<Entry> images)
    : Control(parent, std::move(name), Design{.Visible = false}), images_(std::move(images)) {}

std::string ImageList::PictureOf(const std::string& key) const {
    for (const Entry& image : images_) {
        if (image.Key == key) {
            return image.Picture;
        }
    }
    return {};
}

std::string ImageList::PictureAt(int index) const {
    return index >= 0 && static_cast<std::size_t>(index) < images_.size()
               ? images_[static_cast<std::size_t>(index)].Picture
               : std::string();
}

Menu::Menu(Form& parent, std::string name, const Design& design, int index)
    : CaptionControl(parent, std::move(name), design, index), shortcut_(design.Shortcut) {}

void Menu::SetToolTipText(const std::string&) {
    throw Error(errors::PropertyNotSupported,
                "The menu entry " + FullName() + " has no property ToolTipText.", "forms");
}

void Menu::InputClick() {
    Parent().Screen().Event([this] {
        if (CanFocus()) {
            Raise(Click);
        }
    });
}

// --- oFormula ---

oFormula::oFormula(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), Locked(*this, design.Locked), Padding(*this, 0) {}

std::string oFormula::PlainText() const {
    return platform::PlainText(content_);
}

void oFormula::SetPlainText(const std::string& text) {
    content_ = Normalised({Run{text}});
    Notify();
}

std::string oFormula::RichText() const {
    return content_.empty() ? std::string() : WriteRtf(content_, Font->Name, Font->Size);
}

void oFormula::SetRichText(const std::string& rtf) {
    content_ = ParseRtf(rtf);
    Notify();
}

void oFormula::Reset() {
    content_.clear();
    Control::Reset();
}

}  // namespace platform
