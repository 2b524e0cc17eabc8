// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>

#include "vemora-db/publisher.h"

namespace test {
namespace {

TEST(RoundTrip, GivesTheSameRowsAndTheSameBytes) {
    const Publisher publisher;
    // What refers to nothing must come along as well: a chemical, a concentration, a temperature, a material.
    publisher.Write("data/verdicts-misc.csv",
                    "ChemID,Chemical,ConcID,Concentration,TempID,Temperature,Misc-1,Misc-2,#-3,#17,Source\n"
                    "1,Svavelsyra,1,10 %,1,20ºC,+,,,+,\" S\"\n"
                    "77,,78,,79,,,,-*,,\n");
    publisher.Create();
    ASSERT_EQ(publisher.Run({"export", "/Vemora.mdb", "/mine"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("mine"), publisher.Csv("data"));

    ASSERT_EQ(publisher.Run({"create", "/mine", "/again.mdb"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Rows("again.mdb"), publisher.Rows("Vemora.mdb"));
    const std::string rows = publisher.Rows("Vemora.mdb");
    for (const char* const row :
         {"Chemical|'1'|'H2SO4'|'{\\rtf1",
          "|Null|Null|Null|'Stark, \"rykande\"\r\nvid 20 %'|'Strong'|' Stark'|'0'|'-1'",
          "Chemical|'5'|Null|'{\\rtf1", "'Meine Lauge'|''|Null", "relMetal|'1'|'-1'|'1'|'1'|'+'|'0'",
          "relMetal|'1'|'1'|'2'|'5'|' '|'0'", "relMetal|'1'|'1'|'2'|'1'|'-'|'-1'",
          "relMisc|'77'|'78'|'79'|'-3'|'-'|'-1'", "relMisc|'1'|'1'|'1'|'17'|'+'|'0'",
          "Source|'relPlast'|'1'|'1'|'2'|'S1, S2'", "MaterialKey|'Tight'|'7'|'Tight-7'"}) {
        EXPECT_TRUE(Has(rows, row)) << row;
    }
}

TEST(RoundTrip, BringsAnyOrderAndLineEndIntoTheOneForm) {
    const Publisher publisher;
    const auto canonical = publisher.Csv("data");
    publisher.Write("data/temperatures.csv",
                    "\xEF\xBB\xBFMed,\"Egen\",Temp,ID\r\n-1,-1,\"80ºC\",3\r\n-1,0,20ºC,1\r\n-1,0,60ºC,2");
    const std::string chemicals = publisher.Read("data/chemicals.csv");
    publisher.Write("data/chemicals.csv", platform::Replace(chemicals, "2,C10–C13", "002,C10–C13"));
    const std::string first = "1,Svavelsyra,-1,,1,20ºC,+,0*,0*,0*,S1\n";
    const std::string metal = publisher.Read("data/verdicts-metal.csv");
    publisher.Write("data/verdicts-metal.csv", platform::Replace(metal, first, "") + first);
    publisher.Create();
    ASSERT_EQ(publisher.Run({"export", "--force", "/Vemora.mdb", "/data"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("data"), canonical);
}

TEST(RoundTrip, KeepsWhatTheUserDid) {
    const Created publisher;
    publisher.Change("Vemora.mdb",
                     "INSERT INTO Metal(ID, Name, Egen) VALUES(12, 'Min legering', -1), (13, 'En till', -1);"
                     "UPDATE MaterialKey SET [Key] = 'Metal12' WHERE Class = 'Metal' AND ID = 1;"
                     "INSERT INTO relMetal VALUES(1, -1, 1, 12, ' ', -1); DELETE FROM Plast WHERE ID = 3");
    ASSERT_EQ(publisher.Run({"export", "/Vemora.mdb", "/mine"}).Exit, Status::Fine);
    auto mine = publisher.Csv("mine");
    EXPECT_TRUE(Has(mine["verdicts-metal.csv"], "Metal12,Metal-5,Metal-7,Metal-8,Metal12_,Metal13,Source"));
    EXPECT_TRUE(Has(mine["verdicts-metal.csv"], "+,0*,0*,0*,_*,,S1"));
    EXPECT_TRUE(Has(mine["verdicts-plast.csv"], "Plast-6,#3,Source"));
    ASSERT_EQ(publisher.Run({"create", "/mine", "/again.mdb"}).Exit, Status::Fine);
    ASSERT_EQ(publisher.Run({"export", "/again.mdb", "/third"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("third"), mine);
}

TEST(Export, MarksVerdictsThatItHasNoSignFor) {
    const Created publisher;
    publisher.Change("Vemora.mdb",
                     "UPDATE relTight SET TheValue = CASE ChemID WHEN 2 THEN '_' END WHERE ChemID <> 1");
    const Outcome outcome = publisher.Run({"export", "/Vemora.mdb", "/mine"});
    EXPECT_EQ(outcome.Exit, Status::BadData);
    EXPECT_TRUE(Has(outcome.Err, " 2 verdicts")) << outcome.Err;
    const std::string csv = publisher.Read("mine/verdicts-tight.csv");
    EXPECT_TRUE(Has(csv, "20ºC,?_,"));
    EXPECT_TRUE(Has(csv, "80ºC,?*,"));
    EXPECT_EQ(publisher.Run({"create", "/mine", "/again.mdb"}).Exit, Status::BadData);
}

TEST(Export, LeavesFilesThatAreThereAlone) {
    const Created publisher;
    const auto before = publisher.Csv("data");
    publisher.Change("Vemora.mdb", "DELETE FROM Chemical");
    EXPECT_EQ(publisher.Run({"export", "/Vemora.mdb", "/data"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Csv("data"), before);
    // One file can't be written: the others stay, too, and nothing is left over.
    fs::create_directory(publisher.Path("data/verdicts-misc.csv.tmp"));
    EXPECT_EQ(publisher.Run({"export", "-f", "/Vemora.mdb", "/data"}).Exit, Status::Failed);
    fs::remove(publisher.Path("data/verdicts-misc.csv.tmp"));
    EXPECT_EQ(publisher.Csv("data"), before);
}

TEST(Create, ReplacesOnlyWhenToldAndOnlyWhenItWorks) {
    const Created publisher;
    const std::string old = publisher.Read("Vemora.mdb");
    EXPECT_EQ(publisher.Run({"create", "/data", "/Vemora.mdb"}).Exit, Status::WrongUsage);
    // A journal of the old file, beside what a link leads to, would be taken for that of the new one.
    fs::create_symlink("Vemora.mdb", publisher.Path("link.mdb"));
    publisher.Write("Vemora.mdb-wal", "x");
    for (const std::string file : {"/Vemora.mdb", "/link.mdb"}) {
        EXPECT_EQ(publisher.Run({"create", "-f", "/data", file}).Exit, Status::WrongUsage);
    }
    fs::remove(publisher.Path("Vemora.mdb-wal"));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/data"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Run({"create", "/nothing", "/other.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Run({"create", "/data", "/nothing/other.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Read("Vemora.mdb"), old);
    fs::permissions(publisher.Path("Vemora.mdb"), fs::perms(0600));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/link.mdb"}).Exit, Status::Fine);
    EXPECT_NE(publisher.Read("Vemora.mdb"), old);  // another salt
    EXPECT_EQ(fs::status(publisher.Path("Vemora.mdb")).permissions(), fs::perms(0600));
    EXPECT_TRUE(fs::is_symlink(publisher.Path("link.mdb")));
    fs::remove(publisher.Path("Vemora.mdb"));
    EXPECT_EQ(publisher.Run({"create", "/data", "/link.mdb"}).Exit, Status::Fine);
    fs::create_symlink("circle.mdb", publisher.Path("circle.mdb"));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/circle.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Files(), (std::set<std::string>{"Vemora.mdb", "circle.mdb", "data", "link.mdb"}));
}

TEST(Create, RefusesBadDataWithTheirPlaceAndLeavesNothing) {
    // By file: a text in it, the bad one in its place, and what is said of it behind the file's name. The
    // place counts the lines within quotes, too.
    using Rows = std::vector<std::array<std::string, 3>>;
    const std::string row = "1,20ºC,0,-1";
    const std::pair<std::string, Rows> cases[] = {
        {"temperatures.csv",
         {{row, "1,\"20ºC,0,-1", "2:3: the quote is never closed"},
          {row, "1,\"20ºC\"x,0,-1", "2:9: there is text behind"},
          {row, "1,2\"0ºC,0,-1", "2:4: a cell that holds a quote"},
          {row, "1,20ºC,0", "2:8: the row has 3 cells, the heading 4"},
          {row, "", "2:1: the line is empty"},
          {row, "1,20ºC,0,-1\r\"2", "2:13: a carriage return"},
          {row, "1,2\xBA,0,-1", "2:4: the text is not UTF-8"},
          {"1,20ºC", std::string("1,2\0ºC", 7), "2:4: there is a NUL"},
          {"ID,Temp,Egen", "ID,Temp", "1:1: the column Egen is missing"},
          {"ID,Temp,Egen", "ID,Temp,Own,Egen", "1:9: there is no column Own"},
          {"ID,Temp,Egen", "ID,ID,Egen", "1:4: the column ID is there twice"}}},
        {"chemicals.csv",
         {{"2,C10–C13", "1,C10–C13", "4:1: the ID 1 is there twice"},
          {"Vax,Wax", "Ωx,Wax", "4:52: Windows-1252 has no place for the character \"Ω\""},
          {"20 %\",Strong", "20 %\",★", "3:11: Windows-1252 has no place"},
          {"-1,-1\n", "1,-1\n", "5:45: Egen must be -1 (true) or 0 (false), not \"1\""}}},
        {"concentrations.csv",
         {{"\n2,m", "\nx,m", "3:1: ID must be a whole number of 32 bits"},
          {"\n2,m", "\n2147483648,m", "3:1: ID must be a whole number"}}},
        {"materials.csv",
         {{"Misc,1,", "Wood,1,", "18:1: the class must be Metal"},
          {"Misc,2,Misc-2", "Misc,1,Misc-2", "19:6: the ID 1 is there twice in its class"},
          {"2,Misc-2,", "2,Misc-1,", "19:8: the key Misc-1 is there twice"},
          {"2,Misc-2,", "2,#2,", "19:8: \"#2\" can't be the key"},
          {"English Misc-2,,,", "English Misc-2,,Holz,", "19:42: the class Misc has no NameDE"}}},
        {"verdicts-misc.csv",
         {{"1,Misc-2", "1,Teak", "1:64: there is no material \"Teak\""},
          {"Misc-1,Misc-2", "Misc-1,#1", "1:64: the material 1 is there; write its key"},
          {"Misc-1,Misc-2", "Misc-1,#01", "1:64: behind \"#\""},
          {",Misc-2", "", "1:1: the column Misc-2 is missing"},
          {"20ºC,0,", "20ºC,x,", "5:28: a verdict must be"},
          {"20ºC,0,", "20ºC,,", "5:1: the line holds no verdict"},
          {"2,Paraffin", "2,paraffin", "5:3: the chemical 2 is \"Paraffin\", not \"paraffin\""},
          {"2,mättad", "9,mättad", "5:14: there is no concentration 9"},
          {"3,80ºC", "2,80ºC", "6:21: the temperature 2 is \"60ºC\""},
          {"5,Egen lut,1,10 %,3,80ºC", "1,Svavelsyra,1,10 %,1,20ºC", "6:1: this chemical"}}},
        {"verdicts-tight.csv", {{"", "", "1:1: the heading is missing"}}},  // of an empty file
    };
    const Publisher publisher;
    for (const auto& [file, rows] : cases) {
        const std::string name = "data/" + file;
        const std::string sound = publisher.Read(name);
        for (const auto& [from, to, said] : rows) {
            const std::string told = std::string(file).append(":").append(said);
            publisher.Write(name, from.empty() ? "" : platform::Replace(sound, from, to));
            const Outcome outcome = publisher.Run({"create", "/data", "/Vemora.mdb"});
            EXPECT_EQ(outcome.Exit, Status::BadData) << told;
            EXPECT_TRUE(Has(outcome.Err, "/" + told)) << told << "\n" << outcome.Err;
        }
        publisher.Write(name, sound);
    }
    fs::remove(publisher.Path("data/verdicts-tight.csv"));
    const Outcome missing = publisher.Run({"create", "/data", "/Vemora.mdb"});
    EXPECT_EQ(missing.Exit, Status::Failed);
    EXPECT_TRUE(Has(missing.Err, "verdicts-tight.csv: there is no such file"));
    EXPECT_EQ(publisher.Files(), std::set<std::string>{"data"});
}

TEST(ShippedData, AreSoundAndStandAsExportWritesThem) {
    const Publisher publisher;
    publisher.TakeShippedData();
    publisher.Create();
    // Names given twice, texts that a language lacks, formulas that can't be read, verdicts without a source
    // or better as the temperature rises, fixed materials missing: all of it would be told.
    const Outcome outcome = publisher.Run({"check", "--review", "/data/review.csv", "/Vemora.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Fine) << outcome.Out;
    ASSERT_EQ(publisher.Run({"export", "/Vemora.mdb", "/mine"}).Exit, Status::Fine);
    auto shipped = publisher.Csv("data");
    shipped.erase("review.csv");  // not of the database
    EXPECT_EQ(publisher.Csv("mine"), shipped);
}

}  // namespace
}  // namespace test
