// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// A window as a whole: keys, focus, menus, size, and one window above another.

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTreeView>

#include "platform/error.h"
#include "qt/support.h"

namespace test {
namespace {

using WindowTest = EntryTest;

TEST_F(WindowTest, OpensAtItsDesignAndTellsTheFormOnce) {
    EXPECT_EQ(Opening, (Log{"resize", "activate", "+txtName"}));
    EXPECT_EQ(Form.ClientWidth(), 6600);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QLineEdit>(Form.txtName));
    EXPECT_EQ(WidgetOf<QLineEdit>(Form.txtName)->accessibleName(), "Name");

    Form.Caption = "Entry";
    Window->resize(Window->width() * 2, Window->height());
    QApplication::processEvents();
    EXPECT_EQ(Said(), Log{"resize"});
    EXPECT_NEAR(Form.ClientWidth(), 13200, 20);
    EXPECT_EQ(Form.ClientHeight(), 4800);
    EXPECT_EQ(Window->windowTitle(), "Entry");
}

struct Large : platform::Form {
    explicit Large(platform::Desktop& desktop)
        : Form(desktop, "frmLarge", {.ClientWidth = 30000, .ClientHeight = 30000}) {}
    TextBox txtFirst{*this, "txtFirst", At({120, 120, 2000, 345})};
    CommandButton cmdLast{*this, "cmdLast", At({27000, 29000, 2000, 405}, {.Caption = "Last"})};
    platform::ListView lvw{*this, "lvw", At({120, 600, 29000, 28000})};

  protected:
    void Form_Load() override {
        lvw.AddColumn("Name", 3000);
        for (int i = 0; i < 70; ++i) {
            lvw.AddItem("K" + std::to_string(i), "row");
        }
    }
};

TEST_F(WindowTest, LargerThanItsScreenScrollsWithTheFocus) {
    Large large(S.Desktop);
    const QWidget* window = ShowActive(S.Desktop, large);
    EXPECT_TRUE(window->screen()->availableSize().boundedTo(window->size()) == window->size());
    auto* last = WidgetOf<QWidget>(large.cmdLast);
    EXPECT_TRUE(last->visibleRegion().isEmpty());
    Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), last);
    EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
    EXPECT_EQ(large.ClientWidth(), 30000);
    // What is larger than the room: its beginning, and in a list the row that has the keyboard.
    auto* const list = WidgetOf<QTreeView>(large.lvw);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_End, Qt::Key_Home}) {
        Key(key);
        const QRect seen = list->viewport()->visibleRegion().boundingRect();
        EXPECT_EQ(seen.left(), 0) << key;
        EXPECT_TRUE(seen.contains(list->visualRect(list->currentIndex()).bottomLeft())) << key;
    }
    large.Unload();
}

