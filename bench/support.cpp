// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "support.h"

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <stdexcept>
#include <vector>

#include "platform/files/files.h"
#include "platform/forms/form.h"
#include "platform/store/schema.h"
#include "platform/store/store.h"

namespace bench {

namespace fs = std::filesystem;
using platform::Statement;
using platform::Store;

namespace {

constexpr const char* kPassword = "mora27";

// Words as a chemist's list has them, Swedish letters included.
std::string Word(std::mt19937& random) {
    static const std::vector<std::string> parts = {
        "metyl", "etyl", "klor", "syra",   "natrium", "kalium", "sulfat", "nitrat", "fenol", "olja",
        "lösn",  "väte", "amin", "bensen", "aceton",  "ester",  "fosf",   "brom",   "järn",  "zink"};
    std::string word;
    for (int i = 0; i < 2; ++i) {
        word += parts[random() % parts.size()];
    }
    word[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(word[0])));
    return word;
}

std::string Sentence(std::mt19937& random, int words) {
    std::string text = Word(random);
    for (int i = 1; i < words; ++i) {
        text += " " + Word(random);
    }
    return text;
}

void FillChemicals(Store& store, std::mt19937& random) {
    Statement insert = store.Prepare(
        "INSERT INTO Chemical (ID, Formula, FormulaRTF, NameSE, NameEN, NameGE, NickNameSE, NickNameEN, "
        "NickNameGE, NoteSE, NoteEN, NoteGE, Egen, Med) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,0,-1)");
    for (int id = 1; id <= kChemicals; ++id) {
        std::vector<std::string> texts = {
            "C" + std::to_string(id % 40 + 1) + "H" + std::to_string(id % 77 + 2) + "O2",
            "{\\rtf1 C{\\sub 2}H{\\sub 6}}"};
        for (int i = 0; i < 3; ++i) {
            texts.push_back(Sentence(random, 2) + " " + std::to_string(id));
        }
        for (int i = 0; i < 3; ++i) {
            texts.push_back(Word(random));
        }
        for (int i = 0; i < 3; ++i) {
            texts.push_back(Sentence(random, 5));
        }
        if (id % (kChemicals / 20) == 0) {
            texts[3] += kRareText;
        }
        insert.Bind(0, std::int64_t{id});
        for (std::size_t i = 0; i < texts.size(); ++i) {
            insert.Bind(static_cast<int>(i) + 1, std::string_view(texts[i]));
        }
        insert.Step();
        insert.Reset();
    }
}

void FillReferences(Store& store) {
    for (int i = 1; i <= 10; ++i) {
        const std::string n = std::to_string(i);
        store.Execute("INSERT INTO Conc VALUES (" + n + ", '" + n + "0 %', '" + n + "0 %', '" + n +
                      "0 %', 0, -1)");
        store.Execute("INSERT INTO Temp VALUES (" + n + ", '" + n + "0ºC', 0, -1)");
    }
    for (const char* table : {"Metal", "Plast", "Tight", "Misc"}) {
        for (int i = 1; i <= 20; ++i) {
            const std::string n = std::to_string(i);
            store.Execute(std::string("INSERT INTO ") + table +
                          " (ID, Name, Description, NameEN, DescriptionEN, Egen, Med) VALUES (" + n +
                          ", 'Material " + n + "', 'Beskrivning', 'Material " + n +
                          "', 'Description', 0, -1)");
        }
    }
}

void FillVerdicts(Store& store) {
    // 2,000 for the big one, 500 a class; the rest evenly.
    int left = kVerdicts;
    for (const char* table : {"Metal", "Plast", "Tight", "Misc"}) {
        Statement insert =
            store.Prepare(std::string("INSERT INTO rel") + table + " (ChemID, ConcID, TempID, " + table +
                          "ID, TheValue, Egen) VALUES (?,?,?,?,?,0)");
        const auto add = [&](int chemical, int conc, int temp, int material) {
            static const char* values[] = {"+", "-", "0"};
            insert.Bind(0, std::int64_t{chemical});
            insert.Bind(1, std::int64_t{conc});
            insert.Bind(2, std::int64_t{temp});
            insert.Bind(3, std::int64_t{material});
            insert.Bind(4, std::string_view(values[(chemical + conc + temp + material) % 3]));
            insert.Step();
            insert.Reset();
            --left;
        };
        for (int id = 1; id <= kChemicals; ++id) {
            if (id == kBigChemical) {
                for (int i = 0; i < 500; ++i) {
                    add(id, i % 5 + 1, i / 5 % 5 + 1, i / 25 + 1);
                }
                continue;
            }
            const int count = id % 2 == 0 ? 3 : 2;
            // At one concentration and temperature, two or three materials a class: what the shipped data
            // has.
            for (int i = 0; i < count && left > 0; ++i) {
                add(id, id % 10 + 1, id / 10 % 10 + 1, (id + i) % 20 + 1);
            }
        }
    }
}

}  // namespace

