// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/store/store.h"
#include "vemora-db/findings.h"
#include "vemora-db/progress.h"

namespace vemora_db {

/// What goes into an update file.
struct UpdateChoice {
    std::vector<std::string> Chemicals;  // by their Swedish names; none stands for all
    bool Own = false;                    // the rows marked as the user's own, too
};

/// The update file that brings an older database up to this one, in Windows-1252. Findings are what it can't
/// carry: errors where a text is changed or a verdict is missing for the sake of the format, warnings where
/// the format has no place at all. Throws WrongUsage when a chemical isn't there, Interrupted and
/// platform::Error.
std::string UpdateBytes(platform::Store& store, const UpdateChoice& choice, Findings& findings,
                        Progress& progress);

/// Writes them. Throws WrongUsage, too, when the file is there and replace is false.
Findings WriteUpdate(const std::filesystem::path& file, const std::filesystem::path& out,
                     const std::string& password, const UpdateChoice& choice, bool replace,
                     Progress& progress);

}  // namespace vemora_db
