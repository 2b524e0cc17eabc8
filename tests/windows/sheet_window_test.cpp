// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/session.h"

namespace vemora {
namespace {

using test::Session;
using test::Strings;

/// Name, trade name and note as shown.
std::string Shown(const frmChemical& sheet) {
    return sheet.txtFields(2).Text.Get() + "/" + sheet.txtFields(10).Text.Get() + "/" +
           sheet.txtFields(5).Text.Get();
}

int ChosenLanguage(const frmChemical& sheet) {
    int chosen = -1;
    for (const auto& option : sheet.opt1Språk) {
        if (option->Value) {
            chosen = option->Index();
        }
    }
    return chosen;
}

TEST(SheetWindow, ShowsTheTextsOfTheLanguageChosenInIt) {
    const std::string texts[] = {"Hydrochloric acid/Muriatic acid/Fumes in air",
                                 "Salzsäure/Chlorwasserstoff/Raucht", "Saltsyra/Klorväte/Ryker i luft"};
    const std::pair<const char*, int> languages[] = {{"Svenska", 2}, {"English", 0}, {"Deutsch", 2}};
    for (const auto& [language, option] : languages) {
        SCOPED_TRACE(language);
        Session run(language);
        run.Start();
        run.OpenSheet(1, [&, option = option](frmChemical& sheet) {
            EXPECT_EQ(ChosenLanguage(sheet), option);
            EXPECT_EQ(Shown(sheet), texts[option]);
            EXPECT_EQ(sheet.imgBild(1).Visible, option == 0);
            EXPECT_EQ(sheet.Caption, run.T("R0001"));
            EXPECT_EQ(sheet.Icon, run.Main().Icon);
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
    Session run;
    run.Start();
    run.OpenSheet(3, [&](frmChemical& sheet) {
        sheet.txtFields(2).InputText("locked");
        EXPECT_EQ(Shown(sheet), "ångolja//Över 50_% [fast] *");
        run.Change("UPDATE Chemical SET NoteSE = 'new' WHERE ID = 3");
        sheet.opt1Språk(1).InputClick();
        EXPECT_EQ(Shown(sheet), "//");
        sheet.opt1Språk(2).InputClick();  // the row has been read anew
        EXPECT_EQ(Shown(sheet), "ångolja//new");
    });
}

TEST(SheetWindow, ShowsTheFormulaSetOrPlain) {
    Session run;
    run.Start();
    run.Change("UPDATE Chemical SET FormulaRTF = 'no rich text' WHERE ID = 5");
    run.Change("UPDATE Chemical SET Egen = -1 WHERE ID = 4");
    const std::pair<int, const char*> cases[] = {
        {1, "HCl"}, {2, "H2SO4"}, {3, "C10–C13"}, {4, ""}, {5, "no rich text"}};
    for (const auto& [id, formula] : cases) {
        run.OpenSheet(id, [&, text = formula, own = id >= 3](frmChemical& sheet) {
            EXPECT_EQ(sheet.oFormula1.PlainText(), text);
            EXPECT_EQ(sheet.oFormula1.Font->Name, "Arial");
            EXPECT_EQ(sheet.lblÄndrad.Visible, own);
        });
    }
    run.OpenSheet(2, [](frmChemical& sheet) {
        EXPECT_EQ(sheet.oFormula1.Content().at(1), (platform::Run{"2", platform::Run::Sub}));
    });
}

TEST(SheetWindow, OfAChemicalThatIsGoneIsEmpty) {
    Session run;
    run.Start();
    run.Search("salt");
    run.Change("DELETE FROM Chemical WHERE ID = 1");
    run.Desktop.WhileModal<frmChemical>([&](frmChemical& sheet) {
        EXPECT_EQ(Shown(sheet), "//");
        EXPECT_EQ(sheet.lvwMaterial.ItemCount(), 0);
        EXPECT_EQ(test::Headings(sheet.lvwMaterial),
                  (Strings{run.T("R0017"), run.T("R0018"), run.T("R0019")}));
        sheet.chkVärde(0).InputClick();
        EXPECT_EQ(sheet.lblResultat.Caption, "");
        // Another language is asked of a row, and there is none: nobody guards that.
        sheet.opt1Språk(0).InputClick();
    });
    test::Press(run.Main(), platform::key::Return);
    EXPECT_EQ(run.Boxes(), Strings{"[16 -] 13 (…)"});
    EXPECT_TRUE(run.Desktop.Ended());
    EXPECT_EQ(run.Folder.Files(), Strings{"Vemora.mdb"});
}

TEST(SheetWindow, OfAChemicalThatIsGoneEndsTheProgramInEnglish) {
    // There the sheet asks for the language's texts as it opens.
    Session run("English");
    run.Start();
    run.Search("salt");
    run.Change("DELETE FROM Chemical WHERE ID = 1");
    test::Press(run.Main(), platform::key::Return);
    EXPECT_EQ(run.Boxes(), Strings{"[16 -] 13 (…)"});
    EXPECT_TRUE(run.Desktop.Ended());
}

TEST(SheetWindow, TheSwitchOfTheSelectionTellsWhatItDoesNext) {
    Session run;
    run.Start();
    const auto expect = [&](frmChemical& sheet, const char* caption, const char* tip, bool selection) {
        EXPECT_EQ(sheet.chkFilter.Caption, run.T(caption));
        EXPECT_EQ(sheet.chkFilter.ToolTipText, run.T(tip));
        EXPECT_EQ(sheet.lblFilter.Caption, " " + run.T(selection ? "R0023" : "R0012") + " ");
    };
    run.OpenSheet(1, [&](frmChemical& sheet) {
        expect(sheet, "R0010", "R0011", true);
        sheet.lvwMaterial.Select(2);
        sheet.chkFilter.InputClick();
        expect(sheet, "R0008", "R0009", true);
        EXPECT_EQ(sheet.lvwMaterial.SelectedIndex(), 0);
    });
    for (const char* table : {"Conc", "Misc", "Plast", "Tight", "Metal", "Temp"}) {
        run.Change(std::string("UPDATE ") + table + " SET Med = -1");
    }
    // With nothing left out anywhere the table stays as it is.
    run.OpenSheet(1, [&](frmChemical& sheet) {
        expect(sheet, "R0010", "R0011", false);
        sheet.lvwMaterial.Select(2);
        sheet.chkFilter.InputClick();
        expect(sheet, "R0008", "R0009", false);
        EXPECT_EQ(sheet.lvwMaterial.SelectedIndex(), 2);
    });
}

TEST(SheetWindow, SortsByTheHeadingClicked) {
    Session run;
    run.Start();
    run.OpenSheet(1, [](frmChemical& sheet) {
        platform::ListView& list = sheet.lvwMaterial;
        const auto state = [&] {
            std::string arrows;
            for (int i = 0; i < list.ColumnCount(); ++i) {
                const auto image = list.Column(i).SortImage;
                arrows += image ? std::to_string(*image) : "-";
            }
            return arrows + " " + list.Item(0).Text + "/" + list.Item(0).SubItems(3);
        };
        const Strings opened = test::Rows(list);
        EXPECT_EQ(state(), "0---- /PVC");
        list.InputColumnClick(0);  // just refreshed, the first click on it turns it round
        EXPECT_EQ(state(), "1---- koncentrerad/Glas");
        list.InputColumnClick(3);
        EXPECT_EQ(state(), "---0- koncentrerad/ NBR ");
        list.InputColumnClick(3);
        EXPECT_EQ(state(), "---1- 2 %/Stål");
        list.InputColumnClick(2);  // the verdicts have no arrow
        EXPECT_EQ(list.SortKey, 2);
        EXPECT_EQ(state().substr(0, 5), "-----");
        list.InputColumnClick(1);
        sheet.cboConc.InputIndex(0);  // every refresh is back in its own order
        EXPECT_EQ(state(), "0---- /PVC");
        EXPECT_EQ(test::Rows(list), opened);
    });
}

TEST(SheetWindow, ItsListFollowsItsSizeAndItsLastColumnTheNextRefresh) {
    Session run;
    run.Start();
    run.OpenSheet(1, [](frmChemical& sheet) {
        const struct {
            int Width, Height, State;
            int ListWidth, ListHeight;
        } cases[] = {{15000, 9000, platform::vbNormal, 14760, 4700},
                     {160, 28, platform::vbMinimized, 14760, 4700},
                     {241, 4301, platform::vbNormal, 1, 1},
                     {240, 4180, platform::vbNormal, 1, 1},
                     {20000, 10000, platform::vbMaximized, 19760, 5700}};
        for (const auto& size : cases) {
            sheet.InputResize(size.Width, size.Height, size.State);
            EXPECT_EQ(sheet.lvwMaterial.Width, size.ListWidth);
            EXPECT_EQ(sheet.lvwMaterial.Height, size.ListHeight);
            EXPECT_EQ(sheet.lvwMaterial.Column(4).Width, 13440 - 5560);
        }
        sheet.cboTemp.InputIndex(1);
        EXPECT_EQ(sheet.lvwMaterial.Column(4).Width, 19760 - 5560);
    });
}

TEST(SheetWindow, EscClosesItExceptInTheDropDownLists) {
    Session run;
    run.Start();
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboConc);
        test::Press(sheet, platform::key::Escape);
        sheet.cboTemp.InputFocus();
        sheet.InputActivate();  // only the first time sets anything
        test::Press(sheet, platform::key::Escape);
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboTemp);
        sheet.lvwMaterial.InputFocus();
        for (const int other : {33, 34, 35, 36, 38, 40}) {
            EXPECT_FALSE(sheet.InputKey(other));
        }
        EXPECT_TRUE(sheet.IsLoaded());
        EXPECT_TRUE(sheet.InputKey(platform::key::Escape, 0, platform::key::Escape));
        EXPECT_FALSE(sheet.IsLoaded());
    });
}

TEST(SheetWindow, EachOpeningBeginsAsDesigned) {
    Session run;
    run.Start();
    Strings rows;
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(sheet.Nyckel(), 1);
        rows = test::Rows(sheet.lvwMaterial);
        sheet.InputResize(20000, 12000);
        sheet.chkFilter.InputClick();
        sheet.chkVärde(3).InputClick();
        sheet.chkMaterial(1).InputClick();
        sheet.cboConc.InputIndex(1);
        sheet.opt1Språk(1).InputClick();
        sheet.lvwMaterial.InputColumnClick(1);
        sheet.lvwMaterial.InputColumnClick(1);
        sheet.InputClose();
    });
    EXPECT_EQ(run.Sheet().Nyckel(), -1);
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(test::Rows(sheet.lvwMaterial), rows);
        EXPECT_EQ(sheet.lvwMaterial.Width, 13440);
        EXPECT_EQ(sheet.chkFilter.Caption, run.T("R0010"));
        EXPECT_EQ(sheet.chkMaterial(1).Value, 1);
        EXPECT_EQ(sheet.chkVärde(3).Value, 0);
        EXPECT_EQ(ChosenLanguage(sheet), 2);
        EXPECT_EQ(Shown(sheet), "Saltsyra/Klorväte/Ryker i luft");
        EXPECT_EQ(sheet.lvwMaterial.SortKey, 0);
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboConc);
    });
    // Opened for no chemical at all.
    run.OpenSheet(-1, [](frmChemical& sheet) {
        EXPECT_EQ(sheet.lvwMaterial.ColumnCount(), 3);
        EXPECT_EQ(sheet.oFormula1.PlainText(), "");
    });
}

