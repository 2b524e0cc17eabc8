// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#ifndef _WIN32
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#endif

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "platform/adodb/adodb.h"
#include "platform/error.h"
#include "platform/store/schema.h"
#include "platform/store/store.h"

namespace test {

inline constexpr const char* kPassword = "mora27";

/// A new folder for one test, with a blank and a Swedish letter in its name; gone with the object.
class TestFolder {
  public:
    TestFolder() { std::filesystem::create_directory(path_); }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_ =
        std::filesystem::temp_directory_path() / std::filesystem::path(u8"vemora pr\u00e5v." + [] {
            const auto number = std::to_string(std::random_device()());
            return std::u8string(number.begin(), number.end());
        }());
};

inline std::string ReadAll(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Whether a database opens and its file is sound.
inline bool IsSound(const std::filesystem::path& file) {
    platform::Store store(file, kPassword, platform::Store::Access::Exclusive);
    auto check = store.Prepare("PRAGMA integrity_check");
    return check.Step() && check.Text(0) == "ok";
}

/// An encrypted database file "Vemora.mdb" with all tables, empty, in a folder of its own.
class TestDatabase {
  public:
    TestDatabase() {
        // Making the key is slow by design: the tests share one empty file.
        static const std::string empty = [] {
            const TestFolder folder;
            platform::Store store(folder.Path() / "empty.mdb", kPassword, platform::Store::Access::Create);
            platform::CreateSchema(store);
            store.Close();
            return ReadAll(folder.Path() / "empty.mdb");
        }();
        std::ofstream(File(), std::ios::binary) << empty;
    }

    const std::filesystem::path& Folder() const { return folder_.Path(); }
    std::filesystem::path File() const { return folder_.Path() / "Vemora.mdb"; }

    /// Runs statements of the store's own SQL; no connection may be open.
    void Fill(std::string_view sql) const {
        platform::Store store(File(), kPassword, platform::Store::Access::Exclusive);
        store.Execute(sql);
        store.Close();
    }

    void Open(platform::adodb::Connection& connection) const {
        const auto file = File().u8string();
        connection.Mode = platform::adodb::adModeShareExclusive;
        connection.ConnectionString = "Data Source=" + std::string(file.begin(), file.end());
        connection.Properties["Jet OLEDB:Database Password"] = kPassword;
        connection.Open();
    }

  private:
    TestFolder folder_;
};

/// The rows that are left of a record set, fields joined by "|", rows by "/", Null as "~".
inline std::string Rest(platform::adodb::Recordset& rs) {
    std::string all;
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string row;
        for (const auto& name : rs.FieldNames()) {
            row += (row.empty() ? "" : "|") + (rs[name].IsNull() ? "~" : rs[name].Text());
        }
        all += (all.empty() ? "" : "/") + row;
    }
    return all;
}

/// The rows of a statement.
inline std::string Ask(platform::adodb::Connection& connection, const std::string& statement) {
    platform::adodb::Recordset rs;
    rs.Open(statement, connection);
    return Rest(rs);
}

#ifndef _WIN32
/// While it lives no file can be written to, as on a full disk.
class FullDisk {
  public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{0, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }

  private:
    rlimit before_{};
};
#endif

/// Runs something with no more power than the rights of the files allow.
inline void WithoutPrivileges(const std::function<void()>& action) {
#ifndef _WIN32
    constexpr uid_t nobody = 65534;
    const bool dropped = geteuid() == 0 && seteuid(nobody) == 0;
    action();
    if (dropped && seteuid(0) != 0) {
        std::abort();
    }
#else
    action();
#endif
}

/// The number of the Error that an action throws; 0 when it throws none.
template <class Action>
long ErrorOf(Action action) {
    try {
        action();
    } catch (const platform::Error& error) {
        // What is shown to a user is one sentence.
        return error.Description.ends_with('.') ? error.Number : -1;
    }
    return 0;
}

}  // namespace test
