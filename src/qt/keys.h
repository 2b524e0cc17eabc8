// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

class QKeyEvent;

namespace qt {

/// The code by which the windows know the key. Never 0, which to them means a key that is used up.
int KeyCode(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
int ShiftState(const QKeyEvent& event);
/// The code point that the key types, 0 for none.
int Character(const QKeyEvent& event);

}  // namespace qt
