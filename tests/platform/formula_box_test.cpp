// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <fstream>

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
        explicit Window(Desktop& desktop) : Form(desktop, "frmFormula", {}) { Box.Font = {"Arial", 10}; }
        Frame fra{*this, "fra", {}};
        oFormula Box{*this, "oFormula1", {.Container = &fra}};
    };
    // One character after the other, as a hand does it.
    void Type(const std::string& text, int at = 0) {
        for (std::size_t i = 1; i <= Len(text); ++i) {
            Box.InputText(at++, 0, Mid(text, i, 1));
        }
    }
    std::string Shown() const { return test::Shown(Box.Content()); }

    test::ScriptedDesktop Screen;
    Window Form{Screen};
    oFormula& Box = Form.Box;
};

TEST_F(FormulaBox, SetsWhatIsTyped) {
    const struct {
        const char* Typed;
        const char* Shown;
    } cases[] = {
        {"H2SO4", "H_{2}SO_{4}"},
        {"2Ca(NO3)2", "2Ca(NO_{3})_{2}"},
        {"CuSO4·5H2O", "CuSO_{4}·5H_{2}O"},
        {"CuSO4.5H2O", "CuSO_{4}.5H_{2}O"},
        {"CuSO4.10", "CuSO_{4}.10"},
        {"CuSO4.10H2", "CuSO_{4}.10H_{2}"},
        {"Fe0.95O", "Fe_{0.95}O"},
        {"C10-13", "C_{10-13}"},
        {"C10-C13", "C_{10}-C_{13}"},
        {"Na+", "Na^{+}"},
        {"Na+Cl", "Na+Cl"},
        {"2Fe3+", "2Fe^{3+}"},
        {"Ca++", "Ca^{++}"},
        {"O2-", "O^{2-}"},
        {"NH4+", "NH_{4}^{+}"},
        {"SO42-", "SO_{4}^{2-}"},
        {"SO4 2−", "SO_{4} ^{2−}"},
        {"SO4 2- ", "SO_{4} ^{2-} "},
        {"Cr2O72–", "Cr_{2}O_{7}^{2–}"},
        {"[Fe(CN)6]3-", "[Fe(CN)_{6}]^{3-}"},
        {"Al(OH)4-", "Al(OH)_{4}^{-}"},
        {"C10-", "C_{10}^{-}"},
        {"2-", "2-"},
        {" 2-", " 2-"},
        {"HCl -", "HCl -"},
        {"1,2-", "1,2-"},
    };
    for (const auto& [typed, shown] : cases) {
        Box.SetPlainText("");
        Type(typed);
        EXPECT_EQ(Shown(), shown);
        Box.SetPlainText("");
        Box.InputText(0, 0, typed);
        EXPECT_EQ(Shown(), shown) << "pasted";
    }
    EXPECT_EQ(Box.PlainText(), "1,2-");
}

TEST_F(FormulaBox, KeepsTheHeightsThatTheUserAsksFor) {
    Type("xH2");
    Box.InputHeight(0, 1, Run::Super);
    Box.InputHeight(2, 1, Run::Normal);
    Type("O", 3);
    EXPECT_EQ(Shown(), "^{x}H2O");
    Type("5", 3);  // goes on with the number
    EXPECT_EQ(Shown(), "^{x}H25O");
    Box.InputHeight(-1, 99, Run::Sub);
    EXPECT_EQ(Shown(), "_{xH25O}");

    // What is typed next, until the same key again or another place.
    Box.SetPlainText("");
    Box.InputHeight(0, 0, Run::Super);
    Type("14");
    Box.InputCaret(2);
    Box.InputText(1, 1, "3");
    Box.InputHeight(2, 0, Run::Super);
    Type("C2", 2);
    EXPECT_EQ(Shown(), "^{13}C_{2}");
    for (const bool moved : {false, true}) {
        Box.InputHeight(4, 0, Run::Sub);
        Box.InputHeight(4, 0, Run::Normal);
        if (moved) {
            Box.InputCaret(1);
        }
        Type("9", 4);
        EXPECT_EQ(Shown(), moved ? "^{13}C_{29}9" : "^{13}C_{2}9");
    }
    Box.InputHeight(6, 0, Run::Super);
    Type("H", 0);
    EXPECT_EQ(Shown(), "H^{13}C_{29}9");
    Type("5", 7);
    EXPECT_EQ(Shown(), "H^{13}C_{29}95");
    Box.InputHeight(0, 0, Run::Super);
    Type("C", 8);
    EXPECT_EQ(Shown(), "H^{13}C_{29}95C");
}

