// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/files/files.h"
#include "support/session.h"
#include "texts/frmLang.h"

namespace vemora {
namespace {

namespace fs = std::filesystem;
using test::Running;
using test::Session;
using test::Strings;

TEST(Start, OpensTheMainWindowInTheLanguageOfTheFile) {
    for (const std::string language : {"Svenska", "English", "Deutsch"}) {
        SCOPED_TRACE(language);
        Running run(language);
        EXPECT_EQ(run.Core.gSpråk, language);
        EXPECT_EQ(run.Core.gVärdeText1 + run.Core.gVärdeText2 + run.Core.gVärdeText3 + run.Core.gVärdeText4,
                  run.T("R0112") + run.T("R0113") + run.T("R0114") + "    ");
        EXPECT_EQ(run.Main().Caption, run.T("R0001"));
        EXPECT_EQ(run.Main().imgBild(0).Visible, language != "English");
        EXPECT_EQ(run.Desktop.Logged("show"), Strings{"show frmMain"});
    }
}

TEST(Start, AsksForALanguageAndGoesOnInTheOneClickedLastEvenWhenCancelled) {
    Session run("");
    run.Desktop.WhileModal<frmLang>([](frmLang& window) { window.cmdAvbryt.InputClick(); });
    run.Start();
    EXPECT_EQ(run.Core.gCn, nullptr);  // without a language there is nothing to do
    run.Desktop.WhileModal<frmLang>([&](frmLang& window) {
        test::Choose(window.cboLang, "English");
        test::Choose(window.cboLang, "Svenska");
        test::Press(window, platform::key::Escape);
    });
    run.Start();
    EXPECT_EQ(run.Core.gSpråk, "Svenska");
    EXPECT_EQ(run.Desktop.Logged("show").back(), "show frmMain");
}

TEST(Start, ReportsADatabaseThatItCannotOpenAndLeavesItAlone) {
    const std::pair<long, void (*)(const fs::path&)> cases[] = {
        {platform::errors::StoreFailed, [](const fs::path& file) { fs::remove(file); }},
        {platform::errors::BadPassword,
         [](const fs::path& file) { std::ofstream(file) << std::string(9000, 'x'); }}};
    for (const auto& [number, prepare] : cases) {
        Session run;
        prepare(run.Folder.Database());
        const std::string before = test::ReadAll(run.Folder.Database());
        run.Start();
        EXPECT_EQ(run.Boxes(), (Strings{run.Report(number, "ÖppnaDB in Module mMain"),
                                        "[16 ] " + run.T("R0117") + "\r\n\r\n" + run.T("R0118")}));
        EXPECT_EQ(test::ReadAll(run.Folder.Database()), before);
    }
}

TEST(Start, AFailureWhileTheMainWindowOpensIsReported) {
    Session run;
    run.Core.Windows.Main = []() -> platform::Form& { throw platform::Error(75, "It can't be made."); };
    run.Start();
    EXPECT_EQ(run.Boxes(), Strings{run.Report(75, "Main in Module mMain")});
}

constexpr const char* kTables[] = {"Conc", "Misc", "Plast", "Tight", "Metal", "Temp"};

TEST(Lookups, OwnRowsAreFoundByTheMarkerOfTheirTable) {
    Running run;
    const char* const markers[] = {"R0067", "R0073", "R0086", "R0110", "R0070", "R0107"};
    for (int i = 0; i < 6; ++i) {
        run.Change(std::string("INSERT INTO ") + kTables[i] + "(ID, Egen) VALUES(1" + std::to_string(i) +
                   ", -1)");
        EXPECT_TRUE(run.Core.GetEgen(0, 10 + i, run.T(markers[i]))) << kTables[i];
    }
    const std::tuple<int, int, const char*, bool> cases[] = {
        // Of two markers the one that is looked for first counts, not the one that stands first.
        {3, -1, "", true},
        {99, -1, "", false},
        {3, 1, "(Plast)", false},
        {0, 12, "(Metall) (Plast)", true},
        {0, 14, "(Metall) (Plast)", false}};
    for (const auto& [chemical, id, category, own] : cases) {
        EXPECT_EQ(run.Core.GetEgen(chemical, id, category), own) << chemical << " " << id << " " << category;
    }
}

TEST(Lookups, MaterialsAreReadAndChosenByTheNumberOfTheirTable) {
    Running run("Svenska", "UPDATE Plast SET Med = 0 WHERE ID = 2");
    const auto rows = [&](std::int32_t typ, bool selected, bool others) {
        std::string ids;
        for (const auto rs = run.Core.GetValdaMaterial(typ, selected, others); !rs->Eof(); rs->MoveNext()) {
            ids += (*rs)["ID"].Text();
        }
        return ids;
    };
    const std::tuple<std::int32_t, const char*, const char*, const char*> cases[] = {
        {typ::Conc, "1234", "13", "24"}, {typ::Misc, "12", "1", "2"},    {typ::Plast, "12", "1", "2"},
        {typ::Tight, "12", "12", ""},    {typ::Metal, "123", "13", "2"}, {typ::Temp, "1234", "134", "2"}};
    for (const auto& [number, all, selected, others] : cases) {
        SCOPED_TRACE(number);
        EXPECT_EQ(rows(number, false, false), all);
        EXPECT_EQ(rows(number, true, false), selected);
        EXPECT_EQ(rows(number, false, true), others);
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 1, false));
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 2, true));
        EXPECT_TRUE(run.Core.SetValdaMaterial(number, 99, true));  // no such row
        EXPECT_EQ(rows(number, false, true).front(), '1');
        EXPECT_EQ(rows(number, false, false), all);
    }
    // No row but those has changed, and nothing but Med in them.
    EXPECT_EQ(run.Ask("SELECT Name FROM Metal WHERE Med = 0"), Strings{"Stål"});
}

