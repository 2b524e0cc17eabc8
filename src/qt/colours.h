// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

#include "platform/forms/list_view.h"

namespace qt {

/// Contrast of two colours by the formula of the web's accessibility guidelines (WCAG 2.1): 1 to 21.
double Contrast(const QColor& one, const QColor& other);

/// The colour between two: `share` of the first, the rest of the other. Without transparency.
QColor Mixed(const QColor& one, const QColor& other, double share);

/// A red that can be read on the palette's window colour, be it light or dark: contrast 4.5 at least.
QColor WarningColour(const QPalette& palette);

/// The colour of a good, doubtful or bad sign on the palette's base, light or dark: blue, ochre and
/// vermilion, which stay apart for colour-blind eyes.
QColor ToneColour(platform::Tone tone, const QPalette& palette);

}  // namespace qt
