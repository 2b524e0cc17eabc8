// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Text boxes, drop-down lists, formulas and labels, on real widgets.

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
    void SetUp() override {
        EntryTest::SetUp();
        Line = WidgetOf<QLineEdit>(Form.txtName);
        Area = WidgetOf<QPlainTextEdit>(Form.txtNote);
    }
    static void Paste(QWidget* into, const QString& text) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(into, Qt::Key_V, Qt::ControlModifier);
    }

    QLineEdit* Line = nullptr;
    QPlainTextEdit* Area = nullptr;
};

TEST_F(ControlsTest, SelectionsAreCountedInCodePointsOnBothSides) {
    Form.txtName.Text = "a😀bå😀c";
    Form.txtName.SelStart = 2;
    Form.txtName.SelLength = 3;
    S.Desktop.Flush();
    EXPECT_EQ(Line->selectedText(), "bå😀");
    QTest::keyClick(Line, Qt::Key_End);
    EXPECT_EQ(Form.txtName.SelStart.Get(), 6);
    EXPECT_EQ(Form.txtName.SelLength.Get(), 0);

    // All of it, each time that it is asked for.
    for (int i = 0; i < 2; ++i) {
        Form.txtName.SelStart = 0;
        Form.txtName.SelLength = 999;
        S.Desktop.Flush();
        EXPECT_EQ(Line->selectedText(), Line->text());
        QTest::keyClick(Line, Qt::Key_Home);
    }
}

TEST_F(ControlsTest, TheClickThatBringsTheFocusLeavesTheFormsSelection) {
    Form.txtName.Text = "natrium";
    Form.txtName.GotFocus = [this] {
        Form.txtName.SelStart = 0;
        Form.txtName.SelLength = 999;
    };
    const QPoint in(20, Line->height() / 2);
    Form.txtNote.SetFocus();
    QApplication::processEvents();
    ASSERT_FALSE(Line->hasFocus());
    QTest::mousePress(Line, Qt::LeftButton, {}, in);
    QApplication::processEvents();
    QTest::mouseMove(Line, in + QPoint(2, 0));
    QTest::mouseRelease(Line, Qt::LeftButton, {}, in + QPoint(2, 0));
    EXPECT_EQ(Line->selectedText(), "natrium");
    EXPECT_EQ(Form.txtName.SelLength.Get(), 7);

    // The next click sets the caret.
    QTest::mouseClick(Line, Qt::LeftButton, {}, in);
    EXPECT_EQ(Line->selectedText(), "");
    EXPECT_EQ(Form.txtName.SelLength.Get(), 0);
}

TEST_F(ControlsTest, TheCaretStaysWhenTheFormRewritesWhatIsTyped) {
    Form.txtName.Change = [this] {
        Form.txtName.Text = QString::fromStdString(Form.txtName.Text).toUpper().toStdString();
    };
    Key(Qt::Key_B);
    Key(Qt::Key_D);
    Key(Qt::Key_Left);
    Key(Qt::Key_C);
    EXPECT_EQ(Line->text(), "BCD");
    EXPECT_EQ(Line->cursorPosition(), 2);
}

TEST_F(ControlsTest, WhatIsPastedLosesItsControlCharacters) {
    const QString pasted = QString("a\r\nb\tc\x01") + QChar(0) + "d\n";
    Paste(Line, pasted);
    EXPECT_EQ(Form.Changes, 1);
    QTest::keyClick(Line, 'u', Qt::AltModifier);  // belongs to nothing in the window
    EXPECT_EQ(Form.txtName.Text.Get(), "a b cd");
    EXPECT_EQ(Line->cursorPosition(), 6);
    const QString text(100'000, 'x');  // is not cut
    for (const auto& [cell, expected] : {std::pair<QString, QString>("\tHCl\t\r\n", "HCl"), {text, text}}) {
        Line->selectAll();
        Paste(Line, cell);
        EXPECT_EQ(Form.txtName.Text.Get(), expected.toStdString());
        EXPECT_EQ(Line->cursorPosition(), expected.size());
    }

    Paste(Area, pasted);
    EXPECT_EQ(Form.txtNote.SelStart.Get(), 9);
    Form.txtNote.SelStart = 3;
    Form.txtNote.SelLength = 1;
    S.Desktop.Flush();
    EXPECT_EQ(Area->textCursor().selectedText(), "b");
    QTest::keyClick(Area, Qt::Key_Tab);
    EXPECT_EQ(Form.txtNote.Text.Get(), "a\r\nb\tcd\r\n");
}

TEST_F(ControlsTest, ALockedBoxCanBeCopiedFromAndNothingElse) {
    for (TextBox* box : {&Form.txtName, &Form.txtNote}) {
        box->Text = "fast";
        box->Locked = true;
        box->SetFocus();
        QApplication::clipboard()->clear();
        for (const auto& [key, modifiers] :
             {std::pair(Qt::Key_X, Qt::NoModifier), std::pair(Qt::Key_A, Qt::ControlModifier),
              std::pair(Qt::Key_Insert, Qt::ControlModifier)}) {
            QTest::keyClick(WidgetOf<QWidget>(*box), key, modifiers);
        }
        EXPECT_EQ(QApplication::clipboard()->text(), "fast");
        EXPECT_EQ(box->Text.Get(), "fast");
    }
}

TEST_F(ControlsTest, AListIsChosenFromByKeysAndKeepsItsWidth) {
    const std::string blanks(100, ' ');
    Form.cboLang.AddItem("Svenska" + blanks + "LangSvenska.ini");
    Form.cboLang.AddItem("English" + blanks + "LangEnglish.ini");
    Form.cboLang.AddItem("a name that is far too long for the box, whatever the font");
    S.Desktop.Flush();
    auto* combo = WidgetOf<QComboBox>(Form.cboLang);
    EXPECT_EQ(combo->currentIndex(), -1);
    EXPECT_EQ(combo->itemText(0), "Svenska");
    EXPECT_EQ(combo->accessibleName(), "Språk");
    Form.cboLang.SetFocus();
    Said();
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_E);
    EXPECT_EQ(Said(), (Log{"lang 0", "lang 1"}));

    // With the list open, Esc and Enter are the list's.
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        combo->showPopup();
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        EXPECT_EQ(popup->width(), combo->width());
        QTest::keyClick(popup->focusWidget(), key);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(Form.IsLoaded());
    }
    EXPECT_EQ(Said(), Log{"lang 1"});

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

