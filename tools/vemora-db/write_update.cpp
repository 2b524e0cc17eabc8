// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/write_update.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <set>
#include <system_error>
#include <tuple>
#include <utility>

#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/fold.h"
#include "platform/text/text.h"
#include "update/update_file.h"
#include "vemora-db/failures.h"
#include "vemora-db/tables.h"
#include "vemora-db/temporary_file.h"
#include "vemora-db/text_table.h"

namespace vemora_db {

namespace fs = std::filesystem;
namespace field = vemora::field;
using vemora::kValueFields;

namespace {

constexpr const char* kLineEnd = "\r\n";

bool FitsCodePage(std::string_view text) {
    return platform::FromWindows1252(platform::ToWindows1252(text)) == text;
}

std::string Folded(std::string_view text) {
    std::string folded;
    platform::Fold(text, folded);
    return folded;
}

/// The labels that a table's rows can be named by in a line, and why others can't.
class Labels {
  public:
    Labels(platform::Store& store, const Table& table) {
        auto rows = store.Prepare(SelectSql(table.Name, table.Columns));
        std::set<std::string> taken;
        while (rows.Step()) {
            const std::string_view label = rows.Text(1);
            const char* fault = nullptr;
            if (label.empty()) {
                fault = "has no label";
            } else if (label.find_first_of(std::string_view("';\r\n\0", 5)) != label.npos) {
                fault = "has an apostrophe, a semicolon or a line break in its label";
            } else if (!FitsCodePage(label)) {
                fault = "has a label that Windows-1252 has no place for";
            } else if (!taken.insert(Folded(label)).second) {
                fault = "has the label of another";
            }
            faults_[rows.Integer(0)] = fault;
            texts_[rows.Integer(0)] = {label.begin(), label.end()};
        }
    }

    /// Why a row can't be named; nullptr when it can.
    const char* FaultOf(std::int64_t id) const {
        const auto found = faults_.find(id);
        return found == faults_.end() ? "isn't there" : found->second;
    }
    const std::string& TextOf(std::int64_t id) const { return texts_.at(id); }

  private:
    std::map<std::int64_t, const char*> faults_;
    std::map<std::int64_t, std::string> texts_;
};

/// A line of the verdicts of a chemical at a concentration and a temperature.
struct ValueLine {
    std::array<std::string, vemora::UpdateFields::kMost> Fields;
    std::size_t Verdicts = 0;
};

/// Sorts verdicts at no particular concentration in front: only there the format can tell of none.
std::int64_t Rank(std::int64_t concentration) {
    return concentration == kNoConcentration ? std::numeric_limits<std::int64_t>::min() : concentration;
}

class UpdateWriter {
  public:
    UpdateWriter(platform::Store& store, const UpdateChoice& choice, Findings& findings, Progress& progress)
        : store_(store),
          choice_(choice),
          findings_(findings),
          progress_(progress),
          concentrations_(store, kConcentrations),
          temperatures_(store, kTemperatures) {}

    std::string Run() {
        ReadChemicals();
        ReadOtherLabels();
        for (const MaterialClass& one : kClasses) {
            ReadVerdicts(one);
        }
        // The reader throws the first line away.
        std::string text = "ID";
        for (const char* const column : vemora::kChemicalColumns) {
            text.append(";").append(column);
        }
        text += kLineEnd;
        for (const auto& [id, line] : chemicals_) {
            text.append(line).append(kLineEnd);
            WriteLines(id, text);
        }
        return platform::ToWindows1252(text);
    }

  private:
    void Lost(const std::string& what, const std::string& where, const std::string& example,
              std::size_t count = 1) {
        findings_.Add(Severity::Error, what, where, example, count);
    }
    void HasNoPlace(const std::string& what, const std::string& where, const std::string& example) {
        findings_.Add(Severity::Warning, what, where, example);
    }

