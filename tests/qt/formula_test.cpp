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
        cmdSave.Click = [this] { ++Saved; };
    }
    oFormula Formula{
        *this, "oFormula1", {.Left = 120, .Top = 120, .Width = 2400, .Height = 345, .Font = {"Arial", 10}}};
    TextBox txtName{*this, "txtName", {.Left = 120, .Top = 600, .Width = 2400, .Height = 345}};
    CommandButton cmdSave{*this, "cmdSave", {.Left = 120, .Width = 1200, .Height = 100, .Default = true}};
    int Saved = 0;
};

class FormulaTest : public testing::Test {
  protected:
    void SetUp() override {
        ShowActive(S.Desktop, Form);
        Edit = WidgetOf<QTextEdit>(Form.Formula);
        ASSERT_TRUE(Edit->hasFocus());
    }
    void TearDown() override { Form.Unload(); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Edit, key, modifiers); }
    void Undo() { Key(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() { Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    std::string Type(const char* text) {
        QTest::keyClicks(Edit, text);
        return Shown();
    }
    void Set(const char* rtf) {
        Form.Formula.SetRichText(std::string("{\\rtf1 x") + rtf);
        Form.Formula.SetRichText(rtf);
        S.Desktop.Flush();
    }
    // What the control has, which must be what the widget shows.
    std::string Shown() {
        platform::RichText shown;
        const QTextBlock block = Edit->document()->firstBlock();
        EXPECT_EQ(block, Edit->document()->lastBlock());
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const auto height = at.fragment().charFormat().verticalAlignment();
            shown.push_back({at.fragment().text().toStdString(),
                             height == QTextCharFormat::AlignSubScript     ? platform::Run::Sub
                             : height == QTextCharFormat::AlignSuperScript ? platform::Run::Super
                                                                           : platform::Run::Normal});
        }
        EXPECT_EQ(platform::Normalised(shown), Form.Formula.Content());
        return test::Shown(Form.Formula.Content());
    }

    Screen S;
    Chemical Form{S.Desktop};
    QTextEdit* Edit = nullptr;
};

TEST_F(FormulaTest, UndoTakesBackWhatWasTypedWithItsHeights) {
    std::set<std::string> states = {""};
    for (const char key : std::string("H2SO4 2-")) {
        QTest::keyClick(Edit, key);
        states.insert(Shown());
    }
    EXPECT_EQ(Shown(), "H_{2}SO_{4} ^{2-}");
    Key(Qt::Key_Home);
    Key(Qt::Key_Up, Qt::ControlModifier);
    states.insert(Type("1"));
    states.insert(Type("2"));
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_0, Qt::ControlModifier);
    states.insert(Shown());
    Key(Qt::Key_End);
    Key(Qt::Key_Backspace);
    const std::string all = Shown();
    EXPECT_EQ(all, "^{1}2H_{2}SO_{4} 2");

    int steps = 0;
    for (; Edit->document()->isUndoAvailable() && steps < 100; ++steps) {
        Undo();
        EXPECT_TRUE(states.contains(Shown())) << Shown();
    }
    EXPECT_EQ(Shown(), "");
    EXPECT_GT(steps, 5);
    for (; steps > 0; --steps) {
        Redo();
    }
    EXPECT_EQ(Shown(), all);
    Undo();
    EXPECT_EQ(Type("C"), "^{1}2H_{2}SO_{4} 2-C");

    // What was set by key is set still when its removal is taken back, and when it is done again.
    Set("");
    Type("H2");
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_0, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    Undo();
    Key(Qt::Key_End);
    EXPECT_EQ(Type("O"), "H2O");
    Key(Qt::Key_Up, Qt::ControlModifier);
    Type("+");
    Undo();
    Redo();
    EXPECT_EQ(Type("H"), "H2O^{+}H");
}

TEST_F(FormulaTest, AHeightAskedForLastsUntilTheCaretIsMoved) {
    Key(Qt::Key_Up, Qt::ControlModifier);
    Type("x3");
    S.Desktop.Flush();
    Type("y");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Type("z"), "^{x3z}");
    Key(Qt::Key_Left);
    Key(Qt::Key_Right);
    EXPECT_EQ(Type("C2"), "^{x3z}C_{2}");
    Key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Type("n"), "^{x3z}C_{2n}");
    // Typed between equal characters that are set: it is no part of them.
    Set("{\\rtf1{\\super ee}}");
    Key(Qt::Key_Left);
    EXPECT_EQ(Type("e"), "^{e}e^{e}");
}

