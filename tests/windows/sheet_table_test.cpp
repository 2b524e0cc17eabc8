// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "support/session.h"

namespace vemora {
namespace {

using test::Entries;
using test::Session;
using test::Strings;

/// The table in short: name and verdict of each row, in the order shown.
std::string Cells(const frmChemical& sheet) {
    std::string cells;
    for (int row = 0; row < sheet.lvwMaterial.ItemCount(); ++row) {
        const platform::ListItem& item = sheet.lvwMaterial.Item(row);
        cells += (row > 0 ? " " : "") + item.SubItems(3) + item.SubItems(2);
    }
    return cells;
}

void TickValues(const frmChemical& sheet, std::initializer_list<int> ticked) {
    for (int i = 0; i <= 3; ++i) {
        sheet.chkVärde(i).Value = std::count(ticked.begin(), ticked.end(), i) > 0 ? 1 : 0;
    }
}

void TickClasses(const frmChemical& sheet, std::initializer_list<int> ticked) {
    for (int i = 0; i <= 3; ++i) {
        sheet.chkMaterial(i).Value = std::count(ticked.begin(), ticked.end(), i) > 0 ? 1 : 0;
    }
}

TEST(SheetTable, ShowsEveryVerdictOfTheChemical) {
    Session run;
    run.Start();
    const std::string metal = " " + run.T("R0070");
    const std::string plastic = " " + run.T("R0086");
    const std::string seal = " " + run.T("R0110");
    const std::string other = " " + run.T("R0073");
    const std::string own = " (" + run.T("R0020") + ")";
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(test::Rows(sheet.lvwMaterial),
                  (Strings{"|20ºC|+|PVC|Hård" + plastic, "10 %| 5º|0|PE|Eten" + plastic + own,
                           "10 %|100ºC|0|Stål|Kolstål" + metal, "10 %|100ºC|0|Glas|Silikat" + other,
                           "10 %|20ºC|-|Stål|Kolstål" + metal,
                           "10 %|20ºC|+|Guld|" + own,  // without a description there is no class either
                           "10 %|20ºC|+|EPDM|Gummi" + seal, "10 %|20ºC|+|Glas|Silikat" + other,
                           "2 %|20ºC|+|Stål|Kolstål" + metal, "50 %|20ºC|-|PVC|Hård" + plastic,
                           "koncentrerad|100ºC|-|Glas|Silikat" + other,
                           "koncentrerad|20ºC|-| NBR |Nitril" + seal}));
        EXPECT_EQ(sheet.lblResultat.Caption, "12 " + run.T("R0021"));
        EXPECT_EQ(sheet.lblFilter.Caption, " " + run.T("R0023") + " ");
        EXPECT_EQ(sheet.lblFilter.ToolTipText, run.T("R0025"));
        EXPECT_EQ(sheet.lvwMaterial.SelectedIndex(), 0);
        EXPECT_FALSE(sheet.lblÄndrad.Visible);
        EXPECT_EQ(run.Desktop.Logged("pointer").back(), "pointer 0");

        const std::pair<const char*, int> columns[] = {
            {"R0015", 1800}, {"R0016", 1200}, {"R0017", 1000}, {"R0018", 1200}, {"R0019", 13440 - 5560}};
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(sheet.lvwMaterial.Column(i).Text, run.T(columns[i].first));
            EXPECT_EQ(sheet.lvwMaterial.Column(i).Width, columns[i].second);
        }
        EXPECT_EQ(sheet.lvwMaterial.Column(2).Alignment, platform::Align::Centre);
    });
}

