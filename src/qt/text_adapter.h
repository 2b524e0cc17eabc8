// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <optional>

#include "platform/forms/text_box.h"
#include "qt/adapter.h"

class QLineEdit;
class QPlainTextEdit;

namespace qt {

/// A text box of one line or of several. The lines of the latter end in "\r\n" for the windows.
class TextBoxAdapter final : public WidgetAdapter {
  public:
    TextBoxAdapter(FormWindow& window, platform::TextBox& box);
    bool Filter(QEvent& event) override;

  protected:
    void CarryOwn() override;

  private:
    void Edited();
    void CarryText(const QString& text);
    void CarryLocked();
    void CarrySelection(const QString& text);
    /// Tells the model where the caret and the selection are, which is no event of the window.
    void Mirror();
    void MirrorSelection();
    QString Shown() const;
    std::pair<int, int> ShownSelection() const;  // start and length, UTF-16

    platform::TextBox& box_;
    QLineEdit* line_;  // one of the two is null
    QPlainTextEdit* area_;
    std::optional<QPoint> focusClick_;  // where the press was that brought the focus, until the release
};

}  // namespace qt