TEST_F(WindowTest, KeysReachTheFormFirstAndLeadTheFocusAndPress) {
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, Log> cases[] = {
        {Qt::Key_A, {}, {"65/0", "char 97"}},
        {Qt::Key_X, {}, {"88/0", "char 120"}},  // which the form uses up
        {Qt::Key_Home, {}, {"36/0"}},
        {Qt::Key_Right, Qt::ShiftModifier, {"16/1", "39/1"}},
        {Qt::Key_Delete, {}, {"46/0"}},
        {Qt::Key_PageDown, Qt::ControlModifier, {"17/2", "34/2"}},
        {Qt::Key_F2, {}, {"113/0"}},
        {Qt::Key_Return, {}, {"ok "}},
        {Qt::Key_Enter, Qt::KeypadModifier, {"ok "}},
        {Qt::Key_Tab, {}, {"-txtName", "+optKind(1)"}},
        {Qt::Key_Down, {}, {"40/0", "-optKind(1)", "+optKind(2)", "kind 2"}},
        {Qt::Key_Right, {}, {"39/0", "-optKind(2)", "+optKind(0)", "kind 0"}},
        {Qt::Key_Tab, {}, {"-optKind(0)", "+chkOwn"}},
        {Qt::Key_Space, {}, {"32/0", "char 32", "own 1"}},
        {Qt::Key_Tab, Qt::ShiftModifier, {"16/1", "-chkOwn", "+optKind(0)"}},
        {Qt::Key_N, Qt::AltModifier, {"18/4", "-optKind(0)", "+txtName"}},
        {Qt::Key_W, Qt::AltModifier, {"18/4", "-txtName", "+chkOwn", "own 0"}},
        {Qt::Key_C, Qt::ControlModifier, {"17/2", "copy"}}};
    Form.SaysKeys = true;
    for (const auto& [key, modifiers, said] : cases) {
        Key(key, modifiers);
        EXPECT_EQ(Said(), said) << key;
    }
    EXPECT_FALSE(Form.optKind(2).Value);
    QKeyEvent ring(QEvent::KeyPress, Qt::Key_Aring, {}, "å");
    Form.txtName.SetFocus();
    Said();
    QApplication::sendEvent(QApplication::focusWidget(), &ring);
    EXPECT_EQ(Said(), (Log{"231/0", "char 229"}));

    Form.SaysKeys = false;
    Form.mnuCopy.Enabled = false;
    Form.mnuEdit.Caption = "&Redigera";
    Form.cmdOk.Default = false;
    Key(Qt::Key_C, Qt::ControlModifier);
    Key(Qt::Key_Return);
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(Window->findChild<QMenuBar*>()->actions().front()->text(), "&Redigera");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Form.IsLoaded());
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(WindowTest, TheFormDecidesWhereTheFocusIs) {
    Form.txtName.GotFocus = [this] { Form.chkOwn.SetFocus(); };
    // The box is left before it has been reached.
    Key(Qt::Key_Tab);
    WidgetOf<QLineEdit>(Form.txtName)->setFocus();
    EXPECT_EQ(Form.ActiveControl(), &Form.chkOwn);
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QWidget>(Form.chkOwn));

    // A control that is switched off gives the focus back to the first one; switched off and on again, it
    // keeps it.
    Form.txtName.GotFocus = nullptr;
    for (const bool on : {true, false}) {
        Form.chkOwn.Enabled = false;
        Form.chkOwn.Enabled = on;
        QApplication::processEvents();
        EXPECT_EQ(Form.ActiveControl() == &Form.chkOwn, on);
    }
    EXPECT_EQ(Form.ActiveControl(), &Form.txtName);
}

// Where two stand at one place, nobody gets to the lower one but code.
TEST_F(WindowTest, AButtonUnderAnotherIsOutOfReach) {
    QWidget* ok = WidgetOf<QWidget>(Form.cmdOk);
    // How often the user gets at it: by mouse, letter, Enter, Tab and a reader of the screen.
    const auto reached = [&] {
        S.Desktop.Flush();
        Said();
        QTest::mouseClick(ok->parentWidget()->childAt(ok->geometry().center()), Qt::LeftButton);
        Form.txtName.SetFocus();
        Key(Qt::Key_O, Qt::AltModifier);
        Form.txtName.SetFocus();
        Key(Qt::Key_Return);
        Form.chkOwn.SetFocus();
        Key(Qt::Key_Tab);
        const Log said = Said();
        return std::count(said.begin(), said.end(), "ok ") + (Form.ActiveControl() == &Form.cmdOk ? 1 : 0) +
               (QAccessible::queryAccessibleInterface(ok)->state().invisible ? 0 : 1);
    };
    EXPECT_EQ(reached(), 5);
    Form.chkOwn.Top = Form.cmdOk.Top.Get();
    Form.chkOwn.Height = Form.cmdOk.Height - 1;
    EXPECT_FALSE(Form.cmdOk.Covered());
    Form.chkOwn.Height = Form.cmdOk.Height.Get();
    EXPECT_EQ(reached(), 0);

    Form.cmdOk.SetFocus();
    EXPECT_EQ(Form.ActiveControl(), &Form.cmdOk);
    Said();
    Form.cmdOk.Value = true;
    EXPECT_EQ(Said(), Log{"ok "});
    QApplication::processEvents();
    Form.cmdOk.InputFocus();
    EXPECT_NE(Form.ActiveControl(), &Form.cmdOk);  // where the keyboard would be out of sight
    Form.chkOwn.Visible = false;
    EXPECT_TRUE(Form.cmdOk.Reachable());
}

