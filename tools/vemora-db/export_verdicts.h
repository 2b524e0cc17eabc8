// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

#include "platform/store/store.h"
#include "vemora-db/csv_writer.h"
#include "vemora-db/progress.h"
#include "vemora-db/tables.h"

namespace vemora_db {

/// Whether the database has this table.
bool HasTable(platform::Store& store, std::string_view name);

/// The texts that name the rows of a table, by ID. Rows without one are left out.
std::unordered_map<std::int64_t, std::string> ReadLabels(platform::Store& store, const Table& table);

struct ExportLabels {
    std::unordered_map<std::int64_t, std::string> Chemicals;
    std::unordered_map<std::int64_t, std::string> Concentrations;
    std::unordered_map<std::int64_t, std::string> Temperatures;
};

/// Writes the verdicts of a class, a line for each chemical, concentration and temperature. keys are those of
/// the materials by ID. Returns how many verdicts there were that the format has no sign for.
std::size_t ExportVerdicts(platform::Store& store, const MaterialClass& materialClass,
                           const std::map<std::int64_t, std::string>& keys, const ExportLabels& labels,
                           CsvWriter& writer, Progress& progress);

}  // namespace vemora_db
