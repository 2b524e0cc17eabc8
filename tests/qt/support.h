// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <array>
#include <functional>

#include "platform/forms/form.h"
#include "qt/desktop.h"

namespace test {

using platform::Align, platform::CheckBox, platform::ComboBox, platform::CommandButton, platform::Frame,
    platform::ImageList, platform::Label, platform::ListItem, platform::ListView, platform::Menu,
    platform::oFormula, platform::OptionButton, platform::TextBox;
using Log = std::vector<std::string>;

/// A desktop whose program's language the test sets.
struct Screen {
    std::string Language = "English";
    qt::QtDesktop Desktop{[this] { return Language; }};
};

inline QWidget* WindowNamed(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == name && widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

/// The widget of the form's control. The form must be shown.
template <class T>
T* WidgetOf(const platform::Control& control) {
    QWidget* window = WindowNamed(control.Parent().Name().c_str());
    return window->findChild<T*>(QString::fromStdString(control.FullName()));
}

/// Shows the form and waits until it is the active window and its events have run.
inline QWidget* ShowActive(qt::QtDesktop& desktop, platform::Form& form) {
    form.Show();
    QWidget* window = WindowNamed(form.Name().c_str());
    EXPECT_TRUE(window != nullptr && QTest::qWaitForWindowActive(window));
    QApplication::processEvents();
    desktop.Flush();
    return window;
}

/// Runs a piece of the test inside the modal loop of what `find` finds, as soon as it is there. The piece
/// must close it.
inline void WhileUp(const std::function<QWidget*()>& find, const std::function<void(QWidget*)>& piece) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [=] {
        QWidget* widget = find();
        if (widget != nullptr && widget->isActiveWindow()) {
            timer->stop();
            timer->deleteLater();
            piece(widget);
        }
    });
    timer->start(0);
}

inline void WhileBox(const std::function<void(QMessageBox&)>& piece) {
    WhileUp([] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); },
            [piece](QWidget* box) { piece(*qobject_cast<QMessageBox*>(box)); });
}

/// A design by its place: left, top, width and height in twips.
inline platform::Design At(const std::array<int, 4>& place, platform::Design rest = {}) {
    rest.Left = place[0];
    rest.Top = place[1];
    rest.Width = place[2];
    rest.Height = place[3];
    return rest;
}

/// A window with a control of each type, which keeps what its events say.
struct Entry : platform::Form {
    explicit Entry(platform::Desktop& desktop, const char* name = "frmEntry")
        : Form(desktop, name,
               {.ClientWidth = 6600, .ClientHeight = 4800, .KeyPreview = true, .Sizable = true}) {
        for (platform::Control* control : Controls()) {
            if (control->TakesFocus()) {
                control->GotFocus = [this, control] { Said.push_back("+" + control->FullName()); };
                control->LostFocus = [this, control] { Said.push_back("-" + control->FullName()); };
            }
        }
        txtName.Change = [this] { ++Changes; };
        cmdOk.Click = [this] { Said.push_back("ok " + txtName.Text.Get()); };
        cmdClose.Click = [this] { Unload(); };
        chkOwn.Click = [this] { Said.push_back("own " + std::to_string(chkOwn.Value)); };
        optKind.Bind(&OptionButton::Click, [this](int i) { Said.push_back("kind " + std::to_string(i)); });
        mnuCopy.Click = [this] { Said.push_back("copy"); };
        cboLang.Click = [this] { Said.push_back("lang " + std::to_string(cboLang.ListIndex)); };
        lvw.ItemClick = [this](const ListItem& item) { Said.push_back("item " + item.Text); };
        lvw.ColumnClick = [this](int column) { Said.push_back("column " + std::to_string(column)); };
        lvw.DblClick = [this] { Said.push_back("double"); };
        lvw.KeyPress = [this](int& key) { Said.push_back("key " + std::to_string(key)); };
    }
    void Fill(int rows) {
        lvw.ClearItems();
        for (int i = 0; i < rows; ++i) {
            lvw.AddItem("K" + std::to_string(i), std::string(1, static_cast<char>('a' + i % 26)))
                .AddSubItem(std::to_string(i));
        }
    }

