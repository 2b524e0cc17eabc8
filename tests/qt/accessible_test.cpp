// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// Each type of control as a reader of the screen acts on it.

#include <QAccessible>
#include <QComboBox>
#include <QMenuBar>
#include <algorithm>

#include "qt/support.h"

namespace test {
namespace {

using Act = std::function<void(QAccessibleInterface&)>;

Act Do(const QString& action) {
    return [action](QAccessibleInterface& on) { on.actionInterface()->doAction(action); };
}

Act Write(const char* text) {
    return [text](QAccessibleInterface& on) { on.setText(QAccessible::Value, text); };
}

Act Row(int row) {
    return [row](QAccessibleInterface& on) { on.tableInterface()->selectRow(row); };
}

Act Index(int index) {
    return
        [index](QAccessibleInterface& on) { static_cast<QComboBox*>(on.object())->setCurrentIndex(index); };
}

// What the control has taken, and below what its widget shows, in the same words.
std::string Taken(const platform::Control& control, const Log& said) {
    const auto onOff = [](bool on) { return std::string(on ? "on" : "off"); };
    if (const auto* box = dynamic_cast<const CheckBox*>(&control)) {
        return onOff(box->Value != 0);
    }
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
        return onOff(option->Value);
    }
    if (const auto* text = dynamic_cast<const TextBox*>(&control)) {
        return text->Text;
    }
    if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
        return combo->Text();
    }
    if (const auto* list = dynamic_cast<const ListView*>(&control)) {
        return list->SelectedIndex() < 0 ? "" : list->Item(list->SelectedIndex()).Text;
    }
    return std::to_string(std::count(said.begin(), said.end(), "pressed"));
}

std::string Shown(QAccessibleInterface& on, const std::string& taken) {
    if (on.state().checkable) {
        return on.state().checked ? "on" : "off";
    }
    if (QAccessibleTableInterface* table = on.tableInterface()) {
        const QList<int> rows = table->selectedRows();
        return rows.size() == 1 ? table->cellAt(rows[0], 0)->text(QAccessible::Name).toStdString() : "";
    }
    return on.actionInterface() != nullptr && on.role() != QAccessible::ComboBox
               ? taken
               : on.text(QAccessible::Value).toStdString();
}

class AccessibleTest : public EntryTest {
  protected:
    QAccessibleInterface& Of(const platform::Control& control) const {
        if (control.TypeName() != "Menu") {
            return *QAccessible::queryAccessibleInterface(WidgetOf<QWidget>(control));
        }
        // The bar's only menu has but this entry.
        QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Window->findChild<QMenuBar*>());
        return *bar->child(0)->child(0)->child(0);
    }
};

TEST_F(AccessibleTest, WhatItDoesIsTheNextEventAndTheWidgetShowsWhatTheControlHasTaken) {
    struct Case {
        platform::Control& Control;
        Act First;
        const char* Taken;
        std::function<void()> Close;  // from now on nothing is taken
        Act Second;
    };
    Form.cboLang.AddItem("Svenska");
    Form.cboLang.AddItem("English");
    // While its box is up, nobody waits.
    Form.cmdOk.Click = Form.mnuCopy.Click = [this] {
        S.Desktop.MsgBox("?", platform::msg::OkOnly, std::nullopt);
        Form.Said.push_back("pressed");
    };
    const Act press = Do(QAccessibleActionInterface::pressAction());
    const Act toggle = Do(QAccessibleActionInterface::toggleAction());
    const auto disable = [](platform::Control& control) { return [&] { control.Enabled = false; }; };
    for (const Case& c : {
             Case{Form.cmdOk, press, "1", disable(Form.cmdOk), press},
             Case{Form.mnuCopy, press, "1", disable(Form.mnuCopy), press},
             Case{Form.chkOwn, toggle, "on",
                  [this] { Form.chkOwn.Click = [this] { Form.chkOwn.Value = 1; }; }, toggle},
             Case{Form.chkFlat, toggle, "on", [this] { Form.cmdOk.Top = Form.chkFlat.Top.Get(); }, toggle},
             Case{Form.optKind(2), toggle, "on", [] {}, toggle},
             Case{Form.txtName, Write("syra"), "syra", [this] { Form.txtName.Locked = true; }, Write("bas")},
             Case{Form.txtNote, Write("syra"), "syra", [this] { Form.txtNote.Locked = true; }, Write("bas")},
             Case{Form.cboLang, Index(1), "English", disable(Form.cboLang), Index(0)},
             Case{Form.lvw, Row(1), "b", disable(Form.lvw), Row(3)},
         }) {
        SCOPED_TRACE(c.Control.FullName());
        S.Desktop.Flush();
        Said();
        QAccessibleInterface& on = Of(c.Control);
        const std::string before = Taken(c.Control, Form.Said);
        if (before == "0") {
            WhileBox([](QMessageBox& box) { box.close(); });
        }
        c.First(on);
        EXPECT_EQ(Taken(c.Control, Form.Said), before);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Taken(c.Control, Form.Said) == c.Taken; }));
        S.Desktop.Flush();
        EXPECT_EQ(Shown(on, c.Taken), c.Taken);

        c.Close();
        S.Desktop.Flush();
        c.Second(on);
        QApplication::processEvents();
        S.Desktop.Flush();
        EXPECT_EQ(Taken(c.Control, Form.Said), c.Taken);
        EXPECT_EQ(Shown(on, c.Taken), c.Taken);
    }
    EXPECT_EQ(Shown(Of(Form.optKind(1)), ""), "off");
    EXPECT_EQ(Form.Changes, 1);
}

}  // namespace
}  // namespace test
