// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/desktop.h"
#include "qt/language.h"

class QDialog;
class QEventLoop;

namespace qt {

class FormWindow;

/// The desktop on the window system. There must be a QApplication as long as it lives.
class QtDesktop final : public platform::Desktop {
  public:
    /// `language` names the program's language at the time that it is asked: "Svenska", "English",
    /// "Deutsch", or nothing while there is none.
    explicit QtDesktop(std::function<std::string()> language);
    ~QtDesktop() override;

    /// Runs until the last window is gone or the program ends. The exit status.
    int Run();
    /// Brings all windows to the state of their forms.
    void Flush();

    int MsgBox(const std::string& text, int flags, const std::optional<std::string>& title) override;
    std::string InputBox(const std::string& prompt, const std::string& title) override;
    void Show(platform::Form& form, bool modal, platform::Form* owner) override;
    void Closed(platform::Form& form) override;
    void Focus(platform::Control& control) override;
    void Beep() override;
    void MousePointer(int shape) override;
    void ClipboardClear() override;
    void ClipboardSetText(const std::string& text) override;
    bool OpenWebPage(const std::string& address) override;
    bool OpenSystemInformation() override;
    int TextWidth(const platform::Font& font, const std::string& text) const override;
    void Paint() override;

  protected:
    void Quit() override;

  private:
    // A window may be closed out of one of its own events: it goes when that is over.
    struct DeleteLater {
        void operator()(FormWindow* window) const;
    };
    using WindowPtr = std::unique_ptr<FormWindow, DeleteLater>;
    struct ModalLoop {
        const platform::Form* Form;
        QEventLoop* Loop;  // on the stack of its Show
    };

    int RunBox(QDialog& box);
    FormWindow* WindowOf(const platform::Form& form) const;
    /// The visible window that was shown last, null when there is none.
    FormWindow* Front() const;
    void Activated(const platform::Form& form);
    void RunModal(platform::Form& form);
    void EndRunWhenDone();
    void UpdateLanguage();

    std::function<std::string()> languageName_;
    bool askingLanguage_ = false;
    Language language_;
    std::vector<WindowPtr> windows_;  // in the order of their showing
    std::vector<ModalLoop> loops_;
    const platform::Form* lastActive_ = nullptr;
    bool hourglass_ = false;
    bool running_ = false;
    int boxes_ = 0;
    QObject context_;  // what is queued for the desktop goes with it
};

}  // namespace qt
