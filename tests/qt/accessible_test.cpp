// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Each type of control as a reader of the screen acts on it.

#include <QAccessible>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

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

Act Row(int row) {
    return [row](QAccessibleInterface& on) { on.tableInterface()->selectRow(row); };
}

// The text, the rows, or "1" for what is on.
std::string Shown(QAccessibleInterface& on) {
    if (QAccessibleTableInterface* table = on.tableInterface()) {
        std::string rows;
        for (const int row : table->selectedRows()) {
            rows += std::to_string(row);
        }
        return rows;
    }
    if (on.role() == QAccessible::PageTab) {
        return std::to_string(on.state().focused);
    }
    return on.state().checkable ? std::to_string(on.state().checked)
                                : on.text(QAccessible::Value).toStdString();
}

TEST_F(AccessibleTest, WhatItDoesIsTheNextEventAndTheWidgetShowsWhatTheControlHasTaken) {
    // What the control says has been taken, a first act, and, behind what makes it take nothing, a second.
    using Case = std::tuple<QAccessibleInterface&, std::function<std::string()>, Act, std::string,
                            std::function<void()>, Act>;
    int presses = 0;
    // While its box is up, nobody waits.
    Form.cmdOk.Click = Form.mnuCopy.Click = [&] {
        WhileBox([](QMessageBox& box) { box.close(); });
        S.Desktop.MsgBox("?", platform::msg::OkOnly, std::nullopt);
        ++presses;
    };
    Form.cboLang.AddItem("Svenska");
    Form.cboLang.AddItem("English");
    Several several(S.Desktop);
    ShowActive(S.Desktop, several);
    S.Desktop.Flush();
    const auto of = [](const platform::Control& control) -> QAccessibleInterface& {
        return *QAccessible::queryAccessibleInterface(WidgetOf<QWidget>(control));
    };
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Window->findChild<QMenuBar*>());
    const Act press = Do(QAccessibleActionInterface::pressAction());
    const Act toggle = Do(QAccessibleActionInterface::toggleAction());
    const auto entry = [&](int place) -> Act {
        return [=, this](auto&) { WidgetOf<QComboBox>(Form.cboLang)->setCurrentIndex(place); };
    };
    const auto disable = [](platform::Control& control) { return [&] { control.Enabled = false; }; };
    const auto pressed = [&] { return std::string(static_cast<std::size_t>(presses), '!'); };
    const auto value = [](auto& control) { return [&] { return std::to_string(control.Value); }; };
    const auto text = [](TextBox& box) { return [&] { return box.Text.Get(); }; };
    const auto lock = [](TextBox& box) { return [&] { box.Locked = true; }; };
    const Case cases[] = {
        {of(Form.cmdOk), pressed, press, "!", disable(Form.cmdOk), press},
        {*bar->child(0)->child(0)->child(0), pressed, press, "!!", disable(Form.mnuCopy), press},
        {of(Form.chkOwn), value(Form.chkOwn), toggle, "1",
         [&] { Form.chkOwn.Click = [&] { Form.chkOwn.Value = 1; }; }, toggle},
        {of(Form.chkFlat), value(Form.chkFlat), toggle, "1", [&] { Form.cmdOk.Top = Form.chkFlat.Top.Get(); },
         toggle},
        {of(Form.optKind(2)), value(Form.optKind(2)), toggle, "1", [] {}, toggle},
        {of(Form.txtName), text(Form.txtName), Write("syra"), "syra", lock(Form.txtName), Write("bas")},
        {of(Form.txtNote), text(Form.txtNote), Write("syra"), "syra", lock(Form.txtNote), Write("bas")},
        {of(Form.cboLang), [&] { return Form.cboLang.Text(); }, entry(1), "English", disable(Form.cboLang),
         entry(0)},
        {of(Form.lvw), [&] { return std::to_string(Form.lvw.SelectedIndex()); }, Row(1), "1",
         disable(Form.lvw), Row(3)},
        {of(several.lst), [&] { return std::to_string(several.lst.ListIndex); }, Row(1), "1",
         disable(several.lst), Row(3)},
        {of(several.lvw),
         [&] {
             std::string rows;
             for (int i = 0; i < 4; ++i) {
                 rows += several.lvw.Item(i).Selected() ? std::to_string(i) : "";
             }
             return rows;
         },
         [](QAccessibleInterface& on) { Row(1)(on), Row(3)(on); }, "13", disable(several.lvw), Row(2)},
        {*QAccessible::queryAccessibleInterface(WidgetOf<QTabWidget>(several.tabs)->tabBar())->child(1),
         [&] { return std::to_string(several.tabs.Tab); }, press, "1", disable(several.tabs), press}};
    for (const auto& [on, taken, first, expected, close, second] : cases) {
        SCOPED_TRACE(on.text(QAccessible::Name).toStdString());
        const auto expectTaken = [&, &from = on, &now = taken, &right = expected] {
            EXPECT_TRUE(QTest::qWaitFor([&] { return now() == right; })) << now();
            S.Desktop.Flush();
            EXPECT_EQ(right[0] == '!' ? right : Shown(from), right);
        };
        const std::string before = taken();
        first(on);
        EXPECT_EQ(taken(), before);
        expectTaken();
        close();
        S.Desktop.Flush();
        second(on);
        QApplication::processEvents();
        expectTaken();
    }
    EXPECT_EQ(Shown(of(Form.optKind(1))), "0");
    EXPECT_EQ(Form.Changes, 1);
    several.Unload();

    WhileUp([] { return qobject_cast<QInputDialog*>(QApplication::activeModalWidget()); },
            [&](QWidget* box) {
                Write("4711")(*QAccessible::queryAccessibleInterface(box->findChild<QLineEdit*>()));
                press(*QAccessible::queryAccessibleInterface(box->findChild<QPushButton*>()));
            });
    EXPECT_EQ(S.Desktop.InputBox("?", "ID"), "4711");
}

}  // namespace
}  // namespace test
