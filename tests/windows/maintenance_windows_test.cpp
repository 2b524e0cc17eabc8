// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "maintenance/frmUChemicals.h"
#include "platform/text/text.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Strings;

/// A window by its place among the program's windows, the table it keeps, the boxes that open for editing,
/// the column with the name and the box that shows it.
struct Kept {
    Windows::Any Windows::*Window;
    const char *Table, *Open = "1 2", *Name = "Name", *Box = "1";
};
constexpr Kept kMisc{&Windows::UMisc, "Misc"}, kPlast{&Windows::UPlast, "Plast"};
constexpr Kept kTight{&Windows::UTight, "Tight"}, kMetal{&Windows::UMetal, "Metal"};
constexpr Kept kConc{&Windows::UConcentration, "Conc", "1 2 3", "ConcentrationSE"};
constexpr Kept kTemp{&Windows::UTemperature, "Temp", "1", "Temp"};
constexpr Kept kChemical{&Windows::UChemicals, "Chemical", "1 2 3 4 5 6 7 8 9 10 11", "NameSE", "2"};
constexpr const Kept* kAll[] = {&kMisc, &kPlast, &kTight, &kMetal, &kConc, &kTemp, &kChemical};

// The state while a delivered record is shown, or one of the user's own.
const std::string kDelivered = "Add (Edit) (Delete) Close list";
const std::string kOwn = "Add Edit Delete Close list";

/// A run with one of the windows. In every table the row 1 is delivered and the row 2 the user's own. The end
/// of the run ends the program and has the file checked.
struct OneWindow : test::Session {
    /// Over rows changed by statements of the store's own, run for each table: "$t", its names in "$n".
    explicit OneWindow(const Kept& kept, const std::string& language = "Svenska", const std::string& sql = "")
        : Session(language), kept_(kept) {
        std::string all =
            "UPDATE Conc SET ConcentrationEN = ' ' WHERE ID = 2;"
            "UPDATE Plast SET NameEN = 'Poly' WHERE ID = 2;"
            "UPDATE Tight SET Name = 'NBR', NameDE = 'Perbunan' WHERE ID = 2;";
        for (const Kept* table : kAll) {
            all += On(*table, "UPDATE $t SET Egen = -1 WHERE ID = 2;" + sql);
        }
        Folder.Change(all);
        Start();
        before_ = Database();
        Form = &dynamic_cast<RecordWindow&>((Core.Windows.*kept.Window)());
        Do("Open");
    }
    ~OneWindow() {
        Form->InputClose();
        Main().InputClose();
        platform::Store store(Folder.Database(), test::kPassword, platform::Store::Access::ReadOnly);
        platform::Statement check = store.Prepare("PRAGMA integrity_check");
        EXPECT_TRUE(check.Step() && check.Text(0) == "ok");
    }
    static std::string On(const Kept& kept, const std::string& sql) {
        return platform::Replace(platform::Replace(sql, "$t", kept.Table), "$n", kept.Name);
    }
    frmUChemicals& Chemicals() { return dynamic_cast<frmUChemicals&>(*Form); }

