// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/property.h"

namespace platform {

class Control;
class Form;

/// Draws one control: carries everything over each time it hears that the control changed.
class View {
  public:
    virtual ~View() = default;
    virtual void ControlChanged() = 0;
};

enum class Colour { Text, Warning };
enum class Align { Left, Right, Centre };

/// A font as a window's design names it. An empty name and a size of 0 stand for the desktop's own.
struct Font {
    std::string Name = {};
    double Size = 0;  // points
    bool Bold = false;
    bool operator==(const Font&) const = default;
};

/// Design-time properties, for every type of control: each takes what it knows. Geometry in twips.
/// Left and Top count from the container's client area.
struct Design {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    std::string Caption = {};
    std::string Text = {};
    std::string Tag = {};
    std::string ToolTipText = {};
    bool Visible = true;
    bool Enabled = true;
    bool Locked = false;
    bool MultiLine = false;
    bool MultiSelect = false;
    bool Checkboxes = false;
    bool Default = false;
    bool Cancel = false;
    int Value = 0;
    int Style = 0;
    std::string Picture = {};
    std::string Shortcut = {};
    std::string DataField = {};
    platform::Font Font = {};
    Colour ForeColor = Colour::Text;
    Align Alignment = Align::Left;
    Control* Container = nullptr;
    int Page = 0;  // of a container that has pages
};

/// A control of a window: the model that the logic works on. It lives as long as its window, and an unload
/// brings it back to its design-time state.
///
/// Of the controls that stand at one place of a container, the first declared one that is visible lies on
/// top: see Covered.
class Control : public PropertyOwner {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control() override;

    /// Class name as the control's type reports it ("TextBox").
    virtual std::string_view TypeName() const = 0;
    const std::string& Name() const { return name_; }
    /// Place in its control array; -1 for a single control.
    int Index() const { return index_; }
    /// Name for the screen and for tests: "cmdStäng", "optSökaI(2)".
    std::string FullName() const;
    Form& Parent() const { return parent_; }
    Control* Container() const { return container_; }
    /// The page of its container that it lies on, where that has pages.
    int Page() const { return page_; }

    Property<int> Left, Top, Width, Height;
    Property<bool> Visible, Enabled;
    Property<std::string> Tag, ToolTipText;
    Property<platform::Font> Font;
    Property<Colour> ForeColor;

    /// For the text binding, which knows controls by their type name only. Error 438 on a control that has
    /// no such property.
    virtual void SetCaption(const std::string& text);
    virtual void SetToolTipText(const std::string& text);
    /// The caption that a reader of the screen should hear; empty when it has none of its own.
    virtual std::string CaptionText() const { return {}; }

    /// Whether a control that lies on this one is seen as far as this one is: not on a page that is closed.
    virtual bool Shows(const Control& content) const { return (void)content, true; }
    /// Whether the control takes the keyboard's focus at all.
    virtual bool TakesFocus() const { return false; }
    /// Visible and enabled, and every container of it too.
    bool CanFocus() const;
    /// Whether the control, or a container of it, lies wholly under a visible one of the same container that
    /// is declared before it: nobody sees it.
    bool Covered() const;
    /// What the user does gets to the control. Code isn't bound by Covered.
    bool Reachable() const { return CanFocus() && !Covered(); }
    /// Makes this the window's active control. Error 5 when it can't have the focus.
    void SetFocus();
    std::function<void()> GotFocus, LostFocus;

    /// What the view calls when the user has moved the focus here.
    void InputFocus();

    void Attach(View* view) { view_ = view; }
    View* AttachedView() const { return view_; }
    void PropertyChanged(const PropertyBase& property) override;
    /// Back to the design-time state, at an unload.
    virtual void Reset();

    /// What the window does with an Enter that no default button takes; false when nothing.
    virtual bool Press() { return false; }
    /// True when the control needs the Enter key for itself.
    virtual bool WantsEnter() const { return false; }
    /// A key goes down while the control has the focus, after the window has had it: its code and the shift
    /// state (1 Shift, 2 Ctrl, 4 Alt). A code set to 0 consumes the key.
    std::function<void(int&, int)> KeyDown;
    /// A character for this control, after the window has had it; 0 in it consumes the key.
    virtual void RaiseKeyPress(int& KeyAscii) { (void)KeyAscii; }

  protected:
    Control(Form& parent, std::string name, const Design& design, int index = -1);
    void Notify();
    /// Raises an event that may not be bound.
    template <class... Args>
    static void Raise(const std::function<void(Args...)>& event, Args... args) {
        if (event) {
            event(args...);
        }
    }

  private:
    friend class Form;
    bool Covers(const Control& other) const;
    Form& parent_;
    std::string name_;
    int index_;
    Control* container_;
    int page_;
    View* view_ = nullptr;
};

/// A control array: controls of one name, told apart by their index, which each event hands on.
template <class T>
class ControlArray {
  public:
    struct Member {
        int Index;
        Design Properties;
    };

    ControlArray(Form& parent, const std::string& name, const std::vector<Member>& members) {
        for (const Member& member : members) {
            controls_.push_back(std::make_unique<T>(parent, name, member.Properties, member.Index));
        }
    }

    /// The control with this index; there must be one.
    T& operator()(int index) const {
        for (const auto& control : controls_) {
            if (control->Index() == index) {
                return *control;
            }
        }
        std::terminate();
    }
    auto begin() const { return controls_.begin(); }
    auto end() const { return controls_.end(); }

    /// Binds one handler, which gets the index, to the named event of every member.
    void Bind(std::function<void()> T::*event, const std::function<void(int)>& handler) {
        for (const auto& control : controls_) {
            (*control).*event = [handler, index = control->Index()] { handler(index); };
        }
    }

  private:
    std::vector<std::unique_ptr<T>> controls_;
};

}  // namespace platform
