// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "vemora-db/findings.h"
#include "vemora-db/progress.h"

namespace vemora_db {

/// Reads the whole database, without writing to it, and tells all that is not as it should be. Throws
/// platform::Error when it can't be opened, and Interrupted.
Findings Check(const std::filesystem::path& file, const std::string& password, Progress& progress);

}  // namespace vemora_db
