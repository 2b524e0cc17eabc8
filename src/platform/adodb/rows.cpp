// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>

#include <bit>

#include "platform/adodb/impl.h"

namespace platform::adodb {

void Rows::SetText(Cell& cell, std::string_view text) {
    cell = {static_cast<std::int64_t>(texts_.size()), static_cast<std::uint32_t>(text.size()), Type::Text};
    texts_ += text;
}

void Rows::Append(const Statement& row) {
    const std::size_t first = cells_.size();
    cells_.resize(first + columns_);
    for (int column = 0; column < static_cast<int>(columns_); ++column) {
        Cell& cell = cells_[first + static_cast<std::size_t>(column)];
        switch (sqlite3_column_type(row.Handle(), column)) {
            case SQLITE_NULL:
                break;
            case SQLITE_INTEGER:
                cell = {row.Integer(column), 0, Type::Integer};
                break;
            case SQLITE_FLOAT:
                cell = {std::bit_cast<std::int64_t>(sqlite3_column_double(row.Handle(), column)), 0,
                        Type::Real};
                break;
            default:
                SetText(cell, row.Text(column));
        }
    }
}

void Rows::Clear() {
    cells_.clear();
    texts_.clear();
}

Value Rows::Get(std::size_t row, std::size_t column) const {
    const Cell& cell = cells_[row * columns_ + column];
    switch (cell.type) {
        case Type::Integer:
            return cell.bits;
        case Type::Real:
            return std::bit_cast<double>(cell.bits);
        case Type::Text:
            return std::string_view(texts_).substr(static_cast<std::size_t>(cell.bits), cell.length);
        case Type::Null:
            break;
    }
    return {};
}

void Rows::Set(std::size_t row, std::size_t column, const Value& value) {
    Cell& cell = cells_[row * columns_ + column];
    const auto& data = value.Data();
    if (const auto* number = std::get_if<std::int64_t>(&data)) {
        cell = {*number, 0, Type::Integer};
    } else if (const auto* real = std::get_if<double>(&data)) {
        cell = {std::bit_cast<std::int64_t>(*real), 0, Type::Real};
    } else if (const auto* text = std::get_if<std::string>(&data)) {
        SetText(cell, *text);
    } else {
        cell = {};
    }
}

void Rows::Erase(std::size_t row) {
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(row * columns_);
    cells_.erase(first, first + static_cast<std::ptrdiff_t>(columns_));
}

}  // namespace platform::adodb
