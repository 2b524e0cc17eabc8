// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <sstream>

#include "support/session.h"

namespace vemora {
namespace {

using test::Entries;
using test::Running;
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

/// The reports of procedures of the sheet, each named behind its number, as often as they come.
Strings Reports(Running& run, int times, const std::string& procedures) {
    Strings reports;
    for (; times > 0; --times) {
        std::istringstream words(procedures);
        long number = 0;
        for (std::string name; words >> number >> name;) {
            reports.push_back(run.Report(number, name + " in Form frmChemical"));
        }
    }
    return reports;
}

TEST(SheetTable, ShowsEveryVerdictOfTheChemical) {
    Running run;
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(test::Rows(sheet.lvwMaterial),
                  (Strings{"|20ºC|+|PVC|Hård (Plast)", "10 %| 5º|0|PE|Eten (Plast) (egen)",
                           "10 %|100ºC|0|Stål|Kolstål (Metall)", "10 %|100ºC|0|Glas|Silikat (Övrigt)",
                           "10 %|20ºC|-|Stål|Kolstål (Metall)",
                           "10 %|20ºC|+|Guld| (egen)",  // without a description there is no class either
                           "10 %|20ºC|+|EPDM|Gummi (Tätning)", "10 %|20ºC|+|Glas|Silikat (Övrigt)",
                           "2 %|20ºC|+|Stål|Kolstål (Metall)", "50 %|20ºC|-|PVC|Hård (Plast)",
                           "koncentrerad|100ºC|-|Glas|Silikat (Övrigt)",
                           "koncentrerad|20ºC|-| NBR |Nitril (Tätning)"}));
        EXPECT_EQ(test::Columns(sheet.lvwMaterial),
                  (Strings{"Koncentration 1800 sort-ascending", "Temperatur 1200", "Värde 1000 centred",
                           "Namn 1200", "Beskrivning 7880"}));
        EXPECT_EQ(sheet.lblFilter.ToolTipText, run.T("R0025"));
    });
}

TEST(SheetTable, ARowTellsWhereItsVerdictComesFrom) {
    const std::string sources =
        "INSERT INTO MaterialKey VALUES('Metal', 1, 'CS'), ('Misc', 1, 'Glass'), ('Tight', 1, 'NBR');"
        "INSERT INTO SourceName VALUES(1, 'A', 'Lista', 'List', 'Liste'), (2, 'B''s', 'Prov', 'Test', NULL);"
        "INSERT INTO Source VALUES('relMetal', 1, 1, 1, 'A; Al: C; Al, CS : B''s + X'), "
        "('relMetal', 1, 2, 1, 'X'), ('relMisc', 1, 1, 1, 'A+B''s;CS:X;X'), ('relTight', 1, 1, 1, 'CS: X')";
    // Of the rows of ShowsEveryVerdictOfTheChemical.
    const std::pair<int, std::array<const char*, 2>> rows[] = {
        {1, {"(egen post)", "(own entry)"}},
        {4, {"B's: Prov\nX", "B's: Test\nX"}},
        {5, {"(egen post)", "(own entry)"}},
        {6, {"", ""}},
        {7, {"A: Lista\nB's: Prov", "A: List\nB's: Test"}},
        {8, {"X", "X"}},
        {9, {"", ""}}};
    for (const int english : {0, 1}) {
        Running run(english == 1 ? "English" : "Svenska", sources);
        run.OpenSheet(1, [&](frmChemical& sheet) {
            for (const auto& [row, expected] : rows) {
                EXPECT_EQ(sheet.lvwMaterial.Tip(sheet.lvwMaterial.Item(row)),
                          expected[static_cast<std::size_t>(english)])
                    << row;
            }
        });
    }
    Running older("Svenska", "DROP TABLE SourceName; INSERT INTO Source VALUES('relMetal', 1, 1, 1, 'A')");
    older.OpenSheet(
        1, [&](frmChemical& sheet) { EXPECT_EQ(sheet.lvwMaterial.Tip(sheet.lvwMaterial.Item(4)), ""); });
    EXPECT_EQ(older.Boxes(), Strings{});
}

