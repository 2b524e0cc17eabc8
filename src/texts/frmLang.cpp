// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "texts/frmLang.h"

#include "platform/error.h"
#include "texts/language_files.h"

namespace vemora {

frmLang::frmLang(platform::Desktop& desktop, std::filesystem::path folder)
    : Form(desktop, "frmLang",
           {.Caption = "Select language/ Välj språk",
            .ClientWidth = 4560,
            .ClientHeight = 1425,
            .Icon = "vemora"}),
      folder_(std::move(folder)) {
    cboLang.Click = [this] { cboLang_Click(); };
    cmdOk.Click = [this] { cmdOk_Click(); };
    cmdAvbryt.Click = [this] { cmdAvbryt_Click(); };
}

void frmLang::Form_Load() {
    try {
        ListLanguages(cboLang, folder_, bLaddar);
        Screen().MousePointer(platform::pointer::Default);
    } catch (const platform::Error& error) {
        Screen().MsgBox(std::to_string(error.Number) + error.Description + "\r\n" + "frmLogin.Form_Load ");
    }
}

// The choice takes effect here, not at cmdOk.
void frmLang::cboLang_Click() {
    if (!bLaddar) {
        ActivateLanguage(folder_, cboLang.Text());
    }
}

void frmLang::cmdOk_Click() {
    if (cboLang.ListIndex >= 0) {
        Unload();
    } else {
        cboLang.SetFocus();
    }
}

void frmLang::cmdAvbryt_Click() {
    Unload();
}

}  // namespace vemora
