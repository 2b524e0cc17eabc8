// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/forms/control.h"

namespace platform {

namespace adodb {
class Recordset;
}

class TextBox final : public Control {
  public:
    TextBox(Form& parent, std::string name, const Design& design, int index = -1);
    ~TextBox() override;
    std::string_view TypeName() const override { return "TextBox"; }
    Property<std::string> Text;
    Property<bool> Locked;
    Property<int> SelStart, SelLength;  // code points
    /// Column of the data source that the box shows.
    Property<std::string> DataField;
    bool MultiLine() const { return multiLine_; }
    std::function<void()> Change;

    /// Binds the box to the current row of a record set: from now on Text follows it. The record set must
    /// outlive the binding, which ends at the unload.
    void SetDataSource(adodb::Recordset* source);

    bool TakesFocus() const override { return true; }
    bool WantsEnter() const override { return multiLine_ && !Locked; }
    void PropertyChanged(const PropertyBase& property) override;
    void Reset() override;
    void InputText(const std::string& text);

  private:
    void ShowField();
    bool multiLine_;
    adodb::Recordset* source_ = nullptr;
    std::shared_ptr<void> subscription_;
};

}  // namespace platform
