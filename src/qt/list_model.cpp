// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/list_model.h"

#include <QApplication>
#include <QFont>

#include "qt/colours.h"
#include "qt/pictures.h"

namespace qt {

namespace {

QVariant Alignment(platform::Align alignment) {
    const int horizontal = alignment == platform::Align::Left    ? Qt::AlignLeft
                           : alignment == platform::Align::Right ? Qt::AlignRight
                                                                 : Qt::AlignHCenter;
    return horizontal | Qt::AlignVCenter;
}

// A row is one line high.
QString OneLine(const std::string& text) {
    QString line = QString::fromStdString(text);
    for (QChar& c : line) {
        if (c.unicode() < 0x20) {
            c = ' ';
        }
    }
    return line;
}

}  // namespace

ListModel::ListModel(const platform::ListView& list, QObject* parent)
    : QAbstractItemModel(parent), list_(&list) {}

void ListModel::Reload() {
    beginResetModel();
    rows_ = list_->ItemCount();
    columns_ = list_->ColumnCount();
    endResetModel();
}

void ListModel::HeadingsChanged() {
    if (columns_ > 0) {
        emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    }
}

void ListModel::ChecksChanged() {
    if (rows_ > 0 && columns_ > 0) {
        emit dataChanged(index(0, 0), index(rows_ - 1, 0), {Qt::CheckStateRole});
    }
}

void ListModel::Detach() {
    list_ = nullptr;
}

QModelIndex ListModel::index(int row, int column, const QModelIndex& parent) const {
    const bool exists = !parent.isValid() && row >= 0 && row < rows_ && column >= 0 && column < columns_;
    return exists ? createIndex(row, column) : QModelIndex();
}

QModelIndex ListModel::parent(const QModelIndex&) const {
    return {};
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

bool ListModel::hasChildren(const QModelIndex& parent) const {
    return !parent.isValid() && rows_ > 0 && columns_ > 0;
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const bool ticks = list_ != nullptr && list_->Checkboxes() && index.column() == 0;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren |
           (ticks ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (list_ == nullptr || !index.isValid() || index.row() >= list_->ItemCount() ||
        index.column() >= list_->ColumnCount()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        const platform::ListItem& item = list_->Item(index.row());
        return OneLine(index.column() == 0 ? item.Text
                                           : item.SubItems(static_cast<std::size_t>(index.column())));
    }
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) {
        return list_->Tip ? QString::fromStdString(list_->Tip(list_->Item(index.row()))) : QVariant();
    }
    if (role == Qt::AccessibleTextRole || role == Qt::FontRole || role == Qt::ForegroundRole) {
        return Look(index, role);
    }
    if (role == Qt::CheckStateRole && list_->Checkboxes() && index.column() == 0) {
        return list_->Item(index.row()).Checked() ? Qt::Checked : Qt::Unchecked;
    }
    if (role == Qt::TextAlignmentRole) {
        return Alignment(list_->Column(index.column()).Alignment);
    }
    return {};
}

// Of a sign: the words that are read for it, its weight, and its colour, which is never all that tells it.
QVariant ListModel::Look(const QModelIndex& index, int role) const {
    if (!list_->Look) {
        return {};
    }
    const platform::ListItem& item = list_->Item(index.row());
    const platform::CellLook look = list_->Look(
        index.column(),
        index.column() == 0 ? item.Text : item.SubItems(static_cast<std::size_t>(index.column())));
    if (role == Qt::AccessibleTextRole) {
        return look.Spoken.empty() ? QVariant() : QVariant(OneLine(look.Spoken));
    }
    if (look.Tone == platform::Tone::Plain) {
        return {};
    }
    if (role == Qt::FontRole) {
        QFont bold = QApplication::font();
        bold.setBold(true);
        return bold;
    }
    return ToneColour(look.Tone, QApplication::palette());
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || list_ == nullptr || !index.isValid() || !Ticked) {
        return false;
    }
    Ticked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (list_ == nullptr || orientation != Qt::Horizontal || section < 0 || section >= list_->ColumnCount()) {
        return {};
    }
    const platform::ColumnHeader& column = list_->Column(section);
    switch (role) {
        case Qt::DisplayRole:
            return OneLine(column.Text);
        case Qt::AccessibleTextRole:
            return column.SortImage ? OneLine(column.Text) + ", " +
                                          QCoreApplication::translate(
                                              "", *column.SortImage == 0 ? "ascending" : "descending")
                                    : OneLine(column.Text);
        case Qt::TextAlignmentRole:
            return Alignment(column.Alignment);
        case Qt::DecorationRole:
            return column.Icon.empty() ? QVariant() : QVariant(Picture(QString::fromStdString(column.Icon)));
        default:
            return {};
    }
}

}  // namespace qt
