// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/style.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "qt/colours.h"

namespace qt {

namespace {

constexpr int kFrame = 2;

/// The line around what can be used: it stands out from the window on any ground, the window's own focus
/// colour where the keyboard is.
QColor Outline(const QPalette& palette, bool focus) {
    return focus ? palette.color(QPalette::Highlight)
                 : Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 0.45);
}

// On black the style's own lines, which are a darker shade of the ground, can't be seen.
bool LacksLines(const QPalette& palette) {
    constexpr int kNearlyBlack = 40;
    return palette.color(QPalette::Window).lightness() < kNearlyBlack;
}

}  // namespace

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* data) const {
    switch (hint) {
        case SH_ComboBox_Popup:                    // a list of many entries needs a scroll bar
        case SH_DialogButtonBox_ButtonsHaveIcons:  // buttons that say what they do need no picture
            return 0;
        case SH_MenuBar_AltKeyNavigation:
            return 1;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

// Small pictures and ticks grow with the text beside them.
int Style::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
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

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    const bool focus = option->state.testFlag(State_HasFocus);
    // Where a pixel of the screen is no whole number of the window's, a thin line would fall out of the area
    // that it frames, or be covered by what the area holds: filled, and one pixel wider, it is seen.
    if (element == PE_Frame && IsFramedArea(widget)) {
        const bool area = widget->hasFocus();
        const QPalette& palette = option->palette;
        painter->fillRect(option->rect, area || LacksLines(palette)
                                            ? Outline(palette, area)
                                            : palette.color(QPalette::Window).darker(130));
        painter->fillRect(area ? option->rect.adjusted(kFrame, kFrame, -kFrame, -kFrame)
                               : option->rect.adjusted(1, 1, -1, -1),
                          palette.base());
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!LacksLines(option->palette)) {
        return;
    }
    const QRect line = option->rect.adjusted(0, 0, -1, -1);
    switch (element) {
        case PE_FrameLineEdit:
        case PE_PanelButtonCommand:
        case PE_IndicatorCheckBox:
        case PE_FrameGroupBox:
        case PE_FrameTabWidget:
            painter->setPen(Outline(option->palette, focus));
            painter->drawRect(line);
            break;
        case PE_IndicatorRadioButton:
            painter->setPen(Outline(option->palette, focus));
            painter->drawEllipse(line);
            break;
        default:
            break;
    }
}

// Other styles than this one know how to frame.
bool Style::IsFramedArea(const QWidget* widget) const {
    return qobject_cast<const QAbstractScrollArea*>(widget) != nullptr && baseStyle()->name() == "fusion";
}

}  // namespace qt
