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

struct Sheet : platform::Form {
    explicit Sheet(platform::Desktop& desktop)
        : Form(desktop, "frmSheet", {.ClientWidth = 6000, .ClientHeight = 4200}) {
        txtLine.Change = [this] { ++Changes; };
        cboLang.Click = [this] { Chosen.push_back(cboLang.ListIndex); };
        cmdClose.Click = [this] { Unload(); };
    }
    TextBox txtLine{*this, "txtLine", {.Left = 120, .Top = 120, .Width = 2000, .Height = 345}};
    TextBox txtNote{
        *this, "txtNote", {.Left = 120, .Top = 600, .Width = 2000, .Height = 900, .MultiLine = true}};
    Label lblLang{
        *this, "lblLang", {.Left = 2400, .Top = 120, .Width = 1500, .Height = 255, .Caption = "Språk"}};
    ComboBox cboLang{*this, "cboLang", {.Left = 2400, .Top = 600, .Width = 1800, .Height = 345}};
    oFormula oFormula1{
        *this, "oFormula1", {.Left = 2400, .Top = 1200, .Width = 1800, .Height = 450, .Locked = true}};
    Label lblOwn{*this,
                 "lblOwn",
                 {.Left = 120,
                  .Top = 1700,
                  .Width = 1500,
                  .Height = 255,
                  .Caption = "Own",
                  .ForeColor = platform::Colour::Warning}};
    CommandButton cmdClose{
        *this,
        "cmdClose",
        {.Left = 120, .Top = 2400, .Width = 1200, .Height = 405, .Caption = "Close", .Cancel = true}};
    int Changes = 0;
    std::vector<int> Chosen;
};

class ControlsTest : public testing::Test {
  protected:
    void SetUp() override { Window = ShowActive(S.Desktop, Form); }
    void TearDown() override { Form.Unload(); }

    Screen S;
    Sheet Form{S.Desktop};
    QWidget* Window = nullptr;
};

TEST_F(ControlsTest, SelectionsAreCountedInCodePointsOnBothSides) {
    auto* line = WidgetOf<QLineEdit>(Form.txtLine);
    Form.txtLine.Text = "a😀bå😀c";
    Form.txtLine.SelStart = 2;
    Form.txtLine.SelLength = 3;
    S.Desktop.Flush();
    EXPECT_EQ(line->selectedText(), "bå😀");
    QTest::keyClick(line, Qt::Key_End);
    EXPECT_EQ(Form.txtLine.SelStart.Get(), 6);
    EXPECT_EQ(Form.txtLine.SelLength.Get(), 0);

    // All of it, each time that it is asked for.
    for (int i = 0; i < 2; ++i) {
        Form.txtLine.SelStart = 0;
        Form.txtLine.SelLength = 999;
        S.Desktop.Flush();
        EXPECT_EQ(line->selectedText(), line->text());
        QTest::keyClick(line, Qt::Key_Home);
    }
}

TEST_F(ControlsTest, TheClickThatBringsTheFocusLeavesTheFormsSelection) {
    Form.txtLine.Text = "natrium";
    Form.txtLine.GotFocus = [this] {
        Form.txtLine.SelStart = 0;
        Form.txtLine.SelLength = 999;
    };
    auto* line = WidgetOf<QLineEdit>(Form.txtLine);
    const QPoint in(20, line->height() / 2);
    Form.txtNote.SetFocus();
    QApplication::processEvents();
    ASSERT_FALSE(line->hasFocus());
    QTest::mousePress(line, Qt::LeftButton, {}, in);
    QApplication::processEvents();
    QTest::mouseMove(line, in + QPoint(2, 0));
    QTest::mouseRelease(line, Qt::LeftButton, {}, in + QPoint(2, 0));
    EXPECT_EQ(line->selectedText(), "natrium");
    EXPECT_EQ(Form.txtLine.SelLength.Get(), 7);

    // The next click sets the caret.
    QTest::mouseClick(line, Qt::LeftButton, {}, in);
    EXPECT_EQ(line->selectedText(), "");
    EXPECT_EQ(Form.txtLine.SelLength.Get(), 0);
}

TEST_F(ControlsTest, TheCaretStaysWhenTheFormRewritesWhatIsTyped) {
    Form.txtLine.Change = [this] {
        Form.txtLine.Text = QString::fromStdString(Form.txtLine.Text).toUpper().toStdString();
    };
    auto* line = WidgetOf<QLineEdit>(Form.txtLine);
    QTest::keyClicks(line, "bd");
    S.Desktop.Flush();
    QTest::keyClick(line, Qt::Key_Left);
    QTest::keyClicks(line, "c");
    S.Desktop.Flush();
    EXPECT_EQ(line->text(), "BCD");
    EXPECT_EQ(line->cursorPosition(), 2);
}

