// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/like.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "platform/text/fold.h"

namespace platform {
namespace {

bool Like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).Match(text);
}

TEST(Like, MatchesAsTheSystemDoes) {
    const auto like = [](std::string_view pair) {
        return Like(pair.substr(0, pair.find('|')), pair.substr(pair.find('|') + 1));
    };
    for (const auto* pair : {"Syra|%YRA", "Syra|syr_", "Syra|s%r%a", "|", "|%%", "å|_", "ÅNGA|%ånga",
                             "2 \u212A|%2 k%", "bA\u030A\u0061|%a", "2*[?]|%*[?]%"}) {
        EXPECT_TRUE(like(pair)) << pair;
    }
    for (const auto* pair : {"Syra|yra%", "Syra|%r%y%", "|_", "a|", "ab|ab%ab", "Anga|%ånga%", "İ|i",
                             "A\u030A|%a%", "200[|%0*%", "5 %|%5 \\%%"}) {
        EXPECT_FALSE(like(pair)) << pair;
    }
    EXPECT_TRUE(Like(std::string_view("a\0b", 3), "%b"));
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
    const std::vector<std::string> signs = {"a", "A", "k",      "S", "b",      "%", "_", "å",
                                            "Å", "ſ", "\u212A", "ö", "\u030A", "ß", "ẞ", "\xFF"};
    std::mt19937 random(1);
    const auto make = [&](std::size_t longest) {
        std::string made;
        for (auto left = random() % (longest + 1); left > 0; --left) {
            made += signs[random() % signs.size()];
        }
        return made;
    };
    int matches = 0;
    for (int i = 0; i < 30000; ++i) {
        const std::string text = make(9), pattern = i % 2 ? "%" + make(2) + "%" : make(5);
        std::u32string foldedText, foldedPattern;
        Fold(text, foldedText);
        Fold(pattern, foldedPattern);
        const bool expected = Naive(foldedText, foldedPattern);
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
