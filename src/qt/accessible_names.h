// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "platform/forms/form.h"

namespace qt {

/// What a reader of the screen should call the control: its caption, or the text of the label that stands
/// nearest at its left or above it, or its tool tip.
QString AccessibleName(const platform::Control& control);

}  // namespace qt
