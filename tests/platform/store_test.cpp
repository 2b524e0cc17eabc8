// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/store.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/store/lexer.h"
#include "platform/test_database.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using test::ErrorOf;
using test::kPassword;
using test::ReadAll;
using Access = Store::Access;

long OpenError(const fs::path& file, std::string_view password = kPassword,
               Access access = Access::Exclusive) {
    return ErrorOf([&] { Store(file, password, access).Close(); });
}

std::set<std::string> FilesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

const std::set<std::string> kOnlyFile = {"Vemora.mdb"};

// A text over many pages.
const std::string kNote(50000, 'n');

void Write(const fs::path& file, std::string_view bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

TEST(Store, KeepsTheSettingsThatOtherToolsNeed) {
    const test::TestDatabase database;
    Store store(database.File(), kPassword, Access::Exclusive);
    const std::pair<const char*, const char*> settings[] = {
        {"PRAGMA page_size", "4096"},   {"PRAGMA kdf_iter", "64000"},        {"PRAGMA cipher_use_hmac", "1"},
        {"PRAGMA journal_mode", "wal"}, {"PRAGMA synchronous", "2"},         {"PRAGMA foreign_keys", "0"},
        {"PRAGMA user_version", "1"},   {"PRAGMA locking_mode", "exclusive"}};
    for (const auto& [ask, answer] : settings) {
        auto statement = store.Prepare(ask);
        ASSERT_TRUE(statement.Step()) << ask;
        EXPECT_EQ(statement.Text(0), answer) << ask;
    }
    EXPECT_EQ(FilesIn(database.Folder()).count("Vemora.mdb-shm"), 0u);
    store.Close();
    EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
    EXPECT_EQ(ReadAll(database.File()).find("Chemical"), std::string::npos);
}

TEST(Store, LeavesAFileAloneThatItCannotOpen) {
    const test::TestDatabase database;
    database.Fill("INSERT INTO Chemical(NoteSE) VALUES('" + kNote + "')");
    const std::string whole = ReadAll(database.File());
    const std::tuple<const char*, std::string, std::string, long> cases[] = {
        {"other password", whole, "Mora27", errors::BadPassword},
        {"no password", whole, "", errors::BadPassword},
        {"empty", "", kPassword, errors::BadPassword},
        {"plain database", "SQLite format 3" + std::string(4081, '\0'), kPassword, errors::BadPassword},
        {"part of a page", whole.substr(0, 1000), kPassword, errors::BadPassword},
        {"cut", whole.substr(0, 8192 + 5), kPassword, errors::StoreFailed},
        {"whole", whole, kPassword, 0}};
    for (const auto& [what, bytes, password, number] : cases) {
        SCOPED_TRACE(what);
        Write(database.File(), bytes);
        EXPECT_EQ(OpenError(database.File(), password, Access::Exclusive), number);
        EXPECT_EQ(OpenError(database.File(), password, Access::ReadOnly), number);
        EXPECT_EQ(OpenError(database.File(), kPassword, Access::Create), errors::StoreFailed);
        EXPECT_TRUE(ReadAll(database.File()) == bytes);
        EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
    }
    for (const auto& file :
         {database.Folder(), database.Folder() / "missing.mdb", database.Folder() / "no" / "x"}) {
        EXPECT_EQ(OpenError(file), errors::StoreFailed);
    }
    EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
}

TEST(Store, IsOneProgramsAlone) {
    const test::TestDatabase database;
    {
        Store store(database.File(), kPassword, Access::Exclusive);
        for (int changes = 0; changes < 2; ++changes) {
            EXPECT_EQ(OpenError(database.File()), errors::StoreFailed);
            EXPECT_EQ(OpenError(database.File(), kPassword, Access::ReadOnly), errors::StoreFailed);
            store.Execute("INSERT INTO Temp(Temp) VALUES('20ºC')");
        }
    }
    // Without an orderly end, too.
    EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
    EXPECT_EQ(OpenError(database.File()), 0);
}

TEST(Store, RecoversWhatACrashLeft) {
    const test::TestDatabase database;
    const auto journal = fs::path(database.File()) += "-wal";
    std::string file, changes;
    {
        Store store(database.File(), kPassword, Access::Exclusive);
        store.Execute("INSERT INTO Temp(Temp) VALUES('20ºC')");
        file = ReadAll(database.File());
        changes = ReadAll(journal);
    }
    Write(database.File(), file);
    Write(journal, changes);
    EXPECT_EQ(OpenError(database.File(), "wrong"), errors::BadPassword);
    EXPECT_TRUE(ReadAll(database.File()) == file && ReadAll(journal) == changes);
    EXPECT_EQ(FilesIn(database.Folder()), (std::set<std::string>{"Vemora.mdb", "Vemora.mdb-wal"}));
    for (const auto access : {Access::ReadOnly, Access::Exclusive}) {
        Store store(database.File(), kPassword, access);
        auto count = store.Prepare("SELECT count(*) FROM Temp");
        EXPECT_TRUE(count.Step() && count.Integer(0) == 1);
    }
    EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
}

#ifndef _WIN32
TEST(Store, RefusesWhatItCannotWrite) {
    const test::TestDatabase database;
    const auto error = [&](int folder, int file, Access access) {
        fs::permissions(database.File(), fs::perms(file));
        fs::permissions(database.Folder(), fs::perms(folder));
        long number = 0;
        test::WithoutPrivileges([&] { number = OpenError(database.File(), kPassword, access); });
        fs::permissions(database.Folder(), fs::perms(0777));
        return number;
    };
    EXPECT_EQ(error(0777, 0444, Access::Exclusive), errors::StoreFailed);
    EXPECT_EQ(error(0555, 0777, Access::Exclusive), errors::StoreFailed);
    EXPECT_EQ(error(0555, 0444, Access::ReadOnly), 0);
    EXPECT_EQ(FilesIn(database.Folder()), kOnlyFile);
}
#endif

TEST(Statement, TakesExactlyOneAndTellsOfAFullDisk) {
    const test::TestDatabase database;
    Store store(database.File(), kPassword, Access::Exclusive);
    store.Execute("PRAGMA max_page_count = 1");  // no more than there are
    EXPECT_EQ(ErrorOf([&] { store.Execute("INSERT INTO Misc(Name) VALUES(hex(zeroblob(9999)))"); }),
              errors::DiskNotReady);
    store.Execute("INSERT INTO Misc(Name) VALUES('x')");
    EXPECT_EQ(ErrorOf([&] { store.Prepare(" "); }), errors::BadStatement);
    EXPECT_EQ(ErrorOf([&] { store.Prepare("SELECT 1; SELECT 2"); }), errors::BadStatement);
    auto read = store.Prepare("SELECT ?, ?, 0.5 AS Half;");
    read.Bind(0, std::string_view());  // an empty text is not Null
    read.BindNull(1);
    EXPECT_TRUE(read.Step() && read.Column(0) == Value("") && read.IsNull(1) && read.Column(2) == Value(0.5));
    EXPECT_EQ(read.ColumnName(2), "Half");
}

TEST(Lexer, RefusesWhatIsNoSingleStatement) {
    const auto refuses = [](const std::string& statement) {
        EXPECT_EQ(ErrorOf([&] { ToStoreSql(statement); }), errors::BadStatement) << statement;
    };
    for (const auto* statement : {"", "  \r\n", ";", "PRAGMA key = 'x'", "' Metall' AS Description, Egen",
                                  "WITH x AS (SELECT 1) SELECT * FROM x", "SELECT\u00A0* FROM Conc"}) {
        refuses(statement);
    }
    for (const auto* condition :
         {"1;;",        "1; SELECT 1",  "1 -- all",    "/* all */ 1", "[ID = 1",    "[] = 1",
          "\"ID = 1",   "'5' rör%'",    "'%",          "'\xFF'",      "ID IN ()",   "ID in(  )",
          "(ID = 1",    "ID = 1)",      "ID = ?",      "ID = :ID",    "ID = 12abc", "1.2.3",
          "'a' || 'b'", "1 ESCAPE 'b'", "'a' & AND 1", "& 'a'",       "1 +"}) {
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
