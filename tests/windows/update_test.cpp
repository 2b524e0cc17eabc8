// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <sstream>

#include "about/frmAbout.h"
#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"
#include "support/http_server.h"
#include "support/session.h"
#include "update/frmUPD.h"
#include "vemora-db/program.h"

namespace vemora {
namespace {

using test::HttpServer, test::Strings;

/// A value line with these fields, the others empty.
std::string Line(const std::map<int, std::string>& fields, int count = 30) {
    std::string line;
    for (int i = 0; i < count; ++i) {
        line += (i > 0 ? ";" : "") + (fields.contains(i) ? fields.at(i) : "");
    }
    return line + "\r\n";
}
const std::string kHeading = "1;this;looks;like;data;;;;;;\r\n";
const std::string kHCl =
    "1;HCl;Saltsyra;Hydrochloric acid;Salzsäure;Ryker i luft;Fumes in air;Raucht;"
    "Klorväte;Muriatic acid;Chlorwasserstoff\r\n";

class Update : public testing::Test {
  protected:
    /// What one press of the button says, and what of the tables has come and gone, "+" and "-" before each
    /// row.
    void Import(const std::string& text) {
        Reply = HttpServer::Ok(platform::ToWindows1252(text), "application/octet-stream");
        Press();
    }
    void Press() {
        const Strings before = Run.All();
        Run.Desktop.WhileModal<frmUPD>([&](frmUPD& w) {
            w.Inet.Limits.Silence = std::chrono::seconds(10);
            EXPECT_EQ(w.lblPost.Caption, "");
            Run.Desktop.OnPaint = [&] {
                EXPECT_FALSE(w.cmdImport.Enabled || w.cmdClose.Enabled);
                if (w.lblInfo.Visible && !w.lblPost.Caption->empty()) {
                    Shown.push_back(w.lblPost.Caption);
                }
            };
            w.cmdImport.InputClick();
            Run.Desktop.OnPaint = [] {};
            StaysOpen = w.IsLoaded();
            if (StaysOpen) {
                EXPECT_TRUE(w.cmdImport.Enabled && w.cmdClose.Enabled);
                InfoStays = w.lblInfo.Visible;
                w.cmdClose.InputClick();
            }
        });
        Run.Core.Published.UpdateHost = Host;
        Run.Main().mnuUpd.InputClick();
        Changes = test::Less(before, Run.All(), "-");
        std::ranges::copy(test::Less(Run.All(), before, "+"), std::back_inserter(Changes));
        Boxes = Run.Boxes();
        EXPECT_EQ(Run.Folder.Files(), (Strings{"Vemora.mdb", "Vemora.mdb-wal"}));
    }
    std::string Told(int changes) {
        return "[64 " + Run.T("R0079") + "] " +
               (changes == 0 ? Run.T("R0080") : std::to_string(changes) + " " + Run.T("R0078"));
    }
    std::string Failure(long number, const std::string& procedure) {
        return Run.Report(number, procedure + " in Form frmUPD");
    }
    /// How many of the changed rows begin so.
    long Count(const std::string& beginning) const {
        return std::count_if(Changes.begin(), Changes.end(),
                             [&](const std::string& row) { return row.starts_with(beginning); });
    }

