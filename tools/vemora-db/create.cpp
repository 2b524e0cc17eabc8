// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/create.h"

#include <algorithm>
#include <array>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/store/schema.h"
#include "platform/store/store.h"
#include "vemora-db/create_verdicts.h"
#include "vemora-db/csv_reader.h"
#include "vemora-db/failures.h"
#include "vemora-db/tables.h"
#include "vemora-db/temporary_file.h"

namespace vemora_db {

namespace fs = std::filesystem;

namespace {

class Creator {
  public:
    Creator(platform::Store& store, const fs::path& data, Progress& progress)
        : store_(store), data_(data), progress_(progress) {}

    void Run() {
        Load(kChemicals, references_.Chemicals);
        Load(kConcentrations, references_.Concentrations);
        Load(kTemperatures, references_.Temperatures);
        Labels codes;
        Load(kSources, codes);
        LoadMaterials();
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            CreateVerdicts(store_, data_, i, references_, progress_);
        }
    }

  private:
    void Load(const Table& table, Labels& labels) {
        CsvReader reader(data_ / table.File);
        std::vector<std::string_view> names;
        std::size_t label = 0;
        for (const Column& column : table.Columns) {
            if (column.Name == table.Label) {
                label = names.size();
            }
            names.push_back(column.Name);
        }
        const auto cells = reader.Columns(names);
        auto insert = store_.Prepare(InsertSql(table.Name, table.Columns));
        while (reader.Next()) {
            progress_.Tell(table.File, reader.Position(), reader.Size());
            const std::int32_t id = reader.Number(cells[0]);
            if (!labels.emplace(id, reader.Text(cells[label])).second) {
                reader.Fail(cells[0], "the ID " + std::to_string(id) + " is there twice");
            }
            Insert(reader, table.Columns, cells, insert);
        }
    }

    void LoadMaterials() {
        CsvReader reader(data_ / kMaterialsFile);
        const auto places = reader.Columns(kMaterialsHeading);
        const auto cellOf = [&](std::string_view name) {
            const auto found = std::find(kMaterialsHeading.begin(), kMaterialsHeading.end(), name);
            return places[static_cast<std::size_t>(found - kMaterialsHeading.begin())];
        };
        struct Target {
            platform::Statement Insert;
            std::vector<std::size_t> Cells;
            std::set<std::int32_t> IDs;
        };
        std::vector<Target> targets;
        for (const MaterialClass& one : kClasses) {
            targets.push_back({store_.Prepare(InsertSql(one.Name, one.Columns)), {}, {}});
            for (const Column& column : one.Columns) {
                targets.back().Cells.push_back(cellOf(column.Name));
            }
        }
        auto insertKey = store_.Prepare("INSERT INTO MaterialKey(Class, ID, [Key]) VALUES(?, ?, ?)");
        while (reader.Next()) {
            progress_.Tell(kMaterialsFile, reader.Position(), reader.Size());
            const std::size_t index = ClassOf(reader, cellOf("Class"));
            Target& target = targets[index];
            const std::int32_t id = reader.Number(cellOf("ID"));
            if (!target.IDs.insert(id).second) {
                reader.Fail(cellOf("ID"), "the ID " + std::to_string(id) + " is there twice in its class");
            }
            const std::string_view key = reader.Text(cellOf("Key"));
            if (!IsKey(key)) {
                reader.Fail(cellOf("Key"), "\"" + std::string(key) + "\" can't be the key of a material");
            }
            if (!references_.Keys[index].emplace(key, id).second) {
                reader.Fail(cellOf("Key"), "the key " + std::string(key) + " is there twice in its class");
            }
            for (const std::string_view name : kMaterialsHeading.subspan(3)) {
                const std::size_t cell = cellOf(name);
                if (!reader.IsNull(cell) &&
                    std::find(target.Cells.begin(), target.Cells.end(), cell) == target.Cells.end()) {
                    reader.Fail(cell, "the class " + std::string(kClasses[index].Name) + " has no " +
                                          std::string(name) + "; leave the cell empty");
                }
            }
            Insert(reader, kClasses[index].Columns, target.Cells, target.Insert);
            insertKey.Bind(0, kClasses[index].Name);
            insertKey.Bind(1, std::int64_t{id});
            insertKey.Bind(2, key);
            insertKey.Step();
            insertKey.Reset();
        }
    }