TEST_F(FormulaTest, KeysOfTheWindowTypeNothing) {
    // Stored lines stay, what the window sets can't be taken back, and no key makes a line.
    Set("{\\rtf1 C{\\sub 2}\\par O}");
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    QTest::keyClicks(Edit, "H");
    Key(Qt::Key_Left);
    const int steps = Edit->document()->availableUndoSteps();
    EXPECT_GT(steps, 0);
    Key(Qt::Key_Return);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Key(Qt::Key_U, Qt::AltModifier);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Form.Saved, 2);
    EXPECT_EQ(Form.ActiveControl(), &Form.txtName);
    EXPECT_EQ(test::Shown(Form.Formula.Content()), "C_{2}\nOH");
    EXPECT_EQ(Edit->textCursor().position(), 4);
    EXPECT_EQ(Edit->document()->availableUndoSteps(), steps);
}

TEST_F(FormulaTest, TakesTextAndHeightsOfWhatIsPasted) {
    const auto paste = [this](const char* type, const QByteArray& data) {
        auto mime = std::make_unique<QMimeData>();
        mime->setData(type, data);
        QApplication::clipboard()->setMimeData(mime.release());
        Edit->paste();
        return Shown();
    };
    for (const auto& [type, data, shown] :
         {std::tuple("text/plain", "\tH2\r\nO\n", "aH_{2} Oz"),
          std::tuple("text/html", "<b>H2</b>O<img src='file:///x.png'>", "aH_{2}Oz"),
          std::tuple("text/html", "<h1>H<sub>2</sub>O2</h1><ul><li>x<sup>2</sup></ul>", "aH_{2}O2 x^{2}z"),
          std::tuple("text/rtf", "{\\rtf1\\b H2{\\super +}\\par \\u-10179?\\u-8704?}", "aH2^{+} 😀z")}) {
        Set("");
        Type("axz");
        Key(Qt::Key_Left);
        Key(Qt::Key_Left, Qt::ShiftModifier);
        EXPECT_EQ(paste(type, data), shown);
        EXPECT_TRUE(Type("O").ends_with("Oz")) << Shown();
        Undo();
        EXPECT_EQ(Shown(), shown);
        Undo();
        EXPECT_EQ(Shown(), "axz");
    }
    EXPECT_EQ(paste("text/html", ""), "axz");
    Edit->selectAll();
    paste("text/plain", QByteArray(100'000, '2') + "\xF0\x9F\x98\x80");
    EXPECT_EQ(Type("H2"), std::string(100'000, '2') + "😀H_{2}");
    // A copy keeps its heights.
    Key(Qt::Key_Left, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    Set("");
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
    Set("{\\rtf1 SO4}");
    reader->editableTextInterface()->insertText(0, "H2");
    EXPECT_EQ(Shown(), "H_{2}SO4");

    EXPECT_TRUE(Edit->document()->isUndoAvailable());
    Form.Formula.Locked = true;
    S.Desktop.Flush();
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    EXPECT_TRUE(reader->state().readOnly);
    reader->setText(QAccessible::Value, "x");
    reader->editableTextInterface()->insertText(0, "x");
    Undo();
    EXPECT_EQ(Type("x"), "H_{2}SO4");
    EXPECT_EQ(Edit->focusPolicy(), Qt::NoFocus);
    Form.Formula.Locked = false;
    S.Desktop.Flush();
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    EXPECT_EQ(Edit->focusPolicy(), Qt::StrongFocus);
}

TEST_F(FormulaTest, StaysOnTheLineOnWhichItIsRead) {
    // The stem of the "H" stands on it.
    const auto bottom = [this](bool locked, const char* rtf) {
        Form.Formula.Locked = locked;
        Set(rtf);
        const QImage image = Edit->grab().toImage();
        QPoint at(image.height() / 4, image.height() / 2);
        for (; image.pixelColor(at).lightness() > 128; at.rx()++) {
        }
        for (; image.pixelColor(at).lightness() < 128; at.ry()++) {
        }
        return at.y();
    };
    Form.txtName.SetFocus();
    EXPECT_EQ(bottom(false, "{\\rtf1 H}"), bottom(true, "{\\rtf1 H}"));
    EXPECT_EQ(bottom(false, "{\\rtf1 H{\\super +}}"), bottom(true, "{\\rtf1 H}"));
}

}  // namespace
}  // namespace test
