// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/collation.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <random>
#include <vector>

#include "platform/text/fold.h"
#include "platform/text/like.h"
#include "platform/text/text.h"

namespace platform {
namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

std::string Folded(std::string_view text) {
    std::string folded;
    Fold(text, folded);
    return folded;
}

TEST(Texts, AreEqualByOneRuleEverywhere) {
    const auto check = [](std::string_view pair, bool equal) {
        SCOPED_TRACE(pair);
        const std::string left(pair.substr(0, pair.find('|'))), right(pair.substr(left.size() + 1));
        EXPECT_EQ(EqualIgnoringCase(left, right), equal);
        EXPECT_EQ(Sign(Compare(left, right)), equal ? 0 : -1);
        EXPECT_EQ(SortKey(left) == SortKey(right), equal);
        EXPECT_EQ(LikePattern(left).Match(right), equal);
        EXPECT_EQ(LikePattern("%" + right + "%").Match("x" + left), equal);
    };
    for (const auto* pair : {"SYRA|syra", "ÅÄÖ Σ|åäö ς", "maſſe|MASSE", "straße|STRAẞE", "A\u030A|å",
                             "J\u030C|ǰ", "\xFF|\uFFFD"}) {
        check(pair, true);
    }
    for (const auto* pair : {"20oC|20ºC", "m2|m²", "CO2|CO₂", "STRASSE|straße", "bly|b\u00ADly", "|\u00AD",
                             "a|a\x01", "o|ö", "e|é", "a|a ", "| ", "[|{", "lang|langs"}) {
        check(pair, false);
    }
}

TEST(Texts, LoseCaseAndFormInFoldingWhateverTheCharacter) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* apart = icu::Normalizer2::getNFDInstance(status);
    const auto utf8 = [](const icu::UnicodeString& wide) {
        std::string text;
        return wide.toUTF8String(text);
    };
    for (UChar32 c = 1; c < 0x30000; ++c) {
        // The two forms of the Turkish i are letters, not cases.
        if (U_IS_SURROGATE(c) || c == 0x130 || c == 0x131) {
            continue;
        }
        const std::string text = utf8(c), folded = Folded(text);
        ASSERT_EQ(Folded(utf8(u_toupper(c))), folded) << std::hex << c;
        ASSERT_EQ(Folded(utf8(apart->normalize(c, status))), folded) << std::hex << c;
        if (text != folded) {
            ASSERT_EQ(Compare(text, folded), 0) << std::hex << c;
            ASSERT_TRUE(LikePattern("%" + folded + "%").Match(text)) << std::hex << c;
        }
    }
}

TEST(Collation, OrdersAsSwedishReadersExpect) {
    const std::vector<std::string> order = {"-",      "10",  "2",    "20oC", "20ºC",  "aceton", "ACETON 2",
                                            "Bensin", "bly", "zink", "Ånga", "äpple", "Ättika", "ö"};
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end(),
                               [](const auto& a, const auto& b) { return Compare(a, b) < 0; }));
}

// The short cuts and the keys must agree with the library, and ties with the folded texts.
TEST(Collation, ShortCutsAndKeysAgreeWithTheLibrary) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, decltype(&ucol_close)> library(ucol_open("sv", &status), ucol_close);
    ucol_setStrength(library.get(), UCOL_SECONDARY);
    ucol_setAttribute(library.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    ASSERT_TRUE(U_SUCCESS(status));

    std::vector<std::string> signs;
    for (char c = 0; c < 127; ++c) {
        signs.emplace_back(1, c);
    }
    for (const char* other : {"å", "Å", "ä", "é", "æ",      "ß", "ö",      "\u030A",     "\u0301", "\u0327",
                              "·", "–", "º", "₂", "\u00AD", "ſ", "\u3042", "\U0001F600", "\xC3",   "\xFF"}) {
        signs.insert(signs.end(), 3, other);
    }
    std::mt19937 random(2);
    const auto check = [&](const std::string& left, const std::string& right) {
        UErrorCode ignored = U_ZERO_ERROR;
        const auto a = Folded(left), b = Folded(right);
        int expected = ucol_strcollUTF8(library.get(), a.data(), static_cast<int>(a.size()), b.data(),
                                        static_cast<int>(b.size()), &ignored);
        expected = Sign(expected != 0 ? expected : a.compare(b));
        ASSERT_EQ(Sign(Compare(left, right)), expected) << left << " | " << right;
        ASSERT_EQ(Sign(SortKey(left).compare(SortKey(right))), expected) << left << " | " << right;
    };
    // Every pair of characters, alone and with the same before or behind them.
    for (const auto& a : signs) {
        for (const auto& b : signs) {
            check(a, b);
            check("l" + a, "L" + b);
            check(a + "\u030A", b);
        }
    }
    for (int i = 0; i < 200000 && !HasFatalFailure(); ++i) {
        std::string left, right;
        for (auto n = random() % 4; n > 0; --n) {
            right += signs[random() % signs.size()];
        }
        left = right.substr(0, random() % (2 * right.size() + 1));
        for (auto n = random() % 3; n > 0; --n) {
            left += signs[random() % signs.size()];
        }
        check(left, right);
    }
}

}  // namespace
}  // namespace platform
