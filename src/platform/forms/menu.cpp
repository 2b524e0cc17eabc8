// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/menu.h"

#include "platform/error.h"
#include "platform/forms/form.h"

namespace platform {

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

}  // namespace platform