    /// The text as a field can hold it.
    std::string Field(std::string_view text, const std::string& where, const std::string& example) {
        std::string field(text);
        if (text.find_first_of("\r\n") != text.npos) {
            Lost("a line break becomes a blank", where, example);
            for (const char* const end : {kLineEnd, "\r", "\n"}) {
                field = platform::Replace(field, end, " ");
            }
        }
        if (text.find(';') != text.npos) {
            Lost("a semicolon becomes a comma", where, example);
            std::replace(field.begin(), field.end(), ';', ',');
        }
        if (!FitsCodePage(text)) {
            Lost("what Windows-1252 has no place for becomes a question mark", where, example);
        }
        return field;
    }

    bool IsChosen(std::string_view name) {
        bool chosen = choice_.Chemicals.empty();
        for (const std::string& one : choice_.Chemicals) {
            if (platform::EqualIgnoringCase(one, name)) {
                met_.insert(one);
                chosen = true;
            }
        }
        return chosen;
    }

    void ReadChemicals() {
        std::string sql = "SELECT ID";
        for (const char* const column : vemora::kChemicalColumns) {
            sql.append(", ").append(column);
        }
        auto rows = store_.Prepare(sql + ", Egen, FormulaRTF FROM Chemical ORDER BY ID");
        constexpr int kOwn = 1 + static_cast<int>(vemora::kChemicalColumns.size());
        while (rows.Step()) {
            progress_.Tell(kChemicals.Name, known_.size(), 0);
            const std::int64_t id = rows.Integer(0);
            known_.insert(id);
            if (!IsChosen(rows.Text(field::kNameSE))) {
                continue;
            }
            const std::string example = "ID " + std::to_string(id);
            if (rows.Integer(kOwn) != 0 && !choice_.Own) {
                HasNoPlace("a chemical of the user's own is left out with its verdicts", "Chemical", example);
                continue;
            }
            std::string& line = chemicals_[id];
            line = std::to_string(id);
            for (int i = 1; i < kOwn; ++i) {
                const std::string column = vemora::kChemicalColumns[static_cast<std::size_t>(i) - 1];
                line.append(";").append(Field(rows.Text(i), "Chemical." + column, example));
            }
            const std::string_view rich = rows.Text(kOwn + 1);
            if (!rich.empty() && rich != FormulaRtf("")) {
                HasNoPlace("a rich formula isn't carried", "Chemical.FormulaRTF", example);
            }
        }
        for (const std::string& name : choice_.Chemicals) {
            if (!met_.contains(name)) {
                throw WrongUsage("there is no chemical " + Quoted(name));
            }
        }
    }

    /// The English and German labels of concentrations.
    void ReadOtherLabels() {
        auto rows = store_.Prepare("SELECT ID, ConcentrationEN, ConcentrationDE FROM Conc ORDER BY ID");
        while (rows.Step()) {
            const std::int64_t id = rows.Integer(0);
            if (concentrations_.FaultOf(id) == nullptr) {
                const std::string example = "ID " + std::to_string(id);
                otherLabels_[id] = {Field(rows.Text(1), "Conc.ConcentrationEN", example),
                                    Field(rows.Text(2), "Conc.ConcentrationDE", example)};
            }
        }
    }

