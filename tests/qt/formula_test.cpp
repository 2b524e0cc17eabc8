// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The formula editor, on real widgets. What goes up and down is the control's business.

#include <QAccessible>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextEdit>
#include <set>

#include "qt/support.h"
#include "support/shown.h"

namespace test {
namespace {

struct Chemical : platform::Form {
    explicit Chemical(platform::Desktop& desktop)
        : Form(desktop, "frmChemical", {.ClientWidth = 6000, .ClientHeight = 2000}) {
        cmdSave.Click = [this] { Pressed += "save "; };
        cmdClose.Click = [this] { Pressed += "close "; };
        Formula.Font = {"Arial", 10};
    }
    oFormula Formula{*this, "oFormula1", {.Left = 120, .Top = 120, .Width = 2400, .Height = 345}};
    TextBox txtName{*this, "txtName", {.Left = 120, .Top = 600, .Width = 2400, .Height = 345}};
    CommandButton cmdSave{
        *this, "cmdSave", {.Left = 120, .Top = 1200, .Width = 1200, .Height = 405, .Default = true}};
    CommandButton cmdClose{
        *this, "cmdClose", {.Left = 1500, .Top = 1200, .Width = 1200, .Height = 405, .Cancel = true}};
    std::string Pressed;
};

class FormulaTest : public testing::Test {
  protected:
    void SetUp() override {
        Window = ShowActive(S.Desktop, Form);
        Edit = WidgetOf<QTextEdit>(Form.Formula);
        ASSERT_TRUE(Edit->hasFocus());
    }
    void TearDown() override { Form.Unload(); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Edit, key, modifiers); }
    void Type(const char* text) { QTest::keyClicks(Edit, text); }
    // Empty, with the caret in it and nothing to take back.
    void Clear() {
        Form.Formula.SetPlainText("x");
        S.Desktop.Flush();
        Form.Formula.SetPlainText("");
        S.Desktop.Flush();
    }
    void Paste(const char* type, const QByteArray& data) {
        auto mime = std::make_unique<QMimeData>();
        mime->setData(type, data);
        QApplication::clipboard()->setMimeData(mime.release());
        Edit->paste();
    }
    // What the control has, which must be what the widget shows.
    std::string Shown() {
        platform::RichText shown;
        const QTextBlock block = Edit->document()->firstBlock();
        EXPECT_EQ(block, Edit->document()->lastBlock());
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const auto height = at.fragment().charFormat().verticalAlignment();
            const std::string text = at.fragment().text().toStdString();
            shown.push_back({text, height == QTextCharFormat::AlignSubScript     ? platform::Run::Sub
                                   : height == QTextCharFormat::AlignSuperScript ? platform::Run::Super
                                                                                 : platform::Run::Normal});
        }
        EXPECT_EQ(platform::Normalised(shown), Form.Formula.Content());
        return test::Shown(Form.Formula.Content());
    }

    Screen S;
    Chemical Form{S.Desktop};
    QWidget* Window = nullptr;
    QTextEdit* Edit = nullptr;
};