    Menu mnuEdit{*this, "mnuEdit", {.Caption = "&Edit"}};
    Menu mnuCopy{*this, "mnuCopy", {.Caption = "&Copy", .Shortcut = "Ctrl+C", .Container = &mnuEdit}};
    Label lblName{*this, "lblName", At({120, 150, 900, 255}, {.Caption = "&Name"})};
    TextBox txtName{*this, "txtName", At({1200, 120, 2000, 345})};
    Frame fraKind{*this, "fraKind", At({120, 600, 3000, 900}, {.Caption = "Kind"})};
    platform::ControlArray<OptionButton> optKind{
        *this,
        "optKind",
        {{0, At({90, 250, 1300, 270}, {.Caption = "A&cid", .Container = &fraKind})},
         {1, At({90, 550, 1300, 270}, {.Caption = "Base", .Value = 1, .Container = &fraKind})},
         {2, At({1500, 250, 1300, 270}, {.Caption = "Salt", .Container = &fraKind})}}};
    CheckBox chkOwn{*this, "chkOwn", At({120, 1600, 1500, 285}, {.Caption = "O&wn"})};
    CommandButton cmdOk{*this, "cmdOk", At({120, 2000, 1200, 405}, {.Caption = "&OK", .Default = true})};
    CommandButton cmdClose{*this, "cmdClose",
                           At({1500, 2000, 1200, 405}, {.Caption = "Close", .Cancel = true})};
    CheckBox chkFlat{*this, "chkFlat", At({120, 2600, 1200, 405}, {.Caption = "Flat", .Style = 1})};
    TextBox txtNote{*this, "txtNote", At({120, 3100, 2000, 900}, {.MultiLine = true})};
    Label lblOwn{*this, "lblOwn",
                 At({120, 4100, 1500, 255}, {.Caption = "Own", .ForeColor = platform::Colour::Warning})};
    Label lblLang{*this, "lblLang", At({3600, 120, 1500, 255}, {.Caption = "Språk"})};
    ComboBox cboLang{*this, "cboLang", At({3600, 400, 1800, 345})};
    oFormula oFormula1{*this, "oFormula1", At({3600, 900, 1800, 450}, {.Locked = true})};
    ListView lvw{*this, "lvw", At({3600, 1400, 2900, 3300})};
    ImageList imgArrows{*this, "imgArrows", {{"Up", "sort-ascending"}, {"Down", "sort-descending"}}};
    Log Said;
    int Changes = 0;
    bool SaysKeys = false;

  protected:
    void Form_Load() override {
        lvw.SetColumnHeaderIcons(&imgArrows);
        lvw.AddColumn("Name", 1500);
        lvw.AddColumn("Number", 900, Align::Right);
        lvw.AddColumn("", 0);
        Fill(5);
    }
    void Form_KeyDown(int& code, int shift) override {
        if (SaysKeys) {
            Said.push_back(std::to_string(code) + "/" + std::to_string(shift));
        }
    }
    void Form_KeyPress(int& character) override {
        if (SaysKeys) {
            Said.push_back("char " + std::to_string(character));
            character = character == 'x' ? 0 : character;
        }
    }
    void Form_Activate() override { Said.push_back("activate"); }
    void Form_Resize() override { Said.push_back("resize"); }
};

/// Two pages with a list each: rows can be ticked, and several selected.
struct Several : platform::Form {
    explicit Several(platform::Desktop& desktop)
        : Form(desktop, "frmSeveral", {.ClientWidth = 6000, .ClientHeight = 4000}) {
        lvw.ItemClick = [this](const ListItem& item) {
            Said.push_back("item " + item.Text + (item.Selected() ? "" : " not selected"));
        };
        lvw.Click = [this] {
            std::string rows = "click";
            for (int i = 0; i < lvw.ItemCount(); ++i) {
                rows += lvw.Item(i).Selected() ? " " + lvw.Item(i).Text : "";
            }
            Said.push_back(rows);
        };
        lvw.ItemCheck = [this](const ListItem& item) { Said.push_back("tick " + item.Text); };
    }
    platform::Design OnPage(int page) {
        return At({60, 60, 5000, 2500},
                  {.MultiSelect = true, .Checkboxes = true, .Container = &tabs, .Page = page});
    }
    platform::ListBox lst{*this, "lst", At({120, 3400, 2000, 500})};
    platform::SSTab tabs{*this, "tabs", At({120, 120, 5600, 3200}), {"One", "Two"}};
    ListView lvw{*this, "lvw", OnPage(0)}, other{*this, "other", OnPage(1)};
    Log Said;

  protected:
    void Form_Load() override {
        lvw.AddColumn("Name", 1500);
        for (const char* const name : {"a", "b", "c", "d"}) {
            lvw.AddItem(std::string("K") + name, name);
            lst.AddItem(name);
        }
    }
};

/// The window, shown and active.
class EntryTest : public testing::Test {
  protected:
    void SetUp() override {
        Window = ShowActive(S.Desktop, Form);
        Opening = Said();
    }
    void TearDown() override { Form.Unload(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        S.Desktop.Flush();
    }
    Log Said() { return std::exchange(Form.Said, {}); }

    Screen S;
    Entry Form{S.Desktop};
    QWidget* Window = nullptr;
    Log Opening;
};

}  // namespace test
