// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The reader of the publisher's CSV: whatever the bytes, it gives rows with as many cells as the heading or
// one fault with its place, and what it gave as a text is UTF-8 without a NUL.

#include <cstdint>
#include <cstdlib>

#include "platform/test_database.h"
#include "platform/text/text.h"
#include "vemora-db/csv_reader.h"
#include "vemora-db/failures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TestFolder folder;
    const auto file = folder.Path() / "fuzz.csv";
    std::ofstream(file, std::ios::binary) << std::string_view(reinterpret_cast<const char*>(data), size);
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
