// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The windows' work without a screen, against the bare store on the same file in the same run.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "app/program.h"
#include "maintenance/record_window.h"
#include "search/frmMain.h"
#include "search/search_statement.h"
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

// Rows of a table that only the measure of a save needs, and that no other may meet.
void ManyRows(bool present) {
    TheTurn().Bare().ReadAll(
        present
            ? "INSERT INTO Misc (Name, Description) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
              "FROM n WHERE i < " +
                  std::to_string(kManyRows) + ") SELECT 'Ämne ' || i * 7919 % 10007, 'Beskrivning' FROM n"
            : "DELETE FROM Misc WHERE ID > 20");
}

// A new record saved: the look for one of the same name, the row, two refreshes of the list.
void Save(benchmark::State& state) {
    ManyRows(true);
    auto& window = static_cast<vemora::RecordWindow&>(TheTurn().Program().Main.Windows.UMisc());
    window.Show(platform::vbModal);
    int number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        window.cmdAdd.InputClick();
        window.txtFields(1).InputText("Nytt " + std::to_string(++number) + ".");
        state.ResumeTiming();
        window.cmdUpdate.InputClick();
        if (window.lst.ListCount() != kManyRows + 20 + number) {
            state.SkipWithError("another number of lines");
        }
    }
    window.Unload();
    ManyRows(false);
}

void BareSave(benchmark::State& state) {
    ManyRows(true);
    const bench::BareStore& store = TheTurn().Bare();
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            if (store.ReadAll("SELECT * FROM Misc ORDER BY Name") != kManyRows + 20) {
                state.SkipWithError("another number of rows");
            }
        }
    }
    ManyRows(false);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        return 2;
    }
    folder = bench::ProgramFolder(argv[1]);
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
    benchmark::RunSpecifiedBenchmarks();
    TheTurn().Bare();
    return EXIT_SUCCESS;
}
