// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/lists.h"

#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

LineList::IndexProperty& LineList::IndexProperty::operator=(int index) {
    if (index < -1 || index >= list_.ListCount()) {
        throw Error(errors::InvalidValue,
                    "The list " + list_.FullName() + " has no line " + std::to_string(index) + " to select.",
                    "forms");
    }
    const bool changed = index != list_.selected_;
    list_.selected_ = index;
    if (changed) {
        list_.Notify();
    }
    if (list_.Clicks(index, changed)) {
        Raise(list_.Click);
    }
    return *this;
}

void LineList::AddItem(const std::string& text) {
    lines_.push_back({text, 0});
    newIndex_ = ListCount() - 1;
    LinesChanged();
}

void LineList::Clear() {
    lines_.clear();
    newIndex_ = -1;
    selected_ = -1;
    LinesChanged();
}

const LineList::Line& LineList::At(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw Error(errors::InvalidIndex,
                    "The list " + FullName() + " has no line " + std::to_string(index) + ".", "forms");
    }
    return lines_[static_cast<std::size_t>(index)];
}

const std::string& LineList::List(int index) const {
    return At(index).Text;
}
std::int32_t LineList::ItemData(int index) const {
    return At(index).Data;
}

void LineList::SetItemData(int index, std::int32_t data) {
    At(index);
    lines_[static_cast<std::size_t>(index)].Data = data;
}

std::string LineList::Text() const {
    return selected_ < 0 ? std::string() : At(selected_).Text;
}

void LineList::LinesChanged() {
    ++linesVersion_;
    Notify();
}

void LineList::Reset() {
    Clear();
    Control::Reset();
}

void LineList::InputIndex(int index) {
    Parent().Screen().Event([&] {
        if (!Reachable() || index < 0 || index >= ListCount()) {
            return;
        }
        if (selected_ != index) {
            ListIndex = index;
        } else {
            Raise(Click);
        }
    });
}

}  // namespace platform
