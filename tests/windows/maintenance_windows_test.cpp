// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

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

/// A run with one of the windows. In every table the row 1 is delivered and the row 2 the user's own.
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
        before_ = All();
        Form = &dynamic_cast<RecordWindow&>((Core.Windows.*kept.Window)());
        Do("Open");
    }
    ~OneWindow() {
        Form->InputClose();
        Main().InputClose();
        EXPECT_TRUE(test::IsSound(Folder.Database()));
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
        for (const std::string& line : test::Entries(Form->lst)) {
            lines += line + " ";
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
    /// and of "-Misc|2| " nothing is left.
    std::string Changes() {
        const Strings before = std::exchange(before_, All());
        std::string changes;
        for (const std::string& row : test::Less(before_, before)) {
            changes += row + " ";
        }
        for (const std::string& row : test::Less(before, before_)) {
            const std::string key = row.substr(0, row.find('|', row.find('|') + 1) + 1);
            changes += changes.find(key) == std::string::npos ? "-" + key + " " : "";
        }
        return changes;
    }

    RecordWindow* Form = nullptr;

  private:
    const Kept& kept_;
    Strings before_;
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
        {kTight, "English", "EPDM rubber=1 NBR=2 ", "EPDM rubber|Rubber", "", "Add;1=a;2=b;Update",
         "Tight|3|||a|b|-1|-1|| "},
        {kTight, "Deutsch", "EPDM=1 Perbunan=2 ", "EPDM|Kautschuk", "", "#2;Edit;2=b;Update",
         "Tight|2|NBR|Nitril|NBR|Nitrile|-1|-1|Perbunan|b "},
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
         "Chemical|6||||Only||||||||-1|-1 "}};
    for (const auto& [window, language, lines, shown, refreshed, steps, changes] : cases) {
        SCOPED_TRACE(std::string(window.Table) + " " + language);
        OneWindow run(window, language);
        EXPECT_EQ(run.Lines(), lines);
        EXPECT_TRUE(&window != &kConc || run.Form->lblLabels(2).Caption == "Description SE:");
        EXPECT_EQ(run.Do("#2;#1"), kDelivered);
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
        EXPECT_EQ(run.Boxes(), Strings(2, "[292 " + run.Core.gFelTitel + "] " +
                                              (chemicals ? "Är du säker?" : run.T("R0063"))));
        EXPECT_EQ(run.Do("Esc"), "closed");
    }
}

