// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <QFontMetrics>
#include <QProxyStyle>
#include <algorithm>

namespace qt {

/// The desktop's own style, but for a few habits of its controls.
class Style final : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        // A list of many entries needs a scroll bar, and buttons that say what they do need no picture.
        const bool off = hint == SH_ComboBox_Popup || hint == SH_DialogButtonBox_ButtonsHaveIcons;
        return off ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }

    // Small pictures and ticks grow with the text beside them.
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        const int size = QProxyStyle::pixelMetric(metric, option, widget);
        switch (metric) {
            case PM_SmallIconSize:
            case PM_IndicatorWidth:
            case PM_IndicatorHeight:
            case PM_ExclusiveIndicatorWidth:
            case PM_ExclusiveIndicatorHeight:
                return std::max(size, QFontMetrics(QApplication::font()).height() * 9 / 10);
            default:
                return size;
        }
    }
};

}  // namespace qt
