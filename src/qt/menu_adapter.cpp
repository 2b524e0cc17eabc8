// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/menu_adapter.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "platform/forms/form.h"
#include "qt/form_window.h"
#include "qt/owned.h"

namespace qt {

namespace {

bool HasEntries(const platform::Menu& menu) {
    const auto& controls = menu.Parent().Controls();
    return std::any_of(controls.begin(), controls.end(),
                       [&](const platform::Control* control) { return control->Container() == &menu; });
}

QAction* MakeAction(const FormWindow& window, const platform::Menu& menu) {
    auto* container = dynamic_cast<platform::Menu*>(menu.Container());
    QWidget* parent = window.MenuBar();
    if (container != nullptr) {
        parent = static_cast<MenuAdapter*>(AdapterOf(*container))->Action()->menu();
    }
    QAction* action =
        HasEntries(menu) ? Child<QMenu>(parent)->menuAction() : Child<QAction>(QString(), parent);
    parent->addAction(action);
    return action;
}

}  // namespace

MenuAdapter::MenuAdapter(FormWindow& window, platform::Menu& menu)
    : Adapter(window, menu), menu_(menu), action_(MakeAction(window, menu)) {
    action_->setObjectName(QString::fromStdString(menu.FullName()));
    action_->setMenuRole(QAction::NoRole);
    action_->setShortcutContext(Qt::WindowShortcut);
    action_->setShortcut(QKeySequence(QString::fromStdString(menu.Shortcut()), QKeySequence::PortableText));
    QObject::connect(action_, &QAction::triggered, Context(),
                     [this] { Report([this] { menu_.InputClick(); }); });
}

void MenuAdapter::Carry() {
    const QString caption = QString::fromStdString(menu_.Caption);
    action_->setSeparator(caption == "-");
    action_->setText(caption == "-" ? QString() : caption);
    action_->setEnabled(menu_.Enabled);
    action_->setVisible(menu_.Visible);
}

}  // namespace qt
