// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "platform/files/ini.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"
#include "rules/sources.h"

namespace {

using Texts = std::map<std::string, std::string>;
using Keys = std::set<std::string>;

constexpr const char* kLanguages[] = {"Svenska", "English", "Deutsch"};

std::string Bytes(const std::string& language) {
    return test::ReadAll(std::filesystem::path(VEMORA_SOURCE_DIR) / "data" / "lang" /
                         ("Lang" + language + ".ini"));
}

Texts TextsOf(const std::string& language) {
    Texts texts;
    std::istringstream lines(Bytes(language));
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        if (!line.empty() && line.front() != ';' && line.front() != '[') {
            EXPECT_TRUE(texts.emplace(line.substr(0, equals), line.substr(equals + 1)).second) << line;
        }
    }
    return texts;
}

TEST(LanguageFiles, HaveTheKeysThatTheProgramUsesAndNoOthers) {
    static const std::regex key(R"(\bR0\d\d\d\b)");
    Keys used = {"lang"};
    for (const std::string& file : test::SourceFiles()) {
        const std::string source = test::ReadAll(test::kSources / file);
        used.insert(std::sregex_token_iterator(source.begin(), source.end(), key), {});
    }
    for (const char* language : kLanguages) {
        Keys keys;
        for (const auto& [name, text] : TextsOf(language)) {
            keys.insert(name);
            EXPECT_TRUE(name != "lang" || text == language);
        }
        EXPECT_EQ(keys, used) << language;
    }
}

TEST(LanguageFiles, ReachTheProgramAsTheyAreWritten) {
    for (const char* language : kLanguages) {
        const std::string laidOut = platform::ToWindows1252(platform::Replace(Bytes(language), "\n", "\r\n"));
        for (const auto& [key, text] : TextsOf(language)) {
            EXPECT_EQ(platform::ValueOfKey(laidOut, "System", key), text) << language << " " << key;
            // All are short enough for any use, but the one that is a caption only.
            EXPECT_LE(platform::Len(text), key == "R0330" ? 499U : 254U) << language << " " << key;
            EXPECT_EQ(text.empty(), key == "R0115") << language << " " << key;
        }
    }
}

TEST(LanguageFiles, CarryWhatTheProgramReadsOutOfThem) {
    const std::pair<const char*, const char*> markers[] = {
        {"R0067", "(Koncentration)"}, {"R0107", "(Temperatur)"}, {"R0073", "(Övrigt)"},
        {"R0110", "(Tätning)"},       {"R0086", "(Plast)"},      {"R0070", "(Metall)"}};
    const Texts swedish = TextsOf("Svenska");
    for (const char* language : kLanguages) {
        SCOPED_TRACE(language);
        const Texts texts = TextsOf(language);
        EXPECT_EQ(texts.at("R0112").substr(0, 1) + texts.at("R0113")[0] + texts.at("R0114")[0], "+-0");
        for (const auto& [key, own] : markers) {
            for (const auto& [other, marker] : markers) {
                EXPECT_EQ(texts.at(key).find(marker) != std::string::npos, key == other) << key << marker;
            }
            EXPECT_EQ(texts.at(key).find('\''), std::string::npos) << key;  // stands in a quoted text
        }
        EXPECT_EQ(texts.at("R0249").back(), ':');
        // The column that never shows an arrow is known by its Swedish heading.
        EXPECT_EQ(texts.at("R0017") == "Värde", language == swedish.at("lang"));
        for (const auto& [key, text] : texts) {
            EXPECT_EQ(text.find('&') == std::string::npos, swedish.at(key).find('&') == std::string::npos)
                << key << " has a mnemonic in one language only";
        }
    }
}

}  // namespace
