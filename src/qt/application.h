// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>
#include <QScopedValueRollback>

namespace qt {

/// The window system's application. It knows what comes from the user's hand, so that what comes by another
/// way, through an accessibility interface, can be told from it.
class Application final : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

    /// Whether a key, a click or the like is being delivered. Whoever else calls waits for an answer.
    static bool InUserEvent() { return inUserEvent_; }
    /// For a modal loop: what happens in it is no part of the event that has opened it.
    [[nodiscard]] static QScopedValueRollback<bool> EnterLoop() {
        return QScopedValueRollback<bool>(inUserEvent_, false);
    }

    /// While it lives, whatever the user does is dropped.
    [[nodiscard]] static QScopedValueRollback<bool> TurnDeaf() {
        return QScopedValueRollback<bool>(deaf_, true);
    }
    static bool IsDeaf() { return deaf_; }

  private:
    // The window system has threads of its own, with events of theirs.
    static inline thread_local bool inUserEvent_ = false;
    static inline thread_local bool deaf_ = false;
};

}  // namespace qt
