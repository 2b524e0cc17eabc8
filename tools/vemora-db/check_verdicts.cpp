// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <string>

#include "platform/store/sources.h"
#include "vemora-db/check_parts.h"

namespace vemora_db {

namespace {

using Line = std::array<std::int64_t, 3>;  // chemical, concentration, temperature

Line LineAt(const platform::Statement& row, int column) {
    return {row.Integer(column), row.Integer(column + 1), row.Integer(column + 2)};
}

std::string Example(const Line& line) {
    return "ChemID " + std::to_string(line[0]) + ", ConcID " + std::to_string(line[1]) + ", TempID " +
           std::to_string(line[2]);
}

/// Sorted IDs, and which of them have been met.
class Met {
  public:
    explicit Met(const std::vector<std::int64_t>& ids) : ids_(ids), met_(ids.size()) {}

    bool Meet(std::int64_t id) {
        // The same ID, or the next one, is asked for again and again.
        if (last_ >= ids_.size() || ids_[last_] != id) {
            last_ = static_cast<std::size_t>(std::lower_bound(ids_.begin(), ids_.end(), id) - ids_.begin());
        }
        if (last_ >= ids_.size() || ids_[last_] != id) {
            return false;
        }
        met_[last_] = true;
        return true;
    }
    template <typename Visit>
    void ForEachMissed(Visit visit) const {
        for (std::size_t i = 0; i < ids_.size(); ++i) {
            if (!met_[i]) {
                visit(ids_[i]);
            }
        }
    }

  private:
    const std::vector<std::int64_t>& ids_;
    std::vector<bool> met_;
    std::size_t last_ = 0;
};

/// The verdicts on one chemical at one concentration: as it gets hotter, no material should stand up better.
class HeatCheck {
  public:
    void Add(std::int64_t material, double temperature, std::string_view verdict) {
        if (verdict.size() == 1 && kOrder.find(verdict[0]) != std::string_view::npos) {
            entries_.push_back({material, temperature, static_cast<int>(kOrder.find(verdict[0]))});
        }
    }
    /// Calls visit with each material that does, and begins anew.
    template <typename Visit>
    void Finish(Visit visit) {
        if (!Ordered()) {
            std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
                return a.Material != b.Material ? a.Material < b.Material : a.Temperature < b.Temperature;
            });
            for (std::size_t i = 1; i < entries_.size(); ++i) {
                const Entry& cooler = entries_[i - 1];
                const Entry& hotter = entries_[i];
                if (cooler.Material == hotter.Material && cooler.Temperature < hotter.Temperature &&
                    hotter.Rank > cooler.Rank) {
                    visit(cooler.Material);
                }
            }
        }
        entries_.clear();
    }

  private:
    static constexpr std::string_view kOrder = "-0+";  // the worst first
    struct Entry {
        std::int64_t Material;
        double Temperature;
        int Rank;
    };

    /// Most lines stand alone: nothing to compare.
    bool Ordered() const {
        return std::all_of(entries_.begin(), entries_.end(),
                           [&](const Entry& one) { return one.Temperature == entries_.front().Temperature; });
    }

    std::vector<Entry> entries_;
};

class RelationCheck {
  public:
    RelationCheck(platform::Store& store, const MaterialClass& one, const Contents& contents, Met& chemicals,
                  Met& materials, Findings& findings, Progress& progress)
        : class_(one),
          contents_(contents),
          chemicals_(chemicals),
          concentrations_(contents.Concentrations),
          materials_(materials),
          findings_(findings),
          progress_(progress),
          relation_(one.Relation),
          rows_(store.Prepare("SELECT ChemID, ConcID, TempID, " + std::string(one.IdColumn) +
                              ", TheValue, Egen FROM " + relation_ + " ORDER BY ChemID, ConcID, TempID, " +
                              std::string(one.IdColumn))),
          sources_(store.Prepare("SELECT ChemID, ConcID, TempID, Source FROM Source WHERE RelTable = ? "
                                 "ORDER BY ChemID, ConcID, TempID")) {
        sources_.Bind(0, std::string_view(relation_));
    }

    void Run() {
        StepSource();
        Line line{};
        for (std::uintmax_t count = 0; rows_.Step(); ++count) {
            progress_.Tell("checking " + relation_, count, 0);
            if (!HoldsIDs(rows_, 0, 4, relation_, findings_)) {
                continue;
            }
            const Line next = LineAt(rows_, 0);
            if (!begun_ || next != line) {
                begun_ = true;
                if (next[0] != line[0] || next[1] != line[1]) {
                    FinishHeat(line);
                }
                line = next;
                BeginLine(line);
            }
            CheckRow(line);
        }
        FinishHeat(line);
        while (moreSources_) {
            LostSource();
        }
        if (unsourced_ > kNamed) {
            findings_.Add(Severity::Warning, kUnsourced, relation_, "", unsourced_ - kNamed);
        }
    }

  private:
    static constexpr std::size_t kNamed = 3;  // of the lines without a source
    static constexpr const char* kUnsourced = "verdicts without a source";

    void BeginLine(const Line& line) {
        while (moreSources_ && source_ < line) {
            LostSource();
        }
        sourceKnown_ = false;
        if (moreSources_ && source_ == line) {
            sourceKnown_ = sources_.Text(3).find_first_not_of(' ') != std::string_view::npos;
            if (!contents_.Sources.empty()) {
                CheckCodes();
            }
            StepSource();
        }
        chemicalKnown_ = chemicals_.Meet(line[0]);
        concentrationKnown_ = line[1] == kNoConcentration || concentrations_.Meet(line[1]);
        const auto temperature = contents_.Temperatures.find(line[2]);
        temperatureKnown_ = temperature != contents_.Temperatures.end();
        temperature_ = temperatureKnown_ ? temperature->second : std::nullopt;
    }

