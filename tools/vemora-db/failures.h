// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <stdexcept>

namespace vemora_db {

// What fails outside of data and usage is a platform::Error.

/// The data are not as they must be; the message begins with the place, "file:line:column: ".
struct BadData : std::runtime_error {
    using runtime_error::runtime_error;
};

/// What was asked for can't be done with these arguments.
struct WrongUsage : std::runtime_error {
    using runtime_error::runtime_error;
};

/// The user stopped the program.
struct Interrupted : std::runtime_error {
    Interrupted() : runtime_error("stopped; nothing was changed") {}
};

/// The exit statuses, as the manual page tells them.
enum class Status { Fine = 0, Findings = 1, WrongUsage = 2, BadData = 3, Failed = 4 };

}  // namespace vemora_db
