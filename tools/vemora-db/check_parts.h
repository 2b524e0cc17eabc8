// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/store/store.h"
#include "vemora-db/findings.h"
#include "vemora-db/progress.h"
#include "vemora-db/tables.h"

namespace vemora_db {

// The parts of Check, in their order. Each throws platform::Error when the file can't be read any further.

/// Cipher, pages and structure of the file.
void CheckIntegrity(platform::Store& store, Findings& findings);

/// Tables, columns and keys. False when something is missing, so that the rows can't be read.
bool CheckSchema(platform::Store& store, Findings& findings);

/// What the verdicts may refer to. IDs ascend.
struct Contents {
    std::vector<std::int64_t> Chemicals;
    std::vector<std::int64_t> Concentrations;
    std::unordered_map<std::int64_t, std::optional<double>>
        Temperatures;  // as number, where the label has one
    std::array<std::vector<std::int64_t>, kClasses.size()> Materials;
    std::set<std::string, std::less<>> Sources;  // their codes; none where the database doesn't name them
};

/// The rows of all tables but the relation tables, and the keys of the materials.
Contents CheckTables(platform::Store& store, Findings& findings, Progress& progress);

/// The rows of the relation tables and their sources.
void CheckVerdicts(platform::Store& store, const Contents& contents, Findings& findings, Progress& progress);

/// What a review of the data has refused, and how much there is on each material. Throws BadData.
void CheckReview(platform::Store& store, const std::filesystem::path& review, const Contents& contents,
                 Findings& findings);

/// The number that a temperature's label begins with ("-10ºC", "37,5 ºC").
std::optional<double> TemperatureOf(std::string_view label);

/// Whether Null or a text in UTF-8 without a NUL is stored. To be asked before it is read.
bool HoldsText(const platform::Statement& row, int column);

/// Whether IDs are stored in these columns, from the first on; tells of each that isn't one.
bool HoldsIDs(const platform::Statement& row, int first, int count, const std::string& table,
              Findings& findings);

/// Whether a formula whose brackets are in pairs is made of elements with their counts, and of factors,
/// charges, bonds and hydrate dots where these can stand.
bool FormulaReads(std::string_view formula);

/// Whether the round, square and curly brackets of a formula are in pairs.
bool BracketsBalance(std::string_view formula);

}  // namespace vemora_db
