// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "relations/frmURelations.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Choose, test::Entries, test::Less, test::Session, test::Strings;

constexpr const char* kClasses[] = {"Metal", "Plast", "Tight", "Misc"};

// In each class three materials take part, without a row, with a supplied one and with one of the user's own;
// beside each of them are rows of another chemical, concentration or temperature. What doesn't take part
// comes first in the order.
std::string ThreeMaterials() {
    std::string sql = "UPDATE Chemical SET Med = 0 WHERE ID = 4;";
    for (const std::string name : kClasses) {
        sql += "DELETE FROM rel" + name + "; UPDATE " + name +
               " SET Med = 0, Name = 'A' || Name; INSERT INTO " + name +
               "(ID, Name, Description, NameEN, DescriptionEN) VALUES (11, 'a " + name +
               "', 'x', 'c', 'u'), (12, 'b', 'y', 'b', 'v'), (13, 'c', 'z', 'a " + name +
               "', 'w'); INSERT INTO rel" + name + "(ChemID, ConcID, TempID, " + name +
               "ID, TheValue, Egen) VALUES (2, 3, 4, 12, '-', 0), (2, 3, 4, 13, '0', -1);";
        for (const std::string other : {"1, 3, 4", "2, 1, 4", "2, 3, 1"}) {
            sql += "INSERT INTO rel" + name + " SELECT " + other + ", ID, '+', -1 FROM " + name +
                   " WHERE ID > 10;";
        }
    }
    return sql;
}

/// The window over the sample rows, with what the user has chosen.
class Relations : public testing::Test {
  protected:
    explicit Relations(const std::string& language = "Svenska") : Run(language) {
        Run.Folder.Change(ThreeMaterials());
        Run.Start();
    }
    void Open(const std::function<void()>& piece) {
        Run.Desktop.WhileModal<frmURelations>([&](frmURelations& shown) {
            W = &shown;
            piece();
            shown.cmdClose.InputClick();
        });
        Run.Main().mnuURelations.InputClick();
    }
    void ChooseAll() {
        W->lstChemicals.InputIndex(1);
        Choose(W->cboConc, "koncentrerad");
        Choose(W->cboTemp, "100ºC");
    }
    platform::ListView& List(int tab) {
        platform::ListView* const lists[] = {&W->lvwMetal, &W->lvwPlast, &W->lvwTight, &W->lvwMisc};
        return *lists[tab];
    }
    void Click(int tab, int row) {
        List(tab).InputSelect(row);
        List(tab).InputClick();
    }
    /// L and R for the buttons that are enabled, S and E for the marks that are seen, and the value's sign.
    std::string State() {
        std::string state = W->cmdKoppla(0).Enabled ? "L" : "";
        state += W->cmdKoppla(1).Enabled ? "R" : "";
        state += W->txtKopplad.Visible ? "S" : "";
        state += W->txtEgen.Visible ? "E" : "";
        return state + W->cboVärde.Text().substr(0, 1);
    }
    Strings All() { return Run.All(); }
    /// Presses the button, and the rows that this has written.
    Strings Link() {
        const Strings before = All();
        W->cmdKoppla(0).InputClick();
        return Less(All(), before);
    }
    std::string Told(long number) { return Run.Report(number, "cmdKoppla_Click in Form frmURelations"); }

    Session Run;
    frmURelations* W = nullptr;
};

// What protects a supplied row is the buttons alone, and the four lists do it differently.
TEST_F(Relations, ProtectsLinksAndRemovesAsTheListsDo) {
    const struct {
        const char *Clicked, *Chosen, *MiscClicked, *MiscChosen, *Linked, *Written, *Before;
    } cases[] = {{"", "L+", "L", "L+", "E+", "11|+|-1", ""},
                 {"S-", "LRS+", "RS-", "LRS+", "SE+", "12|+|-1", "12, '-', 0"},
                 {"LRE0", "LRE+", "LE0", "LE+", "E+", "13|+|-1", "13, '0', -1"}};
    Open([&] {
        ChooseAll();
        const Strings before = All();
        for (int tab = 3; tab >= 0; --tab) {
            W->SSTab1.InputTab(tab);
            for (int row = 0; row < 3; ++row) {
                const auto& c = cases[row];
                const std::string table = std::string("rel") + kClasses[tab];
                SCOPED_TRACE(table + " " + std::to_string(row));
                Click(tab, row);
                EXPECT_EQ(State(), tab == 3 ? c.MiscClicked : c.Clicked);
                Choose(W->cboVärde, "+");
                EXPECT_EQ(State(), tab == 3 ? c.MiscChosen : c.Chosen);
                EXPECT_EQ(Link(), Strings{table + "|2|3|4|" + c.Written});
                EXPECT_EQ(State().substr(State().find_first_of("SE")), c.Linked);
                // Whatever it was, it is the user's own now, and what is removed is that row alone.
                W->cmdKoppla(1).Enabled = true;
                W->cmdKoppla(1).InputClick();
                EXPECT_EQ(State().find_first_of("SE"), std::string::npos);
                EXPECT_EQ(Less(All(), before), Strings{});
                EXPECT_EQ(Less(before, All()).size(), row == 0 ? 0U : 1U);
                // Pressed once more, there is nothing to be built.
                W->cmdKoppla(1).InputClick();
                EXPECT_EQ(Run.Boxes(), Strings{Told(-2147217900)});
                if (row > 0) {
                    Run.Change("INSERT INTO " + table + " VALUES (2, 3, 4, " + c.Before + ")");
                }
                EXPECT_EQ(All(), before);
            }
        }
    });
}

