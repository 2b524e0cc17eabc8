// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vemora_db {

// Which tables lie in which CSV file, and under which columns.

enum class Kind {
    Number,      // 32 bits
    Flag,        // -1 or 0
    Text,        // Null or a text that Windows-1252 can hold
    RichFormula  // rich text; "auto" stands for the one that follows from the formula
};

struct Column {
    std::string_view Name;
    Kind Holds;
};

/// A table that lies alone in its file. Its first column is the ID.
struct Table {
    std::string_view Name;
    std::string_view File;
    std::string_view Label;  // the column that names a row in the verdict files
    std::span<const Column> Columns;
};

extern const Table kChemicals;
extern const Table kConcentrations;
extern const Table kTemperatures;
/// What the codes of the sources stand for. Databases of before it was thought of don't have it.
extern const Table kSources;

/// One of the four classes of materials. All classes lie in kMaterialsFile, their verdicts in a file each.
struct MaterialClass {
    std::string_view Name;      // also that of the table
    std::string_view Relation;  // the table of the verdicts
    std::string_view IdColumn;  // of Relation
    std::string_view File;      // of the verdicts
    std::span<const Column> Columns;
    std::span<const int> FixedIDs;  // of the materials that the update import knows by number
};

inline constexpr std::string_view kMaterialsFile = "materials.csv";
/// The heading of kMaterialsFile.
extern const std::span<const std::string_view> kMaterialsHeading;
/// In the order of kMaterialsFile.
extern const std::array<MaterialClass, 4> kClasses;

/// Columns of a verdict file in front of those of the materials; behind them stands kSourceColumn.
inline constexpr std::array<std::string_view, 6> kVerdictHeading = {
    "ChemID", "Chemical", "ConcID", "Concentration", "TempID", "Temperature"};
inline constexpr std::string_view kSourceColumn = "Source";

/// The ConcID of verdicts that hold for no particular concentration.
inline constexpr int kNoConcentration = -1;

/// All files of a data folder.
std::array<std::string_view, 9> DataFiles();

/// Whether a text may be the key of a material: not empty, no heading of its own meaning, no "#".
bool IsKey(std::string_view key);

/// The whole text as a 32-bit number in decimal.
std::optional<std::int32_t> ParseNumber(std::string_view text);

/// "INSERT INTO table(columns) VALUES(?, ...)" and "SELECT columns FROM table ORDER BY ID".
std::string InsertSql(std::string_view table, std::span<const Column> columns);
std::string SelectSql(std::string_view table, std::span<const Column> columns);

/// The rich text that "auto" stands for.
std::string FormulaRtf(std::string_view formula);

}  // namespace vemora_db
