// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/files.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/files/ini.h"
#include "platform/test_database.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using test::ErrorOf;
using Strings = std::vector<std::string>;

class Files : public testing::Test {
  protected:
    Files() { fs::create_directory(bin_); }

    void Write(const std::string& name, std::string_view bytes = {}) const {
        WriteFile(bin_ / PathFromUtf8(name), bytes);
    }
    Strings Names(std::string_view pattern = "*") const {
        auto names = Dir(bin_, pattern);
        std::sort(names.begin(), names.end());
        return names;
    }
    // Puts a file there without the care that WriteFile takes of other spellings.
    fs::path Spelling(const std::string& name) const {
        WriteFile(folder_ / "other", name);
        fs::rename(folder_ / "other", folder_ / name);
        return folder_ / name;
    }

    const test::TestFolder home_;
    const fs::path folder_ = home_.Path();
    const fs::path bin_ = folder_ / "bin";
};

TEST_F(Files, DirMatchesPatterns) {
    for (const char* name : {"lang.ini", "LangSE.INI", "Lang en.ini", "lang.ini.bak", "språk.ini"}) {
        Write(name);
    }
    fs::create_directory(bin_ / "LangDir.ini");
    EXPECT_EQ(Names("Lang*.ini"), (Strings{"Lang en.ini", "LangSE.INI", "lang.ini"}));
    EXPECT_EQ(Names("LANG??.ini"), (Strings{"LangSE.INI"}));
    EXPECT_EQ(Names("SPR?K.*"), (Strings{"språk.ini"}));
    EXPECT_EQ(Names("SPRÅK.ini"), (Strings{"språk.ini"}));
    EXPECT_EQ(Names("*.i*i*").size(), 5u);
    for (const char* pattern : {"*a*a*a*", "ang.ini", ""}) {
        EXPECT_EQ(Names(pattern), Strings()) << pattern;
    }
    EXPECT_EQ(Dir(folder_ / "none", "*"), Strings());
}

TEST_F(Files, FindFileIgnoresCaseAndKindOfSeparator) {
    Write("LANG.ini");
    for (const char* place : {"bin/LANG.ini", "bin\\lang.ini", "BIN/Lang.INI", "\\Bin\\lang.ini"}) {
        const auto found = FindFile(folder_, place);
        EXPECT_TRUE(found && fs::equivalent(*found, bin_ / "LANG.ini")) << place;
    }
    for (const char* place : {"", "bin", "BIN", "bin/lang", "lang.ini", "bin/lang.ini/x", "none/lang.ini"}) {
        EXPECT_FALSE(FindFile(folder_, place)) << place;
    }
}

TEST_F(Files, AllSpellingsAreOneFile) {
    Spelling("bin/Lang.ini");
    const fs::path exact = Spelling("bin/lang.ini");
    if (Names().size() == 1) {
        GTEST_SKIP() << "The file system itself holds them to be one.";
    }
    EXPECT_EQ(FindFile(folder_, "bin/lang.ini"), exact);
    Write("LANG.INI", "new");
    EXPECT_EQ(Names(), Strings{"LANG.INI"});
    EXPECT_EQ(ReadFile(bin_ / "LANG.INI"), "new");
    Spelling("bin/Lang.ini");
    Kill(folder_, "bin/lang.ini");
    EXPECT_EQ(Names(), Strings());
    fs::create_directory(folder_ / "BIN");
    const fs::path other = Spelling("BIN/x.ini");
    EXPECT_EQ(FindFile(folder_, "bin/x.ini"), other);
}

TEST_F(Files, CopyReplacesOrLeavesEverythingAsItWas) {
    const auto bytes = "sv\0\r\n"s;
    const fs::path lang = bin_ / "lang.ini";
    Write("LangSE.ini", bytes);
    Write("lang.ini", "a longer old content");
    FileCopy(bin_ / "langse.ini", lang);
    EXPECT_EQ(ReadFile(lang), bytes);

    EXPECT_EQ(ErrorOf([&] { FileCopy(folder_ / "none", lang); }), errors::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { FileCopy(bin_, folder_ / "x"); }), errors::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { FileCopy(lang, bin_); }), errors::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { FileCopy(lang, folder_ / "none" / "x"); }), errors::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder_ / "none"); }), errors::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder_); }), errors::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { Kill(folder_, "none/lang.ini"); }), errors::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { Kill(folder_, "bin"); }), errors::FileNotFound);
