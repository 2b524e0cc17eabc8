// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

namespace qt {

/// Teaches the accessibility interfaces what the window system can't know of our widgets: that a window of
/// the program is a window or a dialog, a picture a picture, and an option a radio button. Once is enough.
void InstallAccessibleRoles();

}  // namespace qt
