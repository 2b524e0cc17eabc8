// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>

#include "core/mMain.h"

namespace vemora {

class frmLang;
class frmMain;

/// The program with its windows, each made at its first use. Knows no widget: it runs on any desktop.
class Program {
  public:
    Program(platform::Desktop& desktop, const std::filesystem::path& folder);
    ~Program();

    mMain Main;

  private:
    std::unique_ptr<vemora::frmLang> frmLang_;
    std::unique_ptr<vemora::frmMain> frmMain_;
    std::unique_ptr<vemora::frmChemical> frmChemical_;
};

}  // namespace vemora
