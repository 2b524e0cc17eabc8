// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/accessible_roles.h"

#include <QAccessibleWidget>
#include <memory>

#include "qt/form_window.h"
#include "qt/picture_adapters.h"

namespace qt {

namespace {

class Widget final : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;
};

QAccessibleInterface* Make(const QString& type, QObject* object) {
    auto* const widget = type == QLatin1String("QWidget") ? qobject_cast<QWidget*>(object) : nullptr;
    if (widget == nullptr) {
        return nullptr;
    }
    QAccessible::Role role = QAccessible::NoRole;
    if (dynamic_cast<FormWindow*>(widget) != nullptr) {
        role = widget->isModal() ? QAccessible::Dialog : QAccessible::Window;
    } else if (IsPicture(*widget)) {
        role = QAccessible::Graphic;
    }
    // The toolkit keeps and frees what it gets.
    return role == QAccessible::NoRole ? nullptr : std::make_unique<Widget>(widget, role).release();
}

}  // namespace

void InstallAccessibleRoles() {
    static const bool installed = (QAccessible::installFactory(Make), true);
    (void)installed;
}

}  // namespace qt
