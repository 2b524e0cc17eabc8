// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/adodb/adodb.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/test_database.h"

namespace platform::adodb {
namespace {

using test::ErrorOf;

class Adodb : public testing::Test {
  protected:
    Adodb() {
        database.Fill(
            "INSERT INTO Metal(ID, Name, Description, NameEN, DescriptionEN, Egen) VALUES"
            "(1, 'Zink', 'Zn', 'Zinc', 'Zn', 0), (2, 'Ärgat järn', NULL, 'Rusted iron', NULL, -1), (3, "
            "'bly', 'Pb', "
            "'lead', 'Pb', 0);"
            "INSERT INTO Chemical(ID, Formula, NameSE) VALUES(345, 'HCl', 'Saltsyra'), (346, 'H2SO4', "
            "'Svavelsyra');"
            "INSERT INTO Conc(ID, ConcentrationSE) VALUES(12, '10 %'), (13, 'koncentrerad');"
            "INSERT INTO Temp(ID, Temp, Med) VALUES(6, '20ºC', -1), (7, '60ºC', 0);"
            "INSERT INTO relMetal VALUES(345, 12, 6, 1, '+', 0), (345, 12, 6, 2, ' ', -1), (345, -1, 7, 3, "
            "'-', 0);");
        database.Open(connection);
    }

    /// The rows of a statement, fields joined by "|", rows by "/", Null as "~".
    std::string Ask(const std::string& statement) {
        Recordset rs;
        rs.Open(statement, connection);
        return Rest(rs);
    }
    static std::string Rest(Recordset& rs) {
        std::string all;
        for (; !rs.Eof(); rs.MoveNext()) {
            std::string row;
            for (const auto& name : rs.FieldNames()) {
                row += (row.empty() ? "" : "|") + (rs[name].IsNull() ? "~" : rs[name].Text());
            }
            all += (all.empty() ? "" : "/") + row;
        }
        return all;
    }
    Recordset Open(const std::string& statement, int cursor = adOpenStatic, int lock = adLockOptimistic) {
        Recordset rs;
        rs.Open(statement, connection, cursor, lock);
        return rs;
    }

