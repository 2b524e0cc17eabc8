// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <unicode/umachine.h>

#include <string_view>

#include "platform/richtext.h"

namespace platform {

/// Puts a rich text together piece by piece and keeps it normalised at each step (see Normalised).
class RichTextBuilder {
  public:
    /// One character. Anything that is no character becomes U+FFFD, "\r" a line end; other control
    /// characters but tab and "\n" are left out.
    void Add(UChar32 code, Run::Height height);
    /// Any bytes, taken as UTF-8.
    void AddText(std::string_view utf8, Run::Height height);
    /// Takes one line end off the end of the text, if there is one.
    void DropLastLineEnd();
    RichText Take() { return std::move(text_); }

  private:
    RichText text_;
};

}  // namespace platform
