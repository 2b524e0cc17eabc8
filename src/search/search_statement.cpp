// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "search/search_statement.h"

#include <array>
#include <vector>

namespace vemora {

std::string SearchStatement(const std::string& text, int option) {
    static const std::array<std::vector<const char*>, 5> columns = {{
        {"Formula", "NameSE", "NameEN", "NameGE", "NickNameSE", "NickNameEN", "NickNameGE", "NoteSE",
         "NoteEN", "NoteGE"},
        {"Formula"},
        {"NameSE", "NameEN", "NameGE"},
        {"NickNameSE", "NickNameEN", "NickNameGE"},
        {"NoteSE", "NoteEN", "NoteGE"},
    }};
    std::string statement = "SELECT * FROM Chemical";
    if (!text.empty() && option >= 0 && option < static_cast<int>(columns.size())) {
        // The search in everything alone has no blank behind its bracket.
        statement += option == 0 ? " WHERE (" : " WHERE ( ";
        const char* joint = "Chemical.";
        for (const char* column : columns[static_cast<std::size_t>(option)]) {
            statement.append(joint).append(column).append(" LIKE '%").append(text).append("%'");
            joint = " OR Chemical.";
        }
        statement += ")";
    }
    return statement + " ORDER BY Chemical.NameSE";
}

}  // namespace vemora