TEST_F(WindowTest, ChangesOfTheFormAreNoInputAndTheRunEndsWithTheLastWindow) {
    Form.chkOwn.Value = 1;
    Form.optKind(0).Value = true;
    Form.txtName.Text = "x";
    Form.lvw.Select(2);
    S.Desktop.Flush();
    QApplication::processEvents();
    EXPECT_EQ(Said(), (Log{"own 1", "kind 0"}));
    EXPECT_EQ(Form.Changes, 1);
    EXPECT_EQ(WidgetOf<QLineEdit>(Form.txtName)->text(), "x");

    QTimer::singleShot(0, Window, &QWidget::close);
    S.Desktop.Run();
    EXPECT_FALSE(Form.IsLoaded());
    S.Desktop.Run();  // with no window there is nothing to run
}

TEST_F(WindowTest, AModalWindowHoldsItsCallerUntilItIsUnloaded) {
    Entry child(S.Desktop, "frmChild");
    Form.cmdOk.Click = [&] {
        child.Show(platform::vbModal, &Form);
        Form.Said.push_back(child.IsLoaded() ? "still there" : "done");
    };
    // Closed by its button, by its close box, and opened again each time.
    for (const bool byButton : {true, false}) {
        WhileUp(&QApplication::activeModalWidget, [&](QWidget* up) {
            EXPECT_EQ(Said(), Log{});
            EXPECT_EQ(up, WindowNamed("frmChild"));
            // The key that has opened the window is no part of what a reader of the screen does in it.
            QAccessible::queryAccessibleInterface(WidgetOf<QWidget>(child.chkOwn))
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::toggleAction());
            EXPECT_EQ(child.chkOwn.Value, 0);
            byButton ? QTest::mouseClick(WidgetOf<QWidget>(child.cmdClose), Qt::LeftButton)
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

TEST_F(WindowTest, AFailureInAModalWindowEndsAllLoops) {
    Entry child(S.Desktop, "frmChild");
    child.cmdOk.Click = [] { throw platform::Error(53, "The file is missing."); };
    Form.cmdOk.Click = [&] {
        child.Show(platform::vbModal);
        Form.Said.push_back("went on");
    };
    WhileUp(&QApplication::activeModalWidget, [&](QWidget*) {
        WhileBox([](QMessageBox& box) {
            EXPECT_EQ(box.text(), "53 (The file is missing.)");
            box.close();
        });
        Key(Qt::Key_Return);
    });
    Key(Qt::Key_Return);
    EXPECT_TRUE(S.Desktop.Ended());
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(WindowNamed("frmEntry"), nullptr);
}

TEST_F(WindowTest, ALargerFontEnlargesTheWindowAlike) {
    auto* button = WidgetOf<QPushButton>(Form.cmdOk);
    Window->resize(Window->minimumSize() + QSize(40, 40));
    QApplication::processEvents();
    const int client = Form.ClientWidth();
    Said();
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 1.5);
    const double factor = static_cast<double>(QFontMetrics(large).height()) / QFontMetrics(before).height();
    const QSize size = Window->size();
    const double widths[] = {size.width() * factor, button->width() * factor};
    QApplication::setFont(large);
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return std::abs(Window->width() - widths[0]) <= 1 && std::abs(button->width() - widths[1]) <= 1;
    }));
    EXPECT_EQ(Form.ClientWidth(), client);
    EXPECT_EQ(Said(), Log{});
    QApplication::setFont(before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Window->size() == size; }));
}

}  // namespace
}  // namespace test
