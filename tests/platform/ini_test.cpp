// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/ini.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

#include "platform/files/files.h"

namespace platform {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

class IniFile : public testing::Test {
  protected:
    IniFile() { fs::create_directory(folder_); }
    ~IniFile() override { fs::remove_all(folder_); }

    void Write(std::string_view bytes) const { WriteFile(file_, bytes); }

    const fs::path folder_ =
        fs::temp_directory_path() / ("vemora_ini." + std::to_string(std::random_device()()));
    const fs::path file_ = folder_ / "lang.ini";
};

TEST(Ini, FindsTheKeyInWhateverShape) {
    const struct {
        std::string Bytes;
        std::string Value;
    } cases[] = {
        {"[System]\nlang=Svenska\n", "Svenska"},
        {"[System]\r\nlang=Svenska\r\n", "Svenska"},
        {"[System]\rlang=Svenska\rx=y", "Svenska"},
        {"[System]\nlang=Svenska", "Svenska"},
        {"[SYSTEM]\nLaNg=Svenska", "Svenska"},
        {" [ System ] \n\t lang \t=\t Svenska \t\n", "Svenska"},
        {"[Other]\nlang=no\n[System]\n[Third]\nlang=no", ""},
        {"[System]\nlang=first\nlang=second\n[System]\nlang=third", "first"},
        {"[System]\nx=y\n[system]\nlang=second section", ""},
        {"lang=no section", ""},
        {"[System\nlang=unclosed", ""},
        {"[System]\nlang", ""},
        {"[System]\n=x\nlanguage=x\nlan=x", ""},
        {"[System]\n;lang=comment\n  ; lang=comment\nlang=a;b", "a;b"},
        {"[System]\nlang=a=b", "a=b"},
        {"[System]\nlang=[Other]\nlang=x", "[Other]"},
        {"[System]\nlang=\" a \"", " a "},
        {"[System]\nlang='a'", "a"},
        {"[System]\nlang=\"'a'\"", "'a'"},
        {"[System]\nlang=\"a'", "\"a'"},
        {"[System]\nlang=\"a\" b", "\"a\" b"},
        {"[System]\nlang=\"", "\""},
        {"[System]\nlang=\"\"", ""},
        {"[System]\nlang=a\0b\nlang=c"s, "a"},
        {"\0\xFF[System]\n\0=\n"s, ""},
        {"[System]\nlang=V\xE4lj \x96 \x80", "Välj – €"},
        {"\xEF\xBB\xBF[System]\nlang=Välj \xFF", "Välj \xEF\xBF\xBD"},
        {"\xFF\xFE[\0S\0y\0s\0t\0e\0m\0]\0\r\0\n\0l\0a\0n\0g\0=\0\x3D\xD8\x00\xDE\xE5\0\n"s, "😀å"},
        {"", ""},
    };
    for (const auto& [bytes, value] : cases) {
        EXPECT_EQ(ValueOfKey(bytes, "System", "lang"), value) << bytes;
    }
    EXPECT_EQ(ValueOfKey("[\xD6ppna]\n\xC5\xC4=x", "öPPNA", "åä"), "x");
    EXPECT_EQ(ValueOfKey("[System]\n=x", "System", ""), "");
}

TEST_F(IniFile, TheBufferCutsAndIsTrimmed) {
    Write("[System]\nlang=\xC5\xC4\xD6\nquoted=\"  a  \"\nblank=\"   \"");
    EXPECT_EQ(GetPrivateProfileString("System", "lang", 6, file_), "ÅÄÖ\0  "s);
    EXPECT_EQ(GetPrivateProfileString("System", "lang", 4, file_), "ÅÄÖ\0"s);
    EXPECT_EQ(GetPrivateProfileString("System", "lang", 3, file_), "ÅÄ\0"s);
    EXPECT_EQ(GetPrivateProfileString("System", "none", 3, file_), "\0  "s);

    EXPECT_EQ(ReadKey("System", "lang", 4, file_), "ÅÄÖ");
    EXPECT_EQ(ReadKey("System", "lang", 3, file_), "ÅÄ");
    EXPECT_EQ(ReadKey("System", "lang", 1, file_), "");
    EXPECT_EQ(ReadKey("System", "lang", 0, file_), "");
    EXPECT_EQ(ReadKey("System", "quoted", 255, file_), "a  ");  // the NUL shields the blanks before it
    EXPECT_EQ(ReadKey("System", "blank", 255, file_), "");
}

TEST_F(IniFile, EveryCallReadsTheFileAsItIs) {
    EXPECT_EQ(ReadKey("System", "lang", 100, file_), "");
    EXPECT_EQ(ReadKey("System", "lang", 100, folder_), "");
    Write("[System]\nlang=Svenska");
    EXPECT_EQ(ReadKey("System", "lang", 100, file_), "Svenska");
    Write("[System]\nlang=English");
    EXPECT_EQ(ReadKey("System", "lang", 100, file_), "English");
}

}  // namespace
}  // namespace platform
