// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>

#include "vemora-db/failures.h"

namespace vemora_db {

/// Runs the program: what it says goes to out, faults and progress to err.
Status Run(int argc, const char* const* argv, std::ostream& out, std::ostream& err, bool terminal);

}  // namespace vemora_db
