// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Whatever text comes in, what the lexer lets through is one statement that reads or changes rows.

#include <sqlite3.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/store/lexer.h"
#include "platform/store/schema.h"

namespace {

bool onlyRows = true;

int Watch(void*, int action, const char*, const char*, const char*, const char*) {
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
        case SQLITE_FUNCTION:
        case SQLITE_RECURSIVE:
            break;
        default:
            onlyRows = false;
    }
    return SQLITE_OK;
}

struct CloseHandle {
    void operator()(sqlite3* db) const { sqlite3_close(db); }
};

sqlite3* Store() {
    static const auto store = [] {
        sqlite3* raw = nullptr;
        const bool ready = sqlite3_open(":memory:", &raw) == SQLITE_OK &&
                           sqlite3_exec(raw, std::string(platform::SchemaSql()).c_str(), nullptr, nullptr,
                                        nullptr) == SQLITE_OK &&
                           sqlite3_set_authorizer(raw, Watch, nullptr) == SQLITE_OK;
        if (!ready) std::abort();
        return std::unique_ptr<sqlite3, CloseHandle>(raw);
    }();
    return store.get();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string sql;
    try {
        sql = platform::ToStoreSql({reinterpret_cast<const char*>(data), size});
    } catch (const platform::Error& error) {
        if (error.Number != platform::errors::BadStatement) std::abort();
        return 0;
    }
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    onlyRows = true;
    const int code =
        sqlite3_prepare_v2(Store(), sql.c_str(), static_cast<int>(sql.size()), &statement, &tail);
    const bool whole = code != SQLITE_OK || tail == sql.c_str() + sql.size();
    const bool bound = statement == nullptr || sqlite3_bind_parameter_count(statement) == 0;
    sqlite3_finalize(statement);
    if (!onlyRows || !whole || !bound || sql.find('\0') != std::string::npos) std::abort();
    return 0;
}
