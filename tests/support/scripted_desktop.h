// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/forms/desktop.h"
#include "platform/forms/form.h"

namespace test {

/// A desktop without a display. It answers message boxes from a queue, does what the test wants while a modal
/// window is up, and records everything. Its end fails the test when a box was shown that nobody looked at,
/// or when something that was queued never came to its turn.
class ScriptedDesktop final : public platform::Desktop {
  public:
    ~ScriptedDesktop() override;

    /// Queues what the user does while the next modal window is up: it must be a Window, and the piece must
    /// close it or end the program.
    template <class Window>
    void WhileModal(std::function<void(Window&)> piece) {
        pieces_.push_back([piece = std::move(piece)](platform::Form& form) {
            auto* window = dynamic_cast<Window*>(&form);
            if (window == nullptr) {
                ADD_FAILURE() << "Another window is up: " << form.Name();
                return;
            }
            piece(*window);
        });
    }
    /// Answers of the boxes to come that have a choice; a box without one is always answered with OK.
    std::deque<int> Answers;
    /// What the user types into the input boxes to come.
    std::deque<std::string> Typed;

    /// What the test looks at while an event that runs lets the windows paint.
    std::function<void()> OnPaint = [] {};
    bool HasSystemInformation = true;

    /// The boxes shown since the last call, each as "[flags title] text"; the title is "-" where none was
    /// given. The description in an error report, one sentence in parentheses, reads "(…)".
    std::vector<std::string> TakeBoxes() { return std::exchange(boxes_, {}); }
    /// What happened, in order, and of it what begins with a word.
    std::vector<std::string> Log;
    std::vector<std::string> Logged(std::string_view word) const;

    int MsgBox(const std::string& text, int flags, const std::optional<std::string>& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
    void Show(platform::Form& form, bool modal, platform::Form* owner) override;
    void Closed(platform::Form& form) override { Log.push_back("closed " + form.Name()); }
    void Focus(platform::Control& control) override { Log.push_back("focus " + control.FullName()); }
    void Beep() override { Log.push_back("beep"); }
    void MousePointer(int shape) override { Log.push_back("pointer " + std::to_string(shape)); }
    void ClipboardClear() override { Log.emplace_back("clipboard cleared"); }
    void ClipboardSetText(const std::string& text) override { Log.push_back("clipboard " + text); }
    bool OpenWebPage(const std::string& address) override;
    int TextWidth(const platform::Font& font, const std::string& text) const override;
    bool OpenSystemInformation() override { return HasSystemInformation; }
    void Paint() override { OnPaint(); }

  protected:
    void Quit() override { Log.push_back("quit"); }

  private:
    std::vector<std::string> boxes_;
    std::deque<std::function<void(platform::Form&)>> pieces_;
};

}  // namespace test
