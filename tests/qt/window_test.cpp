// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// A window as a whole: keys, focus, menus, size, and one window above another.

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

#include "platform/error.h"
#include "qt/support.h"

namespace test {
namespace {

using WindowTest = EntryTest;

TEST_F(WindowTest, OpensAtItsDesignAndTellsTheFormOnce) {
    EXPECT_EQ(Opening, (Log{"resize", "activate", "+txtName"}));
    EXPECT_EQ(Form.ClientWidth(), 6600);
    EXPECT_EQ(Form.ClientHeight(), 4800);
    EXPECT_EQ(Window->windowTitle(), "Entry");
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QLineEdit>(Form.txtName));
    EXPECT_EQ(WidgetOf<QLineEdit>(Form.txtName)->accessibleName(), "Name");

    Window->resize(Window->width() * 2, Window->height());
    QApplication::processEvents();
    EXPECT_EQ(Said(), Log{"resize"});
    EXPECT_NEAR(Form.ClientWidth(), 13200, 20);
    EXPECT_EQ(Form.ClientHeight(), 4800);
}

TEST_F(WindowTest, EnterPressesTheDefaultButtonAndEscTheOther) {
    QTest::keyClicks(QApplication::focusWidget(), "syra 5%");
    Key(Qt::Key_Return);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Said(), (Log{"ok syra 5%", "ok syra 5%"}));

    Form.cmdOk.Default = false;
    S.Desktop.Flush();
    EXPECT_FALSE(WidgetOf<QPushButton>(Form.cmdOk)->isDefault());
    Key(Qt::Key_Return);
    EXPECT_EQ(Said(), Log{});
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(WindowTest, KeysLeadTheFocusAndPress) {
    struct Case {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        Log Expected;
    };
    for (const Case& c : {
             Case{Qt::Key_Tab, {}, {"-txtName", "+optKind(1)"}},
             Case{Qt::Key_Down, {}, {"-optKind(1)", "+optKind(2)", "kind 2"}},
             Case{Qt::Key_Right, {}, {"-optKind(2)", "+optKind(0)", "kind 0"}},
             Case{Qt::Key_Tab, {}, {"-optKind(0)", "+chkOwn"}},
             Case{Qt::Key_Space, {}, {"own 1"}},
             Case{Qt::Key_Tab, Qt::ShiftModifier, {"-chkOwn", "+optKind(0)"}},
             Case{Qt::Key_N, Qt::AltModifier, {"-optKind(0)", "+txtName"}},
             Case{Qt::Key_W, Qt::AltModifier, {"-txtName", "+chkOwn", "own 0"}},
             Case{Qt::Key_C, Qt::ControlModifier, {"copy"}},
         }) {
        Key(c.Key, c.Modifiers);
        EXPECT_EQ(Said(), c.Expected) << c.Key;
    }
    EXPECT_FALSE(Form.optKind(2).Value);

    Form.mnuCopy.Enabled = false;
    Form.mnuEdit.Caption = "&Redigera";
    S.Desktop.Flush();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(Window->findChild<QMenuBar*>()->actions().front()->text(), "&Redigera");
}

TEST_F(WindowTest, TheFormDecidesWhereTheFocusIs) {
    Form.txtName.GotFocus = [this] { Form.chkOwn.SetFocus(); };
    // The box is left before it has been reached.
    Key(Qt::Key_Tab);
    WidgetOf<QLineEdit>(Form.txtName)->setFocus();
    EXPECT_EQ(Form.ActiveControl(), &Form.chkOwn);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QWidget>(Form.chkOwn));

    // A control that is switched off hands the focus on; switched off and on again, it keeps it.
    Form.chkOwn.Enabled = false;
    Form.chkOwn.Enabled = true;
    QApplication::processEvents();
    EXPECT_EQ(Form.ActiveControl(), &Form.chkOwn);
    Form.chkOwn.Enabled = false;
    QApplication::processEvents();
    EXPECT_EQ(Form.ActiveControl(), &Form.cmdOk);
}