// Edit stays enabled behind a refresh. With no line selected a save writes the first row, or in the windows
// of the materials the new row that a cancelled Add has left pending; behind a refusal the row before it.
TEST(Maintenance, RecordsThatAreThereAlreadyAreRefused) {
    const struct {
        const Kept& Window;
        const char *Language, *Key, *Refused, *Taken, *First, *Pending;
    } cases[] = {{kMisc, "Svenska", "R0072", "1=LA", "1=Glas 2", "|1|", "|3|"},
                 {kPlast, "English", "R0085", "2=An empty name", "1=Rigid", "|2|", "|3|"},
                 {kTight, "Deutsch", "R0109", "1=NBR", "1=Perb", "|1|", "|3|"},
                 {kMetal, "English", "R0069", "1=Stål", "1=Steel", "|3|", "|4|"},
                 {kConc, "English", "R0066", "1=10 %;2=x", "1=10;2=10 %", "|1|", "|2|"},
                 {kTemp, "Svenska", "R0106", "1=0", "1=3", "|1|", "|1|"},
                 {kChemical, "English", "R0064", "2=bENSIN;3=x", "2=Bens;3=Steam oil", "|4|", "|4|"}};
    for (const auto& [window, language, key, refused, taken, first, pending] : cases) {
        SCOPED_TRACE(window.Table);
        OneWindow run(window, language);
        run.Do(std::string("#2;Add;") + refused);
        const std::string typed = run.Seen();
        EXPECT_EQ(run.Do("Update"), kOwn);
        EXPECT_EQ(run.Boxes(), Strings{"[48 " + run.Core.gFelTitel + "] " + run.T(key)});
        EXPECT_EQ(*(run.Desktop.Log.end() - 2), "beep");
        EXPECT_EQ(run.Seen(), typed);
        run.Do("Edit;Update");
        EXPECT_TRUE(run.Changes().starts_with(std::string(window.Table) + "|2|"));
        const Strings texts = {taken, "N=L'eau", "N=" + std::string(100'000, 'X'),
                               "N=Ω 中 😀 \t\r\n\x01\x7F\"[b] -- %_#"};
        for (const std::string& typing : texts) {
            run.Do("Add;" + typing + ";Update");
            EXPECT_NE(run.Changes().find("|" + typing.substr(typing.rfind('=') + 1)), std::string::npos);
        }
        const std::string name = &window == &kTemp ? "frmUTemerature" : run.Form->Name();
        EXPECT_EQ(run.Boxes(),
                  Strings{run.Report(platform::errors::BadStatement, "FinnsRedan in Form " + name)});

        OneWindow other(window);
        EXPECT_EQ(other.Do("#2;Refresh;Edit;N=Ny;Update"), kOwn);
        EXPECT_TRUE(other.Changes().starts_with(std::string(window.Table) + first));
        EXPECT_EQ(other.Do("Refresh;Add;Cancel;Edit;N=Än;Update"), kOwn);
        EXPECT_TRUE(other.Changes().starts_with(std::string(window.Table) + pending));
    }
}

TEST(Maintenance, AWindowOpensOnNoRowsNotAndOutlivesItsLast) {
    for (const Kept* window : kAll) {
        OneWindow last(*window, "Svenska", "DELETE FROM $t WHERE ID <> 2;");
        EXPECT_EQ(last.Do("#2;Yes;Delete"), kOwn);
        EXPECT_TRUE(last.Boxes().back().starts_with("[16 Vemora] "));
        EXPECT_EQ(last.Do("Edit;Update;Cancel"), kDelivered);  // saves no row
        EXPECT_EQ(last.Boxes().size(), 1U);
        last.Do("Add;N=Ny;Update");
        EXPECT_EQ(last.Form->lst.ListCount(), 1);
        for (const bool german : {false, true}) {
            OneWindow run(*window, german ? "Deutsch" : "Svenska", german ? "" : "DELETE FROM $t;");
            const bool opens = window == (german ? &kTight : &kMisc);
            EXPECT_EQ(run.Desktop.Ended(), !opens) << window->Table;
            const char* const box = german ? "[16 -] -2147217900 (…)" : "[16 -] 3021 (…)";
            EXPECT_EQ(run.Boxes(), opens ? Strings() : Strings{box});
        }
    }
}

TEST(Maintenance, WhatTheStoreRefusesHoldsNothingUp) {
    const std::string refused = "BEGIN SELECT RAISE(ABORT, 'No.'); END;";
    const std::string store = "CREATE TRIGGER i$t BEFORE INSERT ON $t WHEN NEW.$n LIKE 'bad%' " + refused +
                              "CREATE TRIGGER u$t BEFORE UPDATE ON $t WHEN NEW.$n LIKE 'bad%' " + refused +
                              "CREATE TRIGGER d$t BEFORE DELETE ON $t WHEN OLD.ID = 2 " + refused +
                              "DELETE FROM relMetal WHERE ChemID = 2;";
    const std::tuple<const char*, std::size_t, bool> cases[] = {
        {"Add;N=bad;Update;Update;N=new;Update;Close", 2, true},
        {"#2;Edit;N=bad;Update;N=other;Update;Close", 1, true},
        {"#2;Yes;Delete;#1;#2;Close", 2, false},
        {"Add;N=bad;Update;Cancel;Refresh;#1;Close", 1, false},
        // Somebody else has been faster.
        {"#2;Edit;!UPDATE $t SET ID = 9 WHERE ID = 2;N=x;Update;Cancel;#1;Refresh;#9;Close", 1, true},
        {"#9;!UPDATE $t SET ID = 8 WHERE ID = 9;Yes;Delete;#8;Close", 1, true}};
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
        EXPECT_EQ(run.Do("#2;Edit;Update;#2;Add;Cancel;Close;Open;#2;Edit;Update"), kOwn);
        EXPECT_EQ(run.Boxes().size(), forgets ? 1U : 2U);
        EXPECT_EQ(run.Do("Shift+Esc") == "closed", forgets);
        const std::string editing = run.Do("X;Open;#2;Edit");
        EXPECT_EQ(run.Do("Esc"), editing);
        EXPECT_EQ(run.Do("Cancel;Shift+Esc;Esc"), "closed");
        EXPECT_EQ(run.Do("Open;Shift+Esc") == "closed", forgets);
    }
}

