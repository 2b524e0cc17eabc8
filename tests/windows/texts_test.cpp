// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/text/text.h"
#include "support/session.h"
#include "texts/frmLang.h"

namespace vemora {
namespace {

using test::Strings;

/// A control of any type.
struct Probe final : platform::CaptionControl {
    Probe(platform::Form& parent, std::string type)
        : CaptionControl(parent, "probe", {.Caption = "design", .ToolTipText = "design tip"}, -1),
          Type(std::move(type)) {}
    std::string_view TypeName() const override { return Type; }
    const std::string Type;
};

std::string Many(std::size_t count) {
    return platform::Replace(std::string(count, 'x'), "x", "å");
}

/// The texts of a folder without a database.
class Texts : public testing::Test {
  protected:
    Texts() {
        folder.WriteLanguage("lang.ini",
                             "[System]\nlang=Test\nR0001=One\nR0002= Two \nR0003=<<SAKNAS>> 3\nR0004=Tip\n"
                             "R0030=Text error\nR0005=" +
                                 Many(600) + "\nR0006=" + Many(2500) + "\n");
    }
    std::string Bound(const std::string& tag, const std::string& type = "Label", bool tips = true) {
        Probe probe(form, type);
        EXPECT_EQ(texter.TextTillControl(probe, tag, tips), !tag.empty());
        return probe.Caption.Get() + "/" + probe.ToolTipText.Get();
    }

