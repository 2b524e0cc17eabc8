// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/control.h"

namespace platform {

/// Lines of text, each with a number of its own behind it, of which one can be selected.
class LineList : public Control {
  public:
    /// The selected line, -1 for none. Error 380 beyond the list, which leaves the selection as it was.
    class IndexProperty {
      public:
        explicit IndexProperty(LineList& list) : list_(list) {}
        IndexProperty(const IndexProperty&) = delete;
        IndexProperty& operator=(const IndexProperty&) = delete;
        IndexProperty& operator=(int index);
        operator int() const { return list_.selected_; }

      private:
        LineList& list_;
    } ListIndex{*this};
    std::function<void()> Click;

    void AddItem(const std::string& text);
    /// No line and none selected; raises nothing.
    void Clear();
    int ListCount() const { return static_cast<int>(lines_.size()); }
    /// Index of the line added last, -1 after Clear.
    int NewIndex() const { return newIndex_; }
    const std::string& List(int index) const;
    std::int32_t ItemData(int index) const;
    void SetItemData(int index, std::int32_t data);
    /// Text of the selected line, empty when none is.
    std::string Text() const;

    bool TakesFocus() const override { return true; }
    void Reset() override;
    /// The user has chosen a line: a click, also on the one that is selected.
    void InputIndex(int index);

    /// Raised with every change of the lines: the view compares it with its own.
    std::uint64_t LinesVersion() const { return linesVersion_; }

  protected:
    using Control::Control;
    /// Whether an assignment of this index raises Click.
    virtual bool Clicks(int index, bool changed) const = 0;

  private:
    struct Line {
        std::string Text;
        std::int32_t Data = 0;
    };
    const Line& At(int index) const;
    void LinesChanged();
    std::vector<Line> lines_;
    int newIndex_ = -1;
    int selected_ = -1;
    std::uint64_t linesVersion_ = 0;
};

/// A drop-down list that can't be typed in. Each change of the selection raises Click.
class ComboBox final : public LineList {
  public:
    ComboBox(Form& parent, std::string name, const Design& design, int index = -1)
        : LineList(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "ComboBox"; }

  private:
    bool Clicks(int, bool changed) const override { return changed; }
};

/// A list that stands open. Each selection of a line raises Click, also of the one that was selected.
class ListBox final : public LineList {
  public:
    ListBox(Form& parent, std::string name, const Design& design, int index = -1)
        : LineList(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "ListBox"; }

  private:
    bool Clicks(int index, bool) const override { return index >= 0; }
};

}  // namespace platform
