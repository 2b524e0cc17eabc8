// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "vemora-db/progress.h"

namespace vemora_db {

/// Makes the database file from the CSV files of the data folder. The file appears whole or not at all, and
/// an old one stays until the new one is complete on the disk. Throws WrongUsage when the file exists and
/// replace is false, BadData, Interrupted and platform::Error.
void Create(const std::filesystem::path& data, const std::filesystem::path& file, const std::string& password,
            bool replace, Progress& progress);

}  // namespace vemora_db