    /// The user's steps, and the state they lead to. "#2" chooses the row 2, "1=Ek" types into the box 1 and
    /// "N=Ek" into that of the name, "Edit" clicks cmdEdit and "Alt+Close" presses Alt on cmdClose, each of
    /// which fails the test when it can't be done; "Yes" and "No" answer the next question, "?" begins what
    /// is typed into the next input box, "Esc" and "Shift+Esc" are keys, "X" is the close box. "Refresh" is
    /// pressed from code, "Open" opens the window again, "!" begins a statement that somebody else runs on
    /// its table.
    std::string Do(const std::string& steps) {
        std::istringstream in(steps);
        for (std::string step; std::getline(in, step, ';');) {
            const auto equals = step.find('=');
            const bool alt = step.starts_with("Alt+");
            if (step.front() == '!') {
                Change(On(kept_, step.substr(1)));
            } else if (step.front() == '#') {
                int line = Form->lst.ListCount() - 1;
                while (line >= 0 && Form->lst.ItemData(line) != std::stoi(step.substr(1))) {
                    --line;
                }
                EXPECT_TRUE(Form->lst.CanFocus() && line >= 0) << step;
                Form->lst.InputIndex(line);
            } else if (equals != std::string::npos) {
                auto& box = Form->txtFields(std::stoi(step.front() == 'N' ? kept_.Box : step));
                EXPECT_TRUE(box.CanFocus() && !box.Locked) << step;
                box.InputFocus();
                box.InputText(step.substr(equals + 1));
            } else if (step == "Yes" || step == "No") {
                Desktop.Answers.push_back(step == "Yes" ? platform::msg::AnswerYes : platform::msg::AnswerNo);
            } else if (step.front() == '?') {
                Desktop.Typed.push_back(step.substr(1));
            } else if (step == "Refresh") {
                Desktop.Event([this] { Form->cmdRefresh.Value = true; });
            } else if (step == "Open") {
                Desktop.Event([this] { Form->Show(); });
            } else if (step == "X") {
                Form->InputClose();
            } else if (step.ends_with("Esc")) {
                Form->InputKey(platform::key::Escape, step == "Esc" ? 0 : platform::shift::Shift);
            } else {
                auto* control = Form->ControlNamed("cmd" + (alt ? step.substr(4) : step));
                EXPECT_TRUE(control->CanFocus()) << step;
                control->InputFocus();
                if (alt) {
                    Form->InputKey(platform::key::Alt, platform::shift::Alt);
                } else {
                    dynamic_cast<platform::CommandButton&>(*control).InputClick();
                }
            }
        }
        return State();
    }
    /// The buttons that show, a disabled one in brackets; "list" when that is enabled; the boxes that are not
    /// locked. "closed" when the window is.
    std::string State() {
        std::string state;
        for (const std::string name : {"Add", "Edit", "Update", "Cancel", "Delete", "Refresh", "Close"}) {
            const platform::Control* button = Form->ControlNamed("cmd" + name);
            state += !button->Visible ? "" : button->Enabled ? name + " " : "(" + name + ") ";
        }
        state += Form->lst.Enabled ? "list" : "open";
        for (int i = 0; i < Form->txtFields.end() - Form->txtFields.begin(); ++i) {
            state += Form->txtFields(i).Locked ? "" : " " + std::to_string(i);
        }
        return Form->IsLoaded() ? state : "closed";
    }
    /// "Glas=1 Trä=2 ": the lines with the rows behind them.
    std::string Lines() {
        std::string lines;
        for (int i = 0; i < Form->lst.ListCount(); ++i) {
            lines += Form->lst.List(i) + "=" + std::to_string(Form->lst.ItemData(i)) + " ";
        }
        return lines;
    }
    /// "1:|Trä|Furu": the place of the selected line and the texts of the boxes from 1 on.
    std::string Seen() {
        std::string seen = std::to_string(Form->lst.ListIndex) + ":";
        for (int i = 1; i < Form->txtFields.end() - Form->txtFields.begin(); ++i) {
            seen += "|" + Form->txtFields(i).Text.Get();
        }
        return seen;
    }
    bool NothingSeen() { return Seen().starts_with("-1:") && Seen().find_first_not_of('|', 3) + 1 == 0; }
    /// What has become of the database since the last call: "Misc|2|Ek|Röd|Oak||-1|-1 " is new or changed,
    /// and of "-Misc|2| " nothing is left. Formulas in rich text are left out.
    std::string Changes() {
        const std::set<std::string> now = Database();
        std::string changes;
        for (const std::string& row : now) {
            changes += before_.erase(row) == 0 ? row + " " : "";
        }
        for (const std::string& row : before_) {
            const std::string key = row.substr(0, row.find('|', row.find('|') + 1) + 1);
            changes += changes.find(key) == std::string::npos ? "-" + key + " " : "";
        }
        before_ = now;
        return changes;
    }
    std::set<std::string> Database() {
        std::set<std::string> rows;
        for (const std::string table : {"Chemical", "Conc", "Temp", "Metal", "Plast", "Tight", "Misc",
                                        "relMetal", "relPlast", "relTight", "relMisc"}) {
            platform::adodb::Recordset rs;
            for (rs.Open("SELECT * FROM " + table, *Core.gCn); !rs.Eof(); rs.MoveNext()) {
                std::string row = table;
                for (const std::string& name : rs.FieldNames()) {
                    row += "|" + (name == "FormulaRTF" ? "" : rs[name].Joined());
                }
                rows.insert(row);
            }
        }
        return rows;
    }
    void Expect(const std::vector<std::pair<const char*, const char*>>& cases) {
        for (const auto& [steps, seen] : cases) {
            Do(steps);
            EXPECT_EQ(Seen() + " " + Changes(), seen) << steps;
        }
    }

