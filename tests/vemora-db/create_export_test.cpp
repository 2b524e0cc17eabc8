// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <csignal>
#include <iostream>
#include <sstream>

#include "vemora-db/progress.h"
#include "vemora-db/publisher.h"

namespace fs = std::filesystem;
using test::Outcome;
using test::Publisher;
using test::Status;

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
        EXPECT_NE(rows.find(row), std::string::npos) << row;
    }
}

TEST(RoundTrip, BringsAnyOrderAndLineEndIntoTheOneForm) {
    const Publisher publisher;
    const auto canonical = publisher.Csv("data");
    publisher.Write("data/temperatures.csv",
                    "\xEF\xBB\xBFMed,\"Egen\",Temp,ID\r\n-1,-1,\"80ºC\",3\r\n-1,0,20ºC,1\r\n-1,0,60ºC,2");
    publisher.Edit("data/chemicals.csv", "2,C10–C13", "002,C10–C13");
    std::string metal = publisher.Read("data/verdicts-metal.csv");
    const auto heading = metal.find('\n') + 1;
    const auto second = metal.find('\n', heading) + 1;
    metal = metal.substr(0, heading) + metal.substr(second) + metal.substr(heading, second - heading);
    publisher.Write("data/verdicts-metal.csv", metal);
    publisher.Create();
    ASSERT_EQ(publisher.Run({"export", "--force", "/Vemora.mdb", "/data"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("data"), canonical);
}

TEST(RoundTrip, KeepsWhatTheUserDid) {
    const Publisher publisher;
    publisher.Create();
    publisher.Change("Vemora.mdb",
                     "INSERT INTO Metal(ID, Name, Egen) VALUES(12, 'Min legering', -1);"
                     "INSERT INTO Metal(ID, Name, Egen) VALUES(13, 'En till', -1);"
                     "UPDATE MaterialKey SET [Key] = 'Metal12' WHERE Class = 'Metal' AND ID = 1;"
                     "INSERT INTO relMetal VALUES(1, -1, 1, 12, ' ', -1);"
                     "DELETE FROM Plast WHERE ID = 3");
    ASSERT_EQ(publisher.Run({"export", "/Vemora.mdb", "/mine"}).Exit, Status::Fine);
    EXPECT_NE(publisher.Read("mine/verdicts-metal.csv")
                  .find("Metal12,Metal-5,Metal-7,Metal-8,Metal12_,Metal13,Source"),
              std::string::npos);
    EXPECT_NE(publisher.Read("mine/verdicts-metal.csv").find("+,0*,0*,0*,_*,,S1"), std::string::npos);
    EXPECT_NE(publisher.Read("mine/verdicts-plast.csv").find("Plast-6,#3,Source"), std::string::npos);
    ASSERT_EQ(publisher.Run({"create", "/mine", "/again.mdb"}).Exit, Status::Fine);
    ASSERT_EQ(publisher.Run({"export", "/again.mdb", "/third"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("third"), publisher.Csv("mine"));
}

TEST(Export, MarksVerdictsThatItHasNoSignFor) {
    const Publisher publisher;
    publisher.Create();
    publisher.Change("Vemora.mdb",
                     "UPDATE relTight SET TheValue = '_' WHERE ChemID = 2;"
                     "UPDATE relTight SET TheValue = NULL WHERE ChemID = 5");
    const Outcome outcome = publisher.Run({"export", "/Vemora.mdb", "/mine"});
    EXPECT_EQ(outcome.Exit, Status::BadData);
    EXPECT_NE(outcome.Err.find(" 2 verdicts"), std::string::npos) << outcome.Err;
    const std::string csv = publisher.Read("mine/verdicts-tight.csv");
    EXPECT_NE(csv.find("20ºC,?_,"), std::string::npos);
    EXPECT_NE(csv.find("80ºC,?*,"), std::string::npos);
    EXPECT_EQ(publisher.Run({"create", "/mine", "/again.mdb"}).Exit, Status::BadData);
}

TEST(Export, LeavesFilesThatAreThereAlone) {
    const Publisher publisher;
    publisher.Create();
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
    const Publisher publisher;
    publisher.Create();
    const std::string old = publisher.Read("Vemora.mdb");
    EXPECT_EQ(publisher.Run({"create", "/data", "/Vemora.mdb"}).Exit, Status::WrongUsage);
    // A journal of the old file would be taken for that of the new one.
    publisher.Write("Vemora.mdb-wal", "x");
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/Vemora.mdb"}).Exit, Status::WrongUsage);
    fs::remove(publisher.Path("Vemora.mdb-wal"));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/data"}).Exit, Status::WrongUsage);
    EXPECT_EQ(publisher.Run({"create", "/nothing", "/other.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Run({"create", "/data", "/nothing/other.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Read("Vemora.mdb"), old);
    fs::permissions(publisher.Path("Vemora.mdb"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("Vemora.mdb", publisher.Path("link.mdb"));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/link.mdb"}).Exit, Status::Fine);
    EXPECT_NE(publisher.Read("Vemora.mdb"), old);  // another salt
    EXPECT_EQ(fs::status(publisher.Path("Vemora.mdb")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(fs::is_symlink(publisher.Path("link.mdb")));
    // The journal lies beside what the link leads to.
    publisher.Write("Vemora.mdb-wal", "x");
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/link.mdb"}).Exit, Status::WrongUsage);
    fs::remove(publisher.Path("Vemora.mdb-wal"));
    fs::remove(publisher.Path("Vemora.mdb"));
    EXPECT_EQ(publisher.Run({"create", "/data", "/link.mdb"}).Exit, Status::Fine);
    fs::create_symlink("circle.mdb", publisher.Path("circle.mdb"));
    EXPECT_EQ(publisher.Run({"create", "-f", "/data", "/circle.mdb"}).Exit, Status::Failed);
    EXPECT_EQ(publisher.Files(), (std::vector<std::string>{"Vemora.mdb", "circle.mdb", "data", "link.mdb"}));
}

#ifdef SIGHUP
TEST(Create, LeavesNothingWhenTheTerminalIsClosed) {
    const Publisher publisher;
    std::string rows = publisher.Read("data/temperatures.csv");
    for (int id = 4; id < 1000; ++id) {
        rows += std::to_string(id) + "," + std::to_string(id) + "ºC,0,-1\n";
    }
    publisher.Write("data/temperatures.csv", rows);
    const auto hangUp = [&](void (*before)(int)) {
        std::signal(SIGHUP, before);
        vemora_db::CatchInterrupts();
        std::raise(SIGHUP);
        const Outcome outcome = publisher.Run({"create", "/data", "/Vemora.mdb"});
        std::cerr << outcome.Err;
        std::exit(static_cast<int>(outcome.Exit));
    };
    EXPECT_EXIT(hangUp(SIG_DFL), testing::ExitedWithCode(4), "stopped; nothing was changed");
    EXPECT_EQ(publisher.Files(), std::vector<std::string>{"data"});
    EXPECT_EXIT(hangUp(SIG_IGN), testing::ExitedWithCode(0), "");  // as nohup has it
}
#endif

TEST(Create, RefusesBadDataWithTheirPlaceAndLeavesNothing) {
    struct Case {
        const char* File;
        std::string From;
        std::string To;
        const char* Said;  // behind the folder
    };
    const std::vector<Case> cases = {
        // The form of the file.
        {"temperatures.csv", "1,20ºC,0,-1", "1,\"20ºC,0,-1",
         "temperatures.csv:2:3: the quote is never closed"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,\"20ºC\"x,0,-1", "temperatures.csv:2:9: there is text behind"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,2\"0ºC,0,-1",
         "temperatures.csv:2:4: a cell that holds a quote"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,20ºC,0",
         "temperatures.csv:2:8: the row has 3 cells, the heading 4"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,20ºC,0,-1,", "temperatures.csv:2:13: the row has 5 cells"},
        {"temperatures.csv", "1,20ºC,0,-1", "", "temperatures.csv:2:1: the line is empty"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,20ºC,0,-1\r2,20ºC,0,-1",
         "temperatures.csv:2:13: a carriage return"},
        {"temperatures.csv", "1,20ºC,0,-1", "1,20ºC,0,-1\r\"2", "temperatures.csv:2:13: a carriage return"},
        {"temperatures.csv", "1,20ºC,0,-1",
         "1,2\xBA"
         "C,0,-1",
         "temperatures.csv:2:4: the text is not UTF-8"},
        {"temperatures.csv", "1,20ºC", std::string("1,2\0ºC", 7), "temperatures.csv:2:4: there is a NUL"},
        {"temperatures.csv", "ID,Temp,Egen", "ID,Temp", "temperatures.csv:1:1: the column Egen is missing"},
        {"temperatures.csv", "ID,Temp,Egen", "ID,Temp,Own,Egen",
         "temperatures.csv:1:9: there is no column Own"},
        {"temperatures.csv", "ID,Temp,Egen", "ID,ID,Egen",
         "temperatures.csv:1:4: the column ID is there twice"},
        // Rows of tables. The place counts the lines within quotes, too.
        {"chemicals.csv", "2,C10–C13", "1,C10–C13", "chemicals.csv:4:1: the ID 1 is there twice"},
        {"chemicals.csv", "Vax,Wax", "Ωx,Wax",
         "chemicals.csv:4:52: Windows-1252 has no place for the character \"Ω\""},
        {"chemicals.csv", "20 %\",Strong", "20 %\",★", "chemicals.csv:3:11: Windows-1252 has no place"},
        {"chemicals.csv", "-1,-1\n", "1,-1\n",
         "chemicals.csv:5:45: Egen must be -1 (true) or 0 (false), not \"1\""},
        {"concentrations.csv", "\n2,m", "\nx,m",
         "concentrations.csv:3:1: ID must be a whole number of 32 bits"},
        {"concentrations.csv", "\n2,m", "\n2147483648,m",
         "concentrations.csv:3:1: ID must be a whole number"},
        {"materials.csv", "Misc,1,", "Wood,1,", "materials.csv:18:1: the class must be Metal"},
        {"materials.csv", "Misc,2,Misc-2", "Misc,1,Misc-2",
         "materials.csv:19:6: the ID 1 is there twice in its class"},
        {"materials.csv", "2,Misc-2,", "2,Misc-1,", "materials.csv:19:8: the key Misc-1 is there twice"},
        {"materials.csv", "2,Misc-2,", "2,#2,", "materials.csv:19:8: \"#2\" can't be the key"},
        {"materials.csv", "English Misc-2,,,", "English Misc-2,,Holz,",
         "materials.csv:19:42: the class Misc has no NameDE"},
        // Verdicts.
        {"verdicts-misc.csv", "1,Misc-2", "1,Teak", "verdicts-misc.csv:1:64: there is no material \"Teak\""},
        {"verdicts-misc.csv", "Misc-1,Misc-2", "Misc-1,#1",
         "verdicts-misc.csv:1:64: the material 1 is there; write its key"},
        {"verdicts-misc.csv", "Misc-1,Misc-2", "Misc-1,#01", "verdicts-misc.csv:1:64: behind \"#\""},
        {"verdicts-misc.csv", ",Misc-2", "", "verdicts-misc.csv:1:1: the column Misc-2 is missing"},
        {"verdicts-misc.csv", "20ºC,0,", "20ºC,x,", "verdicts-misc.csv:5:28: a verdict must be"},
        {"verdicts-misc.csv", "20ºC,0,", "20ºC,*,", "verdicts-misc.csv:5:28: a verdict must be"},
        {"verdicts-misc.csv", "20ºC,0,", "20ºC,,", "verdicts-misc.csv:5:1: the line holds no verdict"},
        {"verdicts-misc.csv", "2,Paraffin", "2,paraffin",
         "verdicts-misc.csv:5:3: the chemical 2 is \"Paraffin\", not \"paraffin\""},
        {"verdicts-misc.csv", "2,mättad", "9,mättad", "verdicts-misc.csv:5:14: there is no concentration 9"},
        {"verdicts-misc.csv", "3,80ºC", "2,80ºC", "verdicts-misc.csv:6:21: the temperature 2 is \"60ºC\""},
        {"verdicts-misc.csv", "5,Egen lut,1,10 %,3,80ºC", "1,Svavelsyra,1,10 %,1,20ºC",
         "verdicts-misc.csv:6:1: this chemical"},
    };
    const Publisher publisher;
    for (const Case& one : cases) {
        const std::string name = "data/" + std::string(one.File);
        const std::string sound = publisher.Read(name);
        publisher.Edit(name, one.From, one.To);
        const Outcome outcome = publisher.Run({"create", "/data", "/Vemora.mdb"});
        EXPECT_EQ(outcome.Exit, Status::BadData) << one.Said;
        EXPECT_NE(outcome.Err.find("/" + std::string(one.Said)), std::string::npos) << one.Said << "\n"
                                                                                    << outcome.Err;
        publisher.Write(name, sound);
    }
    fs::rename(publisher.Path("data/verdicts-tight.csv"), publisher.Path("tight"));
    const Outcome missing = publisher.Run({"create", "/data", "/Vemora.mdb"});
    EXPECT_EQ(missing.Exit, Status::Failed);
    EXPECT_NE(missing.Err.find("verdicts-tight.csv: there is no such file"), std::string::npos);
    publisher.Write("data/verdicts-tight.csv", "");
    EXPECT_NE(
        publisher.Run({"create", "/data", "/Vemora.mdb"}).Err.find("tight.csv:1:1: the heading is missing"),
        std::string::npos);
    EXPECT_EQ(publisher.Files(), (std::vector<std::string>{"data", "tight"}));
}

TEST(Help, TeachesEachCommandByExample) {
    const Publisher publisher;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"create", "--help"},
                                                      {"export", "--help"},
                                                      {"check", "--help"}}) {
        const Outcome outcome = publisher.Run(arguments);
        EXPECT_EQ(outcome.Exit, Status::Fine);
        EXPECT_NE(
            outcome.Out.find("Examples:\n  vemora-db " + (arguments.size() > 1 ? arguments[0] : "create")),
            std::string::npos)
            << outcome.Out;
    }
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"make"}, {"check"}, {"check", "/Vemora.mdb", "--password", "mora"}}) {
        EXPECT_EQ(publisher.Run(arguments).Exit, Status::WrongUsage);
    }
}

TEST(ShippedData, AreSoundAndStandAsExportWritesThem) {
    const Publisher publisher;
    fs::remove_all(publisher.Path("data"));
    fs::create_directory(publisher.Path("data"));
    for (const auto& entry : fs::directory_iterator(fs::path(VEMORA_SOURCE_DIR) / "data")) {
        if (entry.path().extension() == ".csv") {
            fs::copy_file(entry.path(), publisher.Path("data") / entry.path().filename());
        }
    }
    publisher.Create();
    // Names given twice, texts that a language lacks, formulas that can't be read, verdicts without a source
    // or better as the temperature rises, fixed materials missing: all of it would be told.
    const Outcome outcome = publisher.Run({"check", "/Vemora.mdb"});
    EXPECT_EQ(outcome.Exit, Status::Fine) << outcome.Out;
    ASSERT_EQ(publisher.Run({"export", "/Vemora.mdb", "/mine"}).Exit, Status::Fine);
    EXPECT_EQ(publisher.Csv("mine"), publisher.Csv("data"));
}

}  // namespace
