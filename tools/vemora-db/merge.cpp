// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/merge.h"

#include <array>
#include <deque>
#include <optional>

#include "vemora-db/merge_rows.h"
#include "vemora-db/on_file.h"
#include "vemora-db/temporary_file.h"
#include "vemora-db/text_table.h"

namespace vemora_db {

namespace fs = std::filesystem;

namespace {

/// What the user has set, with the IDs of the old database.
struct OwnVerdict {
    std::array<std::int64_t, 4> IDs{};
    platform::Value Verdict;
};

class Merger {
  public:
    explicit Merger(Progress& progress) : progress_(progress) {
        for (const MaterialClass& one : kClasses) {
            materials_.emplace_back(Table{one.Name, {}, "Name", one.Columns});
        }
    }

    void Read(platform::Store& from) {
        from.Execute("BEGIN");
        for (NamedTable* const table : {&chemicals_, &concentrations_, &temperatures_}) {
            table->Read(from, progress_);
        }
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            materials_[i].Read(from, progress_);
            ReadVerdicts(from, kClasses[i], verdicts_[i]);
        }
    }

    Merged Write(platform::Store& file) {
        file.Execute("BEGIN IMMEDIATE");
        for (NamedTable* const table : {&chemicals_, &concentrations_, &temperatures_}) {
            table->Write(file, merged_, progress_);
        }
        for (NamedTable& table : materials_) {
            table.Write(file, merged_, progress_);
        }
        for (std::size_t i = 0; i < kClasses.size(); ++i) {
            WriteVerdicts(file, i);
        }
        file.Execute("COMMIT");
        return merged_;
    }

  private:
    void ReadVerdicts(platform::Store& from, const MaterialClass& one, std::vector<OwnVerdict>& verdicts) {
        const std::string relation(one.Relation);
        auto rows = from.Prepare("SELECT ChemID, ConcID, TempID, " + std::string(one.IdColumn) +
                                 ", TheValue FROM " + relation + " WHERE Egen <> 0 ORDER BY 1, 2, 3, 4");
        while (rows.Step()) {
            progress_.Tell(relation, verdicts.size(), 0);
            OwnVerdict& verdict = verdicts.emplace_back();
            for (std::size_t i = 0; i < verdict.IDs.size(); ++i) {
                verdict.IDs[i] = rows.Integer(static_cast<int>(i));
            }
            verdict.Verdict = rows.Column(4);
        }
    }

    /// The IDs in the new database; none when one of the four rows isn't there.
    std::optional<std::array<std::int64_t, 4>> Map(const std::array<std::int64_t, 4>& old,
                                                   const NamedTable& materials) const {
        const std::optional<std::int64_t> mapped[] = {
            chemicals_.Map(old[0]),
            old[1] == kNoConcentration ? std::optional<std::int64_t>(old[1]) : concentrations_.Map(old[1]),
            temperatures_.Map(old[2]), materials.Map(old[3])};
        std::array<std::int64_t, 4> ids{};
        for (std::size_t i = 0; i < ids.size(); ++i) {
            if (!mapped[i]) {
                return std::nullopt;
            }
            ids[i] = *mapped[i];
        }
        return ids;
    }

    void WriteVerdicts(platform::Store& file, std::size_t index) {
        const std::string relation(kClasses[index].Relation);
        const std::string idColumn(kClasses[index].IdColumn);
        const std::string where = " WHERE ChemID = ? AND ConcID = ? AND TempID = ? AND " + idColumn + " = ?";
        auto find = file.Prepare("SELECT TheValue, Egen FROM " + relation + where);
        auto insert = file.Prepare("INSERT INTO " + relation + "(ChemID, ConcID, TempID, " + idColumn +
                                   ", TheValue, Egen) VALUES(?, ?, ?, ?, ?, -1)");
        auto update = file.Prepare("UPDATE " + relation + " SET TheValue = ?, Egen = -1" + where);
        Merged::Table& counts = merged_.Tables.emplace_back();
        counts.Name = relation;
        for (const OwnVerdict& one : verdicts_[index]) {
            progress_.Tell(relation, counts.Own++, verdicts_[index].size());
            std::string told = chemicals_.NameOf(one.IDs[0]) + ", " +
                               (one.IDs[1] == kNoConcentration ? std::string("no concentration")
                                                               : concentrations_.NameOf(one.IDs[1])) +
                               ", " + temperatures_.NameOf(one.IDs[2]) + ", " +
                               materials_[index].NameOf(one.IDs[3]);
            const auto ids = Map(one.IDs, materials_[index]);
            if (!ids) {
                Tell(Severity::Error, "a verdict isn't carried: not all that it is about is there", relation,
                     told);
                continue;
            }
            BindAll(find, 0, *ids);
            const bool there = find.Step();
            const bool own = there && find.Integer(1) != 0;
            const std::string before(there ? find.Text(0) : std::string_view());
            find.Reset();
            told += ": " + Quoted(before) + " -> " + Quoted(one.Verdict.Joined());
            counts.There += there ? 1 : 0;
            if (!there) {
                BindAll(insert, 0, *ids);
                insert.Bind(4, one.Verdict);
                insert.Step();
                insert.Reset();
                ++counts.Added;
            } else if (!own) {
                update.Bind(0, one.Verdict);
                BindAll(update, 1, *ids);
                update.Step();
                update.Reset();
            }
            if (there && before != one.Verdict.Joined()) {
                own ? Tell(Severity::Error, "a verdict isn't carried: there is another one of the user's",
                           relation, told)
                    : Tell(Severity::Warning, "a verdict of the user's replaces a delivered one", relation,
                           told);
            }
        }
    }

    static void BindAll(platform::Statement& statement, int first, const std::array<std::int64_t, 4>& ids) {
        for (std::size_t i = 0; i < ids.size(); ++i) {
            statement.Bind(first + static_cast<int>(i), ids[i]);
        }
    }

    void Tell(Severity severity, const std::string& what, const std::string& where,
              const std::string& example) {
        merged_.Strange.Add(severity, what, where, example);
    }

    Progress& progress_;
    NamedTable chemicals_{kChemicals};
    NamedTable concentrations_{kConcentrations};
    NamedTable temperatures_{kTemperatures};
    std::deque<NamedTable> materials_;  // in the order of kClasses
    std::array<std::vector<OwnVerdict>, kClasses.size()> verdicts_;
    Merged merged_;
};

}  // namespace

void Merged::Print(std::ostream& out, bool warnings) const {
    std::vector<std::vector<std::string>> numbers = {{"Table", "Own", "Added", "There", "Choices"}};
    for (const Table& table : Tables) {
        numbers.push_back({table.Name, std::to_string(table.Own), std::to_string(table.Added),
                           std::to_string(table.There), std::to_string(table.Choices)});
    }
    PrintRows(out, numbers);
    out << '\n';
    Strange.Print(out, warnings);
}

Merged Merge(const fs::path& file, const fs::path& from, const std::string& password, Progress& progress) {
    RefuseSame(file, from);
    Merger merger(progress);
    OnFile(from, [&] {
        platform::Store old(from, password, platform::Store::Access::ReadOnly);
        merger.Read(old);
    });
    platform::Store store(file, password, platform::Store::Access::Exclusive);
    Merged merged = merger.Write(store);
    store.Close();
    return merged;
}

}  // namespace vemora_db
