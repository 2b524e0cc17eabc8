// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Windows-1252 to UTF-8. The five bytes without a character (81, 8D, 8F, 90, 9D hex) become the control
/// characters of the same number, so that every byte comes back as it was.
std::string FromWindows1252(std::string_view bytes);

/// UTF-8 to Windows-1252. What has no place there becomes "?", and so does what is no UTF-8.
std::string ToWindows1252(std::string_view utf8);

}  // namespace platform