TEST(SheetTable, FollowsEachFilter) {
    const std::string opening = "PVC+ PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ PVC- Glas-  NBR -";
    // The value of each box of the classes and the verdicts, the entries chosen in the two lists, and whether
    // materials that are left out are shown, too.
    const std::tuple<const char*, const char*, int, int, bool, std::string> cases[] = {
        {"1111", "1110", 0, 0, false, opening},
        {"1111", "1111", 0, 0, false,
         "PVC+ PE0 Stål0  NBR  Glas0 Stål- Guld+ PE PVC EPDM+ Glas+ Stål+ PVC- Glas- Stål  NBR - Glas"},
        // No verdict ticked means all of them, unknown ones too.
        {"1111", "0000", 0, 0, false,
         "PVC+ PE0 GlasX Stål0  NBR  Glas0 Stål- Guld+ PE PVC EPDM+ Glas+ Stål+ PVC- Glas- Stål  NBR - Glas"},
        {"1111", "1000", 0, 0, false, "PVC+ Guld+ EPDM+ Glas+ Stål+"},
        {"1111", "0200", 0, 0, false, "Stål- PVC- Glas-  NBR -"},
        {"1111", "0001", 0, 0, false, " NBR  PE PVC Stål Glas"},
        {"1000", "1110", 0, 0, false, "Stål0 Stål- Guld+ Stål+"},
        {"0101", "1110", 0, 0, false, "PVC+ PE0 Glas0 Glas+ PVC- Glas-"},
        {"2111", "1110", 0, 0, false, "PVC+ PE0 Glas0 EPDM+ Glas+ PVC- Glas-  NBR -"},
        {"0000", "1110", 0, 0, false, ""},
        {"1111", "1110", 1, 0, false, "PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+"},
        {"1111", "1110", 2, 0, false, "PVC-"},         // 50 %, which is left out
        {"1111", "1110", 0, 2, false, "Stål+ EPDM0"},  // 60ºC, which is left out
        {"1111", "1110", 1, 4, false, "Stål0 Glas0"},
        {"1111", "1110", 0, 0, true,
         "PVC+ PE0 Stål0 Glas0 Stål- Zink+ Guld+ EPDM+ Glas+ Trä+ Stål+ PVC- Glas-  NBR -"},
        {"1111", "1110", 0, 0, false, opening}};
    Running run;
    run.OpenSheet(1, [&](frmChemical& sheet) {
        bool all = false;
        for (const auto& [classes, values, conc, temp, others, shown] : cases) {
            for (int i = 0; i <= 3; ++i) {
                sheet.chkMaterial(i).Value = classes[i] - '0';
                sheet.chkVärde(i).Value = values[i] - '0';
            }
            sheet.cboConc.InputIndex(conc);
            sheet.cboTemp.InputIndex(temp);
            if (std::exchange(all, others) != others) {
                sheet.chkFilter.InputClick();
            }
            EXPECT_EQ(Cells(sheet), shown);
            const int count = sheet.lvwMaterial.ItemCount();
            EXPECT_EQ(sheet.lblResultat.Caption,
                      count > 0 ? std::to_string(count) + " " + run.T("R0021") : run.T("R0022"));
            EXPECT_EQ(sheet.lvwMaterial.ColumnCount(), 5);
            EXPECT_EQ(run.Desktop.Logged("pointer").back(), "pointer 0");
        }
    });
}

// AND binds tighter than OR: only where a metal has a verdict does it count whether a row is left out.
TEST(SheetTable, OffersTheConcentrationsAndTemperaturesThatOccur) {
    Running run;
    const std::string none = run.T("R0333") + "=-1", anyTemp = run.T("R0040") + "=-1";
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(Entries(sheet.cboConc),
                  (Strings{run.T("R0334") + "=-1", "10 %=1", "50 %=4", "koncentrerad=3"}));
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
    run.OpenSheet(3, [&](frmChemical& sheet) { EXPECT_EQ(Entries(sheet.cboConc), Strings{none}); });
}

TEST(SheetTable, InEnglishTakesTheEnglishColumnsButOfOtherMaterials) {
    Running run("English");
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(Cells(sheet),
                  "PVC+ PE0 Steel0 Glas0 Steel- Gold+ EPDM rubber+ Glas+ Steel+ Glas- NBR- PVC-");
        const Strings rows = test::Rows(sheet.lvwMaterial);
        EXPECT_EQ(rows[2], "10 %|100ºC|0|Steel|Carbon steel " + run.T("R0070"));
        EXPECT_EQ(rows[3], "10 %|100ºC|0|Glas|Silikat " + run.T("R0073"));
        EXPECT_EQ(rows[10], "concentrated|20ºC|-|NBR|Nitrile " + run.T("R0110"));
        EXPECT_EQ(Entries(sheet.cboConc),
                  (Strings{run.T("R0334") + "=-1", "10 %=1", "concentrated=3", "half=4"}));
    });
}

