// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/files/files.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Keys;
using test::Rows;
using test::Running;
using test::Session;
using test::Strings;

TEST(Search, LooksIntoTheColumnsOfItsOption) {
    Running run;
    const std::pair<std::string, const char*> cases[] = {
        {"Formula", "01"},    {"NameSE", "02"},     {"NameEN", "02"},     {"NameGE", "02"},
        {"NickNameSE", "03"}, {"NickNameEN", "03"}, {"NickNameGE", "03"}, {"NoteSE", "04"},
        {"NoteEN", "04"},     {"NoteGE", "04"},     {"FormulaRTF", ""}};
    for (const auto& [column, options] : cases) {
        run.Change("UPDATE Chemical SET " + column + " = 'xyzzy' WHERE ID = 5");
        std::string found;
        for (int option = 0; option <= 4; ++option) {
            run.Search("Yzz", option);
            found += Keys(run.Main().lvwResultat) == Strings{"K5"} ? std::to_string(option) : "";
        }
        EXPECT_EQ(found, options) << column;
        run.Change("UPDATE Chemical SET " + column + " = Null WHERE ID = 5");
    }
}

TEST(Search, TakesTheTextAsItStands) {
    Running run;
    const std::tuple<std::string, int, Strings> cases[] = {{"ÅNG", 0, {"K3"}},
                                                           {"s%syra", 2, {"K1", "K2"}},
                                                           {"[fast]", 4, {"K3"}},
                                                           {" ", 2, {"K1", "K2", "K3", "K5"}},
                                                           {"Salzsäure ", 0, {}},
                                                           {std::string(100000, 'x'), 0, {}},
                                                           {"", 2, {"K4", "K1", "K2", "K3", "K5"}}};
    for (const auto& [text, option, found] : cases) {
        run.Search(text, option);
        EXPECT_EQ(Keys(run.Main().lvwResultat), found) << text.substr(0, 20);
        EXPECT_EQ(run.Main().lblInfo.Caption,
                  found.empty() ? run.T("R0055") : run.T("R0054") + " " + std::to_string(found.size()));
        // The first hit is selected, or the text is ready to be typed over; the button goes with the box.
        EXPECT_EQ(run.Main().ActiveControl()->Name(), found.empty() ? "txtChem" : "lvwResultat");
        EXPECT_EQ(run.Main().lvwResultat.SelectedIndex(), found.empty() ? -1 : 0);
        EXPECT_TRUE(!found.empty() || run.Main().txtChem.SelLength == 999);
        run.Main().txtChem.SelLength = 0;
        EXPECT_EQ(run.Main().cmdSök.Default, found.empty());
    }
    EXPECT_EQ(run.Desktop.Logged("focus").back(), "focus lvwResultat");
}

TEST(Search, ShowsNamesOfTheLanguageInTheOrderOfTheSwedishOnes) {
    const std::pair<const char*, Strings> cases[] = {
        {"Svenska",
         {"Bensin|", "Saltsyra|HCl", "Svavelsyra|H2SO4", "ångolja* (egen)   |C10-C13",
          "Äkta soda* (egen)   |Na2CO3"}},
        {"English",
         {"|", "Hydrochloric acid|HCl", "Sulphuric acid|H2SO4", "Steam oil* (own)   |C10-C13",
          "* (own)   |Na2CO3"}}};
    for (const auto& [language, shown] : cases) {
        Running run(language);
        run.Search("");
        EXPECT_EQ(Rows(run.Main().lvwResultat), shown);
        EXPECT_EQ(run.Ask("SELECT Formula FROM Chemical WHERE ID = 3"), Strings{"C10–C13"});
    }
}

TEST(Search, InGermanThereIsNoList) {
    Running run("Deutsch");
    run.Search("syra");
    EXPECT_EQ(run.Boxes(), Strings{run.Report(91, "AddToListView in Form frmSök")});
    EXPECT_EQ(run.Main().lvwResultat.ColumnCount(), 2);
    EXPECT_EQ(run.Main().lblInfo.Caption, run.T("R0054") + " 0");
    // A search without a hit comes to no row, and so to no report.
    run.Search("nothing like it");
    EXPECT_EQ(run.Main().lblInfo.Caption, run.T("R0055"));
}

struct Watcher final : platform::View {
    void ControlChanged() override { Changed(); }
    std::function<void()> Changed;
};

TEST(Search, GoesOnWhenItsColumnsFail) {
    Running run;
    run.Main().InputResize(4200, 7245);  // so narrow that a column has to be widened
    platform::ListView& list = run.Main().lvwResultat;
    const std::tuple<int, int, const char*> cases[] = {{1, 700, "SetColumns in Form frmSök"},
                                                       {2, 1510, "SetColWidth in Module mMain"}};
    for (const auto& [columns, width, where] : cases) {
        Watcher view;
        view.Changed = [&, count = columns, widened = width] {
            if (list.ColumnCount() == count && list.Column(0).Width == widened) {
                list.Attach(nullptr);
                throw platform::Error(platform::errors::OutOfMemory, "The list can't be drawn.");
            }
        };
        list.Attach(&view);
        run.Search("syra");
        EXPECT_EQ(run.Boxes(), Strings{run.Report(platform::errors::OutOfMemory, where)});
        EXPECT_EQ(Keys(list), (Strings{"K1", "K2"}));
        EXPECT_EQ(run.Main().lblInfo.Caption, run.T("R0054") + " 2");
    }
}