TEST(SheetTable, FollowsEachFilter) {
    Session run;
    run.Start();
    const std::string opening = "PVC+ PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ PVC- Glas-  NBR -";
    const struct {
        const char* What;
        void (*Choose)(frmChemical&);
        std::string Shown;
    } cases[] = {
        {"as opened", [](frmChemical&) {}, opening},
        {"blank verdicts too", [](frmChemical& sheet) { sheet.chkVärde(3).InputClick(); },
         "PVC+ PE0 Stål0  NBR  Glas0 Stål- Guld+ PE PVC EPDM+ Glas+ Stål+ PVC- Glas- Stål  NBR - Glas"},
        {"no verdict ticked means all of them, unknown ones too",
         [](frmChemical& sheet) { TickValues(sheet, {}); },
         "PVC+ PE0 GlasX Stål0  NBR  Glas0 Stål- Guld+ PE PVC EPDM+ Glas+ Stål+ PVC- Glas- Stål  NBR - Glas"},
        {"blank alone", [](frmChemical& sheet) { TickValues(sheet, {3}); }, " NBR  PE PVC Stål Glas"},
        {"minus alone", [](frmChemical& sheet) { TickValues(sheet, {1}); }, "Stål- PVC- Glas-  NBR -"},
        {"metals", [](frmChemical& sheet) { TickClasses(sheet, {0}); }, "Stål0 Stål- Guld+ Stål+"},
        {"plastics and others",
         [](frmChemical& sheet) {
             TickClasses(sheet, {1, 3});
         },
         "PVC+ PE0 Glas0 Glas+ PVC- Glas-"},
        {"a box that is neither ticked nor not", [](frmChemical& sheet) { sheet.chkMaterial(0).Value = 2; },
         "PVC+ PE0 Glas0 EPDM+ Glas+ PVC- Glas-  NBR -"},
        {"no class", [](frmChemical& sheet) { TickClasses(sheet, {}); }, ""},
        {"10 %", [](frmChemical& sheet) { sheet.cboConc.InputIndex(1); },
         "PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+"},
        {"50 %, which is left out", [](frmChemical& sheet) { sheet.cboConc.InputIndex(2); }, "PVC-"},
        {"60ºC, which is left out", [](frmChemical& sheet) { sheet.cboTemp.InputIndex(2); }, "Stål+ EPDM0"},
        {"10 % at 100ºC",
         [](frmChemical& sheet) {
             sheet.cboConc.InputIndex(1);
             sheet.cboTemp.InputIndex(4);
         },
         "Stål0 Glas0"},
        {"all materials", [](frmChemical& sheet) { sheet.chkFilter.InputClick(); },
         "PVC+ PE0 Stål0 Glas0 Stål- Zink+ Guld+ EPDM+ Glas+ Trä+ Stål+ PVC- Glas-  NBR -"},
        {"all materials and back",
         [](frmChemical& sheet) {
             sheet.chkFilter.InputClick();
             sheet.chkFilter.InputClick();
         },
         opening},
    };
    for (const auto& [what, choose, shown] : cases) {
        SCOPED_TRACE(what);
        run.OpenSheet(1, [&](frmChemical& sheet) {
            choose(sheet);
            EXPECT_EQ(Cells(sheet), shown);
            const int count = sheet.lvwMaterial.ItemCount();
            EXPECT_EQ(sheet.lblResultat.Caption,
                      count > 0 ? std::to_string(count) + " " + run.T("R0021") : run.T("R0022"));
            EXPECT_EQ(sheet.lvwMaterial.ColumnCount(), 5);
        });
    }
}

// AND binds tighter than OR: only where a metal has a verdict does it count whether a row is left out.
TEST(SheetTable, OffersTheConcentrationsAndTemperaturesThatOccur) {
    Session run;
    run.Start();
    const std::string all = run.T("R0334") + "=-1", none = run.T("R0333") + "=-1";
    const std::string anyTemp = run.T("R0040") + "=-1";
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(Entries(sheet.cboConc), (Strings{all, "10 %=1", "50 %=4", "koncentrerad=3"}));
        EXPECT_EQ(Entries(sheet.cboTemp), (Strings{anyTemp, "20ºC=1", "60ºC=2", "5º=3", "100ºC=4"}));
    });
    // Metals at left out concentrations only: none to choose, but the table shows them.
    run.OpenSheet(2, [&](frmChemical& sheet) {
        EXPECT_EQ(Entries(sheet.cboConc), Strings{none});
        EXPECT_EQ(Cells(sheet), "Stål+");
    });
    // A left out temperature hides them.
    run.Change("UPDATE Temp SET Med = 0 WHERE ID = 1");
    run.OpenSheet(2, [&](frmChemical& sheet) {
        EXPECT_EQ(Entries(sheet.cboTemp), Strings{anyTemp});
        EXPECT_EQ(Cells(sheet), "");
    });
    run.OpenSheet(3, [&](frmChemical& sheet) {
        EXPECT_EQ(Entries(sheet.cboConc), Strings{none});
        EXPECT_EQ(sheet.lblResultat.Caption, run.T("R0022"));
        EXPECT_EQ(sheet.lvwMaterial.ColumnCount(), 5);
        EXPECT_TRUE(sheet.lblÄndrad.Visible);
    });
}

TEST(SheetTable, InEnglishTakesTheEnglishColumnsButOfOtherMaterials) {
    Session run("English");
    run.Start();
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(Cells(sheet),
                  "PVC+ PE0 Steel0 Glas0 Steel- Gold+ EPDM rubber+ Glas+ Steel+ PVC- Glas- NBR-");
        const Strings rows = test::Rows(sheet.lvwMaterial);
        EXPECT_EQ(rows[2], "10 %|100ºC|0|Steel|Carbon steel " + run.T("R0070"));
        EXPECT_EQ(rows[3], "10 %|100ºC|0|Glas|Silikat " + run.T("R0073"));
        EXPECT_EQ(rows.back(), "concentrated|20ºC|-|NBR|Nitrile " + run.T("R0110"));
        EXPECT_EQ(Entries(sheet.cboConc),
                  (Strings{run.T("R0334") + "=-1", "10 %=1", "50 %=4", "concentrated=3"}));
    });
}

