// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The first byte is the size of the buffer, the rest the file.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/files/ini.h"
#include "platform/text/text.h"

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    static const auto file =
        std::filesystem::temp_directory_path() / ("ini_fuzz." + std::to_string(getpid()) + ".ini");
    const std::size_t buffer = data[0];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::ofstream(file, std::ios::binary) << bytes;

    for (const std::string_view key : {"lang", "R0001", "\xC3\x85"}) {
        const std::string value = platform::ValueOfKey(bytes, "System", key);
        Require(value.find_first_of(std::string_view("\r\n\0", 3)) == std::string::npos);

        const std::string filled = platform::GetPrivateProfileString("System", key, buffer, file);
        Require(platform::Len(filled) == buffer);

        const std::string text = platform::ReadKey("System", key, buffer, file);
        Require(buffer == 0 ? text.empty() : platform::Len(text) < buffer);
        Require(value.find(text) != std::string::npos);
    }
    return 0;
}
