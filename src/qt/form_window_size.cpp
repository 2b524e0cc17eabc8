// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The size of a window and the scale that its places are drawn to.

#include <QLayout>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

#include "qt/form_window.h"

namespace qt {

int FormWindow::BarHeight(int width) const {
    return bar_ != nullptr ? bar_->heightForWidth(width) : 0;
}

void FormWindow::SizeForDesign(const QWidget* owner) {
    const platform::FormDesign& design = form_.DesignState();
    QSize client(scale_.Px(form_.ClientWidth()), scale_.Px(form_.ClientHeight()));
    if (!design.Sizable) {
        setFixedSize(client.width(), client.height() + BarHeight(client.width()));
        return;
    }
    constexpr int kLeastWidth = 3600;
    constexpr int kLeastHeight = 2700;
    const int leastWidth = scale_.Px(std::min(design.ClientWidth, kLeastWidth));
    setMinimumSize(leastWidth,
                   scale_.Px(std::min(design.ClientHeight, kLeastHeight)) + BarHeight(leastWidth));
    const QScreen* const screen = owner != nullptr ? owner->screen() : this->screen();
    const QSize room = screen->availableGeometry().size() -
                       QSize(scale_.Px(form_.FrameWidth()), scale_.Px(form_.FrameHeight()));
    client = client.boundedTo(room);
    resize(client.width(), client.height() + BarHeight(client.width()));
}

void FormWindow::Rescale() {
    scale_ = Scale::OfDesktop();
    if (!live_) {
        return;
    }
    MarkAll();
    Flush();
    if (presented_) {
        {
            // Least size, size and menu bar change one by one: only what comes out is a resize.
            const QScopedValueRollback<bool> guard(sizing_, true);
            if (!isMaximized() && !isFullScreen()) {
                SizeForDesign(this);
            }
            layout()->activate();
        }
        ReportSize();
    }
}

void FormWindow::ReportSize() {
    if (!presented_ || !live_ || sizing_) {
        return;
    }
    const int state = isMinimized()                     ? platform::vbMinimized
                      : isMaximized() || isFullScreen() ? platform::vbMaximized
                                                        : platform::vbNormal;
    // A size that is still the form's own in pixels is handed back to the twip.
    const QSize client = canvas_->size();
    const int width = client.width() == scale_.Px(form_.ClientWidth())
                          ? form_.Width()
                          : scale_.Twips(client.width()) + form_.FrameWidth();
    const int height = client.height() == scale_.Px(form_.ClientHeight())
                           ? form_.Height()
                           : scale_.Twips(client.height()) + form_.FrameHeight();
    if (width == form_.Width() && height == form_.Height() && state == reportedState_) {
        return;
    }
    reportedState_ = state;
    Input([&] { form_.InputResize(width, height, state); });
    Flush();
}

}  // namespace qt
