// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "core/mMain.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/files/files.h"

namespace vemora {

using platform::Error;
namespace msg = platform::msg;

mMain::mMain(platform::Desktop& desktop, std::filesystem::path folder)
    : Screen(desktop), Folder(std::move(folder)), Texter(desktop, Folder) {
    Screen.AtEnd = [this] {
        if (gCn && gCn->IsOpen()) {
            gCn->Close();
        }
    };
    Screen.Help = [this] { OpenManual(); };
}

mMain::~mMain() {
    Screen.AtEnd = nullptr;
    Screen.Help = nullptr;
}

void mMain::Main() {
    try {
        if (!LanguageFileExists(Folder)) {
            if (Windows.Lang) {
                Windows.Lang().Show(platform::vbModal);
            }
            if (!LanguageFileExists(Folder)) {
                return;
            }
        }
        if (ÖppnaDB()) {
            gVärdeText1 = TextTillAndra("R0112");
            gVärdeText2 = TextTillAndra("R0113");
            gVärdeText3 = TextTillAndra("R0114");
            gVärdeText4 = TextTillAndra("R0115") + "    ";
            gFelTitel = TextTillAndra("R0116");
            gSpråk = TextTillAndra("lang");
            Windows.Main().Show();
        } else {
            Screen.MsgBox(TextTillAndra("R0117") + "\r\n\r\n" + TextTillAndra("R0118"), msg::Critical,
                          gFelTitel);
        }
    } catch (const Error& error) {
        Felrapport(error, ") in procedure Main in Module mMain");
    }
}

bool mMain::ÖppnaDB() {
    try {
        gCn = std::make_unique<platform::adodb::Connection>();
        gCn->CursorLocation = platform::adodb::adUseClient;
        gCn->Mode = platform::adodb::adModeShareExclusive;
        gCn->Provider = "Microsoft Jet 4.0 OLE DB Provider";
        gCn->ConnectionString = "Data Source=" + platform::Utf8FromPath(Folder / "Vemora.mdb");
        gCn->Properties["Jet OLEDB:Database Password"] = "mora27";
        gCn->Open();
        return true;
    } catch (const Error& error) {
        Felrapport(error, ") in procedure ÖppnaDB in Module mMain");
        return false;
    }
}

void mMain::OpenManual() const {
    Screen.OpenWebPage(PageInFolder("manual"));
}

void mMain::ÖppnaWebbsida(const std::string& Adress) {
    const std::string& page = Adress.empty() ? Published.DefaultPage : Adress;
    Screen.OpenWebPage(page.empty() ? PageInFolder("data") : page);
}

std::string mMain::PageInFolder(const std::string& name) const {
    const char* const language = gSpråk == "Svenska" ? "sv" : gSpråk == "Deutsch" ? "de" : "en";
    return platform::Utf8FromPath(platform::FindFolder(Folder, "pages") /
                                  platform::PathFromUtf8(name + "-" + language + ".html"));
}

void Window::VisaBild(platform::ControlArray<platform::Image>& imgBild) const {
    if (gSpråk == "Svenska") {
        imgBild(0).Visible = true;
        imgBild(1).Visible = false;
    } else if (gSpråk == "English") {
        imgBild(0).Visible = false;
        imgBild(1).Visible = true;
        imgBild(1).Left = imgBild(0).Left;
        imgBild(1).Top = imgBild(0).Top;
    }
}

void mMain::SetColWidth(platform::ListView& lvw) {
    try {
        platform::Form& parent = lvw.Parent();
        const platform::Font font = parent.Font;
        parent.Font = lvw.Font;
        const int scaleMode = parent.ScaleMode;
        parent.ScaleMode = 1;
        for (int i = 0; i < lvw.ColumnCount(); ++i) {
            const int heading = parent.TextWidth(lvw.Column(i).Text);
            // A heading that reads as a date would need 200 twips more; both measures keep well below 700.
            const int needed = 700 + heading;
            const int width = lvw.Column(i).Width;
            if (width > 0 && width < needed) {
                lvw.SetColumnWidth(i, needed);
            }
        }
        parent.Font = font;
        parent.ScaleMode = scaleMode;
    } catch (const Error& error) {
        Felrapport(error, ") in procedure SetColWidth in Module mMain");
    }
}

void mMain::Felrapport(const Error& error, const char* ending) {
    Screen.MsgBox(
        TextTillAndra("R0026") + " " + std::to_string(error.Number) + " (" + error.Description + ending,
        msg::Critical, gFelTitel);
}

}  // namespace vemora
