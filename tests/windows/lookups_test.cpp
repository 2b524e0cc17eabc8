// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "core/mListViewVem.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Session;
using test::Strings;

constexpr const char* kNames[] = {"Conc", "Misc", "Plast", "Tight", "Metal", "Temp"};

TEST(Lookups, OwnRowsAreFoundByTheMarkerOfTheirTable) {
    Session run;
    std::string ownRows;
    for (int i = 0; i < 6; ++i) {
        const std::string table = "[" + std::string(kNames[i]) + "]";
        ownRows += "DELETE FROM " + table + "; INSERT INTO " + table + "(ID, Egen) VALUES(1" +
                   std::to_string(i + 1) + ", -1), (1, 0);";
    }
    run.Folder.Change(ownRows);
    run.Start();
    const struct {
        std::int32_t ChemID, ID;
        std::string Kategori;
        bool Own;
    } cases[] = {
        {3, -1, "", true},
        {1, -1, "(Plast)", false},
        {99, -1, "", false},
        {3, 11, run.T("R0067"), true},
        {0, 16, run.T("R0107"), true},
        {0, 12, run.T("R0073"), true},
        {0, 14, run.T("R0110"), true},
        {0, 13, run.T("R0086"), true},
        {0, 15, run.T("R0070"), true},
        {0, 1, run.T("R0067"), false},
        {0, 13, "(plast) Plast", false},
        // Of two markers the one that is looked for first counts, not the one that stands first.
        {0, 13, "(Metall) (Plast)", true},
        {0, 15, "(Metall) (Plast)", false},
    };
    for (const auto& [chemical, id, category, own] : cases) {
        EXPECT_EQ(run.Core.GetEgen(chemical, id, category), own) << chemical << " " << id << " " << category;
    }
}

TEST(Lookups, MaterialsAreReadAndChosenByTheNumberOfTheirTable) {
    Session run;
    run.Folder.Change("UPDATE Plast SET Med = 0 WHERE ID = 2");
    run.Start();
    const auto rows = [&](std::int32_t typ, bool selected, bool others) {
        std::string ids;
        const auto rs = run.Core.GetValdaMaterial(typ, selected, others);
        for (; !rs->Eof(); rs->MoveNext()) {
            ids += (*rs)["ID"].Text();
        }
        rs->Close();
        return ids;
    };
    const struct {
        std::int32_t Typ;
        const char *All, *Selected, *Others;
    } cases[] = {{typ::Conc, "1234", "13", "24"}, {typ::Misc, "12", "1", "2"},
                 {typ::Plast, "12", "1", "2"},    {typ::Tight, "12", "12", ""},
                 {typ::Metal, "123", "13", "2"},  {typ::Temp, "1234", "134", "2"}};
    for (const auto& [number, all, selected, others] : cases) {
        SCOPED_TRACE(number);
        EXPECT_EQ(rows(number, false, false), all);
        EXPECT_EQ(rows(number, true, false), selected);
        EXPECT_EQ(rows(number, false, true), others);
        EXPECT_EQ(rows(number, true, true), selected);
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 1, false));
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 2, true));
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 99, true));  // no such row
        EXPECT_EQ(rows(number, false, true).front(), '1');
        EXPECT_EQ(rows(number, false, false), all);
    }
    // No row but those has changed, and nothing but Med in them.
    EXPECT_EQ(run.Ask("SELECT Name FROM Metal WHERE Med = 0"), Strings{"Stål"});

    for (const std::int32_t number : {0, 7}) {
        EXPECT_EQ(run.Core.GetValdaMaterial(number, true, false), nullptr);
        EXPECT_FALSE(run.Core.SetValdaMaterial(number, 1, false));
    }
    const std::string get = run.Report(platform::errors::BadStatement, "GetValdaMaterial in Module mMain");
    const std::string set = run.Report(platform::errors::BadStatement, "SetValdaMaterial in Module mMain");
    EXPECT_EQ(run.Boxes(), (Strings{get, set, get, set}));
}

TEST(Lookups, AFilterIsOnWhenARowOfAnyOfTheSixTablesIsLeftOut) {
    Session run;
    run.Start();
    EXPECT_TRUE(run.Core.FilterPå());
    for (const char* table : kNames) {
        run.Change(std::string("UPDATE ") + table + " SET Med = -1");
    }
    run.Change("UPDATE Chemical SET Med = 0");  // takes no part
    EXPECT_FALSE(run.Core.FilterPå());
    for (const char* table : kNames) {
        run.Change(std::string("UPDATE ") + table + " SET Med = 0 WHERE ID = 2");
        EXPECT_TRUE(run.Core.FilterPå()) << table;
        run.Change(std::string("UPDATE ") + table + " SET Med = -1");
    }
}

TEST(Lookups, AFailureIsReportedByEachThatMeetsIt) {
    Session run;
    run.Folder.Change("DROP TABLE Misc; UPDATE Conc SET Med = -1; UPDATE Metal SET Med = -1");
    run.Start();
    EXPECT_FALSE(run.Core.GetEgen(0, 1, "(Övrigt)"));
    EXPECT_FALSE(run.Core.FilterPå());
    constexpr long missing = platform::errors::NoSuchTable;
    EXPECT_EQ(run.Boxes(), (Strings{run.Report(missing, "GetEgen in Module mMain"),
                                    run.Report(missing, "GetValdaMaterial in Module mMain"),
                                    run.Report(platform::errors::NoObject, "FilterPå in Module mMain")}));
}

TEST(Lookups, AnEmptyAddressOpensThePageOfTheProgram) {
    Session run;
    run.Core.ÖppnaWebbsida("https://example.org/a b");
    run.Core.ÖppnaWebbsida("");
    const Strings pages = run.Desktop.Logged("web ");
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0], "web https://example.org/a b");
    EXPECT_TRUE(pages[1].starts_with("web https://"));
}

TEST(Lists, ColumnsAreWidenedToTheirHeadings) {
    Session run;
    platform::Form form(run.Desktop, "frmTest", {});
    platform::ListView list{form, "list", {}};
    list.AddColumn("Hidden", 0);
    list.AddColumn("", 500);
    list.AddColumn("Ångström", 1000);  // 8 characters of 90 twips
    list.AddColumn("Wide", 5000);
    form.Font = {"Arial", 12};
    list.Font = {"Arial", 30};
    run.Core.SetColWidth(list);
    const int widths[] = {0, 700, 1420, 5000};
    for (int column = 0; column < 4; ++column) {
        EXPECT_EQ(list.Column(column).Width, widths[column]);
    }
    EXPECT_EQ(form.Font->Size, 12);
}

TEST(Lists, TheArrowIsOnTheSortedColumnButNeverOnTheOneOfTheVerdicts) {
    Session run;
    platform::Form form(run.Desktop, "frmTest", {});
    platform::ListView list{form, "list", {}};
    for (const char* heading : {"Namn", "Värde", "Temperatur"}) {
        list.AddColumn(heading, 1000);
    }
    const auto arrows = [&](int key, int order) {
        list.SortKey = key;
        list.SortOrder = order;
        VisaSorteringspilar(list);
        std::string shown;
        for (int column = 0; column < 3; ++column) {
            const auto image = list.Column(column).SortImage;
            shown += image ? std::to_string(*image) : "-";
        }
        return shown;
    };
    EXPECT_EQ(arrows(0, 0), "0--");
    EXPECT_EQ(arrows(2, 1), "--1");
    EXPECT_EQ(arrows(1, 0), "---");
    EXPECT_EQ(arrows(0, 1), "1--");
}

}  // namespace
}  // namespace vemora
