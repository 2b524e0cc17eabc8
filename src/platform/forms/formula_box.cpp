// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/formula_box.h"

#include "platform/richtext/rtf.h"

namespace platform {

oFormula::oFormula(Form& parent, std::string name, const Design& design, int index)
    : Control(parent, std::move(name), design, index), Locked(*this, design.Locked), Padding(*this, 0) {}

std::string oFormula::PlainText() const {
    return platform::PlainText(content_);
}

void oFormula::SetPlainText(const std::string& text) {
    content_ = Normalised({Run{text}});
    Notify();
}

std::string oFormula::RichText() const {
    return content_.empty() ? std::string() : WriteRtf(content_, Font->Name, Font->Size);
}

void oFormula::SetRichText(const std::string& rtf) {
    content_ = ParseRtf(rtf);
    Notify();
}

void oFormula::Reset() {
    content_.clear();
    Control::Reset();
}

}  // namespace platform