// Cancel selects the line of the last Add, the first one when there has been none. A temperature shows its
// unit while a flag is set.
TEST(Maintenance, ACancelledAddTellsLater) {
    OneWindow misc(kMisc, "Svenska", "UPDATE $t SET Egen = -1;"), temp(kTemp);
    const std::tuple<OneWindow&, const char*, const char*> cases[] = {
        {misc, "#2;Edit;2=x;Cancel", "0:|Glas|Silikat "},
        {misc, "#2;Add;1=x;Cancel", "1:|Trä|Furu "},
        {misc, "Close;Open;#1;Edit;Cancel", "1:|Trä|Furu "},
        {misc, "#2;Add;Cancel;Yes;Delete;#1;Edit;1=z;Cancel", "0:|z|Silikat -Misc|2| "},  // it is gone
        {temp, "#3", "2:|5º| "},
        {temp, "Add;Cancel;#1", "0:|20ºC| "},
        {temp, "Add;1=2;Update;#1", "0:|20| "},  // refused, which ends it
        {temp, "#2;Edit;Update;#2", "1:|60ºC| Temp|2|60ºC|-1|-1 "},
        {temp, "Close;Open;#2;Edit;Update;#2", "1:|60ºCºC| Temp|2|60ºCºC|-1|-1 "}};
    for (const auto& [run, steps, seen] : cases) {
        run.Do(steps);
        EXPECT_EQ(run.Seen() + " " + run.Changes(), seen) << steps;
    }
    EXPECT_EQ(misc.Boxes().size() + temp.Boxes().size(), 2U);
}

TEST(Maintenance, AFormulaIsKeptAsPlainAndAsRichText) {
    OneWindow run(kChemical);
    platform::oFormula& formula = run.Chemicals().oFormula1;
    formula.Font = {"Serif", 12};
    run.Do("#2");
    EXPECT_TRUE(formula.Locked && formula.Font->Name == "Arial" && formula.PlainText() == "H2SO4");
    run.Do("Add");
    EXPECT_TRUE(!formula.Locked && formula.PlainText().empty());
    formula.SetRichText(R"({\rtf1 H{\sub 2}O})");
    const std::string rich = formula.RichText();
    run.Do("2=éter;Update");
    EXPECT_EQ(run.Changes(), "Chemical|6|H2O|" + rich + "|Éter|||||||||-1|-1 ");
    run.Do("#6;Edit");
    EXPECT_EQ(formula.Content(), (platform::RichText{{"H"}, {"2", platform::Run::Sub}, {"O"}}));
    formula.SetPlainText("Kn");
    run.Do("Update;#6;#1");  // the last without a rich text
    EXPECT_EQ(formula.PlainText(), "");
    EXPECT_EQ(run.Ask("SELECT Formula FROM Chemical WHERE FormulaRTF LIKE '%Arial%Kn%'"), Strings{"Kn"});
}

TEST(Maintenance, OwnChemicalsAreMarkedAndACodeOrAltOnCancelOpensTheOthers) {
    const std::tuple<const char*, bool, bool> cases[] = {
        {"?ordak;Alt+Close;#1", false, false},
        {"?;Alt+Close;#2", true, false},                            // cancelled
        {"Edit;Alt+Cancel;X;Open;#2;Edit;Cancel;#2", true, false},  // forgotten with the window
        {"Refresh", true, false},
        {"Delete", false, false},
        {"#2;No;Delete", false, false},
        {"#2;Edit;Alt+Cancel;Update", false, false},
        {"#2;Edit;Cancel;Close", false, true},
        {"Open;?ordaK;Alt+Close", false, true}};
    OneWindow run(kChemical);
    run.Form->cmdClose.InputFocus();
    run.Form->InputKey('A', platform::shift::Shift + platform::shift::Ctrl);
    for (const auto& [steps, marked, opens] : cases) {
        run.Core.gRedigeraAllt = false;
        run.Do(steps);
        EXPECT_EQ(run.Chemicals().txtEgen.Visible, marked) << steps;
        EXPECT_EQ(run.Core.gRedigeraAllt, opens) << steps;
    }
    EXPECT_EQ(run.Desktop.Logged("input").back(), "input Lösen: Lösen?");
    EXPECT_EQ(run.Boxes().size(), 1U);
}

TEST(Maintenance, TheEditModeUnlocksDeliveredRecordsInEveryWindow) {
    for (const Kept* window : kAll) {
        const bool chemicals = window == &kChemical;
        OneWindow run(*window);
        run.Core.gRedigeraAllt = true;
        EXPECT_EQ(run.Do("#1;Edit;Update;Refresh;Add;N=Ny;Update;#2"), kOwn) << window->Table;
        const std::string egen = OneWindow::On(*window, "SELECT Egen FROM $t WHERE ID = 1 OR $n LIKE 'Ny%'");
        EXPECT_EQ(run.Ask(egen), Strings(2, chemicals ? "0" : "-1"));
        run.Changes();
        EXPECT_EQ(run.Do("#1;Yes;Delete;Close;Open;Add;Cancel"), kOwn);  // no record chosen yet
        EXPECT_EQ(run.Changes(),
                  "-" + std::string(window->Table) +
                      (chemicals ? "|1| -relMetal|1| -relPlast|1| -relTight|1| -relMisc|1| " : "|1| "));
        EXPECT_EQ(run.Boxes().size(), 1U);
    }
}

}  // namespace
}  // namespace vemora