    test::TestDatabase database;
    Connection connection;
};

TEST_F(Adodb, RunsTheSystemsStatements) {
    const std::pair<std::string, std::string> cases[] = {
        {"SELECT 'me' & Metal.ID AS IDFält, Metal.Name, relMetal.TheValue, Metal.Description + ' Metall' AS "
         "Description, relMetal.Egen AS RelEgen, Metal.Egen AS Egen, relMetal.ConcID, relMetal.TempID FROM "
         "Metal INNER "
         "JOIN (Chemical INNER JOIN relMetal ON Chemical.ID = relMetal.ChemID) ON Metal.ID = "
         "relMetal.MetalID Where "
         "relMetal.ChemID = 345 AND TheValue IN ('+', ' ') AND relMetal.ConcID = 12 AND relMetal.TempID IN "
         "(6) AND "
         "Metal.ID IN (1, 2, 3)",
         "me1|Zink|+|Zn Metall|0|0|12|6/me2|Ärgat järn| |~|-1|-1|12|6"},
        {"SELECT ID, NameEN AS [Name] FROM Metal Order by Name", "3|lead/2|Rusted iron/1|Zinc"},
        {"SELECT Name from Metal Order by Name", "bly/Zink/Ärgat järn"},
        {"SELECT Name FROM Metal WHERE Name LIKE '%äRg%'", "Ärgat järn"},
        {"SELECT ID FROM Metal WHERE Name = 'ÄRGAT JÄRN'", "2"},
        {"SELECT ID FROM Metal WHERE Name IN ('argat jarn', 'ZINK')", "1"},
        {"SELECT Temp FROM Temp WHERE ID = 6", "20ºC"},
        {"SELECT * FROM Temp WHERE Med = -1 Order by ID", "6|20ºC|0|-1"},
        {"SELECT ID FROM Conc WHERE Med = -1 AND ID IN( SELECT ConcID FROM relMetal WHERE ChemID = 345) OR "
         "ID IN( SELECT "
         "ConcID FROM relMisc WHERE ChemID = 345) Order by ConcentrationSE",
         "12"},
        {"SELECT Misc.Egen AS Egen FROM Misc WHERE ID = 1", ""},
        {"SELECT * FROM relMetal WHERE MetalID = 3", "345|-1|7|3|-|0"},
    };
    for (const auto& [statement, rows] : cases) {
        EXPECT_EQ(Ask(statement), rows) << statement;
    }
    auto rs = Open(cases[0].first);
    const std::vector<std::string> names = {"IDFält",  "Name", "TheValue", "Description",
                                            "RelEgen", "Egen", "ConcID",   "TempID"};
    EXPECT_EQ(rs.FieldNames(), names);
    EXPECT_EQ(rs["idFÄLT"].Text(), "me1");

    connection.Execute(
        "UPDATE relMetal SET TheValue = '0', Egen = -1 WHERE ConcID = 12 AND ChemID = 345 AND TempID = 6 "
        "AND MetalID = 1");
    connection.Execute(
        "INSERT INTO relMetal (ChemID, ConcID, TempID, MetalID, TheValue, Egen) VALUES(346, 12, 6, 1, '+', "
        "-1)");
    connection.Execute(
        "DELETE FROM relMetal WHERE ConcID = 12 AND ChemID = 345 AND TempID = 6 AND MetalID = 2");
    EXPECT_EQ(Ask("SELECT ChemID, TheValue, Egen FROM relMetal"), "345|-|0/345|0|-1/346|+|-1");
    // A change is in the file when its statement returns.
    connection.Close();
    database.Open(connection);
    EXPECT_EQ(Ask("SELECT TheValue FROM relMetal WHERE ChemID = 346"), "+");
}

TEST_F(Adodb, TellsWhatIsWrongWithAStatement) {
    const std::pair<std::string, long> cases[] = {
        {"", errors::BadStatement},
        {"SELECT * FROM ", errors::BadStatement},
        {"SELECT FROM WHERE", errors::BadStatement},
        {"SELECT * FROM Nothing", errors::NoSuchTable},
        {"SELECT Nothing FROM Metal", errors::NoSuchColumn},
        {"INSERT INTO Metal (Nothing) VALUES(1)", errors::NoSuchColumn},
        {"INSERT INTO relMetal (ChemID, ConcID, TempID, MetalID) VALUES(345, 12, 6, 1)", errors::StoreFailed},
        {"INSERT INTO relMetal (ChemID, ConcID, TempID) VALUES(345, 12, 6)", errors::RequiredField},
        {"INSERT INTO Metal (ID) VALUES('x')", errors::TypeMismatch},
        {"SELECT name FROM sqlite_master", errors::BadStatement},
        {"SELECT name FROM sqlite_temp_master", errors::BadStatement},
        {"DELETE FROM sqlite_master", errors::BadStatement},
        {"SELECT load_extension('x') FROM Metal", errors::BadStatement},
    };
    for (const auto& [statement, number] : cases) {
        EXPECT_EQ(ErrorOf([&, &text = statement] { connection.Execute(text); }), number) << statement;
    }
    EXPECT_EQ(ErrorOf([&] { Open("DELETE FROM Metal"); }), errors::BadStatement);
    EXPECT_EQ(Ask("SELECT Count(*) AS n FROM Metal"), "3");
}

TEST_F(Adodb, MovesAndFinds) {
    EXPECT_EQ(ErrorOf([&] { Open("SELECT * FROM Misc").MoveFirst(); }), errors::NoCurrentRecord);
    for (const auto& [cursor, lock] : {std::pair(0, 1), {3, 1}, {0, 3}, {3, 3}, {2, 3}}) {
        auto rs = Open("SELECT ID, Name FROM Metal ORDER BY ID", cursor, lock);
        const bool stream = cursor == 0 && lock == 1;
        EXPECT_EQ(Rest(rs), "1|Zink/2|Ärgat järn/3|bly");
        EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), errors::NoCurrentRecord);
        EXPECT_EQ(ErrorOf([&] { rs["ID"].Get(); }), errors::NoCurrentRecord);
        EXPECT_EQ(ErrorOf([&] { rs.Find("ID = 1"); }), errors::NoCurrentRecord);
        rs.MoveFirst();
        rs.Find("ID = 2");
        EXPECT_EQ(rs["Name"].Text(), "Ärgat järn");
        rs.Find("id=2");  // begins at the current row
        EXPECT_FALSE(rs.Eof());
        rs.Find("ID = 1");  // and only looks forward
        EXPECT_TRUE(rs.Eof());
        rs.MoveFirst();
        EXPECT_EQ(ErrorOf([&] { rs.Find("Name = 'bly'"); }), errors::BadArgument);
        EXPECT_EQ(ErrorOf([&] { rs.Find("Number = 1"); }), errors::NoSuchField);
        EXPECT_EQ(ErrorOf([&] { rs["Number"]; }), errors::NoSuchField);
        EXPECT_EQ(rs["ID"].Long(), 1);
        EXPECT_EQ(ErrorOf([&] { rs.MoveLast(); }), stream ? errors::NotAllowedNow : 0);
        EXPECT_EQ(ErrorOf([&] { rs.MovePrevious(); }), stream ? errors::NotAllowedNow : 0);
        EXPECT_EQ(rs["ID"].Long(), stream ? 1 : 2);
        if (!stream) {
            rs.MovePrevious();
            rs.MovePrevious();
            EXPECT_TRUE(rs.Bof());
            EXPECT_EQ(ErrorOf([&] { rs.MovePrevious(); }), errors::NoCurrentRecord);
            rs.MoveNext();
            EXPECT_EQ(rs["ID"].Long(), 1);
        }
        EXPECT_EQ(ErrorOf([&] { rs.Open("SELECT 1", connection); }), errors::ObjectOpen);
        rs.Close();
        EXPECT_EQ(ErrorOf([&] { rs.Close(); }), errors::ObjectClosed);
        EXPECT_EQ(ErrorOf([&] { rs.Eof(); }), errors::ObjectClosed);
    }
}