    static std::size_t ClassOf(const CsvReader& reader, std::size_t cell) {
        const auto found = std::find_if(kClasses.begin(), kClasses.end(), [&](const MaterialClass& one) {
            return one.Name == reader.Text(cell);
        });
        if (found == kClasses.end()) {
            reader.Fail(cell, "the class must be Metal, Plast, Tight or Misc, not \"" +
                                  std::string(reader.Text(cell)) + "\"");
        }
        return static_cast<std::size_t>(found - kClasses.begin());
    }

    void Insert(const CsvReader& reader, std::span<const Column> columns,
                const std::vector<std::size_t>& cells, platform::Statement& insert) {
        std::string_view formula;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const int place = static_cast<int>(i);
            const std::size_t cell = cells[i];
            switch (columns[i].Holds) {
                case Kind::Number:
                    insert.Bind(place, std::int64_t{reader.Number(cell)});
                    break;
                case Kind::Flag:
                    insert.Bind(place, std::int64_t{reader.Flag(cell)});
                    break;
                case Kind::Text:
                    BindText(insert, place, reader, cell);
                    if (columns[i].Name == "Formula") {
                        formula = reader.Text(cell);
                    }
                    break;
                case Kind::RichFormula:  // stands behind its formula
                    if (reader.Text(cell) == "auto") {
                        derived_ = FormulaRtf(formula);
                        insert.Bind(place, std::string_view(derived_));
                    } else {
                        BindText(insert, place, reader, cell);
                    }
                    break;
            }
        }
        insert.Step();
        insert.Reset();
    }

    static void BindText(platform::Statement& insert, int place, const CsvReader& reader, std::size_t cell) {
        if (reader.IsNull(cell)) {
            insert.BindNull(place);
        } else {
            insert.Bind(place, reader.ProgramText(cell));
        }
    }

    platform::Store& store_;
    const fs::path& data_;
    Progress& progress_;
    References references_;
    std::string derived_;
};

/// Where a link leads to, be there a file or not: the link stays one, and what it leads to is replaced.
fs::path FollowLinks(fs::path file) {
    std::error_code problem;
    if (fs::status(file, problem).type() == fs::file_type::none) {  // links in a circle, a locked folder
        throw platform::Error(platform::errors::PathFileAccess,
                              platform::Utf8FromPath(file) + ": " + problem.message(), "create");
    }
    while (fs::is_symlink(fs::symlink_status(file, problem))) {
        file = file.parent_path() / fs::read_symlink(file, problem);
    }
    return file;
}

void CheckTarget(const fs::path& file, bool replace) {
    const std::string name = platform::Utf8FromPath(file);
    std::error_code problem;
    const fs::file_status status = fs::status(file, problem);
    if (!fs::exists(status)) {
        return;
    }
    if (!fs::is_regular_file(status)) {
        throw WrongUsage(name + " is no file");
    }
    if (!replace) {
        throw WrongUsage(name + " exists already; --force replaces it");
    }
    // Beside a new file the journal of the old one would be taken for that of the new one.
    RefuseJournal(file);
}

}  // namespace

void Create(const fs::path& data, const fs::path& file, const std::string& password, bool replace,
            Progress& progress) {
    if (std::error_code problem; !fs::is_directory(data, problem)) {
        throw platform::Error(platform::errors::FileNotFound,
                              platform::Utf8FromPath(data) + ": there is no such folder", "create");
    }
    const fs::path target = FollowLinks(file);
    CheckTarget(target, replace);
    TemporaryFile temporary(target);
    {
        platform::Store store(temporary.Path(), password, platform::Store::Access::Create);
        // Nobody misses this file when the power fails, so that it needs no journal. Its pages still go to
        // the disk before COMMIT returns.
        store.Execute("PRAGMA journal_mode = OFF; PRAGMA cache_size = -32768");
        platform::CreateSchema(store);
        store.Execute("BEGIN");
        Creator(store, data, progress).Run();
        store.Execute("COMMIT");
        store.Execute("PRAGMA journal_mode = WAL");
        store.Close();
    }
    progress.Clear();
    CheckTarget(target, replace);
    temporary.TakePlace();
}

}  // namespace vemora_db
