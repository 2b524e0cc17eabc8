// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "platform/forms/control.h"
#include "platform/richtext/richtext.h"

namespace platform {

/// Shows rich text; nobody types into it.
class RichTextBox final : public Control {
  public:
    RichTextBox(Form& parent, std::string name, const Design& design, int index = -1)
        : Control(parent, std::move(name), design, index) {}
    std::string_view TypeName() const override { return "RichTextBox"; }

    /// Anything that is no RTF shows as the plain text that it is.
    void SetTextRTF(const std::string& rtf);
    const RichText& Content() const { return content_; }
    bool TakesFocus() const override { return true; }
    void Reset() override;

  private:
    RichText content_;
};

}  // namespace platform