TEST(SheetTable, InGermanTwoClassesAndAllConcentrationsFail) {
    Session run("Deutsch");
    run.Start();
    constexpr long bad = platform::errors::BadStatement;
    const std::string metal = run.Report(bad, "GetMetallRs in Form frmChemical");
    const std::string plastic = run.Report(bad, "GetPlastRs in Form frmChemical");
    const std::string conc = run.Report(bad, "GetConc in Form frmChemical");
    run.Change("INSERT INTO relTight(ChemID, ConcID, TempID, TightID, TheValue) VALUES(1, 2, 1, 1, '0')");
    const Strings refresh = {metal, plastic, metal, plastic, conc, conc, conc, conc, conc};
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(run.Boxes(), refresh);
        // The one entry has the ID of the last row, so that only concentrations that take part are shown.
        EXPECT_EQ(sheet.cboConc.ListCount(), 1);
        EXPECT_GT(sheet.cboConc.ItemData(0), 0);
        EXPECT_EQ(
            test::Rows(sheet.lvwMaterial),
            (Strings{"|100ºC|0|Glas|Silikat " + run.T("R0073"), "|100ºC|-|Glas|Silikat " + run.T("R0073"),
                     "|20ºC|+|EPDM|Gummi " + run.T("R0110"), "|20ºC|-| NBR |Nitril " + run.T("R0110"),
                     "|20ºC|+|Glas|Silikat " + run.T("R0073")}));
        sheet.chkFilter.InputClick();
        EXPECT_EQ(run.Boxes().size(), refresh.size() + 1);  // the wood, left out before
        EXPECT_EQ(Cells(sheet), "Glas0 Glas- EPDM+  NBR - Glas+ Trä+");
    });
}

TEST(SheetTable, WithNothingSelectedThereIsNothingOrAReport) {
    Session run;
    run.Start();
    run.Change("UPDATE Plast SET Med = 0");
    run.Change("DELETE FROM Metal");
    run.OpenSheet(1, [](frmChemical& sheet) {
        EXPECT_EQ(Cells(sheet), "Glas0 EPDM+ Glas+ Glas-  NBR -");
        sheet.chkFilter.InputClick();
        EXPECT_EQ(Cells(sheet), "PVC+ PE0 Glas0 EPDM+ Glas+ Trä+ PVC- Glas-  NBR -");
    });
    // Without a temperature the list that is asked for is empty, which no statement may be.
    run.Change("UPDATE Temp SET Med = 0");
    run.OpenSheet(1, [&](frmChemical& sheet) {
        Strings reports;
        for (int pass = 0; pass < 2; ++pass) {
            for (const char* procedure : {"GetMetallRs", "GetPlastRs", "GetTightRs", "GetMiscRs"}) {
                reports.push_back(run.Report(platform::errors::BadStatement,
                                             std::string(procedure) + " in Form frmChemical"));
            }
        }
        EXPECT_EQ(run.Boxes(), reports);
        EXPECT_EQ(sheet.lblResultat.Caption, run.T("R0022"));
        sheet.cboTemp.InputIndex(2);  // 60ºC, which the seal has brought in
        EXPECT_EQ(Cells(sheet), "EPDM0");
    });
}

TEST(SheetTable, GoesOnAfterAFailureInOneRow) {
    Session run;
    run.Start();
    run.Change("UPDATE Conc SET ConcentrationSE = Null WHERE ID = 3");
    run.Change("UPDATE Temp SET Temp = Null WHERE ID = 3");
    run.OpenSheet(1, [&](frmChemical& sheet) {
        const std::string conc = run.Report(platform::errors::InvalidNull, "GetConc in Form frmChemical");
        const std::string temp = run.Report(platform::errors::InvalidNull, "GetTemp in Form frmChemical");
        EXPECT_EQ(run.Boxes(), (Strings{temp, conc, conc}));
        EXPECT_EQ(Cells(sheet), "Glas- PVC+  NBR - PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ PVC-");
        EXPECT_EQ(Entries(sheet.cboTemp)[3], "=3");
    });
}

TEST(SheetTable, AClassWhoseNameBreaksItsStatementIsMissing) {
    Session run;
    run.Folder.WriteLanguage("lang.ini", "[System]\nlang=Svenska\nR0026=Fel\nR0086=plast'n\n");
    run.Start();
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(run.Boxes(),
                  Strings(2, run.Report(platform::errors::BadStatement, "GetPlastRs in Form frmChemical")));
        EXPECT_EQ(Cells(sheet), "Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ Glas-  NBR -");
    });
}

TEST(SheetTable, WithoutItsListsItAsksForAChoice) {
    Session run;
    run.Folder.Change("DROP TABLE relMisc");
    run.Start();
    const std::string ask = "[48 " + run.T("R0116") + "] " + run.T("R0013");
    run.OpenSheet(1, [&](frmChemical& sheet) {
        constexpr long missing = platform::errors::NoSuchTable;
        EXPECT_EQ(run.Boxes(), (Strings{run.Report(missing, "FyllKonc in Form frmChemical"),
                                        run.Report(missing, "FyllTemp in Form frmChemical"), ask}));
        sheet.chkMaterial(0).InputClick();
        EXPECT_EQ(run.Boxes(), Strings{ask});
        EXPECT_EQ(sheet.ActiveControl(), &sheet.cboConc);
        EXPECT_EQ(sheet.lvwMaterial.ItemCount(), 0);
    });
}

}  // namespace
}  // namespace vemora
