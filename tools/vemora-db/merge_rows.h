// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/store/store.h"
#include "vemora-db/merge.h"
#include "vemora-db/tables.h"

namespace vemora_db {

/// A table whose rows have names, in the old database, and what its IDs are in the new one.
class NamedTable {
  public:
    explicit NamedTable(const Table& table) : table_(table) {}

    void Read(platform::Store& from, Progress& progress);
    /// Adds the user's rows that have no namesake, and sets in all that have one whether they take part.
    void Write(platform::Store& file, Merged& merged, Progress& progress);

    /// The ID in the new database; none when there is nothing of that name.
    std::optional<std::int64_t> Map(std::int64_t old) const;
    /// The row's name in the old database, or its ID.
    std::string NameOf(std::int64_t old) const;

  private:
    struct Row {
        std::int64_t ID = 0;
        std::string Name;
        std::string Key;  // equal for the same rows
        bool Own = false;
        std::int64_t TakesPart = 0;
        std::vector<platform::Value> Cells;  // of the user's own, behind the ID
    };

    static std::string KeyOf(const platform::Statement& row, int label, int texts);
    int Label() const;
    bool SameTexts(const Row& row, platform::Statement& found) const;

    Table table_;
    std::vector<Row> rows_;
    std::unordered_map<std::int64_t, std::size_t> places_;
    std::unordered_map<std::int64_t, std::int64_t> ids_;
};

}  // namespace vemora_db
