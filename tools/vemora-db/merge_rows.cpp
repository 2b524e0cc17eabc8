// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/merge_rows.h"

#include <utility>

#include "platform/text/fold.h"
#include "vemora-db/text_table.h"

namespace vemora_db {

namespace {

// Behind the texts stand Egen and Med.
constexpr int kFlags = 2;

}  // namespace

int NamedTable::Label() const {
    int place = 0;
    while (table_.Columns[static_cast<std::size_t>(place)].Name != table_.Label) {
        ++place;
    }
    return place;
}

/// Rows without a name are the same when all their texts are.
std::string NamedTable::KeyOf(const platform::Statement& row, int label, int texts) {
    std::string key;
    platform::Fold(row.Text(label), key);
    if (key.empty()) {
        for (int i = 1; i < texts; ++i) {
            std::string folded;
            platform::Fold(row.Text(i), folded);
            key.append(1, '\0').append(folded);
        }
    }
    return key;
}

void NamedTable::Read(platform::Store& from, Progress& progress) {
    const int label = Label();
    auto rows = from.Prepare(SelectSql(table_.Name, table_.Columns));
    const int egen = rows.Columns() - kFlags;
    while (rows.Step()) {
        progress.Tell(table_.Name, rows_.size(), 0);
        Row& row = rows_.emplace_back();
        row.ID = rows.Integer(0);
        row.Name = rows.Text(label);
        row.Key = KeyOf(rows, label, egen);
        row.Own = rows.Integer(egen) != 0;
        row.TakesPart = rows.Integer(egen + 1);
        for (int i = 1; row.Own && i < rows.Columns(); ++i) {
            row.Cells.push_back(rows.Column(i));
        }
        places_[row.ID] = rows_.size() - 1;
    }
}

void NamedTable::Write(platform::Store& file, Merged& merged, Progress& progress) {
    const std::string name(table_.Name);
    struct Namesake {
        std::int64_t ID;
        std::int64_t TakesPart;
        bool Met = false;  // a row of the old database has led here
    };
    std::unordered_map<std::string, Namesake> there;  // of several the first, which the program finds, too
    {
        auto rows = file.Prepare(SelectSql(table_.Name, table_.Columns));
        const int egen = rows.Columns() - kFlags;
        while (rows.Step()) {
            progress.Tell(name, there.size(), 0);
            there.try_emplace(KeyOf(rows, Label(), egen), Namesake{rows.Integer(0), rows.Integer(egen + 1)});
        }
    }
    Merged::Table& counts = merged.Tables.emplace_back();
    counts.Name = name;
    auto insert = file.Prepare(InsertSql(table_.Name, table_.Columns.subspan(1)));
    auto choose = file.Prepare("UPDATE [" + name + "] SET Med = ? WHERE ID = ?");
    std::string sql = SelectSql(table_.Name, table_.Columns);
    auto find = file.Prepare(sql.insert(sql.find(" ORDER BY"), " WHERE ID = ?"));
    for (const Row& row : rows_) {
        progress.Tell(name, ids_.size(), 0);
        counts.Own += row.Own ? 1 : 0;
        const auto found = there.find(row.Key);
        if (found == there.end()) {
            if (row.Own) {
                for (std::size_t i = 0; i < row.Cells.size(); ++i) {
                    insert.Bind(static_cast<int>(i), row.Cells[i]);
                }
                insert.Step();
                insert.Reset();
                ids_[row.ID] = file.LastInsertedID();
                there[row.Key] = {ids_[row.ID], row.TakesPart, true};
                ++counts.Added;
            } else if (row.TakesPart == 0) {
                merged.Strange.Add(Severity::Error, "a choice isn't carried: there is no row of the name",
                                   name, Quoted(row.Name));
            }
            continue;
        }
        Namesake& namesake = found->second;
        ids_[row.ID] = namesake.ID;
        if (std::exchange(namesake.Met, true)) {
            merged.Strange.Add(Severity::Warning, "two rows of one name become one", name, Quoted(row.Name));
        }
        if (row.Own) {
            ++counts.There;
            find.Bind(0, namesake.ID);
            if (find.Step() && !SameTexts(row, find)) {
                merged.Strange.Add(Severity::Error,
                                   "a row of the user's isn't carried: one of the name has other texts", name,
                                   Quoted(row.Name));
            }
            find.Reset();
        }
        if (row.TakesPart != namesake.TakesPart) {
            choose.Bind(0, row.TakesPart);
            choose.Bind(1, namesake.ID);
            choose.Step();
            choose.Reset();
            namesake.TakesPart = row.TakesPart;
            ++counts.Choices;
        }
    }
}

bool NamedTable::SameTexts(const Row& row, platform::Statement& found) const {
    for (std::size_t i = 0; i + kFlags < row.Cells.size(); ++i) {
        if (row.Cells[i].Joined() != found.Text(static_cast<int>(i) + 1)) {
            return false;
        }
    }
    return true;
}

std::optional<std::int64_t> NamedTable::Map(std::int64_t old) const {
    const auto found = ids_.find(old);
    return found == ids_.end() ? std::nullopt : std::optional(found->second);
}

std::string NamedTable::NameOf(std::int64_t old) const {
    const auto found = places_.find(old);
    const bool named = found != places_.end() && !rows_[found->second].Name.empty();
    return named ? Quoted(rows_[found->second].Name) : std::string(table_.Name) + " " + std::to_string(old);
}

}  // namespace vemora_db
