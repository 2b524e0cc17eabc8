// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <unicode/utf8.h>

#include <algorithm>
#include <functional>
#include <locale>
#include <memory>
#include <memory_resource>
#include <set>
#include <sstream>
#include <string>
#include <unordered_map>

#include "platform/text/fold.h"
#include "vemora-db/check_parts.h"
#include "vemora-db/export_verdicts.h"

namespace vemora_db {

namespace {

constexpr std::string_view kCelsius = "ºC";

std::string Row(std::int64_t id) {
    return "ID " + std::to_string(id);
}

/// Whether it is UTF-8 without a NUL.
bool IsSoundText(std::string_view text) {
    UChar32 code = 0;
    for (std::size_t i = 0; i < text.size();) {
        U8_NEXT(text.data(), i, text.size(), code);
        if (code <= 0) {
            return false;
        }
    }
    return true;
}

/// Finds names that are the same to the reader, be it but for case.
class Names {
  public:
    using RowName = std::function<std::string(std::int64_t)>;

    Names(Findings& findings, std::string what, std::string where, RowName rowName = Row)
        : findings_(findings),
          what_(std::move(what)),
          where_(std::move(where)),
          rowName_(std::move(rowName)) {}

    void Reserve(std::size_t names) { seen_.reserve(names); }
    void Add(std::string_view name, std::int64_t row) {
        if (name.empty()) {
            return;
        }
        // Of the folded names only their hashes are kept: at 64 bits two different names don't meet.
        platform::Fold(name, folded_);
        const auto [first, added] = seen_.emplace(std::hash<std::string>()(folded_), row);
        if (!added) {
            findings_.Add(
                Severity::Warning, what_, where_,
                "\"" + std::string(name) + "\" (" + rowName_(first->second) + ", " + rowName_(row) + ")");
        }
    }

  private:
    Findings& findings_;
    std::string what_;
    std::string where_;
    RowName rowName_;
    // Hundreds of thousands of small nodes, which go together.
    std::unique_ptr<std::pmr::monotonic_buffer_resource> nodes_ =
        std::make_unique<std::pmr::monotonic_buffer_resource>();
    std::pmr::unordered_map<std::uint64_t, std::int64_t> seen_{nodes_.get()};
    std::string folded_;
};

/// Reads the rows of one table and checks what all tables have in common. Texts that stand for one another in
/// several languages must be there in all of them or in none.
class TableCheck {
  public:
    using Languages = std::vector<std::string_view>;

    TableCheck(platform::Store& store, std::string_view table, std::span<const Column> columns,
               Findings& findings, Progress& progress)
        : table_(table),
          columns_(columns),
          rows_(store.Prepare(SelectSql(table, columns))),
          findings_(findings),
          progress_(progress) {
        auto rows = store.Prepare("SELECT count(*) FROM " + table_);
        rows.Step();
        rowCount_ = static_cast<std::size_t>(rows.Integer(0));
    }

    void Need(std::string_view column) { needed_.push_back(Place(column)); }
    void NeedTogether(const Languages& columns) {
        auto& places = together_.emplace_back();
        for (const std::string_view column : columns) {
            places.push_back(Place(column));
        }
    }
    void Unique(std::string_view column) {
        unique_.push_back({Place(column), Names(findings_, "the name is there twice", Where(column))});
        unique_.back().Seen.Reserve(rowCount_);
    }
    int Place(std::string_view column) const {
        const auto found = std::find_if(columns_.begin(), columns_.end(),
                                        [&](const Column& one) { return one.Name == column; });
        return static_cast<int>(found - columns_.begin());
    }

    bool Next() {
        if (!rows_.Step()) {
            return false;
        }
        progress_.Tell("checking " + table_, ++count_, 0);
        CheckTypes();
        if (ID() < 1) {
            findings_.Add(Severity::Error, "an ID must be 1 or above", table_, Row(ID()));
        }
        for (const int place : needed_) {
            if (IsEmpty(place)) {
                Hit(Severity::Warning, "the text is missing", NameOf(place));
            }
        }
        for (const auto& places : together_) {
            const auto empty = [this](int place) { return IsEmpty(place); };
            if (std::all_of(places.begin(), places.end(), empty)) {
                continue;
            }
            for (const int place : places) {
                if (IsEmpty(place)) {
                    Hit(Severity::Warning, "the text is missing in this language alone", NameOf(place));
                }
            }
        }
        for (auto& [place, names] : unique_) {
            names.Add(rows_.Text(place), ID());
        }
        return true;
    }

