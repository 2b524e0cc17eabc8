// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "update/frmUPD.h"

#include "platform/error.h"
#include "platform/files/files.h"

namespace vemora {

using platform::Error;
namespace msg = platform::msg;
namespace pointer = platform::pointer;

frmUPD::frmUPD(mMain& main)
    : Window(main, "frmUPD",
             {.Caption = "Uppdatera databasen", .Tag = "R0077", .ClientWidth = 7200, .ClientHeight = 2865}) {
    cmdImport.Click = [this] { cmdImport_Click(); };
    cmdClose.Click = [this] { Unload(); };
    Inet.Waiting = [this] { Screen().Paint(); };
}

void frmUPD::Form_Load() {
    SetTextOfForm();
}

void frmUPD::cmdImport_Click() {
    try {
        Importera();
    } catch (const Error& error) {
        // The pointer and the label stay as they are.
        Inet.Cancel();
        Knappar(true);
        Main.Felrapport(error, ") in procedure cmdImport_Click in Form frmUPD");
    }
}

void frmUPD::Importera() {
    MousePointer(pointer::Hourglass);
    Knappar(false);
    const std::string received = Inet.OpenURL(Adress());
    Inet.Cancel();
    if (received.find('\0') != std::string::npos) {
        throw Error(platform::errors::WrongType, "Fetching the update file failed: what has come is no text.",
                    "update");
    }
    if (received.empty()) {
        Screen().MsgBox(TextTillAndra("R0074") + "\r\n\r\n" + TextTillAndra("R0075") + "\r\n\r\n" +
                            TextTillAndra("R0076"),
                        msg::Exclamation, TextTillAndra("R0077"));
    } else {
        lblInfo.Visible = true;
        Screen().Paint();
        try {
            platform::Kill(Main.Folder, kUpdateFile);
        } catch (const Error&) {
            // Mostly there is none; whether it can be written shows in the next step.
        }
        platform::WriteFile(Main.Folder / kUpdateFile, received);
        const std::int32_t changes = LäsFil();
        lblInfo.Visible = false;
        platform::Kill(Main.Folder, kUpdateFile);
        Screen().MsgBox(
            changes < 1 ? TextTillAndra("R0080") : std::to_string(changes) + " " + TextTillAndra("R0078"),
            msg::Information, TextTillAndra("R0079"));
    }
    Knappar(true);
    MousePointer(pointer::Default);
    Unload();
}

// What was written before a failure stays written, and its number is lost.
std::int32_t frmUPD::LäsFil() {
    try {
        if (!mSkrivare) {
            mSkrivare.emplace(
                [this]() -> platform::adodb::Connection& { return Koppling(); },
                [this](const Error& error, const char* ending) { Main.Felrapport(error, ending); });
        }
        mSkrivare->Ändringar = 0;
        UpdateLines lines(Main.Folder / kUpdateFile);
        TaIn(lines, *mSkrivare, [this](const std::string& NameSE) {
            lblPost.Caption = TextTillAndra("R0034") + ": " + NameSE;
            Screen().Paint();
        });
        return mSkrivare->Ändringar;
    } catch (const Error& error) {
        Screen().Beep();
        Screen().MsgBox(
            error.Number == platform::errors::RequiredField
                ? TextTillAndra("R0083")
                : std::to_string(error.Number) + "\r\n" + error.Description + "\r\n" + error.Source,
            msg::Critical, gFelTitel);
        return 0;
    }
}

// The main window can be closed while a writer's message is up.
platform::adodb::Connection& frmUPD::Koppling() const {
    if (gCn == nullptr) {
        throw Error(platform::errors::ConnectionClosed, "The database has been closed.", "update");
    }
    return *gCn;
}

void frmUPD::Knappar(bool Enabled) {
    cmdImport.Enabled = Enabled;
    cmdClose.Enabled = Enabled;
}

std::string frmUPD::Adress() const {
    std::string host = Main.Published.UpdateHost;
    if (host.empty()) {
        return {};
    }
    if (host.ends_with('/')) {
        host.pop_back();
    }
    return (host.find("://") == std::string::npos ? "http://" : "") + host + kUpdatePath;
}

}  // namespace vemora
