// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "platform/forms/control.h"
#include "platform/richtext/richtext.h"

namespace platform {

/// Shows a chemical formula, given as plain text or as rich text; each replaces what the other set.
class oFormula final : public Control {
  public:
    oFormula(Form& parent, std::string name, const Design& design, int index = -1);
    std::string_view TypeName() const override { return "oFormula"; }

    std::string PlainText() const;
    void SetPlainText(const std::string& text);
    /// The content as RTF in the control's font; empty for an empty formula.
    std::string RichText() const;
    /// Anything that is no RTF shows as the plain text that it is.
    void SetRichText(const std::string& rtf);
    const platform::RichText& Content() const { return content_; }

    Property<bool> Locked;
    Property<int> Padding;  // space around the formula, points

    bool TakesFocus() const override { return !Locked; }
    void Reset() override;

  private:
    platform::RichText content_;
};

}  // namespace platform
