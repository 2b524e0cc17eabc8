// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QString>

#include "platform/forms/control.h"

namespace qt {

/// Turns twips into pixels and back by the font in use: the height of one line of the application's font
/// counts as 195 twips, the line height of the font that the windows' positions are drawn for. So a larger
/// font enlarges a whole window alike.
class Scale {
  public:
    static Scale OfDesktop();
    explicit Scale(int lineHeight) : lineHeight_(lineHeight) {}

    int Px(int twips) const;
    int Twips(int px) const;
    /// Sizes in points grow and shrink with the positions around them.
    QFont FontOf(const platform::Font& font) const;
    /// Width in twips of one line of text.
    int TextWidth(const platform::Font& font, const QString& text) const;

  private:
    int lineHeight_;  // px
};

}  // namespace qt
