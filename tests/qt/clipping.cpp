// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/clipping.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QTreeView>

#include "qt/list_header.h"
#include "qt/texts.h"

namespace {

QSize SizeOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text);
}

bool Fits(const QLabel& label) {
    const QRect place = label.contentsRect();
    const int flags = (label.wordWrap() ? Qt::TextWordWrap : 0) | static_cast<int>(label.alignment());
    const QRect needed = label.fontMetrics().boundingRect(QRect(0, 0, place.width(), 1'000'000), flags,
                                                          qt::WithoutMnemonic(label.text()));
    return needed.width() <= place.width() && needed.height() <= place.height();
}

bool Fits(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const auto element = qobject_cast<const QCheckBox*>(&button) != nullptr ? QStyle::SE_CheckBoxContents
                         : qobject_cast<const QRadioButton*>(&button) != nullptr
                             ? QStyle::SE_RadioButtonContents
                             : QStyle::SE_PushButtonContents;
    const QRect place = button.style()->subElementRect(element, &option, &button);
    const QSize needed = SizeOf(button, button.text());
    return needed.width() <= place.width() && needed.height() <= button.height();
}

bool Fits(const QGroupBox& box) {
    QStyleOptionGroupBox option;
    option.initFrom(&box);
    option.text = box.title();
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    const QRect place =
        box.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &box);
    return SizeOf(box, box.title()).width() <= std::min(place.width(), box.width() - 2 * place.left());
}

// The adapter gives an entry that it had to cut a tool tip.
bool Fits(const QComboBox& combo) {
    return combo.currentIndex() < 0 || !combo.currentData(Qt::ToolTipRole).isValid();
}

void Headings(const QTreeView& list, std::vector<std::string>& found) {
    const auto* header = dynamic_cast<const qt::ListHeader*>(list.header());
    for (int i = 0; header != nullptr && i < header->count(); ++i) {
        const QString text = list.model()->headerData(i, Qt::Horizontal).toString();
        if (!header->isSectionHidden(i) && !text.isEmpty() &&
            header->NeededWidth(i) > header->sectionSize(i)) {
            found.push_back((list.objectName() + ": " + text).toStdString());
        }
    }
}

void Menus(const QMenuBar& bar, std::vector<std::string>& found) {
    for (const QAction* action : bar.actions()) {
        if (action->isVisible() && !bar.rect().contains(bar.actionGeometry(const_cast<QAction*>(action)))) {
            found.push_back((action->objectName() + ": " + action->text()).toStdString());
        }
    }
}

bool TextFits(const QWidget* widget, QString& text) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        text = label->text();
        return Fits(*label);
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        text = button->text();
        return Fits(*button);
    }
    if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
        text = box->title();
        return Fits(*box);
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        text = combo->currentText();
        return Fits(*combo);
    }
    return true;
}

// The controls that lie directly in a container.
QList<QWidget*> Controls(const QWidget& container) {
    QList<QWidget*> controls;
    for (QWidget* child : container.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow() && !child->objectName().isEmpty() &&
            !child->objectName().startsWith("qt_")) {
            controls.append(child);
        }
    }
    return controls;
}

void Container(const QWidget& container, std::vector<std::string>& found) {
    QList<QWidget*> controls = Controls(container);
    controls.removeIf(
        [&](const QWidget* widget) { return !container.rect().intersects(widget->geometry()); });
    for (int i = 0; i < controls.size(); ++i) {
        const QWidget* const widget = controls[i];
        const std::string name = widget->objectName().toStdString();
        if (QString text; !TextFits(widget, text)) {
            found.push_back(name + ": " + text.toStdString());
        }
        if (!container.rect().contains(widget->geometry())) {
            found.push_back(name + " sticks out");
        }
        for (int j = i + 1; j < controls.size(); ++j) {
            if (widget->geometry().intersects(controls[j]->geometry())) {
                found.push_back(name + " lies upon " + controls[j]->objectName().toStdString());
            }
        }
        if (const auto* list = qobject_cast<const QTreeView*>(widget)) {
            Headings(*list, found);
        }
        if (qobject_cast<const QGroupBox*>(widget) != nullptr) {
            Container(*widget, found);
        }
    }
}

}  // namespace

std::vector<std::string> ClippedTexts(QWidget& window) {
    std::vector<std::string> found;
    // The controls lie on one bare widget below the menu bar.
    for (const QWidget* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (const auto* bar = qobject_cast<const QMenuBar*>(child)) {
            Menus(*bar, found);
        } else if (child->isVisible()) {
            Container(*child, found);
        }
    }
    return found;
}
