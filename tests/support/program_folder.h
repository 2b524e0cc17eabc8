// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/test_database.h"

namespace test {

/// A program's folder of its own, as it is laid out at a user's: the database with the sample rows, and the
/// language files under "bin", one of them active.
class ProgramFolder {
  public:
    /// "Svenska", "English" or "Deutsch"; empty for a folder in which no language has been chosen yet.
    explicit ProgramFolder(const std::string& language);

    const std::filesystem::path& Path() const { return folder_.Path(); }
    std::filesystem::path Database() const { return Path() / "Vemora.mdb"; }
    std::filesystem::path Bin(std::string_view name) const;
    /// Names of the files in the folder itself or in one under it, sorted.
    std::vector<std::string> Files(const char* under = "") const;

    /// Lays out a language file from UTF-8 with LF: Windows-1252 with CR LF.
    void WriteLanguage(std::string_view name, std::string_view text) const;
    /// Changes the rows by statements of the store's own SQL. Nobody may have the database open.
    void Change(std::string_view sql) const;

  private:
    TestFolder folder_;
};

}  // namespace test
