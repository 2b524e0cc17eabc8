// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Each type of control as a reader of the screen acts on it.

#include <QAccessible>
#include <QComboBox>
#include <QMenuBar>

#include "qt/support.h"

namespace test {
namespace {

using Act = std::function<void(QAccessibleInterface&)>;
using AccessibleTest = EntryTest;

Act Do(const QString& action) {
    return [action](QAccessibleInterface& on) { on.actionInterface()->doAction(action); };
}

Act Write(const char* text) {
    return [text](QAccessibleInterface& on) { on.setText(QAccessible::Value, text); };
}

Act Choose(int place) {
    return [place](QAccessibleInterface& on) {
        if (auto* combo = qobject_cast<QComboBox*>(on.object())) {
            combo->setCurrentIndex(place);
        } else {
            on.tableInterface()->selectRow(place);
        }
    };
}

// The text, or "1" for what is on and for the second row.
std::string Shown(QAccessibleInterface& on) {
    if (QAccessibleTableInterface* table = on.tableInterface()) {
        return table->selectedRows() == QList<int>{1} ? "1" : "";
    }
    return on.state().checkable ? std::to_string(on.state().checked)
                                : on.text(QAccessible::Value).toStdString();
}

TEST_F(AccessibleTest, WhatItDoesIsTheNextEventAndTheWidgetShowsWhatTheControlHasTaken) {
    struct Case {
        QAccessibleInterface& On;
        std::function<std::string()> Taken;  // what the control says
        Act First;
        std::string Expected;
        std::function<void()> Close;  // from now on nothing is taken
        Act Second;
    };
    int presses = 0;
    // While its box is up, nobody waits.
    Form.cmdOk.Click = Form.mnuCopy.Click = [&] {
        WhileBox([](QMessageBox& box) { box.close(); });
        S.Desktop.MsgBox("?", platform::msg::OkOnly, std::nullopt);
        ++presses;
    };
    Form.cboLang.AddItem("Svenska");
    Form.cboLang.AddItem("English");
    S.Desktop.Flush();
    const auto of = [](const platform::Control& control) -> QAccessibleInterface& {
        return *QAccessible::queryAccessibleInterface(WidgetOf<QWidget>(control));
    };
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Window->findChild<QMenuBar*>());
    const Act press = Do(QAccessibleActionInterface::pressAction());
    const Act toggle = Do(QAccessibleActionInterface::toggleAction());
    const auto disable = [](platform::Control& control) { return [&] { control.Enabled = false; }; };
    const auto pressed = [&] { return std::string(static_cast<std::size_t>(presses), '!'); };
    for (const Case& c : {
             Case{of(Form.cmdOk), pressed, press, "!", disable(Form.cmdOk), press},
             Case{*bar->child(0)->child(0)->child(0), pressed, press, "!!", disable(Form.mnuCopy), press},
             Case{of(Form.chkOwn), [&] { return std::to_string(Form.chkOwn.Value); }, toggle, "1",
                  [&] { Form.chkOwn.Click = [&] { Form.chkOwn.Value = 1; }; }, toggle},
             Case{of(Form.chkFlat), [&] { return std::to_string(Form.chkFlat.Value); }, toggle, "1",
                  [&] { Form.cmdOk.Top = Form.chkFlat.Top.Get(); }, toggle},
             Case{of(Form.optKind(2)), [&] { return std::to_string(Form.optKind(2).Value); }, toggle, "1",
                  [] {}, toggle},
             Case{of(Form.txtName), [&] { return Form.txtName.Text.Get(); }, Write("syra"), "syra",
                  [&] { Form.txtName.Locked = true; }, Write("bas")},
             Case{of(Form.txtNote), [&] { return Form.txtNote.Text.Get(); }, Write("syra"), "syra",
                  [&] { Form.txtNote.Locked = true; }, Write("bas")},
             Case{of(Form.cboLang), [&] { return Form.cboLang.Text(); }, Choose(1), "English",
                  disable(Form.cboLang), Choose(0)},
             Case{of(Form.lvw), [&] { return std::to_string(Form.lvw.SelectedIndex()); }, Choose(1), "1",
                  disable(Form.lvw), Choose(3)},
         }) {
        SCOPED_TRACE(c.On.text(QAccessible::Name).toStdString());
        const auto expectTaken = [&] {
            EXPECT_TRUE(QTest::qWaitFor([&] { return c.Taken() == c.Expected; })) << c.Taken();
            S.Desktop.Flush();
            EXPECT_EQ(c.Expected[0] == '!' ? c.Expected : Shown(c.On), c.Expected);
        };
        const std::string before = c.Taken();
        c.First(c.On);
        EXPECT_EQ(c.Taken(), before);
        expectTaken();
        c.Close();
        S.Desktop.Flush();
        c.Second(c.On);
        QApplication::processEvents();
        expectTaken();
    }
    EXPECT_EQ(Shown(of(Form.optKind(1))), "0");
    EXPECT_EQ(Form.Changes, 1);
}

}  // namespace
}  // namespace test
