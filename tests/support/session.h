// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "search/frmMain.h"
#include "sheet/frmChemical.h"
#include "support/program_folder.h"
#include "support/scripted_desktop.h"

namespace test {

using Strings = std::vector<std::string>;

/// One run of the program on a folder and a desktop of its own.
class Session {
  public:
    explicit Session(const std::string& language = "Svenska") : Folder(language) {}

    ProgramFolder Folder;
    ScriptedDesktop Desktop;
    vemora::Program Program{Desktop, Folder.Path()};
    vemora::mMain& Core = Program.Main;

    void Start() {
        Desktop.Event([this] { Core.Main(); });
    }
    vemora::frmMain& Main() { return dynamic_cast<vemora::frmMain&>(Core.Windows.Main()); }
    vemora::frmChemical& Sheet() { return Core.Windows.Chemical(); }
    std::string T(const std::string& key) { return Core.TextTillAndra(key); }
    Strings Boxes() { return Desktop.TakeBoxes(); }

    /// The common error report as TakeBoxes gives it; where is "GetConc in Form frmChemical".
    std::string Report(long number, const std::string& where) {
        return "[16 " + Core.gFelTitel + "] " + T("R0026") + " " + std::to_string(number) +
               " (…) in procedure " + where;
    }

    /// The user types a text into the main window, in the place of what stood there, and presses Enter.
    void Search(const std::string& text, int option = 0);
    /// Shows the sheet of a chemical; the piece runs while it is up, and the sheet is closed behind it.
    void OpenSheet(std::int32_t ID, const std::function<void(vemora::frmChemical&)>& piece);
    /// Runs a statement of the system on the open database.
    void Change(const std::string& statement) { Core.gCn->Execute(statement); }
    /// The first field of every row of a statement.
    Strings Ask(const std::string& statement);
    /// Every row of every table: "relMetal|1|2|3|4|+|0".
    Strings All();
};

/// What is in one list of rows and not in the other, each with a sign before it.
Strings Less(const Strings& from, const Strings& what, const std::string& sign = {});

/// A run whose main window is up, over rows that statements of the store's own SQL have changed.
struct Running : Session {
    explicit Running(const std::string& language = "Svenska", std::string_view sql = {}) : Session(language) {
        Folder.Change(sql);
        Start();
    }
};

/// The rows of a list as shown: the texts of its columns joined by "|".
Strings Rows(const platform::ListView& list);
/// The keys of its rows.
Strings Keys(const platform::ListView& list);
/// Its columns, each with its width and what else is to be seen: "Namn 1200 centred chemical sort-ascending".
Strings Columns(const platform::ListView& list);
/// The lines of a list, each with its item data: "10 %=1".
Strings Entries(const platform::LineList& list);
/// The user chooses the entry that begins so.
void Choose(platform::ComboBox& list, std::string_view beginning);

/// Gives a window each size, {width, height, state}, and expects that of its list behind it, {width, height}.
void ExpectListFollows(platform::Form& form, const platform::ListView& list,
                       const std::vector<std::array<int, 5>>& cases);

/// A key that types a character: Enter or Esc.
inline void Press(platform::Form& form, int key) {
    form.InputKey(key, 0, key);
}

}  // namespace test
