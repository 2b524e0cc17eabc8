// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "texts/language_files.h"

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/files/ini.h"
#include "platform/text/text.h"
#include "texts/mTexter.h"

namespace vemora {

LanguageFiles FindLanguageFiles(const std::filesystem::path& folder) {
    LanguageFiles found;
    const auto bin = platform::FindFolder(folder, "bin");
    for (const std::string& name : platform::Dir(bin, "Lang*.ini")) {
        const bool active = platform::LCase(name) == "lang.ini";
        // Of several spellings the one that every text is read from counts.
        const auto file = active ? platform::FindFile(bin, "lang.ini") : bin / platform::PathFromUtf8(name);
        const std::string language =
            file ? platform::ReadKey("System", "lang", buffer::Language, *file) : std::string();
        if (active) {
            found.Current = language;
        } else if (!language.empty()) {
            std::string entry = language;
            entry.append(100, ' ').append(name);
            found.Entries.push_back(std::move(entry));
        }
    }
    return found;
}

bool EntryIsLanguage(const std::string& entry, const std::string& language) {
    return platform::Trim(platform::Left(entry, 50)) == language;
}

void ListLanguages(platform::ComboBox& list, const std::filesystem::path& folder, bool& loading) {
    const LanguageFiles files = FindLanguageFiles(folder);
    for (const std::string& entry : files.Entries) {
        list.AddItem(entry);
    }
    for (int i = 0; i < list.ListCount(); ++i) {
        if (EntryIsLanguage(list.List(i), files.Current)) {
            loading = true;
            list.ListIndex = i;
            loading = false;
            break;
        }
    }
}

void ActivateLanguage(const std::filesystem::path& folder, const std::string& entry) {
    const std::string name = entry.substr(entry.rfind(' ') + 1);
    try {
        platform::Kill(folder, "bin/Lang.ini");
    } catch (const platform::Error&) {
        // It may not exist; whether the copy can take its place shows in the next step.
    }
    const auto bin = platform::FindFolder(folder, "bin");
    platform::FileCopy(bin / platform::PathFromUtf8(name), bin / "lang.ini");
}

}  // namespace vemora
