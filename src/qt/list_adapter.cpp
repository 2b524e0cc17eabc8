// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/list_adapter.h"

#include <QScopedValueRollback>
#include <algorithm>

#include "qt/form_window.h"
#include "qt/list_header.h"
#include "qt/list_model.h"
#include "qt/list_widget.h"
#include "qt/owned.h"

namespace qt {

ListViewAdapter::ListViewAdapter(FormWindow& window, platform::ListView& list)
    : WidgetAdapter(window, list, Child<ListWidget>(ParentOf(window, list))),
      list_(list),
      widget_(static_cast<ListWidget*>(Widget())),
      model_(Child<ListModel>(list, widget_)),
      header_(Child<ListHeader>(list, widget_)) {
    widget_->setHeader(header_);
    header_->setSectionsClickable(true);  // a list that doesn't sort by itself switches it off
    widget_->setModel(model_);
    QObject::connect(widget_, &ListWidget::Chosen, Context(), [this](int row) {
        // In a list of one choice, what isn't a row changes nothing.
        const std::vector<int> rows = list_.MultiSelect() ? SelectedRows() : std::vector<int>{row};
        Report([this, rows, row] { list_.InputSelection(rows, row); });
    });
    QObject::connect(widget_, &ListWidget::Clicked, Context(),
                     [this] { Report([this] { list_.InputClick(); }); });
    if (list.MultiSelect()) {
        widget_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
    // A tick on one of several selected rows goes for all of them.
    model_->Ticked = [this](int row, bool checked) {
        std::vector<int> rows = SelectedRows();
        if (std::find(rows.begin(), rows.end(), row) == rows.end()) {
            rows = {row};
        }
        Report([this, rows, checked] { list_.InputCheck(rows, checked); });
    };
    QObject::connect(widget_, &ListWidget::DoubleClicked, Context(),
                     [this] { Report([this] { list_.InputDoubleClick(); }); });
    QObject::connect(header_, &QHeaderView::sectionClicked, Context(),
                     [this](int section) { Report([this, section] { list_.InputColumnClick(section); }); });
    // A column that the user drags wider is wider for the windows, too.
    QObject::connect(header_, &QHeaderView::sectionResized, Context(), [this](int section, int, int px) {
        if (!fitting_ && Window().Live() && !Window().Flushing() && section < list_.ColumnCount() && px > 0) {
            list_.SetColumnWidth(section, Window().Measure().Twips(px));
        }
    });
    QObject::connect(widget_, &ListWidget::SortBy, Context(), [this](int column) {
        if (column < header_->count() && !header_->isSectionHidden(column) && header_->sectionsClickable()) {
            Report([this, column] { list_.InputColumnClick(column); });
        }
    });
    QObject::connect(widget_, &ListWidget::Resized, Context(), [this] { FitLastColumn(); });
}

void ListViewAdapter::Release() {
    Adapter::Release();
    model_->Detach();
    header_->Detach();
}

void ListViewAdapter::CarryOwn() {
    const bool columnsChanged = columns_ != list_.ColumnsVersion();
    if (rows_ != list_.RowsVersion() || model_->columnCount() != list_.ColumnCount()) {
        model_->Reload();
    } else if (columnsChanged) {
        model_->HeadingsChanged();
    }
    const int line = Window().Measure().Px(195);
    if (columnsChanged || line != linePx_) {
        CarryWidths();
    }
    if (checks_ != list_.ChecksVersion() && rows_ == list_.RowsVersion()) {
        model_->ChecksChanged();
    }
    checks_ = list_.ChecksVersion();
    rows_ = list_.RowsVersion();
    columns_ = list_.ColumnsVersion();
    linePx_ = line;
    widget_->SearchIn(list_.Sorted ? list_.SortKey.Get() : 0);
    CarrySelection();
}

void ListViewAdapter::CarryWidths() {
    constexpr int kLeast = 300;  // twips that can be seen and grabbed
    const int least = Window().Measure().Px(kLeast);
    header_->setMinimumSectionSize(least);
    for (int i = 0; i < list_.ColumnCount(); ++i) {
        const int width = list_.Column(i).Width;
        header_->setSectionHidden(i, width == 0);
        if (width != 0) {
            header_->resizeSection(i, std::max(Window().Measure().Px(width), least));
        }
    }
    FitLastColumn();
}

// Columns that have room in the list fill it: the last one goes to the edge, or gives way to the scroll bar.
void ListViewAdapter::FitLastColumn() {
    const QScopedValueRollback<bool> guard(fitting_, true);
    const int least = header_->minimumSectionSize();
    int last = -1;
    int others = 0;
    int wanted = 0;
    for (int i = 0; i < list_.ColumnCount() && i < header_->count(); ++i) {
        if (list_.Column(i).Width != 0) {
            others += wanted;
            wanted = std::max(Window().Measure().Px(list_.Column(i).Width), least);
            last = i;
        }
    }
    if (last >= 0) {
        const bool fits = others + wanted <= widget_->contentsRect().width();
        header_->resizeSection(last, fits ? std::max(widget_->viewport()->width() - others, least) : wanted);
    }
}

std::vector<int> ListViewAdapter::SelectedRows() const {
    std::vector<int> rows;
    for (const QModelIndex& index : widget_->selectionModel()->selectedRows()) {
        rows.push_back(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void ListViewAdapter::CarrySeveral() {
    std::vector<int> wanted;
    QItemSelection rows;
    for (int i = 0; i < list_.ItemCount(); ++i) {
        if (list_.Item(i).Selected()) {
            wanted.push_back(i);
            rows.select(model_->index(i, 0), model_->index(i, 0));
        }
    }
    QItemSelectionModel* const selection = widget_->selectionModel();
    if (wanted != SelectedRows()) {
        selection->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    const int place = std::max(list_.SelectedIndex(), 0);
    if (place < list_.ItemCount() && (!selection->currentIndex().isValid() || list_.SelectedIndex() >= 0)) {
        selection->setCurrentIndex(model_->index(place, 0), QItemSelectionModel::NoUpdate);
    }
}

void ListViewAdapter::CarrySelection() {
    if (list_.MultiSelect()) {
        CarrySeveral();
        return;
    }
    widget_->SelectOnly(list_.SelectedIndex());
}

}  // namespace qt
