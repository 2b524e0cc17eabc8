// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Whatever text comes in, what the lexer lets through is one statement that reads or changes rows.

#include <sqlite3.h>

#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

#include "platform/error.h"
#include "platform/store/lexer.h"
#include "platform/store/schema.h"

namespace {

bool onlyRows = true;

int Watch(void*, int action, const char*, const char*, const char*, const char*) {
    static const std::set<int> ofRows = {SQLITE_SELECT, SQLITE_READ,     SQLITE_INSERT,   SQLITE_UPDATE,
                                         SQLITE_DELETE, SQLITE_FUNCTION, SQLITE_RECURSIVE};
    onlyRows = onlyRows && ofRows.contains(action);
    return SQLITE_OK;
}

sqlite3* Store() {
    static sqlite3* const store = [] {
        sqlite3* made = nullptr;
        const std::string schema(platform::SchemaSql());
        const bool ready = sqlite3_open(":memory:", &made) == SQLITE_OK &&
                           sqlite3_exec(made, schema.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK &&
                           sqlite3_set_authorizer(made, Watch, nullptr) == SQLITE_OK;
        if (!ready) std::abort();
        return made;
    }();
    return store;
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
