// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/test_database.h"
#include "vemora-db/program.h"

namespace test {

using vemora_db::Status;

struct Outcome {
    Status Exit;
    std::string Out;
    std::string Err;
};

/// A publisher at work: a folder of CSV files, beside it the databases, and the program.
class Publisher {
  public:
    /// With data in which there is nothing to find fault with, as export would write them.
    Publisher();

    const std::filesystem::path& Folder() const { return folder_.Path(); }
    std::filesystem::path Path(std::string_view name) const { return folder_.Path() / name; }

    /// Runs the program; arguments that begin with "/" are places in the folder.
    Outcome Run(const std::vector<std::string>& arguments) const;
    /// Creates "Vemora.mdb" from "data" and expects that it works.
    void Create() const;

    std::string Read(std::string_view name) const { return ReadAll(Path(name)); }
    void Write(std::string_view name, std::string_view bytes) const;
    /// Replaces a text that is in the file exactly once.
    void Edit(std::string_view name, std::string_view from, std::string_view to) const;
    /// The CSV files of a folder by name.
    std::map<std::string, std::string> Csv(std::string_view folder) const;
    std::vector<std::string> Files() const;

    /// Changes a database by a statement of the store's own SQL.
    void Change(std::string_view database, std::string_view sql) const;
    /// All rows of all tables, in words.
    std::string Rows(std::string_view database) const;

  private:
    TestFolder folder_;
};

}  // namespace test
