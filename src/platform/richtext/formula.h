// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include "platform/richtext/richtext.h"

namespace platform {

/// Sets a formula typed as plain text ("H2SO4", "CuSO4·5H2O", "SO4^2-", "C10–C13") as chemists write it:
/// numbers behind an element or a bracket go down, charges behind "^" go up and lose the "^", all other
/// numbers are coefficients and stay.
RichText FormulaRichText(std::string_view formula);

}  // namespace platform
