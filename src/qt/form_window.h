// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/forms/form.h"
#include "qt/adapter.h"
#include "qt/scale.h"

class QKeyEvent;
class QMenuBar;
class QScrollArea;

namespace qt {

/// The window of one form, from its show to its unload.
///
/// What the user does goes to the form through Input; what the form changes is marked and carried over at
/// once before the window system gets its next turn, or by Flush.
class FormWindow final : public QWidget, public platform::FormView {
  public:
    /// `activated` is called when the window has become the active one.
    FormWindow(platform::Form& form, std::function<void()> activated);
    ~FormWindow() override;

    platform::Form& Model() const { return form_; }
    QWidget* Canvas() const { return canvas_; }
    QMenuBar* MenuBar() const { return bar_; }
    const Scale& Measure() const { return scale_; }

    /// Puts the window on the screen, above its owner if it has one, and makes it the active one.
    void Present(QWidget* owner, bool modal);
    /// Tells the form that its window is active now, as the next event.
    void QueueActivate();
    /// Moves the keyboard to the form's active control.
    void FocusActive();
    /// Cuts the window off from its form, which may be gone from now on.
    void Detach();
    bool Live() const { return live_; }

    void FormChanged() override;
    void Mark(Adapter& adapter);
    /// What other controls are called after has changed.
    void NamesChanged() { namesDue_ = true; }
    /// Carries over all that is marked.
    void Flush();
    /// True while the widgets are being brought to the form's state: nothing they say is the user's.
    bool Flushing() const { return flushing_; }

    /// Runs what the user has done, unless it is but the echo of a change of the form.
    template <class F>
    void Input(F&& event) {
        if (live_ && !flushing_) {
            DeliverActivate();
            if (live_) {
                event();
            }
        }
    }

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void MakeWidgets();
    void CarryForm();
    void CarryVisible();
    void MarkAll();
    void PostFlush();
    void DeliverActivate();

    // Focus and keys: form_window_input.cpp.
    Adapter* FocusedAdapter() const;
    void SettleFocus(bool idle);
    void Follow(const QWidget& widget);
    bool FocusIn(Adapter& adapter, Qt::FocusReason reason);
    bool KeyPressed(const QKeyEvent& event);
    bool MenuKey(const QKeyEvent& event);

    // Size and scale: form_window_size.cpp.
    int BarHeight(int width) const;
    QSize Room(const QWidget* owner) const;
    void SizeForDesign(const QWidget* owner);
    void Rescale();
    void ReportSize();

    platform::Form& form_;
    std::function<void()> activated_;
    Scale scale_;
    QScrollArea* scroll_;
    QWidget* canvas_;
    QMenuBar* bar_ = nullptr;
    std::vector<std::unique_ptr<Adapter>> adapters_;
    QHash<const QObject*, Adapter*> byWidget_;

    std::vector<Adapter*> marked_;
    bool formMarked_ = true;
    bool namesDue_ = true;
    bool flushPosted_ = false;
    bool flushing_ = false;

    bool live_ = true;
    bool presented_ = false;
    bool activateDue_ = false;
    bool sizing_ = false;
    int reportedState_ = platform::vbNormal;
    // The key that the form has seen already, should it come up from a control.
    const QKeyEvent* seenKey_ = nullptr;
    quint64 seenAt_ = 0;
};

}  // namespace qt
