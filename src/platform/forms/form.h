// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/buttons.h"
#include "platform/forms/captions.h"
#include "platform/forms/desktop.h"
#include "platform/forms/formula_box.h"
#include "platform/forms/list_view.h"
#include "platform/forms/lists.h"
#include "platform/forms/menu.h"
#include "platform/forms/pictures.h"
#include "platform/forms/rich_text_box.h"
#include "platform/forms/static.h"
#include "platform/forms/tabs.h"
#include "platform/forms/text_box.h"

namespace platform {

enum WindowState { vbNormal = 0, vbMinimized = 1, vbMaximized = 2 };
inline constexpr int vbModal = 1;
inline constexpr int vbModeless = 0;

/// Keys, as the codes that the key events hand on.
namespace key {
inline constexpr int Return = 13;
inline constexpr int Alt = 18;
inline constexpr int Escape = 27;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int F1 = 112;
}  // namespace key

/// The bits of a key event's shift state.
namespace shift {
inline constexpr int Shift = 1;
inline constexpr int Ctrl = 2;
inline constexpr int Alt = 4;
}  // namespace shift

/// Design-time properties of a window. Sizes are those of the client area, in twips.
struct FormDesign {
    std::string Caption = {};
    std::string Tag = {};
    int ClientWidth = 0;
    int ClientHeight = 0;
    bool KeyPreview = false;
    bool Sizable = false;
    std::string Icon = {};
};

/// Draws one window.
class FormView {
  public:
    virtual ~FormView() = default;
    virtual void FormChanged() = 0;
};

/// A window without its widgets: one object for the whole run.
///
/// Load brings it up in its design-time state and runs Form_Load; an unload runs Form_Unload and brings
/// controls and Statics back. Plain members of a window outlive its unloads.
class Form : public PropertyOwner {
  public:
    Form(Desktop& desktop, std::string name, FormDesign design);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    ~Form() override;

    const std::string& Name() const { return name_; }
    Desktop& Screen() const { return desktop_; }
    const FormDesign& DesignState() const { return design_; }

    Property<std::string> Caption, Tag, Icon;
    /// What a reader of the screen calls the window, where its caption doesn't say enough.
    Property<std::string> SpokenName;
    Property<platform::Font> Font;
    Property<int> ScaleMode;  // 1 twips
    /// Outer size in twips: the client area, 120 more in width, 390 in height, and 285 with a menu bar.
    int Width() const { return width_; }
    int Height() const { return height_; }
    int ClientWidth() const { return width_ - FrameWidth(); }
    int ClientHeight() const { return height_ - FrameHeight(); }
    int FrameWidth() const { return 120; }
    int FrameHeight() const { return HasMenu() ? 390 + 285 : 390; }
    bool HasMenu() const;
    int WindowState() const { return windowState_; }

    /// The controls in the order of their declaration.
    const std::vector<Control*>& Controls() const { return controls_; }
    /// Null when there is no such control.
    Control* ControlNamed(const std::string& fullName) const;
    Control* ActiveControl() const { return active_; }
    /// The first control that the user could put the focus on; null when there is none.
    Control* FirstReachable() const;
    int TextWidth(const std::string& text) const { return desktop_.TextWidth(Font, text); }

    bool IsLoaded() const { return loaded_; }
    /// Brings the window up without showing it; nothing when it is loaded.
    void Load();
    /// Loads if need be and shows. With vbModal the call returns when the window has been unloaded.
    void Show(int modal = vbModeless, Form* owner = nullptr);
    /// Nothing when the window isn't loaded.
    void Unload();

    // --- what the desktop calls when the user does something; each is an event of its own ---
    void InputActivate();
    /// The user has given the window another outer size (twips) or state.
    void InputResize(int width, int height, int state = vbNormal);
    void InputClose();
    /// A key goes down. `shift`: 1 Shift, 2 Ctrl, 4 Alt. `character` is the code point it types, 0 for none.
    /// True when the key has been used up and the control must not see it.
    bool InputKey(int keyCode, int shift = 0, int character = 0);

    void Attach(FormView* view) { view_ = view; }
    void PropertyChanged(const PropertyBase& property) override;

  protected:
    /// Gives a control its place in the order right before another one: the order of the Tab key.
    void PutBefore(Control& control, const Control& other);

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual void Form_KeyDown(int& KeyCode, int Shift) { (void)KeyCode, (void)Shift; }
    virtual void Form_KeyPress(int& KeyAscii) { (void)KeyAscii; }
    virtual void Form_Unload() {}

  private:
    friend class Control;
    template <class T>
    friend class Static;
    void SetActive(Control& control);
    bool DialogKey(int keyCode);
    bool HelpKey(int keyCode, int shift);
    bool PageKey(int keyCode, int shift);
    void FollowPage(SSTab& tabs);
    bool MenuShortcut(int keyCode, int shift);

    Desktop& desktop_;
    std::string name_;
    FormDesign design_;
    std::vector<Control*> controls_;
    std::vector<std::function<void()>> statics_;
    FormView* view_ = nullptr;
    Control* active_ = nullptr;
    bool loaded_ = false;
    bool unloading_ = false;
    int width_;
    int height_;
    int windowState_ = vbNormal;
};

template <class T>
Static<T>::Static(Form& parent, T first) : first_(first), value_(first) {
    parent.statics_.push_back([this] { value_ = first_; });
}

}  // namespace platform
