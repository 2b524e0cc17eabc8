// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/clipping.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeView>

#include "qt/list_header.h"

namespace {

using Found = std::vector<std::string>;

bool Fits(const QWidget& widget) {
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        // The adapter gives an entry that it had to cut a tool tip.
        return combo->currentIndex() < 0 || !combo->currentData(Qt::ToolTipRole).isValid();
    }
    QSize needed = widget.minimumSizeHint();
    if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        constexpr QSize kFrame(4, 0);  // the style would like more air around the text
        needed = button->fontMetrics().size(Qt::TextShowMnemonic, button->text()) + kFrame;
    } else if (qobject_cast<const QLabel*>(&widget) != nullptr) {
        needed.setHeight(std::max(needed.height(), widget.heightForWidth(widget.width())));
    } else if (qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
               qobject_cast<const QGroupBox*>(&widget) != nullptr) {
        needed.setHeight(0);
    } else {
        return true;
    }
    return needed.width() <= widget.width() && needed.height() <= widget.height();
}

void Headings(const QTreeView& list, Found& found) {
    const auto* header = dynamic_cast<const qt::ListHeader*>(list.header());
    for (int i = 0; header != nullptr && i < header->count(); ++i) {
        const QString text = list.model()->headerData(i, Qt::Horizontal).toString();
        if (!header->isSectionHidden(i) && !text.isEmpty() &&
            header->NeededWidth(i) > header->sectionSize(i)) {
            found.push_back((list.objectName() + ": " + text).toStdString());
        }
    }
}

void Container(const QWidget& container, Found& found) {
    QList<const QWidget*> before;
    for (const QWidget* widget : container.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const std::string name = widget->objectName().toStdString();
        if (!widget->isVisible() || widget->isWindow() || name.empty() || name.starts_with("qt_") ||
            !container.rect().intersects(widget->geometry())) {
            continue;
        }
        if (!Fits(*widget)) {
            found.push_back(name + " cuts its text");
        }
        if (!container.rect().contains(widget->geometry())) {
            found.push_back(name + " sticks out");
        }
        for (const QWidget* other : before) {
            if (widget->geometry().intersects(other->geometry())) {
                found.push_back(name + " lies upon " + other->objectName().toStdString());
            }
        }
        before.append(widget);
        if (const auto* list = qobject_cast<const QTreeView*>(widget)) {
            Headings(*list, found);
        } else if (qobject_cast<const QGroupBox*>(widget) != nullptr) {
            Container(*widget, found);
        }
    }
}

}  // namespace

std::vector<std::string> ClippedTexts(QWidget& window) {
    Found found;
    // The controls lie on one bare widget below the menu bar, which scrolls on a small screen.
    for (const QWidget* child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const auto* bar = qobject_cast<const QMenuBar*>(child);
        for (QAction* action : bar != nullptr ? bar->actions() : QList<QAction*>()) {
            if (action->isVisible() && !bar->rect().contains(bar->actionGeometry(action))) {
                found.push_back((action->objectName() + ": " + action->text()).toStdString());
            }
        }
        if (const auto* area = qobject_cast<const QScrollArea*>(child)) {
            Container(*area->widget(), found);
        }
    }
    return found;
}
