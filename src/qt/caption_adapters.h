// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/captions.h"
#include "qt/adapter.h"

class QGroupBox;
class QLabel;

namespace qt {

class LabelAdapter final : public WidgetAdapter {
  public:
    LabelAdapter(FormWindow& window, platform::Label& label);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;

  private:
    platform::Label& label_;
    QLabel* widget_;
};

class FrameAdapter final : public WidgetAdapter {
  public:
    FrameAdapter(FormWindow& window, platform::Frame& frame);

  protected:
    void CarryOwn() override;

  private:
    platform::Frame& frame_;
    QGroupBox* widget_;
};

}  // namespace qt
