// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace platform {

// Ini files as the system's texts are kept in: "[section]" lines, "key=value" lines, comments behind ";".
// Names compare without regard to case, and of two equal ones the first counts. Blanks and tabs around names
// and values go, and so does one pair of equal quotes (" or ') around a whole value. Lines end in LF, CR LF
// or CR. A file is Windows-1252, or what a mark at its beginning says: UTF-8 or UTF-16 (low byte first).

/// The value of a key in the bytes of an ini file, UTF-8; empty when there is no such section or key. A NUL
/// ends a value. Any bytes will do.
std::string ValueOfKey(std::string_view bytes, std::string_view section, std::string_view key);

/// Reads a key into a buffer of size blanks, and gives the whole buffer, size characters: the value, cut to
/// one character less than the buffer holds, a NUL, and what is left of the blanks. A missing or unreadable
/// file is one without keys. Nothing is kept from one call to the next.
std::string GetPrivateProfileString(std::string_view section, std::string_view key, std::size_t size,
                                    const std::filesystem::path& file);

/// The value of a key as the texts of the system are read: by way of a buffer of size blanks, which cuts it
/// to size - 1 characters, and trimmed. Empty when anything is missing.
std::string ReadKey(std::string_view section, std::string_view key, std::size_t size,
                    const std::filesystem::path& file);

}  // namespace platform
