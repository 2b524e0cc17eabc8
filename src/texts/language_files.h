// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/forms/lists.h"

namespace vemora {

/// The language files of a folder, as they are offered for choice.
struct LanguageFiles {
    /// Name of the language in force; empty when none is.
    std::string Current;
    /// An entry for each file but the active one: the language's name, 100 blanks, the file's name.
    std::vector<std::string> Entries;
};

/// Reads the key "lang" of every file of the pattern "bin\Lang*.ini", in the order of the directory.
LanguageFiles FindLanguageFiles(const std::filesystem::path& folder);

/// Whether an entry stands for this language: its first 50 characters, trimmed, are the name.
bool EntryIsLanguage(const std::string& entry, const std::string& language);

/// Puts an entry for each language file into the list and selects the one whose language is in force, if
/// there is one. `loading` is true while that selection raises its event.
void ListLanguages(platform::ComboBox& list, const std::filesystem::path& folder, bool& loading);

/// Puts the file that an entry names in the place of the active one. Error 53, 70, 71 or 75 when the copy
/// fails; the active file may be gone then.
void ActivateLanguage(const std::filesystem::path& folder, const std::string& entry);

}  // namespace vemora
