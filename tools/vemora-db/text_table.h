// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vemora_db {

/// Prints rows in columns, the first row being their headings. Columns of numbers stand at the right; the
/// last column is as wide as it is.
void PrintRows(std::ostream& out, const std::vector<std::vector<std::string>>& rows);

/// A text in quotes and in one line.
std::string Quoted(std::string_view text);

}  // namespace vemora_db
