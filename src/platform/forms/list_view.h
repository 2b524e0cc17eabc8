// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
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

    bool Selected() const { return selected_; }
    bool Checked() const { return checked_; }

  private:
    friend class ListView;
    std::string key_;
    std::vector<std::string> subItems_;
    bool selected_ = false;
    bool checked_ = false;
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

/// What a text of a list is more than its letters: a sign with a weight of its own, and the words for it.
enum class Tone { Plain, Good, Doubtful, Bad };
struct CellLook {
    platform::Tone Tone = Tone::Plain;
    std::string Spoken = {};
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
    /// The row with this key, null when there is none: no walk.
    ListItem* ItemOf(std::string_view key);
    /// Place of the row that was selected last, -1 when it is selected no more. Setting it, or -1 for none,
    /// selects that row alone and raises nothing.
    int SelectedIndex() const;
    void Select(int place);
    /// Selects a row, or not, and leaves the others as they are; raises nothing.
    void SetSelected(int place, bool selected);
    /// Whether several rows can be selected at once.
    bool MultiSelect() const { return multiSelect_; }

    /// Whether the rows have a box to tick.
    bool Checkboxes() const { return checkboxes_; }
    /// A tick from code; raises nothing.
    void SetChecked(ListItem& item, bool checked);
    void SetChecked(int place, bool checked) { SetChecked(At(place), checked); }

    /// How the text of a column is to be shown and read aloud; plain and as it stands where there is none.
    std::function<CellLook(int column, const std::string& text)> Look;
    /// More about a row, asked for when it is shown or spoken.
    std::function<std::string(const ListItem&)> Tip;

    std::function<void(const ListItem&)> ItemClick;
    /// The user has ticked a row, or taken the tick away.
    std::function<void(const ListItem&)> ItemCheck;
    /// The heading's index, from 1.
    std::function<void(int)> ColumnClick;
    std::function<void()> Click, DblClick;
    std::function<void(int&)> KeyPress;

    bool TakesFocus() const override { return true; }
    void RaiseKeyPress(int& KeyAscii) override { Raise<int&>(KeyPress, KeyAscii); }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;

    // --- what the view calls, and the logic where it stands for a click of the user ---
    /// The row has become the selected one: raises ItemClick.
    void InputSelect(int place) { InputSelection({place}, place); }
    /// These rows are selected now, and no others; the one at `place`, if any, raises ItemClick.
    void InputSelection(const std::vector<int>& places, int place);
    /// A click of the mouse, after the selection that it has made: raises Click. A click beside the rows
    /// comes with an empty selection.
    void InputClick();
    /// The user ticks these rows, or takes their ticks away: ItemCheck for each that changes.
    void InputCheck(const std::vector<int>& places, bool checked);
    void InputDoubleClick();
    void InputColumnClick(int column);  // from 0

    /// Raised with every change of rows, of their order or of columns: the view compares it with its own.
    std::uint64_t RowsVersion() const { return rowsVersion_; }
    std::uint64_t ColumnsVersion() const { return columnsVersion_; }
    std::uint64_t ChecksVersion() const { return checksVersion_; }

  private:
    void Order() const;
    void SortNow() const;
    void RowsChanged();
    ListItem& At(int place);
    void ClearSelection();

    const bool multiSelect_;
    const bool checkboxes_;
    std::vector<ColumnHeader> columns_;
    std::deque<ListItem> items_;                // in the order of adding
    mutable std::vector<std::uint32_t> order_;  // place -> index in items_
    mutable bool orderDue_ = false;
    std::unordered_map<std::string_view, std::uint32_t> keys_;  // key -> index in items_
    std::int64_t selected_ = -1;                                // index in items_ of the row selected last
    bool sorted_ = false;
    const ImageList* headerIcons_ = nullptr;
    std::uint64_t rowsVersion_ = 0;
    std::uint64_t columnsVersion_ = 0;
    std::uint64_t checksVersion_ = 0;
};

}  // namespace platform
