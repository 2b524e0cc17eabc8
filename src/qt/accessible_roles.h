// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

namespace qt {

/// The property of a label that tells outcomes.
inline constexpr const char* kOutcome = "outcome";

/// Teaches the accessibility interfaces what the window system can't know of our widgets: that a window of
/// the program is a window or a dialog, a picture a picture, an option a radio button, and that a label
/// tells outcomes. Once is enough.
void InstallAccessibleRoles();

}  // namespace qt
