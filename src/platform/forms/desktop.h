// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <string>

namespace platform {

class Control;
class Form;
struct Font;

/// Flags of a message box, as the numbers of the system: an icon plus the buttons.
namespace msg {
inline constexpr int OkOnly = 0;
inline constexpr int Critical = 16;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int YesNoDefaultNo = 292;  // Yes and No, question icon, No as default
inline constexpr int AnswerOk = 1;
inline constexpr int AnswerYes = 6;
inline constexpr int AnswerNo = 7;
}  // namespace msg

/// Shapes of the screen's mouse pointer.
namespace pointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
}  // namespace pointer

/// Thrown through whatever is still running once the program has ended; caught at the edge only.
struct ProgramEnded {};

/// All that a window may ask of the world around it.
///
/// The edge is here too: every event of the user enters through Event, which lets no failure travel on.
class Desktop {
  public:
    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    /// A modal message box; returns the answer (msg::Answer...). Without a title it bears the program's name.
    virtual int MsgBox(const std::string& text, int flags = msg::OkOnly,
                       const std::optional<std::string>& title = std::nullopt) = 0;
    /// A modal box that asks for one line of text; empty when it is cancelled.
    virtual std::string InputBox(const std::string& prompt, const std::string& title) = 0;
    /// Shows the loaded window. A modal one runs its own event loop: the call returns when the window is
    /// unloaded. The desktop resizes and activates the window through its Input functions.
    virtual void Show(Form& form, bool modal, Form* owner) = 0;
    /// The window has been unloaded: its view goes, and a modal Show returns.
    virtual void Closed(Form& form) = 0;
    /// Moves the keyboard's focus to the view of the control that the window has just made its active one.
    virtual void Focus(Control& control) = 0;
    virtual void Beep() = 0;
    virtual void MousePointer(int shape) = 0;
    virtual void ClipboardClear() = 0;
    virtual void ClipboardSetText(const std::string& text) = 0;
    /// Hands an address, or the path of a page on this machine, to the default browser; false when there is
    /// none.
    virtual bool OpenWebPage(const std::string& address) = 0;
    /// Starts the system's own tool that tells of the machine; false when there is none.
    virtual bool OpenSystemInformation() = 0;
    /// Width of one line of text in twips.
    virtual int TextWidth(const Font& font, const std::string& text) const = 0;
    /// Puts what has changed on the screen now, while the running event keeps the windows from doing it. What
    /// the user does meanwhile is dropped.
    virtual void Paint() = 0;

    /// Runs one event. A failure that nobody guarded is shown with number and description, and the program
    /// ends in order. Once the program has ended, no event runs any more.
    void Event(const std::function<void()>& handler);
    /// Ends the program: AtEnd, then all event loops.
    void End();
    bool Ended() const { return ended_; }
    /// What F1 does in any window.
    std::function<void()> Help;
    /// What has to be put in order at an end that no window has asked for: the database.
    std::function<void()> AtEnd;

  protected:
    /// Stops the event loops; called once.
    virtual void Quit() = 0;

  private:
    bool ended_ = false;
};

}  // namespace platform
