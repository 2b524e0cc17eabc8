// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/create_verdicts.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "vemora-db/csv_reader.h"

namespace vemora_db {

namespace {

class VerdictLoader {
  public:
    VerdictLoader(platform::Store& store, const std::filesystem::path& data, std::size_t materialClass,
                  const References& references)
        : class_(kClasses[materialClass]),
          references_(references),
          keys_(references.Keys[materialClass]),
          reader_(data / class_.File),
          insert_(store.Prepare("INSERT INTO " + std::string(class_.Relation) + "(ChemID, ConcID, TempID, " +
                                std::string(class_.IdColumn) + ", TheValue, Egen) VALUES(?, ?, ?, ?, ?, ?)")),
          insertSource_(store.Prepare(
              "INSERT INTO Source(RelTable, ChemID, ConcID, TempID, Source) VALUES(?, ?, ?, ?, ?)")),
          find_(store.Prepare("SELECT 1 FROM " + std::string(class_.Relation) +
                              " WHERE ChemID = ? AND ConcID = ? AND TempID = ? LIMIT 1")) {
        insertSource_.Bind(0, class_.Relation);
        ReadHeading();
    }

    void Run(Progress& progress) {
        while (reader_.Next()) {
            progress.Tell(class_.File, reader_.Position(), reader_.Size());
            const Line line = ReadLine();
            // Lines are mostly in order, so that each is above the one before and can't be there already.
            if (highest_ && line <= *highest_) {
                RefuseSecond(line);
            } else {
                highest_ = line;
            }
            InsertVerdicts(line);
        }
    }

  private:
    using Line = std::tuple<std::int32_t, std::int32_t, std::int32_t>;
    struct Material {
        std::int32_t ID;
        std::size_t Cell;
        bool operator<(const Material& other) const { return ID < other.ID; }
    };

    void ReadHeading() {
        std::vector<std::string_view> expected(kVerdictHeading.begin(), kVerdictHeading.end());
        for (const auto& [key, id] : keys_) {
            expected.emplace_back(key);
        }
        expected.push_back(kSourceColumn);
        const auto& heading = reader_.Heading();
        for (std::size_t i = 0; i < heading.size(); ++i) {
            if (heading[i].starts_with('#')) {
                expected.emplace_back(heading[i]);
                materials_.push_back({LostMaterial(i), i});
            } else if (const auto key = keys_.find(heading[i]); key != keys_.end()) {
                materials_.push_back({key->second, i});
            } else if (std::find(expected.begin(), expected.end(), heading[i]) == expected.end()) {
                reader_.Fail(i, "there is no material \"" + heading[i] + "\" of the class " +
                                    std::string(class_.Name) + " in " + std::string(kMaterialsFile));
            }
        }
        const auto places = reader_.Columns(expected);
        std::copy_n(places.begin(), labels_.size(), labels_.begin());
        const auto source = std::find(heading.begin(), heading.end(), kSourceColumn);
        source_ = static_cast<std::size_t>(source - heading.begin());
        // The order of the table's key: rows are then appended, wherever the columns stand.
        std::sort(materials_.begin(), materials_.end());
    }

    /// The ID in a heading as "#17": verdicts on a material that is no longer there.
    std::int32_t LostMaterial(std::size_t column) const {
        const std::string& name = reader_.Heading()[column];
        const auto id = ParseNumber(std::string_view(name).substr(1));
        if (!id || name != "#" + std::to_string(*id)) {
            reader_.Fail(column, "behind \"#\" there must be the ID of a material that is no longer there");
        }
        const auto key =
            std::find_if(keys_.begin(), keys_.end(), [&](const auto& one) { return one.second == *id; });
        if (key != keys_.end()) {
            reader_.Fail(column, "the material " + std::to_string(*id) + " is there; write its key \"" +
                                     key->first + "\"");
        }
        return *id;
    }

    Line ReadLine() const {
        return {Reference(0, "chemical", kChemicals, references_.Chemicals),
                Reference(2, "concentration", kConcentrations, references_.Concentrations),
                Reference(4, "temperature", kTemperatures, references_.Temperatures)};
    }

    /// An ID and, behind it, the text that it stands for: the reader sees the text, so that it must be true.
    std::int32_t Reference(std::size_t column, std::string_view what, const Table& table,
                           const Labels& labels) const {
        const std::size_t cell = labels_[column];
        const std::size_t named = labels_[column + 1];
        const std::int32_t id = reader_.Number(cell);
        const auto found = labels.find(id);
        const std::string_view name =
            found == labels.end() ? std::string_view() : std::string_view(found->second);
        if (reader_.Text(named) != name) {
            const std::string ours = "the " + std::string(what) + " " + std::to_string(id);
            reader_.Fail(named, found == labels.end()
                                    ? "there is no " + ours.substr(4) + " in " + std::string(table.File) +
                                          "; leave its name empty if that is meant"
                                    : ours + " is \"" + std::string(name) + "\", not \"" +
                                          std::string(reader_.Text(named)) + "\"");
        }
        return id;
    }

    static void Bind(platform::Statement& statement, int place, const Line& line) {
        statement.Bind(place, std::int64_t{std::get<0>(line)});
        statement.Bind(place + 1, std::int64_t{std::get<1>(line)});
        statement.Bind(place + 2, std::int64_t{std::get<2>(line)});
    }

    void RefuseSecond(const Line& line) {
        Bind(find_, 0, line);
        const bool found = find_.Step();
        find_.Reset();
        if (found) {
            reader_.FailAtRow("this chemical, concentration and temperature have a line already");
        }
    }

    void InsertVerdicts(const Line& line) {
        Bind(insert_, 0, line);
        bool any = false;
        for (const Material& material : materials_) {
            if (!reader_.IsNull(material.Cell)) {
                InsertVerdict(material);
                any = true;
            }
        }
        if (!any) {
            reader_.FailAtRow("the line holds no verdict");
        }
        if (!reader_.IsNull(source_)) {
            Bind(insertSource_, 1, line);
            insertSource_.Bind(4, reader_.Text(source_));
            insertSource_.Step();
            insertSource_.Reset();
        }
    }

    void InsertVerdict(const Material& material) {
        std::string_view verdict = reader_.Text(material.Cell);
        const bool own = verdict.ends_with('*');
        if (own) {
            verdict.remove_suffix(1);
        }
        if (verdict != "+" && verdict != "-" && verdict != "0" && verdict != "_") {
            reader_.Fail(material.Cell,
                         "a verdict must be +, -, 0 or _ (blank), with * behind it for one of the "
                         "user's own, not \"" +
                             std::string(reader_.Text(material.Cell)) + "\"");
        }
        insert_.Bind(3, std::int64_t{material.ID});
        insert_.Bind(4, verdict == "_" ? std::string_view(" ") : verdict);
        insert_.Bind(5, std::int64_t{own ? -1 : 0});
        insert_.Step();
        insert_.Reset();
    }

    const MaterialClass& class_;
    const References& references_;
    const std::map<std::string, std::int32_t, std::less<>>& keys_;
    CsvReader reader_;
    platform::Statement insert_;
    platform::Statement insertSource_;
    platform::Statement find_;
    std::array<std::size_t, kVerdictHeading.size()> labels_{};
    std::size_t source_ = 0;
    std::vector<Material> materials_;
    std::optional<Line> highest_;
};

}  // namespace

void CreateVerdicts(platform::Store& store, const std::filesystem::path& data, std::size_t materialClass,
                    const References& references, Progress& progress) {
    VerdictLoader(store, data, materialClass, references).Run(progress);
}

}  // namespace vemora_db