TEST_F(Adodb, WritesThroughTheOriginOfAColumn) {
    auto rs =
        Open("SELECT ID, NameEN AS Name, DescriptionEN AS Description, Egen, Med FROM Metal Order by Name");
    rs.Find("ID = 2");
    rs["Name"] = "Iron, rusted";
    rs["Egen"] = true;
    EXPECT_EQ(rs["Name"].Text(), "Iron, rusted");
    EXPECT_EQ(Ask("SELECT NameEN FROM Metal WHERE ID = 2"), "Rusted iron");
    rs.Update();
    EXPECT_EQ(Ask("SELECT Name, NameEN, DescriptionEN, Egen FROM Metal WHERE ID = 2"),
              "Ärgat järn|Iron, rusted|~|-1");
    rs["Name"] = "dropped";
    rs.CancelUpdate();
    EXPECT_EQ(rs["Name"].Text(), "Iron, rusted");
    rs["Description"] = Value();
    rs["Name"] = rs["ID"];
    rs.MoveFirst();  // a move saves
    EXPECT_EQ(Ask("SELECT NameEN, DescriptionEN FROM Metal WHERE ID = 2"), "2|~");

    auto key = Open("SELECT * FROM relMetal WHERE ChemID = 345 AND MetalID = 1");
    key["TempID"] = 7;
    key["TheValue"] = " ";
    key.Update();
    key["TheValue"] = "-";
    key.Update();
    EXPECT_EQ(Ask("SELECT * FROM relMetal WHERE MetalID = 1"), "345|12|7|1|-|0");
    key["TempID"] = 6;
    key["MetalID"] = 2;
    EXPECT_EQ(ErrorOf([&] { key.Update(); }), errors::StoreFailed);  // there is such a row
    EXPECT_EQ(ErrorOf([&] { key.Close(); }), errors::NotAllowedNow);
    key.CancelUpdate();
    connection.Execute("DELETE FROM relMetal");
    key["TheValue"] = "+";
    EXPECT_EQ(ErrorOf([&] { key.Update(); }), errors::StoreFailed);  // no longer there

    auto computed = Open("SELECT ID, Name & 'x' AS y FROM Metal");
    EXPECT_EQ(ErrorOf([&] { computed["y"] = "z"; }), errors::NotSupported);
    auto keyless = Open("SELECT Name FROM Metal");
    keyless["Name"] = "z";
    EXPECT_EQ(ErrorOf([&] { keyless.Update(); }), errors::NotSupported);
    auto reading = Open("SELECT * FROM Metal", adOpenStatic, adLockReadOnly);
    EXPECT_EQ(ErrorOf([&] { reading["Name"] = "z"; }), errors::NotSupported);
    EXPECT_EQ(ErrorOf([&] { reading.AddNew(); }), errors::NotSupported);
    EXPECT_EQ(ErrorOf([&] { reading.Delete(); }), errors::NotSupported);
}

