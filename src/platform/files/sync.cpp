// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/sync.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace platform {

#ifdef _WIN32

std::error_code Sync(const std::filesystem::path& file) {
    const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool done = handle != INVALID_HANDLE_VALUE && FlushFileBuffers(handle) != 0;
    const auto reason = static_cast<int>(GetLastError());
    if (handle != INVALID_HANDLE_VALUE) {
        CloseHandle(handle);
    }
    return done ? std::error_code() : std::error_code(reason, std::system_category());
}

void SyncFolder(const std::filesystem::path&) {}

#else

std::error_code Sync(const std::filesystem::path& file) {
    const int handle = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) {
        return {errno, std::generic_category()};
    }
#ifdef F_FULLFSYNC
    // There fsync leaves the bytes in the cache of the disk; not every disk knows more.
    const bool done = fcntl(handle, F_FULLFSYNC) == 0 || fsync(handle) == 0;
#else
    const bool done = fsync(handle) == 0;
#endif
    const int reason = errno;
    close(handle);
    return done ? std::error_code() : std::error_code(reason, std::generic_category());
}

void SyncFolder(const std::filesystem::path& folder) {
    static_cast<void>(Sync(folder.empty() ? "." : folder));
}

#endif

}  // namespace platform