TEST_F(ControlsTest, WhatIsPastedLosesItsControlCharacters) {
    const QString pasted = QString("a\r\nb\tc\x01") + QChar(0) + "d\n";
    QApplication::clipboard()->setText(pasted);
    auto* line = WidgetOf<QLineEdit>(Form.txtLine);
    QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Form.txtLine.Text.Get(), "a b cd");
    EXPECT_EQ(Form.Changes, 1);
    EXPECT_EQ(line->cursorPosition(), line->text().size());
    QTest::keyClick(line, 'u', Qt::AltModifier);  // belongs to nothing in the window
    EXPECT_EQ(Form.txtLine.Text.Get(), "a b cd");
    line->selectAll();
    QApplication::clipboard()->setText("\tHCl\t\r\n");  // a cell of a table
    QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Form.txtLine.Text.Get(), "HCl");
    EXPECT_EQ(line->cursorPosition(), 3);
    QApplication::clipboard()->setText(pasted);

    auto* area = WidgetOf<QPlainTextEdit>(Form.txtNote);
    QTest::keyClick(area, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Form.txtNote.Text.Get(), "a\r\nb\tcd\r\n");
    EXPECT_EQ(Form.txtNote.SelStart.Get(), 9);
    Form.txtNote.SelStart = 3;
    Form.txtNote.SelLength = 1;
    S.Desktop.Flush();
    EXPECT_EQ(area->textCursor().selectedText(), "b");
    QTest::keyClick(area, Qt::Key_Tab);
    EXPECT_EQ(Form.txtNote.Text.Get(), "a\r\nb\tcd\r\n");
}

TEST_F(ControlsTest, ALockedBoxCanBeCopiedFromAndNothingElse) {
    Form.txtLine.Text = "fast";
    Form.txtNote.Text = "fast";
    Form.txtLine.Locked = true;
    Form.txtNote.Locked = true;
    S.Desktop.Flush();
    auto* area = WidgetOf<QPlainTextEdit>(Form.txtNote);
    for (QWidget* box :
         {static_cast<QWidget*>(WidgetOf<QLineEdit>(Form.txtLine)), static_cast<QWidget*>(area)}) {
        QApplication::clipboard()->clear();
        box->setFocus();
        EXPECT_TRUE(box->hasFocus());
        QTest::keyClicks(box, "x");
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), "fast");
    }
    EXPECT_EQ(Form.txtLine.Text.Get(), "fast");
    EXPECT_EQ(Form.txtNote.Text.Get(), "fast");
}

TEST_F(ControlsTest, AHundredThousandCharactersAreNotCut) {
    const std::string text(100'000, 'x');
    Form.txtLine.Text = text;
    S.Desktop.Flush();
    QTest::keyClick(WidgetOf<QLineEdit>(Form.txtLine), Qt::Key_End);
    QTest::keyClicks(WidgetOf<QLineEdit>(Form.txtLine), "y");
    EXPECT_EQ(Form.txtLine.Text.Get(), text + "y");
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
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_E);
    EXPECT_EQ(Form.Chosen, (std::vector<int>{0, 1}));

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
    EXPECT_EQ(Form.Chosen, (std::vector<int>{0, 1, 1}));

    // The wheel turns it only where the user is.
    Form.txtLine.SetFocus();
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
    const auto picture = [&](const char* rtf) {
        Form.oFormula1.SetRichText(rtf);
        S.Desktop.Flush();
        return WidgetOf<QWidget>(Form.oFormula1)->grab().toImage();
    };
    const QImage plain = picture("H2O");
    const QImage low = picture("{\\rtf1 H{\\sub 2}O}");
    EXPECT_NE(plain, low);
    EXPECT_NE(low, picture("{\\rtf1 H{\\super 2}O}"));
    EXPECT_EQ(WidgetOf<QWidget>(Form.oFormula1)->accessibleName(), "Språk H2O");
}

TEST_F(ControlsTest, ToolTipsAreNeverMarking) {
    Form.txtLine.ToolTipText = "<b>bold</b> & plain";
    Form.cboLang.ToolTipText = "short";
    S.Desktop.Flush();
    EXPECT_TRUE(WidgetOf<QWidget>(Form.txtLine)->toolTip().contains("&lt;b&gt;bold"));
    EXPECT_EQ(WidgetOf<QWidget>(Form.cboLang)->toolTip(), "short");
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
        Label lblGood{
            *this, "lblGood", {.Left = 60, .Top = 60, .Width = 900, .Height = 255, .Caption = "Good"}};
        Label lblCut{
            *this, "lblCut", {.Left = 60, .Top = 400, .Width = 300, .Height = 255, .Caption = "Cut off"}};
        Label lblWraps{*this,
                       "lblWraps",
                       {.Left = 60, .Top = 700, .Width = 900, .Height = 660, .Caption = "two lines here"}};
        CheckBox chkCut{
            *this, "chkCut", {.Left = 60, .Top = 1500, .Width = 600, .Height = 285, .Caption = "Too long"}};
        CommandButton cmdLow{
            *this, "cmdLow", {.Left = 60, .Top = 1900, .Width = 900, .Height = 100, .Caption = "Low"}};
        Frame fraCut{*this,
                     "fraCut",
                     {.Left = 60, .Top = 2100, .Width = 600, .Height = 600, .Caption = "A long title"}};
        Label lblUpon{
            *this, "lblUpon", {.Left = 500, .Top = 60, .Width = 900, .Height = 255, .Caption = "Upon"}};
        Label lblOut{
            *this, "lblOut", {.Left = 3500, .Top = 60, .Width = 900, .Height = 255, .Caption = "Out"}};
        Label lblFar{
            *this, "lblFar", {.Left = 4500, .Top = 60, .Width = 90, .Height = 255, .Caption = "Far off"}};
        ListView lvw{*this, "lvw", {.Left = 1500, .Top = 700, .Width = 2000, .Height = 900}};
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
