// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/check.h"

#include "platform/error.h"
#include "vemora-db/check_parts.h"

namespace vemora_db {

void CheckIntegrity(platform::Store& store, Findings& findings) {
    // The quick one of the second walks every page, and each proves by its own code that it is as it was
    // written; what it leaves out is to compare the indexes with their tables row by row.
    // Only the newer generation of the cipher's library knows the first question; the older one answers
    // nothing, and a page that has been changed then fails the second.
    for (const char* const question : {"PRAGMA cipher_integrity_check", "PRAGMA quick_check"}) {
        auto answers = store.Prepare(question);
        while (answers.Step()) {
            if (answers.Text(0) != "ok") {
                findings.Add(Severity::Error, "the file is damaged", "file", std::string(answers.Text(0)));
            }
        }
    }
}

Findings Check(const std::filesystem::path& file, const std::filesystem::path& review,
               const std::string& password, Progress& progress) {
    platform::Store store(file, password, platform::Store::Access::ReadOnly);
    Findings findings;
    try {
        store.Execute("BEGIN");
        CheckIntegrity(store, findings);
        if (findings.Has(Severity::Error) || !CheckSchema(store, findings)) {
            findings.Add(Severity::Error, "the rows were not checked, because of the errors above", "rows",
                         "");
        } else {
            const Contents contents = CheckTables(store, findings, progress);
            CheckVerdicts(store, contents, findings, progress);
            if (!review.empty()) {
                CheckReview(store, review, contents, findings);
            }
        }
    } catch (const platform::Error& error) {
        // It could be opened, so that this is a finding, too.
        findings.Add(Severity::Error, "the file can't be read to its end", "file", error.Description);
    }
    return findings;
}

}  // namespace vemora_db