fs::path ProgramFolder(const fs::path& where) {
    const fs::path folder = where / "program";
    const fs::path file = folder / "Vemora.mdb";
    fs::create_directories(folder / "bin");
    {
        std::ofstream language(folder / "bin" / "lang.ini", std::ios::binary);
        language
            << "[System]\r\nlang=English\r\nR0015=Concentration\r\nR0016=Temperature\r\nR0017=Verdict\r\n"
               "R0018=Name\r\nR0019=Description\r\nR0031=Formula\r\nR0034=Chemical\r\nR0070=Metal\r\n"
               "R0086=Plastic\r\nR0110=Seal\r\nR0073=Other\r\nR0054=Hits:\r\nR0055=Searching\r\n"
               "R0021=rows\r\nR0040=All\r\nR0334=All\r\n";
    }
    if (fs::exists(file)) {
        return folder;
    }
    const fs::path part = folder / "part.mdb";
    fs::remove(part);
    {
        Store store(part, kPassword, Store::Access::Create);
        platform::CreateSchema(store);
        std::mt19937 random(20260101);
        store.Execute("BEGIN");
        FillChemicals(store, random);
        FillReferences(store);
        FillVerdicts(store);
        store.Execute("COMMIT");
        store.Close();
    }
    fs::rename(part, file);
    return folder;
}

void BareStore::Closer::operator()(sqlite3* db) const {
    sqlite3_close(db);
}

void BareStore::Closer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

BareStore::BareStore(const fs::path& file) {
    sqlite3* db = nullptr;
    const int code =
        sqlite3_open_v2(platform::Utf8FromPath(file).c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
    db_.reset(db);
    if (code != SQLITE_OK || sqlite3_key(db, kPassword, 6) != SQLITE_OK) {
        throw std::runtime_error("the bare store doesn't open");
    }
    for (const char* sql :
         {"PRAGMA cipher_page_size = 4096", "PRAGMA kdf_iter = 64000", "PRAGMA locking_mode = EXCLUSIVE",
          "PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL", "PRAGMA cache_size = -131072",
          "PRAGMA temp_store = MEMORY", "SELECT count(*) FROM sqlite_master"}) {
        sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
    }
}

BareStore::~BareStore() = default;

std::unique_ptr<sqlite3_stmt, BareStore::Closer> BareStore::Prepare(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(db_.get()));
    }
    return std::unique_ptr<sqlite3_stmt, Closer>(statement);
}

long BareStore::ReadAll(const std::string& sql, long most) const {
    const auto statement = Prepare(sql);
    long rows = 0;
    std::size_t bytes = 0;
    while (rows < most && sqlite3_step(statement.get()) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
            sqlite3_column_text(statement.get(), i);
            bytes += static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), i));
        }
        ++rows;
    }
    return bytes > 0 ? rows : 0;
}

void BareStore::RunEach(const std::string& sql, int last) const {
    const auto statement = Prepare(sql);
    for (int id = 1; id <= last; ++id) {
        sqlite3_bind_int(statement.get(), 1, id);
        if (sqlite3_step(statement.get()) != SQLITE_DONE) {
            throw std::runtime_error(sqlite3_errmsg(db_.get()));
        }
        sqlite3_reset(statement.get());
    }
}

std::string BareStore::Plan(const std::string& sql) const {
    const auto statement = Prepare("EXPLAIN QUERY PLAN " + sql);
    return sqlite3_step(statement.get()) == SQLITE_ROW
               ? reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 3))
               : "";
}

int NullDesktop::MsgBox(const std::string& text, int, const std::optional<std::string>&) {
    std::fprintf(stderr, "unexpected message: %s\n", text.c_str());
    std::abort();
}

void NullDesktop::Show(platform::Form& form, bool, platform::Form*) {
    form.InputResize(form.Width(), form.Height());
    form.InputActivate();
}

int NullDesktop::TextWidth(const platform::Font&, const std::string& text) const {
    return static_cast<int>(text.size()) * 90;
}

}  // namespace bench
