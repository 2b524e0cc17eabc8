// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// A window as a whole: keys, focus, menus, size, and one window above another.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>

#include "platform/error.h"
#include "qt/support.h"

namespace test {
namespace {

struct Entry : platform::Form {
    explicit Entry(platform::Desktop& desktop)
        : Form(desktop, "frmEntry",
               {.Caption = "Entry",
                .ClientWidth = 4800,
                .ClientHeight = 3000,
                .KeyPreview = true,
                .Sizable = true}) {
        for (platform::Control* control : Controls()) {
            if (control->TakesFocus()) {
                control->GotFocus = [this, control] { Said.push_back("+" + control->FullName()); };
                control->LostFocus = [this, control] { Said.push_back("-" + control->FullName()); };
            }
        }
        cmdOk.Click = [this] { Said.push_back("ok " + txtName.Text.Get()); };
        cmdClose.Click = [this] { Unload(); };
        chkOwn.Click = [this] { Said.push_back("own " + std::to_string(chkOwn.Value)); };
        optKind.Bind(&OptionButton::Click, [this](int i) { Said.push_back("kind " + std::to_string(i)); });
        mnuCopy.Click = [this] { Said.push_back("copy"); };
    }

    Menu mnuEdit{*this, "mnuEdit", {.Caption = "&Edit"}};
    Menu mnuCopy{*this, "mnuCopy", {.Caption = "&Copy", .Shortcut = "Ctrl+C", .Container = &mnuEdit}};
    Label lblName{
        *this, "lblName", {.Left = 120, .Top = 150, .Width = 900, .Height = 255, .Caption = "&Name"}};
    TextBox txtName{*this, "txtName", {.Left = 1200, .Top = 120, .Width = 2000, .Height = 345}};
    Frame fraKind{
        *this, "fraKind", {.Left = 120, .Top = 600, .Width = 3000, .Height = 900, .Caption = "Kind"}};
    platform::ControlArray<OptionButton> optKind{
        *this,
        "optKind",
        {{0,
          {.Left = 90, .Top = 250, .Width = 1300, .Height = 270, .Caption = "A&cid", .Container = &fraKind}},
         {1,
          {.Left = 90,
           .Top = 550,
           .Width = 1300,
           .Height = 270,
           .Caption = "Base",
           .Value = 1,
           .Container = &fraKind}},
         {2,
          {.Left = 1500,
           .Top = 250,
           .Width = 1300,
           .Height = 270,
           .Caption = "Salt",
           .Container = &fraKind}}}};
    CheckBox chkOwn{
        *this, "chkOwn", {.Left = 120, .Top = 1600, .Width = 1500, .Height = 285, .Caption = "O&wn"}};
    CommandButton cmdOk{
        *this,
        "cmdOk",
        {.Left = 120, .Top = 2000, .Width = 1200, .Height = 405, .Caption = "&OK", .Default = true}};
    CommandButton cmdClose{
        *this,
        "cmdClose",
        {.Left = 1500, .Top = 2000, .Width = 1200, .Height = 405, .Caption = "Close", .Cancel = true}};
    Log Said;

