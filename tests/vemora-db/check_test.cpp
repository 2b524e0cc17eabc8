// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <regex>
#include <sstream>

#include "vemora-db/check_parts.h"
#include "vemora-db/publisher.h"

namespace fs = std::filesystem;
using test::Outcome;
using test::Publisher;
using test::Status;

namespace {

TEST(Check, FindsNothingInSoundDataAndWritesNothing) {
    const Publisher publisher;
    publisher.Create();
    const std::string bytes = publisher.Read("Vemora.mdb");
    const Outcome outcome = publisher.Run({"check", "/Vemora.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Fine);
    EXPECT_EQ(outcome.Out, "Kinds of errors: 0, of warnings: 0\n");
    EXPECT_EQ(publisher.Read("Vemora.mdb"), bytes);
    EXPECT_EQ(publisher.Files(), (std::vector<std::string>{"Vemora.mdb", "data"}));
}

TEST(Check, TellsWhatIsWrongWithTheRows) {
    struct Case {
        const char* Sql;
        const char* Said;  // severity, where, count, what; one blank between them
    };
    const std::vector<Case> cases = {
        {"UPDATE relMetal SET TheValue = 'x' WHERE ChemID = 2",
         "error relMetal.TheValue 1 a verdict must be +, -, 0 or a blank: \"x\" at ChemID 2, ConcID 2, "
         "TempID 1"},
        {"UPDATE relMetal SET TheValue = NULL WHERE ChemID = 5",
         "error relMetal.TheValue 1 a verdict must be"},
        {"UPDATE relMisc SET Egen = 1 WHERE ChemID = 5", "error relMisc.Egen 1 the value must be -1 (true)"},
        {"UPDATE Conc SET Med = 1", "error Conc.Med 2 the value must be -1 (true) or 0 (false): ID 1; ID 2"},
        {"INSERT INTO Chemical(ID, NameSE, NameEN, NameGE) VALUES(0, 'a', 'b', 'c')",
         "error Chemical 1 an ID must be 1 or above: ID 0"},
        {"UPDATE [Temp] SET [Temp] = '20°C' WHERE ID = 1",
         "error Temp.Temp 1 a temperature must end in ºC: ID 1"},
        {"INSERT INTO Source VALUES('relWood', 1, 1, 1, 'S')",
         "error Source 1 a source of no relation table: relWood"},
        {"UPDATE MaterialKey SET [Key] = 'Metal-1' WHERE ID = 5 AND Class = 'Metal'",
         "error MaterialKey 1 the key can't head a column or is there twice: Metal 5 \"Metal-1\""},
        {"DELETE FROM Chemical WHERE ID = 1",
         "warning relPlast.ChemID 18 a verdict refers to a row that isn't there: ID 1"},
        {"DELETE FROM Conc WHERE ID = 1",
         "warning relMetal.ConcID 9 a verdict refers to a row that isn't there: ID 1"},
        {"DELETE FROM [Temp] WHERE ID = 3",
         "warning relMisc.TempID 1 a verdict refers to a row that isn't there: ID 3"},
        {"DELETE FROM Tight WHERE ID = 4",
         "warning relTight.TightID 3 a verdict refers to a row that isn't there: ID 4"},
        {"DELETE FROM Tight WHERE ID = 4",
         "warning Tight 1 a material that the update import fills is missing: ID 4"},
        {"DELETE FROM Tight WHERE ID = 4",
         "warning MaterialKey 1 the key of a material that isn't there: Tight 4"},
        {"DELETE FROM relMetal WHERE ChemID = 1",
         "warning Source 3 a source without a verdict: relMetal, ChemID 1, "},
        {"DELETE FROM relPlast WHERE PlastID = 6", "warning Plast 1 a material without a verdict: ID 6"},
        {"INSERT INTO Chemical(ID, NameSE, NameEN, NameGE) VALUES(9, 'a', 'b', 'c')",
         "warning Chemical 1 a chemical without a verdict: ID 9"},
        // The same to the reader: case, and a letter written in two ways.
        {"UPDATE Chemical SET NameSE = 'SVAVELSYRA' WHERE ID = 5",
         "warning Chemical.NameSE 1 the name is there twice: \"SVAVELSYRA\" (ID 1, ID 5)"},
        {"UPDATE Chemical SET NameGE = 'SCHWEFELSA\xCC\x88URE' WHERE ID = 5",
         "warning Chemical.NameGE 1 the name is there"},
        {"UPDATE Conc SET ConcentrationSE = 'MÄTTAD' WHERE ID = 1",
         "warning Conc.ConcentrationSE 1 the name is there"},
        {"UPDATE Plast SET Name = 'METAL-5 sv' WHERE ID = 2",
         "warning materials 1 the name is there in two classes: \"METAL-5 sv\" (Metal 5, Plast 2)"},
        {"UPDATE Chemical SET NameEN = ''",
         "warning Chemical.NameEN 3 the text is missing: ID 1; ID 2; ID 5"},
        {"UPDATE Chemical SET NoteEN = NULL",
         "warning Chemical.NoteEN 1 the text is missing in this language alone: ID 1"},
        {"UPDATE Tight SET NameDE = NULL",
         "warning Tight.NameDE 6 the text is missing: ID 2; ID 3; ID 4; ..."},
        {"UPDATE Chemical SET Formula = 'Fe4[Fe(CN)6)3' WHERE ID = 2",
         "warning Chemical.Formula 1 the brackets are not in pairs: ID 2"},
        {"UPDATE Chemical SET Formula = 'H2So4' WHERE ID = 1",
         "warning Chemical.Formula 1 the formula can't be read: ID 1"},
        {"UPDATE Chemical SET NameSE = x'41' WHERE ID = 1",
         "error Chemical.NameSE 1 the value is no text: ID 1"},
        {"UPDATE Chemical SET NoteEN = CAST(x'C3' AS TEXT) WHERE ID = 1",
         "error Chemical.NoteEN 1 the value is no text: ID 1"},
        {"UPDATE relPlast SET ChemID = 'a' WHERE ChemID = 5",
         "error relPlast.ChemID 1 an ID must be a whole number: \"a\""},
        {"UPDATE Source SET TempID = 'b' WHERE RelTable = 'relMisc' AND ChemID = 2",
         "error Source.TempID 1 an ID must be a whole number: \"b\""},
        {"UPDATE MaterialKey SET ID = 1.5 WHERE [Key] = 'Misc-2'",
         "error MaterialKey.ID 1 an ID must be a whole number: \"1.5\""},
        {"UPDATE MaterialKey SET [Key] = x'41' WHERE [Key] = 'Misc-2'",
         "error MaterialKey.Key 1 the value is no text"},
        {"UPDATE Source SET Source = 'S' || char(0) WHERE RelTable = 'relMisc' AND ChemID = 2",
         "error Source.Source 1 the value is no text: relMisc, ChemID 2, ConcID 2, TempID 1"},
        {"UPDATE relMisc SET TheValue = x'2B' WHERE ChemID = 5",
         "error relMisc.TheValue 1 a verdict must be +, -, 0 or a blank: \"+\""},
        {"UPDATE relMisc SET Egen = 'no' WHERE ChemID = 5",
         "error relMisc.Egen 1 the value must be -1 (true)"},
        // The user's own need none: chemical 5 isn't told.
        {"DELETE FROM Source WHERE RelTable = 'relMisc'",
         "warning relMisc 4 verdicts without a source: ChemID 1, ConcID -1, TempID 1; ChemID 1, ConcID 1, "
         "TempID 1; "},
        {"UPDATE Source SET Source = ' ' WHERE RelTable = 'relTight' AND ChemID = 2",
         "warning relTight 1 verdicts without a source: ChemID 2, ConcID 2, TempID 1"},
        {"UPDATE relMetal SET TheValue = '+' WHERE ConcID = 1 AND TempID = 2 AND MetalID = 7",
         "warning relMetal 1 a verdict gets better as the temperature rises: ChemID 1, ConcID 1, MetalID 7"},
        // By the number of the label, not by the ID.
        {"UPDATE [Temp] SET [Temp] = '-10,5 ºC' WHERE ID = 2",
         "warning relMetal 1 a verdict gets better as the temperature rises: ChemID 1, ConcID 1, MetalID 1"},
    };
    const Publisher publisher;
    publisher.Create();
    for (const Case& one : cases) {
        fs::copy_file(publisher.Path("Vemora.mdb"), publisher.Path("changed.mdb"),
                      fs::copy_options::overwrite_existing);
        publisher.Change("changed.mdb", one.Sql);
        const Outcome outcome = publisher.Run({"check", "/changed.mdb"});
        EXPECT_EQ(outcome.Exit, Status::Findings) << one.Sql;
        EXPECT_NE(std::regex_replace(outcome.Out, std::regex(" +"), " ").find(one.Said), std::string::npos)
            << one.Sql << "\n"
            << outcome.Out;
    }
}

TEST(Check, ReadsFormulas) {
    for (const char* const sound :
         {"", "CO", "Co", "KAl(SO4)2·12H2O", "CaSO4·½H2O", "CaSO4.0.5H2O", "CoCl2·xH2O", "SO42-", "Ca++",
          "[Fe(CN)6]4-", "(NH4+)2(SO42-)", "3HCl+HNO3", "CH3-CH=CH2", "(C2H4)n", "CnH2n+2", "CnH2n+1OH",
          "C10–C13", "C10–13H22–28", "Fe0,95O"}) {
        EXPECT_TRUE(vemora_db::FormulaReads(sound)) << sound;
    }
    for (const char* const strange :
         {"H2So4", "h2O", "Q",    "2",      "n",   "()",  "Na()", "NaCl·",     "NaCl·2", "·H2O", "H2O 2",
          "–C",    "+C",  "C10–", "H2SO4?", "2(3", "H2Ω", "(2)",  "NaCl··H2O", "HnnO",   "Na+2"}) {
        EXPECT_FALSE(vemora_db::FormulaReads(strange)) << strange;
    }
}

TEST(Check, TellsWhatIsWrongWithTheTables) {
    struct Case {
        const char* Sql;
        const char* Said;
        bool RowsRead;
    };
    const std::vector<Case> cases = {
        {"DROP TABLE relMisc", "error relMisc 1 the table is missing", false},
        {"ALTER TABLE Misc RENAME TO Other", "error Other 1 this table doesn't belong there", false},
        {"DROP TABLE [Temp]; CREATE TABLE [Temp](ID INTEGER PRIMARY KEY, [Temp] INTEGER, Egen INTEGER NOT "
         "NULL)",
         "error Temp 1 a column is missing: Med", false},
        {"DROP TABLE Misc; CREATE TABLE Misc(ID INTEGER, Name TEXT, Description TEXT, NameEN TEXT, "
         "DescriptionEN TEXT, "
         "Egen INTEGER NOT NULL, Med INTEGER NOT NULL)",
         "error Misc 1 a column has another type or key: ID is INTEGER, must be INTEGER, no. 1 of the key",
         true},
        {"ALTER TABLE Metal ADD COLUMN Price INTEGER", "error Metal 1 a column doesn't belong there: Price",
         true},
        {"DROP TABLE MaterialKey; CREATE TABLE MaterialKey(Class TEXT NOT NULL, ID INTEGER NOT NULL, [Key] "
         "TEXT NOT "
         "NULL, PRIMARY KEY(Class, ID))",
         "error MaterialKey 1 the table has other collations", true},
        {"CREATE INDEX ByName ON Chemical(NameSE)", "error ByName 1 this index doesn't belong there", true},
        {"PRAGMA user_version = 7", "error user_version 1 the mark of this generation of the database: is 7",
         true},
    };
    const Publisher publisher;
    publisher.Create();
    for (const Case& one : cases) {
        fs::copy_file(publisher.Path("Vemora.mdb"), publisher.Path("changed.mdb"),
                      fs::copy_options::overwrite_existing);
        publisher.Change("changed.mdb", one.Sql);
        const Outcome outcome = publisher.Run({"check", "--no-warnings", "/changed.mdb"});
        EXPECT_EQ(outcome.Exit, Status::Findings) << one.Sql;
        const std::string said = std::regex_replace(outcome.Out, std::regex(" +"), " ");
        EXPECT_NE(said.find(one.Said), std::string::npos) << one.Sql << "\n" << outcome.Out;
        EXPECT_EQ(said.find("the rows were not checked") == std::string::npos, one.RowsRead) << outcome.Out;
    }
}

TEST(Check, FindsDamageAnywhereInTheFile) {
    const Publisher publisher;
    publisher.Create();
    const std::string sound = publisher.Read("Vemora.mdb");
    // A byte in every page that holds rows. What can't be opened at all is a failure, not a finding.
    for (std::size_t at = 1000; at < sound.size(); at += 4096) {
        std::string bytes = sound;
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
        publisher.Write("damaged.mdb", bytes);
        const Outcome outcome = publisher.Run({"check", "/damaged.mdb"});
        EXPECT_EQ(outcome.Exit, at < 4096 ? Status::Failed : Status::Findings) << at;
        EXPECT_NE((outcome.Out + outcome.Err).find(at < 4096 ? "no database" : "damaged"), std::string::npos)
            << outcome.Out << outcome.Err;
    }
    for (const std::string& bytes : {std::string(), sound.substr(0, 5000), std::string(9000, 'x')}) {
        publisher.Write("damaged.mdb", bytes);
        const Outcome outcome = publisher.Run({"check", "/damaged.mdb"});
        EXPECT_EQ(outcome.Exit, Status::Failed) << bytes.size();
        EXPECT_NE(outcome.Err.find("damaged.mdb: "), std::string::npos);
    }
    EXPECT_EQ(publisher.Run({"check", "/missing.mdb"}).Exit, Status::Failed);
}

TEST(Check, SaysAsMuchAsItIsAskedFor) {
    const Publisher publisher;
    publisher.Create();
    publisher.Change("Vemora.mdb", "DELETE FROM Tight");
    EXPECT_EQ(publisher.Run({"check", "/Vemora.mdb", "--no-warnings"}).Exit, Status::Fine);
    const Outcome quiet = publisher.Run({"check", "/Vemora.mdb", "-q"});
    EXPECT_EQ(quiet.Exit, Status::Findings);
    EXPECT_EQ(quiet.Out + quiet.Err, "");
    const std::string file = publisher.Path("Vemora.mdb").string();
    for (const char* const asked : {file.c_str(), "--help"}) {
        const std::array<const char*, 3> arguments = {"vemora-db", "check", asked};
        std::ostream full(nullptr);
        std::ostringstream err;
        EXPECT_EQ(vemora_db::Run(3, arguments.data(), full, err, false), Status::Failed) << asked;
        EXPECT_EQ(err.str(), "vemora-db: Writing the output failed.\n");
    }
}

TEST(Password, ComesFromAFileAndIsNeverInTheFile) {
    const Publisher publisher;
    publisher.Write("secret", "hemligt lösen\r\nsecond line");
    publisher.Write("wrong", "hemligt");
    publisher.Write("empty", "\n");
    ASSERT_EQ(publisher.Run({"create", "/data", "/own.mdb", "--password-file", "/secret"}).Exit,
              Status::Fine);
    EXPECT_EQ(publisher.Run({"check", "/own.mdb", "--password-file", "/secret"}).Exit, Status::Fine);
    for (const char* const wrong : {"/wrong", "/missing"}) {
        EXPECT_EQ(publisher.Run({"check", "/own.mdb", "--password-file", wrong}).Exit, Status::Failed);
    }
    const Outcome outcome = publisher.Run({"check", "/own.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Failed);
    EXPECT_NE(outcome.Err.find("the password is not that of the file, or it is no database"),
              std::string::npos);
    EXPECT_EQ(publisher.Run({"check", "/own.mdb", "--password-file", "/empty"}).Exit, Status::WrongUsage);
    const std::string bytes = publisher.Read("own.mdb");
    EXPECT_EQ(bytes.find("Svavelsyra"), std::string::npos);
    EXPECT_EQ(bytes.find("hemligt"), std::string::npos);
}

}  // namespace