    RecordWindow* Form = nullptr;

  private:
    const Kept& kept_;
    std::set<std::string> before_;
};

TEST(Maintenance, RecordsAreListedAddedChangedAndDeleted) {
    const char* const saltsyra =
        "HCl|Saltsyra|Hydrochloric acid|Salzsäure|Ryker i luft|Fumes in air|Raucht|Chlorwasserstoff|Muriatic "
        "acid|Klorväte|";
    const struct {
        const Kept& Window;
        const char *Language, *Lines, *Shown, *LinesAfterRefresh, *Steps, *Changes;
    } cases[] = {
        {kMisc, "English", "Glas=1 Trä=2 ", "Glas|Silikat", "", "#2;Edit;1=Ek;Update",
         "Misc|2|Ek|Furu|Wood|Pine|-1|-1 "},
        {kPlast, "Svenska", "PE=2 PVC=1 ", "PVC|Hård", "", "Add;1=a;2=b;Update", "Plast|3|a|b|||-1|-1 "},
        {kPlast, "English", "Poly=2 PVC=1 ", "PVC|Rigid", "PE=2 PVC=1 ", "#2;Edit;2=b;Update",
         "Plast|2|Poly|b|Poly|Ethene|-1|-1 "},
        {kTight, "Svenska", "EPDM=1 NBR=2 ", "EPDM|Gummi", "", "#2;Edit;1=a;2=b;Update",
         "Tight|2|a|b|NBR|Nitrile|-1|-1|Perbunan| "},
        {kTight, "English", "EPDM rubber=1 NBR=2 ", "EPDM rubber|Rubber", "", "Add;1=a;2=b;Update",
         "Tight|3|||a|b|-1|-1|| "},
        {kTight, "Deutsch", "EPDM=1 Perbunan=2 ", "EPDM|Kautschuk", "", "#2;Edit;2=b;Update",
         "Tight|2|NBR|Nitril|NBR|Nitrile|-1|-1|Perbunan|b "},
        {kMetal, "Svenska", "Guld=3 Stål=1 Zink=2 ", "Stål|Kolstål", "", "Add;1=a;2=b;Update",
         "Metal|4|a|b|||-1|-1 "},
        {kMetal, "English", "Gold=3 Steel=1 Zinc=2 ", "Steel|Carbon steel", "", "#2;Edit;1=a;2=b;Update",
         "Metal|2|Zink|Zn|a|b|-1|-1 "},
        {kConc, "English", "2 %=2 10 %=1 concentrated=3 half=4 ", "10 %|10 %|10 %|",
         "2 %=2 10 %=1 koncentrerad=3 50 %=4 ", "Add;1=a;2=b;3=c;Update", "Conc|5|a|b|c|-1|-1 "},
        {kTemp, "English", "20ºC=1 60ºC=2 5º=3 100ºC=4 ", "20|", "", "Add;1=7;Update", "Temp|5|7ºC|-1|-1 "},
        {kChemical, "Svenska", "Bensin=4 Saltsyra=1 Svavelsyra=2 ångolja=3 Äkta soda=5 ", saltsyra, "",
         "Add;2=åska;3=B;4=C;5=nS;6=nE;7=nG;8=tG;9=tE;10=tS;Update",
         "Chemical|6|||Åska|B|C|tS|tE|tG|nS|nE|nG|-1|-1 "},
        {kChemical, "English", "Äkta soda=5 Bensin=4 Hydrochloric acid=1 Steam oil=3 Sulphuric acid=2 ",
         saltsyra, "Äkta soda=5 Bensin=4 Saltsyra=1 ångolja=3 Svavelsyra=2 ", "Add;3=Only;Update",
         "Chemical|6||||Only||||||||-1|-1 "},
    };
    for (const auto& [window, language, lines, shown, refreshed, steps, changes] : cases) {
        SCOPED_TRACE(std::string(window.Table) + " " + language);
        OneWindow run(window, language);
        EXPECT_EQ(run.Lines(), lines);
        if (&window == &kConc) {
            EXPECT_EQ(run.Form->lblLabels(2).Caption, "Description SE:");
            EXPECT_EQ(run.Form->lblLabels(3).Caption, "Description EN:");
        }
        EXPECT_EQ(run.Do("#2"), kOwn);
        EXPECT_EQ(run.Do("#1"), kDelivered);
        EXPECT_EQ(run.Seen().substr(3), shown);
        EXPECT_EQ(run.Do("Refresh"), kDelivered);
        EXPECT_EQ(run.Lines(), *refreshed != '\0' ? refreshed : lines);
        EXPECT_TRUE(run.NothingSeen());
        EXPECT_EQ(run.Do(steps).substr(0, 3), "Add");
        EXPECT_EQ(run.Changes(), changes);
        EXPECT_TRUE(run.NothingSeen());
        EXPECT_EQ(run.Desktop.Logged("focus").back(), "focus " + run.Form->lst.Name());
        const std::string editing = std::string("Update Cancel open ") + window.Open;
        EXPECT_EQ(run.Do("#2;Edit"), "Edit " + editing);
        EXPECT_EQ(run.Do("Cancel;#1;Add"), "(Edit) " + editing);

        EXPECT_EQ(run.Do("Cancel;#2;Refresh;Delete;#2;No;Delete"), kOwn);  // of no line nobody is asked
        EXPECT_EQ(run.Changes(), "");
        EXPECT_EQ(run.Do("Yes;Delete"), kOwn);
        const bool chemicals = &window == &kChemical;
        EXPECT_EQ(run.Changes(),
                  "-" + std::string(window.Table) + (chemicals ? "|2| -relMetal|2| " : "|2| "));
        const std::string question = chemicals ? "Är du säker?" : run.T("R0063");
        EXPECT_EQ(run.Boxes(), Strings(2, "[292 " + run.Core.gFelTitel + "] " + question));
        EXPECT_EQ(run.Do("Esc"), "closed");
    }
}