// Where two stand at one place, nobody gets to the lower one but code.
TEST_F(WindowTest, AButtonUnderAnotherIsOutOfReach) {
    QWidget* ok = WidgetOf<QWidget>(Form.cmdOk);
    const QPoint place = ok->geometry().center();
    const auto reach = [&] {
        Form.txtName.SetFocus();
        S.Desktop.Flush();
        Said();
        QTest::mouseClick(ok->parentWidget()->childAt(place), Qt::LeftButton);
        for (const auto& [key, modifiers] :
             {std::pair(Qt::Key_O, Qt::AltModifier), std::pair(Qt::Key_Return, Qt::NoModifier)}) {
            Form.txtName.SetFocus();
            Key(key, modifiers);
        }
        Form.cmdOk.InputClick();
        const Log said = Said();
        return std::count(said.begin(), said.end(), "ok ");
    };
    EXPECT_EQ(reach(), 4);
    Form.chkOwn.Left = Form.cmdOk.Left.Get();
    Form.chkOwn.Top = Form.cmdOk.Top.Get();
    Form.chkOwn.Width = Form.cmdOk.Width.Get();
    Form.chkOwn.Height = Form.cmdOk.Height - 1;
    EXPECT_FALSE(Form.cmdOk.Covered());
    Form.chkOwn.Height = Form.cmdOk.Height.Get();
    EXPECT_EQ(reach(), 0);
    EXPECT_EQ(Form.chkOwn.Value, 1);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(ok)->state().invisible);
    Form.chkOwn.SetFocus();
    Key(Qt::Key_Tab);
    EXPECT_EQ(Form.ActiveControl(), &Form.cmdClose);

    Form.cmdOk.SetFocus();
    EXPECT_EQ(Form.ActiveControl(), &Form.cmdOk);
    Said();
    Form.cmdOk.Value = true;
    EXPECT_EQ(Said(), Log{"ok "});
    Form.chkOwn.Visible = false;
    EXPECT_EQ(reach(), 4);
}

TEST_F(WindowTest, ChangesOfTheFormAreNoInput) {
    Form.chkOwn.Value = 1;
    Form.optKind(0).Value = true;
    Form.txtName.Text = "x";
    EXPECT_EQ(Said(), (Log{"own 1", "kind 0"}));
    QApplication::processEvents();
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(WidgetOf<QLineEdit>(Form.txtName)->text(), "x");
}

TEST_F(WindowTest, RefreshPaintsWhileTheEventStillRuns) {
    struct Paints : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            Count += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int Count = 0;
    } paints;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(Window));
    auto* label = WidgetOf<QLabel>(Form.lblName);
    label->installEventFilter(&paints);
    Form.cmdOk.Click = [&] {
        Form.lblName.Caption = "Searching";
        EXPECT_EQ(paints.Count, 0);
        Form.Refresh();
        EXPECT_EQ(label->text(), "Searching");
        EXPECT_EQ(paints.Count, 1);
    };
    Key(Qt::Key_Return);
    EXPECT_EQ(paints.Count, 1);
}

TEST(Keys, ReachTheFormFirstAsItKnowsThem) {
    struct Keys : Entry {
        using Entry::Entry;
        void Form_KeyDown(int& code, int shift) override {
            Said.push_back(std::to_string(code) + "/" + std::to_string(shift));
        }
        void Form_KeyPress(int& character) override {
            Said.push_back("char " + std::to_string(character));
            character = character == 'x' ? 0 : character;
        }
    };
    Screen s;
    Keys form(s.Desktop);
    ShowActive(s.Desktop, form);
    struct Case {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        const char* Typed;
        Log Expected;
    };
    for (const Case& c :
         {Case{Qt::Key_F2, {}, "", {"113/0"}}, Case{Qt::Key_Up, Qt::ShiftModifier, "", {"38/1"}},
          Case{Qt::Key_PageDown, Qt::ControlModifier, "", {"34/2"}},
          Case{Qt::Key_Delete, {}, "\x7F", {"46/0"}}, Case{Qt::Key_A, {}, "a", {"65/0", "char 97"}},
          Case{Qt::Key_Aring, {}, "å", {"231/0", "char 229"}}, Case{Qt::Key_X, {}, "x", {"88/0", "char 120"}},
          Case{Qt::Key_Tab, {}, "\t", {"-txtName", "+optKind(1)"}}}) {
        form.Said.clear();
        QKeyEvent event(QEvent::KeyPress, c.Key, c.Modifiers, QString::fromUtf8(c.Typed));
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        EXPECT_EQ(form.Said, c.Expected) << c.Key;
    }
    EXPECT_EQ(form.txtName.Text.Get(), "aå");  // the x was used up
    form.Unload();
}

