// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "platform/text/text.h"
#include "support/session.h"

namespace vemora {
namespace {

/// The key of each window's title, and the keys of its controls: caption or tool tip, ";", tool tip.
std::map<std::string, std::string> Bindings() {
    std::istringstream lines(
        test::ReadAll(std::filesystem::path(VEMORA_SOURCE_DIR) / "tests/windows/window_texts.txt"));
    std::map<std::string, std::string> bindings;
    for (std::string name; std::getline(lines, name, ':');) {
        std::getline(lines, bindings[name]);
    }
    return bindings;
}

/// Every control is bound to its keys and shows a text, and no letter stands for two things in a window or in
/// a menu.
void Check(const platform::Form& form) {
    SCOPED_TRACE(form.Name());
    std::set<std::string> bound = {"=" + form.Tag.Get()};
    std::map<const platform::Control*, std::map<std::string, std::string>> taken;
    for (const platform::Control* control : form.Controls()) {
        const std::string name = control->FullName();
        if (!control->Tag->empty()) {
            bound.insert(name + "=" + control->Tag.Get());
            EXPECT_NE(control->CaptionText() + control->ToolTipText.Get(), "") << name;
        }
        const bool entry = control->TypeName() == "Menu" && control->Container() != nullptr;
        const std::string caption = platform::LCase(control->CaptionText());
        if (const auto at = caption.find('&'); at != std::string::npos) {
            const auto letter = platform::Left(caption.substr(at + 1), 1);
            const auto [other, free] = taken[entry ? control->Container() : nullptr].emplace(letter, name);
            EXPECT_TRUE(free) << letter << " is " << name << " and " << other->second;
        }
    }
    static const std::map<std::string, std::string> bindings = Bindings();
    std::istringstream keys(bindings.at(form.Name()));
    EXPECT_EQ(bound, std::set<std::string>(std::istream_iterator<std::string>(keys), {}));
}

TEST(WindowTexts, AreThereInEveryLanguageWithMnemonicsOfTheirOwn) {
    for (const std::string language : {"Svenska", "English", "Deutsch"}) {
        SCOPED_TRACE(language);
        test::Session run(language);
        run.Start();
        Check(run.Main());
        run.OpenSheet(3, [](frmChemical& sheet) {
            Check(sheet);
            sheet.chkFilter.InputClick();  // has another caption now
            Check(sheet);
        });
        // In the third language most windows have nothing to show, and some can't be opened at all.
        Windows& all = run.Core.Windows;
        std::vector<Windows::Any*> windows = {&all.UTight, &all.URelations, &all.Inställningar, &all.UPD,
                                              &all.About};
        if (language != "Deutsch") {
            windows.insert(windows.end(), {&all.UChemicals, &all.UConcentration, &all.UTemperature,
                                           &all.UMetal, &all.UPlast, &all.UMisc});
        }
        for (Windows::Any* window : windows) {
            run.Desktop.WhileModal<platform::Form>([](platform::Form& form) {
                Check(form);
                form.Unload();
            });
            run.Desktop.Event([&] { (*window)().Show(platform::vbModal); });
        }
        run.Boxes();
    }
}

}  // namespace
}  // namespace vemora
