// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "qt/desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <algorithm>

#include "platform/forms/form.h"
#include "qt/accessible_roles.h"
#include "qt/application.h"
#include "qt/form_window.h"
#include "qt/style.h"
#include "qt/texts.h"

namespace qt {

namespace {

QMessageBox::Icon IconOf(int flags) {
    constexpr int kIconBits = 0x70;
    constexpr int kQuestion = 32;
    switch (flags & kIconBits) {
        case platform::msg::Critical:
            return QMessageBox::Critical;
        case kQuestion:
            return QMessageBox::Question;
        case platform::msg::Exclamation:
            return QMessageBox::Warning;
        case platform::msg::Information:
            return QMessageBox::Information;
        default:
            return QMessageBox::NoIcon;
    }
}

bool AsksYesNo(int flags) {
    constexpr int kButtonBits = 0x0F;
    constexpr int kYesNo = 4;
    return (flags & kButtonBits) == kYesNo;
}

bool SecondIsDefault(int flags) {
    constexpr int kSecondDefault = 256;
    return (flags & kSecondDefault) != 0;
}

}  // namespace

void QtDesktop::DeleteLater::operator()(FormWindow* window) const {
    window->deleteLater();
}

QtDesktop::QtDesktop(std::function<std::string()> language) : languageName_(std::move(language)) {
    InstallAccessibleRoles();
    QGuiApplication::setQuitOnLastWindowClosed(false);  // Run knows when the last is gone
    if (dynamic_cast<Style*>(QApplication::style()) == nullptr) {
        QApplication::setStyle(std::make_unique<Style>().release());
    }
}

QtDesktop::~QtDesktop() {
    MousePointer(platform::pointer::Default);
    windows_.clear();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// --- the run ---

int QtDesktop::Run() {
    if (!Ended() && !windows_.empty()) {
        const QScopedValueRollback<bool> guard(running_, true);
        QApplication::exec();
    }
    return 0;
}

void QtDesktop::Quit() {
    for (const WindowPtr& window : windows_) {
        window->Detach();
        window->hide();
    }
    windows_.clear();
    MousePointer(platform::pointer::Default);
    for (const ModalLoop& modal : loops_) {
        modal.Loop->quit();
    }
    if (running_) {
        QCoreApplication::quit();
    }
}

// The last window may be gone while its event goes on and shows another, or a message.
void QtDesktop::EndRunWhenDone() {
    QMetaObject::invokeMethod(
        &context_,
        [this] {
            if (running_ && windows_.empty() && loops_.empty() && boxes_ == 0) {
                QCoreApplication::quit();
            }
        },
        Qt::QueuedConnection);
}

void QtDesktop::Flush() {
    for (const WindowPtr& window : windows_) {
        window->Flush();
    }
}

void QtDesktop::UpdateLanguage() {
    // To find the name may itself need a message box, when the language file can't be read.
    if (!askingLanguage_ && languageName_) {
        const QScopedValueRollback<bool> guard(askingLanguage_, true);
        language_.Use(languageName_());
    }
}

// --- windows ---

FormWindow* QtDesktop::WindowOf(const platform::Form& form) const {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const WindowPtr& window) { return &window->Model() == &form; });
    return found == windows_.end() ? nullptr : found->get();
}

FormWindow* QtDesktop::Front() const {
    const auto found = std::find_if(windows_.rbegin(), windows_.rend(),
                                    [](const WindowPtr& window) { return window->isVisible(); });
    return found == windows_.rend() ? nullptr : found->get();
}

void QtDesktop::Show(platform::Form& form, bool modal, platform::Form* owner) {
    if (Ended()) {
        throw platform::ProgramEnded{};
    }
    UpdateLanguage();
    Flush();
    FormWindow* above = owner != nullptr ? WindowOf(*owner) : nullptr;
    if (above == nullptr && modal) {
        above = Front();
    }
    FormWindow* window = WindowOf(form);
    if (window == nullptr) {
        WindowPtr made(std::make_unique<FormWindow>(form, [this, &form] { Activated(form); }).release());
        window = made.get();
        windows_.push_back(std::move(made));
    }
    window->Present(above, modal);
    if (modal && WindowOf(form) == window) {
        RunModal(form);
    }
    if (Ended()) {
        throw platform::ProgramEnded{};
    }
}

void QtDesktop::RunModal(platform::Form& form) {
    QEventLoop loop;
    const auto guard = Application::EnterLoop();
    loops_.push_back({&form, &loop});
    loop.exec();
    loops_.pop_back();
    EndRunWhenDone();
}

void QtDesktop::Closed(platform::Form& form) {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const WindowPtr& window) { return &window->Model() == &form; });
    if (found == windows_.end()) {
        return;
    }
    const WindowPtr window = std::move(*found);
    windows_.erase(found);
    window->Detach();
    window->hide();
    if (lastActive_ == &form) {
        lastActive_ = nullptr;  // shown anew, it becomes active anew
    }
    for (const ModalLoop& modal : loops_) {
        if (modal.Form == &form) {
            modal.Loop->quit();
        }
    }
    if (FormWindow* front = Front()) {
        front->activateWindow();
    }
    EndRunWhenDone();
}