  protected:
    void Form_Activate() override { Said.push_back("activate"); }
    void Form_Resize() override { Said.push_back("resize"); }
};

class WindowTest : public testing::Test {
  protected:
    void TearDown() override { Form.Unload(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        S.Desktop.Flush();
    }
    Log Said() { return std::exchange(Form.Said, {}); }

    Screen S;
    Entry Form{S.Desktop};
};

TEST_F(WindowTest, OpensAtItsDesignAndTellsTheFormOnce) {
    QWidget* window = ShowActive(S.Desktop, Form);
    EXPECT_EQ(Said(), (Log{"resize", "activate", "+txtName"}));
    EXPECT_EQ(Form.ClientWidth(), 4800);
    EXPECT_EQ(Form.ClientHeight(), 3000);
    EXPECT_EQ(window->windowTitle(), "Entry");
    EXPECT_EQ(QApplication::focusWidget(), WidgetOf<QLineEdit>(Form.txtName));
    EXPECT_EQ(WidgetOf<QLineEdit>(Form.txtName)->accessibleName(), "Name");

    window->resize(window->width() * 2, window->height());
    QApplication::processEvents();
    EXPECT_EQ(Said(), Log{"resize"});
    EXPECT_NEAR(Form.ClientWidth(), 9600, 20);
    EXPECT_EQ(Form.ClientHeight(), 3000);
}

TEST_F(WindowTest, EnterPressesTheDefaultButtonAndEscTheOther) {
    QWidget* window = ShowActive(S.Desktop, Form);
    Said();
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
    EXPECT_FALSE(window->isVisible());
}

TEST_F(WindowTest, TabFollowsTheDeclarationAndArrowsWalkTheOptions) {
    ShowActive(S.Desktop, Form);
    Said();
    Key(Qt::Key_Tab);
    EXPECT_EQ(Said(), (Log{"-txtName", "+optKind(1)"}));
    Key(Qt::Key_Down);
    EXPECT_EQ(Said(), (Log{"-optKind(1)", "+optKind(2)", "kind 2"}));
    Key(Qt::Key_Right);
    EXPECT_EQ(Said(), (Log{"-optKind(2)", "+optKind(0)", "kind 0"}));
    EXPECT_FALSE(Form.optKind(2).Value);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Space);
    EXPECT_EQ(Said(), (Log{"-optKind(0)", "+chkOwn", "own 1"}));
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(Form.ActiveControl(), &Form.optKind(0));
}

TEST_F(WindowTest, MnemonicsAndShortcuts) {
    ShowActive(S.Desktop, Form);
    Said();
    Key(Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(Said(), (Log{"-txtName", "+chkOwn", "own 1"}));
    Key(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(Form.ActiveControl(), &Form.txtName);
    Said();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Said(), Log{"copy"});

    Form.mnuCopy.Enabled = false;
    Form.mnuEdit.Caption = "&Redigera";
    S.Desktop.Flush();
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Said(), Log{});
    EXPECT_EQ(WindowNamed("frmEntry")->findChild<QMenuBar*>()->actions().front()->text(), "&Redigera");
}

TEST_F(WindowTest, TheFormDecidesWhereTheFocusIs) {
    ShowActive(S.Desktop, Form);
    Form.txtName.GotFocus = [this] { Form.chkOwn.SetFocus(); };
    Said();
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

TEST_F(WindowTest, ChangesOfTheFormAreNoInput) {
    ShowActive(S.Desktop, Form);
    Said();
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
    QWidget* window = ShowActive(S.Desktop, Form);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
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

TEST_F(WindowTest, KeysReachTheFormFirstAsItKnowsThem) {
    struct Keys : Entry {
        using Entry::Entry;
        void Form_KeyDown(int& code, int shift) override {
            Said.push_back(std::to_string(code) + "/" + std::to_string(shift));
        }
        void Form_KeyPress(int& character) override {
            Said.push_back("char " + std::to_string(character));
            character = character == 'x' ? 0 : character;
        }
    } form(S.Desktop);
    ShowActive(S.Desktop, form);
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
          Case{Qt::Key_Tab, {}, "\t", {}}}) {
        form.Said.clear();
        form.txtName.SetFocus();
        form.Said.clear();
        QKeyEvent event(QEvent::KeyPress, c.Key, c.Modifiers, QString::fromUtf8(c.Typed));
        QApplication::sendEvent(QApplication::focusWidget(), &event);
        Log keys = form.Said;
        std::erase_if(keys, [](const std::string& said) { return said[0] == '+' || said[0] == '-'; });
        EXPECT_EQ(keys, c.Expected) << c.Key;
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
    QWidget* window = ShowActive(S.Desktop, Form);

    // Closed by its button, by its close box, and opened again each time.
    for (const bool byButton : {true, false}) {
        Said();
        WhileWindow("frmChild", [&](QWidget* up) {
            EXPECT_EQ(Said(), Log{});
            EXPECT_EQ(QApplication::activeModalWidget(), up);
            byButton ? QTest::mouseClick(WidgetOf<QWidget>(child.cmdEnd), Qt::LeftButton)
                     : static_cast<void>(up->close());
        });
        Key(Qt::Key_Return);
        EXPECT_EQ(Said(), Log{"done"});
        EXPECT_EQ(WindowNamed("frmChild"), nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        QApplication::processEvents();
        EXPECT_EQ(Said(), (Log{"activate", "+txtName"}));
    }
}

TEST_F(WindowTest, TheRunEndsWithTheLastWindow) {
    ShowActive(S.Desktop, Form);
    QTimer::singleShot(0, [&] { WindowNamed("frmEntry")->close(); });
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
    ShowActive(S.Desktop, Form);
    Said();
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
    EXPECT_EQ(S.Desktop.Run(), 0);
}

TEST_F(WindowTest, ALargerFontEnlargesTheWindowAlike) {
    QWidget* window = ShowActive(S.Desktop, Form);
    auto* button = WidgetOf<QPushButton>(Form.cmdOk);
    const int width = button->width();
    const QSize client = button->parentWidget()->size();
    Said();

    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 2);
    QApplication::setFont(large);
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->width() > client.width(); }));
    const double factor = static_cast<double>(QFontMetrics(large).height()) / QFontMetrics(before).height();
    EXPECT_NEAR(button->width(), width * factor, 1);
    EXPECT_NEAR(window->width(), client.width() * factor, 1);
    EXPECT_EQ(Form.ClientWidth(), 4800);
    EXPECT_EQ(Said(), Log{});

    QApplication::setFont(before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return button->parentWidget()->size() == client; }));
}

}  // namespace
}  // namespace test