TEST_F(FormulaTest, UndoTakesBackWhatWasTypedWithItsHeights) {
    std::set<std::string> states = {""};
    const auto key = [&](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        Key(code, modifiers);
        states.insert(Shown());
    };
    const auto type = [&](const std::string& text) {
        for (const char c : text) {
            QTest::keyClick(Edit, c);
            states.insert(Shown());
        }
    };
    type("H2SO4");
    EXPECT_EQ(Shown(), "H_{2}SO_{4}");
    type(" 2-");
    EXPECT_EQ(Shown(), "H_{2}SO_{4} ^{2-}");
    key(Qt::Key_Home);
    key(Qt::Key_Up, Qt::ControlModifier);
    type("12");
    key(Qt::Key_Left, Qt::ShiftModifier);
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "^{1}2H_{2}SO_{4} ^{2-}");
    key(Qt::Key_End);
    key(Qt::Key_Backspace);
    const std::string all = Shown();
    EXPECT_EQ(all, "^{1}2H_{2}SO_{4} 2");

    int steps = 0;
    for (; Edit->document()->isUndoAvailable() && steps < 100; ++steps) {
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(states.contains(Shown())) << Shown();
    }
    EXPECT_EQ(Shown(), "");
    EXPECT_GT(steps, 5);
    for (; steps > 0; --steps) {
        Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(states.contains(Shown())) << Shown();
    }
    EXPECT_EQ(Shown(), all);
    Key(Qt::Key_Z, Qt::ControlModifier);
    Type("C");
    EXPECT_FALSE(Edit->document()->isRedoAvailable());
    EXPECT_EQ(Shown(), "^{1}2H_{2}SO_{4} 2-C");

    // What was set by key is set still when its removal is taken back.
    Clear();
    Type("H2");
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_0, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_End);
    Type("O");
    EXPECT_EQ(Shown(), "H2O");
    Key(Qt::Key_Up, Qt::ControlModifier);
    Type("+");
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    Type("H");
    EXPECT_EQ(Shown(), "H2O^{+}H");

    // What the window sets can't be taken back.
    Form.Formula.SetRichText("{\\rtf1 C{\\sub 2}}");
    Form.Formula.Font = {"Courier", 12};
    S.Desktop.Flush();
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    EXPECT_EQ(Shown(), "C_{2}");

    // Stored lines stay lines until the user joins them.
    Form.Formula.SetRichText("{\\rtf1 C\\par 2}");
    S.Desktop.Flush();
    Type("H");
    EXPECT_EQ(Form.Formula.PlainText(), "C\n2H");
    EXPECT_TRUE(Edit->document()->isUndoAvailable());
    Key(Qt::Key_Home);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Shown(), "C2H");
}

TEST_F(FormulaTest, AHeightAskedForLastsUntilTheCaretIsMoved) {
    Type("e");
    Key(Qt::Key_Up, Qt::ControlModifier);
    Type("x3");
    S.Desktop.Flush();
    Type("y");
    Key(Qt::Key_Backspace);
    Type("z");
    EXPECT_EQ(Shown(), "e^{x3z}");
    Key(Qt::Key_Left);
    Key(Qt::Key_Right);
    Type("C2");
    EXPECT_EQ(Shown(), "e^{x3z}C_{2}");
    Key(Qt::Key_Down, Qt::ControlModifier);
    Type("n");
    Key(Qt::Key_Down, Qt::ControlModifier);
    Type("O");
    EXPECT_EQ(Shown(), "e^{x3z}C_{2n}O");
    // Typed between equal characters, which the user has set: it is no part of them.
    Clear();
    Type("ee");
    Edit->selectAll();
    Key(Qt::Key_Up, Qt::ControlModifier);
    Key(Qt::Key_Home);
    Key(Qt::Key_Right);
    Type("e");
    EXPECT_EQ(Shown(), "^{e}e^{e}");
}

