// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The names that people type, on the data as shipped.

#include <gtest/gtest.h>

#include <sstream>

#include "support/session.h"
#include "vemora-db/create.h"
#include "vemora-db/password.h"

namespace test {
namespace {

TEST(ShippedNames, AreFoundFirstOrSecond) {
    const std::filesystem::path sources = VEMORA_SOURCE_DIR;
    Session run;
    std::ostringstream nowhere;
    vemora_db::Progress progress(nowhere, false);
    vemora_db::Create(sources / "data", run.Folder.Database(), std::string(vemora_db::kDeliveredPassword),
                      true, progress);
    run.Start();
    // A line is a chemical by its Swedish name, a colon, and what finds it.
    std::istringstream lines(ReadAll(sources / "tests/windows/everyday_names.txt"));
    int asked = 0;
    for (std::string name; std::getline(lines, name, ':');) {
        std::string line;
        std::getline(lines, line);
        std::istringstream queries(line);
        for (std::string query; std::getline(queries >> std::ws, query, ','); ++asked) {
            run.Search(query);
            Strings rows = Rows(run.Main().lvwResultat);
            rows.resize(2);
            EXPECT_TRUE(rows[0].starts_with(name + "|") || rows[1].starts_with(name + "|"))
                << query << ": " << rows[0] << " / " << rows[1];
        }
    }
    EXPECT_GE(asked, 60);
}

}  // namespace
}  // namespace test
