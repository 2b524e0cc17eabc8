// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/forms/control.h"

namespace platform {

/// A drop-down list that can't be typed in.
class ComboBox final : public Control {
  public:
    ComboBox(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "ComboBox"; }
    /// The selected entry, -1 for none; a change raises Click. Error 380 beyond the list.
    Property<int> ListIndex;
    std::function<void()> Click;

    void AddItem(const std::string& text);
    /// No entry and none selected; raises nothing.
    void Clear();
    int ListCount() const { return static_cast<int>(entries_.size()); }
    /// Index of the entry added last, -1 after Clear.
    int NewIndex() const { return newIndex_; }
    const std::string& List(int index) const;
    std::int32_t ItemData(int index) const;
    void SetItemData(int index, std::int32_t data);
    /// Text of the selected entry, empty when none is.
    std::string Text() const;

    bool TakesFocus() const override { return true; }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;
    void InputIndex(int index);

  private:
    struct Entry {
        std::string Text;
        std::int32_t Data = 0;
    };
    const Entry& At(int index) const;
    std::vector<Entry> entries_;
    int newIndex_ = -1;
};

}  // namespace platform