TEST(Search, AClickOnAHeadingTurnsTheOrderWhicheverItIs) {
    Running run;
    platform::ListView& list = run.Main().lvwResultat;
    run.Search("");
    list.InputColumnClick(0);
    EXPECT_EQ(Keys(list), (Strings{"K5", "K3", "K2", "K1", "K4"}));
    list.InputColumnClick(1);
    EXPECT_EQ(Keys(list), (Strings{"K4", "K3", "K2", "K1", "K5"}));  // by formula, ascending
    list.InputColumnClick(0);
    // From now on the hits of every search come in this order, and the first of them is selected.
    run.Search("syra", 2);
    EXPECT_EQ(Keys(list), (Strings{"K2", "K1"}));
    EXPECT_EQ(list.SelectedIndex(), 0);
    EXPECT_EQ(test::Columns(list), (Strings{"Kemikalie 3190 chemical", "Formel 1750 formula"}));  // no arrow
}

TEST(Search, OpensTheSheetOfTheRowClickedLast) {
    Running run;
    frmMain& window = run.Main();
    window.lvwResultat.InputFocus();
    test::Press(window, platform::key::Return);  // no row yet: nothing
    window.lvwResultat.InputDoubleClick();

    Strings opened;
    const auto expectSheet = [&] {
        run.Desktop.WhileModal<frmChemical>([&](frmChemical& sheet) {
            opened.push_back(sheet.txtFields(2).Text);
            test::Press(sheet, platform::key::Escape);  // belongs to cboConc, which has the focus
            EXPECT_TRUE(sheet.IsLoaded());
            sheet.cmdStäng.InputClick();
        });
    };
    run.Search("syra", 2);
    expectSheet();
    test::Press(window, platform::key::Return);
    window.lvwResultat.InputSelect(1);
    expectSheet();
    window.lvwResultat.InputDoubleClick();
    // A row that the search without a hit took out of the list is still the one clicked last.
    run.Search("no such chemical");
    expectSheet();
    window.lvwResultat.InputDoubleClick();
    EXPECT_EQ(opened, (Strings{"Saltsyra", "Svavelsyra", "Svavelsyra"}));
    EXPECT_EQ(run.Desktop.Logged("show frmChemical"), Strings(3, "show frmChemical modal over frmMain"));
}

TEST(MainWindow, ClosingItByWhateverWayEndsTheProgram) {
    void (*const ways[])(frmMain&) = {[](frmMain& window) { window.cmdStäng.InputClick(); },
                                      [](frmMain& window) { window.mnuExit.InputClick(); },
                                      [](frmMain& window) { window.InputClose(); },
                                      [](frmMain& window) { test::Press(window, platform::key::Escape); }};
    for (const auto close : ways) {
        Running run;
        run.Search("syra");
        run.Sheet().Load();
        test::Press(run.Main(), platform::key::Escape);  // does nothing in normal use
        EXPECT_TRUE(run.Main().IsLoaded());
        run.Core.gRedigeraAllt = true;
        close(run.Main());
        EXPECT_EQ(run.Core.gCn, nullptr);
        for (const platform::Form* form : run.Core.Forms) {
            EXPECT_FALSE(form->IsLoaded()) << form->Name();
        }
        EXPECT_EQ(run.Desktop.Logged("closed frmMain").size(), 1U);
        EXPECT_EQ(run.Folder.Files(), Strings{"Vemora.mdb"});
    }
}

TEST(MainWindow, ItsListFollowsItsSizeAndItsColumnsTheNextSearch) {
    Running run;
    platform::ListView& list = run.Main().lvwResultat;
    run.Search("");
    test::ExpectListFollows(run.Main(), list,
                            {{8000, 9000, platform::vbNormal, 6600, 7290},
                             {12000, 10000, platform::vbMaximized, 10600, 8290},
                             {160, 28, platform::vbMinimized, 10600, 8290},
                             {1401, 1711, platform::vbNormal, 1, 1},
                             {1400, 1590, platform::vbNormal, 1, 1},  // too small for a list
                             {4200, 7245, platform::vbNormal, 2800, 5535}});
    EXPECT_EQ(list.Column(0).Width, 3190);
    run.Search("");  // too narrow for the heading, which has 9 characters of 90 twips
    EXPECT_EQ(test::Columns(list), (Strings{"Kemikalie 1510 chemical", "Formel 1750 formula"}));
}

TEST(MainWindow, EachEntryOfItsMenuOpensItsWindow) {
    Session run;
    frmMain& main = run.Main();
    Windows& all = run.Core.Windows;
    platform::Menu* const entries[] = {&main.mnuInställningar, &main.mnuChemicals, &main.mnuUConcentration,
                                       &main.mnuUTemperature,  &main.mnuUMetal,    &main.mnuUPlast,
                                       &main.mnuUTight,        &main.mnuUMisc,     &main.mnuURelations,
                                       &main.mnuUpd,           &main.mnuInfo};
    Windows::Any* const windows[] = {
        &all.Inställningar, &all.UChemicals, &all.UConcentration, &all.UTemperature, &all.UMetal, &all.UPlast,
        &all.UTight,        &all.UMisc,      &all.URelations,     &all.UPD,          &all.About};
    std::deque<platform::Form> forms;
    for (Windows::Any* window : windows) {
        auto& shown = forms.emplace_back(run.Desktop, entries[forms.size()]->Name(), platform::FormDesign{});
        *window = [&shown]() -> platform::Form& { return shown; };
    }
    run.Start();
    for (platform::Menu* entry : entries) {
        run.Desktop.WhileModal<platform::Form>([](platform::Form& form) { form.Unload(); });
        entry->InputClick();
        const char* const way = entry == &main.mnuInställningar ? " modal over frmMain" : " modal";
        EXPECT_EQ(run.Desktop.Logged("show").back(), "show " + entry->Name() + way);
    }
}

}  // namespace
}  // namespace vemora
