// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/tabs.h"

#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

SSTab::SSTab(Form& parent, std::string name, const Design& design, std::vector<std::string> captions)
    : Control(parent, std::move(name), design), design_(std::move(captions)), captions_(design_) {}

SSTab::TabProperty& SSTab::TabProperty::operator=(int page) {
    tabs_.TabCaption(page);
    const int before = tabs_.open_;
    if (page != before) {
        tabs_.open_ = page;
        tabs_.Notify();
        Raise<int>(tabs_.Click, before);
    }
    return *this;
}

const std::string& SSTab::TabCaption(int page) const {
    if (page < 0 || page >= Tabs()) {
        throw Error(errors::InvalidValue, FullName() + " has no page " + std::to_string(page) + ".", "forms");
    }
    return captions_[static_cast<std::size_t>(page)];
}

void SSTab::SetCaption(const std::string& text) {
    captions_[static_cast<std::size_t>(open_)] = text;
    Notify();
}

void SSTab::Reset() {
    captions_ = design_;
    open_ = 0;
    Control::Reset();
}

void SSTab::InputTab(int page) {
    Parent().Screen().Event([&] {
        if (Reachable() && page >= 0 && page < Tabs()) {
            Tab = page;
        }
    });
}

}  // namespace platform
