// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/list_view.h"

#include <algorithm>
#include <numeric>

#include "platform/error.h"
#include "platform/forms/form.h"
#include "platform/text/collation.h"

namespace platform {

namespace {

const std::string kEmpty;

[[noreturn]] void NoSuch(const Control& list, const char* what, int index) {
    throw Error(errors::IndexOutOfBounds,
                "The list " + list.FullName() + " has no " + what + " " + std::to_string(index) + ".",
                "forms");
}

const std::string& TextOfColumn(const ListItem& item, int column) {
    return column == 0 ? item.Text : item.SubItems(static_cast<std::size_t>(column));
}

}  // namespace

const std::string& ListItem::SubItems(std::size_t column) const {
    return column >= 1 && column <= subItems_.size() ? subItems_[column - 1] : kEmpty;
}

ListView::ListView(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index),
      View(*this, 0),
      SortKey(*this, 0),
      SortOrder(*this, 0),
      multiSelect_(design.MultiSelect),
      checkboxes_(design.Checkboxes) {}

ListView::SortedProperty& ListView::SortedProperty::operator=(bool sorted) {
    list_.sorted_ = sorted;
    if (sorted) {
        list_.SortNow();
        list_.RowsChanged();
    }
    return *this;
}

void ListView::SetColumnHeaderIcons(const ImageList* images) {
    headerIcons_ = images;
    ++columnsVersion_;
    Notify();
}

// --- columns ---

void ListView::ClearColumns() {
    columns_.clear();
    ++columnsVersion_;
    Notify();
}

void ListView::AddColumn(const std::string& text, int width, Align alignment, const std::string& icon) {
    constexpr int kLeast = 300;
    ColumnHeader header{text, width == 0 ? 0 : std::max(width, kLeast), alignment, {}, std::nullopt};
    if (headerIcons_ != nullptr && !icon.empty()) {
        header.Icon = headerIcons_->PictureOf(icon);
    }
    columns_.push_back(std::move(header));
    ++columnsVersion_;
    Notify();
}

const ColumnHeader& ListView::Column(int index) const {
    if (index < 0 || index >= ColumnCount()) {
        NoSuch(*this, "column", index);
    }
    return columns_[static_cast<std::size_t>(index)];
}

void ListView::SetColumnWidth(int index, int width) {
    Column(index);
    columns_[static_cast<std::size_t>(index)].Width = width;
    ++columnsVersion_;
    Notify();
}

void ListView::SetColumnSortImage(int index, std::optional<int> image) {
    Column(index);
    columns_[static_cast<std::size_t>(index)].SortImage = image;
    ++columnsVersion_;
    Notify();
}

// --- rows ---

void ListView::ClearItems() {
    keys_.clear();
    order_.clear();
    items_.clear();
    orderDue_ = false;
    selected_ = -1;
    RowsChanged();
}

ListItem& ListView::AddItem(std::string key, std::string text) {
    if (!key.empty() && keys_.contains(key)) {
        throw Error(errors::KeyNotUnique,
                    "The list " + FullName() + " has a row with the key " + key + " already.", "forms");
    }
    ListItem& item = items_.emplace_back(std::move(key), std::move(text));
    if (!item.Key().empty()) {
        keys_.emplace(item.Key(), static_cast<std::uint32_t>(items_.size() - 1));
    }
    order_.push_back(static_cast<std::uint32_t>(items_.size() - 1));
    orderDue_ = orderDue_ || sorted_;
    RowsChanged();
    return item;
}

const ListItem& ListView::Item(int place) const {
    if (place < 0 || place >= ItemCount()) {
        NoSuch(*this, "row", place);
    }
    Order();
    return items_[order_[static_cast<std::size_t>(place)]];
}

ListItem& ListView::At(int place) {
    Item(place);
    return items_[order_[static_cast<std::size_t>(place)]];
}

ListItem* ListView::ItemOf(std::string_view key) {
    const auto found = keys_.find(key);
    return found == keys_.end() ? nullptr : &items_[found->second];
}

int ListView::SelectedIndex() const {
    if (selected_ < 0 || !items_[static_cast<std::size_t>(selected_)].selected_) {
        return -1;
    }
    Order();
    const auto place = std::find(order_.begin(), order_.end(), static_cast<std::uint32_t>(selected_));
    return static_cast<int>(place - order_.begin());
}

void ListView::Select(int place) {
    ListItem* const item = place < 0 ? nullptr : &At(place);
    ClearSelection();
    if (item != nullptr) {
        item->selected_ = true;
        selected_ = order_[static_cast<std::size_t>(place)];
    }
    Notify();
}

void ListView::SetSelected(int place, bool selected) {
    ListItem& item = At(place);
    if (selected && !multiSelect_) {
        ClearSelection();
    }
    item.selected_ = selected;
    if (selected) {
        selected_ = order_[static_cast<std::size_t>(place)];
    }
    Notify();
}

void ListView::ClearSelection() {
    if (multiSelect_) {
        for (ListItem& item : items_) {
            item.selected_ = false;
        }
    } else if (selected_ >= 0) {
        items_[static_cast<std::size_t>(selected_)].selected_ = false;
    }
    selected_ = -1;
}

void ListView::SetChecked(ListItem& item, bool checked) {
    if (item.checked_ != checked) {
        item.checked_ = checked;
        ++checksVersion_;
        Notify();
    }
}

void ListView::Order() const {
    if (orderDue_) {
        SortNow();
    }
}

void ListView::SortNow() const {
    orderDue_ = false;
    // One sort key a row, made once; rows that share a text, as the labels of a sheet do, share the work.
    std::vector<std::string> keys(items_.size());
    const std::string* lastText = nullptr;
    std::size_t last = 0;
    for (const std::uint32_t index : order_) {
        const std::string& text = TextOfColumn(items_[index], SortKey);
        if (lastText != nullptr && text == *lastText) {
            keys[index] = keys[last];
        } else {
            keys[index] = platform::SortKey(text);
        }
        lastText = &text;
        last = index;
    }
    const bool descending = SortOrder != 0;
    std::stable_sort(order_.begin(), order_.end(), [&](std::uint32_t left, std::uint32_t right) {
        return descending ? keys[right] < keys[left] : keys[left] < keys[right];
    });
}

void ListView::RowsChanged() {
    ++rowsVersion_;
    Notify();
}

void ListView::PropertyChanged(const PropertyBase& property) {
    if ((&property == &SortKey || &property == &SortOrder) && sorted_) {
        orderDue_ = true;
        ++rowsVersion_;
    }
    Notify();
}

void ListView::Reset() {
    sorted_ = false;
    headerIcons_ = nullptr;
    ClearItems();
    ClearColumns();
    Control::Reset();
}

// --- the user ---

void ListView::InputSelection(const std::vector<int>& places, int place) {
    const auto isRow = [this](int row) { return row >= 0 && row < ItemCount(); };
    Parent().Screen().Event([&] {
        if (!Reachable() || !std::all_of(places.begin(), places.end(), isRow)) {
            return;
        }
        Select(-1);
        for (const int row : places) {
            SetSelected(row, true);
        }
        if (!isRow(place)) {
            return;
        }
        if (Item(place).selected_) {
            selected_ = order_[static_cast<std::size_t>(place)];
        }
        Raise<const ListItem&>(ItemClick, Item(place));
    });
}

void ListView::InputClick() {
    Parent().Screen().Event([this] {
        if (Reachable()) {
            Raise(Click);
        }
    });
}

void ListView::InputCheck(const std::vector<int>& places, bool checked) {
    Parent().Screen().Event([&] {
        for (const int place : places) {
            if (!checkboxes_ || !Reachable() || place < 0 || place >= ItemCount()) {
                return;
            }
            ListItem& item = At(place);
            if (item.checked_ != checked) {
                SetChecked(item, checked);
                Raise<const ListItem&>(ItemCheck, item);
            }
        }
    });
}

void ListView::InputDoubleClick() {
    Parent().Screen().Event([this] {
        if (Reachable()) {
            Raise(DblClick);
        }
    });
}

void ListView::InputColumnClick(int column) {
    Parent().Screen().Event([&] {
        if (Reachable() && column >= 0 && column < ColumnCount()) {
            Raise<int>(ColumnClick, column + 1);
        }
    });
}

}  // namespace platform
