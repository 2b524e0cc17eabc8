// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "search/search_statement.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Keys;
using test::Rows;
using test::Session;
using test::Strings;

TEST(SearchStatement, IsAsTheOptionSays) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"x", 0,
         "SELECT * FROM Chemical WHERE (Chemical.Formula LIKE '%x%' OR Chemical.NameSE LIKE '%x%' OR "
         "Chemical.NameEN LIKE '%x%' OR Chemical.NameGE LIKE '%x%' OR Chemical.NickNameSE LIKE '%x%' OR "
         "Chemical.NickNameEN LIKE '%x%' OR Chemical.NickNameGE LIKE '%x%' OR Chemical.NoteSE LIKE '%x%' OR "
         "Chemical.NoteEN LIKE '%x%' OR Chemical.NoteGE LIKE '%x%') ORDER BY Chemical.NameSE"},
        {" ", 1, "SELECT * FROM Chemical WHERE ( Chemical.Formula LIKE '% %') ORDER BY Chemical.NameSE"},
        {"x", 2,
         "SELECT * FROM Chemical WHERE ( Chemical.NameSE LIKE '%x%' OR Chemical.NameEN LIKE '%x%' OR "
         "Chemical.NameGE LIKE '%x%') ORDER BY Chemical.NameSE"},
        {"x", 3,
         "SELECT * FROM Chemical WHERE ( Chemical.NickNameSE LIKE '%x%' OR Chemical.NickNameEN LIKE '%x%' OR "
         "Chemical.NickNameGE LIKE '%x%') ORDER BY Chemical.NameSE"},
        {"x'", 4,
         "SELECT * FROM Chemical WHERE ( Chemical.NoteSE LIKE '%x'%' OR Chemical.NoteEN LIKE '%x'%' OR "
         "Chemical.NoteGE LIKE '%x'%') ORDER BY Chemical.NameSE"},
        {"x", -1, "SELECT * FROM Chemical ORDER BY Chemical.NameSE"},
        {"", 2, "SELECT * FROM Chemical ORDER BY Chemical.NameSE"},
    };
    for (const auto& [text, option, statement] : cases) {
        EXPECT_EQ(SearchStatement(text, option), statement);
    }
}

TEST(Search, FindsByTheColumnsOfItsOption) {
    Session run;
    run.Start();
    const struct {
        std::string Text;
        int Option;
        Strings Found;
    } cases[] = {
        {"hcl", 0, {"K1"}},
        {"schwefel", 2, {"K2"}},
        {"acid", 1, {}},
        {"battery", 3, {"K2"}},
        {"LUFT", 4, {"K1"}},
        {"raucht", 3, {}},
        // Case counts in no script, accents do; the wildcards act, and what else looks like one doesn't.
        {"ÅNG", 0, {"K3"}},
        {"ang", 0, {}},
        {"straße", 4, {"K4"}},
        {"strasse", 4, {}},
        {"H_l", 1, {"K1"}},
        {"s%syra", 2, {"K1", "K2"}},
        {"[fast]", 4, {"K3"}},
        {"*", 0, {"K3"}},
        // Blanks count as they stand, and there is no limit.
        {" ", 2, {"K1", "K2", "K3", "K5"}},
        {"Salzsäure ", 0, {}},
        {std::string(100000, 'x'), 0, {}},
        {"", 0, {"K4", "K1", "K2", "K3", "K5"}},
    };
    for (const auto& [text, option, found] : cases) {
        SCOPED_TRACE(platform::Left(text, 20) + " by " + std::to_string(option));
        run.Search(text, option);
        EXPECT_EQ(Keys(run.Main().lvwResultat), found);
        EXPECT_EQ(run.Main().lblInfo.Caption,
                  found.empty() ? run.T("R0055") : run.T("R0054") + " " + std::to_string(found.size()));
        EXPECT_EQ(run.Main().ActiveControl()->Name(), found.empty() ? "txtChem" : "lvwResultat");
    }
}

TEST(Search, ShowsNamesOfTheLanguageInTheOrderOfTheSwedishOnes) {
    const struct {
        const char* Language;
        Strings Shown;
    } cases[] = {
        {"Svenska",
         {"Bensin|", "Saltsyra|HCl", "Svavelsyra|H2SO4", "ångolja*   |C10-C13", "Äkta soda*   |Na2CO3"}},
        {"English",
         {"|", "Hydrochloric acid|HCl", "Sulphuric acid|H2SO4", "Steam oil*   |C10-C13", "*   |Na2CO3"}},
    };
    for (const auto& [language, shown] : cases) {
        Session run(language);
        run.Start();
        run.Search("");
        Strings rows;
        for (const std::string& row : Rows(run.Main().lvwResultat)) {
            rows.push_back(platform::Replace(row, run.T("R0057"), "*"));
        }
        EXPECT_EQ(rows, shown);
        EXPECT_EQ(test::Headings(run.Main().lvwResultat), (Strings{run.T("R0034"), run.T("R0031")}));
        EXPECT_EQ(run.Ask("SELECT Formula FROM Chemical WHERE ID = 3"), Strings{"C10–C13"});
    }
}

