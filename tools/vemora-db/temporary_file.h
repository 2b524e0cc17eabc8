// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string_view>

namespace vemora_db {

/// The file's name and a suffix behind it.
std::filesystem::path Beside(const std::filesystem::path& file, std::string_view suffix);

/// Throws WrongUsage when a journal lies beside a database, so that the file alone doesn't hold all its rows.
void RefuseJournal(const std::filesystem::path& file);

/// Throws WrongUsage when both are one file.
void RefuseSame(const std::filesystem::path& one, const std::filesystem::path& other);

/// A new name beside the file. What lies there is gone at the end unless it took the file's place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::filesystem::path& file);
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile();

    const std::filesystem::path& Path() const { return path_; }
    /// Replaces the file, whose permissions stay what they were.
    void TakePlace();

  private:
    std::filesystem::path target_;
    std::filesystem::path path_;
};

}  // namespace vemora_db
