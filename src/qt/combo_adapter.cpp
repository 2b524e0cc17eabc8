// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/combo_adapter.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QEvent>
#include <QStyleOptionComboBox>
#include <QStyledItemDelegate>

#include "qt/application.h"
#include "qt/form_window.h"
#include "qt/owned.h"
#include "qt/texts.h"

namespace qt {

namespace {

// The rows of the list that drops down, with some air as in the other lists.
class EntryDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        constexpr int kAir = 5;  // px
        return {0, option.fontMetrics.height() + kAir};
    }
};

int TextWidthOf(const QComboBox& combo) {
    constexpr int kMargins = 4;  // that the style leaves beside the text
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = false;
    return combo.style()
               ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo)
               .width() -
           kMargins;
}

}  // namespace

ComboBoxAdapter::ComboBoxAdapter(FormWindow& window, platform::ComboBox& combo)
    : WidgetAdapter(window, combo, Child<QComboBox>(ParentOf(window, combo))),
      combo_(combo),
      widget_(static_cast<QComboBox*>(Widget())) {
    constexpr int kRowsOfPopup = 15;
    widget_->setMaxVisibleItems(kRowsOfPopup);
    widget_->setItemDelegate(Child<EntryDelegate>(widget_));
    const auto chosen = [this](int index) { Report([this, index] { combo_.InputIndex(index); }); };
    QObject::connect(widget_, &QComboBox::activated, Context(), chosen);
    // Mouse and keys end in the signal above, also when they choose the entry that stands there.
    QObject::connect(widget_, &QComboBox::currentIndexChanged, Context(), [chosen](int index) {
        if (!Application::InUserEvent()) {
            chosen(index);
        }
    });
}

void ComboBoxAdapter::CarryOwn() {
    // An entry is shown as far as it fits, in the box and in its list alike, so that none widens the list.
    const int width = TextWidthOf(*widget_);
    const QFontMetrics metrics(widget_->font());
    const int count = combo_.ListCount();
    while (widget_->count() > count) {
        widget_->removeItem(widget_->count() - 1);
    }
    for (int i = 0; i < count; ++i) {
        const QString text = QString::fromStdString(combo_.List(i));
        const Fitting fitting = Fit(text, width, metrics);
        if (i == widget_->count()) {
            widget_->addItem(fitting.Text);
        } else if (widget_->itemText(i) != fitting.Text) {
            widget_->setItemText(i, fitting.Text);
        }
        const QVariant tip = fitting.Cut ? QVariant(ToolTip(combo_.List(i))) : QVariant();
        if (widget_->itemData(i, Qt::ToolTipRole) != tip) {
            widget_->setItemData(i, tip, Qt::ToolTipRole);
        }
    }
    // The first entry added to an empty box is selected by the box itself.
    widget_->setCurrentIndex(combo_.ListIndex);
    // A new entry is heard as what the keyboard is at; some readers pass over a new name or value of the box.
    if (widget_->hasFocus() && spoken_ != combo_.ListIndex && combo_.ListIndex >= 0) {
        QAccessibleEvent event(widget_->view(), QAccessible::Focus);
        event.setChild(combo_.ListIndex);
        QAccessible::updateAccessibility(&event);
    }
    spoken_ = combo_.ListIndex;
}

bool ComboBoxAdapter::Filter(QEvent& event) {
    // Turning the wheel over a box that the user isn't in must not choose anything.
    if (event.type() == QEvent::Wheel && !widget_->hasFocus()) {
        event.ignore();
        return true;
    }
    return false;
}

}  // namespace qt
