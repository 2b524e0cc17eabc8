// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "vemora-db/progress.h"

namespace vemora_db {

/// Writes the rows of the database as CSV files into the data folder, which is made when it isn't there. The
/// files take their names when all of them are complete. Throws WrongUsage when the folder holds such files
/// and replace is false, Interrupted and platform::Error. What it returns are verdicts that the format has no
/// sign for: they are written as "?" and their text, and Create refuses them.
std::size_t Export(const std::filesystem::path& file, const std::filesystem::path& data,
                   const std::string& password, bool replace, Progress& progress);

}  // namespace vemora_db
