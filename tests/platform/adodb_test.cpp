// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/adodb/adodb.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "platform/test_database.h"

namespace platform::adodb {
namespace {

using test::ErrorOf;
using test::Rest;

class Adodb : public testing::Test {
  protected:
    Adodb() {
        database.Fill(
            "INSERT INTO Metal(ID, Name, Description, NameEN, DescriptionEN, Egen) VALUES"
            "(1, 'Zink', 'Zn', 'Zinc', 'Zn', 0), (2, 'Ärgat järn', NULL, 'Rusted iron', NULL, -1),"
            "(3, 'bly', 'Pb', 'lead', 'Pb', 0);"
            "INSERT INTO Chemical(ID, Formula) VALUES(345, 'HCl'), (346, 'H2SO4');"
            "INSERT INTO Conc(ID, ConcentrationSE) VALUES(12, '10 %'), (13, 'koncentrerad');"
            "INSERT INTO Temp(ID, Temp, Med) VALUES(6, '20ºC', -1), (7, '60ºC', 0);"
            "INSERT INTO relMetal VALUES(345, 12, 6, 1, '+', 0), (345, 12, 6, 2, ' ', -1),"
            "(345, -1, 7, 3, '-', 0);");
        database.Open(connection);
    }

    std::string Ask(const std::string& statement) { return test::Ask(connection, statement); }
    std::string Count() { return Ask("SELECT Count(*) AS n FROM Metal"); }
    Recordset Open(const std::string& statement, int cursor = adOpenStatic, int lock = adLockOptimistic) {
        Recordset rs;
        rs.Open(statement, connection, cursor, lock);
        return rs;
    }

    /// Rules, each ended by ";": what is done with a set of Al, Pb and Zn, "->", the failures, where the set
    /// then stands ("~" is Null), and the names in the table if they changed.
    void Holds(const std::string& rules, int cursor = adOpenStatic, int lock = adLockOptimistic) {
        using Call = void (Recordset::*)();
        static const std::map<std::string, Call> calls = {
            {"first", &Recordset::MoveFirst},   {"next", &Recordset::MoveNext},
            {"last", &Recordset::MoveLast},     {"prev", &Recordset::MovePrevious},
            {"add", &Recordset::AddNew},        {"update", &Recordset::Update},
            {"drop", &Recordset::CancelUpdate}, {"cancel", &Recordset::Cancel},
            {"delete", &Recordset::Delete},     {"requery", &Recordset::Requery},
            {"close", &Recordset::Close}};
        std::istringstream lines(rules);
        for (std::string rule; std::getline(lines, rule, ';');) {
            connection.Execute("DELETE FROM Metal");
            connection.Execute("INSERT INTO Metal(ID, Name) VALUES(1, 'Al'), (2, 'Pb'), (3, 'Zn')");
            auto rs = Open("SELECT ID, Name FROM Metal ORDER BY ID", cursor, lock);
            std::string result = "->";
            const auto step = [&](const std::function<void()>& action) {
                const long failed = ErrorOf(action);
                result += failed == 0 ? "" : " " + std::to_string(failed);
            };
            std::istringstream words(rule);
            for (std::string word; words >> word && word != "->";) {
                step([&] {
                    if (word == "gone") {
                        connection.Execute("DELETE FROM Metal WHERE ID = 1");
                    } else if (word[0] == '=') {
                        rs["Name"] = word.substr(1);
                    } else if (word[0] <= '9') {
                        rs.Find("ID = " + word);
                    } else {
                        (rs.*calls.at(word))();
                    }
                });
            }
            if (!rs.IsOpen() || rs.Eof() || rs.Bof()) {
                result += !rs.IsOpen() ? " closed" : !rs.Bof() ? " end" : !rs.Eof() ? " begin" : " empty";
            } else {
                step([&] { result += " " + (rs["Name"].IsNull() ? "~" : rs["Name"].Text()); });
            }
            const auto names = Ask("SELECT Name FROM Metal");
            result += names == "Al/Pb/Zn" ? "" : " " + names;
            EXPECT_EQ(result, rule.substr(rule.find("->"))) << rule;
        }
    }

