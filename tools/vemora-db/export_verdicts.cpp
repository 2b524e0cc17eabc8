// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/export_verdicts.h"

#include <array>
#include <vector>

namespace vemora_db {

namespace {

using Line = std::array<std::int64_t, 3>;  // chemical, concentration, temperature

Line LineAt(const platform::Statement& row, int column) {
    return {row.Integer(column), row.Integer(column + 1), row.Integer(column + 2)};
}

/// Steps along the sources of a relation table, which lie in the order of its lines.
class Sources {
  public:
    Sources(platform::Store& store, std::string_view relation)
        : rows_(store.Prepare("SELECT ChemID, ConcID, TempID, Source FROM Source WHERE RelTable = ? "
                              "ORDER BY ChemID, ConcID, TempID")) {
        rows_.Bind(0, relation);
        Step();
    }

    void Write(const Line& line, CsvWriter& writer) {
        while (more_ && line_ < line) {
            Step();
        }
        if (more_ && line_ == line && !rows_.IsNull(3)) {
            writer.Text(rows_.Text(3));
        } else {
            writer.Null();
        }
    }

  private:
    void Step() {
        more_ = rows_.Step();
        if (more_) {
            line_ = LineAt(rows_, 0);
        }
    }

    platform::Statement rows_;
    bool more_ = false;
    Line line_{};
};

class VerdictWriter {
  public:
    VerdictWriter(platform::Store& store, const MaterialClass& materialClass,
                  const std::map<std::int64_t, std::string>& keys, const ExportLabels& labels,
                  CsvWriter& writer)
        : labels_(labels), sources_(store, materialClass.Relation), writer_(writer) {
        for (const std::string_view name : kVerdictHeading) {
            writer_.Text(name);
        }
        for (const auto& [id, key] : keys) {
            AddColumn(id, key);
        }
        auto lost = store.Prepare("SELECT DISTINCT " + std::string(materialClass.IdColumn) + " FROM " +
                                  std::string(materialClass.Relation) + " WHERE " +
                                  std::string(materialClass.IdColumn) + " NOT IN (SELECT ID FROM " +
                                  std::string(materialClass.Name) + ") ORDER BY 1");
        while (lost.Step()) {
            AddColumn(lost.Integer(0), "#" + std::to_string(lost.Integer(0)));
        }
        writer_.Text(kSourceColumn);
        writer_.EndRow();
        cells_.resize(columns_.size());
    }

    void Add(const Line& line, std::int64_t material, const platform::Statement& row, int column) {
        if (begun_ && line != line_) {
            WriteLine();
        }
        line_ = line;
        begun_ = true;
        std::string& cell = cells_[columns_.at(material)];
        const std::string_view verdict = row.Text(column);
        if (verdict == "+" || verdict == "-" || verdict == "0") {
            cell = verdict;
        } else if (verdict == " ") {
            cell = "_";
        } else {
            cell = "?" + std::string(verdict);
            ++strange_;
        }
        if (row.Integer(column + 1) != 0) {
            cell += '*';
        }
    }

    std::size_t Finish() {
        if (begun_) {
            WriteLine();
        }
        return strange_;
    }

  private:
    void AddColumn(std::int64_t material, const std::string& name) {
        columns_.emplace(material, columns_.size());
        writer_.Text(name);
    }

    void Reference(std::int64_t id, const std::unordered_map<std::int64_t, std::string>& labels) {
        writer_.Number(id);
        const auto found = labels.find(id);
        if (found == labels.end()) {
            writer_.Null();
        } else {
            writer_.Text(found->second);
        }
    }

    void WriteLine() {
        Reference(line_[0], labels_.Chemicals);
        Reference(line_[1], labels_.Concentrations);
        Reference(line_[2], labels_.Temperatures);
        for (std::string& cell : cells_) {
            if (cell.empty()) {
                writer_.Null();
            } else {
                writer_.Text(cell);
                cell.clear();
            }
        }
        sources_.Write(line_, writer_);
        writer_.EndRow();
    }

    const ExportLabels& labels_;
    Sources sources_;
    CsvWriter& writer_;
    std::unordered_map<std::int64_t, std::size_t> columns_;
    std::vector<std::string> cells_;
    Line line_{};
    bool begun_ = false;
    std::size_t strange_ = 0;
};

}  // namespace

bool HasTable(platform::Store& store, std::string_view name) {
    auto row = store.Prepare("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?");
    row.Bind(0, name);
    return row.Step();
}

std::unordered_map<std::int64_t, std::string> ReadLabels(platform::Store& store, const Table& table) {
    std::unordered_map<std::int64_t, std::string> labels;
    auto rows =
        store.Prepare("SELECT ID, [" + std::string(table.Label) + "] FROM [" + std::string(table.Name) + "]");
    while (rows.Step()) {
        if (!rows.Text(1).empty()) {
            labels.emplace(rows.Integer(0), rows.Text(1));
        }
    }
    return labels;
}

std::size_t ExportVerdicts(platform::Store& store, const MaterialClass& materialClass,
                           const std::map<std::int64_t, std::string>& keys, const ExportLabels& labels,
                           CsvWriter& writer, Progress& progress) {
    VerdictWriter verdicts(store, materialClass, keys, labels, writer);
    auto rows = store.Prepare("SELECT ChemID, ConcID, TempID, " + std::string(materialClass.IdColumn) +
                              ", TheValue, Egen FROM " + std::string(materialClass.Relation) +
                              " ORDER BY ChemID, ConcID, TempID, " + std::string(materialClass.IdColumn));
    for (std::uintmax_t done = 1; rows.Step(); ++done) {
        progress.Tell(materialClass.File, done, 0);
        verdicts.Add(LineAt(rows, 0), rows.Integer(3), rows, 4);
    }
    return verdicts.Finish();
}

}  // namespace vemora_db
