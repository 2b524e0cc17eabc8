// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/lexer.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/test_database.h"

namespace platform {
namespace {

using test::ErrorOf;

TEST(Lexer, RefusesWhatIsNoSingleStatement) {
    const std::string search = "SELECT * FROM Chemical WHERE ( Chemical.Formula LIKE '%";
    const std::string cases[] = {
        "",
        "  \r\n",
        ";",
        "SELECT * FROM Chemical; DELETE FROM Chemical",
        "SELECT * FROM Chemical;;",
        search + "'); DELETE FROM Chemical; --%')",
        search + "5' rör%')",
        search + "%",
        "SELECT * FROM Chemical -- all",
        "SELECT * /* all */ FROM Chemical",
        "SELECT [Name FROM Metal",
        "SELECT [] FROM Metal",
        "SELECT \"Name FROM Metal",
        "SELECT * FROM Conc WHERE ID IN ()",
        "SELECT * FROM Conc WHERE ID in(  )",
        "SELECT * FROM Conc WHERE (ID = 1",
        "SELECT * FROM Conc WHERE ID = 1)",
        "SELECT * FROM Conc WHERE ID = ?",
        "SELECT * FROM Conc WHERE ID = :ID",
        "SELECT * FROM Conc WHERE ID = 12abc",
        "SELECT 1.2.3",
        "SELECT * FROM Metal WHERE Name LIKE 'a' ESCAPE 'b'",
        "SELECT 'a' || 'b'",
        "SELECT 'a' & FROM Conc",
        "SELECT & 'a' FROM Conc",
        "SELECT 1 +",
        "PRAGMA key = 'x'",
        "ATTACH 'x' AS y",
        "WITH x AS (SELECT 1) SELECT * FROM x",
        "' Metall' AS Description, relMetal.Egen",
        "SELECT\xC2\xA0* FROM Conc",
        "SELECT '\xFF' FROM Conc",
        std::string("SELECT 'a\0b'", 12),
        "SELECT " + std::string(5000, '(') + "1" + std::string(5000, ')'),
    };
    for (const auto& statement : cases) {
        EXPECT_EQ(ErrorOf([&] { ToStoreSql(statement); }), errors::BadStatement) << statement;
    }
}

/// The one row of a statement, its fields joined by "|", Null as "~"; the number of the failure.
std::string Ask(adodb::Connection& connection, const std::string& statement) {
    std::string row;
    const long failed = ErrorOf([&] {
        adodb::Recordset rs;
        rs.Open(statement, connection);
        for (const auto& name : rs.FieldNames()) {
            row += (row.empty() ? "" : "|") + (rs[name].IsNull() ? "~" : rs[name].Text());
        }
    });
    return failed == 0 ? row : std::to_string(failed);
}

TEST(Lexer, GivesTheOperatorsTheirMeaning) {
    const test::TestDatabase database;
    database.Fill("INSERT INTO Metal(ID, Name, Description) VALUES(7, 'Stål', NULL)");
    adodb::Connection connection;
    database.Open(connection);
    const struct {
        std::string Expression, Result;
    } cases[] = {
        {"'me' & ID", "me7"},
        {"ID & 'me'", "7me"},
        {"'a' & NULL & 'b'", "ab"},
        {"Name & Description", "Stål"},
        {"Name + ' Metall'", "Stål Metall"},
        {"Description + ' Metall'", "~"},
        {"Name & Description + ' x'", "Stål"},  // + binds tighter
        {"Name & (Description + ' x') & '.'", "Stål."},
        {"ID + 1", "8"},
        {"1 + 1 & 'a'", "2a"},
        {"-ID", "-7"},
        {"- -1 & +2", "12"},
        {"ID - 1 - 1", "5"},
        {"ID * 2 & 'x'", "14x"},
        {"'a' & 1 = 'a1'", "1"},
        {"'A' & 'x' LIKE 'a' & '%'", "1"},
        {"\"it's \"\"x\"\"\"", "it's \"x\""},
        {"'it''s -- /* ; ['", "it's -- /* ; ["},
        {"[Name]", "Stål"},
        {"metal.[NAME]", "Stål"},
        {"Count(*)", "1"},
        {"Name AS IDFält", "Stål"},
        {"Name AS [a b]", "Stål"},
        {".5 + 1e1", "10.5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ask(connection, "Select " + c.Expression + " From Metal Where ID = 7 ;"), c.Result)
            << c.Expression;
    }
}

}  // namespace
}  // namespace platform
