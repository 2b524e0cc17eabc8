// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The first byte is the size of the buffer, the rest the file.

#include <cstdint>
#include <cstdlib>

#include "platform/files/ini.h"
#include "platform/test_database.h"
#include "platform/text/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    static const test::TestFolder folder;
    const auto file = folder.Path() / "fuzz.ini";
    const std::size_t buffer = data[0];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::ofstream(file, std::ios::binary) << bytes;
    for (const std::string_view key : {"lang", "R0001", "\xC3\x85"}) {
        const std::string value = platform::ValueOfKey(bytes, "System", key);
        const std::string filled = platform::GetPrivateProfileString("System", key, buffer, file);
        const std::string text = platform::ReadKey("System", key, buffer, file);
        if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos ||
            platform::Len(filled) != buffer || value.find(text) == std::string::npos ||
            !(buffer == 0 ? text.empty() : platform::Len(text) < buffer)) {
            std::abort();
        }
    }
    return 0;
}
