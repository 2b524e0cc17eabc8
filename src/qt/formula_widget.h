// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFont>
#include <QWidget>

#include "platform/richtext/richtext.h"

namespace qt {

/// Draws a text with lowered and raised pieces in a frame like that of a text box.
class FormulaWidget final : public QWidget {
  public:
    using QWidget::QWidget;

    /// The padding is the free space around the text in pixels.
    void Show(const platform::RichText& content, int padding);
    const platform::RichText& Content() const { return content_; }
    /// Width in pixels of the widest line.
    int ContentWidth() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

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

    platform::RichText content_;
    int padding_ = 0;
};

}  // namespace qt
