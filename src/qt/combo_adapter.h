// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/lists.h"
#include "qt/adapter.h"

class QComboBox;

namespace qt {

class ComboBoxAdapter final : public WidgetAdapter {
  public:
    ComboBoxAdapter(FormWindow& window, platform::ComboBox& combo);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;

  private:
    platform::ComboBox& combo_;
    QComboBox* widget_;
    int spoken_ = -1;  // the entry that was there last
};

}  // namespace qt