TEST(Maintenance, RecordsThatAreThereAlreadyAreRefused) {
    const struct {
        const Kept& Window;
        const char *Language, *Key, *Refused, *Taken;
    } cases[] = {{kMisc, "Svenska", "R0072", "1=LA", "1=Glas 2"},
                 {kPlast, "English", "R0085", "2=An empty name", "1=Rigid"},
                 {kTight, "Deutsch", "R0109", "1=NBR", "1=Perb"},
                 {kMetal, "English", "R0069", "1=Stål", "1=Steel"},
                 {kConc, "English", "R0066", "1=10 %;2=x", "1=10;2=10 %"},
                 {kTemp, "Svenska", "R0106", "1=0", "1=3"},
                 {kChemical, "English", "R0064", "2=bENSIN;3=x", "2=Bens;3=Steam oil"}};
    for (const auto& [window, language, key, refused, taken] : cases) {
        OneWindow run(window, language);
        run.Do(std::string("#2;Add;") + refused);
        const std::string typed = run.Seen();
        EXPECT_EQ(run.Do("Update"), kOwn) << key;
        EXPECT_EQ(run.Boxes(), Strings{"[48 " + run.Core.gFelTitel + "] " + run.T(key)});
        EXPECT_EQ(*(run.Desktop.Log.end() - 2), "beep");
        EXPECT_EQ(run.Seen(), typed);
        run.Do("Edit;Update");  // with no line selected: the row before the new one, which is gone
        EXPECT_TRUE(run.Changes().starts_with(std::string(window.Table) + "|2|")) << key;
        run.Do(std::string("Add;") + taken + ";Update");
        EXPECT_NE(run.Changes(), "") << key;
    }
}

