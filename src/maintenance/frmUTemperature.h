// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "maintenance/record_window.h"

namespace vemora {

/// Temperatures. A label is stored with its unit and typed without it: the box shows the number alone, until
/// a record is edited for the first time in a run.
class frmUTemperature final : public RecordWindow {
  public:
    explicit frmUTemperature(mMain& main);

  private:
    void SkrivFält() override;
    void txtFields_Change(int Index);
};

}  // namespace vemora
