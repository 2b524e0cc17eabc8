// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <algorithm>

namespace qt {

/// The desktop's own style, but for a few habits of its controls.
class Style final : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        // A list of many entries needs a scroll bar, and buttons that say what they do need no picture.
        const bool off = hint == SH_ComboBox_Popup || hint == SH_DialogButtonBox_ButtonsHaveIcons;
        if (hint == SH_MenuBar_AltKeyNavigation) {
            return 1;
        }
        return off ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }

    // Small pictures and ticks grow with the text beside them.
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        const int size = QProxyStyle::pixelMetric(metric, option, widget);
        switch (metric) {
            case PM_DefaultFrameWidth:
                return IsFramedArea(widget) ? std::max(size, kFrame) : size;
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

    // Where a pixel of the screen is no whole number of the window's, a thin line would fall out of the area
    // that it frames, or be covered by what the area holds: filled, and one pixel wider, it is seen.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element != PE_Frame || !IsFramedArea(widget)) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        painter->fillRect(option->rect, option->palette.color(QPalette::Window).darker(130));
        painter->fillRect(option->rect.adjusted(1, 1, -1, -1), option->palette.base());
    }

  private:
    static constexpr int kFrame = 2;

    // Other styles than this one know how to frame.
    bool IsFramedArea(const QWidget* widget) const {
        return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr && baseStyle()->name() == "fusion";
    }
};

}  // namespace qt
