// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "vemora-db/findings.h"
#include "vemora-db/progress.h"

namespace vemora_db {

/// Reads the whole database, without writing to it, and tells all that is not as it should be; with a review
/// (docs/formats.md) also what that has refused. Throws platform::Error when the database or the review can't
/// be opened, BadData for a fault in the review, and Interrupted.
Findings Check(const std::filesystem::path& file, const std::filesystem::path& review,
               const std::string& password, Progress& progress);

}  // namespace vemora_db