    test::ProgramFolder folder{""};
    test::ScriptedDesktop desktop;
    mTexter texter{desktop, folder.Path()};
    platform::Form form{desktop, "frmTest", {.Caption = "design", .Tag = "R0001"}};
};

TEST_F(Texts, TagsBindCaptionAndToolTip) {
    // A second text that says it is missing doesn't count; a second key takes what is behind it along;
    // nothing clears what the design says.
    for (const std::string given :
         {"=design/design tip", "R0001=One/design tip", "R0001;R0004=One/Tip", ";R0004=design/Tip",
          "R0001+R0002=OneTwo/design tip", "R0001+R0003=One/design tip", "R0099+R0002=Two/design tip",
          "R0001+R0099=One/design tip", "R0001+R0002;R0004=One/Tip", "R0003=<<SAKNAS>> 3/design tip",
          "R0099;R0098=design/design tip", "r0001;r0004=One/Tip", "lang=Test/design tip"}) {
        const std::string tag = given.substr(0, given.find('='));
        EXPECT_EQ(tag + "=" + Bound(tag), given);
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
    // The type is compared exactly.
    EXPECT_EQ(Bound("R0001", "Textbox"), "One/design tip");
}

TEST_F(Texts, TextsAreCutToTheirBuffers) {
    EXPECT_EQ(texter.TextTillAndra("R0005"), Many(254));
    EXPECT_EQ(Bound("R0005"), Many(499) + "/design tip");
    EXPECT_EQ(Bound("R0005+R0005"), Many(998) + "/design tip");
    EXPECT_EQ(Bound(";R0006"), "design/" + Many(1999));
}

TEST_F(Texts, AWindowGetsItsTitleAndItsTextsUpToTheFirstControlThatCannotTakeOne) {
    platform::Label label{form, "label", {.Caption = "design", .Tag = "R0002"}};
    EXPECT_TRUE(texter.SetTextOfForm(form));
    EXPECT_EQ(form.Caption, "One");
    EXPECT_EQ(label.Caption, "Two");
    form.Tag = "R0099";
    EXPECT_TRUE(texter.SetTextOfForm(form));
    EXPECT_EQ(form.Caption, "");  // a title alone is cleared by a missing text

    platform::Menu menu{form, "menu", {.Tag = "R0001;R0004"}};  // has no tool tip
    platform::ImageList pictures{form, "pictures", {}};         // has no caption
    platform::Label last{form, "last", {.Tag = "R0002"}};
    EXPECT_FALSE(texter.SetTextOfForm(form));
    EXPECT_EQ(menu.Caption, "One");
    EXPECT_EQ(last.Caption, "");
    EXPECT_FALSE(texter.TextTillControl(pictures, "R0001", true));
    EXPECT_EQ(desktop.TakeBoxes(),
              Strings(2, "[0 -] Text error 438 (…) in procedure TextTillControl in Module mTexter"));
}

class LanguageWindow : public testing::Test {
  protected:
    /// The window over a folder with these language files only, and what the user does in it.
    void Show(const std::function<void(frmLang&)>& user) {
        desktop.WhileModal<frmLang>([&](frmLang& shown) {
            user(shown);
            shown.cmdAvbryt.InputClick();
        });
        desktop.Event([&] { window.Show(platform::vbModal); });
    }
    void Language(std::string_view file, const std::string& name) {
        folder.WriteLanguage(file, "[System]\nlang=" + name + "\n");
    }
    static std::string Entry(const std::string& name, const std::string& file) {
        return name + std::string(100, ' ') + file;
    }
    std::string Bytes(std::string_view file) const { return test::ReadAll(folder.Bin(file)); }

    test::ProgramFolder folder{"English"};
    test::ScriptedDesktop desktop;
    frmLang window{desktop, folder.Path()};
};

TEST_F(LanguageWindow, ListsTheLanguagesAndSelectsTheOneInForce) {
    Language("LANGUAGE.INI", "Suomi");
    Language("LangNone.ini", "");
    Language("LangY.ini", std::string(120, 'y'));
    std::filesystem::create_directory(folder.Bin("LangFolder.ini"));
    Language("lang.ini", "English");
    const std::string before = Bytes("lang.ini");
    Show([&](frmLang& shown) {
        Strings entries = test::Entries(shown.cboLang);
        std::sort(entries.begin(), entries.end());
        EXPECT_EQ(entries,
                  (Strings{Entry("Deutsch", "LangDeutsch.ini=0"), Entry("English", "LangEnglish.ini=0"),
                           Entry("Suomi", "LANGUAGE.INI=0"), Entry("Svenska", "LangSvenska.ini=0"),
                           Entry(std::string(99, 'y'), "LangY.ini=0")}));
        EXPECT_EQ(shown.cboLang.Text(), Entry("English", "LangEnglish.ini"));
        EXPECT_EQ(shown.Caption, "Select language/ Välj språk");
        // This selection was the program's and copied nothing; the user's does, of the same entry too.
        EXPECT_EQ(Bytes("lang.ini"), before);
        test::Choose(shown.cboLang, "English");
        EXPECT_EQ(Bytes("lang.ini"), Bytes("LangEnglish.ini"));
        shown.cmdOk.InputClick();
        EXPECT_FALSE(shown.IsLoaded());
    });
}

TEST_F(LanguageWindow, TheFileOfTheEntryBecomesTheOneActiveFileHoweverItsNameIsWritten) {
    Language("LangA.ini", "Zwei");
    folder.WriteLanguage("LangB.ini", "[System]\nlang=Zwei\nR0001=B\n");
    std::filesystem::rename(folder.Bin("lang.ini"), folder.Bin("LANG.ini"));
    Show([&](frmLang& shown) {
        EXPECT_EQ(shown.cboLang.Text(), Entry("English", "LangEnglish.ini"));
        for (const std::string file : {"LangA.ini", "LangB.ini"}) {
            test::Choose(shown.cboLang, Entry("Zwei", file));
            EXPECT_EQ(Bytes("lang.ini"), Bytes(file));
        }
        EXPECT_EQ(folder.Files("bin").size(), 6U);
    });
}

TEST_F(LanguageWindow, OkNeedsAChoice) {
    std::filesystem::remove(folder.Bin("lang.ini"));
    Show([&](frmLang& shown) {
        test::Press(shown, platform::key::Return);  // the default button
        EXPECT_TRUE(shown.IsLoaded());
        EXPECT_EQ(desktop.Logged("focus"), Strings{"focus cboLang"});
    });
}

TEST_F(LanguageWindow, ACopyThatFailsEndsTheProgram) {
    // Of a file name with a blank only what stands behind the last one is taken for it.
    Language("Lang my own.ini", "Mine");
    Show([&](frmLang& shown) { test::Choose(shown.cboLang, Entry("Mine", "Lang my own.ini")); });
    EXPECT_EQ(desktop.TakeBoxes(), Strings{"[16 -] 53 (…)"});
    EXPECT_TRUE(desktop.Ended());
}

}  // namespace
}  // namespace vemora
