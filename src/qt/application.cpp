// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/application.h"

#include <QEvent>

namespace qt {

bool Application::notify(QObject* receiver, QEvent* event) {
    const QScopedValueRollback<bool> guard(inUserEvent_);
    const QEvent::Type type = event->type();
    const bool input = event->isInputEvent() || type == QEvent::Shortcut || type == QEvent::InputMethod;
    if (deaf_ && (input || type == QEvent::Close)) {
        event->setAccepted(type != QEvent::Close);
        return true;
    }
    if (input) {
        inUserEvent_ = true;
    } else if (type == QEvent::MetaCall) {
        inUserEvent_ = false;  // a call from outside, in a loop that a key or a click has opened
    }
    return QApplication::notify(receiver, event);
}

}  // namespace qt
