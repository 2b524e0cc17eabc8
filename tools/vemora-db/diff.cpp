// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/diff.h"

#include <algorithm>
#include <system_error>
#include <unordered_map>

#include "platform/adodb/adodb.h"
#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/text/text.h"
#include "update/writers.h"
#include "vemora-db/export_verdicts.h"
#include "vemora-db/on_file.h"
#include "vemora-db/tables.h"
#include "vemora-db/temporary_file.h"
#include "vemora-db/text_table.h"
#include "vemora-db/write_update.h"

namespace vemora_db {

namespace fs = std::filesystem;

namespace {

/// Compares the tables of a database before and after an update, which deletes nothing.
class Comparison {
  public:
    Comparison(platform::Store& before, platform::Store& after, bool blanks, Differences& differences,
               Progress& progress)
        : before_(before),
          after_(after),
          blanks_(blanks),
          differences_(differences),
          progress_(progress),
          chemicals_(ReadLabels(after, kChemicals)),
          concentrations_(ReadLabels(after, kConcentrations)),
          temperatures_(ReadLabels(after, kTemperatures)) {}

    void Run() {
        for (const Table* const table : {&kChemicals, &kConcentrations, &kTemperatures}) {
            const std::string label(table->Label);
            Compare(std::string(table->Name), SelectSql(table->Name, table->Columns), 1,
                    [&](const platform::Statement& row) {
                        return row.ColumnName(0) + " " + std::to_string(row.Integer(0)) + ", " +
                               Quoted(row.Text(Place(row, label)));
                    });
        }
        for (const MaterialClass& one : kClasses) {
            const auto materials = ReadLabels(after_, {one.Name, {}, "Name", one.Columns});
            Compare(std::string(one.Relation),
                    "SELECT ChemID, ConcID, TempID, " + std::string(one.IdColumn) + ", TheValue, Egen FROM " +
                        std::string(one.Relation) + " ORDER BY 1, 2, 3, 4",
                    4, [&](const platform::Statement& row) {
                        return Named(row, 0, chemicals_) + ", " + Named(row, 1, concentrations_) + ", " +
                               Named(row, 2, temperatures_) + ", " + Named(row, 3, materials);
                    });
        }
    }

  private:
    using Names = std::unordered_map<std::int64_t, std::string>;

    static int Place(const platform::Statement& row, std::string_view column) {
        int place = 0;
        while (row.ColumnName(place) != column) {
            ++place;
        }
        return place;
    }

    static std::string Named(const platform::Statement& row, int column, const Names& names) {
        const auto found = names.find(row.Integer(column));
        return found == names.end() ? row.ColumnName(column) + " " + std::to_string(row.Integer(column))
                                    : Quoted(found->second);
    }

    static bool SameKey(const platform::Statement& one, const platform::Statement& other, int keys) {
        for (int i = 0; i < keys; ++i) {
            if (one.Integer(i) != other.Integer(i)) {
                return false;
            }
        }
        return true;
    }

    template <class Describe>
    void Compare(const std::string& name, const std::string& sql, int keys, Describe describe) {
        Differences::Table& table = differences_.Tables.emplace_back();
        table.Name = name;
        auto before = before_.Prepare(sql);
        auto after = after_.Prepare(sql);
        bool more = before.Step();
        for (std::uintmax_t done = 1; after.Step(); ++done) {
            progress_.Tell(name, done, 0);
            if (!more || !SameKey(before, after, keys)) {
                ++table.New;
                const bool verdict = keys > 1;
                const bool blank = verdict && platform::Trim(after.Text(keys)).empty();
                table.Blank += blank ? 1 : 0;
                if (!blank || blanks_) {
                    differences_.Rows.push_back("new      " + name + " " + describe(after) +
                                                (verdict ? ": " + Quoted(after.Text(keys)) : ""));
                }
                continue;
            }
            TellChanges(table, before, after, keys, describe);
            more = before.Step();
        }
    }

