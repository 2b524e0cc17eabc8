// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <optional>

#include "platform/files/files.h"
#include "support/session.h"
#include "texts/frmLang.h"

namespace vemora {
namespace {

namespace fs = std::filesystem;
using test::Session;
using test::Strings;

TEST(Start, OpensTheMainWindowInTheLanguageOfTheFile) {
    for (const std::string language : {"Svenska", "English", "Deutsch"}) {
        SCOPED_TRACE(language);
        Session run(language);
        run.Start();
        EXPECT_EQ(run.Core.gSpråk, language);
        EXPECT_EQ(run.Core.gVärdeText1, run.T("R0112"));
        EXPECT_EQ(run.Core.gVärdeText4, "    ");
        EXPECT_EQ(run.Core.gFelTitel, run.T("R0116"));
        EXPECT_EQ(run.Main().Caption, run.T("R0001"));
        EXPECT_EQ(run.Desktop.Logged("show"), Strings{"show frmMain"});
    }
}

TEST(Start, WithoutALanguageThereIsNothingToDo) {
    Session run("");
    run.Desktop.WhileModal<frmLang>([](frmLang& window) { window.cmdAvbryt.InputClick(); });
    run.Start();
    EXPECT_EQ(run.Core.gCn, nullptr);
    EXPECT_EQ(run.Desktop.Logged("show"), Strings{"show frmLang modal"});
    EXPECT_FALSE(run.Main().IsLoaded());
}

TEST(Start, GoesOnInTheLanguageClickedLastEvenWhenCancelled) {
    Session run("");
    run.Desktop.WhileModal<frmLang>([&](frmLang& window) {
        EXPECT_EQ(window.cboLang.ListIndex, -1);
        for (const std::string language : {"English", "Deutsch", "Svenska"}) {
            test::Choose(window.cboLang, language);
            EXPECT_EQ(test::ReadAll(run.Folder.Bin("lang.ini")),
                      test::ReadAll(run.Folder.Bin("Lang" + language + ".ini")));
        }
        test::Press(window, platform::key::Escape);
        EXPECT_FALSE(window.IsLoaded());
    });
    run.Start();
    EXPECT_EQ(run.Core.gSpråk, "Svenska");
    EXPECT_TRUE(run.Main().IsLoaded());
    EXPECT_EQ(run.Desktop.Logged("show"), (Strings{"show frmLang modal", "show frmMain"}));
}

void Encrypt(const fs::path& file, const char* password) {
    fs::remove(file);
    platform::Store store(file, password, platform::Store::Access::Create);
    platform::CreateSchema(store);
    store.Close();
}

TEST(Start, ReportsADatabaseThatItCannotOpenAndLeavesItAlone) {
    constexpr long failed = platform::errors::StoreFailed;
    constexpr long refused = platform::errors::BadPassword;
    using Write = void (*)(const fs::path&);
    const struct {
        const char* What;
        Write Prepare;
        long Number;
    } cases[] = {
        {"missing", [](const fs::path& file) { fs::remove(file); }, failed},
        {"empty", [](const fs::path& file) { platform::WriteFile(file, ""); }, refused},
        {"garbage", [](const fs::path& file) { platform::WriteFile(file, std::string(9000, 'x')); }, refused},
        {"other format",
         [](const fs::path& file) {
             platform::WriteFile(file, std::string("SQLite format 3\0", 16) + std::string(8176, '\0'));
         },
         refused},
        {"other password", [](const fs::path& file) { Encrypt(file, "mora28"); }, refused},
        {"cut", [](const fs::path& file) { fs::resize_file(file, 6000); }, failed},
        {"read-only", [](const fs::path& file) { fs::permissions(file, fs::perms(0444)); }, failed},
    };
    for (const auto& [what, prepare, number] : cases) {
        SCOPED_TRACE(what);
        Session run;
        fs::permissions(run.Folder.Path(), fs::perms::all);
        prepare(run.Folder.Database());
        const std::string before = test::ReadAll(run.Folder.Database());
        {
            std::optional<test::WithoutPrivileges> user;
            if (std::string_view(what) == "read-only") {
                user.emplace();
            }
            run.Start();
        }
        EXPECT_EQ(run.Boxes(), (Strings{run.Report(number, "ÖppnaDB in Module mMain"),
                                        "[16 ] " + run.T("R0117") + "\r\n\r\n" + run.T("R0118")}));
        EXPECT_FALSE(run.Main().IsLoaded());
        EXPECT_EQ(test::ReadAll(run.Folder.Database()), before);
        EXPECT_LE(run.Folder.Files().size(), 1U);
    }
}

TEST(Start, OnlyOneProgramHasTheDatabase) {
    Session first;
    first.Start();
    test::ScriptedDesktop second;
    Program other(second, first.Folder.Path());
    second.Event([&] { other.Main.Main(); });
    EXPECT_EQ(second.TakeBoxes().size(), 2U);
    EXPECT_FALSE(other.Main.Windows.Main().IsLoaded());

    first.Search("salt");
    EXPECT_EQ(test::Keys(first.Main().lvwResultat), Strings{"K1"});
    first.Main().InputClose();
    second.Event([&] { other.Main.Main(); });
    EXPECT_TRUE(other.Main.Windows.Main().IsLoaded());
}

TEST(Start, MissingKeysLeaveTextsEmpty) {
    Session run;
    run.Folder.WriteLanguage("lang.ini", "[System]\nR0180=Find\n");
    run.Start();
    EXPECT_EQ(run.Core.gVärdeText1 + run.Core.gFelTitel + run.Core.gSpråk, "");
    EXPECT_EQ(run.Core.gVärdeText4, "    ");
    EXPECT_EQ(run.Main().Caption, "");
    EXPECT_EQ(run.Main().cmdSök.Caption, "Find");
    EXPECT_EQ(run.Main().cmdStäng.Caption, "");
}

}  // namespace
}  // namespace vemora