    test::TestDatabase database;
    Connection connection;
};

TEST_F(Adodb, RunsTheSystemsStatements) {
    const std::string joined =
        "SELECT 'me' & Metal.ID AS IDFält, Metal.Name, TheValue, Metal.Description + ' x' AS Description, "
        "relMetal.Egen AS RelEgen FROM Metal INNER JOIN (Chemical INNER JOIN relMetal ON Chemical.ID = "
        "relMetal.ChemID) ON Metal.ID = relMetal.MetalID Where relMetal.ChemID = 345 AND TheValue IN "
        "('+', ' ') AND relMetal.ConcID = 12 AND relMetal.TempID IN (6) AND Metal.ID IN (1, 2)";
    const std::pair<std::string, std::string> cases[] = {
        {joined, "me1|Zink|+|Zn x|0/me2|Ärgat järn| |~|-1"},
        {"SELECT ID, NameEN AS [Name] FROM Metal Order by Name", "3|lead/2|Rusted iron/1|Zinc"},
        {"SELECT Name from Metal Order by Name", "bly/Zink/Ärgat järn"},
        {"SELECT ID FROM Metal WHERE Name LIKE '%äRg%' OR Name = 'BLY'", "2/3"},
        {"SELECT ID FROM Metal WHERE Name IN ('argat jarn', 'ZINK')", "1"},
        {"SELECT ID FROM Temp WHERE Temp = '20oC' OR Temp IN ('20oc', '60ºc')", "7"},
        {"SELECT ID FROM Conc WHERE Med = -1 AND ID IN( SELECT ConcID FROM relMetal WHERE ChemID = 345) OR "
         "ID IN( SELECT ConcID FROM relMisc WHERE ChemID = 345) Order by ConcentrationSE",
         "12"}};
    for (const auto& [statement, rows] : cases) {
        EXPECT_EQ(Ask(statement), rows) << statement;
    }
    auto rs = Open(joined);
    EXPECT_EQ(rs["idFÄLT"].Text(), "me1");
    EXPECT_EQ(rs.FieldNames()[4], "RelEgen");

    connection.Execute("UPDATE relMetal SET TheValue = '0', Egen = -1 WHERE ConcID = 12 AND MetalID = 1");
    connection.Execute(
        "INSERT INTO relMetal (ChemID, ConcID, TempID, MetalID, TheValue) VALUES(1, 2, 3, 4, '+')");
    connection.Execute("DELETE FROM relMetal WHERE MetalID = 2");
    // A change is in the file when its statement returns, and the file's name is one in any case.
    connection.Close();
    std::filesystem::rename(database.File(), database.Folder() / "VEMORA.MDB");
    database.Open(connection);
    EXPECT_EQ(Ask("SELECT MetalID, TheValue, Egen FROM relMetal ORDER BY MetalID"), "1|0|-1/3|-|0/4|+|0");
}

TEST_F(Adodb, TellsWhatIsWrongWithAStatement) {
    const std::pair<const char*, long> cases[] = {
        {"", errors::BadStatement},
        {"SELECT * FROM Nothing", errors::NoSuchTable},
        {"SELECT Nothing FROM Metal", errors::NoSuchColumn},
        {"INSERT INTO Metal (Nothing) VALUES(1)", errors::NoSuchColumn},
        {"INSERT INTO Metal (ID) VALUES(1)", errors::StoreFailed},
        {"INSERT INTO relMetal (ChemID, ConcID, TempID) VALUES(345, 12, 6)", errors::RequiredField},
        {"INSERT INTO Metal (ID) VALUES('x')", errors::TypeMismatch},
        {"SELECT name FROM sqlite_master", errors::BadStatement},
        {"DELETE FROM sqlite_master", errors::BadStatement},
        {"SELECT load_extension('x') FROM Metal", errors::BadStatement}};
    for (const auto& [statement, number] : cases) {
        EXPECT_EQ(ErrorOf([&, &text = statement] { connection.Execute(text); }), number) << statement;
    }
    EXPECT_EQ(ErrorOf([&] { Open("DELETE FROM Metal"); }), errors::BadStatement);
    EXPECT_EQ(Count(), "3");
}

TEST_F(Adodb, MovesAndFinds) {
    for (const auto& [cursor, lock] : {std::pair(0, 1), {3, 1}, {0, 3}, {3, 3}, {2, 3}}) {
        Holds(
            "-> Al;next -> Pb;next next next -> end;next next next next -> 3021 end;2 -> Pb;next 2 -> Pb;"
            "next 1 -> end;next next next 1 -> 3021 end;next first -> Al;first next -> Pb;"
            "next next next first -> Al;next next requery -> Al;close close -> 3704 closed;"
            "close 1 -> 3704 closed;",
            cursor, lock);
        const bool stream = cursor == 0 && lock == 1;
        Holds(stream ? "next last prev -> 3219 3219 Pb;"
                     : "last -> Zn;last prev -> Pb;prev -> begin;prev prev -> 3021 begin;prev next -> Al;"
                       "next next next prev -> Zn;",
              cursor, lock);
    }
    auto rs = Open("SELECT ID FROM Metal");
    EXPECT_EQ(ErrorOf([&] { rs.Find("Name = 'bly'"); }), errors::BadArgument);
    EXPECT_EQ(ErrorOf([&] { rs.Find("Number = 1"); }), errors::NoSuchField);
    EXPECT_EQ(ErrorOf([&] { rs.Open("SELECT 1", connection); }), errors::ObjectOpen);
}

TEST_F(Adodb, KeepsDropsOrSavesAPendingRow) {
    Holds(
        "=X -> X;=X update -> X X/Pb/Zn;=X drop -> Al;=X next -> Pb X/Pb/Zn;=X close -> 3219 X;"
        "=X requery -> 3219 X;next =X add -> ~ Al/X/Zn;=X delete next -> Pb Pb/Zn;");
    Holds(
        "add -> ~;next add drop -> Pb;next add cancel -> ~;add cancel first -> Al;add next -> Pb;"
        "add last -> Zn;add 2 -> Pb;add cancel close -> closed;add requery -> Al;add delete -> Al;"
        "last next add -> ~;prev add -> ~;add =X -> X;add =X drop -> Al;add =X close -> 3219 X;"
        "add =X cancel first -> Al Al/Pb/Zn/X;add =X update -> X Al/Pb/Zn/X;"
        "add =X update update prev -> Zn Al/Pb/Zn/X;add =X update =Y next -> end Al/Pb/Zn/Y;");
    Holds(
        "next delete -> 3021 Al/Zn;next delete delete -> 3021 3021 Al/Zn;next delete next -> Zn Al/Zn;"
        "next delete prev -> Al Al/Zn;next delete first -> Al Al/Zn;next delete last -> Zn Al/Zn;"
        "next delete 3 -> 3021 3021 Al/Zn;next delete requery -> Al Al/Zn;last delete next -> end Al/Pb;"
        "delete next delete next delete first -> 3021 empty ;delete next delete next delete add -> ~ ;"
        "delete next delete next delete requery add -> ~ ;");
    // Only a row that is no longer in its table can never be saved.
    Holds(
        "gone =X update -> -2147467259 3021 Pb/Zn;gone =X next next -> -2147467259 Pb Pb/Zn;"
        "gone =X update close -> -2147467259 closed Pb/Zn;");
}

TEST_F(Adodb, WritesThroughTheOriginOfAColumn) {
    auto rs = Open("SELECT ID, NameEN AS Name, DescriptionEN AS Description, Egen FROM Metal Order by Name");
    rs.Find("ID = 2");
    rs["Name"] = "Iron, rusted";
    rs["Egen"] = true;
    EXPECT_EQ(rs["Name"].Text(), "Iron, rusted");
    EXPECT_EQ(Ask("SELECT NameEN FROM Metal WHERE ID = 2"), "Rusted iron");
    rs.Update();
    EXPECT_EQ(Ask("SELECT Name, NameEN, Egen FROM Metal WHERE ID = 2"), "Ärgat järn|Iron, rusted|-1");
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
    EXPECT_EQ(Ask("SELECT TempID, MetalID, TheValue FROM relMetal ORDER BY MetalID"), "7|1|-/6|2| /7|3|-");
    key["TempID"] = 6;
    key["MetalID"] = 2;
    EXPECT_EQ(ErrorOf([&] { key.Update(); }), errors::StoreFailed);  // there is such a row
    EXPECT_EQ(key["TempID"].Long(), 7);                              // forgotten

    auto computed = Open("SELECT Name, Name & 'x' AS y FROM Metal");
    EXPECT_EQ(ErrorOf([&] { computed["y"] = "z"; }), errors::NotSupported);
    computed["Name"] = "z";
    EXPECT_EQ(ErrorOf([&] { computed.Update(); }), errors::NotSupported);  // for want of a key
    auto reading = Open("SELECT * FROM Metal", adOpenStatic, adLockReadOnly);
    EXPECT_EQ(ErrorOf([&] { reading["Name"] = "z"; }), errors::NotSupported);
    EXPECT_EQ(ErrorOf([&] { reading.AddNew(); }), errors::NotSupported);
    EXPECT_EQ(ErrorOf([&] { reading.Delete(); }), errors::NotSupported);
}

TEST_F(Adodb, GivesANewRowItsKeyAndDefaults) {
    // The verdicts of a deleted material stay behind: they must not turn up under the next one.
    for (const int wanted : {4, 5}) {
        auto rs = Open("SELECT * FROM Metal");
        rs.AddNew();
        rs["Name"] = "Guld";
        rs["Egen"] = -1;
        rs.Update();
        EXPECT_EQ(rs["ID"].Long(), wanted);
        EXPECT_EQ(rs["Med"].Long(), -1);
        EXPECT_EQ(Ask("SELECT Name, Egen, Med FROM Metal WHERE ID > 3"), "Guld|-1|-1");
        rs.Delete();
    }
    auto chemical = Open("SELECT * FROM Chemical Where ID = 900", adOpenDynamic);
    chemical.AddNew();
    chemical["ID"] = "900";  // as the text of a file
    chemical["NameSE"] = "";
    const std::string text = std::string(100'000, 'x') + "\r\n\t\x01\x7F Ω☃😀\u0081 ";
    chemical["NoteSE"] = text;
    chemical.Update();
    EXPECT_EQ(chemical["ID"].Long(), 900);
    EXPECT_EQ(Ask("SELECT ID, NameSE, NameEN, NoteSE FROM Chemical WHERE ID = 900"), "900||~|" + text);
    auto relation = Open("SELECT * FROM relMetal WHERE ChemID = 1");
    relation.AddNew();
    relation["ChemID"] = 1;
    EXPECT_EQ(ErrorOf([&] { relation.Update(); }), errors::RequiredField);
}

#ifndef _WIN32
// A move keeps what the disk has no room for; Update forgets it, so that nothing is held up, but a new row
// stays pending.
TEST_F(Adodb, GoesOnWhenTheDiskHasNoRoom) {
    auto rs = Open("SELECT * FROM Metal ORDER BY ID");
    for (const int rows : {3, 4}) {
        rs["Name"] = "Tenn";
        {
            const test::FullDisk full;
            EXPECT_EQ(ErrorOf([&] { rs.MoveNext(); }), errors::DiskNotReady);
            EXPECT_EQ(rs["Name"].Text(), "Tenn");
            EXPECT_EQ(ErrorOf([&] { rs.Update(); }), errors::DiskNotReady);
        }
        EXPECT_EQ(rs["Name"].Joined(), rows == 3 ? "Zink" : "");
        rs["Name"] = "Tenn";
        EXPECT_EQ(Ask("SELECT Name FROM Metal"), rows == 3 ? "Zink/Ärgat järn/bly" : "Tenn/Ärgat järn/bly");
        rs.Update();
        EXPECT_EQ(Count(), std::to_string(rows));
        rs.AddNew();
    }
}
#endif

TEST_F(Adodb, LetsTheJournalBeFoldedBack) {
    const auto journal = database.File() += "-wal";
    Open("SELECT * FROM Chemical WHERE ID = 345", adOpenForwardOnly, adLockReadOnly).Close();
    auto sheet = Open("SELECT ID FROM Chemical ORDER BY ID", adOpenForwardOnly, adLockReadOnly);
    sheet.MoveNext();
    // As many pages as 3,000 changes of a verdict write.
    const std::string note(40'000, 'x');
    std::uintmax_t longest = 0;
    for (int i = 0; i < 300; ++i) {
        connection.Execute("UPDATE Chemical SET NoteSE = '" + note + std::to_string(i) + "' WHERE ID = 346");
        EXPECT_EQ(Count(), "3");
        longest = std::max(longest, std::filesystem::file_size(journal));
    }
    EXPECT_LT(longest, 5'000'000u);
    EXPECT_EQ(sheet["ID"].Long(), 346);  // its last row
}

TEST_F(Adodb, TellsItsObserversOnce) {
    Recordset rs;
    int told = 0;
    auto handle = rs.Subscribe([&] { ++told; });
    const std::function<void()> changes[] = {[&] { rs.Open("SELECT * FROM Metal", connection, 3, 3); },
                                             [&] { rs.MoveNext(); },
                                             [&] { rs.Find("ID = 3"); },
                                             [&] { rs.AddNew(); },
                                             [&] { rs.Requery(); },
                                             [&] { connection.Close(); }};
    for (const auto& change : changes) {
        told = 0;
        change();
        EXPECT_EQ(told, 1);
    }
    EXPECT_EQ(ErrorOf([&] { rs.Eof(); }), errors::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { rs.Open("SELECT 1", connection); }), errors::ConnectionClosed);
    EXPECT_EQ(ErrorOf([&] { connection.Execute("DELETE FROM Metal"); }), errors::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection.Close(); }), errors::ObjectClosed);
    handle.reset();
    database.Open(connection);
    rs.Open("SELECT * FROM Metal", connection);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(ErrorOf([&] { database.Open(connection); }), errors::ObjectOpen);
}

TEST(Value, ConvertsAsTheSystemDoes) {
    EXPECT_EQ(Value(" -12 ").Long() * 100 + Value("+5").Long() * 10 + Value("7.0").Long(), -1143);
    EXPECT_EQ(Value("2147483647").Long(), 2147483647);
    EXPECT_EQ(
        Value(12).Text() + Value(true).Text() + Value(-3.0).Text() + Value(2.5).Text() + Value().Joined(),
        "12-1-32.5");
    EXPECT_EQ(Value(-3.0).Long() * Value(true).Long(), 3);
    for (const Value& value : {Value(2.5), Value(9000000000LL), Value("2147483648"), Value(""), Value("12a"),
                               Value("--1"), Value("nan"), Value("1e3")}) {
        EXPECT_EQ(ErrorOf([&] { value.Long(); }), errors::TypeMismatch) << value.Text();
    }
    EXPECT_EQ(ErrorOf([] { Value().Text(); }), errors::InvalidNull);
    EXPECT_EQ(ErrorOf([] { Value().Bool(); }), errors::InvalidNull);
    EXPECT_TRUE(Value(1).Bool() && Value("-1").Bool() && !Value("0").Bool() && !Value(false).Bool());
}

}  // namespace
}  // namespace platform::adodb
