// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

// What the record set layer keeps behind adodb.h; no other file includes it.

#include <cstddef>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/adodb/adodb.h"
#include "platform/store/store.h"

namespace platform::adodb {

inline constexpr const char* kSource = "record sets";

/// Prepared statements at rest by their text, the least used dropped first.
class StatementCache {
  public:
    /// The statement, taken out; nothing when it isn't there.
    std::optional<Statement> Take(const std::string& text);
    void Give(const std::string& text, Statement statement);
    void Clear();

  private:
    using Entry = std::pair<std::string, Statement>;
    std::list<Entry> entries_;  // the last used first
    std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
};

/// What tells the rows of a table apart.
struct TableKey {
    std::vector<std::string> columns;
    std::string generated;  // the key column that the store fills in by itself, if there is one
};

struct ConnectionImpl {
    std::unique_ptr<Store> store;
    StatementCache cache;
    std::map<std::string, TableKey, std::less<>> tables;
    std::unordered_set<RecordsetImpl*> open;
    bool trusted = false;           // a statement of our own is being prepared
    std::optional<Statement> hold;  // stands on its row while a read is kept open
    bool holding = false;

    /// A statement of the system's dialect, ready to run.
    Statement Acquire(const std::string& text);
    /// A statement of the store's own SQL, ready to run.
    Statement AcquireOwn(const std::string& sql);
    void Release(const std::string& text, Statement statement);
    void ReleaseOwn(const std::string& sql, Statement statement);
    const TableKey& Key(const std::string& table);

  private:
    /// Keeps a read open on the file from the first statement that only reads to the next that changes rows.
    /// A sheet asks for thousands of labels, and each would begin a read of its own; a change in turn can
    /// fold the journal back only while nothing reads.
    Statement Readied(Statement statement);
};

/// The rows of a record set: cells of fixed size, their texts behind one another.
class Rows {
  public:
    explicit Rows(std::size_t columns = 0) : columns_(columns) {}

    std::size_t Count() const { return columns_ == 0 ? 0 : cells_.size() / columns_; }
    void Append(const Statement& row);
    void Clear();
    void AppendNulls() { cells_.resize(cells_.size() + columns_); }
    Value Get(std::size_t row, std::size_t column) const;
    void Set(std::size_t row, std::size_t column, const Value& value);
    void Erase(std::size_t row);

  private:
    enum class Type : std::uint8_t { Null, Integer, Real, Text };
    struct Cell {
        std::int64_t bits = 0;  // the number, the bits of the real number, the place of the text
        std::uint32_t length = 0;
        Type type = Type::Null;
    };
    void SetText(Cell& cell, std::string_view text);

    std::size_t columns_;
    std::vector<Cell> cells_;
    std::string texts_;
};

struct RecordsetImpl {
    enum class Place { Before, Row, Deleted, After };
    struct Column {
        std::string name;
        std::string table;   // where it comes from; empty for a computed one
        std::string origin;  // its name there
    };

    ConnectionImpl* connection = nullptr;  // none: closed
    std::string source;
    int lockType = adLockReadOnly;
    bool stream = false;
    std::optional<Statement> running;  // of a stream: stands on the row behind the current one
    std::vector<Column> columns;
    Rows rows;  // of a stream the current one alone

    Place place = Place::After;
    std::size_t position = 0;  // of the current row; of a deleted row the place where it was
    bool adding = false;
    Place placeBefore = Place::After;            // what was current before AddNew
    std::vector<std::optional<Value>> assigned;  // of the pending row or edit, one a column

    std::vector<std::weak_ptr<std::function<void()>>> observers;

    RecordsetImpl() = default;
    RecordsetImpl(const RecordsetImpl&) = delete;
    RecordsetImpl& operator=(const RecordsetImpl&) = delete;
    ~RecordsetImpl() { Shut(); }

    void CheckOpen(std::string_view doing) const;
    void CheckWritable(std::string_view doing) const;
    [[noreturn]] static void NoCurrent(std::string_view doing);

    void Load();
    /// Closes without a question and without telling anyone.
    void Shut() noexcept;
    void Notify();

    std::size_t Find(std::string_view name) const;
    Value Get(std::size_t column) const;
    void Set(std::size_t column, const Value& value);

    bool Assigned() const;
    bool Pending() const { return adding || Assigned(); }
    bool AtEnd() const { return place == Place::After && !adding; }
    void Drop();
    void Save();
    /// What a move does with a pending row first.
    void Settle();
    void WriteEdit();
    void WriteNew();
    /// What the store gave the new, current row where nothing was assigned.
    void ReadDefaults(const std::string& table);
    void DeleteRow();
    void ForgetRow();
    void NextRow();

  private:
    void DescribeColumns(const Statement& statement);
    void NextOfStream();
    void StepStream();
    /// The text and the values of "[key] = ? AND ..." for the current row.
    std::string KeyCondition(const std::string& table, std::vector<Value>& values) const;
    void Run(const std::string& sql, const std::vector<Value>& values);
    std::string OnlyTable() const;
};

}  // namespace platform::adodb
