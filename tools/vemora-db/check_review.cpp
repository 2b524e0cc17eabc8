// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <set>

#include "vemora-db/check_parts.h"
#include "vemora-db/csv_reader.h"

namespace vemora_db {

namespace {

constexpr std::string_view kHeading[] = {"Rule",   "ChemID",      "Chemical", "ConcID", "Concentration",
                                         "TempID", "Temperature", "Class",    "Key",    "Reason"};
enum Cell { kRule, kChemID, kChemical, kConcID, kConcentration, kTempID, kTemperature, kClass, kKey };

constexpr std::int64_t kFewest = 20;  // chemicals that a material has verdicts on

/// The review of the delivered data: what has been found and must not come back.
class ReviewCheck {
  public:
    ReviewCheck(platform::Store& store, const std::filesystem::path& review, const Contents& contents,
                Findings& findings)
        : store_(store),
          contents_(contents),
          findings_(findings),
          reader_(review),
          cells_(reader_.Columns(kHeading)) {}

    void Run() {
        while (reader_.Next()) {
            const std::string_view rule = Text(kRule);
            const auto material = FindMaterial();
            if (rule == "not +") {
                NotResistant(material);
            } else if (rule == "thin") {
                thin_.insert(material);
            } else {
                reader_.Fail(cells_[kRule], "the rule must be \"not +\" or \"thin\"");
            }
        }
        Coverage();
    }

  private:
    using Material = std::pair<const MaterialClass*, std::int64_t>;

    std::string_view Text(Cell cell) const { return reader_.Text(cells_[cell]); }

    Material FindMaterial() {
        const auto found = std::find_if(kClasses.begin(), kClasses.end(),
                                        [&](const MaterialClass& one) { return one.Name == Text(kClass); });
        if (found == kClasses.end()) {
            reader_.Fail(cells_[kClass], "there is no such class of materials");
        }
        auto row = store_.Prepare("SELECT ID FROM MaterialKey WHERE Class = ? AND [Key] = ?");
        row.Bind(0, found->Name);
        row.Bind(1, Text(kKey));
        if (!row.Step()) {
            reader_.Fail(cells_[kKey], "there is no such material in this database");
        }
        return {&*found, row.Integer(0)};
    }

    /// The ID in a cell, and proof that it stands for the text behind it; -1 for an empty one, which is any.
    std::int64_t Reference(Cell cell, const Table& table) {
        if (reader_.IsNull(cells_[cell])) {
            return -1;
        }
        const std::int64_t id = reader_.Number(cells_[cell]);
        auto row = store_.Prepare("SELECT [" + std::string(table.Label) + "] FROM [" +
                                  std::string(table.Name) + "] WHERE ID = ?");
        row.Bind(0, id);
        if (const std::size_t named = cells_[cell + 1]; !row.Step() || row.Text(0) != reader_.Text(named)) {
            reader_.Fail(named, "that isn't the name of " + std::to_string(id) + " in this database");
        }
        return id;
    }

    void NotResistant(const Material& material) {
        const std::int64_t chemical = Reference(kChemID, kChemicals);
        const std::int64_t concentration = Reference(kConcID, kConcentrations);
        const std::int64_t from = Reference(kTempID, kTemperatures);
        const auto degrees = [this](std::int64_t id) {
            const auto found = contents_.Temperatures.find(id);
            return found == contents_.Temperatures.end() ? std::nullopt : found->second;
        };
        auto rows = store_.Prepare("SELECT ConcID, TempID FROM " + std::string(material.first->Relation) +
                                   " WHERE TheValue = '+' AND Egen = 0 AND ChemID = ? AND " +
                                   std::string(material.first->IdColumn) + " = ? AND ? IN (-1, ConcID)");
        rows.Bind(0, chemical);
        rows.Bind(1, material.second);
        rows.Bind(2, concentration);
        while (rows.Step()) {
            if (from == -1 || degrees(rows.Integer(1)) >= degrees(from)) {
                findings_.Add(Severity::Error, "a verdict that has been refused is +",
                              std::string(material.first->Relation),
                              std::string(Text(kChemical)) + ", ConcID " + std::to_string(rows.Integer(0)) +
                                  ", TempID " + std::to_string(rows.Integer(1)) + ", " +
                                  std::string(Text(kKey)));
            }
        }
    }

    void Coverage() {
        for (const MaterialClass& one : kClasses) {
            const std::string column(one.IdColumn);
            auto rows = store_.Prepare(
                "SELECT k.ID, k.[Key], count(DISTINCT r.ChemID) FROM MaterialKey AS k LEFT JOIN " +
                std::string(one.Relation) + " AS r ON r." + column +
                " = k.ID WHERE k.Class = ? GROUP BY k.ID");
            rows.Bind(0, one.Name);
            while (rows.Step()) {
                if (rows.Integer(2) < kFewest && !thin_.contains({&one, rows.Integer(0)})) {
                    findings_.Add(Severity::Warning, "a material with verdicts on few chemicals",
                                  std::string(one.Name),
                                  std::string(rows.Text(1)) + ": " + std::to_string(rows.Integer(2)));
                }
            }
        }
    }

    platform::Store& store_;
    const Contents& contents_;
    Findings& findings_;
    CsvReader reader_;
    std::vector<std::size_t> cells_;
    std::set<Material> thin_;
};

}  // namespace

void CheckReview(platform::Store& store, const std::filesystem::path& review, const Contents& contents,
                 Findings& findings) {
    ReviewCheck(store, review, contents, findings).Run();
}

}  // namespace vemora_db
