// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/ini.h"

#include <gtest/gtest.h>

#include "platform/files/files.h"
#include "platform/test_database.h"

namespace platform {
namespace {

using namespace std::string_literals;

TEST(Ini, FindsTheKeyInWhateverShape) {
    const std::pair<std::string, std::string> cases[] = {
        {"[System]\r\nlang=Svenska\r\n", "Svenska"},
        {"[System]\rlang=Svenska\rx=y", "Svenska"},
        {"[SYSTEM]\nLaNg=Svenska", "Svenska"},
        {" [ System ] \n\t lang \t=\t Svenska \t\n", "Svenska"},
        {"[Other]\nlang=no\n[System]\n[Third]\nlang=no", ""},
        {"[System]\nlang=first\nlang=second\n[System]\nlang=third", "first"},
        {"[System]\nx=y\n[system]\nlang=second section", ""},
        {"lang=no section\n[System\nlang=unclosed", ""},
        {"[System]\nlang\n=x\nlanguage=x\nlan=x", ""},
        {"[System]\n;lang=comment\n  ; lang=comment\nlang=a;b=c", "a;b=c"},
        {"[System]\nlang=[Other]\nlang=x", "[Other]"},
        {"[System]\nlang=\" a \"", " a "},
        {"[System]\nlang=\"'a'\"", "'a'"},
        {"[System]\nlang=\"a'", "\"a'"},
        {"[System]\nlang=\"a\" b", "\"a\" b"},
        {"[System]\nlang=\"", "\""},
        {"[System]\nlang=a\0b\nlang=c"s, "a"},
        {"\0\xFF[System]\n\0=\n"s, ""},
        {"[System]\nlang=V\xE4lj \x96 \x80", "Välj – €"},
        {"\xEF\xBB\xBF[System]\nlang=Välj \xFF", "Välj \uFFFD"},
        {"\xFF\xFE[\0S\0y\0s\0t\0e\0m\0]\0\r\0\n\0l\0a\0n\0g\0=\0\x3D\xD8\x00\xDE\xE5\0\n"s, "😀å"}};
    for (const auto& [bytes, value] : cases) {
        EXPECT_EQ(ValueOfKey(bytes, "System", "lang"), value) << bytes;
    }
    EXPECT_EQ(ValueOfKey("[\xD6ppna]\n\xC5\xC4=x", "öPPNA", "åä"), "x");
    EXPECT_EQ(ValueOfKey("[System]\n=x", "System", ""), "");
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
