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

// Keys of windows that are still to come: an entry goes when a source uses its key.
constexpr const char* kAwaited =
    "R0041 R0043 R0044 R0063 R0064 R0066 R0067 R0069 R0072 R0074 R0075 R0076 R0077 R0078 R0079 R0080 R0083 "
    "R0085 R0087 R0088 R0089 R0090 R0091 R0092 R0093 R0094 R0095 R0106 R0107 R0109 R0120 R0121 R0159 R0160 "
    "R0161 R0162 R0163 R0164 R0167 R0168 R0169 R0170 R0171 R0178 R0218 R0220 R0221 R0223 R0224 R0226 R0227 "
    "R0234 R0235 R0236 R0238 R0246 R0247 R0248 R0249 R0258 R0260 R0269 R0273 R0274 R0275 R0276 R0277 R0278 "
    "R0287 R0290 R0295 R0298 R0299 R0306 R0316 R0327 R0330 R0338";

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

Keys UsedKeys() {
    static const std::regex key(R"(\bR0\d\d\d\b)");
    Keys used = {"lang"};
    for (const std::string& file : test::SourceFiles()) {
        const std::string source = test::ReadAll(test::kSources / file);
        for (std::sregex_iterator match(source.begin(), source.end(), key), end; match != end; ++match) {
            used.insert(match->str());
        }
    }
    return used;
}

TEST(LanguageFiles, HaveTheKeysThatTheProgramUsesAndNoOthers) {
    Keys expected = UsedKeys();
    std::istringstream awaited(kAwaited);
    for (std::string key; awaited >> key;) {
        EXPECT_TRUE(expected.insert(key).second) << key << " is used now and no longer awaited";
    }
    for (const char* language : kLanguages) {
        const Texts texts = TextsOf(language);
        Keys keys;
        for (const auto& entry : texts) {
            keys.insert(entry.first);
        }
        EXPECT_EQ(keys, expected) << language;
        EXPECT_EQ(texts.at("lang"), language);
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
