// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "vemora-db/findings.h"
#include "vemora-db/progress.h"

namespace vemora_db {

/// What a merge has done.
struct Merged {
    struct Table {
        std::string Name;
        std::size_t Own = 0;  // rows of the user's in the old database
        std::size_t Added = 0;
        std::size_t There = 0;    // had one of the same name, or the same four IDs, in the new database
        std::size_t Choices = 0;  // rows that were brought to take part, or not to
    };

    std::vector<Table> Tables;
    Findings Strange;  // errors: what isn't carried; warnings: what was written over

    void Print(std::ostream& out, bool warnings) const;
};

/// Brings the rows, the verdicts and the choices of the user from an old database into a new one, in one
/// transaction. Rows are the same whose names are equal. The old one is only read. Throws WrongUsage when
/// both are the same, Interrupted and platform::Error; then nothing was changed.
Merged Merge(const std::filesystem::path& file, const std::filesystem::path& from,
             const std::string& password, Progress& progress);

}  // namespace vemora_db