TEST_F(Adodb, AddsARowWhenItIsSaved) {
    const auto count = [&] { return Ask("SELECT Count(*) AS n FROM Metal"); };
    auto rs = Open("SELECT * FROM Metal ORDER BY ID");
    rs.MoveNext();
    rs.AddNew();
    EXPECT_TRUE(rs["ID"].IsNull());
    EXPECT_EQ(rs["Name"].Joined(), "");
    EXPECT_EQ(ErrorOf([&] { rs.Close(); }), errors::NotAllowedNow);
    EXPECT_EQ(ErrorOf([&] { rs.Requery(); }), errors::NotAllowedNow);
    rs.Cancel();
    EXPECT_TRUE(rs["ID"].IsNull());
    rs.CancelUpdate();
    EXPECT_EQ(rs["ID"].Long(), 2);  // the row before AddNew

    rs.AddNew();
    rs.MoveFirst();  // nothing was assigned: dropped
    EXPECT_EQ(count(), "3");
    rs.AddNew();
    rs["Name"] = "Tenn";
    EXPECT_EQ(count(), "3");
    rs.MoveFirst();  // saved
    EXPECT_EQ(count(), "4");
    EXPECT_EQ(rs["ID"].Long(), 1);

    rs.AddNew();
    rs["Name"] = "Guld";
    rs["Egen"] = -1;
    rs.Update();
    rs.Update();
    EXPECT_EQ(rs["ID"].Long(), 5);
    EXPECT_EQ(rs["Name"].Text(), "Guld");
    EXPECT_EQ(rs["Med"].Long(), -1);  // the default of the store
    EXPECT_EQ(Ask("SELECT Name, Egen, Med FROM Metal WHERE ID = 5"), "Guld|-1|-1");
    rs["Name"] = "Silver";  // the new row can be changed at once
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_EQ(Ask("SELECT Name FROM Metal WHERE ID > 3"), "Tenn/Silver");

    auto chemical = Open("SELECT * FROM Chemical Where ID = 900", adOpenDynamic);
    ASSERT_TRUE(chemical.Eof());
    chemical.AddNew();
    chemical["ID"] = "900";  // as the text of a file
    chemical["NameSE"] = "";
    chemical.Update();
    EXPECT_EQ(chemical["ID"].Long(), 900);
    EXPECT_EQ(Ask("SELECT ID, NameSE, NameEN FROM Chemical WHERE ID = 900"), "900||~");

    auto relation = Open("SELECT * FROM relMetal WHERE ChemID = 1");
    relation.AddNew();
    relation["ChemID"] = 1;
    EXPECT_EQ(ErrorOf([&] { relation.Update(); }), errors::RequiredField);
    relation.CancelUpdate();
    EXPECT_TRUE(relation.Eof());
}

TEST_F(Adodb, LeavesNoCurrentRowAfterDelete) {
    auto rs = Open("SELECT * FROM Metal ORDER BY ID");
    rs.Find("ID = 2");
    rs.Delete();
    EXPECT_EQ(Ask("SELECT ID FROM Metal"), "1/3");
    EXPECT_EQ(ErrorOf([&] { rs["ID"].Get(); }), errors::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rs.Delete(); }), errors::NoCurrentRecord);
    rs.MoveNext();
    EXPECT_EQ(rs["ID"].Long(), 3);
    rs.Delete();
    rs.MovePrevious();
    EXPECT_EQ(rs["ID"].Long(), 1);
    rs.Delete();
    EXPECT_EQ(ErrorOf([&] { rs.MoveFirst(); }), errors::NoCurrentRecord);
    rs.Requery();
    EXPECT_TRUE(rs.Eof() && rs.Bof());
}

TEST_F(Adodb, NeverGivesAnIdTwice) {
    // The verdicts of a deleted material stay behind: they must not turn up under the next one.
    for (const int wanted : {4, 5}) {
        Recordset rs = Open("SELECT * FROM Metal");
        rs.AddNew();
        rs["Name"] = "egen";
        rs.Update();
        EXPECT_EQ(rs["ID"].Long(), wanted);
        rs.Delete();
    }
}