TEST(Maintenance, WindowsThatCannotOpenEndTheProgram) {
    for (const Kept* window : kAll) {
        for (const bool german : {false, true}) {
            OneWindow run(*window, german ? "Deutsch" : "Svenska", german ? "" : "DELETE FROM $t;");
            const bool opens = window == (german ? &kTight : &kMisc);
            EXPECT_EQ(run.State(), opens ? kDelivered : "closed") << window->Table;
            EXPECT_EQ(run.Desktop.Ended(), !opens);
            const char* const box = german ? "[16 -] -2147217900 (…)" : "[16 -] 3021 (…)";
            EXPECT_EQ(run.Boxes(), opens ? Strings() : Strings{box});
        }
    }
}

TEST(Maintenance, AnyTextIsKeptAsTypedAndAnApostropheReported) {
    const Strings texts = {"L'eau", std::string(100'000, 'X'), "Ω 中 😀 \t\r\n\x01\x7F", "A\"[b] -- %_#"};
    for (const Kept* window : kAll) {
        OneWindow run(*window);
        for (const std::string& text : texts) {
            run.Do("Add;N=" + text + ";Update");
            EXPECT_NE(run.Changes().find("|" + text), std::string::npos) << text.substr(0, 20);
        }
        const std::string name = window == &kTemp ? "frmUTemerature" : run.Form->Name();
        EXPECT_EQ(run.Boxes(),
                  Strings{run.Report(platform::errors::BadStatement, "FinnsRedan in Form " + name)});
    }
}

TEST(Maintenance, WithoutARecordTheWindowStaysUsable) {
    for (const Kept* window : kAll) {
        OneWindow run(*window, "Svenska", "DELETE FROM $t WHERE ID <> 2;");
        EXPECT_EQ(run.Do("#2;Yes;Delete"), kOwn);
        const std::string box = run.Boxes().back();
        EXPECT_TRUE(box.starts_with("[16 Vemora] ") && box.ends_with('.')) << box;
        EXPECT_EQ(run.Do("Edit;Update;Cancel"), kDelivered);  // saves no row
        EXPECT_EQ(run.Boxes().size(), 1U);
        run.Do("Add;N=Ny;Update");
        EXPECT_EQ(run.Form->lst.ListCount(), 1);
    }
}

TEST(Maintenance, WhatTheStoreRefusesHoldsNothingUp) {
    const std::string refused = "BEGIN SELECT RAISE(ABORT, 'No.'); END;";
    const std::string store = "CREATE TRIGGER i$t BEFORE INSERT ON $t WHEN NEW.$n LIKE 'bad%' " + refused +
                              "CREATE TRIGGER u$t BEFORE UPDATE ON $t WHEN NEW.$n LIKE 'bad%' " + refused +
                              "CREATE TRIGGER d$t BEFORE DELETE ON $t WHEN OLD.ID = 2 " + refused +
                              "DELETE FROM relMetal WHERE ChemID = 2;";
    const struct {
        const char* Steps;
        std::size_t Boxes;
        bool Changes;
    } cases[] = {
        {"Add;N=bad;Update;Update;N=new;Update;Close", 2, true},
        {"#2;Edit;N=bad;Update;N=other;Update;Close", 1, true},
        {"#2;Yes;Delete;#1;#2;Close", 2, false},
        {"Add;Cancel;Close", 0, false},
        {"Add;N=bad;Update;Cancel;Refresh;#1;Close", 1, false},
        {"Add;N=bad;Update;X", 1, false},
        {"#2;Edit;N=bad;Update;Cancel;#1;#2;Close", 1, false},
        // Somebody else has been faster.
        {"#2;Edit;!UPDATE $t SET ID = 9 WHERE ID = 2;N=x;Update;Cancel;#1;Refresh;#9;Close", 1, true},
        {"#9;!UPDATE $t SET ID = 8 WHERE ID = 9;Yes;Delete;#8;Close", 1, true},
    };
    for (const Kept* window : kAll) {
        OneWindow run(*window, "Svenska", store);
        for (const auto& [steps, boxes, changes] : cases) {
            SCOPED_TRACE(std::string(window->Table) + ": " + steps);
            EXPECT_EQ(run.Do(std::string("Open;") + steps), "closed");
            EXPECT_EQ(run.Boxes().size(), boxes);
            EXPECT_EQ(run.Changes() != "", changes);
        }
    }
}

// Esc presses the Close button where that shows. What the window itself makes of the key, Esc with Shift
// tells.
TEST(Maintenance, FlagsOutliveTheWindow) {
    for (const Kept* window : kAll) {
        OneWindow run(*window);
        const bool forgets = window == &kChemical;
        SCOPED_TRACE(window->Table);
        EXPECT_EQ(run.Do("#2;Shift+Esc"), "closed");
        EXPECT_NE(run.Do("Open;Add;Cancel;Shift+Esc"), "closed");
        EXPECT_EQ(run.Do("#2;Edit;Update"), kOwn);
        EXPECT_EQ(run.Boxes().size(), 1U);
        EXPECT_EQ(run.Do("#2;Add;Cancel;Close;Open;#2;Edit;Update"), kOwn);
        EXPECT_EQ(run.Boxes().size(), forgets ? 0U : 1U);
        EXPECT_EQ(run.Do("#2;Edit;Update"), kOwn);

        EXPECT_EQ(run.Do("Shift+Esc") == "closed", forgets);
        const std::string editing = run.Do("X;Open;#2;Edit");
        EXPECT_EQ(run.Do("Esc"), editing);
        EXPECT_NE(run.Do("Cancel;Shift+Esc"), "closed");
        EXPECT_EQ(run.Do("Esc"), "closed");
        EXPECT_EQ(run.Do("Open;Shift+Esc") == "closed", forgets);
    }
}

TEST(Maintenance, ATemperatureShowsItsUnitWhileAFlagIsSet) {
    OneWindow run(kTemp);
    run.Expect({{"#1", "0:|20| "},
                {"#3", "2:|5º| "},
                {"Add;Cancel;#1", "0:|20ºC| "},
                {"Close;Open;#1", "0:|20ºC| "},
                {"Add;1=2;Update;#1", "0:|20| "},  // refused, which ends it
                {"Add;Cancel;Add;1=7;Update;#1", "0:|20| Temp|5|7ºC|-1|-1 "},
                {"#2;Edit", "1:|60| "},
                {"Update;#2", "1:|60ºC| Temp|2|60ºC|-1|-1 "},
                {"Edit;Update;#1", "0:|20ºC| Temp|2|60ºCºC|-1|-1 "},
                {"Close;Open;#2;Edit;Update;#2", "1:|60ºCºCºC| Temp|2|60ºCºCºC|-1|-1 "}});
    EXPECT_EQ(run.Boxes().size(), 1U);
}

TEST(Maintenance, CancelSelectsTheLineOfTheLastAdd) {
    OneWindow run(kMisc, "Svenska", "UPDATE $t SET Egen = -1;");
    run.Expect({{"#2;Edit;2=x;Cancel", "0:|Glas|Silikat "},  // none yet: the first line
                {"#2;Add;1=x;Cancel", "1:|Trä|Furu "},
                {"Close;Open;#1;Edit;Cancel", "1:|Trä|Furu "},
                {"Refresh;Add;1=x;Cancel", "-1:|x| "},
                {"#2;Edit;1=y;Cancel", "-1:|y|Furu "},
                {"#2;Add;Cancel;Yes;Delete;#1;Edit;1=z;Cancel", "0:|z|Silikat -Misc|2| "}});  // it is gone
    EXPECT_EQ(run.State(), kOwn);
    EXPECT_EQ(run.Boxes().size(), 1U);
}

// Edit stays enabled behind a refresh. With no line selected a save writes the first row, or in the windows
// of the materials the new row that a cancelled Add has left pending.
TEST(Maintenance, ASaveWithNoLineSelectedWritesTheCurrentRow) {
    const std::tuple<const Kept&, const char*, const char*> cases[] = {
        {kMisc, "|1|", "|3|"}, {kPlast, "|2|", "|3|"}, {kTight, "|1|", "|3|"},   {kMetal, "|3|", "|4|"},
        {kConc, "|1|", "|2|"}, {kTemp, "|1|", "|1|"},  {kChemical, "|4|", "|4|"}};
    for (const auto& [window, first, afterCancel] : cases) {
        OneWindow run(window);
        EXPECT_EQ(run.Do("#2;Refresh;Edit;N=Ny;Update"), kOwn);
        EXPECT_TRUE(run.Changes().starts_with(std::string(window.Table) + first)) << window.Table;
        EXPECT_EQ(run.Do("Refresh;Add;Cancel;Edit;N=Än;Update"), kOwn);
        EXPECT_TRUE(run.Changes().starts_with(std::string(window.Table) + afterCancel)) << window.Table;
    }
}

TEST(Maintenance, AFormulaIsKeptAsPlainAndAsRichText) {
    OneWindow run(kChemical);
    platform::oFormula& formula = run.Chemicals().oFormula1;
    EXPECT_TRUE(formula.Font->Name == "Arial" && formula.Font->Size == 10 && formula.Padding == 4);
    formula.Font = {"Serif", 12};
    run.Do("#2");
    EXPECT_TRUE(formula.Locked && formula.Font->Name == "Arial" && formula.PlainText() == "H2SO4");
    run.Do("Add");
    EXPECT_TRUE(!formula.Locked && formula.PlainText().empty());
    EXPECT_EQ(run.Desktop.Logged("focus").back(), "focus oFormula1");
    formula.SetRichText(R"({\rtf1 H{\sub 2}O})");
    run.Do("2=éter;Update");
    EXPECT_EQ(run.Changes(), "Chemical|6|H2O||Éter|||||||||-1|-1 ");
    EXPECT_EQ(formula.PlainText(), "");
    run.Do("#6;Edit");
    EXPECT_EQ(formula.Content(), (platform::RichText{{"H"}, {"2", platform::Run::Sub}, {"O"}}));
    formula.SetPlainText("Kn");
    formula.Font = {"Serif", 12};
    run.Do("Update;#6;#1");  // the last without a rich text
    EXPECT_EQ(formula.PlainText(), "");
    EXPECT_EQ(run.Ask("SELECT Formula FROM Chemical WHERE FormulaRTF LIKE '%Arial%Kn%'"), Strings{"Kn"});
}

TEST(Maintenance, TheUsersOwnChemicalsAreMarked) {
    const std::pair<const char*, bool> cases[] = {
        {"Refresh", false},  {"#1", false},          {"#2", true},         {"Edit", true},
        {"Cancel;#2", true}, {"Edit;Update", false}, {"#2;Refresh", true}, {"Delete", false},
        {"#2", true},        {"No;Delete", false},   {"#2", true},         {"Yes;Delete", false}};
    OneWindow run(kChemical);
    for (const auto& [steps, marked] : cases) {
        run.Do(steps);
        EXPECT_EQ(run.Chemicals().txtEgen.Visible, marked) << steps;
    }
    EXPECT_EQ(run.Boxes().size(), 2U);
}

TEST(Maintenance, ADeletedChemicalTakesItsVerdictsAlong) {
    OneWindow run(kChemical, "Svenska",
                  "UPDATE $t SET Egen = -1; CREATE TRIGGER stop$t BEFORE DELETE ON relTight "
                  "WHEN OLD.ConcID = 3 BEGIN SELECT RAISE(ABORT, 'No.'); END;");
    run.Do("#1;Yes;Delete");
    EXPECT_EQ(run.Changes(), "-relMetal|1| -relPlast|1| ");
    run.Do("!UPDATE relTight SET ConcID = 2 WHERE ConcID = 3;#1;Yes;Delete");
    EXPECT_EQ(run.Changes(), "-Chemical|1| -relMisc|1| -relTight|1| ");
    EXPECT_EQ(run.Boxes().size(), 3U);
}

TEST(Maintenance, TheAccessCodeOrAltOnCancelOpensTheEditMode) {
    const std::pair<const char*, bool> cases[] = {
        {"?ordak;Alt+Close", false},
        {"?;Alt+Close", false},                               // cancelled
        {"#2;Edit;Alt+Cancel;X;Open;#2;Edit;Cancel", false},  // forgotten with the window
        {"#2;Edit;Alt+Cancel;Update", false},
        {"#2;Edit;Cancel;Close", true},
        {"Open;?ordaK;Alt+Close", true}};
    OneWindow run(kChemical);
    run.Form->cmdClose.InputFocus();
    run.Form->InputKey('A', platform::shift::Shift + platform::shift::Ctrl);
    for (const auto& [steps, opens] : cases) {
        run.Core.gRedigeraAllt = false;
        run.Do(steps);
        EXPECT_EQ(run.Core.gRedigeraAllt, opens) << steps;
    }
    EXPECT_EQ(run.Desktop.Logged("input").back(), "input Lösen: Lösen?");
}

TEST(Maintenance, TheEditModeUnlocksDeliveredRecordsInEveryWindow) {
    for (const Kept* window : kAll) {
        const bool chemicals = window == &kChemical;
        OneWindow run(*window);
        run.Core.gRedigeraAllt = true;
        EXPECT_EQ(run.Do("#1"), kOwn) << window->Table;
        EXPECT_EQ(run.Do("Edit;Update;Refresh;Add;N=Ny;Update;#2"), kOwn);
        EXPECT_FALSE(chemicals && run.Chemicals().txtEgen.Visible);
        const std::string egen = OneWindow::On(*window, "SELECT Egen FROM $t WHERE ID = 1 OR $n LIKE 'Ny%'");
        EXPECT_EQ(run.Ask(egen), Strings(2, chemicals ? "0" : "-1"));
        EXPECT_EQ(run.Do("#1;Yes;Delete;Close;Open;Add;Cancel"), kOwn);  // no record chosen yet
        EXPECT_EQ(run.Ask(egen).size(), 1U);
        EXPECT_EQ(run.Boxes().size(), 1U);
        run.Do("Close");
        test::Press(run.Main(), platform::key::Escape);
        EXPECT_FALSE(run.Main().IsLoaded());
    }
}

}  // namespace
}  // namespace vemora
