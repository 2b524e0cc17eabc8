// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "maintenance/record_window.h"
#include "relations/frmURelations.h"
#include "settings/frmInstallningar.h"
#include "support/session.h"
#include "texts/mTexter.h"

namespace vemora {
namespace {

using test::Strings;

constexpr const char* kTables[] = {"Conc", "Metal", "Plast", "Temp", "Tight", "Misc"};

class Settings : public testing::Test {
  protected:
    void Open(const std::function<void(frmInställningar&)>& piece) {
        Run.Desktop.WhileModal<frmInställningar>([&](frmInställningar& shown) {
            piece(shown);
            if (shown.IsLoaded()) {
                shown.cmdStäng.InputClick();
            }
        });
        Run.Main().mnuInställningar.InputClick();
    }
    static std::vector<platform::ListView*> Lists(frmInställningar& w) {
        return {&w.lvwConcentrations, &w.lvwMetal, &w.lvwPlast, &w.lvwTemp, &w.lvwTight, &w.lvwMisc};
    }
    /// The keys of a list with a plus for each tick.
    static std::string Ticks(const platform::ListView& list) {
        std::string ticks;
        for (int i = 0; i < list.ItemCount(); ++i) {
            ticks += (i > 0 ? " " : "") + list.Item(i).Key() + (list.Item(i).Checked() ? "+" : "-");
        }
        return ticks;
    }
    /// What takes part, by table.
    Strings Saved() {
        Strings all;
        for (const std::string table : kTables) {
            all.push_back(table);
            for (const std::string& id : Run.Ask("SELECT ID FROM " + table + " WHERE Med = -1 ORDER BY ID")) {
                all.back() += " " + id;
            }
        }
        return all;
    }