TEST_F(ControlsTest, AFormulaIsDrawnLowAndHighAndReadAloud) {
    auto* widget = WidgetOf<QWidget>(Form.oFormula1);
    const auto picture = [&](const char* rtf) {
        Form.oFormula1.SetRichText(rtf);
        S.Desktop.Flush();
        return widget->grab().toImage();
    };
    const QImage plain = picture("H2O");
    const QImage low = picture("{\\rtf1 H{\\sub 2}O}");
    EXPECT_NE(plain, low);
    EXPECT_NE(low, picture("{\\rtf1 H{\\super 2}O}"));
    EXPECT_EQ(widget->accessibleName(), "Språk H2O");

    Form.oFormula1.ToolTipText = "<b>bold</b> & plain";  // is no marking
    S.Desktop.Flush();
    EXPECT_TRUE(widget->toolTip().contains("&lt;b&gt;bold"));
}

TEST_F(ControlsTest, TheWarningCanBeReadOnEveryGround) {
    const QPalette before = QApplication::palette();
    for (const int grey : {0, 45, 100, 118, 160, 239, 255}) {
        QPalette palette(QColor(grey, grey, grey));
        palette.setColor(QPalette::Window, QColor(grey, grey, grey));
        QApplication::setPalette(palette);
        const auto* label = WidgetOf<QLabel>(Form.lblOwn);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QPalette shown = label->palette();
            return shown.color(QPalette::Window) == palette.color(QPalette::Window) &&
                   qt::Contrast(shown.color(QPalette::WindowText), shown.color(QPalette::Window)) >= 4.5;
        })) << grey;
    }
    QApplication::setPalette(before);
}

TEST(Clipping, FindsWhatDoesNotFit) {
    struct Narrow : platform::Form {
        explicit Narrow(platform::Desktop& desktop)
            : Form(desktop, "frmNarrow", {.ClientWidth = 4000, .ClientHeight = 4000}) {}
        Label lblGood{*this, "lblGood", At({60, 60, 900, 255}, {.Caption = "Good"})};
        Label lblCut{*this, "lblCut", At({60, 400, 300, 255}, {.Caption = "Cut off"})};
        Label lblWraps{*this, "lblWraps", At({60, 700, 900, 660}, {.Caption = "two lines here"})};
        CheckBox chkCut{*this, "chkCut", At({60, 1500, 600, 285}, {.Caption = "Too long"})};
        CommandButton cmdLow{*this, "cmdLow", At({60, 1900, 900, 100}, {.Caption = "Low"})};
        Frame fraCut{*this, "fraCut", At({60, 2100, 600, 600}, {.Caption = "A long title"})};
        Label lblUpon{*this, "lblUpon", At({500, 60, 900, 255}, {.Caption = "Upon"})};
        Label lblOut{*this, "lblOut", At({3500, 60, 900, 255}, {.Caption = "Out"})};
        Label lblFar{*this, "lblFar", At({4500, 60, 90, 255}, {.Caption = "Far off"})};
        ListView lvw{*this, "lvw", At({1500, 700, 2000, 900})};
    };
    Screen s;
    Narrow form(s.Desktop);
    form.Load();
    form.lvw.AddColumn("Heading", 400);
    form.lvw.AddColumn("Hidden heading", 0);
    QWidget* window = ShowActive(s.Desktop, form);
    EXPECT_EQ(ClippedTexts(*window),
              (std::vector<std::string>{"lblGood lies upon lblUpon", "lblCut: Cut off", "chkCut: Too long",
                                        "cmdLow: Low", "fraCut: A long title", "lblOut sticks out",
                                        "lvw: Heading"}));
    form.Unload();
}

}  // namespace
}  // namespace test
