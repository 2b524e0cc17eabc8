// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

namespace qt {

/// Contrast of two colours by the formula of the web's accessibility guidelines (WCAG 2.1): 1 to 21.
double Contrast(const QColor& one, const QColor& other);

/// The colour between two: `share` of the first, the rest of the other. Without transparency.
QColor Mixed(const QColor& one, const QColor& other, double share);

/// A red that can be read on the palette's window colour, be it light or dark: contrast 4.5 at least.
QColor WarningColour(const QPalette& palette);

}  // namespace qt
