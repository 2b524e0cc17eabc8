// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHeaderView>

#include "platform/forms/list_view.h"

namespace qt {

/// The headings of a list: as the window system draws them, with the sort picture behind the text.
class ListHeader final : public QHeaderView {
  public:
    ListHeader(const platform::ListView& list, QWidget* parent);
    void Detach() { list_ = nullptr; }

    /// Width in pixels that the heading needs in full: margins, picture, text and sort picture.
    int NeededWidth(int section) const;

  protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

  private:
    QString SortPicture(int section) const;
    int SortPictureSize() const;

    const platform::ListView* list_;
};

}  // namespace qt
