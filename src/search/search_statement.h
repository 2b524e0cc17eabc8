// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace vemora {

/// The statement that searches the chemicals for a text, which goes in as it stands. Where to search: 0 all
/// columns, 1 formula, 2 names, 3 trade names, 4 notes. An empty text finds all.
std::string SearchStatement(const std::string& text, int option);

}  // namespace vemora