TEST_F(Relations, AskForWhatIsMissingOneByOne) {
    Open([&] {
        const auto press = [&](int button, const char* key, const platform::Control& focus) {
            W->cmdKoppla(button).Enabled = true;
            W->cmdKoppla(button).InputClick();
            EXPECT_EQ(Run.Boxes(), Strings{"[48 Vemora] " + Run.T(key)});
            EXPECT_EQ(W->ActiveControl(), &focus);
        };
        EXPECT_EQ(State(), "L");
        EXPECT_FALSE(W->SSTab1.Enabled);
        press(0, "R0087", W->lstChemicals);
        W->lstChemicals.InputIndex(1);
        press(1, "R0088", W->cboConc);
        Choose(W->cboConc, "10 %");
        EXPECT_FALSE(W->SSTab1.Enabled);
        press(0, "R0089", W->cboTemp);
        Choose(W->cboTemp, "20ºC");
        EXPECT_TRUE(W->SSTab1.Enabled);
        for (const auto& [tab, caption, key] : {std::tuple(1, "Plast", "R0091"),
                                                {2, "Tätning", "R0092"},
                                                {3, "Övrigt", "R0093"},
                                                {0, "Metall", "R0090"}}) {
            W->SSTab1.InputTab(tab);
            EXPECT_EQ(W->ActiveControl(), &List(tab));
            EXPECT_EQ(W->Caption, std::string("Beständighet – ") + caption);
            press(0, key, List(tab));
        }
        List(0).InputSelect(0);
        press(0, "R0094", W->cboVärde);
        EXPECT_EQ(Run.Desktop.Logged("beep").size(), 1U);
        // A double click links, but in the list of plastics.
        for (int tab : {1, 2, 3, 0}) {
            W->SSTab1.InputTab(tab);
            List(tab).InputSelect(0);
            Choose(W->cboVärde, "+");
            List(tab).InputDoubleClick();
            EXPECT_EQ(W->txtEgen.Visible, tab != 1);
        }
    });
}

TEST_F(Relations, TrustTheirMarksAndTheEntryForAllFindsAnyRow) {
    Open([&] {
        ChooseAll();
        // Of several selected rows the click shows the last, but among the others the first; a link takes the
        // first.
        List(0).InputSelection({1, 2}, 2);
        EXPECT_EQ(State(), "LRE0");
        W->InputKey(platform::key::PageUp, platform::shift::Ctrl);  // round to the last
        List(3).InputSelection({1, 2}, 2);
        EXPECT_EQ(State(), "RS-");
        List(3).InputSelection({}, -1);
        List(3).InputClick();
        EXPECT_EQ(State(), "L");

        // A change of the concentration hides the marks: the link that follows finds the row in its way.
        W->SSTab1.InputTab(0);
        Click(0, 1);
        Choose(W->cboConc, "10 %");
        EXPECT_EQ(State(), "L");  // by the value that has just been cleared
        EXPECT_FALSE(W->cmdKoppla(1).Enabled);
        Choose(W->cboConc, "koncentrerad");
        Click(0, 2);
        W->SSTab1.InputTab(1);
        EXPECT_EQ(State(), "");
        W->SSTab1.InputTab(0);
        Click(0, 1);
        Choose(W->cboConc, "10 %");
        Choose(W->cboConc, "koncentrerad");
        Choose(W->cboVärde, "0");
        EXPECT_EQ(Link(), Strings{});
        EXPECT_EQ(Run.Boxes(), Strings{Told(-2147467259)});
        EXPECT_EQ(State(), "L0");

        // The entry for all concentrations: any row of the material counts, yet the value is that of its own.
        Choose(W->cboConc, Run.T("R0040"));
        Click(0, 0);
        EXPECT_EQ(State(), "LRE");
        Choose(W->cboVärde, "-");
        EXPECT_EQ(Link(), Strings{});  // there is no such row to change
        W->SSTab1.InputTab(1);
        Run.Change("DELETE FROM relPlast");
        Click(1, 0);
        Choose(W->cboVärde, "-");
        EXPECT_EQ(Link(), Strings{"relPlast|2|-1|4|11|-|-1"});
    });
}

