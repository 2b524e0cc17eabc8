// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/text.h"

#include <gtest/gtest.h>

#include "platform/error.h"
#include "platform/text/codepage.h"

namespace platform {
namespace {

TEST(Text, WorksOnCharacters) {
    const std::string text = "Välj 😀!";
    EXPECT_EQ(Left(text, 2) + Right(text, 2) + Mid(text, 2, 3) + Mid(text, 6), "Vä😀!älj😀!");
    EXPECT_EQ(Left(text, 7) + Right(text, 99), text + text);
    EXPECT_EQ(Left(text, 0) + Right(text, 0) + Mid(text, 2, 0) + Mid(text, 8), "");
    EXPECT_THROW(Mid(text, 0), Error);
    EXPECT_EQ(Len(text) * 100 + InStr("då å", "å") * 10 + InStrRev("då å", "å"), 724u);
    EXPECT_EQ(InStr("abc", "x") + InStrRev("abc", "x"), 0u);
    EXPECT_EQ(Trim("  a b ") + Trim(" \ta\u00A0 ") + Trim("   "), "a b\ta\u00A0");
    EXPECT_EQ(Replace("aaa", "aa", "a") + Replace("C10–C13–x", "–", "-") + Replace("abc", "", "x"),
              "aaC10-C13-xabc");
    EXPECT_EQ(LCase("LANG.INI") + LCase("ÅÄÖ Ж"), "lang.iniåäö ж");
    const std::string bytes = "\x80\xFF\x61\xC3";  // no UTF-8
    EXPECT_EQ(Left(bytes, Len(bytes)) + Mid(bytes, 2), bytes + "\x61\xC3");
}

TEST(Windows1252, EveryByteComesBackAndTheRestIsAQuestionMark) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(FromWindows1252("\x80 \x96 \xE5 \x9F \x81"), "€ – å Ÿ \u0081");
    // Neither is a mark dropped, nor does a control character become the euro.
    EXPECT_EQ(ToWindows1252("a☃b 😀 \uFEFFx \u0080 a\xFFz\xC3"), "a?b ? ?x ? a?z?");
}

}  // namespace
}  // namespace platform
