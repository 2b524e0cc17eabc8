// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <unordered_map>

#include "platform/store/store.h"
#include "vemora-db/progress.h"
#include "vemora-db/tables.h"

namespace vemora_db {

/// The texts that name the rows of a table in the verdict files, by ID.
using Labels = std::unordered_map<std::int32_t, std::string>;

/// What the verdict files refer to.
struct References {
    Labels Chemicals;
    Labels Concentrations;
    Labels Temperatures;
    std::array<std::map<std::string, std::int32_t, std::less<>>, kClasses.size()> Keys;  // of the materials
};

/// Reads a verdict file into the relation table of its class, one line at a time.
void CreateVerdicts(platform::Store& store, const std::filesystem::path& data, std::size_t materialClass,
                    const References& references, Progress& progress);

}  // namespace vemora_db
