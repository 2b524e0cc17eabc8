// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// Names of files compare without regard to case, whatever the file system does: on one that tells "Lang.ini"
// from "lang.ini" the two are one file here all the same. Failures are errors 53 (not found), 70 (not
// permitted, in use), 71 (disk full) and 75 (anything else with the path or the file).

/// A path from UTF-8 text, and the text of a path. On other systems than Windows "\" is no separator here.
std::filesystem::path PathFromUtf8(std::string_view text);
std::string Utf8FromPath(const std::filesystem::path& path);

/// Names (UTF-8) of the plain files of a folder that match a pattern, where "*" stands for any characters and
/// "?" for any one; in the order that the directory delivers. A missing or unreadable folder has none.
std::vector<std::string> Dir(const std::filesystem::path& folder, std::string_view pattern);

/// The plain file at a place relative to the folder, given with "/" or "\" between its names
/// ("bin\lang.ini"). An exact match goes before one that differs in case.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder, std::string_view relative);

/// The folder of this name in another, without regard to case as in FindFile; the name as given when there is
/// none.
std::filesystem::path FindFolder(const std::filesystem::path& folder, std::string_view name);

/// Deletes the file at a place as in FindFile, in every spelling of its name. Errors 53, 70, 75.
void Kill(const std::filesystem::path& folder, std::string_view relative);

/// Copies a file onto another, which may exist. The target is whole at any time, the old content or the new,
/// and is afterwards there in one spelling only, the one given. Errors 53, 70, 71, 75.
void FileCopy(const std::filesystem::path& from, const std::filesystem::path& to);

/// A file to be read from its beginning. Errors 53, 70, 75.
std::ifstream OpenFile(const std::filesystem::path& file);

/// The bytes of a file. Errors 53, 70, 75.
std::string ReadFile(const std::filesystem::path& file);

/// Makes the bytes the content of a file, by way of a temporary file beside it, so that a failure leaves what
/// was there; so does a power cut, for the bytes are on the disk before they get the name. Other spellings of
/// the name are gone afterwards. Errors 70, 71, 75.
void WriteFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace platform
