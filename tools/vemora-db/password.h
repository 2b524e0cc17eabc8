// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace vemora_db {

/// The password that the delivered database has and the desktop program opens it with. It keeps nobody out
/// who has the program; it keeps the file from being changed by chance with other tools.
inline constexpr std::string_view kDeliveredPassword = "mora27";

}  // namespace vemora_db
