// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/test_database.h"
#include "platform/text/text.h"
#include "vemora-db/program.h"

namespace test {

namespace fs = std::filesystem;
using vemora_db::Status;

struct Outcome {
    Status Exit;
    std::string Out, Err;
};

inline bool Has(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// A publisher at work: a folder of CSV files, beside it the databases, and the program.
class Publisher {
  public:
    /// With data in which there is nothing to find fault with, as export would write them.
    Publisher() {
        fs::create_directory(Path("data"));
        Write("data/chemicals.csv",
              "ID,Formula,FormulaRTF,NameSE,NameEN,NameGE,NickNameSE,NickNameEN,NickNameGE,NoteSE,NoteEN,"
              "NoteGE,"
              "Egen,Med\n1,H2SO4,auto,Svavelsyra,Sulfuric acid,Schwefelsäure,,,,\"Stark, \"\"rykande\"\"\r\n"
              "vid 20 %\",Strong,\" Stark\",0,-1\n2,C10–C13,{\\rtf1 C10},Paraffin,Paraffins,Paraffine,"
              "Vax,Wax,Wachs,,,,0,-1\n5,,auto,Egen lut,My lye,Meine Lauge,\"\",,,,,,-1,-1\n");
        Write("data/concentrations.csv",
              "ID,ConcentrationSE,ConcentrationEN,ConcentrationDE,Egen,Med\n"
              "1,10 %,10 % sol.,10 % Lsg.,0,-1\n2,mättad,saturated,gesättigt,0,0\n");
        Write("data/temperatures.csv", "ID,Temp,Egen,Med\n1,20ºC,0,-1\n2,60ºC,0,-1\n3,80ºC,-1,-1\n");
        Write("data/sources.csv",
              "ID,Code,NameSE,NameEN,NameDE\n1,S1,Etta,One,Eins\n2,S2,Två,Two,Zwei\n3,S3,Tre,Three,Drei\n");
        std::string materials =
            "Class,ID,Key,Name,Description,NameEN,DescriptionEN,NameDE,DescriptionDE,Egen,Med\n";
        const std::pair<std::string, std::string> classes[] = {
            {"Metal", "1578"}, {"Plast", "123456"}, {"Tight", "234578"}, {"Misc", "12"}};
        for (const auto& [name, ids] : classes) {
            std::string keys;
            for (const char id : ids) {
                const std::string key = name + "-" + id;
                keys += key + ",";
                materials += name + "," + id + "," + key + "," + key + " sv,,English " + key + ",," +
                             (name == "Tight" ? "Deutsch " + key : "") + ",,0,-1\n";
            }
            const auto cells = [count = ids.size()](std::string text, const std::string& others) {
                for (std::size_t i = 1; i < count; ++i) {
                    text += "," + others;
                }
                return text;
            };
            Write("data/verdicts-" + platform::LCase(name) + ".csv",
                  "ChemID,Chemical,ConcID,Concentration,TempID,Temperature," + keys +
                      "Source\n1,Svavelsyra,-1,,1,20ºC," + cells("+", "0*") +
                      ",S1\n1,Svavelsyra,1,10 %,1,20ºC," + cells("+", "0") +
                      ",S3; ≤: S1\n1,Svavelsyra,1,10 %,2,60ºC," + cells("-*", "_") +
                      ",\"S1, S2\"\n2,Paraffin,2,mättad,1,20ºC," + cells("0", "") +
                      ",S1\n5,Egen lut,1,10 %,3,80ºC," + cells("+*", "") + ",\n");
        }
        Write("data/materials.csv", materials);
    }

    /// Puts the data that the project ships in the place of its own.
    void TakeShippedData() const {
        fs::remove_all(Path("data"));
        fs::create_directory_symlink(fs::path(VEMORA_SOURCE_DIR) / "data", Path("data"));
    }

    fs::path Path(std::string_view name) const { return folder_.Path() / name; }

    /// Runs the program; arguments that begin with "/" are places in the folder.
    Outcome Run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "vemora-db");
        std::vector<const char*> argv;
        for (std::string& argument : arguments) {
            if (argument.starts_with('/')) {
                const auto place = Path(argument.substr(1)).u8string();
                argument.assign(place.begin(), place.end());
            }
            argv.push_back(argument.c_str());
        }
        std::ostringstream out, err;
        const Status exit = vemora_db::Run(static_cast<int>(argv.size()), argv.data(), out, err, false);
        return {exit, out.str(), err.str()};
    }
    /// Creates "Vemora.mdb" from "data" and expects that it works.
    void Create() const {
        const Outcome outcome = Run({"create", "/data", "/Vemora.mdb"});
        ASSERT_EQ(outcome.Exit, Status::Fine) << outcome.Err;
    }

    std::string Read(std::string_view name) const { return ReadAll(Path(name)); }
    void Write(std::string_view name, std::string_view bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }
    /// The CSV files of a folder by name.
    std::map<std::string, std::string> Csv(std::string_view folder) const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(Path(folder))) {
            if (entry.path().extension() == ".csv") {
                files[entry.path().filename().string()] = ReadAll(entry.path());
            }
        }
        return files;
    }
    /// The names of all that lies in the folder.
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.Path())) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

    /// Changes a database by a statement of the store's own SQL.
    void Change(std::string_view database, std::string_view sql) const {
        platform::Store store(Path(database), kPassword, platform::Store::Access::Exclusive);
        store.Execute(sql);
        store.Close();
    }
    /// All rows of all tables, in words.
    std::string Rows(std::string_view database) const {
        platform::Store store(Path(database), kPassword, platform::Store::Access::ReadOnly);
        std::string rows;
        auto tables = store.Prepare("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
        while (tables.Step()) {
            const std::string table(tables.Text(0));
            auto row = store.Prepare("SELECT * FROM [" + table + "]");
            for (; row.Step(); rows += '\n') {
                rows += table;
                for (int i = 0; i < row.Columns(); ++i) {
                    rows += row.IsNull(i) ? "|Null" : "|'" + std::string(row.Text(i)) + "'";
                }
            }
        }
        return rows;
    }

  private:
    TestFolder folder_;
};

/// One that has created "Vemora.mdb".
struct Created : Publisher {
    Created() { Create(); }
};

}  // namespace test