TEST(Search, InGermanThereIsNoList) {
    Session run("Deutsch");
    run.Start();
    run.Search("syra");
    EXPECT_EQ(run.Boxes(), Strings{run.Report(91, "AddToListView in Form frmSök")});
    EXPECT_EQ(run.Main().lvwResultat.ItemCount(), 0);
    EXPECT_EQ(run.Main().lvwResultat.ColumnCount(), 2);
    EXPECT_EQ(run.Main().lblInfo.Caption, run.T("R0054") + " 0");
    EXPECT_EQ(run.Main().ActiveControl(), &run.Main().txtChem);
    // A search without a hit comes to no row, and so to no report.
    run.Search("nothing like it");
    EXPECT_EQ(run.Main().lblInfo.Caption, run.T("R0055"));
}

TEST(Search, AStatementThatAQuoteBreaksEndsTheProgramInOrder) {
    for (const std::string text :
         {"O'Neil", "'); DELETE FROM Chemical; --", "%' UNION SELECT * FROM Temp --"}) {
        SCOPED_TRACE(text);
        Session run;
        run.Start();
        run.Search(text);
        EXPECT_EQ(run.Boxes(), Strings{"[16 -] -2147217900 (…)"});
        EXPECT_TRUE(run.Desktop.Ended());
        EXPECT_EQ(run.Desktop.Log.back(), "quit");
        EXPECT_EQ(run.Folder.Files(), Strings{"Vemora.mdb"});
        // Nothing runs any more, and the rows are all there.
        run.Main().cmdSök.InputClick();
        platform::Store store(run.Folder.Database(), test::kPassword, platform::Store::Access::ReadOnly);
        auto count = store.Prepare("SELECT count(*) FROM Chemical");
        EXPECT_TRUE(count.Step());
        EXPECT_EQ(count.Integer(0), 5);
    }
}

TEST(Search, SelectsTheFirstHitAndMovesFocusAndDefaultButton) {
    Session run;
    run.Start();
    frmMain& window = run.Main();
    EXPECT_EQ(window.ActiveControl(), &window.txtChem);
    EXPECT_TRUE(window.cmdSök.Default);
    EXPECT_EQ(window.lvwResultat.ColumnCount(), 0);
    test::Press(window, platform::key::Return);
    EXPECT_EQ(window.ActiveControl(), &window.lvwResultat);
    EXPECT_EQ(window.lvwResultat.SelectedIndex(), 0);
    EXPECT_FALSE(window.cmdSök.Default);
    EXPECT_EQ(run.Desktop.Logged("focus"), (Strings{"focus cmdSök", "focus lvwResultat"}));

    // No hit: the old headings stay, and the text is ready to be typed over.
    window.txtChem.InputFocus();
    EXPECT_TRUE(window.cmdSök.Default);
    window.txtChem.SelLength = 0;
    window.txtChem.InputText("no such chemical");
    window.cmdSök.InputFocus();
    window.cmdSök.InputClick();
    EXPECT_EQ(window.lvwResultat.ColumnCount(), 2);
    EXPECT_EQ(window.ActiveControl(), &window.txtChem);
    EXPECT_EQ(window.txtChem.SelStart, 0);
    EXPECT_EQ(window.txtChem.SelLength, 999);
}

TEST(Search, AClickOnAHeadingTurnsTheOrderWhicheverItIs) {
    Session run;
    run.Start();
    run.Search("");
    platform::ListView& list = run.Main().lvwResultat;
    list.InputColumnClick(0);
    EXPECT_EQ(Keys(list), (Strings{"K5", "K3", "K2", "K1", "K4"}));
    list.InputColumnClick(1);
    EXPECT_EQ(Keys(list), (Strings{"K4", "K3", "K2", "K1", "K5"}));  // by formula, ascending
    list.InputColumnClick(0);
    // From now on the hits of every search come in this order, and the first of them is selected.
    run.Search("syra", 2);
    EXPECT_EQ(Keys(list), (Strings{"K2", "K1"}));
    EXPECT_EQ(list.SelectedIndex(), 0);
    for (int column = 0; column < 2; ++column) {
        EXPECT_EQ(list.Column(column).SortImage, std::nullopt);
    }
}

TEST(Search, OpensTheSheetOfTheRowClickedLast) {
    Session run;
    run.Start();
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
    EXPECT_EQ(run.Sheet().Nyckel(), -1);
}

}  // namespace
}  // namespace vemora
