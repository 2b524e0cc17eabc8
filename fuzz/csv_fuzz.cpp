// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The reader of the publisher's CSV: whatever the bytes, it gives rows with as many cells as the heading or
// one fault with its place, and what it gave as a text is UTF-8 without a NUL.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/text/text.h"
#include "vemora-db/csv_reader.h"
#include "vemora-db/failures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One file a process, beside the others of a parallel run.
    static const std::filesystem::path file =
        std::filesystem::temp_directory_path() /
        ("vemora_csv_fuzz_" + std::to_string(reinterpret_cast<std::uintptr_t>(&size)) + ".csv");
    {
        std::ofstream out(file, std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    try {
        vemora_db::CsvReader reader(file);
        const std::size_t columns = reader.Heading().size();
        while (reader.Next()) {
            for (std::size_t i = 0; i < columns; ++i) {
                const std::string_view text = reader.Text(i);
                if (text.find('\0') != std::string_view::npos || (reader.IsNull(i) && !text.empty())) {
                    std::abort();
                }
                platform::Len(text);
            }
        }
    } catch (const vemora_db::BadData&) {
        // The fault is told with its place; nothing else may come out of bad bytes.
    }
    return 0;
}
