// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/tabs.h"
#include "qt/adapter.h"

class QTabWidget;

namespace qt {

class TabAdapter final : public WidgetAdapter {
  public:
    TabAdapter(FormWindow& window, platform::SSTab& tabs);
    QWidget* Content(const platform::Control& control) const override;

  protected:
    void CarryOwn() override;

  private:
    platform::SSTab& tabs_;
    QTabWidget* widget_;
};

}  // namespace qt