TEST_F(Relations, ShowWhatTakesPartAndWhoseItIs) {
    Open([&] {
        for (int tab = 0; tab < 4; ++tab) {
            EXPECT_EQ(test::Rows(List(tab)),
                      (Strings{std::string("a ") + kClasses[tab] + "|x", "b|y", "c|z"}));
            EXPECT_EQ(test::Columns(List(tab)), (Strings{"Namn 3870 sort-ascending", "Beskrivning 3870"}));
            W->SSTab1.InputTab(tab);
            List(tab).ColumnClick(2);  // each has a direction of its own
            EXPECT_EQ(test::Keys(List(tab)).front(), "K13");
            EXPECT_EQ(test::Columns(List(tab)).back(), "Beskrivning 3870 sort-descending");
        }
        EXPECT_EQ(Entries(W->lstChemicals),
                  (Strings{"Saltsyra=1", "Svavelsyra=2", "ångolja=3", "Äkta soda=5"}));
        EXPECT_EQ(Entries(W->cboConc), (Strings{"Alla=-1", "10 %=1", "koncentrerad=3"}));
        EXPECT_EQ(Entries(W->cboTemp), (Strings{"20ºC=1", "5º=3", "100ºC=4"}));
        EXPECT_EQ(Entries(W->cboVärde),
                  (Strings{"+ Beständig=0", "- Ej beständig=0", "0 Begränsat beständig=0", "    =0"}));
        Run.Change("UPDATE Conc SET Egen = -1 WHERE ID = 3");
        for (const bool own : {true, false, true}) {
            W->lstChemicals.InputIndex(own ? 3 : 0);
            Choose(W->cboConc, own ? "koncentrerad" : "Alla");
            Choose(W->cboTemp, own ? "5º" : "20ºC");
            EXPECT_EQ(W->txtEgenKem.Visible, own);
            EXPECT_EQ(W->txtEgenKon.Visible, own);
            EXPECT_EQ(W->txtEgenTemp.Visible, own);
        }
        // The blank is a value like the others.
        W->SSTab1.InputTab(2);
        Click(2, 0);
        W->cboVärde.InputIndex(3);
        EXPECT_EQ(Link(), Strings{"relTight|5|3|3|13| |-1"});
    });
}

TEST_F(Relations, StandOverWhatVanishesAndWhatCannotBeWritten) {
    Run.Change("UPDATE relMetal SET TheValue = 'X' WHERE MetalID = 12");
    Open([&] {
        ChooseAll();
        Click(0, 1);
        EXPECT_EQ(State(), "S");  // there is a row, but its value is none that can be chosen
        Choose(W->cboVärde, "0");
        const Strings before = All();
        {
            const test::FullDisk full;
            W->cmdKoppla(0).InputClick();
            W->cmdKoppla(1).InputClick();
        }
        EXPECT_EQ(Run.Boxes(), Strings(2, Told(platform::errors::DiskNotReady)));
        EXPECT_EQ(State(), "LRS0");
        EXPECT_EQ(All(), before);

        // Materials and rows that went under the window: a row that is gone is not written anew, and a link
        // to a material that is gone is a row like any other.
        Run.Change("DELETE FROM relMetal WHERE MetalID = 12");
        Run.Change("DELETE FROM Metal WHERE ID = 12");
        EXPECT_EQ(Link(), Strings{});
        Click(0, 1);
        Choose(W->cboVärde, "0");
        EXPECT_EQ(Link(), Strings{"relMetal|2|3|4|12|0|-1"});

        // A chemical that went shows what the one before it did, and a concentration that went is nobody's.
        W->lstChemicals.InputIndex(1);
        EXPECT_EQ(platform::PlainText(W->rtb.Content()), "H2SO4");
        Run.Change("DELETE FROM Chemical WHERE Egen = -1");
        Run.Change("DELETE FROM Temp WHERE Egen = -1");
        W->lstChemicals.InputIndex(2);
        Choose(W->cboTemp, "5º");
        EXPECT_EQ(platform::PlainText(W->rtb.Content()), "H2SO4");
        EXPECT_FALSE(W->txtEgenKem.Visible || W->txtEgenTemp.Visible);
        EXPECT_TRUE(W->SSTab1.Enabled);
    });
}

struct RelationsInGerman : Relations {
    RelationsInGerman() : Relations("Deutsch") {}
};
struct RelationsInEnglish : Relations {
    RelationsInEnglish() : Relations("English") {}
};

TEST_F(RelationsInEnglish, ShowTheEnglishTexts) {
    Open([&] {
        for (int tab = 0; tab < 4; ++tab) {
            EXPECT_EQ(test::Rows(List(tab)),
                      (Strings{std::string("a ") + kClasses[tab] + "|w", "b|v", "c|u"}));
        }
        EXPECT_EQ(Entries(W->lstChemicals),
                  (Strings{"=5", "Hydrochloric acid=1", "Steam oil=3", "Sulphuric acid=2"}));
        EXPECT_EQ(Entries(W->cboConc), (Strings{"All=-1", "10 %=1", "concentrated=3"}));
    });
}

TEST_F(RelationsInGerman, HaveNothingToShow) {
    Open([&] {
        EXPECT_EQ(Run.Boxes(), Strings{Run.Report(-2147217900, "FillValues in Form frmURelations")});
        EXPECT_EQ(W->lstChemicals.ListCount() + W->cboConc.ListCount() + W->lvwMetal.ColumnCount(), 0);
        EXPECT_EQ(W->cboVärde.ListCount(), 4);
    });
}

}  // namespace
}  // namespace vemora
