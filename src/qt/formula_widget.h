// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QTextEdit>

#include "platform/richtext/richtext.h"

namespace qt {

/// A formula in a frame like that of a text box: drawn when it is only read, and edited on one line
/// otherwise. Its document holds the formula in either case, for screen readers and the caret.
class FormulaWidget final : public QTextEdit {
  public:
    explicit FormulaWidget(QWidget* parent);

    /// What is drawn in reading. The padding is the free space around the text in pixels.
    void Show(const platform::RichText& content, int padding);
    void SetEditable(bool editable);
    /// Puts the line that is edited where it is drawn in reading, to be called when its height may have
    /// changed.
    void PlaceLine();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    struct Piece {
        QString Text;
        platform::Run::Height Position;
    };
    using Line = QList<Piece>;
    QList<Line> Lines() const;
    QFont FontAt(platform::Run::Height position) const;
    int ShiftOf(platform::Run::Height position) const;
    int WidthOf(const Line& line) const;
    QStyleOptionFrame FrameOption() const;
    int Baseline(int top, int height, int lines) const;
    void DrawFormula();

    platform::RichText content_;
    int padding_ = 0;
};

}  // namespace qt
