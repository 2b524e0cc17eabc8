// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The formula editor, on real widgets. What goes up and down is the control's business.

#include <QAccessible>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTextEdit>
#include <set>

#include "qt/formula_document.h"
#include "qt/support.h"
#include "support/shown.h"

namespace test {
namespace {

class FormulaTest : public EntryTest {
  protected:
    void SetUp() override {
        EntryTest::SetUp();
        Formula.Locked = false;
        Formula.SetFocus();
        S.Desktop.Flush();
        Said();
        Edit = WidgetOf<QTextEdit>(Formula);
    }
    /// Up to four keys, and then a text.
    std::string Press(const char* keys, const char* text = "") {
        const QKeySequence sequence(keys);
        for (int i = 0; i < sequence.count(); ++i) {
            Key(sequence[i].key(), sequence[i].keyboardModifiers());
        }
        QTest::keyClicks(Edit, text);
        return Shown();
    }
    std::string Type(const char* text) { return Press("", text); }
    void Set(const char* rtf) {
        Formula.SetRichText(rtf);
        S.Desktop.Flush();
    }
    // What the control has, which must be what the widget shows.
    std::string Shown() {
        const qt::ShownFormula shown = qt::ReadFormula(*Edit->document());
        EXPECT_FALSE(shown.Foreign);
        EXPECT_TRUE(shown.Characters == Formula.Formula().Characters());
        return test::Shown(Formula.Content());
    }

    oFormula& Formula = Form.oFormula1;
    QTextEdit* Edit = nullptr;
};

TEST_F(FormulaTest, UndoTakesBackWhatWasTypedWithItsHeights) {
    std::set<std::string> states = {""};
    for (const char* key : {"H", "2", "S", "O", "4", " ", "2", "-"}) {
        states.insert(Type(key));
    }
    EXPECT_EQ(Shown(), "H_{2}SO_{4} ^{2-}");
    states.insert(Press("Home, Ctrl+Up", "1"));
    states.insert(Type("2"));
    states.insert(Press("Shift+Left, Ctrl+0"));
    const std::string all = Press("End, Backspace");
    EXPECT_EQ(all, "^{1}2H_{2}SO_{4} 2");

    int steps = 0;
    for (; Edit->document()->isUndoAvailable() && steps < 100; ++steps) {
        EXPECT_TRUE(states.contains(Press("Ctrl+Z"))) << Shown();
    }
    EXPECT_EQ(Shown(), "");
    EXPECT_GT(steps, 5);
    for (; steps > 0; --steps) {
        Press("Ctrl+Shift+Z");
    }
    EXPECT_EQ(Shown(), all);
    EXPECT_EQ(Press("Ctrl+Z", "C"), "^{1}2H_{2}SO_{4} 2-C");

    // What was set by key is set still when its removal is taken back, and when it is done again.
    Set("");
    Type("H2");
    Press("Shift+Left, Ctrl+0, Del, Ctrl+Z");
    EXPECT_EQ(Press("End", "O"), "H2O");
    Press("Ctrl+Up", "+");
    EXPECT_EQ(Press("Ctrl+Z, Ctrl+Shift+Z", "H"), "H2O^{+}H");
}

TEST_F(FormulaTest, KeysOfTheWindowTypeNothing) {
    // Stored lines stay, what the window sets can't be taken back, and no key makes a line.
    Set("{\\rtf1 C{\\sub 2}\\par O}");
    EXPECT_FALSE(Edit->document()->isUndoAvailable());
    Type("H");
    Press("Left");
    const int steps = Edit->document()->availableUndoSteps();
    Press("Return, Num+Enter, Shift+Return");
    EXPECT_EQ(Press("Alt+U, Tab"), "C_{2}\nOH");
    EXPECT_EQ(Said(), (Log{"ok ", "ok ", "-oFormula1", "+lvw"}));
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
        Press("Left, Shift+Left");
        EXPECT_EQ(paste(type, data), shown);
        EXPECT_TRUE(Type("O").ends_with("Oz")) << Shown();
        EXPECT_EQ(Press("Ctrl+Z"), shown);
        EXPECT_EQ(Press("Ctrl+Z"), "axz");
    }
    EXPECT_EQ(paste("text/html", ""), "axz");
    Edit->selectAll();
    paste("text/plain", QByteArray(100'000, '2') + "\xF0\x9F\x98\x80");
    EXPECT_EQ(Type("H2"), std::string(100'000, '2') + "😀H_{2}");
    // A copy keeps its heights.
    Press("Shift+Left, Ctrl+Ins");
    Set("");
    Edit->paste();
    EXPECT_EQ(Shown(), "_{2}");
}

TEST_F(FormulaTest, InputMethodsAndScreenReadersWriteAsWell) {
    QInputMethodEvent composing("2", {});
    QApplication::sendEvent(Edit, &composing);
    EXPECT_EQ(Formula.PlainText(), "");
    QInputMethodEvent written;
    written.setCommitString("H2😀");
    QApplication::sendEvent(Edit, &written);
    EXPECT_EQ(Shown(), "H_{2}😀");

    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(Edit);
    reader->setText(QAccessible::Value, "<b>H2</b>O<br>");
    EXPECT_EQ(Shown(), "H_{2}O");
    reader->editableTextInterface()->insertText(0, "SO4");
    EXPECT_EQ(Shown(), "SO_{4}H_{2}O");

    EXPECT_TRUE(Edit->document()->isUndoAvailable());
    for (const bool locked : {true, false}) {
        Formula.Locked = locked;
        S.Desktop.Flush();
        EXPECT_FALSE(Edit->document()->isUndoAvailable());
        EXPECT_EQ(reader->state().readOnly, locked);
        reader->editableTextInterface()->insertText(0, "x");
        EXPECT_EQ(Type("x") == "SO_{4}H_{2}O", locked);
        reader->setText(QAccessible::Value, "x");
        EXPECT_EQ(Shown(), locked ? "SO_{4}H_{2}O" : "x");
    }
}

}  // namespace
}  // namespace test
