// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// What comes from the user: focus and keys.

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>

#include "qt/form_window.h"
#include "qt/keys.h"

namespace qt {

namespace {

// Brings the stretch into sight; of one that is longer than the room its beginning.
void Reveal(QScrollBar& bar, int from, int length) {
    constexpr int kAir = 8;
    const int room = bar.pageStep();
    if (from < bar.value() || length > room) {
        bar.setValue(from - kAir);
    } else if (from + length > bar.value() + room) {
        bar.setValue(from + length + kAir - room);
    }
}

}  // namespace

// --- focus ---

Adapter* FormWindow::FocusedAdapter() const {
    return byWidget_.value(focusWidget(), nullptr);
}

void FormWindow::FocusActive() {
    const platform::Control* const active = form_.ActiveControl();
    const Adapter* const adapter = active != nullptr ? AdapterOf(*active) : nullptr;
    if (adapter != nullptr && adapter->Widget() != nullptr) {
        adapter->Widget()->setFocus(Qt::OtherFocusReason);
    }
}

// A focused widget that is disabled or hidden loses the focus to the next one by the window system's choice,
// be it the button that deletes or closes. The form decides where it is; where the form's own choice can't
// have it, it begins anew.
void FormWindow::SettleFocus(bool idle) {
    Adapter* const focused = FocusedAdapter();
    if (!presented_ || (focused == nullptr && focusWidget() != nullptr && focusWidget()->isVisible())) {
        return;  // in the menu bar
    }
    const platform::Control* const active = form_.ActiveControl();
    if (active != nullptr && active->Reachable()) {
        if (focused == nullptr || &focused->Model() != active) {
            FocusActive();
        }
    } else if (idle && focused != nullptr && isActiveWindow()) {
        platform::Control* const first = form_.FirstReachable();
        Input([&] { (first != nullptr ? *first : focused->Model()).InputFocus(); });
        FocusActive();
    }
}

// F10 opens the menu, as Alt alone does by the style.
bool FormWindow::MenuKey(const QKeyEvent& event) {
    if (event.key() != Qt::Key_F10 || event.modifiers() != Qt::NoModifier || bar_ == nullptr ||
        bar_->actions().isEmpty()) {
        return false;
    }
    bar_->setFocus(Qt::MenuBarFocusReason);
    bar_->setActiveAction(bar_->actions().front());
    return true;
}

// Scrolls to where the keyboard is: in a list its current row, as the list itself may be higher than the
// room.
void FormWindow::Follow(const QWidget& widget) {
    const QPoint corner = widget.mapTo(canvas_, QPoint());
    QRect place(corner, widget.size());
    const auto* const list = qobject_cast<const QAbstractItemView*>(&widget);
    if (list != nullptr && list->currentIndex().isValid() && place.height() > scroll_->viewport()->height()) {
        const QRect row = list->visualRect(list->currentIndex());
        place.setTop(list->viewport()->mapTo(canvas_, row.topLeft()).y());
        place.setHeight(row.height());
    }
    Reveal(*scroll_->horizontalScrollBar(), place.left(), place.width());
    Reveal(*scroll_->verticalScrollBar(), place.top(), place.height());
}

bool FormWindow::FocusIn(Adapter& adapter, Qt::FocusReason reason) {
    platform::Control& control = adapter.Model();
    if (reason == Qt::ActiveWindowFocusReason && form_.ActiveControl() == &control) {
        return false;
    }
    Input([&control] { control.InputFocus(); });
    if (live_ && reason != Qt::MouseFocusReason && adapter.Widget() != nullptr) {
        Follow(*adapter.Widget());
    }
    // The form may have led the focus on: this widget must not believe that it has it.
    return !live_ || (!flushing_ && FocusedAdapter() != &adapter);
}

// A control that lies outside waits for the window to be made larger: Tab passes it by.
bool FormWindow::focusNextPrevChild(bool next) {
    const QWidget* const first = focusWidget();
    do {
        if (!QWidget::focusNextPrevChild(next)) {
            return false;
        }
    } while (focusWidget() != nullptr && focusWidget() != first && focusWidget()->visibleRegion().isEmpty());
    return true;
}

// --- keys and the rest of what its widgets are sent ---

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (!live_) {
        return false;
    }
    if (watched == canvas_) {
        if (event->type() == QEvent::Resize) {
            ReportSize();
        }
        return false;
    }
    Adapter* const adapter = byWidget_.value(watched, nullptr);
    if (adapter == nullptr) {
        return false;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        adapter->Widget()->update();  // the frame of a list or a text tells it, too
    }
    if (event->type() == QEvent::FocusIn) {
        // Where the keyboard is shows at once, not only after the first Tab.
        setAttribute(Qt::WA_KeyboardFocusChange);
        return FocusIn(*adapter, static_cast<QFocusEvent*>(event)->reason());
    }
    if (event->type() == QEvent::KeyPress && watched == focusWidget()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (KeyPressed(*key)) {
            return true;
        }
        seenKey_ = key;
        seenAt_ = key->timestamp();
    }
    return adapter->Filter(*event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    const bool seen = event == seenKey_ && event->timestamp() == seenAt_;
    if (seen || !KeyPressed(*event)) {
        QWidget::keyPressEvent(event);
    }
}

bool FormWindow::KeyPressed(const QKeyEvent& event) {
    const int key = event.key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
        return false;
    }
    const int code = KeyCode(event);
    if (event.isAutoRepeat() && (code == platform::key::Return || code == platform::key::Escape)) {
        return true;  // a key held down too long must not answer the window that it has opened
    }
    bool used = false;
    Input([&] { used = form_.InputKey(code, ShiftState(event), Character(event)); });
    return used || !live_ || MenuKey(event);
}

}  // namespace qt
