// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/files/files.h"
#include "support/session.h"

namespace vemora {
namespace {

using test::Session;
using test::Strings;

TEST(MainWindow, ClosingItByWhateverWayEndsTheProgram) {
    const std::pair<const char*, void (*)(Session&)> ways[] = {
        {"button", [](Session& run) { run.Main().cmdStäng.InputClick(); }},
        {"menu", [](Session& run) { run.Main().mnuExit.InputClick(); }},
        {"close box", [](Session& run) { run.Main().InputClose(); }},
        {"Esc in the edit mode",
         [](Session& run) {
             run.Core.gRedigeraAllt = true;
             test::Press(run.Main(), platform::key::Escape);
         }},
    };
    for (const auto& [name, close] : ways) {
        SCOPED_TRACE(name);
        Session run;
        run.Start();
        run.Search("syra");
        run.Sheet().Load();
        test::Press(run.Main(), platform::key::Escape);  // does nothing in normal use
        EXPECT_TRUE(run.Main().IsLoaded());
        close(run);
        EXPECT_EQ(run.Core.gCn, nullptr);
        for (const platform::Form* form : run.Core.Forms) {
            EXPECT_FALSE(form->IsLoaded()) << form->Name();
        }
        EXPECT_EQ(run.Desktop.Logged("closed frmMain").size(), 1U);
        EXPECT_EQ(run.Folder.Files(), Strings{"Vemora.mdb"});
    }
}

TEST(MainWindow, ItsListFollowsItsSize) {
    Session run;
    run.Start();
    platform::ListView& list = run.Main().lvwResultat;
    run.Search("");
    const int column = list.Column(0).Width;
    const struct {
        int Width, Height, State;
        int ListWidth, ListHeight;
    } cases[] = {
        {8000, 9000, platform::vbNormal, 6600, 7290},  {12000, 10000, platform::vbMaximized, 10600, 8290},
        {160, 28, platform::vbMinimized, 10600, 8290}, {1401, 1711, platform::vbNormal, 1, 1},
        {1400, 1590, platform::vbNormal, 1, 1},  // too small for a list
        {6690, 7245, platform::vbNormal, 5290, 5535},
    };
    for (const auto& size : cases) {
        run.Main().InputResize(size.Width, size.Height, size.State);
        EXPECT_EQ(list.Width, size.ListWidth);
        EXPECT_EQ(list.Height, size.ListHeight);
        EXPECT_EQ(list.Column(0).Width, column);
    }
}

/// A window that does nothing, in the place of one that is opened from the menu.
class Other final : public platform::Form {
  public:
    Other(platform::Desktop& desktop, std::string name) : Form(desktop, std::move(name), {}) {}
};

TEST(MainWindow, ItsMenuOpensTheOtherWindows) {
    Session run;
    Other chemicals(run.Desktop, "frmUChemicals");
    Other settings(run.Desktop, "frmInställningar");
    Other about(run.Desktop, "frmAbout");
    run.Core.Windows.UChemicals = [&]() -> platform::Form& { return chemicals; };
    run.Core.Windows.Inställningar = [&]() -> platform::Form& { return settings; };
    run.Core.Windows.About = [&]() -> platform::Form& { return about; };
    run.Start();
    frmMain& window = run.Main();
    run.Search("syra");
    const Strings found = test::Rows(window.lvwResultat);
    EXPECT_TRUE(window.imgBild(0).Visible);
    EXPECT_FALSE(window.imgBild(1).Visible);

    const auto close = [](Other& shown) { shown.Unload(); };
    run.Desktop.WhileModal<Other>(close);
    window.mnuChemicals.InputClick();
    run.Desktop.WhileModal<Other>(close);
    window.mnuInfo.InputClick();
    run.Desktop.WhileModal<Other>([&](Other& shown) {
        platform::FileCopy(run.Folder.Bin("LangEnglish.ini"), run.Folder.Bin("lang.ini"));
        run.Core.gSpråk = run.T("lang");
        shown.Unload();
    });
    window.mnuInställningar.InputClick();
    window.mnuUpd.InputClick();  // the program has no such window here
    EXPECT_FALSE(window.mnuUpd.Enabled);
    EXPECT_EQ(run.Desktop.Logged("show frm"),
              (Strings{"show frmMain", "show frmUChemicals modal", "show frmAbout modal",
                       "show frmInställningar modal over frmMain"}));

    // The language has changed under it: texts and picture follow, the result stays.
    EXPECT_EQ(window.Caption, run.T("R0001"));
    EXPECT_EQ(window.mnuFile.Caption, "&File");
    EXPECT_EQ(window.cmdSök.Caption, "&Search");
    EXPECT_FALSE(window.imgBild(0).Visible);
    EXPECT_TRUE(window.imgBild(1).Visible);
    EXPECT_EQ(window.imgBild(1).Top, window.imgBild(0).Top);
    EXPECT_EQ(test::Rows(window.lvwResultat), found);
    EXPECT_EQ(test::Headings(window.lvwResultat).front(), "Kemikalie");
}

TEST(MainWindow, AnyOtherLanguageLeavesThePictureAsDesigned) {
    Session run("Deutsch");
    run.Start();
    EXPECT_TRUE(run.Main().imgBild(0).Visible);
    EXPECT_FALSE(run.Main().imgBild(1).Visible);
}

TEST(MainWindow, AFailureWhileItOpensIsReportedByMain) {
    Session run;
    run.Core.Windows.Main = []() -> platform::Form& { throw platform::Error(75, "It can't be made."); };
    run.Start();
    EXPECT_EQ(run.Boxes(), Strings{run.Report(75, "Main in Module mMain")});
}

}  // namespace
}  // namespace vemora
