// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/accessible_roles.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>
#include <QRadioButton>
#include <memory>

#include "qt/form_window.h"
#include "qt/picture_adapters.h"
#include "qt/texts.h"

namespace qt {

namespace {

class AccessiblePicture final : public QAccessibleWidget {
  public:
    explicit AccessiblePicture(QWidget* picture) : QAccessibleWidget(picture, QAccessible::Graphic) {}
};

class AccessibleWindow final : public QAccessibleWidget {
  public:
    explicit AccessibleWindow(QWidget* window) : QAccessibleWidget(window) {}
    QAccessible::Role role() const override {
        return widget()->isModal() ? QAccessible::Dialog : QAccessible::Window;
    }
};

/// The toolkit takes an option for a check box where it isn't the toolkit that turns the others off.
class AccessibleOption final : public QAccessibleWidget {
  public:
    explicit AccessibleOption(QRadioButton* option)
        : QAccessibleWidget(option, QAccessible::RadioButton), option_(option) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = option_->isChecked();
        return state;
    }
    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == toggleAction() || action == pressAction()) {
            option_->toggle();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

  private:
    QRadioButton* option_;
};

/// A label that tells outcomes is a notification: readers of the screen then read what comes up in it.
class AccessibleLabel final : public QAccessibleWidget {
  public:
    explicit AccessibleLabel(QLabel* label) : QAccessibleWidget(label), label_(label) {}
    QAccessible::Role role() const override {
        return label_->property(kOutcome).toBool() ? QAccessible::Notification : QAccessible::StaticText;
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name && label_->accessibleName().isEmpty()
                   ? WithoutMnemonic(label_->text())
                   : QAccessibleWidget::text(kind);
    }

  private:
    QLabel* label_;
};

template <class Interface, class Widget>
QAccessibleInterface* Given(Widget* widget) {
    return std::make_unique<Interface>(widget).release();  // the toolkit keeps and frees what it gets
}

QAccessibleInterface* Make(const QString& type, QObject* object) {
    if (type == QLatin1String("QRadioButton")) {
        return Given<AccessibleOption>(static_cast<QRadioButton*>(object));
    }
    if (type == QLatin1String("QLabel")) {
        return Given<AccessibleLabel>(static_cast<QLabel*>(object));
    }
    if (type != QLatin1String("QWidget")) {
        return nullptr;
    }
    auto* const widget = static_cast<QWidget*>(object);
    if (dynamic_cast<FormWindow*>(widget) != nullptr) {
        return Given<AccessibleWindow>(widget);
    }
    return IsPicture(*widget) ? Given<AccessiblePicture>(widget) : nullptr;
}

}  // namespace

void InstallAccessibleRoles() {
    static const bool installed = (QAccessible::installFactory(Make), true);
    (void)installed;
}

}  // namespace qt
