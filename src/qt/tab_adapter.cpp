// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/tab_adapter.h"

#include <QTabBar>
#include <QTabWidget>

#include "qt/form_window.h"
#include "qt/owned.h"

namespace qt {

TabAdapter::TabAdapter(FormWindow& window, platform::SSTab& tabs)
    : WidgetAdapter(window, tabs, Child<QTabWidget>(ParentOf(window, tabs))),
      tabs_(tabs),
      widget_(static_cast<QTabWidget*>(Widget())) {
    for (int page = 0; page < tabs.Tabs(); ++page) {
        widget_->addTab(Child<QWidget>(widget_), QString());
    }
    // Tab stops at the row of tabs once, not at what it belongs to as well.
    widget_->setFocusPolicy(Qt::NoFocus);
    widget_->tabBar()->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(widget_, &QTabWidget::currentChanged, Context(),
                     [this](int page) { Report([this, page] { tabs_.InputTab(page); }); });
}

QWidget* TabAdapter::Content(const platform::Control& control) const {
    return widget_->widget(control.Page());
}

void TabAdapter::CarryOwn() {
    for (int page = 0; page < tabs_.Tabs(); ++page) {
        const QString caption = QString::fromStdString(tabs_.TabCaption(page));
        // Setting a text grabs its mnemonic anew, even when it is the same.
        if (widget_->tabText(page) != caption) {
            widget_->setTabText(page, caption);
        }
    }
    widget_->setCurrentIndex(tabs_.Tab);
}

}  // namespace qt