TEST(Lookups, AFilterIsOnWhenARowOfAnyOfTheSixTablesIsLeftOut) {
    // The chemicals take no part.
    Running run("Svenska",
                "UPDATE Chemical SET Med = 0; UPDATE Conc SET Med = -1; UPDATE Misc SET Med = -1;"
                "UPDATE Metal SET Med = -1; UPDATE [Temp] SET Med = -1");
    EXPECT_FALSE(run.Core.FilterPå());
    for (const char* table : kTables) {
        run.Change(std::string("UPDATE ") + table + " SET Med = 0 WHERE ID = 2");
        EXPECT_TRUE(run.Core.FilterPå()) << table;
        run.Change(std::string("UPDATE ") + table + " SET Med = -1");
    }
}

TEST(Lookups, AFailureIsReportedByEachThatMeetsIt) {
    Running run("Svenska", "DROP TABLE Misc; UPDATE Conc SET Med = -1; UPDATE Metal SET Med = -1");
    EXPECT_FALSE(run.Core.GetEgen(0, 1, "(Övrigt)"));
    EXPECT_FALSE(run.Core.FilterPå());
    for (const std::int32_t number : {0, 7}) {
        EXPECT_EQ(run.Core.GetValdaMaterial(number, true, false), nullptr);
        EXPECT_FALSE(run.Core.SetValdaMaterial(number, 1, false));
    }
    constexpr long missing = platform::errors::NoSuchTable;
    const std::string get = run.Report(platform::errors::BadStatement, "GetValdaMaterial in Module mMain");
    const std::string set = run.Report(platform::errors::BadStatement, "SetValdaMaterial in Module mMain");
    EXPECT_EQ(run.Boxes(), (Strings{run.Report(missing, "GetEgen in Module mMain"),
                                    run.Report(missing, "GetValdaMaterial in Module mMain"),
                                    run.Report(platform::errors::NoObject, "FilterPå in Module mMain"), get,
                                    set, get, set}));
}

TEST(Lookups, AnEmptyAddressOpensThePageOfTheProgramAndColumnsAreWidenedToTheirHeadings) {
    Session run;
    run.Core.ÖppnaWebbsida("https://example.org/a b");
    run.Core.ÖppnaWebbsida("");
    EXPECT_EQ(run.Desktop.Logged("web "),
              (Strings{"web https://example.org/a b",
                       "web " + platform::Utf8FromPath(run.Core.Folder / "pages" / "data-en.html")}));
    platform::Form form(run.Desktop, "frmTest", {});
    platform::ListView list{form, "list", {}};
    for (const auto& [heading, width] :
         {std::pair{"Hidden", 0}, {"", 500}, {"Ångström", 1000}, {"Wide", 5000}}) {
        list.AddColumn(heading, width);
    }
    list.Font = {"Arial", 30};
    run.Core.SetColWidth(list);
    EXPECT_EQ(test::Columns(list), (Strings{"Hidden 0", " 700", "Ångström 1420", "Wide 5000"}));
}

}  // namespace
}  // namespace vemora
