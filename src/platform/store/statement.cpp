// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>

#include <limits>

#include "platform/error.h"
#include "platform/store/store.h"

namespace platform {

namespace {

constexpr const char* kRunning = "Running a statement";

/// A row that does not fit on its page has a text at least this long, in bytes.
constexpr std::size_t kLongText = 256;

}  // namespace

void Statement::Finalize::operator()(sqlite3_stmt* handle) const {
    sqlite3_finalize(handle);
}

Statement::Statement(Store& store, std::string_view sql) : store_(&store) {
    if (sql.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw Error(errors::BadStatement, std::string(kRunning) + " failed: it is too long.", "store");
    }
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    const int code =
        sqlite3_prepare_v2(store.Handle(), sql.data(), static_cast<int>(sql.size()), &raw, &tail);
    handle_.reset(raw);
    Check(code);
    if (!handle_) {
        throw Error(errors::BadStatement, std::string(kRunning) + " failed: the text is empty.", "store");
    }
    const auto rest = sql.substr(static_cast<std::size_t>(tail - sql.data()));
    if (rest.find_first_not_of(" \t\r\n;") != std::string_view::npos) {
        throw Error(errors::BadStatement, std::string(kRunning) + " failed: a second one stands behind it.",
                    "store");
    }
}

Statement::Statement(Statement&&) noexcept = default;
Statement& Statement::operator=(Statement&&) noexcept = default;
Statement::~Statement() = default;

void Statement::Check(int code) const {
    if (code != SQLITE_OK) {
        store_->Fail(code, kRunning);
    }
}

void Statement::Bind(int index, std::int64_t value) {
    Check(sqlite3_bind_int64(Handle(), index + 1, value));
}

void Statement::Bind(int index, std::string_view text) {
    // A view of nothing has no address, and the store takes that for Null.
    Check(sqlite3_bind_text64(Handle(), index + 1, text.data() == nullptr ? "" : text.data(), text.size(),
                              SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::Bind(int index, const Value& value) {
    const auto& data = value.Data();
    if (const auto* number = std::get_if<std::int64_t>(&data)) {
        Bind(index, *number);
    } else if (const auto* text = std::get_if<std::string>(&data)) {
        Bind(index, std::string_view(*text));
    } else if (const auto* real = std::get_if<double>(&data)) {
        Check(sqlite3_bind_double(Handle(), index + 1, *real));
    } else {
        BindNull(index);
    }
}

void Statement::BindNull(int index) {
    Check(sqlite3_bind_null(Handle(), index + 1));
}

bool Statement::Step() {
    const int code = sqlite3_step(Handle());
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code != SQLITE_DONE) {
        store_->Fail(code, kRunning);
    }
    return false;
}

void Statement::Reset() {
    sqlite3_reset(Handle());
}

int Statement::Columns() const {
    return sqlite3_column_count(Handle());
}

std::string Statement::ColumnName(int column) const {
    const char* name = sqlite3_column_name(Handle(), column);
    return name == nullptr ? std::string() : std::string(name);
}

Value Statement::Column(int column) const {
    switch (sqlite3_column_type(Handle(), column)) {
        case SQLITE_NULL:
            return {};
        case SQLITE_INTEGER:
            return Integer(column);
        case SQLITE_FLOAT:
            return sqlite3_column_double(Handle(), column);
        default:
            return Text(column);
    }
}

bool Statement::IsNull(int column) const {
    return sqlite3_column_type(Handle(), column) == SQLITE_NULL;
}

bool Statement::IsInteger(int column) const {
    return sqlite3_column_type(Handle(), column) == SQLITE_INTEGER;
}

bool Statement::IsText(int column) const {
    return sqlite3_column_type(Handle(), column) == SQLITE_TEXT;
}

std::int64_t Statement::Integer(int column) const {
    return sqlite3_column_int64(Handle(), column);
}

std::string_view Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(Handle(), column));
    if (text == nullptr) {
        return {};
    }
    const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes(Handle(), column));
    if (bytes >= kLongText) {
        store_->CheckPages();
    }
    return {text, bytes};
}

}  // namespace platform
