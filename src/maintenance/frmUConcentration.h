// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "maintenance/record_window.h"

namespace vemora {

/// Concentrations: a text in each language.
class frmUConcentration final : public RecordWindow {
  public:
    explicit frmUConcentration(mMain& main);

  private:
    void FörbereddLaddning() override;
};

}  // namespace vemora
