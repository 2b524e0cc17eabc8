// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/formula_widget.h"

#include <QPainter>
#include <QStyleOptionFrame>
#include <algorithm>

namespace qt {

namespace {

constexpr int kSideMargin = 4;  // px, as in a text box

}  // namespace

void FormulaWidget::Show(const platform::RichText& content, int padding) {
    content_ = content;
    padding_ = padding;
    update();
}

QList<FormulaWidget::Line> FormulaWidget::Lines() const {
    QList<Line> lines(1);
    for (const platform::Run& run : content_) {
        const QStringList parts = QString::fromStdString(run.Text).remove('\r').split('\n');
        for (int i = 0; i < parts.size(); ++i) {
            if (i > 0) {
                lines.append(Line());
            }
            if (!parts[i].isEmpty()) {
                lines.last().append(Piece{parts[i], run.Position});
            }
        }
    }
    return lines;
}

QFont FormulaWidget::FontAt(platform::Run::Height position) const {
    constexpr double kSmall = 0.72;
    QFont result = font();
    if (position != platform::Run::Normal) {
        result.setPixelSize(std::max(1, qRound(QFontInfo(result).pixelSize() * kSmall)));
    }
    return result;
}

int FormulaWidget::ShiftOf(platform::Run::Height position) const {
    constexpr double kDown = 0.20;
    constexpr double kUp = 0.38;
    const int ascent = QFontMetrics(font()).ascent();
    switch (position) {
        case platform::Run::Sub:
            return qRound(ascent * kDown);
        case platform::Run::Super:
            return -qRound(ascent * kUp);
        case platform::Run::Normal:
            break;
    }
    return 0;
}

int FormulaWidget::WidthOf(const Line& line) const {
    int width = 0;
    for (const Piece& piece : line) {
        width += QFontMetrics(FontAt(piece.Position)).horizontalAdvance(piece.Text);
    }
    return width;
}

int FormulaWidget::ContentWidth() const {
    int width = 0;
    for (const Line& line : Lines()) {
        width = std::max(width, WidthOf(line));
    }
    return width;
}

void FormulaWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.rect = rect();
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
    option.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);

    const int side = option.lineWidth + kSideMargin + padding_;
    const QRect inside = rect().adjusted(side, option.lineWidth, -side, -option.lineWidth);
    painter.setClipRect(inside);
    painter.setPen(palette().color(QPalette::Text));

    const QList<Line> lines = Lines();
    const QFontMetrics metrics(font());
    const int block = metrics.lineSpacing() * static_cast<int>(lines.size());
    int baseline = inside.top() + std::max(0, (inside.height() - block) / 2) + metrics.ascent();
    for (const Line& line : lines) {
        const bool cut = WidthOf(line) > inside.width();
        int x = inside.left();
        for (const Piece& piece : line) {
            const QFont small = FontAt(piece.Position);
            const QFontMetrics own(small);
            // A formula that is too long ends in an ellipsis, like a text in a list.
            const int room = inside.right() + 1 - x - (cut ? own.horizontalAdvance(QChar(0x2026)) : 0);
            const bool fits = own.horizontalAdvance(piece.Text) <= room;
            painter.setFont(small);
            painter.drawText(
                x, baseline + ShiftOf(piece.Position),
                fits ? piece.Text
                     : own.elidedText(piece.Text + QChar(0x2026), Qt::ElideRight, inside.right() + 1 - x));
            x += own.horizontalAdvance(piece.Text);
            if (!fits) {
                break;
            }
        }
        baseline += metrics.lineSpacing();
    }
}

}  // namespace qt
