// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "support/program_folder.h"

#include <algorithm>

#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"

namespace test {

namespace fs = std::filesystem;

namespace {

// The chemical 1 has verdicts of every value in every class, some of them at rows left out (Med 0, the last
// number of a reference row) or of the user's own (Egen -1), one at no particular concentration (-1) and one
// of a material that is gone. The chemical 2 has metals only, at left out concentrations; 3 to 5 have none.
constexpr std::string_view kSampleRows = R"sql(
INSERT INTO Chemical VALUES
  (1, 'HCl', NULL, 'Saltsyra', 'Hydrochloric acid', 'Salzsäure', 'Klorväte', 'Muriatic acid',
   'Chlorwasserstoff', 'Ryker i luft', 'Fumes in air', 'Raucht', 0, -1),
  (2, 'H2SO4', '{\rtf1\ansi H\sub 2\nosupersub SO\sub 4\nosupersub}', 'Svavelsyra', 'Sulphuric acid',
   'Schwefelsäure', 'Batterisyra', 'Battery acid', 'Batteriesäure', 'Tar vatten', 'Takes water', 'Ölig', 0, -1),
  (3, 'C10–C13', NULL, 'ångolja', 'Steam oil', NULL, NULL, NULL, NULL, 'Över 50_% [fast] *', NULL, NULL, -1, -1),
  (4, NULL, '{\rtf1 \sub', 'Bensin', '', 'Benzin', 'Soppa', NULL, NULL, 'åÅ', NULL, 'Straße', 0, -1),
  (5, 'Na2CO3', NULL, 'Äkta soda', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, -1, -1);
INSERT INTO Conc VALUES (1, '10 %', '10 %', '10 %', 0, -1), (2, '2 %', '2 %', '2 %', 0, 0),
  (3, 'koncentrerad', 'concentrated', 'konzentriert', 0, -1), (4, '50 %', 'half', '50 %', -1, 0);
INSERT INTO [Temp] VALUES (1, '20ºC', 0, -1), (2, '60ºC', 0, 0), (3, '5º', -1, -1), (4, '100ºC', 0, -1);
INSERT INTO Metal VALUES (1, 'Stål', 'Kolstål', 'Steel', 'Carbon steel', 0, -1),
  (2, 'Zink', 'Zn', 'Zinc', 'Zn', 0, 0), (3, 'Guld', NULL, 'Gold', NULL, -1, -1);
INSERT INTO Plast VALUES (1, 'PVC', 'Hård', 'PVC', 'Rigid', 0, -1), (2, 'PE', 'Eten', 'PE', 'Ethene', 0, -1);
INSERT INTO Tight VALUES (1, 'EPDM', 'Gummi', 'EPDM rubber', 'Rubber', 0, -1, 'EPDM', 'Kautschuk'),
  (2, ' NBR ', 'Nitril', 'NBR', 'Nitrile', 0, -1, NULL, NULL);
INSERT INTO Misc VALUES (1, 'Glas', 'Silikat', 'Glass', 'Silicate', 0, -1),
  (2, 'Trä', 'Furu', 'Wood', 'Pine', 0, 0);
INSERT INTO relMetal VALUES (1,1,1,1,'-',0), (1,1,4,1,'0',0), (1,3,1,1,' ',0), (1,2,1,1,'+',0),
  (1,1,2,1,'+',0), (1,1,1,2,'+',0), (1,1,1,3,'+',0), (1,1,1,99,'+',0), (2,2,1,1,'+',0);
INSERT INTO relPlast VALUES (1,-1,1,1,'+',0), (1,4,1,1,'-',0), (1,1,3,2,'0',-1), (1,1,1,1,' ',0),
  (1,1,1,2,' ',0);
INSERT INTO relTight VALUES (1,1,1,1,'+',0), (1,3,1,2,'-',0), (1,1,2,1,'0',0), (1,1,4,2,' ',0);
INSERT INTO relMisc VALUES (1,1,1,1,'+',0), (1,3,4,1,'-',0), (1,1,4,1,'0',0), (1,3,1,1,' ',0),
  (1,1,1,2,'+',0), (1,1,3,1,'X',0);
)sql";

// Making a key is slow by design: all tests of a process begin with a copy of one file.
const std::string& SampleDatabase() {
    static const std::string bytes = [] {
        const TestDatabase database;
        database.Fill(kSampleRows);
        return ReadAll(database.File());
    }();
    return bytes;
}

}  // namespace

ProgramFolder::ProgramFolder(const std::string& language) {
    fs::create_directory(Path() / "bin");
    platform::WriteFile(Database(), SampleDatabase());
    for (const std::string name : {"Svenska", "English", "Deutsch"}) {
        const std::string file = "Lang" + name + ".ini";
        const std::string text = ReadAll(fs::path(VEMORA_SOURCE_DIR) / "data" / "lang" / file);
        WriteLanguage(file, text);
        if (name == language) {
            WriteLanguage("lang.ini", text);
        }
    }
}

fs::path ProgramFolder::Bin(std::string_view name) const {
    return Path() / "bin" / platform::PathFromUtf8(name);
}

std::vector<std::string> ProgramFolder::Files(const char* under) const {
    std::vector<std::string> names = platform::Dir(Path() / under, "*");
    std::sort(names.begin(), names.end());
    return names;
}

void ProgramFolder::WriteLanguage(std::string_view name, std::string_view text) const {
    platform::WriteFile(Bin(name), platform::ToWindows1252(platform::Replace(text, "\n", "\r\n")));
}

void ProgramFolder::Change(std::string_view sql) const {
    platform::Store store(Database(), kPassword, platform::Store::Access::Exclusive);
    store.Execute(sql);
    store.Close();
}

}  // namespace test
