// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/store/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

class Store;

/// One prepared statement in the store's own SQL, with bound values where the values are ours.
/// Refuses a text that holds no statement or more than one (error -2147217900). All indices count from 0.
class Statement {
  public:
    Statement(Store& store, std::string_view sql);
    Statement(Statement&&) noexcept;
    Statement& operator=(Statement&&) noexcept;
    ~Statement();

    void Bind(int index, std::int64_t value);
    void Bind(int index, std::string_view text);  // the text must outlive the next Step
    void Bind(int index, const Value& value);
    void BindNull(int index);
    /// True while there is a row; false at the end. Throws on a failure.
    bool Step();
    void Reset();

    int Columns() const;
    std::string ColumnName(int column) const;
    Value Column(int column) const;
    bool IsNull(int column) const;
    /// As what it is stored. To be asked before it is read, which may convert it.
    bool IsInteger(int column) const;
    bool IsText(int column) const;
    std::int64_t Integer(int column) const;
    /// UTF-8, valid to the next Step, Reset or end of the statement; empty for Null. Throws when a long text
    /// lies on a damaged page.
    std::string_view Text(int column) const;
    sqlite3_stmt* Handle() const { return handle_.get(); }

  private:
    void Check(int code) const;

    struct Finalize {
        void operator()(sqlite3_stmt* handle) const;
    };
    Store* store_ = nullptr;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

/// One encrypted database file. The only place that knows the cipher's settings: page size 4096, 64,000
/// rounds of SHA-1 key derivation, HMAC on; both generations of the cipher library in use can read them.
/// On every store NOCASE is the system's collation (Swedish, secondary strength) and LIKE ignores case in
/// every script; the schema names NOCASE, so that other tools can open the file with their own. For one
/// thread.
class Store {
  public:
    enum class Access {
        Exclusive,  // locked from open to close against every other program; fails at once when it is in use
        ReadOnly,   // for checking and copying; does not lock others out
        Create      // a new file; fails when it exists
    };

    /// Opens and proves the password by reading the schema. Errors: -2147467259 (missing, in use, not
    /// writable), -2147217843 (not the password or not a database).
    Store(const std::filesystem::path& file, std::string_view password, Access access);
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    ~Store();

    /// Runs statements of the store's own SQL that return no rows.
    void Execute(std::string_view sql);
    Statement Prepare(std::string_view sql) { return Statement(*this, sql); }
    std::int64_t LastInsertedID() const;
    /// Orderly end: the side files are gone afterwards. Throws when that fails, the store being closed all
    /// the same; the destructor never does. All statements must be gone. Closing twice does nothing.
    void Close();

    /// Throws when a page read by a running statement was damaged (error -2147467259). Generation 3 of the
    /// cipher hands out blanks for the last page of a long text and fails only at the next page.
    void CheckPages();

    sqlite3* Handle() const { return db_.get(); }
    /// Turns the last failure into an Error; doing begins the sentence ("Opening the database").
    [[noreturn]] void Fail(int code, std::string_view doing) const;

  private:
    void OpenHandle(const std::filesystem::path& file, int flags, bool immutable);
    void SetKey(std::string_view password);
    void ProvePassword();
    void ReadThrough(const std::filesystem::path& file, std::string_view password);
    void TakeOver();

    struct CloseHandle {
        std::filesystem::path index;  // the side file of a handle that only reads, when it made one
        void operator()(sqlite3* db) const;
    };
    std::unique_ptr<sqlite3, CloseHandle> db_;
    std::optional<Statement> probe_;
    bool writes_ = false;
    bool asksForDamage_ = false;
};

}  // namespace platform
