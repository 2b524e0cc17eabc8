// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/list_box_adapter.h"

#include <algorithm>

#include "qt/form_window.h"
#include "qt/line_model.h"
#include "qt/list_widget.h"
#include "qt/owned.h"

namespace qt {

ListBoxAdapter::ListBoxAdapter(FormWindow& window, platform::ListBox& list)
    : WidgetAdapter(window, list, Child<ListWidget>(ParentOf(window, list))),
      list_(list),
      widget_(static_cast<ListWidget*>(Widget())),
      model_(Child<LineModel>(list, widget_)) {
    widget_->setHeaderHidden(true);
    widget_->setModel(model_);
    QObject::connect(widget_, &ListWidget::Chosen, Context(),
                     [this](int row) { Report([this, row] { list_.InputIndex(row); }); });
}

void ListBoxAdapter::Release() {
    Adapter::Release();
    model_->Detach();
}

void ListBoxAdapter::CarryOwn() {
    if (lines_ != list_.LinesVersion()) {
        lines_ = list_.LinesVersion();
        model_->Reload();
    }
    // No line is cut in half at the lower edge.
    const int frame = 2 * widget_->frameWidth();
    const int rows = (widget_->height() - frame) / widget_->RowHeight();
    widget_->resize(widget_->width(), std::max(rows, 1) * widget_->RowHeight() + frame);
    widget_->SelectOnly(list_.ListIndex);
}

}  // namespace qt