    // A row of this description can't be saved; what is saved is logged.
    static std::string Triggers() {
        std::string sql =
            "CREATE TABLE Log(What TEXT); CREATE TRIGGER Refuse BEFORE UPDATE ON Metal "
            "WHEN old.Description = 'vägrar' BEGIN SELECT RAISE(ABORT, 'no'); END;";
        for (const std::string table : kTables) {
            sql += "CREATE TRIGGER Log" + table + " AFTER UPDATE ON " + table +
                   " BEGIN INSERT INTO Log VALUES('" + table + "'); END;";
        }
        return sql;
    }
    test::Running Run{"Svenska", Triggers()};
};

const Strings kAsDelivered = {"Conc 1 3", "Metal 1 3", "Plast 1 2", "Temp 1 3 4", "Tight 1 2", "Misc 1"};

TEST_F(Settings, TicksFollowTheTablesAndReachThemBySaving) {
    Open([&](frmInställningar& w) {
        Strings ticks;
        for (const platform::ListView* list : Lists(w)) {
            ticks.push_back(Ticks(*list));
        }
        EXPECT_EQ(ticks, (Strings{"K1+ K2- K4- K3+", "K3+ K1+ K2-", "K2+ K1+", "K1+ K2- K3+ K4+", "K2+ K1+",
                                  "K1+ K2-"}));
        Strings columns, captions;
        for (int tab = 0; tab < 6; ++tab) {
            w.SSTab1.InputTab(tab);
            captions.push_back(w.Caption);
            columns.push_back(test::Columns(*Lists(w)[static_cast<std::size_t>(tab)]).front());
        }
        EXPECT_EQ(captions, (Strings{"Urval: Koncentration", "Urval: Metall", "Urval: Plast",
                                     "Urval: Temperatur", "Urval: Tätning", "Urval: Övrigt"}));
        EXPECT_EQ(columns, (Strings{"Koncentration 8460", "Namn 4350", "Namn 4350", "Temperatur 8460",
                                    "Namn 4350", "Namn 4350"}));
        EXPECT_EQ(test::Rows(w.lvwTight), (Strings{" NBR |Nitril", "EPDM|Gummi"}));
        w.cmdSpara.InputClick();
    });
    // Nothing was touched: nothing was asked or written.
    EXPECT_EQ(Run.Ask("SELECT What FROM Log"), Strings{});
    EXPECT_EQ(Run.Desktop.Logged("pointer"), Strings{});

    Open([&](frmInställningar& w) {
        for (int tab = 0; tab < 6; ++tab) {
            w.SSTab1.InputTab(tab);
            w.cmdMarkera(1).InputClick();
            Lists(w)[static_cast<std::size_t>(tab)]->InputCheck({tab == 5 ? 1 : 0}, true);
        }
        EXPECT_EQ(w.Caption, "Urval: Övrigt");
        // A sort keeps the tick on its row, and each list has a direction of its own.
        for (platform::ListView* list : {&w.lvwMetal, &w.lvwConcentrations}) {
            list->ColumnClick(1);
            EXPECT_TRUE(test::Columns(*list).front().ends_with(" sort-descending"));
        }
        EXPECT_EQ(Ticks(w.lvwMetal), "K2- K1- K3+");
        EXPECT_EQ(Saved(), kAsDelivered);
        w.cmdSpara.InputClick();
    });
    EXPECT_EQ(Saved(), (Strings{"Conc 1", "Metal 3", "Plast 2", "Temp 1", "Tight 2", "Misc 2"}));
    EXPECT_EQ(Run.Desktop.Logged("pointer"), (Strings{"pointer 11", "pointer 0"}));
    // Every row, changed or not, list by list.
    EXPECT_EQ(Run.Ask("SELECT What FROM Log"),
              (Strings{"Conc", "Conc", "Conc", "Conc", "Metal", "Metal", "Metal", "Misc", "Misc", "Plast",
                       "Plast", "Temp", "Temp", "Temp", "Temp", "Tight", "Tight"}));

    Open([&](frmInställningar& w) {
        w.SSTab1.InputTab(3);
        w.cmdMarkera(0).InputClick();
        EXPECT_EQ(Ticks(w.lvwTemp), "K1+ K2+ K3+ K4+");
        // Answered with Yes, closing saves.
        Run.Desktop.Answers = {platform::msg::AnswerYes};
    });
    EXPECT_EQ(Run.Boxes(), Strings{"[292 Vemora] " + Run.T("R0043")});
    EXPECT_EQ(Saved()[3], "Temp 1 2 3 4");
}

TEST_F(Settings, AChangeThatIsNotSavedIsAskedAboutInEveryOpeningToCome) {
    const auto no = [&] { Run.Desktop.Answers = {platform::msg::AnswerNo}; };
    Open([&](frmInställningar& w) {
        w.lvwConcentrations.InputCheck({0, 3}, false);
        no();
    });
    EXPECT_EQ(Saved(), kAsDelivered);
    Open([&](frmInställningar& w) {
        EXPECT_EQ(Ticks(w.lvwConcentrations), "K1+ K2- K4- K3+");
        no();
    });
    EXPECT_EQ(Run.Boxes().size(), 2U);
    // A row that can't be saved is told, and the others are saved.
    Run.Change("DELETE FROM Misc");
    Run.Change("UPDATE Metal SET Description = 'vägrar' WHERE ID = 1");
    Open([&](frmInställningar& w) {
        w.SSTab1.InputTab(3);
        w.cmdMarkera(0).InputClick();
        w.cmdSpara.InputClick();
    });
    EXPECT_EQ(Run.Boxes(), (Strings{Run.Report(-2147467259, "SetValdaMaterial in Module mMain"),
                                    "[48 Vemora] " + Run.T("R0041")}));
    EXPECT_EQ(Saved(), (Strings{"Conc 1 3", "Metal 1 3", "Plast 1 2", "Temp 1 2 3 4", "Tight 1 2", "Misc"}));
    Open([](frmInställningar&) {});  // and clean again
    // With a full disk each of the 15 rows is told, and the window closes as clean as ever.
    const Strings before = Saved();
    Open([&](frmInställningar& w) {
        w.cmdMarkera(1).InputClick();
        const test::FullDisk full;
        w.cmdSpara.InputClick();
    });
    EXPECT_EQ(Run.Boxes().size(), 2U * 15);
    EXPECT_EQ(Saved(), before);
    EXPECT_EQ(Run.Desktop.Logged("pointer").back(), "pointer 0");
}

// The sheet and the relations leave out at their next opening what doesn't take part; the search, the
// settings and the maintenance go on showing all.
TEST_F(Settings, TheChoiceReachesEachReaderAtItsNextOpening) {
    Open([&](frmInställningar& w) {
        for (int tab = 0; tab < 6; ++tab) {
            w.SSTab1.InputTab(tab);
            w.cmdMarkera(1).InputClick();
            Lists(w)[static_cast<std::size_t>(tab)]->InputCheck({0}, true);
        }
        w.cmdSpara.InputClick();
    });
    Run.OpenSheet(1, [](frmChemical& sheet) {
        EXPECT_EQ(test::Rows(sheet.lvwMaterial),
                  (Strings{"10 %|20ºC|+|Guld| (egen)", "10 %|20ºC|+|Glas|Silikat (Övrigt)",
                           "koncentrerad|20ºC|-| NBR |Nitril (Tätning)"}));
    });
    Run.Desktop.WhileModal<frmURelations>([](frmURelations& w) {
        EXPECT_EQ(test::Entries(w.cboConc), (Strings{"Alla=-1", "10 %=1"}));
        EXPECT_EQ(test::Entries(w.cboTemp), Strings{"20ºC=1"});
        EXPECT_EQ(test::Rows(w.lvwMetal), Strings{"Guld|"});
        w.cmdClose.InputClick();
    });
    Run.Main().mnuURelations.InputClick();
    Open([](frmInställningar& w) { EXPECT_EQ(Ticks(w.lvwTemp), "K1+ K2- K3- K4-"); });
    Run.Search("");
    EXPECT_EQ(Run.Main().lvwResultat.ItemCount(), 5);
    Run.Desktop.WhileModal<RecordWindow>([](RecordWindow& w) {
        EXPECT_EQ(w.lst.ListCount(), 4);
        w.cmdClose.InputClick();
    });
    Run.Main().mnuUTemperature.InputClick();
}

// The texts follow a language at once, its columns once it is saved; the value texts at the next start.
TEST_F(Settings, ALanguageTakesEffectWhenItIsChosen) {
    Open([&](frmInställningar& w) {
        EXPECT_TRUE(w.cboLang.Text().starts_with("Svenska "));
        test::Choose(w.cboLang, "English");
        EXPECT_EQ(w.cmdSpara.Caption, "&OK");
        Run.Desktop.Answers = {platform::msg::AnswerNo};
    });
    EXPECT_EQ(Run.Boxes().size(), 1U);
    EXPECT_EQ(Run.Main().cmdSök.Caption, "&Search");
    EXPECT_EQ(Run.Core.gSpråk, "Svenska");
    EXPECT_TRUE(Run.Main().imgBild(0).Visible);
    Open([&](frmInställningar& w) {
        EXPECT_EQ(w.lvwMetal.Item(0).Text, "Guld");
        w.cmdSpara.InputClick();
    });
    EXPECT_EQ(Run.Core.gSpråk, "English");
    EXPECT_FALSE(Run.Main().imgBild(0).Visible);
    EXPECT_EQ(Run.Core.gVärdeText1, "+ Beständig");
    Open([&](frmInställningar& w) {
        Strings rows;
        for (const platform::ListView* list : Lists(w)) {
            rows.push_back(test::Rows(*list).back());
        }
        EXPECT_EQ(rows, (Strings{"half", "Zinc|Zn", "PVC|Rigid", "100ºC", "NBR|Nitrile", "Wood|Pine"}));
        // By hand, the language in force is a change like any other.
        test::Choose(w.cboLang, "English");
        Run.Desktop.Answers = {platform::msg::AnswerNo};
    });
    EXPECT_EQ(Run.Boxes(), Strings{"[292 Vemora] " + Run.T("R0043")});
    EXPECT_EQ(Run.Core.gFelTitel, "Vemora");
}

TEST_F(Settings, ALanguageOfALongNameIsNotFoundAgainAndACopyThatFailsEndsTheProgram) {
    Run.Folder.WriteLanguage("Lang0.ini", "[System]\nlang=" + std::string(60, 'x') + "\n");
    Open([&](frmInställningar& w) {
        test::Choose(w.cboLang, "xxx");
        Run.Desktop.Answers = {platform::msg::AnswerNo};
    });
    EXPECT_EQ(Run.Boxes(), Strings{"[292 Vemora] "});
    Open([&](frmInställningar& w) {
        EXPECT_EQ(w.cboLang.ListIndex, -1);  // longer than what is compared
        std::filesystem::remove(Run.Folder.Bin("LangEnglish.ini"));
        test::Choose(w.cboLang, "English");
    });
    EXPECT_EQ(Run.Boxes(), Strings{"[16 -] 53 (…)"});
    EXPECT_TRUE(Run.Desktop.Ended());
    EXPECT_FALSE(LanguageFileExists(Run.Folder.Path()));  // the next start asks for one
}

}  // namespace
}  // namespace vemora
