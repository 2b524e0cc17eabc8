// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <tuple>

#include "rules/sources.h"

namespace {

using Folders = std::set<std::string>;

std::string FirstFolder(const std::string& path) {
    return path.substr(0, path.find('/'));
}

/// The rooms of the platform and what each looks down on; "platform" is what lies in no room.
const std::map<std::string, Folders> kRooms = {
    {"platform", {}},       {"text", {}},
    {"files", {"text"}},    {"net", {"text"}},
    {"store", {"text"}},    {"adodb", {"text", "files", "store"}},
    {"richtext", {"text"}}, {"forms", {"text", "files", "store", "adodb", "richtext"}},
};

/// The room of "platform/store/store.h"; "platform" for "platform/error.h".
std::string RoomOf(const std::string& path) {
    const auto begin = path.find('/') + 1;
    const auto end = path.find('/', begin);
    return end == std::string::npos ? "platform" : path.substr(begin, end - begin);
}

/// What a file of src may include of the program itself. A window that isn't named here knows its own folder
/// and what all windows know.
Folders KnownTo(const std::string& file) {
    static const std::map<std::string, Folders> known = {
        {"texts", {"platform", "texts"}},
        {"core", {"platform", "texts", "core"}},
        {"search", {"platform", "texts", "core", "search", "sheet"}},
        {"qt", {"platform", "qt"}}};
    const std::string folder = FirstFolder(file);
    const auto entry = known.find(folder);
    return entry != known.end() ? entry->second : Folders{"platform", "texts", "core", folder};
}

bool MayInclude(const std::string& file, const std::string& include, bool system) {
    const std::string folder = FirstFolder(file);
    const bool desktop = folder == "qt" || file == "app/main.cpp";
    if (system) {
        const bool widgets = include.front() == 'Q';
        const bool store =
            include.starts_with("sqlite3") || include.starts_with("unicode/") || include.starts_with("curl/");
        return (!widgets || desktop) && (!store || folder == "platform");
    }
    if (folder == "platform") {
        const std::string room = RoomOf(include);
        const bool below =
            room == "platform" || room == RoomOf(file) || kRooms.at(RoomOf(file)).contains(room);
        return FirstFolder(include) == "platform" && below;
    }
    if (folder == "app") {
        return FirstFolder(include) != "qt" || desktop;  // puts everything together
    }
    if (folder == "core" && include.find("/frm") != std::string::npos) {
        return false;  // shows windows without knowing them
    }
    const bool generated = include.find('/') == std::string::npos && include.ends_with(".moc");
    return KnownTo(file).contains(FirstFolder(include)) || (generated && folder == "qt");
}

TEST(IncludeRule, TellsWhatIsForbidden) {
    // That the rest is allowed, the sources themselves show.
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"platform/error.h", "platform/text/text.h", false},
        {"platform/store/store.cpp", "platform/adodb/adodb.h", false},
        {"platform/richtext/rtf.h", "platform/forms/form.h", false},
        {"platform/forms/desktop.h", "core/mMain.h", false},
        {"platform/forms/form.cpp", "QString", true},
        {"core/mMain.cpp", "texts/frmLang.h", false},
        {"core/mMain.cpp", "search/frmMain.h", false},
        {"search/frmMain.cpp", "qt/desktop.h", false},
        {"sheet/frmChemical.cpp", "search/frmMain.h", false},
        {"update/frmUPD.cpp", "settings/frmInstallningar.h", false},
        {"update/frmUPD.cpp", "curl/curl.h", true},
        {"qt/desktop.cpp", "search/frmMain.h", false},
        {"app/program.cpp", "QApplication", true}};
    for (const auto& [file, include, system] : cases) {
        EXPECT_FALSE(MayInclude(file, include, system)) << file << " " << include;
    }
}

TEST(IncludeRule, HoldsInEverySource) {
    const std::regex line(R"(^\s*#\s*include\s*([<"])([^>"]+))", std::regex::multiline);
    int seen = 0;
    for (const std::string& file : test::SourceFiles()) {
        const std::string source = test::ReadAll(test::kSources / file);
        for (std::sregex_iterator match(source.begin(), source.end(), line), end; match != end; ++match) {
            ++seen;
            EXPECT_TRUE(MayInclude(file, (*match)[2], (*match)[1] == "<"))
                << file << " may not include " << (*match)[2];
        }
    }
    EXPECT_GT(seen, 100);
}

}  // namespace
