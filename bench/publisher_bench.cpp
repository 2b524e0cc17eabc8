// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The publisher's program on the made-up database: create against bare prepared inserts, check against a
// plain read of everything.

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "platform/store/schema.h"
#include "platform/store/store.h"
#include "support.h"
#include "vemora-db/program.h"

namespace {

namespace fs = std::filesystem;
using platform::Store;

double Milliseconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Tool(std::vector<std::string> words) {
    words.insert(words.begin(), "vemora-db");
    std::vector<const char*> arguments;
    for (const std::string& word : words) {
        arguments.push_back(word.c_str());
    }
    const auto status =
        vemora_db::Run(static_cast<int>(arguments.size()), arguments.data(), std::cerr, std::cerr, false);
    if (status != vemora_db::Status::Fine && status != vemora_db::Status::Findings) {
        std::exit(1);
    }
}

// All rows of a table, to be inserted again.
struct Table {
    std::string Name;
    int Columns = 0;
    std::vector<std::vector<platform::Value>> Rows = {};
};

std::vector<Table> ReadTables(const fs::path& file) {
    Store store(file, "mora27", Store::Access::ReadOnly);
    std::vector<Table> tables;
    for (const char* name : {"Chemical", "Conc", "Temp", "Metal", "Plast", "Tight", "Misc", "relMetal",
                             "relPlast", "relTight", "relMisc"}) {
        Table table{.Name = name};
        auto statement = store.Prepare(std::string("SELECT * FROM ") + name);
        table.Columns = statement.Columns();
        while (statement.Step()) {
            auto& row = table.Rows.emplace_back();
            for (int i = 0; i < table.Columns; ++i) {
                row.push_back(statement.Column(i));
            }
        }
        tables.push_back(std::move(table));
    }
    return tables;
}

void BareCreate(const std::vector<Table>& tables, const fs::path& file) {
    fs::remove(file);
    Store store(file, "mora27", Store::Access::Create);
    platform::CreateSchema(store);
    store.Execute("BEGIN");
    for (const Table& table : tables) {
        std::string places = "?";
        for (int i = 1; i < table.Columns; ++i) {
            places += ",?";
        }
        auto insert = store.Prepare("INSERT INTO " + table.Name + " VALUES (" + places + ")");
        for (const auto& row : table.Rows) {
            for (int i = 0; i < table.Columns; ++i) {
                insert.Bind(i, row[static_cast<std::size_t>(i)]);
            }
            insert.Step();
            insert.Reset();
        }
    }
    store.Execute("COMMIT");
    store.Close();
}

void BareRead(const std::vector<Table>& tables, const fs::path& file) {
    const bench::BareStore store(file);
    for (const Table& table : tables) {
        store.ReadAll("SELECT * FROM " + table.Name);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const fs::path folder = argv[1];
    const fs::path file = bench::ProgramFolder(folder) / "Vemora.mdb";
    const fs::path csv = folder / "csv";
    const fs::path made = folder / "made.mdb";
    const fs::path bare = folder / "bare.mdb";
    if (!fs::exists(csv)) {
        Tool({"export", file.string(), csv.string()});
    }
    Tool({"create", "--force", csv.string(), made.string()});
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const long peak = usage.ru_maxrss / 1024;

    const std::vector<Table> tables = ReadTables(made);
    std::vector<double> create, inserts, check, read;
    for (int i = 0; i < 5; ++i) {
        create.push_back(Milliseconds([&] { Tool({"create", "--force", csv.string(), made.string()}); }));
        inserts.push_back(Milliseconds([&] { BareCreate(tables, bare); }));
        check.push_back(Milliseconds([&] { Tool({"check", "--quiet", made.string()}); }));
        read.push_back(Milliseconds([&] { BareRead(tables, made); }));
    }
    const auto row = [](const char* name, double ours, double other, const std::string& note) {
        std::printf("%s|%.0f|%.0f|%.2f|%s\n", name, ours, other, ours / other, note.c_str());
    };
    row("vemora-db create", Median(create), Median(inserts), "peak memory " + std::to_string(peak) + " MB");
    row("vemora-db check", Median(check), Median(read), "");
    return 0;
}
