// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>

#include "platform/forms/lists.h"

namespace qt {

/// The lines of a list box as the window system asks for them: nothing is copied.
class LineModel final : public QAbstractListModel {
  public:
    LineModel(const platform::LineList& list, QObject* parent);

    void Reload();
    /// The control is gone: from now on the list is empty.
    void Detach();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const platform::LineList* list_;
    int rows_ = 0;
};

}  // namespace qt