#ifndef _WIN32
    {
        const test::FullDisk full;
        EXPECT_EQ(ErrorOf([&] { Write("lang.ini", "new"); }), errors::DiskNotReady);
    }
    fs::permissions(bin_, fs::perms::owner_write, fs::perm_options::remove);
    test::WithoutPrivileges([&] {
        EXPECT_EQ(ErrorOf([&] { Kill(folder_, "bin/lang.ini"); }), errors::PermissionDenied);
        EXPECT_EQ(ErrorOf([&] { Write("lang.ini"); }), errors::PermissionDenied);
    });
    fs::permissions(bin_, fs::perms::owner_write, fs::perm_options::add);
#endif
    EXPECT_EQ(ReadFile(lang), bytes);
    EXPECT_EQ(Names(), (Strings{"LangSE.ini", "lang.ini"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST(Ini, FindsTheKeyInWhateverShape) {
    const std::string text =
        "a=no section\n[System\na=unclosed\n[Other]\na=no\n [ SYSTEM ] \n;a=comment\n  ; a=comment\na\n=a\n"
        "aa=no\rb=\r\n\t C \t=\t first \t\nc=second\nd=a;b=c\ne=[Other]\nf=\" a \"\ng=\"'a'\"\nh=\"a'\n"
        "i=\"a\" b\nj=\"\nk=a\0b\n\xC5\xC4=V\xE4lj \x96 \x80\n[Third]\na=no\n[System]\na=second section\n"
        "z=z"s;
    for (const std::string_view rule : {"a|", "b|", "C|first", "d|a;b=c", "E|[Other]", "f| a ", "g|'a'",
                                        "h|\"a'", "i|\"a\" b", "j|\"", "k|a", "åä|Välj – €", "z|", "|"}) {
        const auto bar = rule.find('|');
        EXPECT_EQ(ValueOfKey(text, "System", rule.substr(0, bar)), rule.substr(bar + 1)) << rule;
    }
    EXPECT_EQ(ValueOfKey("\xEF\xBB\xBF[Öppna]\nlang=å\xFF", "öPPNA", "lang"), "å\uFFFD");
    EXPECT_EQ(ValueOfKey("\xFF\xFE[\0S\0]\0\r\0\n\0k\0=\0\x3D\xD8\x00\xDE\xE5\0\n"s, "S", "k"), "😀å");
}

TEST(Ini, TheBufferCutsAndEveryCallReadsTheFile) {
    const test::TestFolder folder;
    const auto file = folder.Path() / "lang.ini";
    EXPECT_EQ(ReadKey("System", "lang", 100, file), "");
    EXPECT_EQ(ReadKey("System", "lang", 100, folder.Path()), "");
    WriteFile(file, "[System]\nlang=Svenska");
    EXPECT_EQ(ReadKey("System", "lang", 100, file), "Svenska");
    WriteFile(file, "[System]\nlang=\xC5\xC4\xD6\nquoted=\"  a  \"\nblank=\"   \"");
    EXPECT_EQ(GetPrivateProfileString("System", "lang", 6, file), "ÅÄÖ\0  "s);
    EXPECT_EQ(GetPrivateProfileString("System", "lang", 3, file), "ÅÄ\0"s);
    EXPECT_EQ(GetPrivateProfileString("System", "none", 3, file), "\0  "s);
    for (const auto& [size, value] : {std::pair(4, "ÅÄÖ"), {3, "ÅÄ"}, {1, ""}, {0, ""}}) {
        EXPECT_EQ(ReadKey("System", "lang", static_cast<std::size_t>(size), file), value);
    }
    EXPECT_EQ(ReadKey("System", "quoted", 255, file), "a  ");  // the NUL shields the blanks before it
    EXPECT_EQ(ReadKey("System", "blank", 255, file), "");
}

}  // namespace
}  // namespace platform