TEST_F(FormulaTest, KeysOfTheWindowTypeNothing) {
    Type("HO");
    Key(Qt::Key_Left);
    const int steps = Edit->document()->availableUndoSteps();
    Key(Qt::Key_Return);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Key(Qt::Key_Return, Qt::ControlModifier);
    Key(Qt::Key_Escape);
    Key(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(Form.Pressed, "save save close ");
    EXPECT_EQ(Edit->textCursor().position(), 1);
    EXPECT_EQ(Edit->document()->availableUndoSteps(), steps);
    EXPECT_EQ(Shown(), "HO");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Form.ActiveControl(), &Form.txtName);
    QTest::keyClick(WidgetOf<QWidget>(Form.txtName), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(Edit->hasFocus());
    EXPECT_EQ(Shown(), "HO");
}

TEST_F(FormulaTest, TakesTextAndHeightsOfWhatIsPasted) {
    const struct {
        const char* Type;
        const char* Data;
        const char* Shown;
    } cases[] = {
        {"text/plain", "\tH2\r\nO\n", "aH_{2} Oz"},
        {"text/html", "<p style='color:red'><b>H2</b>O<img src='file:///x.png'></p>", "aH_{2}Oz"},
        {"text/html", "<h1>H<sub>2</sub>O2</h1><ul><li>x<sup>2</sup></li></ul>", "aH_{2}O2 x^{2}z"},
        {"text/rtf", R"({\rtf1\b H2{\super +}\par \u-10179?\u-8704?})", "aH2^{+} 😀z"},
        {"text/html", "", "az"},
    };
    for (const auto& [type, data, shown] : cases) {
        Clear();
        Type("axz");
        Key(Qt::Key_Left);
        Key(Qt::Key_Left, Qt::ShiftModifier);
        const std::string before = Shown();
        Paste(type, data);
        if (std::string_view(data).empty()) {
            EXPECT_EQ(Shown(), before);
            continue;
        }
        EXPECT_EQ(Shown(), shown);
        Type("O");
        EXPECT_TRUE(Shown().ends_with("Oz")) << Shown();
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Shown(), shown);
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Shown(), before);
    }
    Edit->selectAll();
    Paste("text/plain", QByteArray(100'000, '2') + "\xF0\x9F\x98\x80");
    Type("H2");
    EXPECT_EQ(Shown(), std::string(100'000, '2') + "😀H_{2}");
    // A copy keeps its heights.
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    Clear();
    Edit->paste();
    EXPECT_EQ(Shown(), "_{2}");
}

TEST_F(FormulaTest, InputMethodsAndScreenReadersWriteAsWell) {
    QInputMethodEvent composing("2", {});
    QApplication::sendEvent(Edit, &composing);
    EXPECT_EQ(Form.Formula.PlainText(), "");
    QInputMethodEvent written;
    written.setCommitString("H2😀");
    QApplication::sendEvent(Edit, &written);
    EXPECT_EQ(Shown(), "H_{2}😀");

    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(Edit);
    reader->setText(QAccessible::Value, "<b>H2</b>O<br>");
    EXPECT_EQ(Shown(), "H_{2}O");
    reader->setText(QAccessible::Value, "SO4\n");
    EXPECT_EQ(Shown(), "SO_{4}");
    Key(Qt::Key_End);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_0, Qt::ControlModifier);
    Key(Qt::Key_End);
    reader->editableTextInterface()->insertText(0, "H2");
    EXPECT_EQ(Shown(), "H_{2}SO4");
    EXPECT_EQ(reader->text(QAccessible::Value), "H2SO4");

    Form.Formula.Locked = true;
    S.Desktop.Flush();
    EXPECT_TRUE(reader->state().readOnly);
    reader->setText(QAccessible::Value, "x");
    reader->editableTextInterface()->insertText(0, "x");
    Type("x");
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(Shown(), "H_{2}SO4");
    EXPECT_EQ(Edit->focusPolicy(), Qt::NoFocus);
    Form.Formula.Locked = false;
    S.Desktop.Flush();
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    EXPECT_EQ(Edit->focusPolicy(), Qt::StrongFocus);
}

TEST_F(FormulaTest, StaysWhereItIsDrawn) {
    // The stem of an "H" is the first that is drawn and stands on the line.
    const auto bottom = [&] {
        const QImage image = Edit->grab().toImage();
        int y = image.height() / 2;
        int x = image.height() / 4;
        while (image.pixelColor(x, y).lightness() > 128) {
            ++x;
        }
        while (image.pixelColor(x, y).lightness() < 128) {
            ++y;
        }
        return y;
    };
    Form.txtName.SetFocus();
    std::set<int> places;
    for (const char* formula : {"H", "H{\\sub 2}", "H{\\super +}"}) {
        for (const bool locked : {true, false}) {
            Form.Formula.Locked = locked;
            Form.Formula.SetRichText("{\\rtf1 " + std::string(formula) + "}");
            S.Desktop.Flush();
            places.insert(bottom());
        }
    }
    EXPECT_EQ(places.size(), 1U);
}

}  // namespace
}  // namespace test
