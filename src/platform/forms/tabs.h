// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/forms/control.h"

namespace platform {

/// Pages with a tab each, of which one is open. The controls on it name their page; nobody sees or reaches
/// those of the others.
class SSTab final : public Control {
  public:
    SSTab(Form& parent, std::string name, const Design& design, std::vector<std::string> captions);
    std::string_view TypeName() const override { return "SSTab"; }

    /// The open page, from 0; opening another one raises Click. Error 380 beyond the pages.
    class TabProperty {
      public:
        explicit TabProperty(SSTab& tabs) : tabs_(tabs) {}
        TabProperty(const TabProperty&) = delete;
        TabProperty& operator=(const TabProperty&) = delete;
        TabProperty& operator=(int page);
        operator int() const { return tabs_.open_; }

      private:
        SSTab& tabs_;
    } Tab{*this};
    int Tabs() const { return static_cast<int>(captions_.size()); }
    const std::string& TabCaption(int page) const;
    /// The caption of the open page's tab.
    const std::string& Caption() const { return TabCaption(open_); }
    void SetCaption(const std::string& text) override;
    /// Gets the page that was open before.
    std::function<void(int)> Click;

    bool Shows(const Control& content) const override { return content.Page() == open_; }
    bool TakesFocus() const override { return true; }
    void Reset() override;
    /// The user opens a page.
    void InputTab(int page);

  private:
    const std::vector<std::string> design_;
    std::vector<std::string> captions_;
    int open_ = 0;
};

}  // namespace platform