    test::Running Run{"Svenska",
                      "CREATE TRIGGER Refuse BEFORE INSERT ON relPlast WHEN new.TheValue = 'x' "
                      "BEGIN SELECT RAISE(ABORT, 'no'); END"};
    std::string Reply;
    HttpServer Server{[this](const std::string& request) {
        return request == "GET /Vemora/Varden.skv HTTP/1.1" ? Reply : "HTTP/1.1 404 No\r\n\r\n";
    }};
    std::string Host = Server.Host();
    Strings Changes, Boxes, Shown;
    bool StaysOpen = false, InfoStays = false;
};

TEST_F(Update, WritesChemicalsAndLeavesTheirMarks) {
    // One new, one the user's own, one as it was; ends of all three kinds, the last without.
    Import(
        "77;x;y;;;;;;;;\r\n 77;HF;Fluorvätesyra;Hydrofluoric acid;Flußsäure;;;;;;;more;;\n\r\n"
        "3;C;Olja;Oil;Öl;n1;n2;n3;t1;t2;t3\r" +
        platform::Trim(kHCl.substr(0, kHCl.size() - 2)));
    EXPECT_EQ(Boxes, Strings{Told(1)});
    EXPECT_EQ(Changes, (Strings{"-Chemical|3|C10–C13||ångolja|Steam oil|||||Över 50_% [fast] *|||-1|-1",
                                "+Chemical|3|C||Olja|Oil|Öl|t1|t2|t3|n1|n2|n3|-1|-1",
                                "+Chemical|77|HF||Fluorvätesyra|Hydrofluoric acid|Flußsäure|||||||0|-1"}));
    EXPECT_EQ(Shown, (Strings{"Kemikalie: Fluorvätesyra", "Kemikalie: Olja", "Kemikalie: Saltsyra"}));
    EXPECT_FALSE(StaysOpen);
    EXPECT_EQ(Run.Desktop.Logged("pointer"), (Strings{"pointer 11", "pointer 0"}));
}

// Each field goes to its material; all sixteen get a row, and an empty cell a blank.
TEST_F(Update, WritesValuesByTheTableOfMaterials) {
    std::map<int, std::string> fields = {{2, "5 %"}, {3, "5 pct"}, {13, "7º"}};
    for (int i = 14; i < 30; ++i) {
        fields[i] = std::to_string(i);
    }
    Import(kHeading + kHCl + Line(fields) + Line({{13, "20ºC"}, {14, " - "}}, 15));
    EXPECT_EQ(Boxes, Strings{Told(0)});
    Strings expected = {"+Conc|5|5 %|5 pct||0|-1", "+Temp|5|7º|0|-1"};
    int field = 14;
    for (const std::string material :
         {"Plast|1", "Plast|6", "Plast|4", "Plast|2", "Plast|3", "Plast|5", "Metal|8", "Metal|1", "Metal|5",
          "Metal|7", "Tight|4", "Tight|2", "Tight|3", "Tight|7", "Tight|8", "Tight|5"}) {
        const std::string row = "+rel" + material.substr(0, 5) + "|1|5|";
        const std::string id = material.substr(5) + "|";
        expected.push_back(row + "5" + id + std::to_string(field) + "|0");
        expected.push_back(row + "1" + id + (field++ == 14 ? " - " : " ") + "|0");
    }
    EXPECT_EQ(std::set(Changes.begin(), Changes.end()), std::set(expected.begin(), expected.end()));
}

TEST_F(Update, OverwritesWhatItMatchesAndCountsWhatDiffers) {
    // The user's own verdict of PE at 10 %, 5º, and two delivered ones at 20ºC; the English text of a
    // concentration is replaced, an empty one is not.
    Import(kHeading + kHCl + Line({{2, "10 %"}, {3, "ten"}, {13, "5º"}, {17, "+"}}) +
           Line({{13, "20ºC"}, {14, " "}, {21, " - "}}) + Line({{13, "100ºc"}, {25, "0"}}, 40));
    EXPECT_EQ(Boxes, Strings{Told(3)});  // blanks around a verdict make no difference, an empty cell does
    // Equal but for case, a temperature is found, and written as the file has it.
    for (const char* const row :
         {"+relPlast|1|1|3|2|+|-1", "+relMetal|1|1|1|1| - |0", "+Conc|1|10 %|ten|10 %|0|-1",
          "+relMetal|1|1|4|1| |0", "+Temp|4|100ºc|0|-1"}) {
        EXPECT_EQ(Count(row), 1) << row;
    }
    // Once more: nothing is new.
    Press();
    EXPECT_EQ(Boxes, Strings{Told(0)});
    EXPECT_EQ(Changes, Strings{});
}

TEST_F(Update, GoesOnAfterAFaultyLine) {
    // Values before any chemical, and right behind one without a concentration.
    Import(kHeading + Line({{13, "20ºC"}, {14, "+"}}) + kHCl + Line({{13, "20ºC"}, {14, "-"}}));
    EXPECT_EQ(Count("+relPlast|0|0|1|1|+|0") + Count("+relPlast|1|-1|1|1|-|0"), 2);
    EXPECT_EQ(Boxes, Strings{Told(1)});

    // An apostrophe: the values are written under no concentration, no temperature.
    Import(kHeading + kHCl + Line({{2, "5'"}, {13, "20ºC"}, {20, "+"}}) +
           Line({{2, "10 %"}, {13, "'"}, {20, "0"}}));
    EXPECT_EQ(Boxes, (Strings{Failure(-2147217900, "GetKonc"), Failure(-2147217900, "GetTemp"), Told(0)}));
    EXPECT_EQ(Count("+relMetal|1|0|1|8|+|0") + Count("+relMetal|1|1|0|8|0|0"), 2);

    // A chemical of too few fields isn't written, its values are; the next import begins where this one ends.
    Import(kHeading + "88;a;b;c;d\r\n" + Line({{2, "10 %"}, {13, "20ºC"}, {20, "+"}}));
    EXPECT_EQ(Boxes, (Strings{Failure(9, "SättKemikalie"), Told(1)}));
    EXPECT_EQ(Count("+Chemical"), 0);
    EXPECT_EQ(Count("+relMetal|88|1|1|8|+|0"), 1);
    Import(kHeading + Line({{13, "60ºC"}, {20, "-"}}));
    EXPECT_EQ(Count("+relMetal|88|1|2|8|-|0"), 1);

    // An empty temperature is one like any other. A value that can't be written costs a box; the others
    // follow.
    Run.Change("DELETE FROM relPlast WHERE ChemID = 1");
    Import(kHeading + kHCl + Line({{2, "50 %"}, {14, "x"}}));
    EXPECT_EQ(Boxes, (Strings{Failure(-2147467259, "SättPlastVärde"), Told(0)}));
    EXPECT_EQ(Count("+Temp|5||0|-1") + Count("+relPlast|1|4|5|") + Count("+relMetal|1|4|5|"), 1 + 5 + 4);
}

TEST_F(Update, TellsNumbersFromOtherFields) {
    Import(kHeading +
           "1e3;;10 %\r\n12,5;;10 %\r\n+-5;;10 %\r\n-5;F;namn;;;;;;;;\r\n\t+6 ;F;namn;;;;;;;;\r\n");
    EXPECT_EQ(Boxes, Strings{Told(2)});
    EXPECT_EQ(Count("+Chemical|-5|") + Count("+Chemical|6|"), 2);
    EXPECT_EQ(Count("+relPlast|0|1|"), 6);  // the first three lines are values of nothing
    for (const std::string number : {"12.5", "3000000000"}) {
        Import(kHeading + number + ";F;namn;;;;;;;;\r\n" + kHCl);
        EXPECT_TRUE(Boxes[0].starts_with("[16 Vemora] 13\r\n") && Boxes[0].ends_with(".\r\nvalue"));
        EXPECT_EQ(Boxes.back(), Told(0));
    }
    // What was written before the reading ended stays, though its number is lost.
    Import(kHeading + "90;F;namn;;;;;;;;\r\n91;F\r\n" + kHCl);
    EXPECT_TRUE(Boxes[0].starts_with("[16 Vemora] 9\r\n")) << Boxes[0];
    EXPECT_EQ(Changes.size(), 1U);
    EXPECT_EQ(Run.Desktop.Logged("beep").size(), 3U);
}

TEST_F(Update, WithNothingToReadLeavesAllAsItWas) {
    Import("");
    EXPECT_EQ(Boxes, Strings{"[48 " + Run.T("R0077") + "] " + Run.T("R0074") + "\r\n\r\n" + Run.T("R0075") +
                             "\r\n\r\n" + Run.T("R0076")});
    EXPECT_FALSE(StaysOpen);
    for (const char* const heading : {"1;F;n;;;;;;;;", "\r\n"}) {
        Import(heading);
        EXPECT_EQ(Boxes, Strings{Told(0)});
    }
    EXPECT_EQ(Changes, Strings{});
    // A failed download leaves the window open and the pointer as it is. No server is named, or one that
    // should prove who it is.
    const std::string cut = "HTTP/1.1 200 OK\r\nContent-Length: 9000\r\n\r\n" + kHCl + kHCl;
    const std::string huge = "HTTP/1.1 200 OK\r\n\r\n" + std::string(std::size_t{65} << 20U, 'x');
    for (const auto& [host, reply, number] : {std::tuple(Host, cut, platform::errors::ConnectionLost),
                                              {Host, huge, platform::errors::TooLarge},
                                              {"", cut, platform::errors::UnknownHost},
                                              {"https://" + Host + "/", cut, platform::errors::NotSecure}}) {
        Host = host;
        Reply = reply;
        Press();
        EXPECT_EQ(Boxes, Strings{Failure(number, "cmdImport_Click")});
        EXPECT_TRUE(StaysOpen && !InfoStays);
        EXPECT_EQ(Changes, Strings{});
        EXPECT_EQ(Run.Desktop.Logged("pointer").back(), "pointer 11");
    }
    Host = Server.Host() + "/";
    // Nor is there anything to be read where the file can't be laid down.
    std::filesystem::create_directory(Run.Folder.Path() / "Upd.skv.tmp");
    Import(kHeading + kHCl);
    EXPECT_EQ(Boxes, Strings{Failure(platform::errors::PathFileAccess, "cmdImport_Click")});
    EXPECT_TRUE(StaysOpen && InfoStays);
}

// The publisher's newer database, by way of the file and the server, into the user's older one.
TEST_F(Update, BringsAnOlderDatabaseUpToDate) {
    const test::ProgramFolder newer("Svenska");
    newer.Change(
        "UPDATE Chemical SET NoteSE = 'Ny', Egen = 0; UPDATE Conc SET ConcentrationEN = 'ten' WHERE ID = 1;"
        "INSERT INTO Chemical(ID, NameSE) VALUES(70, 'Nytt'); INSERT INTO Conc(ConcentrationSE) VALUES('7 "
        "%');"
        "UPDATE relMetal SET TheValue = '0'; INSERT INTO relTight SELECT 70, 5, 1, ID, '+', 0 FROM Tight;"
        "INSERT INTO relPlast SELECT 70, -1, 4, ID, '-', 0 FROM Plast");
    std::ostringstream said;
    const auto tool = [&](const char* command, const std::filesystem::path& a,
                          const std::filesystem::path& b) {
        const std::string first = platform::Utf8FromPath(a);
        const std::string second = platform::Utf8FromPath(b);
        const char* words[] = {"vemora-db", command, "--no-warnings", first.c_str(), second.c_str()};
        return vemora_db::Run(5, words, said, said, false);
    };
    const auto file = newer.Path() / "Varden.skv";
    EXPECT_EQ(tool("update-file", newer.Database(), file), vemora_db::Status::Fine) << said.str();
    Reply = HttpServer::Ok(test::ReadAll(file));
    Press();
    EXPECT_EQ(Boxes, Strings{Told(1 + 5)});
    Run.Main().InputClose();
    EXPECT_EQ(tool("diff", Run.Folder.Database(), newer.Database()), vemora_db::Status::Fine) << said.str();
}

TEST(About, OpensItsPagesAndTheSystemsTool) {
    test::Running run("Deutsch");
    run.Desktop.WhileModal<frmAbout>([&](frmAbout& about) {
        EXPECT_EQ(about.lblVersion.Caption, "Version " + run.Core.Published.Version);
        about.imgMaker.InputClick();
        about.InputKey(platform::key::F1);
        about.imgDistributor.InputClick();
        run.Core.Published.DistributorPage = "https://example.org/";
        about.imgDistributor.InputClick();
        run.Desktop.HasSystemInformation = false;
        about.cmdSysInfo.InputClick();
        test::Press(about, platform::key::Return);
        EXPECT_FALSE(about.IsLoaded());
    });
    run.Main().mnuInfo.InputClick();
    EXPECT_EQ(run.Boxes(), Strings{"[64 Vemora] " + run.T("R0341")});
    const std::string pages = "web " + platform::Utf8FromPath(run.Folder.Path() / "pages" / "");
    EXPECT_EQ(run.Desktop.Logged("web "), (Strings{pages + "data-de.html", pages + "manual-de.html",
                                                   pages + "manual-de.html", "web https://example.org/"}));
}

}  // namespace
}  // namespace vemora