TEST_F(WindowTest, AModalWindowHoldsItsCallerUntilItIsUnloaded) {
    struct Child : platform::Form {
        explicit Child(platform::Desktop& desktop)
            : Form(desktop, "frmChild", {.ClientWidth = 2400, .ClientHeight = 900}) {
            cmdEnd.Click = [this] { Unload(); };
        }
        CommandButton cmdEnd{*this, "cmdEnd", {.Width = 900, .Height = 405}};
    } child(S.Desktop);
    Form.cmdOk.Click = [&] {
        child.Show(platform::vbModal, &Form);
        Form.Said.push_back(child.IsLoaded() ? "still there" : "done");
    };
    // Closed by its button, by its close box, and opened again each time.
    for (const bool byButton : {true, false}) {
        WhileWindow("frmChild", [&](QWidget* up) {
            EXPECT_EQ(Said(), Log{});
            EXPECT_EQ(QApplication::activeModalWidget(), up);
            byButton ? QTest::mouseClick(WidgetOf<QWidget>(child.cmdEnd), Qt::LeftButton)
                     : static_cast<void>(up->close());
        });
        Key(Qt::Key_Return);
        EXPECT_EQ(Said(), Log{"done"});
        EXPECT_EQ(WindowNamed("frmChild"), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(Window));
        QApplication::processEvents();
        EXPECT_EQ(Said(), (Log{"activate", "+txtName"}));
    }
}

TEST_F(WindowTest, TheRunEndsWithTheLastWindow) {
    QTimer::singleShot(0, Window, &QWidget::close);
    EXPECT_EQ(S.Desktop.Run(), 0);
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_EQ(S.Desktop.Run(), 0);  // with no window there is nothing to run
}

TEST_F(WindowTest, AFailureInAModalWindowEndsAllLoops) {
    Entry child(S.Desktop);
    child.cmdOk.Click = [] { throw platform::Error(53, "The file is missing."); };
    Form.cmdOk.Click = [&] {
        child.Show(platform::vbModal);
        Form.Said.push_back("went on");
    };
    bool closed = false;
    S.Desktop.AtEnd = [&] { closed = true; };
    QString text;
    WhileUp([] { return QApplication::activeModalWidget(); },
            [&](QWidget*) {
                WhileBox([&](QMessageBox& box) {
                    text = box.text();
                    box.close();
                });
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            });
    Key(Qt::Key_Return);
    EXPECT_EQ(text, "53 (The file is missing.)");
    EXPECT_TRUE(closed);
    EXPECT_TRUE(S.Desktop.Ended());
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(WindowNamed("frmEntry"), nullptr);
}

TEST_F(WindowTest, ALargerFontEnlargesTheWindowAlike) {
    auto* button = WidgetOf<QPushButton>(Form.cmdOk);
    const int width = button->width();
    const QSize client = button->parentWidget()->size();
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(large);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Window->width() > client.width(); }));
    const double factor = static_cast<double>(QFontMetrics(large).height()) / QFontMetrics(before).height();
    EXPECT_NEAR(button->width(), width * factor, 1);
    EXPECT_NEAR(Window->width(), client.width() * factor, 1);
    EXPECT_EQ(Form.ClientWidth(), 6600);
    EXPECT_EQ(Said(), Log{});

    QApplication::setFont(before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button->parentWidget()->size() == client; }));
}

}  // namespace
}  // namespace test
