// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/lists.h"

#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

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

}  // namespace platform
