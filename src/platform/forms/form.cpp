// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/form.h"

#include <algorithm>
#include <cctype>

#include "platform/error.h"

namespace platform {

Form::Form(Desktop& desktop, std::string name, FormDesign design)
    : Caption(*this, design.Caption),
      Tag(*this, design.Tag),
      Icon(*this, design.Icon),
      SpokenName(*this, {}),
      Font(*this, {}),
      ScaleMode(*this, 1),
      desktop_(desktop),
      name_(std::move(name)),
      design_(std::move(design)),
      width_(design_.ClientWidth + 120),
      height_(design_.ClientHeight + 390) {}

Form::~Form() = default;

bool Form::HasMenu() const {
    return std::any_of(controls_.begin(), controls_.end(),
                       [](const Control* control) { return control->TypeName() == "Menu"; });
}

Control* Form::ControlNamed(const std::string& fullName) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const Control* control) { return control->FullName() == fullName; });
    return found == controls_.end() ? nullptr : *found;
}

Control* Form::FirstReachable() const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [](const Control* control) {
        return control->TakesFocus() && control->Reachable();
    });
    return found == controls_.end() ? nullptr : *found;
}

void Form::PutBefore(Control& control, const Control& other) {
    std::erase(controls_, &control);
    controls_.insert(std::find(controls_.begin(), controls_.end(), &other), &control);
}

// --- life ---

void Form::Load() {
    if (loaded_) {
        return;
    }
    loaded_ = true;
    width_ = design_.ClientWidth + FrameWidth();
    height_ = design_.ClientHeight + FrameHeight();
    windowState_ = vbNormal;
    try {
        Form_Load();
    } catch (...) {
        // A window whose load failed never was open, and how it failed is what is told: that its unload finds
        // something missing, too, is only what follows.
        try {
            Unload();
        } catch (const Error&) {
        }
        throw;
    }
}

void Form::Show(int modal, Form* owner) {
    Load();
    if (!loaded_) {
        return;  // its Form_Load has unloaded it
    }
    if (active_ == nullptr) {
        active_ = FirstReachable();
    }
    desktop_.Show(*this, modal == vbModal, owner);
}

void Form::Unload() {
    if (!loaded_ || unloading_) {
        return;
    }
    unloading_ = true;
    struct Done {
        Form& form;
        ~Done() {
            form.unloading_ = false;
            form.loaded_ = false;
            form.active_ = nullptr;
            form.desktop_.Closed(form);
            form.ResetProperties();
            for (Control* control : form.controls_) {
                control->Reset();
            }
            for (const auto& reset : form.statics_) {
                reset();
            }
        }
    } done{*this};
    Form_Unload();
}

void Form::SetActive(Control& control) {
    if (active_ == &control) {
        return;
    }
    Control* left = active_;
    active_ = &control;
    if (left != nullptr) {
        Control::Raise(left->LostFocus);
    }
    if (active_ == &control) {
        Control::Raise(control.GotFocus);
    }
}

void Form::PropertyChanged(const PropertyBase&) {
    if (view_ != nullptr) {
        view_->FormChanged();
    }
}

// --- the user ---

void Form::InputActivate() {
    desktop_.Event([this] {
        if (!loaded_) {
            return;
        }
        const Control* const before = active_;
        Form_Activate();
        // The focus comes back with the window, unless the window has just moved it by itself.
        if (loaded_ && active_ != nullptr && active_ == before) {
            Control::Raise(active_->GotFocus);
        }
    });
}

void Form::InputResize(int width, int height, int state) {
    desktop_.Event([&] {
        if (!loaded_) {
            return;
        }
        windowState_ = state;
        if (state != vbMinimized) {
            width_ = width;
            height_ = height;
        }
        Form_Resize();
    });
}

void Form::InputClose() {
    desktop_.Event([this] { Unload(); });
}

bool Form::InputKey(int keyCode, int shift, int character) {
    bool used = false;
    desktop_.Event([&] {
        if (MenuShortcut(keyCode, shift) || HelpKey(keyCode, shift) || PageKey(keyCode, shift) ||
            (shift == 0 && DialogKey(keyCode))) {
            used = true;
            return;
        }
        if (design_.KeyPreview) {
            Form_KeyDown(keyCode, shift);
        }
        if (keyCode != 0 && loaded_ && active_ != nullptr) {
            Control::Raise<int&, int>(active_->KeyDown, keyCode, shift);
        }
        if (keyCode == 0 || !loaded_) {
            used = true;
            return;
        }
        if (character == 0) {
            return;
        }
        if (design_.KeyPreview) {
            Form_KeyPress(character);
        }
        if (character != 0 && loaded_ && active_ != nullptr) {
            active_->RaiseKeyPress(character);
        }
        used = character == 0 || !loaded_;
    });
    return used || desktop_.Ended();
}

bool Form::MenuShortcut(int keyCode, int shift) {
    if (shift != 2 || keyCode < 'A' || keyCode > 'Z') {
        return false;
    }
    const std::string shortcut = std::string("Ctrl+") + static_cast<char>(keyCode);
    for (Control* control : controls_) {
        auto* menu = dynamic_cast<Menu*>(control);
        if (menu != nullptr && menu->Shortcut() == shortcut && menu->CanFocus()) {
            Control::Raise(menu->Click);
            return true;
        }
    }
    return false;
}

// Ctrl and PgUp or PgDn lead from page to page, wherever in the window the focus is.
bool Form::HelpKey(int keyCode, int shift) {
    if (keyCode != key::F1 || shift != 0 || !desktop_.Help) {
        return false;
    }
    desktop_.Help();
    return true;
}

bool Form::PageKey(int keyCode, int shift) {
    if (shift != platform::shift::Ctrl || (keyCode != key::PageUp && keyCode != key::PageDown)) {
        return false;
    }
    for (Control* control : controls_) {
        auto* tabs = dynamic_cast<SSTab*>(control);
        if (tabs != nullptr && tabs->Reachable()) {
            const int step = keyCode == key::PageDown ? 1 : tabs->Tabs() - 1;
            tabs->Tab = (tabs->Tab + step) % tabs->Tabs();
            FollowPage(*tabs);
            return true;
        }
    }
    return false;
}

// The focus doesn't stay behind on a page that is closed now.
void Form::FollowPage(SSTab& tabs) {
    if (active_ == nullptr || active_->Container() != &tabs || active_->Reachable()) {
        return;
    }
    const auto first = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
        return control->Container() == &tabs && control->TakesFocus() && control->Reachable();
    });
    (first == controls_.end() ? &tabs : *first)->SetFocus();
}

bool Form::DialogKey(int keyCode) {
    if (keyCode == key::Return) {
        if (active_ != nullptr && active_->WantsEnter()) {
            return active_->Press();
        }
        for (Control* control : controls_) {
            auto* button = dynamic_cast<CommandButton*>(control);
            if (button != nullptr && button->Default) {
                return button->Press();
            }
        }
    } else if (keyCode == key::Escape) {
        for (Control* control : controls_) {
            auto* button = dynamic_cast<CommandButton*>(control);
            if (button != nullptr && button->Cancel) {
                return button->Press();
            }
        }
    }
    return false;
}

}  // namespace platform
