// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

#include "platform/error.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

long NumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        EXPECT_FALSE(error.Description.empty());
        return error.Number;
    }
    return 0;
}

class Files : public testing::Test {
  protected:
    Files() { fs::create_directories(folder_ / "bin"); }
    ~Files() override { fs::remove_all(folder_); }

    void Write(const std::string& name, std::string_view bytes = {}) const {
        WriteFile(folder_ / PathFromUtf8(name), bytes);
    }
    std::vector<std::string> Names(std::string_view pattern) const {
        auto names = Dir(folder_ / "bin", pattern);
        std::sort(names.begin(), names.end());
        return names;
    }
    // Puts a file there without the care that WriteFile takes of other spellings.
    fs::path Spelling(const std::string& name) const {
        const fs::path other = folder_ / "other";
        WriteFile(other, name);
        fs::rename(other, folder_ / PathFromUtf8(name));
        return folder_ / PathFromUtf8(name);
    }
    bool CaseMatters() const {
        const fs::path probe = Spelling("Probe");
        const bool matters = !fs::exists(folder_ / "pROBE");
        fs::remove(probe);
        return matters;
    }

    const fs::path folder_ =
        fs::temp_directory_path() / ("vemora_files." + std::to_string(std::random_device()()));
};

TEST_F(Files, DirMatchesPatterns) {
    using Strings = std::vector<std::string>;
    for (const char* name :
         {"bin/lang.ini", "bin/LangSE.INI", "bin/Lang en.ini", "bin/lang.ini.bak", "bin/språk.ini"}) {
        Write(name);
    }
    fs::create_directory(folder_ / "bin" / "LangDir.ini");
    EXPECT_EQ(Names("Lang*.ini"), (Strings{"Lang en.ini", "LangSE.INI", "lang.ini"}));
    EXPECT_EQ(Names("LANG??.ini"), (Strings{"LangSE.INI"}));
    EXPECT_EQ(Names("SPR?K.*"), (Strings{"språk.ini"}));
    EXPECT_EQ(Names("SPRÅK.ini"), (Strings{"språk.ini"}));
    EXPECT_EQ(Names("*.i*i*"),
              (Strings{"Lang en.ini", "LangSE.INI", "lang.ini", "lang.ini.bak", "språk.ini"}));
    EXPECT_EQ(Names("*a*a*a*"), Strings());
    EXPECT_EQ(Names("ang.ini"), Strings());
    EXPECT_EQ(Names(""), Strings());
    EXPECT_EQ(Dir(folder_ / "none", "*"), Strings());
}

TEST_F(Files, FindFileIgnoresCaseAndKindOfSeparator) {
    Write("bin/LANG.ini");
    for (const char* place : {"bin/LANG.ini", "bin\\lang.ini", "BIN/Lang.INI", "\\Bin\\lang.ini"}) {
        const auto found = FindFile(folder_, place);
        ASSERT_TRUE(found) << place;
        EXPECT_TRUE(fs::equivalent(*found, folder_ / "bin" / "LANG.ini"));
    }
    for (const char* place : {"", "bin", "BIN", "bin/lang", "lang.ini", "bin/lang.ini/x", "none/lang.ini"}) {
        EXPECT_FALSE(FindFile(folder_, place)) << place;
    }
}

TEST_F(Files, AllSpellingsAreOneFile) {
    if (!CaseMatters()) {
        GTEST_SKIP() << "The file system itself holds them to be one.";
    }
    Spelling("bin/Lang.ini");
    const fs::path exact = Spelling("bin/lang.ini");
    EXPECT_EQ(FindFile(folder_, "bin/lang.ini"), exact);
    Write("bin/LANG.INI", "new");
    EXPECT_EQ(Names("*"), (std::vector<std::string>{"LANG.INI"}));
    EXPECT_EQ(ReadFile(folder_ / "bin" / "LANG.INI"), "new");

    Spelling("bin/Lang.ini");
    Kill(folder_, "bin/lang.ini");
    EXPECT_EQ(Names("*"), std::vector<std::string>());

    fs::create_directory(folder_ / "BIN");
    Spelling("BIN/x.ini");
    EXPECT_EQ(FindFile(folder_, "bin/x.ini"), folder_ / "BIN" / "x.ini");
}

TEST_F(Files, CopyReplacesOrLeavesEverythingAsItWas) {
    Write("bin/LangSE.ini", std::string("sv\0\r\n", 5));
    Write("bin/lang.ini", "a longer old content");
    FileCopy(folder_ / "bin" / "langse.ini", folder_ / "bin" / "lang.ini");
    EXPECT_EQ(ReadFile(folder_ / "bin" / "lang.ini"), std::string("sv\0\r\n", 5));

    EXPECT_EQ(NumberOf([&] { FileCopy(folder_ / "none", folder_ / "bin" / "lang.ini"); }),
              errors::FileNotFound);
    EXPECT_EQ(NumberOf([&] { FileCopy(folder_ / "bin", folder_ / "x"); }), errors::PathFileAccess);
    EXPECT_EQ(NumberOf([&] { FileCopy(folder_ / "bin" / "lang.ini", folder_ / "bin"); }),
              errors::PathFileAccess);
    EXPECT_EQ(NumberOf([&] { FileCopy(folder_ / "bin" / "lang.ini", folder_ / "none" / "x"); }),
              errors::PathFileAccess);
    EXPECT_EQ(ReadFile(folder_ / "bin" / "lang.ini"), std::string("sv\0\r\n", 5));
    EXPECT_EQ(Names("*"), (std::vector<std::string>{"LangSE.ini", "lang.ini"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 1);
}

TEST_F(Files, WhatIsNotThereCannotBeReadOrDeleted) {
    EXPECT_EQ(NumberOf([&] { ReadFile(folder_ / "none"); }), errors::FileNotFound);
    EXPECT_EQ(NumberOf([&] { ReadFile(folder_); }), errors::PathFileAccess);
    EXPECT_EQ(NumberOf([&] { Kill(folder_, "none/lang.ini"); }), errors::FileNotFound);
    EXPECT_EQ(NumberOf([&] { Kill(folder_, "bin"); }), errors::FileNotFound);
}

TEST_F(Files, WhatIsNotPermittedIsError70) {
    Write("bin/lang.ini");
    fs::permissions(folder_ / "bin", fs::perms::owner_write, fs::perm_options::remove);
    const bool restricted = NumberOf([&] { Write("bin/probe"); }) != 0;
    if (restricted) {  // the system's administrator may do anything
        EXPECT_EQ(NumberOf([&] { Kill(folder_, "bin/lang.ini"); }), errors::PermissionDenied);
        EXPECT_EQ(NumberOf([&] { Write("bin/lang.ini"); }), errors::PermissionDenied);
    }
    fs::permissions(folder_ / "bin", fs::perms::owner_write, fs::perm_options::add);
}

}  // namespace
}  // namespace platform
