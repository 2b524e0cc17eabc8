// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

#include "platform/text/codepage.h"
#include "vemora-db/publisher.h"

namespace test {
namespace {

/// What was said, with one blank between columns.
std::string Said(const Outcome& outcome) {
    return std::regex_replace(outcome.Out + outcome.Err, std::regex(" +"), " ");
}

using Parts = std::vector<const char*>;

void ExpectAll(const std::string& text, const Parts& parts) {
    for (const char* const part : parts) {
        EXPECT_TRUE(Has(text, part)) << part << "\n" << text;
    }
}

std::string UpdateText(const Publisher& publisher) {
    return platform::FromWindows1252(publisher.Read("U.skv"));
}

TEST(UpdateFile, PutsEachColumnIntoItsField) {
    const Created publisher;
    std::string sql = "UPDATE Chemical SET NoteSE = 'Stark' WHERE ID = 1; UPDATE Chemical SET ";
    for (const char* const column : {"Formula", "NameEN", "NameGE", "NoteSE", "NoteEN", "NoteGE",
                                     "NickNameSE", "NickNameEN", "NickNameGE"}) {
        sql.append(column).append(" = '").append(column).append("', ");
    }
    publisher.Change("Vemora.mdb",
                     sql +
                         "NameSE = 'x' WHERE ID = 2; UPDATE relPlast SET TheValue = 'P' || PlastID WHERE "
                         "ChemID = 2; UPDATE relMetal SET TheValue = 'M' || MetalID WHERE ChemID = 2;"
                         "UPDATE relTight SET TheValue = 'T' || TightID WHERE ChemID = 2;"
                         "INSERT INTO relMetal VALUES(2, 2, 1, 8, 'M8', 0), (2, 2, 1, 5, 'M5', 0), "
                         "(2, 2, 1, 7, ' ', 0); INSERT INTO relTight SELECT 2, 2, 1, ID, 'T' || ID, 0 FROM "
                         "Tight WHERE ID > 2; INSERT INTO relPlast SELECT 2, 2, 1, ID, 'P' || ID, 0 FROM "
                         "Plast WHERE ID > 1");
    const std::string one = "1;H2SO4;Svavelsyra;Sulfuric acid;Schwefelsäure;Stark;Strong; Stark;;;\r\n";
    const std::string own = "5;;Egen lut;My lye;Meine Lauge;;;;;;\r\n";
    const std::string two =
        "2;Formula;x;NameEN;NameGE;NoteSE;NoteEN;NoteGE;NickNameSE;NickNameEN;NickNameGE\r\n"
        ";;mättad;saturated;gesättigt;;;;;;;;;20ºC;P1;P6;P4;P2;P3;P5;M8;M1;M5;;T4;T2;T3;T7;T8;T5\r\n";
    const std::string ten = ";;10 %;10 % sol.;10 % Lsg.;;;;;;;;;";
    const std::string delivered = one + ";;;;;;;;;;;;;20ºC;+;;;;;;;+;;;;+;;;;\r\n" + ten +
                                  "20ºC;+;0;0;0;0;0;0;+;0;0;0;+;0;0;0;0\r\n" +
                                  ";;;;;;;;;;;;;60ºC;;;;;;;;;;;;;;;;\r\n";
    const std::string all = one + ";;;;;;;;;;;;;20ºC;+;0;0;0;0;0;0;+;0;0;0;+;0;0;0;0\r\n" + ten +
                            "20ºC;+;0;0;0;0;0;0;+;0;0;0;+;0;0;0;0\r\n" +
                            ";;;;;;;;;;;;;60ºC;-;;;;;;;-;;;;-;;;;\r\n" + two + own + ten +
                            "80ºC;+;;;;;;;+;;;;+;;;;\r\n";
    const std::tuple<std::vector<std::string>, Status, std::string> cases[] = {
        {{}, Status::Findings, delivered + two},
        {{"--own"}, Status::Findings, all},
        {{"--no-warnings", "SVAVELSYRA"}, Status::Fine, delivered},
        {{"x", "Svavelsyra"}, Status::Findings, delivered + two},
        {{"Egen lut"}, Status::Findings, ""},
        {{"--own", "Egen lut"}, Status::Findings, own + ten + "80ºC;+;;;;;;;+;;;;+;;;;\r\n"},
        {{"x", "Saltsyra"}, Status::WrongUsage, "none"}};
    for (const auto& [more, exit, expected] : cases) {
        std::vector<std::string> arguments = {"update-file", "/Vemora.mdb", "/U.skv"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        fs::remove(publisher.Path("U.skv"));
        const Outcome outcome = publisher.Run(arguments);
        EXPECT_EQ(outcome.Exit, exit) << Said(outcome);
        const std::string text = UpdateText(publisher);
        EXPECT_EQ(exit == Status::WrongUsage ? "none" : text.substr(text.find('\n') + 1), expected);
    }
}

TEST(UpdateFile, TellsWhatItCannotCarry) {
    const struct {
        const char* Sql;
        Parts Said, Holds = {};
        const char* Not = "\t";
    } cases[] = {
        // As it is: a note of two lines, rich formulas, other materials, the user's own.
        {"UPDATE Chemical SET Med = 0",
         {"error Chemical.NoteSE 1 a line break becomes a blank: ID 1",
          "warning Chemical 1 a chemical of the user's own is left out with its verdicts: ID 5",
          "warning relMisc 7 a verdict on a material that has no field: ChemID 1,",
          "warning relMetal 4 a verdict of the user's own is left out, and blanked where its line has "
          "others: ChemID 1, ConcID -1,"},
         {"Stark, \"rykande\" vid 20 %;Strong"}},
        {"UPDATE Chemical SET Egen = 0",
         {"warning Chemical.FormulaRTF 2 a rich formula isn't carried: ID 1; ID 2"}},
        {"UPDATE relPlast SET PlastID = 9 WHERE PlastID = 6", {"warning relPlast 3 a verdict on a material"}},
        {"UPDATE Chemical SET NameEN = 'a;b', Formula = 'λ' WHERE ID = 2",
         {"error Chemical.NameEN 1 a semicolon becomes a", "error Chemical.Formula 1 what Windows-1252 has"},
         {"2;?;", ";Paraffin;a,b;"}},
        {"UPDATE Conc SET ConcentrationEN = 'x;y', ConcentrationDE = 'O''Z' WHERE ID = 1",
         {"error Conc.ConcentrationEN 1 a semicolon"},
         {"10 %;x,y;O'Z;"}},
        // An apostrophe would make the program's statement fail, for the labels alone.
        {"UPDATE Conc SET ConcentrationSE = '1''' WHERE ID = 1",
         {"error Chemical 29 verdicts are left out whose concentration has an apostrophe, a semicolon or a "
          "line break in its label: ChemID 1, ConcID 1"},
         {";mättad;"},
         "sol."},
        {"UPDATE Conc SET ConcentrationSE = 'λ' WHERE ID = 2",
         {"error Chemical 3 verdicts are left out whose concentration has a label that Windows-1252"},
         {"10 %"},
         "saturated"},
        {"UPDATE Conc SET ConcentrationSE = NULL WHERE ID = 2", {"concentration has no label"}, {}, "satur"},
        {"DELETE FROM Conc WHERE ID = 2", {"concentration isn't there: ChemID 2, ConcID 2"}, {}, "satur"},
        // The concentration is told with the first line that is left.
        {"UPDATE [Temp] SET Temp = '20;C' WHERE ID = 1",
         {"error Chemical 22 verdicts are left out whose temperature has an"},
         {"Lsg.;;;;;;;;;60ºC"},
         "20;"},
        {"UPDATE [Temp] SET Temp = '20ºc' WHERE ID = 2",
         {"temperature has the label of another: ChemID 1, TempID"},
         {"Lsg.;;;;;;;;;20ºC"},
         "20ºc"},
        {"DELETE FROM Chemical WHERE ID = 2",
         {"error relTight 1 a verdict on a chemical that isn't there is left out"},
         {},
         "mättad"}};
    const Created publisher;
    for (const auto& [sql, said, holds, lacks] : cases) {
        fs::copy_file(publisher.Path("Vemora.mdb"), publisher.Path("c.mdb"),
                      fs::copy_options::overwrite_existing);
        publisher.Change("c.mdb", sql);
        const Outcome outcome = publisher.Run({"update-file", "-f", "/c.mdb", "/U.skv"});
        EXPECT_EQ(outcome.Exit, Status::Findings);
        ExpectAll(Said(outcome), said);
        const std::string text = UpdateText(publisher);
        ExpectAll(text, holds);
        EXPECT_FALSE(Has(text, lacks)) << lacks << "\n" << text;
    }
    publisher.Write("U.skv", "old");
    const std::string bytes = publisher.Read("Vemora.mdb");
    EXPECT_EQ(publisher.Run({"update-file", "/Vemora.mdb", "/U.skv"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Run({"update-file", "-f", "/Vemora.mdb", "/U.skv", "Zink"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Run({"update-file", "-f", "/Vemora.mdb", "/Vemora.mdb"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Read("U.skv") + publisher.Read("Vemora.mdb"), "old" + bytes);
}

TEST(Diff, TellsBeforehandWhatTakingInDoes) {
    const Created publisher;
    fs::create_directory(publisher.Path("tmp"));
    ::setenv("TMPDIR", publisher.Path("tmp").c_str(), 1);
    fs::copy_file(publisher.Path("Vemora.mdb"), publisher.Path("new.mdb"));
    publisher.Change("new.mdb",
                     "INSERT INTO Chemical(ID, NameSE, NoteEN) VALUES(7, 'L''eau \x22x\x22 – €', 'a''b');"
                     "UPDATE Chemical SET NameEN = 'Acid', NoteSE = 'Stark' WHERE ID = 1;"
                     "UPDATE Conc SET ConcentrationEN = '10 per cent' WHERE ID = 1;"
                     "INSERT INTO Conc(ConcentrationSE) VALUES('ren \x22[b');"
                     "INSERT INTO [Temp](Temp) VALUES('99ºC');"
                     "INSERT INTO relTight VALUES(7, 3, 4, 8, '-', 0), (7, -1, 1, 8, '0', 0);"
                     "UPDATE relMetal SET TheValue = '-' WHERE ChemID = 2;"
                     "UPDATE relPlast SET TheValue = '0' WHERE ChemID = 1 AND ConcID = 1 AND TempID = 2;"
                     "UPDATE relMisc SET TheValue = '-'; UPDATE relPlast SET Egen = 0");
    fs::permissions(publisher.Path("Vemora.mdb"),
                    fs::perms::owner_read);  // the copy can be written all the same
    const std::string bytes = publisher.Read("Vemora.mdb");
    const Outcome between = publisher.Run({"diff", "/Vemora.mdb", "/new.mdb"});
    EXPECT_EQ(between.Exit, Status::Findings);
    ExpectAll(
        Said(between),
        {"new Chemical ID 7, \"L'eau \"x\" – €\"\n",
         "changed Chemical ID 1, \"Svavelsyra\": NameEN \"Sulfuric acid\" -> \"Acid\", NoteSE \"Stark, "
         "\"rykande\" vid 20 %\" -> \"Stark\"\n",
         "changed Conc ID 1, \"10 %\": ConcentrationEN \"10 % sol.\" -> \"10 per cent\"\n",
         "new Conc ID 3, \"ren \"[b\"\n", "new Temp ID 4, \"99ºC\"\n",
         "new relTight \"L'eau \"x\" – €\", \"ren \"[b\", \"99ºC\", \"Tight-8 sv\": \"-\"\n",
         "new relTight \"L'eau \"x\" – €\", ConcID -1, \"20ºC\", \"Tight-8 sv\": \"0\"\n",
         "changed relMetal \"Paraffin\", \"mättad\", \"20ºC\", \"Metal-1 sv\": \"0\" -> \"-\"\n",
         "changed relPlast \"Svavelsyra\", \"10 %\", \"60ºC\", \"Plast-6 sv\": \" \" -> \"0\"\n",
         // Verdicts of the user's that the file leaves out are blanked by it.
         "changed relMetal \"Svavelsyra\", ConcID -1, \"20ºC\", \"Metal-8 sv\": \"0\" -> \" \"\n",
         "Chemical 1 0 1\nConc 1 0 1\nTemp 1 0 0\nrelMetal 11 11 5\nrelPlast 17 17 6\nrelTight 17 15 6\n"
         "relMisc 0 0 0\n",
         "would count: 18\n", "update-file tells what",
         "warning relPlast 1 a row of the user's own is written"});
    EXPECT_FALSE(Has(between.Out, ": \" \"\n"));
    const Outcome blanks = publisher.Run({"diff", "/Vemora.mdb", "/new.mdb", "--blanks", "--no-warnings"});
    EXPECT_EQ(blanks.Exit, Status::Findings);
    EXPECT_TRUE(Has(blanks.Out, ": \" \"\n"));

    ASSERT_EQ(publisher.Run({"update-file", "/new.mdb", "/U.skv"}).Exit, Status::Findings);
    const Outcome ahead = publisher.Run({"diff", "/Vemora.mdb", "/U.skv"});
    EXPECT_EQ(platform::Replace(between.Out,
                                "The newer database holds what an update file can't carry; update-file tells "
                                "what.\n",
                                ""),
              ahead.Out);
    EXPECT_EQ(publisher.Read("Vemora.mdb"), bytes);
    fs::permissions(publisher.Path("Vemora.mdb"), fs::perms::owner_all);
    EXPECT_TRUE(fs::is_empty(publisher.Path("tmp")));
    ::unsetenv("TMPDIR");
}

TEST(Diff, MakesFindingsOfWhatTheProgramWouldReport) {
    const Created publisher;
    const std::string line = ";;;;;;;;;;;;;20ºC;\r\n";
    const std::pair<std::string, Parts> cases[] = {
        {"2;C10;Paraffin\r\n2;C10–C13;Paraffin;Paraffins;Paraffine;;;;Vax;Wax;Wachs\r\n",
         {"error update 1 Reading a line", "3 fields, and no field 3.: \"Paraffin\"", "count: 0\n"}},
        {"2;C10–C13;Paraffin;Paraffins;Paraffine;;;;Vax;Wax;Wachs\r\n;;l'x;;;;;;;;;;;20ºC\r\n",
         {"error update 1 Reading the statement failed: a quotation mark", "relTight 6 6 0"}},
        {"9;;Ny;;;;;;;;\r\n9;x\r\n8;;Till;;;;;;;;\r\n",
         {"error update 1 the reading ends: ", "behind \"Ny\"", "Chemical 1 0 0", "count: 0\n"}},
        {"5;;Salpetersyra;;;;;;;;\r\n",
         {"Chemical 0 0 1",
          "warning Chemical 1 a row of the user's own is written over: ID 5, \"Egen lut\""}}};
    for (const auto& [text, said] : cases) {
        publisher.Write("U.SKV", platform::ToWindows1252("heading\r\n" + text));
        const Outcome outcome = publisher.Run({"diff", "/Vemora.mdb", "/U.SKV"});
        EXPECT_EQ(outcome.Exit, Status::Findings);
        ExpectAll(Said(outcome), said);
    }
    publisher.Write("broken.mdb", "no database");
    for (const char* const newer : {"missing.skv", "missing.mdb", "broken.mdb"}) {
        const Outcome outcome = publisher.Run({"diff", "/Vemora.mdb", std::string("/") + newer});
        EXPECT_EQ(outcome.Exit, Status::Failed);
        EXPECT_TRUE(Has(outcome.Err, newer)) << outcome.Err;
    }
    publisher.Write("Vemora.mdb-wal", "x");
    EXPECT_EQ(publisher.Run({"diff", "/Vemora.mdb", "/U.SKV"}).Exit, Status::WrongUsage);
}

/// A new database in which the same names have other IDs, and an old one in which the user has been at work.
struct Delivery : Created {
    Delivery() {
        fs::copy_file(Path("Vemora.mdb"), Path("old.mdb"));
        Change(
            "old.mdb",
            "UPDATE Chemical SET NoteSE = 'min' WHERE ID = 5;"
            "INSERT INTO Chemical(ID, NameSE, NameEN, Egen) VALUES(8, 'PARAFFIN', NULL, -1), (9, NULL, NULL, "
            "-1), (10, NULL, 'b', -1);"
            "INSERT INTO Conc(ID, ConcentrationSE, ConcentrationEN, Egen, Med) VALUES(7, 'min', 'my', -1, 0);"
            "INSERT INTO Metal(ID, Name, Description, Egen) VALUES(20, 'Min legering', 'egen', -1);"
            "UPDATE Tight SET Med = 0 WHERE ID IN (4, 5); UPDATE Conc SET Med = -1 WHERE ID = 2;"
            "UPDATE relMisc SET Egen = 0; UPDATE relPlast SET Egen = 0; UPDATE relTight SET Egen = 0;"
            "UPDATE relMetal SET Egen = (ChemID <> 2) - 1;"
            "INSERT INTO relMetal VALUES(5, 7, 3, 20, '-', -1), (1, 2, 2, 8, '0', -1), (8, 1, 1, 1, '+', -1),"
            "(77, 1, 1, 1, '+', -1);"
            "UPDATE relMetal SET Egen = -1, TheValue = CASE MetalID WHEN 5 THEN '0' ELSE '-' END WHERE "
            "ChemID = 1 AND ConcID = -1; INSERT INTO [Temp](Temp, Egen) VALUES('80ºc', -1);"
            "UPDATE relTight SET Egen = -1 WHERE ChemID = 2;"
            "INSERT INTO relTight VALUES(2, 2, 1, 4, '+', -1), (2, 2, 1, 5, '+', -1)");
        Change(
            "Vemora.mdb",
            "DELETE FROM Chemical WHERE ID = 5; INSERT INTO Chemical(ID, NameSE) VALUES(8, 'Ny');"
            "UPDATE Conc SET ID = ID + 10; INSERT INTO Conc(ID, ConcentrationSE) VALUES(20, 'MÄTTAD'); "
            "UPDATE [Temp] SET Temp = 'x' WHERE ID = 3;"
            "UPDATE Metal SET ID = 12 WHERE ID = 8; DELETE FROM Tight WHERE ID = 4;"
            "UPDATE relMetal SET Egen = 0; DELETE FROM relTight; DELETE FROM relMisc; DELETE FROM relPlast;"
            "INSERT INTO relTight VALUES(2, 12, 1, 2, '0', 0), (2, 12, 1, 5, '-', -1)");
    }
};

TEST(Merge, BringsTheUsersRowsVerdictsAndChoices) {
    const Delivery publisher;
    const std::string old = publisher.Read("old.mdb");
    const Outcome outcome = publisher.Run({"merge", "/Vemora.mdb", "/old.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Findings) << outcome.Err;
    const std::string rows = publisher.Rows("Vemora.mdb");
    ExpectAll(rows, {"Chemical|'9'|Null|'{\\rtf1",
                     "'Egen lut'|'My lye'|'Meine Lauge'|''|Null|Null|'min'|Null|Null|'-1'|'-1'",
                     "Chemical|'8'|Null|Null|'Ny'",
                     "Chemical|'10'|Null|Null|Null|Null|",
                     "Chemical|'11'|Null|Null|Null|'b'|",
                     "Conc|'21'|'min'|'my'|Null|'-1'|'0'",
                     "Conc|'12'|'mättad'|'saturated'|'gesättigt'|'0'|'-1'",
                     "Temp|'4'|'80ºC'|'-1'|'-1'",
                     "Metal|'13'|'Min legering'|'egen'|Null|Null|'-1'|'-1'",
                     "Tight|'5'|'Tight-5 sv'|Null|'English Tight-5'|Null|'0'|'0'|",
                     "relMetal|'9'|'21'|'4'|'13'|'-'|'-1'",
                     "relMetal|'1'|'12'|'2'|'12'|'0'|'-1'",
                     "relMetal|'2'|'11'|'1'|'1'|'+'|'-1'",
                     "relMetal|'1'|'-1'|'1'|'1'|'-'|'-1'",
                     "relMetal|'1'|'-1'|'1'|'5'|'0'|'-1'",
                     "relMetal|'1'|'-1'|'1'|'8'|'0'|'0'",
                     "relMetal|'2'|'12'|'1'|'1'|'0'|'-1'",
                     "relMetal|'1'|'-1'|'1'|'12'|'-'|'-1'",
                     "relTight|'2'|'12'|'1'|'2'|'0'|'-1'",
                     "relTight|'2'|'12'|'1'|'5'|'-'|'-1'"});
    EXPECT_FALSE(Has(rows, "PARAFFIN"));
    ExpectAll(
        Said(outcome),
        {"Chemical 4 3 1 0\nConc 1 1 0 1\nTemp 2 1 1 0\nMetal 1 1 0 0\nPlast 0 0 0 0\nTight 0 0 0 1\n",
         "error Chemical 1 a row of the user's isn't carried: one of the name has other texts: \"PARAFFIN\"",
         "warning Chemical 1 two rows of one name become one: \"PARAFFIN\"",
         "error Tight 1 a choice isn't carried: there is no row of the name: \"Tight-4 sv\"",
         "error relMetal 1 a verdict isn't carried: not all that it is about is there: Chemical 77, ",
         "error relTight 1 a verdict isn't carried: not all that it is about is there: \"Paraffin\", ",
         "error relTight 1 a verdict isn't carried: there is another one of the user's: \"Paraffin\", ",
         "\"mättad\", \"20ºC\", \"Tight-5 sv\": \"-\" -> \"+\"",
         "warning relMetal 2 a verdict of the user's replaces a delivered one: \"Svavelsyra\", no conc",
         "\"20ºC\", \"Metal-1 sv\": \"+\" -> \"-\""});
    EXPECT_EQ(publisher.Read("old.mdb"), old);
    EXPECT_EQ(publisher.Files(), (std::set<std::string>{"Vemora.mdb", "data", "old.mdb"}));
    // A second time there is nothing left to bring.
    publisher.Run({"merge", "/Vemora.mdb", "/old.mdb"});
    EXPECT_EQ(publisher.Rows("Vemora.mdb"), rows);
}

TEST(Merge, ChangesNothingWhenItFails) {
    const Delivery publisher;
    publisher.Change("Vemora.mdb",
                     "CREATE TRIGGER Stop BEFORE UPDATE ON relTight BEGIN SELECT RAISE(ABORT, 'stop'); END");
    publisher.Write("broken.mdb", "no database");
    const std::string bytes = publisher.Read("Vemora.mdb");
    const std::tuple<const char*, Status, const char*> cases[] = {
        {"/old.mdb", Status::Failed, "Vemora.mdb: "},
        {"/missing.mdb", Status::Failed, "missing.mdb"},
        {"/broken.mdb", Status::Failed, "broken.mdb: "},
        {"/Vemora.mdb", Status::WrongUsage, "the same file"}};
    for (const auto& [from, exit, said] : cases) {
        const Outcome outcome = publisher.Run({"merge", "/Vemora.mdb", from});
        EXPECT_EQ(outcome.Exit, exit) << from;
        EXPECT_TRUE(Has(outcome.Err, said)) << outcome.Err;
        EXPECT_EQ(publisher.Read("Vemora.mdb"), bytes) << from;
    }
    // What finds a place without any clash is all well.
    publisher.Change("Vemora.mdb", "DROP TRIGGER Stop");
    publisher.Change("old.mdb",
                     "DELETE FROM [Temp] WHERE ID = 4; DELETE FROM Chemical WHERE ID = 8; UPDATE Tight SET "
                     "Med = -1 WHERE ID = 4;"
                     "DELETE FROM relTight; DELETE FROM relMetal WHERE ChemID IN (1, 8, 77)");
    const Outcome outcome = publisher.Run({"merge", "/Vemora.mdb", "/old.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Fine) << outcome.Out;
}

}  // namespace
}  // namespace test
