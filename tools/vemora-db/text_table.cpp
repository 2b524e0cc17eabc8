// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/text_table.h"

#include <algorithm>
#include <cstddef>

#include "platform/text/text.h"

namespace vemora_db {

void PrintRows(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
    struct Shape {
        std::size_t Width = 0;
        bool Numbers = true;
    };
    std::vector<Shape> shapes(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            shapes[i].Width = std::max(shapes[i].Width, platform::Len(row[i]));
            shapes[i].Numbers = shapes[i].Numbers && (&row == &rows.front() ||
                                                      row[i].find_first_not_of("0123456789") == row[i].npos);
        }
    }
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string gap(shapes[i].Width - platform::Len(row[i]), ' ');
            const bool last = i + 1 == row.size();
            out << (shapes[i].Numbers ? gap : "") << row[i] << (shapes[i].Numbers || last ? "" : gap)
                << (last ? "\n" : "  ");
        }
    }
}

std::string Quoted(std::string_view text) {
    std::string line(text);
    std::replace(line.begin(), line.end(), '\r', ' ');
    std::replace(line.begin(), line.end(), '\n', ' ');
    return "\"" + line + "\"";
}

}  // namespace vemora_db
