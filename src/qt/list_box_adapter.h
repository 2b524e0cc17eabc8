// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "platform/forms/lists.h"
#include "qt/adapter.h"

namespace qt {

class LineModel;
class ListWidget;

/// A list box looks and answers like a list of one column without its heading.
class ListBoxAdapter final : public WidgetAdapter {
  public:
    ListBoxAdapter(FormWindow& window, platform::ListBox& list);
    void Release() override;

  protected:
    void CarryOwn() override;

  private:
    platform::ListBox& list_;
    ListWidget* widget_;
    LineModel* model_;
    std::uint64_t lines_ = 0;  // of the control's lines, what the widget shows
};

}  // namespace qt
