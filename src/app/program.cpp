// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "app/program.h"

#include "search/frmMain.h"
#include "sheet/frmChemical.h"
#include "texts/frmLang.h"

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
    Main.Windows.Main = [this]() -> platform::Form& { return MakeOnce(frmMain_, Main); };
    Main.Windows.Chemical = [this]() -> frmChemical& { return MakeOnce(frmChemical_, Main); };
}

Program::~Program() = default;

}  // namespace vemora
