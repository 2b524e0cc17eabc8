// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/menu.h"
#include "qt/adapter.h"

class QAction;
class QMenu;

namespace qt {

/// An entry of the menu bar or of a menu; with entries of its own it is a menu itself.
class MenuAdapter final : public Adapter {
  public:
    MenuAdapter(FormWindow& window, platform::Menu& menu);
    void Carry() override;
    QAction* Action() const { return action_; }

  private:
    platform::Menu& menu_;
    QAction* action_;
};

}  // namespace qt