    std::int64_t ID() const { return rows_.Integer(0); }
    std::string_view Text(int place) const { return rows_.Text(place); }
    void Hit(Severity severity, const std::string& what, std::string_view column) {
        findings_.Add(severity, what, Where(column), Row(ID()));
    }

  private:
    struct UniqueColumn {
        int Place;
        Names Seen;
    };

    // Before anything else is read of the row: reading converts.
    void CheckTypes() {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int place = static_cast<int>(i);
            if (columns_[i].Holds == Kind::Number) {
                continue;  // the ID, which the store holds to be one
            }
            if (columns_[i].Holds == Kind::Flag) {
                if (rows_.Text(place) != "0" && rows_.Text(place) != "-1") {
                    Hit(Severity::Error, "the value must be -1 (true) or 0 (false)", columns_[i].Name);
                }
            } else if (!HoldsText(rows_, place)) {
                Hit(Severity::Error, "the value is no text", columns_[i].Name);
            }
        }
    }
    bool IsEmpty(int place) const { return rows_.IsNull(place) || rows_.Text(place).empty(); }
    std::string_view NameOf(int place) const { return columns_[static_cast<std::size_t>(place)].Name; }
    std::string Where(std::string_view column) const { return table_ + "." + std::string(column); }

    std::string table_;
    std::span<const Column> columns_;
    platform::Statement rows_;
    Findings& findings_;
    Progress& progress_;
    std::vector<int> needed_;
    std::vector<std::vector<int>> together_;
    std::vector<UniqueColumn> unique_;
    std::uintmax_t count_ = 0;
    std::size_t rowCount_ = 0;
};

void CheckChemicals(platform::Store& store, Contents& contents, Findings& findings, Progress& progress) {
    TableCheck check(store, kChemicals.Name, kChemicals.Columns, findings, progress);
    for (const std::string_view name : {"NameSE", "NameEN", "NameGE"}) {
        check.Need(name);
        check.Unique(name);
    }
    check.NeedTogether({"NickNameSE", "NickNameEN", "NickNameGE"});
    check.NeedTogether({"NoteSE", "NoteEN", "NoteGE"});
    const int formula = check.Place("Formula");
    while (check.Next()) {
        contents.Chemicals.push_back(check.ID());
        if (!BracketsBalance(check.Text(formula))) {
            check.Hit(Severity::Warning, "the brackets are not in pairs", "Formula");
        } else if (!FormulaReads(check.Text(formula))) {
            check.Hit(Severity::Warning, "the formula can't be read", "Formula");
        }
    }
}

void CheckLabels(platform::Store& store, Contents& contents, Findings& findings, Progress& progress) {
    TableCheck concentrations(store, kConcentrations.Name, kConcentrations.Columns, findings, progress);
    for (const std::string_view name : {"ConcentrationSE", "ConcentrationEN", "ConcentrationDE"}) {
        concentrations.Need(name);
        concentrations.Unique(name);
    }
    while (concentrations.Next()) {
        contents.Concentrations.push_back(concentrations.ID());
    }
    TableCheck temperatures(store, kTemperatures.Name, kTemperatures.Columns, findings, progress);
    temperatures.Unique("Temp");
    const int label = temperatures.Place("Temp");
    while (temperatures.Next()) {
        contents.Temperatures.emplace(temperatures.ID(), TemperatureOf(temperatures.Text(label)));
        if (!temperatures.Text(label).ends_with(kCelsius)) {
            temperatures.Hit(Severity::Error, "a temperature must end in " + std::string(kCelsius), "Temp");
        }
    }
}

void CheckMaterials(platform::Store& store, Contents& contents, Findings& findings, Progress& progress) {
    std::vector<std::string> rows;
    Names everywhere(findings, "the name is there in two classes", "materials",
                     [&](std::int64_t row) { return rows[static_cast<std::size_t>(row)]; });
    for (std::size_t i = 0; i < kClasses.size(); ++i) {
        const MaterialClass& one = kClasses[i];
        TableCheck check(store, one.Name, one.Columns, findings, progress);
        TableCheck::Languages descriptions = {"Description", "DescriptionEN"};
        std::vector<std::string_view> names = {"Name", "NameEN"};
        if (one.Columns.size() > kClasses[0].Columns.size()) {
            descriptions.push_back("DescriptionDE");
            names.push_back("NameDE");
        }
        for (const std::string_view name : names) {
            check.Need(name);
            check.Unique(name);
        }
        check.NeedTogether(descriptions);
        std::set<std::string> keys;  // within the class a name is one finding already
        const int name = check.Place("Name");
        while (check.Next()) {
            contents.Materials[i].push_back(check.ID());
            std::string key;
            platform::Fold(check.Text(name), key);
            if (keys.insert(std::move(key)).second) {
                rows.push_back(std::string(one.Name) + " " + std::to_string(check.ID()));
                everywhere.Add(check.Text(name), static_cast<std::int64_t>(rows.size()) - 1);
            }
        }
        for (const int id : one.FixedIDs) {
            if (!std::binary_search(contents.Materials[i].begin(), contents.Materials[i].end(), id)) {
                findings.Add(Severity::Warning, "a material that the update import fills is missing",
                             std::string(one.Name), Row(id));
            }
        }
    }
}

void CheckKeys(platform::Store& store, const Contents& contents, Findings& findings) {
    std::set<std::pair<std::string, std::string>> seen;
    auto rows = store.Prepare("SELECT Class, ID, [Key] FROM MaterialKey");
    while (rows.Step()) {
        for (const int column : {0, 2}) {
            if (!HoldsText(rows, column)) {
                findings.Add(Severity::Error, "the value is no text",
                             "MaterialKey." + rows.ColumnName(column), "");
            }
        }
        if (!HoldsIDs(rows, 1, 1, "MaterialKey", findings)) {
            continue;
        }
        const std::string name(rows.Text(0));
        const std::string key(rows.Text(2));
        std::string example = name;
        example.append(" ").append(std::to_string(rows.Integer(1))).append(" \"").append(key).append("\"");
        const auto found = std::find_if(kClasses.begin(), kClasses.end(),
                                        [&](const MaterialClass& one) { return one.Name == name; });
        if (found == kClasses.end()) {
            findings.Add(Severity::Error, "there is no such class of materials", "MaterialKey", example);
            continue;
        }
        const auto& materials = contents.Materials[static_cast<std::size_t>(found - kClasses.begin())];
        if (!std::binary_search(materials.begin(), materials.end(), rows.Integer(1))) {
            findings.Add(Severity::Warning, "the key of a material that isn't there", "MaterialKey", example);
        }
        if (!IsKey(key) || !seen.emplace(name, key).second) {
            findings.Add(Severity::Error, "the key can't head a column or is there twice", "MaterialKey",
                         example);
        }
    }
}

void CheckSourceNames(platform::Store& store, Contents& contents, Findings& findings, Progress& progress) {
    if (!HasTable(store, kSources.Name)) {
        return;  // told with the tables
    }
    TableCheck check(store, kSources.Name, kSources.Columns, findings, progress);
    for (const std::string_view name : {"Code", "NameSE", "NameEN", "NameDE"}) {
        check.Need(name);
    }
    check.Unique("Code");
    const int code = check.Place("Code");
    while (check.Next()) {
        contents.Sources.emplace(check.Text(code));
    }
}

}  // namespace

