// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>

#include "platform/error.h"
#include "platform/store/schema.h"
#include "vemora-db/check_parts.h"

namespace vemora_db {

namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows Ask(sqlite3* db, const std::string& question) {
    Rows rows;
    const auto take = [](void* to, int columns, char** values, char**) noexcept {
        auto& row = static_cast<Rows*>(to)->emplace_back();
        for (int i = 0; i < columns; ++i) {
            row.emplace_back(values[i] == nullptr ? "" : values[i]);
        }
        return 0;
    };
    if (sqlite3_exec(db, question.c_str(), take, &rows, nullptr) != SQLITE_OK) {
        throw platform::Error(
            platform::errors::StoreFailed,
            "Reading the tables' definitions failed: " + std::string(sqlite3_errmsg(db)) + ".", "check");
    }
    return rows;
}

/// One table, or whatever else the store keeps under a name.
struct Definition {
    std::string Type;
    std::string Sql;  // without its blanks, in which two definitions may differ
    std::map<std::string, std::string> Columns;
};

std::map<std::string, Definition> Definitions(sqlite3* db) {
    std::map<std::string, Definition> definitions;
    for (auto& row :
         Ask(db, "SELECT name, type, sql FROM sqlite_master WHERE substr(name, 1, 7) <> 'sqlite_'")) {
        Definition& one = definitions[row[0]];
        one.Type = row[1];
        one.Sql = row[2];
        std::erase_if(one.Sql, [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; });
        if (one.Type != "table") {
            continue;
        }
        std::string name = row[0];
        for (std::size_t at = 0; (at = name.find('"', at)) != std::string::npos; at += 2) {
            name.insert(at, 1, '"');
        }
        for (const auto& column : Ask(db, "PRAGMA table_info(\"" + name + "\")")) {
            one.Columns[column[1]] = column[2] + (column[3] == "0" ? "" : " NOT NULL") +
                                     (column[5] == "0" ? "" : ", no. " + column[5] + " of the key");
        }
    }
    return definitions;
}

std::map<std::string, Definition> ExpectedDefinitions() {
    struct Close {
        void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
    };
    sqlite3* raw = nullptr;
    const int code = sqlite3_open(":memory:", &raw);
    const std::unique_ptr<sqlite3, Close> db(raw);
    if (code != SQLITE_OK) {
        throw platform::Error(platform::errors::StoreFailed, "Making tables to compare with failed.",
                              "check");
    }
    Ask(raw, std::string(platform::SchemaSql()));
    return Definitions(raw);
}

bool CompareColumns(const std::string& table, const Definition& expected, const Definition& found,
                    Findings& findings) {
    bool complete = true;
    for (const auto& [name, column] : expected.Columns) {
        const auto other = found.Columns.find(name);
        if (other == found.Columns.end()) {
            findings.Add(Severity::Error, "a column is missing", table, name);
            complete = false;
        } else if (other->second != column) {
            findings.Add(
                Severity::Error, "a column has another type or key", table,
                std::string(name).append(" is ").append(other->second).append(", must be ").append(column));
        }
    }
    for (const auto& [name, column] : found.Columns) {
        if (!expected.Columns.contains(name)) {
            findings.Add(Severity::Error, "a column doesn't belong there", table, name);
        }
    }
    return complete;
}

void CheckNumber(sqlite3* db, const std::string& pragma, int expected, Findings& findings) {
    const Rows rows = Ask(db, "PRAGMA " + pragma);
    const std::string found = rows.empty() ? "missing" : rows[0][0];
    if (found != std::to_string(expected)) {
        findings.Add(Severity::Error, "the mark of this generation of the database", pragma,
                     "is " + found + ", must be " + std::to_string(expected));
    }
}

}  // namespace

bool CheckSchema(platform::Store& store, Findings& findings) {
    CheckNumber(store.Handle(), "application_id", platform::kApplicationID, findings);
    CheckNumber(store.Handle(), "user_version", platform::kSchemaVersion, findings);
    const auto expected = ExpectedDefinitions();
    const auto found = Definitions(store.Handle());
    bool complete = true;
    for (const auto& [name, definition] : expected) {
        const auto other = found.find(name);
        if (other == found.end() && name == kSources.Name) {
            findings.Add(Severity::Warning, "the table is missing, so that no source is told by its name",
                         name, "");
        } else if (other == found.end() || other->second.Type != definition.Type) {
            findings.Add(Severity::Error, "the " + definition.Type + " is missing", name, "");
            complete = complete && definition.Type != "table";
        } else if (other->second.Columns != definition.Columns) {
            complete = CompareColumns(name, definition, other->second, findings) && complete;
        } else if (other->second.Sql != definition.Sql) {
            findings.Add(Severity::Error,
                         "the " + definition.Type + " has other collations, defaults or order of columns",
                         name, "");
        }
    }
    for (const auto& [name, definition] : found) {
        if (!expected.contains(name)) {
            findings.Add(Severity::Error, "this " + definition.Type + " doesn't belong there", name, "");
        }
    }
    return complete;
}

}  // namespace vemora_db
