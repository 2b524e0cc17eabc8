// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>
#include <vector>

#include "platform/richtext/richtext.h"

namespace platform {

/// Sets a formula typed as plain text ("H2SO4", "CuSO4·5H2O", "SO4^2-", "C10–C13") as chemists write it:
/// numbers behind an element or a bracket go down, charges behind "^" go up and lose the "^", all other
/// numbers are coefficients and stay.
RichText FormulaRichText(std::string_view formula);

/// The same for a formula that is being typed: the height of each of its characters. A charge at the end goes
/// up without a "^" ("SO42-", "SO4 2-", "NH4+"), and a number behind a dot stays as long as it may become a
/// hydrate's.
std::vector<Run::Height> TypedHeights(std::u32string_view formula);

bool IsDigit(char32_t c);

}  // namespace platform
