// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include "platform/richtext/richtext.h"

namespace platform {

/// Reads RTF, of which only the text and its heights count; what does not begin with "{\rtf" is plain text.
/// Takes any bytes, in linear time; the result is normalised. The line end that editors put behind the last
/// line is not part of the text.
RichText ParseRtf(std::string_view rtf);

/// Writes a text as RTF in ASCII. What ParseRtf makes of it is the text normalised. Point sizes are rounded
/// to half points and kept within 1 to 1638.
std::string WriteRtf(const RichText& text, std::string_view fontName, double pointSize);

}  // namespace platform
