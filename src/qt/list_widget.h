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
    /// Of every row, in pixels.
    int RowHeight() const;
    /// The column in which a typed letter looks for a row.
    void SearchIn(int column) { searched_ = column; }
    /// Selects this row alone and brings it into sight; none for -1.
    void SelectOnly(int row);

  signals:
    /// A row has been selected, or has been clicked again; -1 when none is selected any more.
    void Chosen(int row);
    /// A click anywhere in the list, behind what it has chosen.
    void Clicked();
    /// A double click anywhere in the list, on its empty part too.
    void DoubleClicked();
    /// The room for the columns has changed.
    void Resized();
    /// Ctrl and a digit: the list is to be sorted by that column, from 0.
    void SortBy(int column);
    /// The keyboard has led to another row.
    void Moved();

  protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyboardSearch(const QString& text) override;

  private:
    void ShowTip();

    bool pressing_ = false;
    int searched_ = 0;
};

}  // namespace qt
