// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/files/files.h"
#include "support/session.h"
#include "texts/frmLang.h"

namespace vemora {
namespace {

using test::Strings;

class LanguageWindow : public testing::Test {
  protected:
    /// The window over a folder with these language files only, and what the user does in it.
    void Show(const std::function<void(frmLang&)>& user) {
        desktop.WhileModal<frmLang>([&](frmLang& shown) {
            user(shown);
            if (!desktop.Ended()) {
                shown.cmdAvbryt.InputClick();
            }
        });
        desktop.Event([&] { window.Show(platform::vbModal); });
    }
    void Language(std::string_view file, const std::string& name) {
        folder.WriteLanguage(file, "[System]\nlang=" + name + "\n");
    }
    static std::string Entry(const std::string& name, const std::string& file) {
        return name + std::string(100, ' ') + file;
    }
    /// The entries, sorted: the order of a directory is anyone's.
    static Strings Entries(const frmLang& shown) {
        Strings entries;
        for (int i = 0; i < shown.cboLang.ListCount(); ++i) {
            entries.push_back(shown.cboLang.List(i));
        }
        std::sort(entries.begin(), entries.end());
        return entries;
    }
    std::string Active() const { return test::ReadAll(folder.Bin("lang.ini")); }

    test::ProgramFolder folder{"English"};
    test::ScriptedDesktop desktop;
    frmLang window{desktop, folder.Path()};
};

TEST_F(LanguageWindow, ListsTheLanguagesAndSelectsTheOneInForce) {
    Language("LANGUAGE.INI", "Suomi");
    Language("LangNone.ini", "");
    Language("Other.ini", "Other");
    std::filesystem::create_directory(folder.Bin("LangFolder.ini"));
    Language("lang.ini", "English");
    const std::string before = Active();
    Show([&](frmLang& shown) {
        EXPECT_EQ(Entries(shown),
                  (Strings{Entry("Deutsch", "LangDeutsch.ini"), Entry("English", "LangEnglish.ini"),
                           Entry("Suomi", "LANGUAGE.INI"), Entry("Svenska", "LangSvenska.ini")}));
        EXPECT_EQ(shown.cboLang.Text(), Entry("English", "LangEnglish.ini"));
        EXPECT_EQ(shown.Caption, "Select language/ Välj språk");
        // This selection was the program's and copied nothing; the user's does, of the same entry too.
        EXPECT_EQ(Active(), before);
        test::Choose(shown.cboLang, "English");
        EXPECT_EQ(Active(), test::ReadAll(folder.Bin("LangEnglish.ini")));
        shown.cmdOk.InputClick();
        EXPECT_FALSE(shown.IsLoaded());
    });
    EXPECT_EQ(desktop.Logged("pointer"), Strings{"pointer 0"});
}

TEST_F(LanguageWindow, TwoFilesOfOneLanguageAreTwoEntries) {
    Language("LangA.ini", "Zwei");
    folder.WriteLanguage("LangB.ini", "[System]\nlang=Zwei\nR0001=B\n");
    Show([&](frmLang& shown) {
        for (const std::string file : {"LangA.ini", "LangB.ini"}) {
            test::Choose(shown.cboLang, Entry("Zwei", file));
            EXPECT_EQ(Active(), test::ReadAll(folder.Bin(file)));
        }
    });
}

TEST_F(LanguageWindow, TheCaseOfTheFolderIsNotLookedAt) {
    const auto bin = folder.Path() / "Bin";
    std::filesystem::rename(folder.Path() / "bin", bin);
    Show([&](frmLang& shown) {
        test::Choose(shown.cboLang, "Svenska");
        EXPECT_EQ(test::ReadAll(bin / "lang.ini"), test::ReadAll(bin / "LangSvenska.ini"));
    });
}

TEST_F(LanguageWindow, OkNeedsAChoice) {
    std::filesystem::remove(folder.Bin("lang.ini"));
    Show([&](frmLang& shown) {
        test::Press(shown, platform::key::Return);  // the default button
        EXPECT_TRUE(shown.IsLoaded());
        EXPECT_EQ(desktop.Logged("focus"), Strings{"focus cboLang"});
        shown.cboLang.InputIndex(0);
        shown.cmdOk.InputClick();
        EXPECT_FALSE(shown.IsLoaded());
    });
}

TEST_F(LanguageWindow, ALongNameIsNeverRecognised) {
    const std::string name(60, 'x');
    Language("LangX.ini", name);
    Language("lang.ini", name);
    Language("LangY.ini", std::string(120, 'y'));
    Show([&](frmLang& shown) {
        EXPECT_EQ(shown.cboLang.ListIndex, -1);
        EXPECT_EQ(Entries(shown).back(), Entry(std::string(99, 'y'), "LangY.ini"));
    });
}

TEST_F(LanguageWindow, ThereIsOneActiveFileHoweverItsNameIsWritten) {
    std::filesystem::rename(folder.Bin("lang.ini"), folder.Bin("LANG.ini"));
    Show([&](frmLang& shown) {
        EXPECT_EQ(shown.cboLang.Text(), Entry("English", "LangEnglish.ini"));
        test::Choose(shown.cboLang, Entry("Svenska", "LangSvenska.ini"));
    });
    EXPECT_EQ(folder.BinFiles(),
              (Strings{"LangDeutsch.ini", "LangEnglish.ini", "LangSvenska.ini", "lang.ini"}));
    EXPECT_EQ(Active(), test::ReadAll(folder.Bin("LangSvenska.ini")));
}

TEST_F(LanguageWindow, ACopyThatFailsEndsTheProgram) {
    // Of a file name with a blank only what stands behind the last one is taken for it.
    Language("Lang my own.ini", "Mine");
    Show([&](frmLang& shown) { test::Choose(shown.cboLang, Entry("Mine", "Lang my own.ini")); });
    EXPECT_EQ(desktop.TakeBoxes(), Strings{"[16 -] 53 (…)"});
    EXPECT_TRUE(desktop.Ended());
    EXPECT_EQ(desktop.Logged("quit").size(), 1U);
    EXPECT_FALSE(LanguageFileExists(folder.Path()));
}

}  // namespace
}  // namespace vemora
