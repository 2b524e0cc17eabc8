// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>

#include "core/mMain.h"

namespace vemora {

class frmAbout;
class frmInställningar;
class frmLang;
class frmMain;
class frmUChemicals;
class frmUConcentration;
class frmUMetal;
class frmUMisc;
class frmURelations;
class frmUPD;
class frmUPlast;
class frmUTemperature;
class frmUTight;

/// The program with its windows, each made at its first use. Knows no widget: it runs on any desktop.
class Program {
  public:
    Program(platform::Desktop& desktop, const std::filesystem::path& folder);
    ~Program();

    mMain Main;

  private:
    /// Makes a window of the program at its first use.
    template <class T>
    Windows::Any Maker(std::unique_ptr<T>& window);

    std::unique_ptr<vemora::frmLang> frmLang_;
    std::unique_ptr<vemora::frmMain> frmMain_;
    std::unique_ptr<vemora::frmChemical> frmChemical_;
    std::unique_ptr<vemora::frmUChemicals> frmUChemicals_;
    std::unique_ptr<vemora::frmUConcentration> frmUConcentration_;
    std::unique_ptr<vemora::frmUTemperature> frmUTemperature_;
    std::unique_ptr<vemora::frmUMetal> frmUMetal_;
    std::unique_ptr<vemora::frmUPlast> frmUPlast_;
    std::unique_ptr<vemora::frmUTight> frmUTight_;
    std::unique_ptr<vemora::frmUMisc> frmUMisc_;
    std::unique_ptr<vemora::frmURelations> frmURelations_;
    std::unique_ptr<vemora::frmInställningar> frmInställningar_;
    std::unique_ptr<vemora::frmUPD> frmUPD_;
    std::unique_ptr<vemora::frmAbout> frmAbout_;
};

}  // namespace vemora
