// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/like.h"

#include <gtest/gtest.h>
#include <unicode/normlzr.h>
#include <unicode/unistr.h>

#include <random>
#include <string>
#include <vector>

namespace platform {
namespace {

bool Like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).Match(text);
}

TEST(Like, MatchesAsTheSystemDoes) {
    const struct {
        std::string Text, Pattern;
        bool Matches;
    } cases[] = {
        {"Svavelsyra", "%syra%", true},
        {"Svavelsyra", "%SYRA", true},
        {"Svavelsyra", "svavel%", true},
        {"Svavelsyra", "syra%", false},
        {"Svavelsyra", "svavelsyr_", true},
        {"Svavelsyra", "svavelsyra_", false},
        {"Svavelsyra", "s%v%y%a", true},
        {"Svavelsyra", "%e%v%", false},
        {"", "", true},
        {"", "%", true},
        {"", "%%", true},
        {"", "_", false},
        {"a", "", false},
        {"abab", "%ab", true},
        {"ab", "ab%ab", false},  // the two ends must not share characters
        {"Ångström", "%ÅNGSTRÖM%", true},
        {"ÅNGSTRÖM", "%ngström", true},
        {"Angstrom", "%ångström%", false},  // accents count
        {"å", "_", true},                   // one character, two bytes
        {"ΘΕΙΟ", "%θειο%", true},
        {"ГАЗ", "%газ%", true},
        {"straße", "%STRASSE%", false},
        {"straße", "%STRAẞE%", true},
        {"İ", "i", false},
        {"10 \xE2\x84\xAA", "%10 k%", true},  // the sign of kelvin is a k
        {"ma\xC5\xBF\xC5\xBF"
         "e",
         "%masse%", true},
        {"A\xCC\x8A", "å", true},  // a letter and its ring apart
        {"A\xCC\x8A", "%a%", false},
        {"bA\xCC\x8A"
         "a",
         "%a", true},
        {"\xC3\x85", "%a\xCC\x8A%", true},
        {"20*[?]", "%*[?]%", true},  // no meaning of their own
        {"200[", "%0*%", false},
        {"50 %", "%50 \\%%", false},  // nothing escapes
        {"CO\xE2\x82\x82", "%co_", true},
        {"\xFF\xC3", "%\xFF%", true},
        {std::string("a\0b", 3), "%b", true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Like(c.Text, c.Pattern), c.Matches) << c.Text << " LIKE " << c.Pattern;
    }
}

/// The rule without any care for speed.
bool Naive(const icu::UnicodeString& text, int t, const icu::UnicodeString& pattern, int p) {
    if (p == pattern.length()) {
        return t == text.length();
    }
    const auto c = pattern.char32At(p);
    const int next = pattern.moveIndex32(p, 1);
    if (c == '%') {
        return Naive(text, t, pattern, next) ||
               (t < text.length() && Naive(text, text.moveIndex32(t, 1), pattern, p));
    }
    if (t == text.length()) {
        return false;
    }
    const bool same = c == '_' || u_foldCase(c, 0) == u_foldCase(text.char32At(t), 0);
    return same && Naive(text, text.moveIndex32(t, 1), pattern, next);
}

TEST(Like, AgreesWithThePlainRule) {
    const std::vector<std::string> signs = {"a", "A", "k",      "S", "b",      "%", "_", "å",
                                            "Å", "ſ", "\u212A", "ö", "\u030A", "ß", "ẞ"};
    std::mt19937 random(1);
    const auto make = [&](std::size_t longest) {
        std::string made;
        for (auto left = random() % (longest + 1); left > 0; --left) {
            made += signs[random() % signs.size()];
        }
        return made;
    };
    const auto composed = [](const std::string& text) {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString out;
        icu::Normalizer::normalize(icu::UnicodeString::fromUTF8(text), UNORM_NFC, 0, out, status);
        return out;
    };
    int matches = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string text = make(9);
        const std::string pattern = i % 2 ? "%" + make(2) + "%" : make(5);
        // Composing also turns the sign of kelvin into a plain K, which folds alike.
        const bool expected = Naive(composed(text), 0, composed(pattern), 0);
        ASSERT_EQ(Like(text, pattern), expected) << text << " LIKE " << pattern;
        matches += expected;
    }
    EXPECT_GT(matches, 2000);
}

TEST(Like, EndsSoonOnAHeavyPattern) {
    std::string many;
    for (int i = 0; i < 2000; ++i) {
        many += "%a";
    }
    EXPECT_FALSE(Like(std::string(5000, 'a') + "b", many + "%c"));
    const std::string literal(100000, 'x');
    EXPECT_TRUE(Like("y" + literal, "%" + literal + "%"));
    EXPECT_FALSE(Like(literal, "%y" + literal + "%"));
}

}  // namespace
}  // namespace platform
