// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/form.h"
#include "qt/desktop.h"

namespace test {

using platform::Align;
using platform::CheckBox;
using platform::ComboBox;
using platform::CommandButton;
using platform::Frame;
using platform::ImageList;
using platform::Label;
using platform::ListItem;
using platform::ListView;
using platform::Menu;
using platform::oFormula;
using platform::OptionButton;
using platform::TextBox;

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
    T* widget =
        window != nullptr ? window->findChild<T*>(QString::fromStdString(control.FullName())) : nullptr;
    EXPECT_NE(widget, nullptr) << control.FullName();
    return widget;
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

inline void WhileWindow(const char* name, const std::function<void(QWidget*)>& piece) {
    WhileUp([name] { return WindowNamed(name); }, piece);
}

}  // namespace test
