// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace vemora {

/// The fields of one line of an update file, as UTF-8. Nobody looks at more than thirty; what stands behind
/// them isn't kept.
class UpdateFields {
  public:
    static constexpr std::size_t kMost = 30;

    explicit UpdateFields(std::string_view line);
    /// Error 9 when the line has no such field.
    const std::string& operator[](std::size_t field) const;
    std::size_t Count() const { return fields_.size(); }
    /// Whether the line tells of a chemical; any other tells the verdicts of the last one.
    bool IsChemical() const;
    /// Adds empty fields up to thirty.
    void FillUp() { fields_.resize(kMost); }

  private:
    std::vector<std::string> fields_;
};

/// Reads an update file line by line: Windows-1252, lines that end with CR LF, LF or CR, the last one with or
/// without. Between CR and LF lies an empty line, which is passed over like any other.
class UpdateLines {
  public:
    /// Error 53, 70 or 75 when the file can't be read.
    explicit UpdateLines(const std::filesystem::path& file);
    /// The next line as UTF-8, without its end; false behind the last.
    bool Next(std::string& line);

  private:
    int Get();

    std::ifstream stream_;
    std::vector<char> buffer_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
};

/// Names of the path on the publisher's server, and of the file in the program's folder while it is read.
inline constexpr const char* kUpdatePath = "/Vemora/Varden.skv";
inline constexpr const char* kUpdateFile = "Upd.skv";

/// What the fields of a line mean, by their place.
namespace field {
inline constexpr std::size_t kID = 0;  // of a chemical
inline constexpr std::size_t kNameSE = 2;
inline constexpr std::size_t kConcentrationSE = 2;  // empty: the same as in the line above
inline constexpr std::size_t kConcentrationEN = 3;
inline constexpr std::size_t kConcentrationDE = 4;
inline constexpr std::size_t kTemp = 13;
}  // namespace field

/// The columns of a chemical, from field 1 on.
inline constexpr std::array<const char*, 10> kChemicalColumns = {
    "Formula", "NameSE", "NameEN",     "NameGE",     "NoteSE",
    "NoteEN",  "NoteGE", "NickNameSE", "NickNameEN", "NickNameGE"};

/// A table of verdicts that an update writes. There is none for other materials.
struct ValueTable {
    const char* Table;
    const char* IdColumn;
    const char* Report;  // the end of the error report of its writer
};
inline constexpr ValueTable kPlastValues{"relPlast", "PlastID",
                                         ") in procedure SättPlastVärde in Form frmUPD"};
inline constexpr ValueTable kMetalValues{"relMetal", "MetalID",
                                         ") in procedure SättMetallVärde in Form frmUPD"};
inline constexpr ValueTable kTightValues{"relTight", "TightID",
                                         ") in procedure SättTätningVärde in Form frmUPD"};

/// The material that a field of a value line stands for: part of the format, by the IDs that the delivered
/// materials have, and in the order in which the fields are written.
struct ValueField {
    std::size_t Field;
    const ValueTable* Table;
    std::int32_t MaterialID;
};
inline constexpr std::array<ValueField, 16> kValueFields = {{
    {14, &kPlastValues, 1},
    {15, &kPlastValues, 6},
    {16, &kPlastValues, 4},
    {17, &kPlastValues, 2},
    {18, &kPlastValues, 3},
    {19, &kPlastValues, 5},
    {20, &kMetalValues, 8},
    {21, &kMetalValues, 1},
    {22, &kMetalValues, 5},
    {23, &kMetalValues, 7},
    {24, &kTightValues, 4},
    {25, &kTightValues, 2},
    {26, &kTightValues, 3},
    {27, &kTightValues, 7},
    {28, &kTightValues, 8},
    {29, &kTightValues, 5},
}};

}  // namespace vemora
