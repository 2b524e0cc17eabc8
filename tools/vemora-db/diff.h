// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "vemora-db/findings.h"
#include "vemora-db/progress.h"

namespace vemora_db {

/// What taking an update in would do to a database.
struct Differences {
    struct Table {
        std::string Name;
        std::size_t New = 0;
        std::size_t Blank = 0;  // of the new ones
        std::size_t Changed = 0;
    };

    std::vector<std::string> Rows;  // told in words
    std::vector<Table> Tables;
    std::int32_t Counted = 0;  // as the program would tell its user
    bool Carried = true;       // whether an update file holds all of the newer database
    Findings Strange;          // failures of the program's, and own rows that are written over

    bool Any() const;
    void Print(std::ostream& out, bool warnings) const;
};

/// Takes the update into a copy of the database, with the program's own operations, and compares. The newer
/// one is a database or, as its name tells, an update file; neither is written to. New blank verdicts are
/// told row by row only when they are asked for. Throws WrongUsage when the older one is in use, Interrupted
/// and platform::Error.
Differences Diff(const std::filesystem::path& older, const std::filesystem::path& newer,
                 const std::string& password, bool blanks, Progress& progress);

}  // namespace vemora_db
