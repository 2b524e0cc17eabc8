// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "maintenance/record_window.h"

namespace vemora {

/// A window of one class of materials: name and description.
class MaterialWindow : public RecordWindow {
  protected:
    MaterialWindow(mMain& main, const Difference& difference, const char* refreshKey = "");
};

class frmUMisc final : public MaterialWindow {
  public:
    explicit frmUMisc(mMain& main) : MaterialWindow(main, kUMisc) {}
};

class frmUPlast final : public MaterialWindow {
  public:
    explicit frmUPlast(mMain& main) : MaterialWindow(main, kUPlast) {}
};

class frmUTight final : public MaterialWindow {
  public:
    explicit frmUTight(mMain& main) : MaterialWindow(main, kUTight) {}
};

class frmUMetal final : public MaterialWindow {
  public:
    explicit frmUMetal(mMain& main) : MaterialWindow(main, kUMetal, "R0221") {}
};

}  // namespace vemora
