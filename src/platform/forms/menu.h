// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "platform/forms/captions.h"

namespace platform {

/// An entry of a window's menu bar, or of the menu that is its container. The caption "-" is a separator.
class Menu final : public CaptionControl {
  public:
    Menu(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "Menu"; }
    /// "Ctrl+C" or empty.
    const std::string& Shortcut() const { return shortcut_; }
    std::function<void()> Click;

    void SetToolTipText(const std::string& text) override;  // menus have none: error 438
    void InputClick();

  private:
    std::string shortcut_;
};

}  // namespace platform