    void ReadVerdicts(const MaterialClass& one) {
        const std::string relation(one.Relation);
        const std::string idColumn(one.IdColumn);
        auto rows = store_.Prepare("SELECT ChemID, ConcID, TempID, " + idColumn + ", TheValue, Egen FROM " +
                                   relation + " ORDER BY 1, 2, 3, 4");
        for (std::uintmax_t done = 1; rows.Step(); ++done) {
            progress_.Tell(relation, done, 0);
            const std::int64_t chemical = rows.Integer(0);
            const std::string example = "ChemID " + std::to_string(chemical) + ", ConcID " +
                                        std::to_string(rows.Integer(1)) + ", TempID " +
                                        std::to_string(rows.Integer(2)) + ", " + idColumn + " " +
                                        std::to_string(rows.Integer(3));
            if (!chemicals_.contains(chemical)) {
                if (!known_.contains(chemical)) {
                    Lost("a verdict on a chemical that isn't there is left out", relation, example);
                }
                continue;
            }
            const auto place = std::find_if(kValueFields.begin(), kValueFields.end(), [&](const auto& value) {
                return relation == value.Table->Table && rows.Integer(3) == value.MaterialID;
            });
            if (place == kValueFields.end()) {
                HasNoPlace("a verdict on a material that has no field", relation, example);
            } else if (rows.Integer(5) != 0 && !choice_.Own) {
                HasNoPlace("a verdict of the user's own is left out, and blanked where its line has others",
                           relation, example);
            } else {
                ValueLine& line = lines_[chemical][{Rank(rows.Integer(1)), rows.Integer(2)}];
                const std::string_view verdict = rows.Text(4);
                line.Fields[place->Field] = verdict == " " ? "" : Field(verdict, relation, example);
                ++line.Verdicts;
            }
        }
    }

    void WriteLines(std::int64_t chemical, std::string& text) {
        std::int64_t named = Rank(kNoConcentration);  // what the reader takes an empty field for
        for (auto& [place, line] : lines_[chemical]) {
            const auto& [concentration, temperature] = place;
            const bool none = concentration == Rank(kNoConcentration);
            const char* const strange = none ? nullptr : concentrations_.FaultOf(concentration);
            const char* const fault = temperatures_.FaultOf(temperature);
            if (strange != nullptr || fault != nullptr) {
                const bool first = strange != nullptr;
                Lost(std::string("verdicts are left out whose ") +
                         (first ? "concentration " : "temperature ") + (first ? strange : fault),
                     "Chemical",
                     "ChemID " + std::to_string(chemical) + (first ? ", ConcID " : ", TempID ") +
                         std::to_string(first ? concentration : temperature),
                     line.Verdicts);
                continue;
            }
            if (concentration != named) {
                named = concentration;
                line.Fields[field::kConcentrationSE] = concentrations_.TextOf(concentration);
                std::tie(line.Fields[field::kConcentrationEN], line.Fields[field::kConcentrationDE]) =
                    otherLabels_[concentration];
            }
            line.Fields[field::kTemp] = temperatures_.TextOf(temperature);
            for (const std::string& one : line.Fields) {
                text.append(&one == line.Fields.data() ? "" : ";").append(one);
            }
            text += kLineEnd;
        }
    }

    platform::Store& store_;
    const UpdateChoice& choice_;
    Findings& findings_;
    Progress& progress_;
    Labels concentrations_;
    Labels temperatures_;
    std::map<std::int64_t, std::pair<std::string, std::string>> otherLabels_;
    std::set<std::string> met_;                      // of the chosen names
    std::set<std::int64_t> known_;                   // all chemicals
    std::map<std::int64_t, std::string> chemicals_;  // the lines of those that are written
    std::map<std::int64_t, std::map<std::pair<std::int64_t, std::int64_t>, ValueLine>> lines_;
};

}  // namespace

std::string UpdateBytes(platform::Store& store, const UpdateChoice& choice, Findings& findings,
                        Progress& progress) {
    store.Execute("BEGIN");
    std::string bytes = UpdateWriter(store, choice, findings, progress).Run();
    store.Execute("COMMIT");
    return bytes;
}

Findings WriteUpdate(const fs::path& file, const fs::path& out, const std::string& password,
                     const UpdateChoice& choice, bool replace, Progress& progress) {
    RefuseSame(file, out);
    std::error_code problem;
    if (!replace && fs::exists(out, problem)) {
        throw WrongUsage(platform::Utf8FromPath(out) + " exists already; --force replaces it");
    }
    platform::Store store(file, password, platform::Store::Access::ReadOnly);
    Findings findings;
    const std::string bytes = UpdateBytes(store, choice, findings, progress);
    platform::WriteFile(out, bytes);
    return findings;
}

}  // namespace vemora_db
