// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <system_error>

namespace platform {

// The one place that knows how each system takes bytes to the disk.

/// Returns when what was written to the file is on the disk, or the reason why it isn't.
std::error_code Sync(const std::filesystem::path& file);

/// The same for the names in a folder ("" is the current one), as far as the system and its disk have such a
/// thing. Without it a power cut may bring a replaced file back, whole.
void SyncFolder(const std::filesystem::path& folder);

}  // namespace platform
