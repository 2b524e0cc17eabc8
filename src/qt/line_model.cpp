// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/line_model.h"

#include "qt/texts.h"

namespace qt {

LineModel::LineModel(const platform::LineList& list, QObject* parent)
    : QAbstractListModel(parent), list_(&list) {}

void LineModel::Reload() {
    beginResetModel();
    rows_ = list_->ListCount();
    endResetModel();
}

void LineModel::Detach() {
    list_ = nullptr;
}

int LineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant LineModel::data(const QModelIndex& index, int role) const {
    if (list_ == nullptr || !index.isValid() || index.row() >= list_->ListCount() ||
        role != Qt::DisplayRole) {
        return {};
    }
    return Clean(QString::fromStdString(list_->List(index.row())), false);
}

}  // namespace qt
