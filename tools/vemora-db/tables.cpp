// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/tables.h"

#include <algorithm>
#include <charconv>

#include "platform/richtext/formula.h"
#include "platform/richtext/rtf.h"

namespace vemora_db {

namespace {

constexpr Column kChemicalColumns[] = {
    {"ID", Kind::Number},       {"Formula", Kind::Text},    {"FormulaRTF", Kind::RichFormula},
    {"NameSE", Kind::Text},     {"NameEN", Kind::Text},     {"NameGE", Kind::Text},
    {"NickNameSE", Kind::Text}, {"NickNameEN", Kind::Text}, {"NickNameGE", Kind::Text},
    {"NoteSE", Kind::Text},     {"NoteEN", Kind::Text},     {"NoteGE", Kind::Text},
    {"Egen", Kind::Flag},       {"Med", Kind::Flag}};
constexpr Column kConcentrationColumns[] = {{"ID", Kind::Number},
                                            {"ConcentrationSE", Kind::Text},
                                            {"ConcentrationEN", Kind::Text},
                                            {"ConcentrationDE", Kind::Text},
                                            {"Egen", Kind::Flag},
                                            {"Med", Kind::Flag}};
constexpr Column kTemperatureColumns[] = {
    {"ID", Kind::Number}, {"Temp", Kind::Text}, {"Egen", Kind::Flag}, {"Med", Kind::Flag}};
constexpr Column kSourceColumns[] = {{"ID", Kind::Number},
                                     {"Code", Kind::Text},
                                     {"NameSE", Kind::Text},
                                     {"NameEN", Kind::Text},
                                     {"NameDE", Kind::Text}};
constexpr Column kMaterialColumns[] = {
    {"ID", Kind::Number},          {"Name", Kind::Text}, {"Description", Kind::Text}, {"NameEN", Kind::Text},
    {"DescriptionEN", Kind::Text}, {"Egen", Kind::Flag}, {"Med", Kind::Flag}};
constexpr Column kSealColumns[] = {
    {"ID", Kind::Number},          {"Name", Kind::Text},          {"Description", Kind::Text},
    {"NameEN", Kind::Text},        {"DescriptionEN", Kind::Text}, {"NameDE", Kind::Text},
    {"DescriptionDE", Kind::Text}, {"Egen", Kind::Flag},          {"Med", Kind::Flag}};

constexpr std::string_view kMaterialsColumns[] = {
    "Class",         "ID",     "Key",           "Name", "Description", "NameEN",
    "DescriptionEN", "NameDE", "DescriptionDE", "Egen", "Med"};

constexpr int kMetalIDs[] = {1, 5, 7, 8};
constexpr int kPlastIDs[] = {1, 2, 3, 4, 5, 6};
constexpr int kTightIDs[] = {2, 3, 4, 5, 7, 8};

// "Temp" is a word of the store's own language.
std::string List(std::span<const Column> columns) {
    std::string list;
    for (const Column& column : columns) {
        list.append(list.empty() ? "[" : ", [").append(column.Name).append("]");
    }
    return list;
}

}  // namespace

const Table kChemicals{"Chemical", "chemicals.csv", "NameSE", kChemicalColumns};
const Table kConcentrations{"Conc", "concentrations.csv", "ConcentrationSE", kConcentrationColumns};
const Table kTemperatures{"Temp", "temperatures.csv", "Temp", kTemperatureColumns};

const Table kSources{"SourceName", "sources.csv", "Code", kSourceColumns};

const std::span<const std::string_view> kMaterialsHeading = kMaterialsColumns;

const std::array<MaterialClass, 4> kClasses = {
    {{"Metal", "relMetal", "MetalID", "verdicts-metal.csv", kMaterialColumns, kMetalIDs},
     {"Plast", "relPlast", "PlastID", "verdicts-plast.csv", kMaterialColumns, kPlastIDs},
     {"Tight", "relTight", "TightID", "verdicts-tight.csv", kSealColumns, kTightIDs},
     {"Misc", "relMisc", "MiscID", "verdicts-misc.csv", kMaterialColumns, {}}}};

std::array<std::string_view, 9> DataFiles() {
    return {kChemicals.File,  kConcentrations.File, kTemperatures.File, kSources.File,   kMaterialsFile,
            kClasses[0].File, kClasses[1].File,     kClasses[2].File,   kClasses[3].File};
}

bool IsKey(std::string_view key) {
    return !key.empty() && key.front() != '#' && key != kSourceColumn &&
           std::find(kVerdictHeading.begin(), kVerdictHeading.end(), key) == kVerdictHeading.end();
}

std::optional<std::int32_t> ParseNumber(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

std::string InsertSql(std::string_view table, std::span<const Column> columns) {
    std::string marks;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        marks += i == 0 ? "?" : ", ?";
    }
    return "INSERT INTO [" + std::string(table) + "](" + List(columns) + ") VALUES(" + marks + ")";
}

std::string SelectSql(std::string_view table, std::span<const Column> columns) {
    return "SELECT " + List(columns) + " FROM [" + std::string(table) + "] ORDER BY ID";
}

std::string FormulaRtf(std::string_view formula) {
    return platform::WriteRtf(platform::FormulaRichText(formula), "Arial", 10);
}

}  // namespace vemora_db