Contents CheckTables(platform::Store& store, Findings& findings, Progress& progress) {
    Contents contents;
    CheckChemicals(store, contents, findings, progress);
    CheckLabels(store, contents, findings, progress);
    CheckMaterials(store, contents, findings, progress);
    CheckKeys(store, contents, findings);
    CheckSourceNames(store, contents, findings, progress);
    return contents;
}

bool HoldsText(const platform::Statement& row, int column) {
    return row.IsNull(column) || (row.IsText(column) && IsSoundText(row.Text(column)));
}

bool HoldsIDs(const platform::Statement& row, int first, int count, const std::string& table,
              Findings& findings) {
    bool all = true;
    for (int column = first; column < first + count; ++column) {
        if (!row.IsInteger(column)) {
            findings.Add(Severity::Error, "an ID must be a whole number",
                         table + "." + row.ColumnName(column), "\"" + std::string(row.Text(column)) + "\"");
            all = false;
        }
    }
    return all;
}

std::optional<double> TemperatureOf(std::string_view label) {
    std::string number(label.substr(0, label.find_first_not_of("-0123456789,.")));
    std::replace(number.begin(), number.end(), ',', '.');
    // Not from_chars, which some libraries don't have for real numbers.
    std::istringstream stream(number);
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return stream.fail() ? std::nullopt : std::optional(value);
}

}  // namespace vemora_db
