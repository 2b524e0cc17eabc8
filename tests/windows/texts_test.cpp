// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/files/files.h"
#include "platform/text/text.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Strings;

/// A control of any type, with or without a caption.
class Probe final : public platform::Control {
  public:
    Probe(platform::Form& parent, std::string type, bool captioned = true)
        : Control(parent, "probe", {.ToolTipText = "design tip"}),
          type_(std::move(type)),
          captioned_(captioned) {}
    std::string_view TypeName() const override { return type_; }
    void SetCaption(const std::string& text) override {
        captioned_ ? static_cast<void>(caption_ = text) : Control::SetCaption(text);
    }
    std::string Shown() const { return caption_ + "/" + ToolTipText.Get(); }

  private:
    std::string type_;
    bool captioned_;
    std::string caption_ = "design";
};

/// The texts of a folder without a database.
class Texts : public testing::Test {
  protected:
    Texts() {
        folder.WriteLanguage("lang.ini",
                             "[System]\nlang=Test\nR0001=One\nR0002= Two \nR0003=<<SAKNAS>> 3\nR0004=Tip\n"
                             "R0005=" +
                                 Many(600) + "\nR0006=" + Many(2500) + "\nR0030=Text error\n");
    }
    static std::string Many(std::size_t count) {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) {
            text += "å";
        }
        return text;
    }
    std::string Bound(const std::string& tag, const std::string& type = "Label", bool tips = true) {
        Probe probe(form, type);
        EXPECT_EQ(texter.TextTillControl(probe, tag, tips), !tag.empty());
        return probe.Shown();
    }

    test::ProgramFolder folder{""};
    test::ScriptedDesktop desktop;
    mTexter texter{desktop, folder.Path()};
    platform::Form form{desktop, "frmTest", {.Caption = "design", .Tag = "R0001"}};
};

TEST_F(Texts, TagsBindCaptionAndToolTip) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "design/design tip"},
        {"R0001", "One/design tip"},
        {"R0001;R0004", "One/Tip"},
        {";R0004", "design/Tip"},
        {"R0001+R0002", "OneTwo/design tip"},
        {"R0001+R0003", "One/design tip"},     // a second text that says it is missing
        {"R0099+R0002", "Two/design tip"},     // no first one
        {"R0001+R0099", "One/design tip"},     // no second one
        {"R0001+R0002;R0004", "One/Tip"},      // the second key takes the rest along
        {"R0003", "<<SAKNAS>> 3/design tip"},  // in the first place it is a text like any other
        {"R0099;R0098", "design/design tip"},  // nothing clears what the design says
        {"r0001;r0004", "One/Tip"},
        {"lang", "Test/design tip"},
    };
    for (const auto& [tag, shown] : cases) {
        EXPECT_EQ(Bound(tag), shown) << tag;
    }
}

TEST_F(Texts, WhereATextGoesFollowsFromTheTypeOfTheControl) {
    for (const std::string type :
         {"TextBox", "UpDown", "ComboBox", "DTPicker", "FlatScrollBar", "Image", "ListBox", "ListView"}) {
        EXPECT_EQ(Bound("R0001", type), "design/One") << type;
        EXPECT_EQ(Bound("R0001", type, false), "design/design tip") << type;
    }
    EXPECT_EQ(Bound("R0001", "oFormula", false), "design/One");
    EXPECT_EQ(Bound("R0001;R0004", "SSTab"), "design/Tip");
    EXPECT_EQ(Bound("R0001;R0004", "TextBox", false), "design/Tip");
    // The type is compared exactly.
    EXPECT_EQ(Bound("R0001", "Textbox"), "One/design tip");
}

TEST_F(Texts, TextsAreCutToTheirBuffers) {
    EXPECT_EQ(texter.TextTillAndra("R0005"), Many(254));
    EXPECT_EQ(Bound("R0005"), Many(499) + "/design tip");
    EXPECT_EQ(Bound("R0005+R0005"), Many(998) + "/design tip");
    EXPECT_EQ(Bound(";R0006"), "design/" + Many(1999));
    EXPECT_EQ(texter.TextTillAndra(""), "");
}

TEST_F(Texts, AWindowGetsItsTitleAndAllItsTexts) {
    platform::Label label{form, "label", {.Caption = "design", .Tag = "R0002"}};
    platform::Label plain{form, "plain", {.Caption = "design"}};
    EXPECT_TRUE(texter.SetTextOfForm(form));
    EXPECT_EQ(form.Caption, "One");
    EXPECT_EQ(label.Caption, "Two");
    EXPECT_EQ(plain.Caption, "design");
}

TEST_F(Texts, TheFirstControlThatCannotTakeItsTextIsReportedAndEndsTheBinding) {
    platform::Menu menu{form, "menu", {.Tag = "R0001;R0004"}};
    Probe probe(form, "Picture", false);
    probe.Tag = "R0001";
    platform::Label label{form, "label", {.Tag = "R0002"}};
    EXPECT_FALSE(texter.SetTextOfForm(form));
    const std::string report = "[0 -] Text error 438 (…) in procedure TextTillControl in Module mTexter";
    EXPECT_EQ(desktop.TakeBoxes(), Strings{report});
    EXPECT_EQ(menu.Caption, "One");
    EXPECT_EQ(label.Caption, "");
    EXPECT_FALSE(texter.TextTillControl(probe, "R0001", true));
    EXPECT_EQ(desktop.TakeBoxes(), Strings{report});
}

TEST_F(Texts, EveryReadTakesTheFileAsItIsNow) {
    const auto one = [&](const std::string& bytes) {
        platform::WriteFile(folder.Bin("lang.ini"), bytes);
        return texter.TextTillAndra("R0001");
    };
    EXPECT_EQ(one("[System]\r\nR0001=\xE5\r\n"), "å");
    EXPECT_EQ(one("\xEF\xBB\xBF[System]\nR0001=å\n"), "å");
    EXPECT_EQ(one("[System]\nR0001=first\nR0001=second\n"), "first");
    EXPECT_EQ(one("[System]\nR0001=cut"), "cut");
    EXPECT_EQ(one("[Other]\nR0001=other\n"), "");
    std::string noise;
    for (int i = 0; i < 4096; ++i) {
        noise += static_cast<char>(i * 37);
    }
    EXPECT_EQ(one(noise), "");
    EXPECT_EQ(one(""), "");
    std::filesystem::remove(folder.Bin("lang.ini"));
    EXPECT_EQ(texter.TextTillAndra("R0001"), "");
    EXPECT_FALSE(LanguageFileExists(folder.Path()));
    std::filesystem::create_directory(folder.Bin("lang.ini"));
    EXPECT_EQ(texter.TextTillAndra("R0001"), "");
}

}  // namespace
}  // namespace vemora