std::string Lines(const Strings& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

TEST(SheetWindow, CopiesWhatItShowsAsText) {
    Session run;
    run.Start();
    run.Change("UPDATE Chemical SET Egen = -1 WHERE ID = 1");
    const std::string copied = "[64 " + run.Core.gFelTitel + "] " + run.T("R0033");
    const std::string headings = "Koncentration\tTemperatur\tVärde\tNamn\tBeskrivning\t";
    run.OpenSheet(1, [&](frmChemical& sheet) {
        sheet.opt1Språk(0).InputClick();
        sheet.chkMaterial(0).InputClick();
        sheet.chkMaterial(3).InputClick();
        sheet.chkVärde(3).InputClick();
        sheet.lvwMaterial.InputColumnClick(0);  // the concentrated ones first
        EXPECT_TRUE(sheet.InputKey('C', 2));
        const std::string plastic = " " + run.T("R0086") + "\t", seal = " " + run.T("R0110") + "\t";
        EXPECT_EQ(run.Desktop.Clipboard,
                  Lines({"Formel: HCl " + run.T("R0153"), "Kemikalie: Hydrochloric acid",
                         "Handelsnamn: Muriatic acid", "Kommentar: Fumes in air",
                         "Koncentration: " + run.T("R0334"), "Temperatur: Alla", "", "Urval: ", headings,
                         "koncentrerad\t20ºC\t-\tNBR\tNitril" + seal, "50 %\t20ºC\t-\tPVC\tHård" + plastic,
                         "10 %\t 5º\t0\tPE\tEten " + run.T("R0086") + " (egen)\t",
                         "10 %\t100ºC\t\tNBR\tNitril" + seal, "10 %\t20ºC\t\tPE\tEten" + plastic,
                         "10 %\t20ºC\t\tPVC\tHård" + plastic, "10 %\t20ºC\t+\tEPDM\tGummi" + seal,
                         "\t20ºC\t+\tPVC\tHård" + plastic}));
        EXPECT_EQ(run.Boxes(), Strings{copied});
        EXPECT_EQ(run.Desktop.Logged("clipboard"), (Strings{"clipboard cleared", "clipboard set"}));
    });
    run.OpenSheet(3, [&](frmChemical& sheet) {
        sheet.mnuClip.InputClick();
        EXPECT_EQ(run.Desktop.Clipboard,
                  Lines({"Formel: C10–C13 " + run.T("R0153"), "Kemikalie: ångolja",
                         "Handelsnamn: ", "Kommentar: Över 50_% [fast] *", "Koncentration: " + run.T("R0333"),
                         "Temperatur: Alla", "", "Urval: ", headings}));
        EXPECT_EQ(run.Boxes(), Strings{copied});
    });
}

}  // namespace
}  // namespace vemora