TEST_F(FormulaBox, LeavesWhatWasStoredAndSetsWhatComesToIt) {
    Box.SetRichText(R"({\rtf1 SO4 Fe{\super 3+}(aq)})");
    Type("H2", 0);
    Type("2", 5);  // goes on with the 4
    EXPECT_EQ(Shown(), "H_{2}SO42 Fe^{3+}(aq)");
    Box.SetRichText(R"({\rtf1 SO{\sub 4}})");
    Type("2-", 3);
    EXPECT_EQ(Shown(), "SO_{4}^{2-}");
    Box.InputText(3, 2, "");
    EXPECT_EQ(Shown(), "SO_{4}");
    // As the editor hands it on: pasted with its heights, or a step taken back.
    FormulaText formula = Box.Formula();
    formula.Replace(99, 0, {{"n", Run::Sub}}, true);
    Box.InputFormula(formula);
    EXPECT_EQ(Shown(), "SO_{4n}");
}

TEST_F(FormulaBox, TakesOneLineOfText) {
    Box.InputText(0, 0, "\tH\r\n2\xE2\x80\xA8O\x01\x7F\xC2\x85😀\n");
    EXPECT_EQ(Box.PlainText(), "H 2 O😀");
    Box.InputText(5, 1, "\n");
    EXPECT_EQ(Box.PlainText(), "H 2 O");
    Box.InputText(-5, 99, std::string(50'000, 'H') + std::string(50'000, '2') + "Ω");
    EXPECT_EQ(Box.PlainText().size(), 100'002U);
    EXPECT_EQ(Box.Content().at(1).Text.size(), 50'000U);
    EXPECT_EQ(ParseRtf(Box.RichText()), Box.Content());
}

TEST_F(FormulaBox, IsNotEditedWhenItCantBe) {
    const auto edit = [&] {
        Box.InputText(0, 0, "x");
        Box.InputHeight(0, 1, Run::Sub);
        Box.InputFormula(FormulaText({{"y"}}));
        EXPECT_EQ(Shown(), "H2");
    };
    Box.SetPlainText("H2");
    Box.Locked = true;
    edit();
    Box.Locked = false;
    Form.fra.Enabled = false;
    edit();
    Form.fra.Enabled = true;
    Screen.End();
    edit();
}

TEST_F(FormulaBox, GivesBackTheStoredBytesWhileTheFormulaIsTheSame) {
    const std::string stored = "{\\rtf1\\fs44\\b H{\\sub 2}O\r\n\\par}";
    Box.SetRichText(stored);
    Box.Font = {"Courier", 12};
    EXPECT_EQ(Box.RichText(), stored);
    EXPECT_EQ(Box.PlainText(), "H2O");
    Type("x", 3);
    EXPECT_EQ(Box.RichText(), WriteRtf(Box.Content(), "Courier", 12));
    Box.InputText(3, 1, "");
    EXPECT_EQ(Box.RichText(), stored);
    Box.InputText(0, 3, "");
    EXPECT_EQ(Box.RichText(), "");
    Box.SetRichText(stored);
    Box.SetPlainText("H2O");
    EXPECT_EQ(Shown(), "H2O");
    EXPECT_EQ(Box.RichText(), WriteRtf({{"H2O"}}, "Courier", 12));
    Box.SetRichText("");
    EXPECT_EQ(Box.PlainText() + Box.RichText(), "");
}

TEST_F(FormulaBox, LoadsSavesAndTypesTheShippedFormulas) {
    std::ifstream file(VEMORA_SOURCE_DIR "/data/chemicals.csv");
    std::string line;
    std::getline(file, line);
    ASSERT_TRUE(line.starts_with("ID,Formula,FormulaRTF,NameSE"));
    int walked = 0;
    while (std::getline(file, line)) {
        const auto begin = line.find(',') + 1;
        const std::string formula = line.substr(begin, line.find(',', begin) - begin);
        ASSERT_EQ(line.find('"') < begin + formula.size(), false) << line;
        if (formula.empty()) {
            continue;
        }
        ++walked;
        const std::string stored = WriteRtf(FormulaRichText(formula), "Arial", 10);
        Box.SetRichText(stored);
        EXPECT_EQ(Box.RichText(), stored);
        EXPECT_EQ(Box.PlainText(), formula);
        Box.SetPlainText("");
        Type(formula);
        EXPECT_EQ(Box.RichText(), stored) << formula;
    }
    EXPECT_GT(walked, 200);
}

}  // namespace
}  // namespace platform
