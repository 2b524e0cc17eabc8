// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <map>

#include "platform/text/text.h"
#include "support/session.h"

namespace vemora {
namespace {

/// The letter behind the "&" of a caption, in lower case; empty when it has none.
std::string Mnemonic(const std::string& caption) {
    const auto at = caption.find('&');
    return at == std::string::npos ? std::string()
                                   : platform::LCase(platform::Left(caption.substr(at + 1), 1));
}

/// Every control that shows a text has one, and no letter stands for two things in a window or in a menu.
void Check(const platform::Form& form) {
    SCOPED_TRACE(form.Name());
    std::map<const platform::Control*, std::map<std::string, std::string>> taken;
    for (const platform::Control* control : form.Controls()) {
        const bool entry = control->TypeName() == "Menu" && control->Container() != nullptr;
        if (!control->Tag->empty() && control->Tag->front() != ';' && control->CaptionText().empty() &&
            control->ToolTipText->empty()) {
            ADD_FAILURE() << control->FullName() << " has no text";
        }
        const std::string letter = Mnemonic(control->CaptionText());
        if (!letter.empty()) {
            const auto [other, free] =
                taken[entry ? control->Container() : nullptr].emplace(letter, control->FullName());
            EXPECT_TRUE(free) << letter << " is " << control->FullName() << " and " << other->second;
        }
    }
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
        run.Boxes();
    }
}

}  // namespace
}  // namespace vemora
