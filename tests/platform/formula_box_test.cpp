// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <regex>
#include <sstream>

#include "platform/richtext/formula.h"
#include "platform/richtext/rtf.h"
#include "platform/text/text.h"
#include "support/scripted_desktop.h"
#include "support/shown.h"

namespace platform {
namespace {

class FormulaBox : public testing::Test {
  protected:
    struct Window : Form {
        using Form::Form;
        oFormula Box{*this, "oFormula1", {.Font = {"Arial", 10}}};
    };
    // One character after the other, as a hand does it.
    std::string Type(const std::string& text, int at = 0) {
        for (std::size_t i = 1; i <= Len(text); ++i) {
            Box.InputText(at++, 0, Mid(text, i, 1));
        }
        return Shown();
    }
    std::string Shown() const { return test::Shown(Box.Content()); }

    test::ScriptedDesktop Screen;
    Window Form{Screen, "frmFormula", {}};
    oFormula& Box = Form.Box;
};

TEST_F(FormulaBox, SetsWhatIsTypedAndPasted) {
    std::istringstream formulas(
        "2Ca(NO_{3})_{2}|CuSO_{4}.5H_{2}O|CuSO_{4}.10|CuSO_{4}.10H_{2}|C_{10-13}|Fe_{0.95}O|1,2-|2-| 2-|"
        "HCl -|Na^{+}|Na+Cl|2Fe^{3+}|Ca^{++}|O^{2-}|NH_{4}^{+}|SO_{4}^{2-}|SO_{4} ^{2−}|SO_{4} ^{2-} |"
        "[Fe(CN)_{6}]^{3–}|Al(OH)_{4}^{-}|C_{10}^{-}");
    for (std::string shown; std::getline(formulas, shown, '|');) {
        const std::string plain = std::regex_replace(shown, std::regex("[_^]\\{|\\}"), "");
        Box.SetPlainText("");
        EXPECT_EQ(Type(plain), shown);
        Box.InputText(0, 99, plain);
        EXPECT_EQ(Shown(), shown);
        // Loaded, saved and loaded again, it is the same to the byte.
        const std::string stored = WriteRtf(Box.Content(), "Arial", 12);
        Box.SetRichText(stored);
        EXPECT_EQ(Box.RichText(), stored);
    }
}

TEST_F(FormulaBox, KeepsTheHeightsThatTheUserAsksFor) {
    Type("xH2");
    Box.InputHeight(0, 1, Run::Super);
    Box.InputHeight(2, 1, Run::Normal);
    EXPECT_EQ(Type("O", 3), "^{x}H2O");
    EXPECT_EQ(Type("5", 3), "^{x}H25O");  // goes on with the number
    Box.InputHeight(-1, 99, Run::Sub);
    EXPECT_EQ(Shown(), "_{xH25O}");

    // What is typed next, until the same key again or another place.
    Box.SetPlainText("");
    Box.InputHeight(0, 0, Run::Super);
    Type("14");
    Box.InputCaret(2);
    Box.InputText(1, 1, "3");
    Box.InputHeight(2, 0, Run::Super);
    EXPECT_EQ(Type("C2", 2), "^{13}C_{2}");
    Box.InputHeight(4, 0, Run::Sub);
    Box.InputHeight(4, 0, Run::Normal);
    EXPECT_EQ(Type("9", 4), "^{13}C_{2}9");
    Box.InputHeight(4, 0, Run::Normal);
    Box.InputCaret(1);
    EXPECT_EQ(Type("9", 4), "^{13}C_{29}9");
    Box.InputHeight(3, 0, Run::Super);
    EXPECT_EQ(Type("H", 0), "H^{13}C_{29}9");
    Box.InputHeight(3, 0, Run::Super);
    EXPECT_EQ(Type("H", 7), "H^{13}C_{29}9H");
}

TEST_F(FormulaBox, LeavesWhatWasStoredAndSetsWhatComesToItUnlessItCantBeEdited) {
    Box.SetRichText(R"({\rtf1 SO4 Fe{\super 3+}(aq)})");
    Type("H2", 0);
    EXPECT_EQ(Type("2", 5), "H_{2}SO42 Fe^{3+}(aq)");
    Box.SetRichText(R"({\rtf1 SO{\sub 4}})");
    EXPECT_EQ(Type("2-", 99), "SO_{4}^{2-}");
    Box.InputText(3, 2, "");
    for (const bool locked : {true, false}) {
        Box.Locked = locked;
        Box.Enabled = locked;
        Box.InputText(0, 0, "x");
        Box.InputHeight(0, 1, Run::Sub);
        Box.InputFormula(FormulaText({{"y"}}));
        EXPECT_EQ(Shown(), "SO_{4}");
    }
}

TEST_F(FormulaBox, TakesOneLineOfText) {
    Box.InputText(0, 0, "\tH\r\n2\xE2\x80\xA8O\x01\x7F\xC2\x85😀\n");
    EXPECT_EQ(Box.PlainText(), "H 2 O😀");
    Box.InputText(5, 1, "\n");
    EXPECT_EQ(Box.PlainText(), "H 2 O");
    Box.InputText(-5, 99, std::string(50'000, 'H') + std::string(50'000, '2') + "Ω");
    EXPECT_EQ(Box.Content().at(1).Text.size(), 50'000U);
}

TEST_F(FormulaBox, GivesBackTheStoredBytesWhileTheFormulaIsTheSame) {
    const std::string stored = "{\\rtf1\\fs44\\b H{\\sub 2}O\r\n\\par}";
    Box.SetRichText(stored);
    Box.Font = {"Courier", 12};
    EXPECT_EQ(Box.RichText(), stored);
    EXPECT_EQ(Type("x", 3), "H_{2}Ox");
    EXPECT_EQ(Box.RichText(), WriteRtf(Box.Content(), "Courier", 12));
    Box.InputText(3, 1, "");
    EXPECT_EQ(Box.RichText(), stored);
    Box.SetPlainText("H2O");
    EXPECT_EQ(Box.RichText(), WriteRtf({{"H2O"}}, "Courier", 12));
    Box.InputText(0, 3, "");
    EXPECT_EQ(Box.RichText(), "");
}

}  // namespace
}  // namespace platform
