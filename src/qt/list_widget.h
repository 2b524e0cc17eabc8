// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTreeView>

namespace qt {

/// A list in report view: rows of one height, one of which is selected.
class ListWidget final : public QTreeView {
    Q_OBJECT

  public:
    explicit ListWidget(QWidget* parent);

  signals:
    /// A row has become the current one by mouse or key, or has been clicked again.
    void Chosen(int row);
    /// A double click anywhere in the list, on its empty part too.
    void DoubleClicked();

  protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    bool pressing_ = false;
};

}  // namespace qt
