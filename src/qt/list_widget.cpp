// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/list_widget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "qt/colours.h"
#include "qt/owned.h"
#include "qt/texts.h"

namespace qt {

namespace {

constexpr int kAir = 6;  // px that a row is higher than its text

class RowDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        // All rows are alike: the text needn't be measured.
        (void)index;
        return {0, option.fontMetrics.height() + kAir};
    }

    // A text that its column cuts shows in full when the mouse rests on it, and what there is to say of its
    // row.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        constexpr int kMargins = 8;
        const QString text = index.data().toString();
        const bool cut =
            option.fontMetrics.horizontalAdvance(text) > view->visualRect(index).width() - kMargins;
        const QString tip = index.data(Qt::ToolTipRole).toString();
        const QString shown = cut ? text + (tip.isEmpty() ? "" : "\n") + tip : tip;
        QToolTip::showText(event->globalPos(), ToolTip(shown.toStdString()), view);
        return true;
    }
};

}  // namespace

ListWidget::ListWidget(QWidget* parent) : QTreeView(parent) {
    setItemDelegate(Child<RowDelegate>(this));
    setUniformRowHeights(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
}

// The selected row of a list that hasn't the keyboard is paler: else nobody sees that Tab has come there.
void ListWidget::initViewItemOption(QStyleOptionViewItem* option) const {
    QTreeView::initViewItemOption(option);
    if (!hasFocus()) {
        const QColor strong = option->palette.color(QPalette::Active, QPalette::Highlight);
        const QColor base = option->palette.color(QPalette::Active, QPalette::Base);
        const QColor text = option->palette.color(QPalette::Active, QPalette::Text);
        option->palette.setColor(QPalette::Highlight, Mixed(strong, base, 0.3));
        option->palette.setColor(QPalette::HighlightedText, text);
    }
}

void ListWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    if (pressing_) {
        return;
    }
    // The current row is still the one that the key has left. The one it leads to is what it has selected;
    // where it has taken back instead, the nearest that is left.
    const QModelIndexList rows = selected.isEmpty() ? selectionModel()->selectedRows() : selected.indexes();
    const auto nearest =
        std::min_element(rows.begin(), rows.end(), [this](const QModelIndex& a, const QModelIndex& b) {
            return std::abs(a.row() - currentIndex().row()) < std::abs(b.row() - currentIndex().row());
        });
    emit Chosen(nearest == rows.end() ? -1 : nearest->row());
}

int ListWidget::RowHeight() const {
    return fontMetrics().height() + kAir;
}

void ListWidget::SelectOnly(int row) {
    QItemSelectionModel* const selection = selectionModel();
    if (row >= 0) {
        const QModelIndex index = model()->index(row, 0);
        if (currentIndex().row() != row || selection->selectedRows() != QModelIndexList{index}) {
            selection->setCurrentIndex(index,
                                       QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            scrollTo(index);
        }
        return;
    }
    selection->clearSelection();
    // Readers of the screen need a current row wherever there are rows.
    if (!currentIndex().isValid() && model()->rowCount() > 0) {
        selection->setCurrentIndex(model()->index(0, 0), QItemSelectionModel::NoUpdate);
    }
}

// What resting the mouse on the current row shows, below it.
void ListWidget::ShowTip() {
    const QModelIndex row = currentIndex().siblingAtColumn(0);
    const QRect place = visualRect(row);
    const QPoint below = viewport()->rect().intersected(place).bottomLeft();
    QHelpEvent event(QEvent::ToolTip, below, viewport()->mapToGlobal(below));
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    itemDelegate()->helpEvent(&event, this, option, row);
}

// With nothing selected the arrows begin at the current row, which nobody sees, instead of leaving it.
void ListWidget::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (event->modifiers() == Qt::ControlModifier && key >= Qt::Key_1 && key <= Qt::Key_9) {
        emit SortBy(key - Qt::Key_1);
        return;
    }
    if (key == Qt::Key_F1 && event->modifiers() == Qt::ShiftModifier && currentIndex().isValid()) {
        ShowTip();
        return;
    }
    // The row that has the keyboard once more, as by a click on it; where there are boxes, Space ticks.
    if (key == Qt::Key_Space && currentIndex().isValid() && selectionModel()->isSelected(currentIndex()) &&
        !currentIndex().siblingAtColumn(0).flags().testFlag(Qt::ItemIsUserCheckable)) {
        emit Chosen(currentIndex().row());
        return;
    }
    const bool towards =
        key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Home || key == Qt::Key_PageUp;
    if (towards && currentIndex().isValid() && !selectionModel()->hasSelection()) {
        selectionModel()->select(currentIndex(),
                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        scrollTo(currentIndex());
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void ListWidget::mousePressEvent(QMouseEvent* event) {
    {
        const QScopedValueRollback<bool> guard(pressing_, true);
        QTreeView::mousePressEvent(event);
        // On the empty part the toolkit would wait for the release.
        if (selectionMode() == ExtendedSelection && event->modifiers() == Qt::NoModifier &&
            !indexAt(event->position().toPoint()).isValid()) {
            clearSelection();
        }
    }
    const QModelIndex pressed = indexAt(event->position().toPoint());
    emit Chosen(pressed.row());
    if (event->button() == Qt::LeftButton) {
        emit Clicked();
    }
}

void ListWidget::mouseMoveEvent(QMouseEvent* event) {
    // Dragging doesn't choose the rows that it passes.
    if (event->buttons() == Qt::NoButton) {
        QTreeView::mouseMoveEvent(event);
    }
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (pressed.isValid() && pressed.row() != currentIndex().row()) {
        mousePressEvent(event);
    }
    if (event->button() == Qt::LeftButton) {
        emit DoubleClicked();
    }
}

void ListWidget::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    emit Resized();
}

// A reader of the screen hears of the current row where the keyboard is, and nowhere else.
void ListWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (hasFocus()) {
        QTreeView::currentChanged(current, previous);
    } else {
        // The tree's own would tell of it. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractItemView::currentChanged(current, previous);
        viewport()->update();
    }
    if (hasFocus() && !pressing_) {
        emit Moved();
    }
}

void ListWidget::focusInEvent(QFocusEvent* event) {
    QTreeView::focusInEvent(event);
    // Behind what the toolkit tells of the list as a whole.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus() && currentIndex().isValid()) {
                QTreeView::currentChanged(currentIndex(), {});
            }
        },
        Qt::QueuedConnection);
}

// The toolkit searches in the column of the current cell.
void ListWidget::keyboardSearch(const QString& text) {
    const QModelIndex current = currentIndex();
    if (current.isValid() && searched_ < model()->columnCount()) {
        const QSignalBlocker quiet(selectionModel());
        selectionModel()->setCurrentIndex(current.siblingAtColumn(searched_), QItemSelectionModel::NoUpdate);
    }
    QTreeView::keyboardSearch(text);
}

}  // namespace qt
