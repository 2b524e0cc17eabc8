// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/codepage.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(Windows1252, EveryByteComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
}

TEST(Windows1252, ReadsWhatIsNotLatin1) {
    EXPECT_EQ(FromWindows1252("\x80 \x96 \xE5 \x9F"), "€ – å Ÿ");
    EXPECT_EQ(FromWindows1252("\x81\x9D"), "\xC2\x81\xC2\x9D");
}

TEST(Windows1252, WhatHasNoPlaceIsAQuestionMark) {
    EXPECT_EQ(ToWindows1252("a☃b"), "a?b");
    EXPECT_EQ(ToWindows1252("😀"), "?");
    EXPECT_EQ(ToWindows1252("\xEF\xBB\xBFx"), "?x");  // neither is a mark dropped
    EXPECT_EQ(ToWindows1252("\xC2\x80"), "?");        // the control character, not the euro
    EXPECT_EQ(ToWindows1252("a\xFFz\xC3"), "a?z?");
}

}  // namespace
}  // namespace platform
