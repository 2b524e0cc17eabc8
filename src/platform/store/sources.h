// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What a text of the table Source says: the codes of the sources behind a line of verdicts, "LC1+LC2", and,
/// each behind a semicolon, those behind the verdicts on some of its materials, told by their keys:
/// "LC1+LC2; CS,CI: ND1".
struct SourceGroup {
    std::vector<std::string> Keys;  // of no material in the first group, which stands for all others
    std::vector<std::string> Codes;
};

/// The groups in their order; a group without codes is left out. Any text can be read.
std::vector<SourceGroup> ParseSources(std::string_view text);

/// The codes behind the verdict on the material with this key.
std::vector<std::string> SourceCodes(std::string_view text, std::string_view key);

}  // namespace platform