// A window is told that it is active when the user comes to it from another window of the program: coming
// back from a message or from another program, he finds things as he left them.
void QtDesktop::Activated(const platform::Form& form) {
    if (lastActive_ != &form) {
        lastActive_ = &form;
        if (FormWindow* window = WindowOf(form)) {
            window->QueueActivate();
        }
    }
}

void QtDesktop::Focus(platform::Control& control) {
    FormWindow* const window = WindowOf(control.Parent());
    if (window != nullptr) {
        window->Flush();
        window->FocusActive();
    }
}

void QtDesktop::Paint() {
    Flush();
    const auto deaf = Application::TurnDeaf();
    const auto guard = Application::EnterLoop();
    QCoreApplication::processEvents();
}

// --- boxes ---

// A box is up with the ordinary pointer, over what the windows show by now.
int QtDesktop::RunBox(QDialog& box) {
    Flush();
    const bool hourglass = hourglass_;
    MousePointer(platform::pointer::Default);
    ++boxes_;
    const auto guard = Application::EnterLoop();
    const int result = box.exec();
    --boxes_;
    EndRunWhenDone();
    if (hourglass) {
        MousePointer(platform::pointer::Hourglass);
    }
    return result;
}

int QtDesktop::MsgBox(const std::string& text, int flags, const std::optional<std::string>& title) {
    UpdateLanguage();
    QMessageBox box(Front());
    box.setObjectName("MsgBox");
    box.setWindowTitle(QString::fromStdString(title.value_or("Vemora")));
    box.setTextFormat(Qt::PlainText);
    box.setText(Clean(QString::fromStdString(text), true));
    box.setIcon(IconOf(flags));
    if (auto* const label = box.findChild<QLabel*>("qt_msgbox_label")) {
        label->setContentsMargins(0, 0, 0, 2);  // for what hangs below the last line
    }
    int answer = platform::msg::AnswerOk;
    if (AsksYesNo(flags)) {
        auto* yes = box.addButton(ButtonText("&Yes"), QMessageBox::YesRole);
        auto* no = box.addButton(ButtonText("&No"), QMessageBox::NoRole);
        box.setDefaultButton(SecondIsDefault(flags) ? no : yes);
        box.setEscapeButton(no);
        RunBox(box);
        answer = box.clickedButton() == yes ? platform::msg::AnswerYes : platform::msg::AnswerNo;
    } else {
        auto* ok = box.addButton(ButtonText("OK"), QMessageBox::AcceptRole);
        box.setDefaultButton(ok);
        box.setEscapeButton(ok);
        RunBox(box);
    }
    return answer;
}

std::string QtDesktop::InputBox(const std::string& prompt, const std::string& title) {
    UpdateLanguage();
    QInputDialog box(Front());
    box.setObjectName("InputBox");
    box.setWindowTitle(QString::fromStdString(title));
    box.setLabelText(QString::fromStdString(prompt));
    box.setOkButtonText(ButtonText("OK"));
    box.setCancelButtonText(ButtonText("Cancel"));
    return RunBox(box) == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

// --- the rest of the world ---

void QtDesktop::Beep() {
    QApplication::beep();
}

void QtDesktop::MousePointer(int shape) {
    const bool hourglass = shape == platform::pointer::Hourglass;
    if (hourglass && !hourglass_) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (!hourglass && hourglass_) {
        QGuiApplication::restoreOverrideCursor();
    }
    hourglass_ = hourglass;
}

void QtDesktop::ClipboardClear() {
    QGuiApplication::clipboard()->clear();
}

void QtDesktop::ClipboardSetText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

bool QtDesktop::OpenWebPage(const std::string& address) {
    const QString text = QString::fromStdString(address);
    return QDesktopServices::openUrl(QFileInfo::exists(text) ? QUrl::fromLocalFile(text)
                                                             : QUrl::fromUserInput(text));
}

bool QtDesktop::OpenSystemInformation() {
    // Elsewhere "open" may be another program.
    static const QStringList tools[] = {{"msinfo32"},
#ifdef Q_OS_MACOS
                                        {"open", "-a", "System Information"},
#endif
                                        {"kinfocenter"},
                                        {"hardinfo"},
                                        {"gnome-control-center", "info-overview"}};
    return std::any_of(std::begin(tools), std::end(tools), [](const QStringList& tool) {
        const QString program = QStandardPaths::findExecutable(tool.front());
        return !program.isEmpty() && QProcess::startDetached(program, tool.mid(1));
    });
}

int QtDesktop::TextWidth(const platform::Font& font, const std::string& text) const {
    return Scale::OfDesktop().TextWidth(font, QString::fromStdString(text));
}

}  // namespace qt
