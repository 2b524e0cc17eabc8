// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// An update taken in, against the same writes as bare prepared statements on a file with the same settings,
// in the same order. Each write of both is on the disk when its statement returns.

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "platform/adodb/adodb.h"
#include "platform/store/schema.h"
#include "platform/store/store.h"
#include "update/writers.h"

namespace {

namespace fs = std::filesystem;
using platform::Statement;
using platform::Store;

constexpr int kLines = 5;  // of values, for each chemical
constexpr const char* kPassword = "mora27";
constexpr const char* kSigns[] = {"+", "-", "0"};

struct Times {
    double Wall = 0;  // seconds
    double Processor = 0;
};

Times Measure(const std::function<void()>& work) {
    const auto processor = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
               static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    };
    const double before = processor();
    const auto begin = std::chrono::steady_clock::now();
    work();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
            processor() - before};
}

long PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

std::string Cell(int chemical, int line, int cell, int round) {
    return kSigns[(chemical + line + cell + round) % 3];
}

fs::path MakeFile(const fs::path& folder, int chemicals, int round) {
    const fs::path file = folder / "Upd.skv";
    std::ofstream out(file, std::ios::binary);
    out << "heading\r\n";
    for (int chemical = 1; chemical <= chemicals; ++chemical) {
        const std::string id = std::to_string(chemical);
        out << id << ";C2H6O;Namn " << id << ";Name " << id << ";Name " << id << ";not;note;;;;\r\n";
        for (int line = 0; line < kLines; ++line) {
            out << (line == 0 ? ";;10 %;10 %;10 %;;;;;;;;;" : ";;;;;;;;;;;;;") << line << "0\xBA";
            for (int cell = 0; cell < 16; ++cell) {
                out << ';' << Cell(chemical, line, cell, round);
            }
            out << "\r\n";
        }
    }
    return file;
}

void MakeDatabase(const fs::path& file) {
    fs::remove(file);
    fs::remove(file.string() + "-wal");
    Store store(file, kPassword, Store::Access::Create);
    platform::CreateSchema(store);
    store.Close();
}

void TakeIn(const fs::path& database, const fs::path& file) {
    platform::adodb::Connection connection;
    connection.ConnectionString = "Data Source=" + database.string();
    connection.Properties["Jet OLEDB:Database Password"] = kPassword;
    connection.Open();
    vemora::UpdateWriters writers(connection, [](const platform::Error& error, const char*) {
        std::fprintf(stderr, "%s\n", error.what());
        std::exit(1);
    });
    vemora::UpdateLines lines(file);
    vemora::TaIn(lines, writers, [](const std::string&) {});
    connection.Close();
}

// Whether there is a row, and the one write that follows.
class BareWriter {
  public:
    BareWriter(Store& store, const std::string& find, const std::string& insert, const std::string& update)
        : find_(store.Prepare(find)), insert_(store.Prepare(insert)), update_(store.Prepare(update)) {}
    /// The key fields and what is written, in the order of the statements; the first field found.
    std::int64_t Write(const std::vector<platform::Value>& key, const std::vector<platform::Value>& fields) {
        const bool found = Run(find_, key);
        Run(found ? update_ : insert_, fields);
        return Run(find_, key) ? id_ : 0;
    }
    void WriteOnce(const std::vector<platform::Value>& key, const std::vector<platform::Value>& fields) {
        Run(Run(find_, key) ? update_ : insert_, fields);
    }

  private:
    bool Run(Statement& statement, const std::vector<platform::Value>& values) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            statement.Bind(static_cast<int>(i), values[i]);
        }
        const bool row = statement.Step();
        id_ = row ? statement.Column(0).Long() : 0;
        statement.Reset();
        return row;
    }
    Statement find_, insert_, update_;
    std::int64_t id_ = 0;
};

