// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "about/frmAbout.h"

namespace vemora {

namespace msg = platform::msg;

frmAbout::frmAbout(mMain& main)
    : Window(main, "frmAbout",
             {.Caption = "Om Vemora", .Tag = "R0205", .ClientWidth = 7200, .ClientHeight = 3720}) {
    const auto open = [this](const std::string& page, const char* own) {
        Main.ÖppnaWebbsida(page.empty() ? Main.PageInFolder(own) : page);
    };
    imgMaker.Click = [this, open] { open(Main.Published.MakerPage, "data"); };
    imgDistributor.Click = [this, open] { open(Main.Published.DistributorPage, "manual"); };
    cmdSysInfo.Click = [this] { cmdSysInfo_Click(); };
    cmdOK.Click = [this] { Unload(); };
}

void frmAbout::Form_Load() {
    SetTextOfForm();
    Icon = Main.MainIcon;
    lblVersion.Caption = "Version " + Main.Published.Version;
    VisaBild(imgBild);
}

void frmAbout::cmdSysInfo_Click() {
    if (!Screen().OpenSystemInformation()) {
        Screen().MsgBox(TextTillAndra("R0341"), msg::Information, gFelTitel);
    }
}

}  // namespace vemora
