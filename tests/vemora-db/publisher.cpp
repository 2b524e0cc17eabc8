// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/publisher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace test {

namespace fs = std::filesystem;

namespace {

struct Class {
    std::string Name;
    std::string File;
    std::vector<int> IDs;
};

const std::vector<Class>& Classes() {
    static const std::vector<Class> classes = {{"Metal", "verdicts-metal.csv", {1, 5, 7, 8}},
                                               {"Plast", "verdicts-plast.csv", {1, 2, 3, 4, 5, 6}},
                                               {"Tight", "verdicts-tight.csv", {2, 3, 4, 5, 7, 8}},
                                               {"Misc", "verdicts-misc.csv", {1, 2}}};
    return classes;
}

std::string Materials() {
    std::ostringstream out;
    out << "Class,ID,Key,Name,Description,NameEN,DescriptionEN,NameDE,DescriptionDE,Egen,Med\n";
    for (const Class& one : Classes()) {
        for (const int id : one.IDs) {
            const std::string name = one.Name + "-" + std::to_string(id);
            out << one.Name << ',' << id << ',' << name << ',' << name << " sv,,English " << name << ",,"
                << (one.Name == "Tight" ? "Deutsch " + name : "") << ",,0,-1\n";
        }
    }
    return out.str();
}

std::string Verdicts(const Class& one) {
    const auto cells = [&](std::string_view first, std::string_view others) {
        std::string text(first);
        for (std::size_t i = 1; i < one.IDs.size(); ++i) {
            text.append(",").append(others);
        }
        return text;
    };
    std::string keys;
    for (const int id : one.IDs) {
        keys += one.Name + "-" + std::to_string(id) + ",";
    }
    return "ChemID,Chemical,ConcID,Concentration,TempID,Temperature," + keys + "Source\n" +  //
           "1,Svavelsyra,-1,,1,20ºC," + cells("+", "0*") + ",S1\n" + "1,Svavelsyra,1,10 %,1,20ºC," +
           cells("+", "0") + ",S3 ≤\n" + "1,Svavelsyra,1,10 %,2,60ºC," + cells("-*", "_") + ",\"S1, S2\"\n" +
           "2,Paraffin,2,mättad,1,20ºC," + cells("0", "") + ",S1\n" + "5,Egen lut,1,10 %,3,80ºC," +
           cells("+*", "") + ",\n";
}

}  // namespace

Publisher::Publisher() {
    fs::create_directory(Path("data"));
    Write("data/chemicals.csv",
          "ID,Formula,FormulaRTF,NameSE,NameEN,NameGE,NickNameSE,NickNameEN,NickNameGE,NoteSE,NoteEN,NoteGE,"
          "Egen,Med\n"
          "1,H2SO4,auto,Svavelsyra,Sulfuric acid,Schwefelsäure,,,,\"Stark, \"\"rykande\"\"\r\nvid 20 "
          "%\",Strong,"
          "\" Stark\",0,-1\n"
          "2,C10–C13,{\\rtf1 C10},Paraffin,Paraffins,Paraffine,Vax,Wax,Wachs,,,,0,-1\n"
          "5,,auto,Egen lut,My lye,Meine Lauge,\"\",,,,,,-1,-1\n");
    Write("data/concentrations.csv",
          "ID,ConcentrationSE,ConcentrationEN,ConcentrationDE,Egen,Med\n"
          "1,10 %,10 % sol.,10 % Lsg.,0,-1\n2,mättad,saturated,gesättigt,0,0\n");
    Write("data/temperatures.csv", "ID,Temp,Egen,Med\n1,20ºC,0,-1\n2,60ºC,0,-1\n3,80ºC,-1,-1\n");
    Write("data/materials.csv", Materials());
    for (const Class& one : Classes()) {
        Write("data/" + one.File, Verdicts(one));
    }
}

Outcome Publisher::Run(const std::vector<std::string>& arguments) const {
    std::vector<std::string> full = {"vemora-db"};
    for (const std::string& argument : arguments) {
        const auto place = Path(argument.substr(argument.starts_with('/') ? 1 : 0)).u8string();
        full.push_back(argument.starts_with('/') ? std::string(place.begin(), place.end()) : argument);
    }
    std::vector<const char*> argv;
    for (const std::string& argument : full) {
        argv.push_back(argument.c_str());
    }
    std::ostringstream out;
    std::ostringstream err;
    const Status exit = vemora_db::Run(static_cast<int>(argv.size()), argv.data(), out, err, false);
    return {exit, out.str(), err.str()};
}

void Publisher::Create() const {
    const Outcome outcome = Run({"create", "/data", "/Vemora.mdb"});
    ASSERT_EQ(outcome.Exit, Status::Fine) << outcome.Err;
}

void Publisher::Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
}

void Publisher::Edit(std::string_view name, std::string_view from, std::string_view to) const {
    std::string text = Read(name);
    const auto at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    ASSERT_EQ(text.find(from, at + 1), std::string::npos) << from;
    Write(name, text.replace(at, from.size(), to));
}

std::map<std::string, std::string> Publisher::Csv(std::string_view folder) const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(Path(folder))) {
        files[entry.path().filename().string()] = ReadAll(entry.path());
    }
    return files;
}

std::vector<std::string> Publisher::Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void Publisher::Change(std::string_view database, std::string_view sql) const {
    platform::Store store(Path(database), kPassword, platform::Store::Access::Exclusive);
    store.Execute(sql);
    store.Close();
}

std::string Publisher::Rows(std::string_view database) const {
    platform::Store store(Path(database), kPassword, platform::Store::Access::ReadOnly);
    std::vector<std::string> tables;
    auto names = store.Prepare("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name");
    while (names.Step()) {
        tables.emplace_back(names.Text(0));
    }
    std::ostringstream out;
    for (const std::string& table : tables) {
        auto rows = store.Prepare("SELECT * FROM [" + table + "]");
        while (rows.Step()) {
            out << table;
            for (int i = 0; i < rows.Columns(); ++i) {
                out << '|' << (rows.IsNull(i) ? "Null" : "'" + std::string(rows.Text(i)) + "'");
            }
            out << '\n';
        }
    }
    return out.str();
}

}  // namespace test
