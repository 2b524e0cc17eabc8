// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/findings.h"

#include <algorithm>
#include <array>

#include "vemora-db/text_table.h"

namespace vemora_db {

namespace {

constexpr std::size_t kExamples = 3;

}  // namespace

void Findings::Add(Severity severity, const std::string& what, const std::string& where,
                   const std::string& example, std::size_t count) {
    Finding& finding = findings_[{severity, where, what}];
    finding.Count += count;
    if (finding.Examples.size() < kExamples && !example.empty() &&
        std::find(finding.Examples.begin(), finding.Examples.end(), example) == finding.Examples.end()) {
        finding.Examples.push_back(example);
    }
}

bool Findings::Has(Severity severity) const {
    return std::any_of(findings_.begin(), findings_.end(),
                       [&](const auto& one) { return std::get<0>(one.first) == severity; });
}

void Findings::Print(std::ostream& out, bool warnings) const {
    std::vector<std::vector<std::string>> rows = {{"Severity", "Where", "Count", "What"}};
    std::array<std::size_t, 2> kinds{};
    for (const auto& [name, finding] : findings_) {
        const auto& [severity, where, what] = name;
        ++kinds[severity == Severity::Error ? 0 : 1];
        if (severity == Severity::Warning && !warnings) {
            continue;
        }
        std::string text = what;
        for (std::size_t i = 0; i < finding.Examples.size(); ++i) {
            text += (i == 0 ? ": " : "; ") + finding.Examples[i];
        }
        if (!finding.Examples.empty() && finding.Count > finding.Examples.size()) {
            text += "; ...";
        }
        rows.push_back(
            {severity == Severity::Error ? "error" : "warning", where, std::to_string(finding.Count), text});
    }
    if (rows.size() > 1) {
        PrintRows(out, rows);
        out << '\n';
    }
    out << "Kinds of errors: " << kinds[0] << ", of warnings: " << kinds[1]
        << (warnings ? "\n" : " (not shown)\n");
}

}  // namespace vemora_db