TEST_F(Adodb, FindsItsFileInAnyCase) {
    connection.Close();
    std::filesystem::rename(database.File(), database.Folder() / "VEMORA.MDB");
    database.Open(connection);
    EXPECT_EQ(Ask("SELECT Formula FROM Chemical WHERE ID = 345"), "HCl");
}

TEST_F(Adodb, TellsItsObserversOnce) {
    Recordset rs;
    int told = 0;
    auto handle = rs.Subscribe([&] { ++told; });
    const auto tells = [&](auto action) {
        const int before = told;
        action();
        return told - before;
    };
    EXPECT_EQ(tells([&] { rs.Open("SELECT * FROM Metal", connection, 3, 3); }), 1);
    EXPECT_EQ(tells([&] { rs.MoveNext(); }), 1);
    EXPECT_EQ(tells([&] { rs.Find("ID = 3"); }), 1);
    EXPECT_EQ(tells([&] { rs.Requery(); }), 1);
    EXPECT_EQ(tells([&] { connection.Close(); }), 1);
    EXPECT_EQ(ErrorOf([&] { rs.Eof(); }), errors::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { rs.Open("SELECT 1", connection); }), errors::ConnectionClosed);
    EXPECT_EQ(ErrorOf([&] { connection.Execute("DELETE FROM Metal"); }), errors::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection.Close(); }), errors::ObjectClosed);
    handle.reset();
    database.Open(connection);
    EXPECT_EQ(tells([&] { rs.Open("SELECT * FROM Metal", connection); }), 0);
    EXPECT_EQ(ErrorOf([&] { database.Open(connection); }), errors::ObjectOpen);
}

TEST_F(Adodb, RunsManyRecordSetsAtOnce) {
    const std::string statement = "SELECT ID FROM Metal ORDER BY ID";
    for (int i = 0; i < 1000; ++i) {
        Recordset dropped;  // as the tests for a row do, without Close
        dropped.Open(statement, connection);
        EXPECT_FALSE(dropped.Eof());
    }
    auto outer = Open(statement, adOpenForwardOnly, adLockReadOnly);
    std::string seen;
    for (; !outer.Eof(); outer.MoveNext()) {
        Recordset inner;
        inner.Open(statement, connection);
        connection.Execute("UPDATE Metal SET Med = 0 WHERE ID = " + inner["ID"].Text());
        seen += outer["ID"].Text() + Rest(inner) + " ";
        // More texts than are kept, while this one runs.
        for (int i = 0; i < 300; ++i) {
            Ask("SELECT ID FROM Temp WHERE ID = " + std::to_string(i));
        }
    }
    EXPECT_EQ(seen, "11/2/3 21/2/3 31/2/3 ");
    Recordset moved = std::move(outer);
    EXPECT_TRUE(moved.Eof());
}

TEST(Value, ConvertsAsTheSystemDoes) {
    const struct {
        Value From;
        std::string Text;
        long Number, LongError;
    } cases[] = {
        {12, "12", 12, 0},
        {true, "-1", -1, 0},
        {2.5, "2.5", 0, errors::TypeMismatch},
        {-3.0, "-3", -3, 0},
        {" -12 ", " -12 ", -12, 0},
        {"+5", "+5", 5, 0},
        {"7.0", "7.0", 7, 0},
        {"2147483647", "2147483647", 2147483647, 0},
        {"2147483648", "2147483648", 0, errors::TypeMismatch},
        {9000000000LL, "9000000000", 0, errors::TypeMismatch},
        {"", "", 0, errors::TypeMismatch},
        {"12a", "12a", 0, errors::TypeMismatch},
        {"--1", "--1", 0, errors::TypeMismatch},
        {"nan", "nan", 0, errors::TypeMismatch},
        {"1e3", "1e3", 0, errors::TypeMismatch},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.From.Text(), c.Text);
        long number = 0;
        EXPECT_EQ(ErrorOf([&] { number = c.From.Long(); }), c.LongError) << c.Text;
        EXPECT_EQ(number, c.Number) << c.Text;
    }
    EXPECT_EQ(Value().Joined(), "");
    EXPECT_EQ(ErrorOf([] { Value().Text(); }), errors::InvalidNull);
    EXPECT_EQ(ErrorOf([] { Value().Bool(); }), errors::InvalidNull);
    EXPECT_TRUE(Value(1).Bool() && Value("-1").Bool() && !Value("0").Bool() && !Value(false).Bool());
}

}  // namespace
}  // namespace platform::adodb
