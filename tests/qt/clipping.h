// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

class QWidget;

/// What can't be read in a window as it is shown now: the texts that their place cuts, and the controls that
/// lie upon a neighbour or reach out of the window. Each with the name of its control.
///
/// Looks at labels, buttons, ticks, options, frames' titles, menus, list headings and the shown entry of
/// drop-down lists. A control that lies wholly outside the window waits for it to be made larger and isn't
/// looked at.
std::vector<std::string> ClippedTexts(QWidget& window);
