// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPalette>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/forms/control.h"

class QEvent;

namespace qt {

class FormWindow;

/// The view of one control. A change of the control only marks it; its window carries all changes over at
/// once. It holds no state that the control doesn't have.
class Adapter : public platform::View {
  public:
    Adapter(FormWindow& window, platform::Control& control);
    Adapter(const Adapter&) = delete;
    Adapter& operator=(const Adapter&) = delete;

    platform::Control& Model() const { return control_; }
    FormWindow& Window() const { return window_; }
    void ControlChanged() final;
    /// Brings the screen to the state of the control.
    virtual void Carry() = 0;
    /// Null for what has no place of its own in the window.
    virtual QWidget* Widget() const { return nullptr; }
    /// The widget in which what lies on this control lies.
    virtual QWidget* Content(const platform::Control& control) const { return (void)control, Widget(); }
    /// The control is about to go: nothing may ask it any more.
    virtual void Release();
    /// An event of the widget before the widget has it; true when the widget must not have it.
    virtual bool Filter(QEvent& event);

    /// Whether the change has been marked and not yet carried over.
    bool Marked = false;

  protected:
    /// Connections to the widget end with the adapter, which goes before the widget does.
    const QObject* Context() const { return &context_; }
    /// For each signal of the widget that says what has changed, whether by mouse, key or accessibility
    /// interface: `input` tells the control, and the widget then shows what the control has made of it. The
    /// echo of a change of the control is no input. Whoever calls an accessibility interface isn't kept
    /// waiting for the windows that open upon it: what he has done is the next event.
    void Report(const std::function<void()>& input);

  private:
    FormWindow& window_;
    platform::Control& control_;
    QObject context_;
};

/// The view of a control with a widget: place, font, colour, tool tip and enabled are alike for all. The
/// window shows and hides the widget, since that depends on its neighbours, too.
class WidgetAdapter : public Adapter {
  public:
    WidgetAdapter(FormWindow& window, platform::Control& control, QWidget* widget);
    QWidget* Widget() const final { return widget_; }
    void Carry() final;

  protected:
    virtual void CarryOwn() = 0;

  private:
    QWidget* widget_;  // its Qt parent owns it
};

/// The view of a control; null for a type that isn't seen.
std::unique_ptr<Adapter> MakeAdapter(FormWindow& window, platform::Control& control);
/// The adapter that draws the control; null when there is none.
Adapter* AdapterOf(const platform::Control& control);
/// The widget in which the control's own widget lies.
QWidget* ParentOf(const FormWindow& window, const platform::Control& control);

}  // namespace qt
