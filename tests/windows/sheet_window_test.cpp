// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/session.h"

namespace vemora {
namespace {

using test::Running;
using test::Strings;

/// Name, trade name and note as shown.
std::string Shown(const frmChemical& sheet) {
    return sheet.txtFields(2).Text.Get() + "/" + sheet.txtFields(10).Text.Get() + "/" +
           sheet.txtFields(5).Text.Get();
}

TEST(SheetWindow, ShowsTheTextsOfTheLanguageChosenInIt) {
    const std::string texts[] = {"Hydrochloric acid/Muriatic acid/Fumes in air",
                                 "Salzsäure/Chlorwasserstoff/Raucht", "Saltsyra/Klorväte/Ryker i luft"};
    for (const auto& [language, chosen] : {std::pair{"Svenska", 2}, {"English", 0}, {"Deutsch", 2}}) {
        SCOPED_TRACE(language);
        Running run(language);
        run.OpenSheet(1, [&, option = chosen](frmChemical& sheet) {
            EXPECT_TRUE(sheet.opt1Språk(option).Value);
            EXPECT_EQ(Shown(sheet), texts[option]);
            EXPECT_EQ(sheet.imgBild(0).Visible, option != 0);
            EXPECT_EQ(sheet.imgBild(1).Visible, option == 0);
            EXPECT_EQ(sheet.Caption, run.T("R0001"));
            run.Boxes();
            sheet.lvwMaterial.Select(3);
            for (const int other : {1, 2, 0}) {
                sheet.opt1Språk(other).InputClick();
                EXPECT_EQ(Shown(sheet), texts[other]);
            }
            EXPECT_EQ(sheet.txtFields(4).Text, "Salzsäure");
            EXPECT_EQ(sheet.lvwMaterial.SelectedIndex(), 3);  // the table is not shown anew
        });
    }
    Running run;
    run.OpenSheet(3, [&](frmChemical& sheet) {
        for (const int shown : {2, 10, 5}) {
            sheet.txtFields(shown).InputText("locked");
        }
        EXPECT_EQ(Shown(sheet), "ångolja//Över 50_% [fast] *");
        run.Change("UPDATE Chemical SET NoteSE = 'new' WHERE ID = 3");
        sheet.opt1Språk(1).InputClick();
        EXPECT_EQ(Shown(sheet), "//");
        sheet.opt1Språk(2).InputClick();  // the row has been read anew
        EXPECT_EQ(Shown(sheet), "ångolja//new");
    });
}

TEST(SheetWindow, ShowsTheFormulaSetOrPlain) {
    Running run("Svenska",
                "UPDATE Chemical SET FormulaRTF = 'no rich text' WHERE ID = 5;"
                "UPDATE Chemical SET Egen = -1 WHERE ID = 4");
    const char* const formulas[] = {"HCl", "H2SO4", "C10–C13", "", "no rich text"};
    for (int id = 1; id <= 5; ++id) {
        run.OpenSheet(id, [&](frmChemical& sheet) {
            EXPECT_EQ(sheet.oFormula1.PlainText(), formulas[id - 1]);
            EXPECT_TRUE(sheet.oFormula1.Locked);
            EXPECT_EQ(sheet.lblÄndrad.Visible, id >= 3);
            EXPECT_EQ(sheet.oFormula1.Content().size() > 1, id == 2);  // with heights
        });
    }
}

TEST(SheetWindow, OfAChemicalThatIsGoneIsEmpty) {
    for (const std::string language : {"Svenska", "English"}) {
        Running run(language);
        run.Search("salt");
        run.Change("DELETE FROM Chemical WHERE ID = 1");
        if (language == "Svenska") {
            run.Desktop.WhileModal<frmChemical>([&](frmChemical& sheet) {
                EXPECT_EQ(Shown(sheet), "//");
                sheet.chkVärde(0).InputClick();
                EXPECT_EQ(sheet.lblResultat.Caption, "");
                sheet.opt1Språk(0).InputClick();
            });
        }
        test::Press(run.Main(), platform::key::Return);
        // The other language, in English that of the opening, is asked of a row, and nobody guards that.
        EXPECT_EQ(run.Boxes(), Strings{"[16 -] 13 (…)"});
        EXPECT_TRUE(run.Desktop.Ended());
        EXPECT_EQ(run.Folder.Files(), Strings{"Vemora.mdb"});
    }
    Running run("Deutsch");
    run.OpenSheet(-1, [](frmChemical& sheet) {
        EXPECT_EQ(test::Columns(sheet.lvwMaterial),
                  (Strings{"Wert 620 sort-ascending", "Name 1200", "Beschreibung 11500"}));
        EXPECT_EQ(sheet.oFormula1.PlainText(), "");
    });
}

TEST(SheetWindow, TheSwitchOfTheSelectionTellsWhatItDoesNext) {
    Running run;
    for (const bool selection : {true, false}) {
        run.OpenSheet(1, [&](frmChemical& sheet) {
            const auto expect = [&](const char* caption, const char* tip, int selected) {
                EXPECT_EQ(sheet.chkFilter.Caption, run.T(caption));
                EXPECT_EQ(sheet.chkFilter.ToolTipText, run.T(tip));
                EXPECT_EQ(sheet.lblFilter.Caption, " " + run.T(selection ? "R0023" : "R0012") + " ");
                EXPECT_EQ(sheet.lvwMaterial.SelectedIndex(), selected);
            };
            expect("R0010", "R0011", 0);
            sheet.lvwMaterial.Select(2);
            sheet.chkFilter.InputClick();
            expect("R0008", "R0009", selection ? 0 : 2);  // with nothing left out the table stays as it is
            sheet.cboTemp.InputIndex(1);
            expect("R0008", "R0009", 0);
        });
        for (const char* table : {"Conc", "Misc", "Plast", "Tight", "Metal", "Temp"}) {
            run.Change(std::string("UPDATE ") + table + " SET Med = -1");
        }
    }
}

TEST(SheetWindow, SortsByTheHeadingClicked) {
    Running run;
    run.OpenSheet(1, [](frmChemical& sheet) {
        platform::ListView& list = sheet.lvwMaterial;
        const auto state = [&] {
            std::string sorted;
            for (const std::string& column : test::Columns(list)) {
                sorted += column.find("sort-") != std::string::npos ? column + " " : "";
            }
            return sorted + list.Item(0).Text + "/" + list.Item(0).SubItems(3);
        };
        const Strings opened = test::Rows(list);
        EXPECT_EQ(state(), "Koncentration 1800 sort-ascending /PVC");
        list.InputColumnClick(0);  // just refreshed, the first click on it turns it round
        EXPECT_EQ(state(), "Koncentration 1800 sort-descending koncentrerad/Glas");
        list.InputColumnClick(3);
        EXPECT_EQ(state(), "Namn 1200 sort-ascending koncentrerad/ NBR ");
        list.InputColumnClick(3);
        EXPECT_EQ(state(), "Namn 1200 sort-descending 2 %/Stål");
        list.InputColumnClick(2);
        EXPECT_EQ(state(), "10 %/Stål");  // the verdicts have no arrow
        list.InputColumnClick(1);
        sheet.cboConc.InputIndex(0);  // every refresh is back in its own order
        EXPECT_EQ(state(), "Koncentration 1800 sort-ascending /PVC");
        EXPECT_EQ(test::Rows(list), opened);
    });
}

TEST(SheetWindow, ItsListFollowsItsSizeAndEscClosesItExceptInTheDropDownLists) {
    Running run;
    run.OpenSheet(1, [](frmChemical& sheet) {
        test::ExpectListFollows(sheet, sheet.lvwMaterial,
                                {{15000, 9000, platform::vbNormal, 14760, 4700},
                                 {160, 28, platform::vbMinimized, 14760, 4700},
                                 {241, 4301, platform::vbNormal, 1, 1},
                                 {240, 4180, platform::vbNormal, 1, 1},
                                 {20000, 10000, platform::vbMaximized, 19760, 5700}});
        EXPECT_EQ(sheet.lvwMaterial.Column(4).Width, 13440 - 5560);
        sheet.cboTemp.InputIndex(1);
        EXPECT_EQ(sheet.lvwMaterial.Column(4).Width, 19760 - 5560);  // with the next refresh

        test::Press(sheet, platform::key::Escape);
        sheet.cboTemp.InputFocus();
        sheet.InputActivate();  // only the first time sets anything
        test::Press(sheet, platform::key::Escape);
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboTemp);
        sheet.lvwMaterial.InputFocus();
        EXPECT_FALSE(sheet.InputKey(34) || !sheet.IsLoaded());
        EXPECT_TRUE(sheet.InputKey(platform::key::Escape, 0, platform::key::Escape));
        EXPECT_FALSE(sheet.IsLoaded());
    });
}

TEST(SheetWindow, EachOpeningBeginsAsDesigned) {
    Running run;
    Strings rows;
    run.OpenSheet(1, [&](frmChemical& sheet) {
        rows = test::Rows(sheet.lvwMaterial);
        sheet.InputResize(20000, 12000);
        sheet.chkFilter.InputClick();
        sheet.chkVärde(3).InputClick();
        sheet.chkMaterial(1).InputClick();
        sheet.cboConc.InputIndex(1);
        sheet.opt1Språk(1).InputClick();
        sheet.lvwMaterial.InputColumnClick(1);
        sheet.InputClose();
    });
    EXPECT_EQ(run.Sheet().Nyckel(), -1);
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(test::Rows(sheet.lvwMaterial), rows);
        EXPECT_EQ(sheet.lvwMaterial.Width, 13440);
        EXPECT_EQ(sheet.chkMaterial(1).Value, 1);
        EXPECT_EQ(sheet.chkVärde(3).Value, 0);
        EXPECT_TRUE(sheet.opt1Språk(2).Value);
        EXPECT_EQ(Shown(sheet), "Saltsyra/Klorväte/Ryker i luft");
        EXPECT_EQ(sheet.lvwMaterial.SortKey, 0);
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboConc);
    });
}

