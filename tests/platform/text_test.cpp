// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/text.h"

#include <gtest/gtest.h>

#include "platform/error.h"

namespace platform {
namespace {

TEST(Text, PartsAreCountedInCharacters) {
    const std::string text = "Välj 😀!";
    EXPECT_EQ(Len(text), 7u);
    EXPECT_EQ(Left(text, 2), "Vä");
    EXPECT_EQ(Right(text, 2), "😀!");
    EXPECT_EQ(Mid(text, 2, 3), "älj");
    EXPECT_EQ(Mid(text, 6), "😀!");
    EXPECT_EQ(Left(text, 0) + Right(text, 0) + Mid(text, 2, 0), "");
    EXPECT_EQ(Left(text, 7), text);
    EXPECT_EQ(Right(text, 99), text);
    EXPECT_EQ(Mid(text, 8), "");
    EXPECT_THROW(Mid(text, 0), Error);
}

TEST(Text, PartsOfInvalidUtf8AreBytesOfTheText) {
    const std::string text =
        "\x80\xFF"
        "a\xC3";
    EXPECT_EQ(Left(text, Len(text)), text);
    EXPECT_EQ(Mid(text, 2), "a\xC3");
}

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim(" \ta\xC2\xA0 "), "\ta\xC2\xA0");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Text, ReplaceDoesNotReadWhatItWrote) {
    EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");
    EXPECT_EQ(Replace("C10–C13–x", "–", "-"), "C10-C13-x");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(Text, CaseGoesInEveryScript) {
    EXPECT_EQ(LCase("LANG.INI"), "lang.ini");
    EXPECT_EQ(LCase("ÅÄÖ Ж"), "åäö ж");
    EXPECT_TRUE(EqualIgnoringCase("LÖSNING Σ", "lösning ς"));
    EXPECT_FALSE(EqualIgnoringCase("lang", "langs"));
    EXPECT_FALSE(EqualIgnoringCase("å", "a"));
    EXPECT_FALSE(EqualIgnoringCase("[", "{"));  // a letter's distance apart, but no letters
}

TEST(Text, PositionsCountFromOne) {
    EXPECT_EQ(InStr("då å", "å"), 2u);
    EXPECT_EQ(InStrRev("då å", "å"), 4u);
    EXPECT_EQ(InStrRev("English    Lang en.ini", " "), 16u);
    EXPECT_EQ(InStr("abc", "x") + InStrRev("abc", "x"), 0u);
}

}  // namespace
}  // namespace platform