TEST(SheetTable, InGermanTwoClassesAndAllConcentrationsFail) {
    Running run("Deutsch", "INSERT INTO relTight VALUES(1, 2, 1, 1, '0', 0)");
    Strings refresh = Reports(run, 2, "-2147217900 GetMetallRs -2147217900 GetPlastRs");
    refresh.resize(refresh.size() + 5, Reports(run, 1, "-2147217900 GetConc").front());
    run.OpenSheet(1, [&](frmChemical& sheet) {
        EXPECT_EQ(run.Boxes(), refresh);
        // The one entry has the ID of the last row, so that only concentrations that take part are shown.
        EXPECT_EQ(sheet.cboConc.ListCount(), 1);
        EXPECT_EQ(Cells(sheet), "Glas0 Glas- EPDM+  NBR - Glas+");
        EXPECT_EQ(test::Rows(sheet.lvwMaterial)[2], "|20ºC|+|EPDM|Gummi " + run.T("R0110"));
        sheet.chkFilter.InputClick();
        EXPECT_EQ(run.Boxes().size(), refresh.size() + 1);  // the wood, left out before
        EXPECT_EQ(Cells(sheet), "Glas0 Glas- EPDM+  NBR - Glas+ Trä+");
    });
}

TEST(SheetTable, WithNoMaterialSelectedThereIsNone) {
    Running run("Svenska", "UPDATE Plast SET Med = 0; DELETE FROM Metal");
    run.OpenSheet(1, [](frmChemical& sheet) {
        EXPECT_EQ(Cells(sheet), "Glas0 EPDM+ Glas+ Glas-  NBR -");
        sheet.chkFilter.InputClick();
        EXPECT_EQ(Cells(sheet), "PVC+ PE0 Glas0 EPDM+ Glas+ Trä+ PVC- Glas-  NBR -");
    });
}

TEST(SheetTable, GoesOnAfterAFailure) {
    // A row without an ID, which the program could not make.
    const auto nameless = [](const std::string& table) {
        return "CREATE TABLE t AS SELECT * FROM " + table + "; DROP TABLE " + table +
               "; ALTER TABLE t RENAME TO " + table + "; INSERT INTO " + table + "(Med) VALUES(-1)";
    };
    // The last but one is the key of the question for a choice.
    const std::tuple<std::string, std::string, int, const char*, std::string, const char*> cases[] = {
        {"Svenska", "UPDATE Conc SET ConcentrationSE = NULL WHERE ID = 3", 2, "94 GetConc", "",
         "Glas- PVC+  NBR - PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ PVC-"},
        {"Svenska", "UPDATE [Temp] SET [Temp] = NULL WHERE ID = 3", 1, "94 GetTemp", "",
         "PVC+ PE0 Stål0 Glas0 Stål- Guld+ EPDM+ Glas+ Stål+ PVC- Glas-  NBR -"},
        // A list of IDs that comes to nothing leaves the brackets of the statement empty.
        {"Svenska", nameless("[Temp]"), 2,
         "94 GetAllaTemp -2147217900 GetMetallRs 94 GetAllaTemp -2147217900 GetPlastRs "
         "94 GetAllaTemp -2147217900 GetTightRs 94 GetAllaTemp -2147217900 GetMiscRs",
         "", ""},
        {"Deutsch", nameless("Conc"), 2,
         "94 GetAllaConc -2147217900 GetMetallRs 94 GetAllaConc -2147217900 GetPlastRs "
         "94 GetAllaConc -2147217900 GetTightRs 94 GetAllaConc -2147217900 GetMiscRs",
         "", ""},
        {"Svenska", "UPDATE relPlast SET Egen = 'x'", 1, "13 Visa", "", "Stål- Stål0 Stål+ Guld+"},
        {"Svenska", "DROP TABLE Conc", 1, "-2147217865 FyllKonc", "R0013", ""},
        {"Svenska", "DROP TABLE [Temp]", 1, "-2147217865 FyllTemp", "R0014", ""}};
    for (const auto& [language, sql, times, reports, asks, shown] : cases) {
        SCOPED_TRACE(sql);
        Running run(language, sql);
        run.OpenSheet(1, [&, &key = asks, &cells = shown](frmChemical& sheet) {
            EXPECT_EQ(Cells(sheet), cells);
            if (!key.empty()) {
                sheet.lvwMaterial.InputFocus();
                sheet.chkMaterial(0).InputClick();
                EXPECT_EQ(sheet.ActiveControl()->Name(), key == "R0013" ? "cboConc" : "cboTemp");
            }
        });
        Strings boxes = Reports(run, times, reports);
        boxes.resize(boxes.size() + (asks.empty() ? 0 : 2), "[48 " + run.T("R0116") + "] " + run.T(asks));
        EXPECT_EQ(run.Boxes(), boxes);
    }
}

}  // namespace
}  // namespace vemora
