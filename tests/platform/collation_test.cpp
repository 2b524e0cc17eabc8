// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/collation.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <random>
#include <string>
#include <vector>

namespace platform {
namespace {

int Sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(Collation, OrdersAsSwedishReadersExpect) {
    const std::vector<std::string> order = {"",       " ",   "-",    "10",   "2",     "20ºC",   "aceton",
                                            "Bensin", "bly", "zink", "Ånga", "äpple", "Ättika", "ö"};
    for (std::size_t i = 0; i + 1 < order.size(); ++i) {
        EXPECT_LT(Compare(order[i], order[i + 1]), 0) << order[i] << " | " << order[i + 1];
    }
    for (const auto& [left, right] :
         {std::pair("SVAVELSYRA", "svavelsyra"), {"ÅÄÖ", "åäö"}, {"A\xCC\x8A", "å"}}) {
        EXPECT_EQ(Compare(left, right), 0) << left;
    }
    for (const auto& [left, right] : {std::pair("o", "ö"), {"e", "é"}, {"a", "a "}, {"+", "-"}, {"", " "}}) {
        EXPECT_NE(Compare(left, right), 0) << left;
    }
}

// The short cut for ASCII, the keys and the library must agree on every text.
TEST(Collation, ShortCutAndKeysAgreeWithTheLibrary) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, decltype(&ucol_close)> library(ucol_open("sv", &status), ucol_close);
    ucol_setStrength(library.get(), UCOL_SECONDARY);
    ucol_setAttribute(library.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    ASSERT_TRUE(U_SUCCESS(status));

    std::vector<std::string> signs;
    for (char c = 0; c < 127; ++c) {
        signs.emplace_back(1, c);
    }
    for (const char* other : {"å", "Å", "ä", "é", "æ", "ß", "ö", "\u030A", "\u0301", "\u0327", "·", "–", "º",
                              "₂", "\u00AD", "\u3042", "\U0001F600", "\xC3", "\xFF"}) {
        for (int weight = 0; weight < 3; ++weight) {
            signs.emplace_back(other);
        }
    }
    std::mt19937 random(2);
    const auto check = [&](const std::string& left, const std::string& right) {
        UErrorCode ignored = U_ZERO_ERROR;
        const int expected = Sign(ucol_strcollUTF8(library.get(), left.data(), static_cast<int>(left.size()),
                                                   right.data(), static_cast<int>(right.size()), &ignored));
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
    for (int i = 0; i < 200000; ++i) {
        std::string left, right;
        for (auto n = random() % 4; n > 0; --n) {
            right += signs[random() % signs.size()];
        }
        left = right;
        const auto at = random() % (left.size() + 1);
        if (random() % 2) {
            left.resize(at);
        }
        for (auto n = random() % 3; n > 0; --n) {
            left += signs[random() % signs.size()];
        }
        check(left, right);
        if (HasFatalFailure()) {
            return;
        }
    }
}

}  // namespace
}  // namespace platform
