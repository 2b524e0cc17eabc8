// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "about/frmAbout.h"

namespace vemora {

namespace msg = platform::msg;

frmAbout::frmAbout(mMain& main)
    : Window(main, "frmAbout",
             {.Caption = "Om Vemora", .Tag = "R0205", .ClientWidth = 7200, .ClientHeight = 3720}) {
    imgMaker.Click = [this] { Main.ÖppnaWebbsida(Main.Published.MakerPage); };
    imgDistributor.Click = [this] {
        const std::string& page = Main.Published.DistributorPage;
        Main.ÖppnaWebbsida(page.empty() ? Main.PageInFolder("manual") : page);
    };
    cmdSysInfo.Click = [this] { cmdSysInfo_Click(); };
    cmdOK.Click = [this] { Unload(); };
}

void frmAbout::Form_Load() {
    SetTextOfForm();
    Icon = Main.MainIcon;
    lblTitle.Caption = gFelTitel;
    lblVersion.Caption = "Version " + Main.Published.Version;
    VisaBild(imgBild);
}

void frmAbout::cmdSysInfo_Click() {
    if (!Screen().OpenSystemInformation()) {
        Screen().MsgBox(TextTillAndra("R0341"), msg::Information, gFelTitel);
    }
}

}  // namespace vemora
