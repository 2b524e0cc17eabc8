// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "platform/forms/list_view.h"
#include "qt/adapter.h"

namespace qt {

class ListHeader;
class ListModel;
class ListWidget;

class ListViewAdapter final : public WidgetAdapter {
  public:
    ListViewAdapter(FormWindow& window, platform::ListView& list);
    void Release() override;

  protected:
    void CarryOwn() override;

  private:
    void CarryWidths();
    void FitLastColumn();
    void CarrySelection();
    void CarrySeveral();
    std::vector<int> SelectedRows() const;

    platform::ListView& list_;
    ListWidget* widget_;
    ListModel* model_;
    ListHeader* header_;
    // What of the control the widget shows.
    std::uint64_t rows_ = 0;
    std::uint64_t columns_ = 0;
    std::uint64_t checks_ = 0;
    bool fitting_ = false;
    int linePx_ = 0;
};

}  // namespace qt
