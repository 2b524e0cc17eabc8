// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The windows' work without a screen, against the bare store on the same file in the same run.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "maintenance/record_window.h"
#include "relations/frmURelations.h"
#include "search/frmMain.h"
#include "search/search_statement.h"
#include "settings/frmInstallningar.h"
#include "sheet/frmChemical.h"
#include "support.h"

namespace {

std::filesystem::path folder;

// The program and the bare store take turns: the file is open to one of them at a time.
struct Turn {
    std::unique_ptr<bench::NullDesktop> desktop;
    std::unique_ptr<vemora::Program> program;
    std::unique_ptr<bench::BareStore> bare;

    vemora::Program& Program() {
        bare.reset();
        if (!program) {
            desktop = std::make_unique<bench::NullDesktop>();
            program = std::make_unique<vemora::Program>(*desktop, folder);
            program->Main.Main();
        }
        return *program;
    }
    bench::BareStore& Bare() {
        if (program) {
            program->Main.Windows.Main().Unload();
            program.reset();
        }
        if (!bare) {
            bare = std::make_unique<bench::BareStore>(folder / "Vemora.mdb");
        }
        return *bare;
    }
};

Turn& TheTurn() {
    static Turn turn;
    return turn;
}

vemora::frmMain& MainWindow() {
    return static_cast<vemora::frmMain&>(TheTurn().Program().Main.Windows.Main());
}

void Search(benchmark::State& state, const char* text, int rows) {
    vemora::frmMain& window = MainWindow();
    window.txtChem.Text = text;
    for (auto _ : state) {
        window.cmdSök.InputClick();
    }
    if (window.lvwResultat.ItemCount() != rows) {
        state.SkipWithError("another number of hits");
    }
}

void BareSearch(benchmark::State& state, const char* text, int rows) {
    const bench::BareStore& store = TheTurn().Bare();
    const std::string sql = vemora::SearchStatement(text, 0);
    for (auto _ : state) {
        if (store.ReadAll(sql) != rows) {
            state.SkipWithError("another number of hits");
        }
    }
}

// A tick in a box that no row depends on: one refresh of the sheet.
void Sheet(benchmark::State& state) {
    vemora::frmChemical& sheet = TheTurn().Program().Main.Windows.Chemical();
    sheet.Nyckel(bench::kBigChemical);
    sheet.Show(platform::vbModal);
    for (auto _ : state) {
        sheet.chkVärde(3).InputClick();
    }
    if (sheet.lvwMaterial.ItemCount() != 2000) {
        state.SkipWithError("another number of rows");
    }
    sheet.Unload();
}

void BareSheet(benchmark::State& state) {
    const bench::BareStore& store = TheTurn().Bare();
    std::string sql;
    for (const std::string table : {"Metal", "Plast", "Tight", "Misc"}) {
        sql += (sql.empty() ? "" : " UNION ALL ") +
               ("SELECT c.ConcentrationEN AS Conc, t.Temp AS Temp, r.TheValue, m.NameEN, m.DescriptionEN || "
                "' ' FROM rel" +
                table + " r JOIN " + table + " m ON m.ID = r." + table +
                "ID JOIN Conc c ON c.ID = r.ConcID JOIN Temp t ON t.ID = r.TempID WHERE r.ChemID = " +
                std::to_string(bench::kBigChemical) + " AND m.Med = -1 AND t.Med = -1");
    }
    sql += " ORDER BY 1, 2";
    for (auto _ : state) {
        if (store.ReadAll(sql) != 2000) {
            state.SkipWithError("another number of rows");
        }
    }
}

// Opening the window that keeps the chemicals: its list and its record set.
void Keep(benchmark::State& state) {
    auto& window = static_cast<vemora::RecordWindow&>(TheTurn().Program().Main.Windows.UChemicals());
    for (auto _ : state) {
        window.Load();
        if (window.lst.ListCount() != bench::kChemicals) {
            state.SkipWithError("another number of lines");
        }
        state.PauseTiming();
        window.Unload();
        state.ResumeTiming();
    }
}

void BareKeep(benchmark::State& state) {
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        if (store.ReadAll("SELECT * FROM Chemical ORDER BY NameEN") != bench::kChemicals) {
            state.SkipWithError("another number of rows");
        }
    }
}

constexpr int kManyRows = 10'000;

