// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Any bytes as an update file, taken in by the writers on a small database.

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "platform/adodb/adodb.h"
#include "platform/error.h"
#include "platform/store/schema.h"
#include "platform/store/store.h"
#include "update/writers.h"

namespace {

namespace fs = std::filesystem;
constexpr const char* kPassword = "mora27";

struct Database {
    fs::path Folder = fs::temp_directory_path() / ("vemora-fuzz." + std::to_string(::getpid()));
    platform::adodb::Connection Connection;

    Database() {
        fs::create_directories(Folder);
        fs::remove(File());
        {
            platform::Store store(File(), kPassword, platform::Store::Access::Create);
            platform::CreateSchema(store);
            store.Close();
        }
        Open();
    }
    ~Database() {
        Connection.Close();
        fs::remove_all(Folder);
    }
    fs::path File() const { return Folder / "Vemora.mdb"; }
    void Open() {
        Connection.ConnectionString = "Data Source=" + File().string();
        Connection.Properties["Jet OLEDB:Database Password"] = kPassword;
        Connection.Open();
    }
    // Once in a while, since the key takes its time.
    void Check() {
        Connection.Close();
        {
            platform::Store store(File(), kPassword, platform::Store::Access::Exclusive);
            auto check = store.Prepare("PRAGMA integrity_check");
            if (!check.Step() || check.Text(0) != "ok") {
                std::abort();
            }
        }
        Open();
    }
    void Clear() {
        for (const char* const table :
             {"Chemical", "Conc", "Temp", "relPlast", "relMetal", "relTight", "relMisc"}) {
            Connection.Execute(std::string("DELETE FROM ") + table);
        }
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Database database;
    static int runs = 0;
    const fs::path file = database.Folder / "Upd.skv";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    vemora::UpdateWriters writers(database.Connection, [](const platform::Error& error, const char* ending) {
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
    database.Clear();
    if (++runs % 500 == 0) {
        database.Check();
    }
    return 0;
}
