// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <regex>

#include "vemora-db/check_parts.h"
#include "vemora-db/publisher.h"

namespace test {
namespace {

/// Checks a copy of sound data that SQL has changed, and expects what is said: severity, where, how often,
/// what; one blank between them.
void ExpectSaid(const Publisher& publisher, const std::string& sql, const std::string& said, bool rowsRead) {
    fs::copy_file(publisher.Path("Vemora.mdb"), publisher.Path("changed.mdb"),
                  fs::copy_options::overwrite_existing);
    publisher.Change("changed.mdb", sql);
    const Outcome outcome = publisher.Run({"check", "/changed.mdb"});
    const std::string out = std::regex_replace(outcome.Out, std::regex(" +"), " ");
    EXPECT_EQ(outcome.Exit, Status::Findings) << sql;
    EXPECT_TRUE(Has(out, said)) << sql << " " << said << "\n" << outcome.Out;
    EXPECT_EQ(out.find("the rows were not checked") == std::string::npos, rowsRead) << sql;
}

TEST(Check, TellsWhatIsWrongWithAValue) {
    // The severity and the column, what is put into it and in which rows, and what is said behind the column.
    const std::array<std::string, 4> cases[] = {
        {"error relMetal.TheValue", "'x'", "ChemID = 2",
         "1 a verdict must be +, -, 0 or a blank: \"x\" at ChemID 2, ConcID 2, TempID 1"},
        {"error relMisc.TheValue", "x'2B'", "ChemID = 5", "1 a verdict must be +, -, 0 or a blank: \"+\""},
        {"error relMisc.Egen", "1", "ChemID = 5", "1 the value must be -1 (true)"},
        {"error relPlast.ChemID", "'a'", "ChemID = 5", "1 an ID must be a whole number: \"a\""},
        {"error Source.Source", "'S' || char(0)", "Source LIKE 'S3%'", "4 the value is no text"},
        {"error MaterialKey.ID", "1.5", "[Key] = 'Misc-2'", "1 an ID must be a whole number: \"1.5\""},
        {"error Conc.Med", "1", "1", "2 the value must be -1 (true) or 0 (false): ID 1; ID 2"},
        {"error Temp.Temp", "'20°C'", "ID = 1", "1 a temperature must end in ºC: ID 1"},
        {"error Chemical.NameSE", "x'41'", "ID = 1", "1 the value is no text: ID 1"},
        {"error Chemical.NoteEN", "CAST(x'C3' AS TEXT)", "ID = 1", "1 the value is no text: ID 1"},
        // The same to the reader: case, and a letter written in two ways.
        {"warning Chemical.NameSE", "'SVAVELSYRA'", "ID = 5", "1 the name is there twice: \"SVAVELSYRA\" ("},
        {"warning Chemical.NameGE", "'SCHWEFELSA\xCC\x88URE'", "ID = 5", "1 the name is there"},
        {"warning Conc.ConcentrationSE", "'MÄTTAD'", "ID = 1", "1 the name is there"},
        {"warning Chemical.NameEN", "''", "1", "3 the text is missing: ID 1; ID 2; ID 5"},
        {"warning Chemical.NoteEN", "NULL", "1", "1 the text is missing in this language alone: ID 1"},
        {"warning Tight.NameDE", "NULL", "1", "6 the text is missing: ID 2; ID 3; ID 4; ..."},
        {"warning Chemical.Formula", "'Fe4[Fe(CN)6)3'", "ID = 2", "1 the brackets are not in pairs: ID 2"},
        {"warning Chemical.Formula", "'H2So4'", "ID = 1", "1 the formula can't be read: ID 1"}};
    const Created publisher;
    for (const auto& [where, value, rows, said] : cases) {
        const auto table = where.find(' ') + 1;
        const auto column = where.find('.') + 1;
        std::string sql = "UPDATE " + where.substr(table, column - table - 1);
        sql.append(" SET ").append(where.substr(column)).append(" = ").append(value);
        ExpectSaid(publisher, sql.append(" WHERE ").append(rows), std::string(where).append(" ").append(said),
                   true);
    }
}

TEST(Check, TellsWhatIsWrongBetweenRowsAndWithTables) {
    const struct {
        const char *Sql, *Said;
        bool RowsRead = true;
    } cases[] = {
        {"INSERT INTO Chemical(ID) VALUES(0)", "error Chemical 1 an ID must be 1 or above: ID 0"},
        {"INSERT INTO Source VALUES('relWood', 1, 1, 1, 'S')",
         "error Source 1 a source of no relation table"},
        {"UPDATE MaterialKey SET Key = 'Metal-1' WHERE Key = 'Metal-5'",
         "error MaterialKey 1 the key can't head"},
        {"DELETE FROM Chemical WHERE ID = 1", "warning relPlast.ChemID 18 a verdict refers to a row that"},
        {"DELETE FROM Conc WHERE ID = 1", "warning relMetal.ConcID 9 a verdict refers to a row that isn't"},
        {"DELETE FROM [Temp] WHERE ID = 3", "warning relMisc.TempID 1 a verdict refers to a row that"},
        {"DELETE FROM Tight WHERE ID = 4", "warning relTight.TightID 3 a verdict refers to a row that"},
        {"DELETE FROM Tight WHERE ID = 4", "warning Tight 1 a material that the update import fills"},
        {"DELETE FROM Tight WHERE ID = 4", "warning MaterialKey 1 the key of a material that isn't there"},
        {"DELETE FROM relMetal WHERE ChemID = 1", "warning Source 3 a source without a verdict: relMetal,"},
        {"DELETE FROM relPlast WHERE PlastID = 6", "warning Plast 1 a material without a verdict: ID 6"},
        {"INSERT INTO Chemical(ID) VALUES(9)", "warning Chemical 1 a chemical without a verdict: ID 9"},
        {"UPDATE Plast SET Name = 'METAL-5 sv' WHERE ID = 2", "warning materials 1 the name is there in two"},
        // The user's own need none: chemical 5 isn't told.
        {"DELETE FROM Source WHERE RelTable = 'relMisc'", "warning relMisc 4 verdicts without a source"},
        {"UPDATE Source SET Source = ' ' WHERE RelTable = 'relTight' AND ChemID = 2",
         "warning relTight 1 verdicts without a source: ChemID 2, ConcID 2, TempID 1"},
        {"UPDATE SourceName SET Code = 'S9' WHERE Code = 'S1'",
         "warning Source 16 a source without a name: \"S1\" at ChemID 1, ConcID -1, TempID 1;"},
        {"DROP TABLE SourceName", "warning SourceName 1 the table is missing, so"},
        {"UPDATE relMetal SET TheValue = '+' WHERE ConcID = 1 AND TempID = 2 AND MetalID = 7",
         "warning relMetal 1 a verdict gets better as the temperature rises: ChemID 1, ConcID 1, MetalID 7"},
        // By the number of the label, not by the ID.
        {"UPDATE Temp SET Temp = '-10,5 ºC' WHERE ID = 2", "warning relMetal 1 a verdict gets better as the"},
        {"DROP TABLE relMisc", "error relMisc 1 the table is missing", false},
        {"ALTER TABLE Misc RENAME TO Other", "error Other 1 this table doesn't belong there", false},
        {"CREATE TABLE t AS SELECT ID, Temp, Egen FROM Temp; DROP TABLE Temp; ALTER TABLE t RENAME TO Temp",
         "error Temp 1 a column is missing: Med", false},
        {"CREATE TABLE t AS SELECT * FROM Misc; DROP TABLE Misc; ALTER TABLE t RENAME TO Misc",
         "must be INTEGER NOT NULL; ID is INT, must be INTEGER, no. 1 of the key;"},
        {"ALTER TABLE Metal ADD COLUMN Price INTEGER", "error Metal 1 a column doesn't belong there: Price"},
        {"DROP TABLE MaterialKey; CREATE TABLE MaterialKey(Class TEXT NOT NULL, ID INTEGER NOT NULL, "
         "[Key] TEXT NOT NULL, PRIMARY KEY(Class, ID))",
         "error MaterialKey 1 the table has other collations"},
        {"CREATE INDEX ByName ON Chemical(NameSE)", "error ByName 1 this index doesn't belong there"},
        {"DROP INDEX relMiscByMaterial", "error relMiscByMaterial 1 the index is missing"},
        {"PRAGMA user_version = 7", "error user_version 1 the mark of this generation of the database:"}};
    const Created publisher;
    for (const auto& [sql, said, rowsRead] : cases) {
        ExpectSaid(publisher, sql, said, rowsRead);
    }
}

TEST(Check, TellsWhatAReviewHasRefused) {
    const Created publisher;
    const std::string heading =
        "Rule,ChemID,Chemical,ConcID,Concentration,TempID,Temperature,Class,Key,Reason\n";
    const auto check = [&](const std::string& lines) {
        publisher.Write("review.csv", heading + lines);
        Outcome outcome = publisher.Run({"check", "--review", "/review.csv", "/Vemora.mdb"});
        outcome.Out = std::regex_replace(outcome.Out, std::regex(" +"), " ");
        return outcome;
    };
    // At any concentration and temperature, at one of each, and from a temperature on; the user's own stays.
    publisher.Change("Vemora.mdb", "UPDATE relMetal SET TheValue = '+', Egen = 0 WHERE TempID = 2");
    const std::pair<const char*, const char*> rules[] = {{"1,Svavelsyra,,,,", " 3 "},
                                                         {"1,Svavelsyra,1,10 %,1,20ºC", " 2 "},
                                                         {"1,Svavelsyra,,,2,60ºC", " 1 "},
                                                         {"5,Egen lut,,,,", ""}};
    for (const auto& [rule, count] : rules) {
        const std::string out =
            check("not +," + std::string(rule) + ",Metal,Metal-1,\nthin,,,,,,,Misc,Misc-1,\n").Out;
        EXPECT_EQ(Has(out, count + std::string("a verdict that has been refused is +: ")), *count != 0)
            << out;
        EXPECT_TRUE(Has(out, "warning Misc 1 a material with verdicts on few chemicals: Misc-2: 1\n")) << out;
    }
    for (const char* const bad :
         {"good,,,,,,,Metal,Metal-1,", "not +,1,Svavel,,,,,Metal,Metal-1,",
          "not +,1,Svavelsyra,,,,,Wood,Metal-1,", "not +,1,Svavelsyra,,,,,Metal,Tin,"}) {
        EXPECT_EQ(check(bad).Exit, Status::BadData) << bad;
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

TEST(Check, FindsDamageAnywhereInTheFile) {
    const Created publisher;
    const std::string sound = publisher.Read("Vemora.mdb");
    // A byte in every page. What can't be opened at all is a failure, not a finding: the first page, and the
    // few with the tables' definitions.
    std::size_t failed = 0;
    for (std::size_t at = 1000; at < sound.size(); at += 4096) {
        std::string bytes = sound;
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
        publisher.Write("damaged.mdb", bytes);
        const Outcome outcome = publisher.Run({"check", "/damaged.mdb"});
        EXPECT_TRUE(outcome.Exit == Status::Failed || (at > 4096 && outcome.Exit == Status::Findings)) << at;
        failed += outcome.Exit == Status::Failed ? 1 : 0;
        EXPECT_TRUE(Has((outcome.Out + outcome.Err), at < 4096 ? "no database" : "damaged"))
            << outcome.Out << outcome.Err;
    }
    EXPECT_LE(failed, 3U);
    publisher.Write("damaged.mdb", sound.substr(0, 5000));
    for (const std::string file : {"damaged.mdb", "missing.mdb"}) {
        const Outcome outcome = publisher.Run({"check", "/" + file});
        EXPECT_EQ(outcome.Exit, Status::Failed);
        EXPECT_TRUE(Has(outcome.Err, file + ": ")) << outcome.Err;
    }
}

TEST(Check, WritesNothingAndSaysAsMuchAsItIsAskedFor) {
    const Created publisher;
    const std::string bytes = publisher.Read("Vemora.mdb");
    const Outcome sound = publisher.Run({"check", "/Vemora.mdb"});
    EXPECT_EQ(sound.Exit, Status::Fine);
    EXPECT_EQ(sound.Out, "Kinds of errors: 0, of warnings: 0\n");
    EXPECT_EQ(publisher.Read("Vemora.mdb"), bytes);
    EXPECT_EQ(publisher.Files(), (std::set<std::string>{"Vemora.mdb", "data"}));

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
    for (const auto& [file, exit] : {std::pair{"/secret", Status::Fine},
                                     {"/wrong", Status::Failed},
                                     {"/missing", Status::Failed},
                                     {"/empty", Status::WrongUsage}}) {
        EXPECT_EQ(publisher.Run({"check", "/own.mdb", "--password-file", file}).Exit, exit) << file;
    }
    const Outcome outcome = publisher.Run({"check", "/own.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Failed);
    EXPECT_TRUE(Has(outcome.Err, "the password is not that of the file, or it is no database"));
    for (const char* const text : {"Svavelsyra", "hemligt"}) {
        EXPECT_EQ(publisher.Read("own.mdb").find(text), std::string::npos);
    }
}

}  // namespace
}  // namespace test
