// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Text boxes, drop-down lists, formulas and labels, on real widgets.

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QWheelEvent>

#include "qt/clipping.h"
#include "qt/colours.h"
#include "qt/support.h"

namespace test {
namespace {

class ControlsTest : public EntryTest {
  protected:
    void Select(TextBox& box, int start, int length) {
        box.SelStart = start;
        box.SelLength = length;
        S.Desktop.Flush();
    }
    static void Paste(QWidget* into, const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(into, Qt::Key_V, Qt::ControlModifier);
    }

    QLineEdit& Line() { return *WidgetOf<QLineEdit>(Form.txtName); }
};

TEST_F(ControlsTest, SelectionsAreCountedInCodePointsOnBothSides) {
    Form.txtName.Text = "a😀bå😀c";
    Select(Form.txtName, 2, 3);
    EXPECT_EQ(Line().selectedText(), "bå😀");
    Key(Qt::Key_End);
    EXPECT_EQ(Form.txtName.SelStart.Get(), 6);
    EXPECT_EQ(Form.txtName.SelLength.Get(), 0);
    // All of it, each time that it is asked for.
    for (int i = 0; i < 2; ++i) {
        Select(Form.txtName, 0, 999);
        EXPECT_EQ(Line().selectedText(), Line().text());
        Key(Qt::Key_Home);
    }

    // The click that brings the focus leaves the form's selection.
    Form.txtName.Text = "natrium";
    Form.txtName.GotFocus = [this] {
        Form.txtName.SelStart = 0;
        Form.txtName.SelLength = 999;
    };
    const QPoint in(20, Line().height() / 2);
    Form.txtNote.SetFocus();
    QTest::mousePress(&Line(), Qt::LeftButton, {}, in);
    QApplication::processEvents();
    QTest::mouseMove(&Line(), in + QPoint(2, 0));
    QTest::mouseRelease(&Line(), Qt::LeftButton, {}, in + QPoint(2, 0));
    EXPECT_EQ(Line().selectedText(), "natrium");
    EXPECT_EQ(Form.txtName.SelLength.Get(), 7);
    // The next click sets the caret.
    QTest::mouseClick(&Line(), Qt::LeftButton, {}, in);
    EXPECT_EQ(Form.txtName.SelLength.Get(), 0);
}

TEST_F(ControlsTest, TheCaretStaysWhenTheFormRewritesWhatIsTyped) {
    Form.txtName.Change = [this] {
        Form.txtName.Text = QString::fromStdString(Form.txtName.Text).toUpper().toStdString();
    };
    for (const Qt::Key key : {Qt::Key_B, Qt::Key_D, Qt::Key_Left, Qt::Key_C}) {
        Key(key);
    }
    EXPECT_EQ(Line().text(), "BCD");
    EXPECT_EQ(Line().cursorPosition(), 2);
}

TEST_F(ControlsTest, WhatIsPastedLosesItsControlCharacters) {
    const QString pasted = QString("a\r\nb\tc\x01") + QChar(0) + "d\n";
    const QString text(100'000, 'x');  // is not cut
    using Pasted = std::pair<QString, QString>;
    for (const auto& [cell, expected] :
         {Pasted(pasted, "a b cd"), Pasted("\tHCl\t\r\n", "HCl"), Pasted(text, text)}) {
        Line().selectAll();
        Paste(&Line(), cell);
        QTest::keyClick(&Line(), 'u', Qt::AltModifier);  // belongs to nothing in the window
        EXPECT_EQ(Form.txtName.Text.Get(), expected.toStdString());
        EXPECT_EQ(Line().cursorPosition(), expected.size());
    }
    EXPECT_EQ(Form.Changes, 3);

    auto* area = WidgetOf<QPlainTextEdit>(Form.txtNote);
    Paste(area, pasted);
    EXPECT_EQ(Form.txtNote.SelStart.Get(), 9);
    Select(Form.txtNote, 3, 1);
    EXPECT_EQ(area->textCursor().selectedText(), "b");
    QTest::keyClick(area, Qt::Key_Tab);
    EXPECT_EQ(Form.txtNote.Text.Get(), "a\r\nb\tcd\r\n");
}

TEST_F(ControlsTest, ALockedBoxCanBeCopiedFromAndNothingElse) {
    for (TextBox* box : {&Form.txtName, &Form.txtNote}) {
        box->Text = "fast";
        box->Locked = true;
        box->SetFocus();
        EXPECT_TRUE(QAccessible::queryAccessibleInterface(WidgetOf<QWidget>(*box))->state().readOnly);
        QApplication::clipboard()->clear();
        Key(Qt::Key_X);
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_Insert, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), "fast");
        EXPECT_EQ(box->Text.Get(), "fast");
    }
}

TEST_F(ControlsTest, AListIsChosenFromByKeysAndKeepsItsWidth) {
    const std::string blanks(100, ' ');
    Form.cboLang.AddItem("Svenska" + blanks + "LangSvenska.ini");
    Form.cboLang.AddItem("English" + blanks + "LangEnglish.ini");
    Form.cboLang.AddItem("a name that is far too long for the box, whatever the font");
    Form.cboLang.SetFocus();
    Said();
    auto* combo = WidgetOf<QComboBox>(Form.cboLang);
    EXPECT_EQ(combo->currentIndex(), -1);
    EXPECT_EQ(combo->itemText(0), "Svenska");
    EXPECT_EQ(combo->accessibleName(), "Språk");
    Key(Qt::Key_Down);
    Key(Qt::Key_E);
    // With the list open, Esc and Enter are the list's.
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        combo->showPopup();
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        EXPECT_EQ(popup->width(), combo->width());
        QTest::keyClick(popup->focusWidget(), key);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
    EXPECT_EQ(Said(), (Log{"lang 0", "lang 1", "lang 1"}));

    // The wheel turns it only where the user is.
    Form.txtName.SetFocus();
    QWheelEvent wheel({5, 5}, combo->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &wheel);
    EXPECT_EQ(Form.cboLang.ListIndex, 1);

    Form.cboLang.ListIndex = 2;
    S.Desktop.Flush();
    EXPECT_TRUE(combo->currentText().endsWith(QChar(0x2026)));
    EXPECT_EQ(ClippedTexts(*Window).size(), 1U);
}

}  // namespace
}  // namespace test
