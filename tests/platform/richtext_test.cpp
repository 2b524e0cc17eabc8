// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/richtext/formula.h"
#include "platform/richtext/rtf.h"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>

#include "platform/text/text.h"
#include "support/shown.h"

namespace platform {
namespace {

TEST(RichText, ReadsTheRtfOfFormulas) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({\rtf1\ansi\deff0{\fonttbl{\f0\fnil Arial;}}\f0\fs20 H{\sub 2}SO{\sub 4}})", "H_{2}SO_{4}"},
        {R"({\rtf1 {\colortbl;\red0\green0\blue0;}{\*\generator {x} y;}{\info{\author z}}\pard\b a\b0 b\par})",
         "ab"},
        {R"({\rtf1 H\sub 2\nosupersub O\super 3+\plain x})", "H_{2}O^{3+}x"},
        {R"({\rtf1 H\dn4 2\dn0 O\up6 3+\up0 x\dn y\sub0 z})", "H_{2}O^{3+}x_{y}z"},
        {R"({\rtf1 a{\sub b{\super c}d}e})", "a_{b}^{c}_{d}e"},
        {"{\\rtf1 a\r\nb\\par c\\line d\\\ne\\tab f}", "ab\nc\nd\ne\tf"},
        {R"({\rtf1 a\par\par})", "a\n"},
        {R"({\rtf1 \'e5\'80\'96\'zz\'4})", "å€–zz4"},
        {R"({\rtf1 a\~b\_c\-d\{\}\\})", "a\u00A0b-cd{}\\"},
        {R"({\rtf1 C10\endash C13})", "C10–C13"},
        {R"({\rtf1 \u937?x\u-1020\'5fy})", "Ωx\xEF\xB0\x84y"},
        {R"({\rtf1 \u937\bullet x\u937\b y})", "Ωx\xCE\xA9y"},
        {R"({\rtf1 \uc2\u937??x{\uc0\u937 y}\u937\'5f\'5fz\uc0\u937 ?})", "ΩxΩyΩzΩ?"},
        {R"({\rtf1 \u-10179?\u-8704?x\u-10179?y\u-8704?})", "😀x\xEF\xBF\xBDy\xEF\xBF\xBD"},
        {R"({\rtf1 {\u937}x})", "Ωx"},
        {R"({\rtf1 å–😀 {\pict{\bin3 }}{}ab}c})", "å–😀 c"},
        {R"({\rtf1 a}b{c})", "a"},
        {R"({\rtf1 a{b\sub)", "ab"},
        {R"({\rtf1 a\bin99999999999 b)", "a"},
        {"{\\rtf1 a\\", "a"},
        {"{\\rtf1 \xC3\xFF\x01}", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"H2SO4 {\\sub}", "H2SO4 {\\sub}"},
        {" {\\rtf1 a}", " {\\rtf1 a}"},
        {"a\r\nb\rc\nd\x01\t\xE2\x80\xA9\xEF\xB7\x90", "a\nb\nc\nd\t\n\xEF\xBF\xBD"},
        {"", ""}};
    for (const auto& [rtf, shown] : cases) {
        EXPECT_EQ(test::Shown(ParseRtf(rtf)), shown) << rtf;
    }
    // Whatever the depth.
    const std::string deep = Replace(std::string(100'000, 'x'), "x", "{\\sub{");
    EXPECT_EQ(test::Shown(ParseRtf("{\\rtf1 " + deep + "2" + std::string(200'000, '}') + "O}")), "_{2}O");
}

TEST(RichText, WritesWhatItReadsBack) {
    EXPECT_EQ(WriteRtf({{"H"}, {"2", Run::Sub}, {"O–Ω"}}, "Arial", 10),
              R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil Arial;}}\f0\fs20 H{\sub 2}O\'96\u937?})");
    EXPECT_EQ(WriteRtf({}, "A;}\\ä", 0.0 / 0.0),
              R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil A\}\\\'e4;}}\f0\fs2 })");

    const RichText texts[] = {{},
                              {{"\n"}},
                              {{" a \n\n", Run::Super}},
                              {{"{\\rtf1 a}"}, {" 2 ", Run::Sub}, {"\t😀\xC2\x81?", Run::Super}},
                              {{"a"}, {""}, {"b"}, {"", Run::Sub}, {"c\r\nd\x02"}, {"e\xFF", Run::Sub}}};
    for (const RichText& text : texts) {
        EXPECT_EQ(ParseRtf(WriteRtf(text, "Arial", 10)), Normalised(text)) << test::Shown(text);
    }
    EXPECT_EQ(test::Shown(Normalised(texts[4])), "abc\nd_{e\xEF\xBF\xBD}");
    EXPECT_EQ(PlainText(texts[3]), "{\\rtf1 a} 2 \t😀\xC2\x81?");
}

TEST(RichText, SetsFormulas) {
    std::istringstream formulas(
        "H_{2}SO_{4}|Ca(NO_{3})_{2}|K_{3}[Fe(CN)_{6}]_{4}|CuSO_{4}·5H_{2}O|CuSO_{4}*5H_{2}O|CuSO_{4}.5H_{2}O|"
        "CuSO_{4.5}|Na_{2}CO_{3}-10H_{2}O|2HCl 37%|Fe_{0.95}O|C_{10}-C_{13}|C_{10}–C_{13}|C_{10–13}|"
        "C_{6}H_{6}-2HCl|1,2-C_{2}H_{4}Cl_{2}|R-134a|SO_{4}^{2-}|Na^{+}Cl^{-}|Fe^{3+}(aq)^|H_{2}.||");
    for (std::string shown; std::getline(formulas, shown, '|');) {
        const std::string typed = std::regex_replace(shown, std::regex("_?\\{|\\}"), "");
        EXPECT_EQ(test::Shown(FormulaRichText(typed)), shown);
    }
}

}  // namespace
}  // namespace platform
