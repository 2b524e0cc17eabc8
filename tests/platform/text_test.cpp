// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/text.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "platform/error.h"
#include "platform/text/codepage.h"
#include "platform/text/collation.h"
#include "platform/text/fold.h"
#include "platform/text/like.h"

namespace platform {
namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

template <class Text = std::string>
Text Folded(std::string_view text) {
    Text folded;
    Fold(text, folded);
    return folded;
}

bool Like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).Match(text);
}

struct RandomTexts {
    std::size_t Number(std::size_t below) { return Random() % below; }
    std::string Text(std::size_t longest) {
        std::string made;
        for (auto left = Number(longest + 1); left > 0; --left) {
            made += Signs[Number(Signs.size())];
        }
        return made;
    }

    const std::vector<std::string> Signs;
    std::mt19937 Random{2};
};

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
    std::string all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(FromWindows1252("\x80 \x96 \xE5 \x9F \x81"), "€ – å Ÿ \u0081");
    // Neither is a mark dropped, nor does a control character become the euro.
    EXPECT_EQ(ToWindows1252("a☃b 😀 \uFEFFx \u0080 a\xFFz\xC3"), "a?b ? ?x ? a?z?");
}

// "a|b": equal texts; "!a|b": others, the first before the second.
TEST(Fold, MakesTextsEqualByOneRuleEverywhere) {
    for (std::string_view rule :
         {"SYRA|syra",   "ÅÄÖ Σ|åäö ς", "maſſe|MASSE", "straße|STRAẞE", "A\u030A|å",       "J\u030C|ǰ",
          "\xFF|\uFFFD", "!20oC|20ºC",  "!m2|m²",      "!CO2|CO₂",      "!STRASSE|straße", "!bly|b\u00ADly",
          "!|\u00AD",    "!a|a\x01",    "!o|ö",        "!e|é",          "!a|a ",           "!| ",
          "![|{",        "!lang|langs"}) {
        SCOPED_TRACE(rule);
        const bool equal = rule[0] != '!';
        rule.remove_prefix(equal ? 0 : 1);
        const std::string left(rule.substr(0, rule.find('|'))), right(rule.substr(left.size() + 1));
        EXPECT_EQ(EqualIgnoringCase(left, right), equal);
        EXPECT_EQ(Sign(Compare(left, right)), equal ? 0 : -1);
        EXPECT_EQ(SortKey(left) == SortKey(right), equal);
        EXPECT_EQ(Like(right, left), equal);
        EXPECT_EQ(Like("x" + left, "%" + right + "%"), equal);
    }
}

// The short cuts and the keys must agree with the library, and ties with the folded texts.
TEST(Collation, IsSwedishHoweverItIsReached) {
    const std::vector<std::string> order = {"-",      "10",  "2",    "20oC", "20ºC",  "aceton", "ACETON 2",
                                            "Bensin", "bly", "zink", "Ånga", "äpple", "Ättika", "ö"};
    EXPECT_EQ(std::adjacent_find(order.begin(), order.end(),
                                 [](const auto& a, const auto& b) { return Compare(a, b) >= 0; }),
              order.end());

    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, decltype(&ucol_close)> library(ucol_open("sv", &status), ucol_close);
    ucol_setStrength(library.get(), UCOL_SECONDARY);
    ucol_setAttribute(library.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    const auto check = [&](const std::string& left, const std::string& right) {
        const auto a = Folded(left), b = Folded(right);
        int expected = ucol_strcollUTF8(library.get(), a.data(), static_cast<int>(a.size()), b.data(),
                                        static_cast<int>(b.size()), &status);
        expected = Sign(expected != 0 ? expected : a.compare(b));
        ASSERT_EQ(Sign(Compare(left, right)), expected) << left << " | " << right;
        ASSERT_EQ(Sign(SortKey(left).compare(SortKey(right))), expected) << left << " | " << right;
    };
    std::vector<std::string> signs;
    for (char c = 0; c < 127; ++c) {
        signs.emplace_back(1, c);
    }
    for (const char* other : {"å", "Å", "ä", "é", "æ",      "ß", "ö",      "\u030A",     "\u0301", "\u0327",
                              "·", "–", "º", "₂", "\u00AD", "ſ", "\u3042", "\U0001F600", "\xC3",   "\xFF"}) {
        signs.insert(signs.end(), 3, other);
    }
    // Every pair of characters, alone and with the same before or behind them.
    for (const auto& a : signs) {
        for (const auto& b : signs) {
            check(a, b);
            check("l" + a, "L" + b);
            check(a + "\u030A", b);
        }
    }
    RandomTexts random{signs};
    for (int i = 0; i < 200000 && !HasFatalFailure(); ++i) {
        const auto right = random.Text(3);
        check(right.substr(0, random.Number(2 * right.size() + 1)) + random.Text(2), right);
    }
}

TEST(Like, FindsPartsWithoutRegardToCaseAndSoon) {
    EXPECT_TRUE(Like("Ångström 20*[\\?]", "%ÅNG_TRÖM%*[\\?]") && Like("", "%%") && Like({"a\0b", 3}, "%b"));
    EXPECT_FALSE(Like("Ångström", "ång") || Like("ab", "ab%ab") || Like("Angstrom", "%å%") ||
                 Like("50 %", "%\\%%"));
    const std::string many = Replace(std::string(2000, 'x'), "x", "%a");
    EXPECT_FALSE(Like(std::string(5000, 'a') + "b", many + "%c"));
    const std::string literal(100000, 'x');
    EXPECT_TRUE(Like("y" + literal, "%" + literal + "%"));
    EXPECT_FALSE(Like(literal, "%y" + literal + "%"));
}

/// The rule on folded texts, without any care for speed.
bool Naive(std::u32string_view text, std::u32string_view pattern) {
    if (pattern.empty()) {
        return text.empty();
    }
    if (pattern[0] == U'%' && Naive(text, pattern.substr(1))) {
        return true;
    }
    const bool fits = !text.empty() && (pattern[0] == U'%' || pattern[0] == U'_' || pattern[0] == text[0]);
    return fits && Naive(text.substr(1), pattern[0] == U'%' ? pattern : pattern.substr(1));
}

TEST(Like, AgreesWithThePlainRule) {
    RandomTexts random{
        {"a", "A", "k", "S", "b", "%", "_", "å", "Å", "ſ", "\u212A", "ö", "\u030A", "ß", "ẞ", "\xFF"}};
    int matches = 0;
    for (int i = 0; i < 30000; ++i) {
        const auto text = random.Text(9), pattern = i % 2 ? "%" + random.Text(2) + "%" : random.Text(5);
        const bool expected = Naive(Folded<std::u32string>(text), Folded<std::u32string>(pattern));
        ASSERT_EQ(Like(text, pattern), expected) << text << " LIKE " << pattern;
        matches += expected;
    }
    EXPECT_GT(matches, 2000);
}

}  // namespace
}  // namespace platform
