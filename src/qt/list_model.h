// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractItemModel>
#include <functional>

#include "platform/forms/list_view.h"

namespace qt {

/// Gives a list's rows to the window system straight from the control: nothing is made per row.
///
/// The number of rows and columns is the one of the last Reload: what the control gains or loses meanwhile
/// is not asked for before the next.
class ListModel final : public QAbstractItemModel {
  public:
    ListModel(const platform::ListView& list, QObject* parent);
    /// The user has turned the tick of a row; the model itself keeps showing what the list says.
    std::function<void(int row, bool checked)> Ticked;

    void Reload();
    void HeadingsChanged();
    void ChecksChanged();
    /// The control is gone: from now on the list is empty.
    void Detach();

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant Look(const QModelIndex& index, int role) const;

    const platform::ListView* list_;
    int rows_ = 0;
    int columns_ = 0;
};

}  // namespace qt
