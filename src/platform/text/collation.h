// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The system's one order of texts: Swedish, without regard to case (secondary strength); what this order
/// takes as one, but fold.h as two, stands in the order of the folded texts. So 0 means equal by the rule of
/// fold.h. Used by =, IN and ORDER BY of the store and by the sorting of lists. Both texts are UTF-8. Below
/// 0, 0 or above 0 as left stands before, with or behind right.
int Compare(std::string_view left, std::string_view right) noexcept;

/// A key of bytes: two keys compare by memcmp as their texts do by Compare. Worth making when a text is
/// compared many times.
std::string SortKey(std::string_view text);

}  // namespace platform