// Rows of a table beyond the made-up ones, up to an ID, that only one measure needs and that no other may
// meet; with 0 they go again.
void MoreRows(const std::string& table, const std::string& name, int last) {
    const int first = table == "Conc" || table == "Temp" ? 11 : 21;
    TheTurn().Bare().ReadAll("DELETE FROM " + table + " WHERE ID >= " + std::to_string(first));
    if (last > 0) {
        TheTurn().Bare().ReadAll("INSERT INTO " + table + " (ID, " + name +
                                 ") WITH RECURSIVE n(i) AS (SELECT " + std::to_string(first) +
                                 " UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(last) +
                                 ") SELECT i, 'Ämne ' || i * 7919 % 10007 FROM n");
    }
}

// A new record saved: the look for one of the same name, the row, two refreshes of the list.
void Save(benchmark::State& state) {
    MoreRows("Misc", "Name", kManyRows);
    auto& window = static_cast<vemora::RecordWindow&>(TheTurn().Program().Main.Windows.UMisc());
    window.Show(platform::vbModal);
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.cmdAdd.InputClick();
        window.txtFields(1).InputText("Nytt " + std::to_string(++number) + ".");
        state.ResumeTiming();
        window.cmdUpdate.InputClick();
        if (window.lst.ListCount() != kManyRows + number) {
            state.SkipWithError("another number of lines");
        }
    }
    window.Unload();
    MoreRows("Misc", "Name", 0);
}

void BareSave(benchmark::State& state) {
    MoreRows("Misc", "Name", kManyRows);
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            if (store.ReadAll("SELECT * FROM Misc ORDER BY Name") != kManyRows) {
                state.SkipWithError("another number of rows");
            }
        }
    }
    MoreRows("Misc", "Name", 0);
}

constexpr int kThousand = 1000;
struct Reference {
    std::string Table, Name, Read;
};
const std::vector<Reference> kReferences = {
    {"Conc", "ConcentrationEN", "SELECT ID, ConcentrationEN FROM Conc ORDER BY ConcentrationEN"},
    {"Metal", "NameEN", "SELECT ID, NameEN, DescriptionEN FROM Metal ORDER BY NameEN"},
    {"Misc", "NameEN", "SELECT ID, NameEN, DescriptionEN FROM Misc ORDER BY NameEN"},
    {"Plast", "NameEN", "SELECT ID, NameEN, DescriptionEN FROM Plast ORDER BY NameEN"},
    {"Temp", "Temp", "SELECT * FROM Temp ORDER BY ID"},
    {"Tight", "NameEN", "SELECT ID, NameEN, DescriptionEN FROM Tight ORDER BY NameEN"}};

// A thousand rows in each of the tables that a choice is made of.
void Thousands(bool present) {
    for (const Reference& one : kReferences) {
        MoreRows(one.Table, one.Name, present ? kThousand : 0);
    }
}

vemora::frmURelations& RelationsWindow() {
    return static_cast<vemora::frmURelations&>(TheTurn().Program().Main.Windows.URelations());
}

void Relations(benchmark::State& state) {
    Thousands(true);
    vemora::frmURelations& window = RelationsWindow();
    for (auto _ : state) {
        window.Load();
        if (window.lstChemicals.ListCount() != bench::kChemicals || window.lvwMisc.ItemCount() != kThousand) {
            state.SkipWithError("another number of lines");
        }
        state.PauseTiming();
        window.Unload();
        state.ResumeTiming();
    }
    Thousands(false);
}

void BareRelations(benchmark::State& state) {
    Thousands(true);
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        long rows = store.ReadAll("SELECT ID, NameEN FROM Chemical WHERE Med = -1 ORDER BY NameEN");
        for (const Reference& one : kReferences) {
            rows += store.ReadAll(one.Read);
        }
        if (rows != bench::kChemicals + 6 * kThousand) {
            state.SkipWithError("another number of rows");
        }
    }
    Thousands(false);
}

// A click on a material: what it asks the store is asked twice, by the row's event and by the click's.
void Click(benchmark::State& state, bool all) {
    vemora::frmURelations& window = RelationsWindow();
    window.Show(platform::vbModal);
    const auto choose = [](platform::LineList& list, int data) {
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.ItemData(i) == data) {
                list.InputIndex(i);
            }
        }
    };
    choose(window.lstChemicals, bench::kBigChemical);
    choose(window.cboConc, all ? -1 : 1);
    choose(window.cboTemp, 1);
    int row = 0;
    for (auto _ : state) {
        window.lvwMetal.InputSelect(++row % 10);
        window.lvwMetal.InputClick();
        if (!window.txtKopplad.Visible) {
            state.SkipWithError("there is a verdict, and it isn't found");
        }
    }
    window.Unload();
}