TEST(SheetWindow, CopiesWhatItShowsAsText) {
    // A row and its material are both the user's own, and a temperature has three characters.
    Running run("Svenska",
                "UPDATE Plast SET Egen = -1 WHERE ID = 2; UPDATE [Temp] SET [Temp] = '9ºC' WHERE ID = 4");
    const std::string headings = "Urval: \r\nKoncentration\tTemperatur\tVärde\tNamn\tBeskrivning\t\r\n";
    run.OpenSheet(1, [&](frmChemical& sheet) {
        sheet.opt1Språk(0).InputClick();
        sheet.chkMaterial(0).InputClick();
        sheet.chkMaterial(3).InputClick();
        sheet.chkVärde(3).InputClick();
        sheet.lvwMaterial.InputColumnClick(0);  // the concentrated ones first
        EXPECT_TRUE(sheet.InputKey('C', 2));
        EXPECT_EQ(run.Desktop.Log.end()[-2],
                  "clipboard Formel: HCl\r\nKemikalie: Hydrochloric acid\r\nHandelsnamn: Muriatic acid\r\n"
                  "Kommentar: Fumes in air\r\nKoncentration: " +
                      run.T("R0334") + "\r\nTemperatur: Alla\r\n\r\n" + headings +
                      "koncentrerad\t20ºC\t-\tNBR\tNitril (Tätning)\t\r\n"
                      "50 %\t20ºC\t-\tPVC\tHård (Plast)\t\r\n10 %\t 5º\t0\tPE\tEten (Plast) (egen)\t\r\n"
                      "10 %\t20ºC\t\tPE\tEten (Plast) (egen)\t\r\n10 %\t20ºC\t\tPVC\tHård (Plast)\t\r\n"
                      "10 %\t20ºC\t+\tEPDM\tGummi (Tätning)\t\r\n10 %\t9ºC\t\tNBR\tNitril (Tätning)\t\r\n"
                      "\t20ºC\t+\tPVC\tHård (Plast)\t\r\n");
    });
    run.OpenSheet(3, [&](frmChemical& sheet) {
        sheet.mnuClip.InputClick();
        EXPECT_EQ(run.Desktop.Log.end()[-2], "clipboard Formel: C10–C13 " + run.T("R0153") +
                                                 "\r\nKemikalie: ångolja\r\nHandelsnamn: \r\n"
                                                 "Kommentar: Över 50_% [fast] *\r\nKoncentration: " +
                                                 run.T("R0333") + "\r\nTemperatur: Alla\r\n\r\n" + headings);
        EXPECT_EQ(run.Desktop.Log.end()[-3], "clipboard cleared");
    });
    EXPECT_EQ(run.Boxes(), Strings(2, "[64 " + run.Core.gFelTitel + "] " + run.T("R0033")));
}

}  // namespace
}  // namespace vemora
