// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/scale.h"

#include <QApplication>
#include <QFontMetrics>
#include <algorithm>

namespace qt {

namespace {

constexpr int kLineTwips = 195;
constexpr int kTwipsPerPoint = 20;

}  // namespace

Scale Scale::OfDesktop() {
    return Scale(std::max(1, QFontMetrics(QApplication::font()).height()));
}

int Scale::Px(int twips) const {
    return qRound(static_cast<double>(twips) * lineHeight_ / kLineTwips);
}

int Scale::Twips(int px) const {
    return qRound(static_cast<double>(px) * kLineTwips / lineHeight_);
}

QFont Scale::FontOf(const platform::Font& font) const {
    QFont result = QApplication::font();
    if (!font.Name.empty()) {
        result.setFamilies({QString::fromStdString(font.Name), result.family()});
    }
    if (font.Size > 0) {
        result.setPixelSize(std::max(1, Px(qRound(font.Size * kTwipsPerPoint))));
    }
    if (font.Bold) {
        result.setBold(true);
    }
    return result;
}

int Scale::TextWidth(const platform::Font& font, const QString& text) const {
    return Twips(QFontMetrics(FontOf(font)).horizontalAdvance(text));
}

}  // namespace qt
