// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/export.h"

#include <array>
#include <deque>
#include <map>
#include <set>
#include <system_error>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/store/store.h"
#include "vemora-db/csv_writer.h"
#include "vemora-db/export_verdicts.h"
#include "vemora-db/failures.h"
#include "vemora-db/tables.h"

namespace vemora_db {

namespace fs = std::filesystem;

namespace {

using Keys = std::map<std::int64_t, std::string>;  // of the materials of a class, by ID

/// The keys as they are stored. Materials that the user added have none and get one, "Metal7".
Keys ReadKeys(platform::Store& store, const MaterialClass& one) {
    Keys keys;
    std::set<std::string, std::less<>> taken;
    auto rows =
        store.Prepare("SELECT m.ID, k.[Key] FROM " + std::string(one.Name) +
                      " AS m LEFT JOIN MaterialKey AS k ON k.Class = ? AND k.ID = m.ID ORDER BY m.ID");
    rows.Bind(0, one.Name);
    while (rows.Step()) {
        const std::string key(rows.Text(1));
        keys[rows.Integer(0)] = IsKey(key) && taken.insert(key).second ? key : "";
    }
    for (auto& [id, key] : keys) {
        if (key.empty()) {
            key = std::string(one.Name) + std::to_string(id);
            while (!taken.insert(key).second) {
                key += '_';
            }
        }
    }
    return keys;
}

class Exporter {
  public:
    Exporter(platform::Store& store, const fs::path& data, Progress& progress)
        : store_(store), data_(data), progress_(progress) {}

    std::size_t Run() {
        WriteTable(kChemicals);
        WriteTable(kConcentrations);
        WriteTable(kTemperatures);
        WriteTable(kSources);
        std::array<Keys, kClasses.size()> keys;
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            keys[i] = ReadKeys(store_, kClasses[i]);
        }
        WriteMaterials(keys);
        const ExportLabels labels{ReadLabels(store_, kChemicals), ReadLabels(store_, kConcentrations),
                                  ReadLabels(store_, kTemperatures)};
        std::size_t strange = 0;
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            strange +=
                ExportVerdicts(store_, kClasses[i], keys[i], labels, Begin(kClasses[i].File), progress_);
            writers_.back().Finish();
        }
        for (CsvWriter& writer : writers_) {
            writer.Publish();
        }
        return strange;
    }

  private:
    CsvWriter& Begin(std::string_view file) { return writers_.emplace_back(data_ / file); }

    static void WriteCell(const platform::Statement& row, int column, CsvWriter& writer) {
        if (row.IsNull(column)) {
            writer.Null();
        } else {
            writer.Text(row.Text(column));
        }
    }

    void WriteTable(const Table& table) {
        CsvWriter& writer = Begin(table.File);
        for (const Column& column : table.Columns) {
            writer.Text(column.Name);
        }
        writer.EndRow();
        if (!HasTable(store_, table.Name)) {
            writer.Finish();
            return;
        }
        auto rows = store_.Prepare(SelectSql(table.Name, table.Columns));
        for (std::uintmax_t done = 1; rows.Step(); ++done) {
            progress_.Tell(table.File, done, 0);
            for (std::size_t i = 0; i < table.Columns.size(); ++i) {
                const int place = static_cast<int>(i);
                if (table.Columns[i].Holds == Kind::RichFormula &&
                    rows.Text(place) == FormulaRtf(rows.Text(place - 1))) {
                    writer.Text("auto");  // the formula stands in front of it
                } else {
                    WriteCell(rows, place, writer);
                }
            }
            writer.EndRow();
        }
        writer.Finish();
    }

    void WriteMaterials(const std::array<Keys, kClasses.size()>& keys) {
        CsvWriter& writer = Begin(kMaterialsFile);
        for (const std::string_view name : kMaterialsHeading) {
            writer.Text(name);
        }
        writer.EndRow();
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            const MaterialClass& one = kClasses[i];
            auto rows = store_.Prepare(SelectSql(one.Name, one.Columns));
            while (rows.Step()) {
                for (const std::string_view name : kMaterialsHeading) {
                    if (name == "Class") {
                        writer.Text(one.Name);
                    } else if (name == "Key") {
                        writer.Text(keys[i].at(rows.Integer(0)));
                    } else {
                        WriteColumn(rows, one.Columns, name, writer);
                    }
                }
                writer.EndRow();
            }
        }
        writer.Finish();
    }

    /// The cell of a column by its name; Null where the class has no such column.
    static void WriteColumn(const platform::Statement& row, std::span<const Column> columns,
                            std::string_view name, CsvWriter& writer) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].Name == name) {
                WriteCell(row, static_cast<int>(i), writer);
                return;
            }
        }
        writer.Null();
    }

    platform::Store& store_;
    const fs::path& data_;
    Progress& progress_;
    std::deque<CsvWriter> writers_;  // all files take their names at the end
};

}  // namespace

std::size_t Export(const fs::path& file, const fs::path& data, const std::string& password, bool replace,
                   Progress& progress) {
    platform::Store store(file, password, platform::Store::Access::ReadOnly);
    store.Execute("BEGIN");  // all files show the same moment
    std::error_code problem;
    for (const std::string_view name : DataFiles()) {
        if (!replace && fs::exists(data / name, problem)) {
            throw WrongUsage(platform::Utf8FromPath(data / name) + " exists already; --force replaces it");
        }
    }
    fs::create_directory(data, problem);
    if (!fs::is_directory(data, problem)) {
        throw platform::Error(platform::errors::PathFileAccess,
                              "Making the folder \"" + platform::Utf8FromPath(data) + "\" failed.", "export");
    }
    return Exporter(store, data, progress).Run();
}

}  // namespace vemora_db
