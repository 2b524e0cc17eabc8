// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/lexer.h"

#include <gtest/gtest.h>

#include "platform/test_database.h"

namespace platform {
namespace {

using test::ErrorOf;

TEST(Lexer, RefusesWhatIsNoSingleStatement) {
    const auto refuses = [](const std::string& statement) {
        EXPECT_EQ(ErrorOf([&] { ToStoreSql(statement); }), errors::BadStatement) << statement;
    };
    for (const auto* statement : {"", "  \r\n", ";", "PRAGMA key = 'x'", "' Metall' AS Description, Egen",
                                  "WITH x AS (SELECT 1) SELECT * FROM x", "SELECT\u00A0* FROM Conc"}) {
        refuses(statement);
    }
    for (const auto* condition : {"1;;",          "1; DELETE FROM Conc",
                                  "1 -- all",     "/* all */ 1",
                                  "[ID = 1",      "[] = 1",
                                  "\"ID = 1",     "Name LIKE '%5' rör%'",
                                  "Name LIKE '%", "'\xFF'",
                                  "ID IN ()",     "ID in(  )",
                                  "(ID = 1",      "ID = 1)",
                                  "ID = ?",       "ID = :ID",
                                  "ID = 12abc",   "1.2.3",
                                  "'a' || 'b'",   "ID LIKE 'a' ESCAPE 'b'",
                                  "'a' & AND 1",  "& 'a'",
                                  "1 +"}) {
        refuses("SELECT * FROM Conc WHERE " + std::string(condition));
    }
    refuses(std::string("SELECT 'a\0b'", 12));
    refuses("SELECT " + std::string(5000, '(') + "1" + std::string(5000, ')'));
}

TEST(Lexer, GivesTheOperatorsTheirMeaning) {
    const test::TestDatabase database;
    database.Fill("INSERT INTO Metal(ID, Name, Description) VALUES(7, 'Stål', NULL)");
    adodb::Connection connection;
    database.Open(connection);
    const std::pair<std::string, std::string> cases[] = {
        {"'me' & ID, 'a' & NULL & 'b', Name & Description, Name + ' x', Description + ' x'",
         "me7|ab|Stål|Stål x|~"},
        {"Name & Description + ' x', Name & (Description + ' x') & '.'", "Stål|Stål."},
        {"ID + 1, 1 + 1 & 'a', -ID, - -1 & +2, ID - 1 - 1, ID * 2 & 'x', .5 + 1e1", "8|2a|-7|12|5|14x|10.5"},
        {"'a' & 1 = 'a1', 'A' & 'x' LIKE 'a' & '%', Count(*)", "1|1|1"},
        {"\"it's \"\"x\"\"\", 'it''s -- /* ; ['", "it's \"x\"|it's -- /* ; ["},
        {"metal.[NAME], Name AS IDFält, Name AS [a b]", "Stål|Stål|Stål"}};
    for (const auto& [columns, row] : cases) {
        EXPECT_EQ(test::Ask(connection, "Select " + columns + " From Metal Where ID = 7 ;"), row);
    }
}

}  // namespace
}  // namespace platform
