// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The size of a window and the scale that its places are drawn to.

#include <QLayout>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "qt/form_window.h"

namespace qt {

int FormWindow::BarHeight(int width) const {
    return bar_ != nullptr ? bar_->heightForWidth(width) : 0;
}

/// How large the window's inside may be on its screen.
QSize FormWindow::Room(const QWidget* owner) const {
    const QScreen* const screen = owner != nullptr ? owner->screen() : this->screen();
    return screen->availableGeometry().size() -
           QSize(scale_.Px(form_.FrameWidth()), scale_.Px(form_.FrameHeight()));
}

void FormWindow::SizeForDesign(const QWidget* owner) {
    const platform::FormDesign& design = form_.DesignState();
    QSize client(scale_.Px(form_.ClientWidth()), scale_.Px(form_.ClientHeight()));
    const QSize room = Room(owner);
    const QSize whole(client.width(), client.height() + BarHeight(client.width()));
    const QSize least(scale_.Px(design.ClientWidth), scale_.Px(design.ClientHeight));
    scroll_->setWidgetResizable(design.Sizable);
    if (!design.Sizable) {
        canvas_->setFixedSize(client);
        if (whole.boundedTo(room) == whole) {
            setFixedSize(whole);
        } else {
            const int bar = scroll_->verticalScrollBar()->sizeHint().width();
            setMinimumSize(0, 0);
            setMaximumSize(whole + QSize(bar, bar));
            resize(maximumSize().boundedTo(room));
        }
        return;
    }
    // On a screen that is too small for what it was drawn for, it isn't made smaller than that.
    canvas_->setMinimumSize(least.boundedTo(room) == least ? QSize(0, 0) : least);
    constexpr int kLeastWidth = 3600;
    constexpr int kLeastHeight = 2700;
    const int leastWidth = scale_.Px(std::min(design.ClientWidth, kLeastWidth));
    setMinimumSize(leastWidth,
                   scale_.Px(std::min(design.ClientHeight, kLeastHeight)) + BarHeight(leastWidth));
    client = client.boundedTo(room);
    resize(client.width(), client.height() + BarHeight(client.width()));
    canvas_->resize(client);  // at once: the area around it would do so as it is shown
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