void BareWrites(const fs::path& database, int chemicals, int round) {
    Store store(database, kPassword, Store::Access::Exclusive);
    BareWriter chemical(
        store, "SELECT ID FROM Chemical WHERE ID = ?1",
        "INSERT INTO Chemical(NameSE, ID, Formula, NameEN, NameGE, NoteSE, NoteEN, NoteGE, "
        "NickNameSE, NickNameEN, NickNameGE) VALUES(?1, ?2, 'C2H6O', ?1, ?1, 'not', 'note', "
        "'', '', '', '')",
        "UPDATE Chemical SET NameSE = ?1, NameEN = ?1, NameGE = ?1, NoteSE = 'not' WHERE ID = ?2");
    BareWriter conc(store, "SELECT ID FROM Conc WHERE ConcentrationSE = ?1",
                    "INSERT INTO Conc(ConcentrationSE, ConcentrationEN, ConcentrationDE) VALUES(?1, ?1, ?1)",
                    "UPDATE Conc SET ConcentrationSE = ?1, ConcentrationEN = ?1, ConcentrationDE = ?1 WHERE "
                    "ConcentrationSE = ?1");
    BareWriter temp(store, "SELECT ID FROM Temp WHERE Temp = ?1", "INSERT INTO Temp(Temp) VALUES(?1)",
                    "UPDATE Temp SET Temp = ?1 WHERE Temp = ?1");
    std::vector<BareWriter> values;
    for (const auto* table : {&vemora::kPlastValues, &vemora::kMetalValues, &vemora::kTightValues}) {
        const std::string key = std::string(" WHERE ConcID = ?1 AND TempID = ?2 AND ChemID = ?3 AND ") +
                                table->IdColumn + " = ?4";
        values.emplace_back(store, std::string("SELECT ChemID, TheValue, Egen FROM ") + table->Table + key,
                            std::string("INSERT INTO ") + table->Table + "(ConcID, TempID, ChemID, " +
                                table->IdColumn + ", TheValue, Egen) VALUES(?1, ?2, ?3, ?4, ?5, 0)",
                            std::string("UPDATE ") + table->Table + " SET TheValue = ?5" + key);
    }
    for (int id = 1; id <= chemicals; ++id) {
        chemical.WriteOnce({id}, {"Namn " + std::to_string(id), id});
        std::int64_t concID = 0;
        for (int line = 0; line < kLines; ++line) {
            if (line == 0) {
                concID = conc.Write({"10 %"}, {"10 %"});
            }
            const std::string label = std::to_string(line) + "0º";
            const std::int64_t tempID = temp.Write({label}, {label});
            for (int cell = 0; cell < 16; ++cell) {
                const auto& field = vemora::kValueFields[static_cast<std::size_t>(cell)];
                const std::size_t table = cell < 6 ? 0 : cell < 10 ? 1 : 2;
                const std::vector<platform::Value> key = {concID, tempID, id, field.MaterialID};
                auto all = key;
                all.emplace_back(Cell(id, line, cell, round));
                values[table].WriteOnce(key, all);
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const fs::path folder = argv[1];
    const int chemicals = std::atoi(argv[2]);
    const fs::path ours = folder / "update-ours.mdb";
    const fs::path bare = folder / "update-bare.mdb";

    // The memory first, before anything else has grown it: twice the lines, hardly more of it.
    MakeDatabase(ours);
    fs::path file = MakeFile(folder, chemicals / 20, 0);
    TakeIn(ours, file);
    const long half = PeakMegabytes();
    file = MakeFile(folder, chemicals / 10, 0);
    MakeDatabase(ours);
    TakeIn(ours, file);
    const long whole = PeakMegabytes();

    MakeDatabase(ours);
    MakeDatabase(bare);
    const char* const names[] = {"update taken in", "the same, changed"};
    for (int round = 0; round < 2; ++round) {
        file = MakeFile(folder, chemicals, round);
        const Times bareTimes = Measure([&] { BareWrites(bare, chemicals, round); });
        const Times ourTimes = Measure([&] { TakeIn(ours, file); });
        const double cells = chemicals * kLines * 16.0;
        std::printf(
            "%s|%.0f|%.0f|%.2f|%.0f µs a verdict, %.0f of them of the processor; bare %.0f and %.0f\n",
            names[round], ourTimes.Wall * 1e3, bareTimes.Wall * 1e3, ourTimes.Wall / bareTimes.Wall,
            ourTimes.Wall / cells * 1e6, ourTimes.Processor / cells * 1e6, bareTimes.Wall / cells * 1e6,
            bareTimes.Processor / cells * 1e6);
    }
    std::printf("memory of an update, twice the lines (MB)|%ld|%ld|%.2f|\n", whole, half,
                static_cast<double>(whole) / static_cast<double>(half));
    fs::remove(ours);
    fs::remove(bare);
    return 0;
}
