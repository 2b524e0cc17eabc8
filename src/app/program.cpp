// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "app/program.h"

#include "about/frmAbout.h"
#include "maintenance/frmUChemicals.h"
#include "maintenance/frmUConcentration.h"
#include "maintenance/frmUMaterial.h"
#include "maintenance/frmUTemperature.h"
#include "relations/frmURelations.h"
#include "search/frmMain.h"
#include "settings/frmInstallningar.h"
#include "sheet/frmChemical.h"
#include "texts/frmLang.h"
#include "update/frmUPD.h"

namespace vemora {

namespace {

template <class T, class... Args>
T& MakeOnce(std::unique_ptr<T>& window, Args&&... args) {
    if (!window) {
        window = std::make_unique<T>(std::forward<Args>(args)...);
    }
    return *window;
}

}  // namespace

Program::Program(platform::Desktop& desktop, const std::filesystem::path& folder) : Main(desktop, folder) {
    Main.Windows.Lang = [this]() -> platform::Form& { return MakeOnce(frmLang_, Main.Screen, Main.Folder); };
    Main.Windows.Main = Maker(frmMain_);
    Main.Windows.Chemical = [this]() -> frmChemical& { return MakeOnce(frmChemical_, Main); };
    Main.Windows.UChemicals = Maker(frmUChemicals_);
    Main.Windows.UConcentration = Maker(frmUConcentration_);
    Main.Windows.UTemperature = Maker(frmUTemperature_);
    Main.Windows.UMetal = Maker(frmUMetal_);
    Main.Windows.UPlast = Maker(frmUPlast_);
    Main.Windows.UTight = Maker(frmUTight_);
    Main.Windows.UMisc = Maker(frmUMisc_);
    Main.Windows.URelations = Maker(frmURelations_);
    Main.Windows.Inställningar = Maker(frmInställningar_);
    Main.Windows.UPD = Maker(frmUPD_);
    Main.Windows.About = Maker(frmAbout_);
}

Program::~Program() = default;

template <class T>
Windows::Any Program::Maker(std::unique_ptr<T>& window) {
    return [this, &window]() -> platform::Form& { return MakeOnce(window, Main); };
}

}  // namespace vemora
