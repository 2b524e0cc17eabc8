// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/forms/control.h"
#include "platform/forms/pictures.h"

namespace platform {

class ListView;

/// A row of a list: a text, the texts of its further columns, and a key by which it is found again.
class ListItem {
  public:
    ListItem(std::string key, std::string text) : Text(std::move(text)), key_(std::move(key)) {}
    /// The list finds the row by it: fixed from the start.
    const std::string& Key() const { return key_; }
    std::string Text;
    /// Sub-item by column, from 1; empty where none was added.
    const std::string& SubItems(std::size_t column) const;
    void AddSubItem(std::string text) { subItems_.push_back(std::move(text)); }

  private:
    std::string key_;
    std::vector<std::string> subItems_;
};

/// A column of a list in report view.
struct ColumnHeader {
    std::string Text;
    int Width = 0;  // twips; 0 hides the column
    Align Alignment = Align::Left;
    std::string Icon;              // name of a picture shown before the text
    std::optional<int> SortImage;  // index in the heading images, shown behind the text
    bool operator==(const ColumnHeader&) const = default;
};

/// A list in report view. Rows are read and selected by their place in the shown order, from 0.
///
/// Sorting is by the text of a column, by the system's collation, and stable: rows alike in that column keep
/// the order they had. Rows added to a sorted list take their places when the order is next asked for.
class ListView final : public Control {
  public:
    ListView(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "ListView"; }

    Property<int> View;  // 3 is the report view
    Property<int> SortKey;
    Property<int> SortOrder;  // 0 ascending, 1 descending
    /// Assigning true sorts at once, also when it was true before.
    class SortedProperty {
      public:
        explicit SortedProperty(ListView& list) : list_(list) {}
        SortedProperty& operator=(bool sorted);
        operator bool() const { return list_.sorted_; }

      private:
        ListView& list_;
    } Sorted{*this};

    /// The heading images; the list keeps the pointer.
    void SetColumnHeaderIcons(const ImageList* images);
    const ImageList* ColumnHeaderIcons() const { return headerIcons_; }

    // --- columns ---
    void ClearColumns();
    /// `icon` is a key of the heading images, or empty. A width that comes out too small to be seen and
    /// grabbed, negative ones among them, becomes one that can be; only 0 hides the column.
    void AddColumn(const std::string& text, int width, Align alignment = Align::Left,
                   const std::string& icon = {});
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    const ColumnHeader& Column(int index) const;
    void SetColumnWidth(int index, int width);
    void SetColumnSortImage(int index, std::optional<int> image);

    // --- rows ---
    void ClearItems();
    /// Error 35602 when the key is taken; an empty key is no key. The reference holds until the next Clear.
    ListItem& AddItem(std::string key, std::string text);
    int ItemCount() const { return static_cast<int>(items_.size()); }
    /// The row at a place of the shown order.
    const ListItem& Item(int place) const;
    /// Place of the selected row, -1 for none. Setting it raises nothing.
    int SelectedIndex() const;
    void Select(int place);

    std::function<void(const ListItem&)> ItemClick;
    /// The heading's index, from 1.
    std::function<void(int)> ColumnClick;
    std::function<void()> Click, DblClick;
    std::function<void(int&)> KeyPress;

    bool TakesFocus() const override { return true; }
    void RaiseKeyPress(int& KeyAscii) override { Raise<int&>(KeyPress, KeyAscii); }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;

    // --- what the view calls, and the logic where it stands for a click of the user ---
    /// The row has become the selected one by mouse or key: raises ItemClick.
    void InputSelect(int place);
    void InputDoubleClick();
    void InputColumnClick(int column);  // from 0

    /// Raised with every change of rows, of their order or of columns: the view compares it with its own.
    std::uint64_t RowsVersion() const { return rowsVersion_; }
    std::uint64_t ColumnsVersion() const { return columnsVersion_; }

  private:
    void Order() const;
    void SortNow() const;
    void RowsChanged();

    std::vector<ColumnHeader> columns_;
    std::deque<ListItem> items_;                // in the order of adding
    mutable std::vector<std::uint32_t> order_;  // place -> index in items_
    mutable bool orderDue_ = false;
    std::unordered_set<std::string_view> keys_;
    std::int64_t selected_ = -1;  // index in items_
    bool sorted_ = false;
    const ImageList* headerIcons_ = nullptr;
    std::uint64_t rowsVersion_ = 0;
    std::uint64_t columnsVersion_ = 0;
};

}  // namespace platform
