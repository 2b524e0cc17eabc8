// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/rich_text_box.h"

#include "platform/richtext/rtf.h"

namespace platform {

void RichTextBox::SetTextRTF(const std::string& rtf) {
    content_ = ParseRtf(rtf);
    Notify();
}

void RichTextBox::Reset() {
    content_.clear();
    Control::Reset();
}

}  // namespace platform
