// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Any bytes as an update file, taken in by the writers on a small database.

#include <cstdint>
#include <cstdlib>

#include "platform/test_database.h"
#include "update/writers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TestDatabase database;
    static platform::adodb::Connection connection;
    static int runs = 0;
    // Once in a while, since the key takes its time.
    if (runs++ % 500 == 0) {
        if (connection.IsOpen()) {
            connection.Close();
        }
        if (!test::IsSound(database.File())) {
            std::abort();
        }
        database.Open(connection);
    }
    const auto file = database.Folder() / "Upd.skv";
    std::ofstream(file, std::ios::binary) << std::string_view(reinterpret_cast<const char*>(data), size);
    vemora::UpdateWriters writers(connection, [](const platform::Error& error, const char* ending) {
        if (error.Description.empty() || std::string(ending).empty()) {
            std::abort();
        }
    });
    try {
        vemora::UpdateLines lines(file);
        vemora::TaIn(lines, writers, [](const std::string&) {});
    } catch (const platform::Error&) {
        // The reading has ended; what was written stays.
    }
    for (const char* const table :
         {"Chemical", "Conc", "Temp", "relPlast", "relMetal", "relTight", "relMisc"}) {
        connection.Execute(std::string("DELETE FROM ") + table);
    }
    return 0;
}