    void CheckRow(const Line& line) {
        const std::int64_t material = rows_.Integer(3);
        const bool isFlag = rows_.IsInteger(5) && (rows_.Integer(5) == 0 || rows_.Integer(5) == -1);
        // The user's own verdicts need none.
        if (!sourceKnown_ && rows_.Integer(5) == 0) {
            // A database of somebody's own may have no sources at all: most lines are but counted.
            if (++unsourced_ <= kNamed) {
                findings_.Add(Severity::Warning, kUnsourced, relation_, Example(line));
            }
            sourceKnown_ = true;  // once a line
        }
        Orphan(chemicalKnown_, "ChemID", line[0]);
        Orphan(concentrationKnown_, "ConcID", line[1]);
        Orphan(temperatureKnown_, "TempID", line[2]);
        Orphan(materials_.Meet(material), class_.IdColumn, material);
        const bool isText = rows_.IsText(4);
        const std::string_view verdict = rows_.Text(4);
        if (!isText || (verdict != "+" && verdict != "-" && verdict != "0" && verdict != " ")) {
            findings_.Add(Severity::Error, "a verdict must be +, -, 0 or a blank", relation_ + ".TheValue",
                          "\"" + std::string(verdict) + "\" at " + Example(line));
        }
        if (!isFlag) {
            findings_.Add(Severity::Error, "the value must be -1 (true) or 0 (false)", relation_ + ".Egen",
                          Example(line));
        }
        if (temperature_) {
            heat_.Add(material, *temperature_, verdict);
        }
    }

    void Orphan(bool known, std::string_view column, std::int64_t id) {
        if (!known) {
            findings_.Add(Severity::Warning, "a verdict refers to a row that isn't there",
                          relation_ + "." + std::string(column), "ID " + std::to_string(id));
        }
    }

    void FinishHeat(const Line& line) {
        heat_.Finish([&](std::int64_t material) {
            findings_.Add(Severity::Warning, "a verdict gets better as the temperature rises", relation_,
                          "ChemID " + std::to_string(line[0]) + ", ConcID " + std::to_string(line[1]) + ", " +
                              std::string(class_.IdColumn) + " " + std::to_string(material));
        });
    }

    void StepSource() {
        do {
            moreSources_ = sources_.Step();
        } while (moreSources_ && !HoldsIDs(sources_, 0, 3, "Source", findings_));
        if (!moreSources_) {
            return;
        }
        if (!HoldsText(sources_, 3)) {
            findings_.Add(Severity::Error, "the value is no text", "Source.Source",
                          relation_ + ", " + Example(LineAt(sources_, 0)));
        }
        source_ = LineAt(sources_, 0);
    }

    void CheckCodes() {
        if (sources_.Text(3) == lastSource_) {
            return;  // most lines have the sources of the line before
        }
        lastSource_ = sources_.Text(3);
        for (const platform::SourceGroup& group : platform::ParseSources(lastSource_)) {
            for (const std::string& code : group.Codes) {
                if (!contents_.Sources.contains(code)) {
                    findings_.Add(Severity::Warning, "a source without a name", "Source",
                                  "\"" + code + "\" at " + Example(source_));
                }
            }
        }
    }

    void LostSource() {
        findings_.Add(Severity::Warning, "a source without a verdict", "Source",
                      relation_ + ", " + Example(source_));
        StepSource();
    }

    const MaterialClass& class_;
    const Contents& contents_;
    Met& chemicals_;
    Met concentrations_;
    Met& materials_;
    Findings& findings_;
    Progress& progress_;
    std::string relation_;
    platform::Statement rows_;
    platform::Statement sources_;
    bool begun_ = false;
    bool moreSources_ = false;
    Line source_{};
    bool sourceKnown_ = false;
    std::string lastSource_;
    std::size_t unsourced_ = 0;
    bool chemicalKnown_ = false;
    bool concentrationKnown_ = false;
    bool temperatureKnown_ = false;
    std::optional<double> temperature_;
    HeatCheck heat_;
};

}  // namespace

void CheckVerdicts(platform::Store& store, const Contents& contents, Findings& findings, Progress& progress) {
    Met chemicals(contents.Chemicals);
    std::string relations;
    for (std::size_t i = 0; i < kClasses.size(); ++i) {
        const MaterialClass& one = kClasses[i];
        Met materials(contents.Materials[i]);
        RelationCheck(store, one, contents, chemicals, materials, findings, progress).Run();
        materials.ForEachMissed([&](std::int64_t id) {
            findings.Add(Severity::Warning, "a material without a verdict", std::string(one.Name),
                         "ID " + std::to_string(id));
        });
        relations.append(i == 0 ? "'" : ", '").append(one.Relation).append("'");
    }
    chemicals.ForEachMissed([&](std::int64_t id) {
        findings.Add(Severity::Warning, "a chemical without a verdict", std::string(kChemicals.Name),
                     "ID " + std::to_string(id));
    });
    auto strange = store.Prepare("SELECT RelTable FROM Source WHERE RelTable NOT IN (" + relations + ")");
    while (strange.Step()) {
        findings.Add(Severity::Error, "a source of no relation table", "Source",
                     std::string(strange.Text(0)));
    }
}

}  // namespace vemora_db
