// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/formula_widget.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>
#include <algorithm>

#include "qt/formula_document.h"

namespace qt {

namespace {

constexpr int kSideMargin = 4;   // px, as in a text box
constexpr int kCaretMargin = 1;  // px beside the text, where a caret at its ends is seen
constexpr double kSmall = 0.72;
// Of the ascent.
constexpr double kDown = 0.20;
constexpr double kUp = 0.38;

}  // namespace

FormulaWidget::FormulaWidget(QWidget* parent) : QTextEdit(parent) {
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QTextEdit::NoWrap);
    setTabChangesFocus(true);
    setInputMethodHints(Qt::ImhNoPredictiveText);
    document()->setDocumentMargin(kCaretMargin);
    SetEditable(false);
}

void FormulaWidget::Show(const platform::RichText& content, int padding) {
    content_ = content;
    padding_ = padding;
    PlaceLine();
    update();
    viewport()->update();
}

void FormulaWidget::SetEditable(bool editable) {
    setTextInteractionFlags(editable ? Qt::TextEditorInteraction : Qt::NoTextInteraction);
    viewport()->setCursor(editable ? Qt::IBeamCursor : Qt::ArrowCursor);
}

// --- the formula in reading ---

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
    QFont result = font();
    if (position != platform::Run::Normal) {
        result.setPixelSize(std::max(1, qRound(QFontInfo(result).pixelSize() * kSmall)));
    }
    return result;
}

int FormulaWidget::ShiftOf(platform::Run::Height position) const {
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

void FormulaWidget::DrawFormula() {
    QPainter painter(viewport());
    const QRect inside = viewport()->rect();
    painter.setPen(palette().color(QPalette::Text));

    const QList<Line> lines = Lines();
    const QFontMetrics metrics(font());
    int baseline = Baseline(inside.top(), inside.height(), static_cast<int>(lines.size()));
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

int FormulaWidget::Baseline(int top, int height, int lines) const {
    const QFontMetrics metrics(font());
    return top + std::max(0, (height - metrics.lineSpacing() * lines) / 2) + metrics.ascent();
}

// --- frame and place, for both ---

QStyleOptionFrame FormulaWidget::FrameOption() const {
    QStyleOptionFrame option;
    option.initFrom(this);
    option.rect = rect();
    // That of a text box, not of an area that scrolls.
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option);
    option.state |= QStyle::State_Sunken;
    option.state.setFlag(QStyle::State_ReadOnly, isReadOnly());
    return option;
}

void FormulaWidget::PlaceLine() {
    const int frame = FrameOption().lineWidth;
    const int side = frame + kSideMargin + padding_;
    QMargins margins(side, frame, side, frame);
    if (!isReadOnly()) {
        // As far down and up as in the drawing. The editor counts in heights of its small font, two thirds of
        // the other.
        const QFontMetricsF metrics(font());
        const double part = 150.0 * metrics.ascent() / (metrics.ascent() + metrics.descent());
        document()->setSubScriptBaseline(kDown * part);
        document()->setSuperScriptBaseline(kUp * part);
        const QSize size = document()->size().toSize();  // lays it out
        const QTextLayout* const layout = document()->firstBlock().layout();
        // The line is higher than in reading where parts of it are raised; what stands below it is cut off
        // rather than scrolled.
        const int lines = layout->lineCount();
        const int ascent = lines > 0 ? qCeil(layout->lineAt(0).ascent()) : 0;
        const int top = std::max(frame, Baseline(frame, height() - 2 * frame, lines) - ascent - kCaretMargin);
        margins = {side - kCaretMargin, top, side - kCaretMargin,
                   lines == 1 ? std::min(frame, height() - top - size.height()) : frame};
    }
    if (margins != viewportMargins()) {
        setViewportMargins(margins);
    }
}

bool FormulaWidget::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        const QStyleOptionFrame option = FrameOption();
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
        return true;
    }
    return QTextEdit::event(event);
}

void FormulaWidget::paintEvent(QPaintEvent* event) {
    if (isReadOnly()) {
        DrawFormula();
    } else {
        QTextEdit::paintEvent(event);
    }
}

void FormulaWidget::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    PlaceLine();
}

void FormulaWidget::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    update();
}

void FormulaWidget::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    update();
}

void FormulaWidget::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

// --- what is typed, pasted or dropped ---

// What a key changes is a block of its own, to which the heights can be added that follow from it.
void FormulaWidget::keyPressEvent(QKeyEvent* event) {
    const bool moves = event->text().isEmpty() && event->key() != Qt::Key_Delete;
    if (moves || event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        QTextEdit::keyPressEvent(event);
        return;
    }
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    QTextEdit::keyPressEvent(event);
    cursor.endEditBlock();
    ensureCursorVisible();
}

bool FormulaWidget::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText() || !FormulaOf(*source).empty();
}

void FormulaWidget::insertFromMimeData(const QMimeData* source) {
    if (const platform::RichText text = FormulaOf(*source); !text.empty()) {
        PasteFormula(textCursor(), text);
        ensureCursorVisible();
    }
}

}  // namespace qt