    template <class Describe>
    void TellChanges(Differences::Table& table, const platform::Statement& before,
                     const platform::Statement& after, int keys, Describe describe) {
        std::string changes;
        for (int i = keys; i < after.Columns(); ++i) {
            // An empty text in the place of Null shows nowhere.
            if (before.Text(i) != after.Text(i)) {
                changes += (changes.empty() ? ": " : ", ") + (keys > 1 ? "" : after.ColumnName(i) + " ") +
                           Quoted(before.Text(i)) + " -> " + Quoted(after.Text(i));
            }
        }
        if (changes.empty()) {
            return;
        }
        ++table.Changed;
        differences_.Rows.push_back("changed  " + table.Name + " " + describe(after) + changes);
        if (before.Integer(Place(before, "Egen")) != 0) {
            differences_.Strange.Add(Severity::Warning, "a row of the user's own is written over", table.Name,
                                     describe(before));
        }
    }

    platform::Store& before_;
    platform::Store& after_;
    bool blanks_;
    Differences& differences_;
    Progress& progress_;
    Names chemicals_;
    Names concentrations_;
    Names temperatures_;
};

void TakeIn(const fs::path& database, const std::string& password, const fs::path& update,
            Differences& differences, Progress& progress) {
    platform::adodb::Connection connection;
    connection.ConnectionString = "Data Source=" + platform::Utf8FromPath(database);
    connection.Properties["Jet OLEDB:Database Password"] = password;
    connection.Open();
    std::string name = "the start";
    vemora::UpdateWriters writers(connection, [&](const platform::Error& error, const char*) {
        differences.Strange.Add(Severity::Error, error.Description, "update", name);
    });
    try {
        vemora::UpdateLines lines(update);
        std::uintmax_t done = 0;
        vemora::TaIn(lines, writers, [&](const std::string& chemical) {
            name = Quoted(chemical);
            progress.TellStep("chemicals", ++done, 0);
        });
        differences.Counted = writers.Ändringar;
    } catch (const platform::Error& error) {
        // The program tells its user of this alone, and of no change.
        differences.Strange.Add(Severity::Error, "the reading ends: " + error.Description, "update",
                                "behind " + name);
    }
    connection.Close();
}

bool IsUpdateFile(const fs::path& file) {
    return platform::EqualIgnoringCase(platform::Utf8FromPath(file.extension()), ".skv");
}

}  // namespace

bool Differences::Any() const {
    return std::any_of(Tables.begin(), Tables.end(),
                       [](const Table& table) { return table.New + table.Changed > 0; });
}

void Differences::Print(std::ostream& out, bool warnings) const {
    for (const std::string& row : Rows) {
        out << row << '\n';
    }
    out << (Rows.empty() ? "" : "\n");
    std::vector<std::vector<std::string>> numbers = {{"Table", "New", "Of them blank", "Changed"}};
    for (const Table& table : Tables) {
        numbers.push_back({table.Name, std::to_string(table.New), std::to_string(table.Blank),
                           std::to_string(table.Changed)});
    }
    PrintRows(out, numbers);
    out << "\nChanges that the program would count: " << Counted << "\n\n";
    if (!Carried) {
        out << "The newer database holds what an update file can't carry; update-file tells what.\n";
    }
    Strange.Print(out, warnings);
}

Differences Diff(const fs::path& older, const fs::path& newer, const std::string& password, bool blanks,
                 Progress& progress) {
    Differences differences;
    RefuseJournal(older);
    // The names of copies, which lie where others aren't disturbed by them.
    const TemporaryFile copy(fs::temp_directory_path() / "vemora-db");
    const TemporaryFile written(fs::temp_directory_path() / "vemora-db");
    platform::Store before(older, password, platform::Store::Access::ReadOnly);
    fs::path update = newer;
    if (!IsUpdateFile(newer)) {
        OnFile(newer, [&] {
            platform::Store store(newer, password, platform::Store::Access::ReadOnly);
            Findings findings;
            platform::WriteFile(written.Path(), UpdateBytes(store, {}, findings, progress));
            differences.Carried = !findings.Has(Severity::Error) && !findings.Has(Severity::Warning);
        });
        update = written.Path();
    } else {
        platform::OpenFile(newer);
    }
    fs::copy_file(older, copy.Path());
    fs::permissions(copy.Path(), fs::perms::owner_read | fs::perms::owner_write);
    TakeIn(copy.Path(), password, update, differences, progress);
    platform::Store after(copy.Path(), password, platform::Store::Access::ReadOnly);
    Comparison(before, after, blanks, differences, progress).Run();
    return differences;
}

}  // namespace vemora_db
