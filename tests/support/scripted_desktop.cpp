// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "support/scripted_desktop.h"

#include <regex>

#include "platform/text/text.h"

namespace test {

ScriptedDesktop::~ScriptedDesktop() {
    for (const std::string& box : boxes_) {
        ADD_FAILURE() << "Nobody expected the box " << box;
    }
    EXPECT_TRUE(pieces_.empty()) << "A modal window that was expected never came up.";
    EXPECT_TRUE(Answers.empty() && Typed.empty()) << "A question that was expected was never asked.";
}

std::vector<std::string> ScriptedDesktop::Logged(std::string_view word) const {
    std::vector<std::string> found = Log;
    std::erase_if(found, [&](const std::string& entry) { return !entry.starts_with(word); });
    return found;
}

int ScriptedDesktop::MsgBox(const std::string& text, int flags, const std::optional<std::string>& title) {
    // How a description is worded is its writer's business, as long as it is a sentence.
    static const std::regex description(R"( \([^]*\.\))");
    boxes_.push_back("[" + std::to_string(flags) + " " + title.value_or("-") + "] " +
                     std::regex_replace(text, description, " (…)"));
    Log.push_back("box " + text);
    constexpr int buttons = 7;
    if ((flags & buttons) == 0) {
        return platform::msg::AnswerOk;
    }
    if (Answers.empty()) {
        ADD_FAILURE() << "No answer is queued for the question: " << text;
        return platform::msg::AnswerNo;
    }
    const int answer = Answers.front();
    Answers.pop_front();
    return answer;
}

std::string ScriptedDesktop::InputBox(const std::string& prompt, const std::string& title) {
    Log.push_back("input " + title + ": " + prompt);
    if (Typed.empty()) {
        ADD_FAILURE() << "Nothing is queued for the input box: " << prompt;
        return {};
    }
    std::string answer = std::move(Typed.front());
    Typed.pop_front();
    return answer;
}

void ScriptedDesktop::Show(platform::Form& form, bool modal, platform::Form* owner) {
    Log.push_back("show " + form.Name() + (modal ? " modal" : "") +
                  (owner != nullptr ? " over " + owner->Name() : ""));
    form.InputResize(form.Width(), form.Height());
    form.InputActivate();
    if (!modal) {
        return;
    }
    if (Ended()) {
        throw platform::ProgramEnded{};
    }
    if (pieces_.empty()) {
        ADD_FAILURE() << "Nobody expected the modal window " << form.Name();
    } else {
        const auto piece = std::move(pieces_.front());
        pieces_.pop_front();
        piece(form);
    }
    if (Ended()) {
        throw platform::ProgramEnded{};
    }
    if (form.IsLoaded()) {
        ADD_FAILURE() << "The modal window is still up: " << form.Name();
        form.Unload();
    }
}

bool ScriptedDesktop::OpenWebPage(const std::string& address) {
    Log.push_back("web " + address);
    return true;
}

int ScriptedDesktop::TextWidth(const platform::Font&, const std::string& text) const {
    return 90 * static_cast<int>(platform::Len(text));
}

}  // namespace test