std::string ClickStatement(bool value, bool all) {
    return std::string("SELECT ") + (value ? "TheValue" : "*") + " FROM relMetal WHERE " +
           (!value && all
                ? ""
                : "ChemID = 4711 AND ConcID = " + std::string(all ? "-1" : "1") + " AND TempID = 1 AND ") +
           "MetalID = 5";
}

void BareClick(benchmark::State& state, bool all) {
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            store.ReadAll(ClickStatement(true, all), 1);
            if (store.ReadAll(ClickStatement(false, all), 1) != 1) {
                state.SkipWithError("there is a verdict, and it isn't found");
            }
        }
    }
}

vemora::frmInställningar& SettingsWindow() {
    return static_cast<vemora::frmInställningar&>(TheTurn().Program().Main.Windows.Inställningar());
}

void Settings(benchmark::State& state) {
    Thousands(true);
    vemora::frmInställningar& window = SettingsWindow();
    for (auto _ : state) {
        window.Load();
        if (window.lvwTight.ItemCount() != kThousand || !window.lvwTemp.Item(kThousand - 1).Checked()) {
            state.SkipWithError("another number of rows");
        }
        state.PauseTiming();
        window.Unload();
        state.ResumeTiming();
    }
    Thousands(false);
}

void BareSettings(benchmark::State& state) {
    Thousands(true);
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        for (const Reference& one : kReferences) {
            if (store.ReadAll(one.Read) + store.ReadAll("SELECT * FROM " + one.Table) != 2 * kThousand) {
                state.SkipWithError("another number of rows");
            }
        }
    }
    Thousands(false);
}

void SaveSettings(benchmark::State& state) {
    Thousands(true);
    vemora::frmInställningar& window = SettingsWindow();
    for (auto _ : state) {
        state.PauseTiming();
        window.Show(platform::vbModal);
        window.SSTab1.InputTab(3);
        const bool tick = !window.lvwTemp.Item(0).Checked();
        window.lvwTemp.InputCheck({0}, tick);
        if (window.lvwTemp.Item(0).Checked() != tick) {
            state.SkipWithError("there is nothing to save");
        }
        state.ResumeTiming();
        window.cmdSpara.InputClick();
    }
    Thousands(false);
}

void BareSaveSettings(benchmark::State& state) {
    Thousands(true);
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        for (const Reference& one : kReferences) {
            store.RunEach("UPDATE " + one.Table + " SET Med = -1 WHERE ID = ?", kThousand);
        }
    }
    Thousands(false);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        return 2;
    }
    folder = bench::ProgramFolder(argv[1]);
    for (const bool all : {false, true}) {
        for (const bool value : {true, false}) {
            const std::string statement = ClickStatement(value, all);
            std::fprintf(stderr, "plan: %s: %s\n", statement.c_str(),
                         TheTurn().Bare().Plan(statement).c_str());
        }
    }
    using benchmark::RegisterBenchmark;
    const auto add = [](const char* name, auto&& function) {
        RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond);
    };
    add("search, 20 hits", [](benchmark::State& s) { Search(s, bench::kRareText, 20); });
    add("search, 20 hits (bare)", [](benchmark::State& s) { BareSearch(s, bench::kRareText, 20); });
    add("empty search", [](benchmark::State& s) { Search(s, "", bench::kChemicals); });
    add("empty search (bare)", [](benchmark::State& s) { BareSearch(s, "", bench::kChemicals); });
    add("sheet, 2000 rows", Sheet);
    add("sheet, 2000 rows (bare)", BareSheet);
    add("chemicals to keep", Keep);
    add("chemicals to keep (bare)", BareKeep);
    add("a new record among 10000", Save);
    add("a new record among 10000 (bare)", BareSave);
    add("relations", Relations);
    add("relations (bare)", BareRelations);
    add("a click on a material", [](benchmark::State& s) { Click(s, false); });
    add("a click on a material (bare)", [](benchmark::State& s) { BareClick(s, false); });
    add("the same, any concentration", [](benchmark::State& s) { Click(s, true); });
    add("the same, any concentration (bare)", [](benchmark::State& s) { BareClick(s, true); });
    add("settings", Settings);
    add("settings (bare)", BareSettings);
    add("settings saved", SaveSettings);
    add("settings saved (bare)", BareSaveSettings);
    benchmark::RunSpecifiedBenchmarks();
    TheTurn().Bare();
    return EXIT_SUCCESS;
}
