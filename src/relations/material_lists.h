// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace vemora {

/// What sets the list of one class of materials in frmURelations apart from the other three, to the letter.
struct MaterialList {
    const char* CaptionKey;  // of its tab
    const char* Svenska;     // the statements that fill it
    const char* English;
    const char* FyllReport;  // ending of the report of its filling
    const char* Table;       // of its verdicts
    const char* IdColumn;
    std::int32_t Klass;  // as FinnsKoppling knows it
    const char* NoneSelectedKey;
    bool FirstSelectedCounts;  // at a click; else the last one
    bool ValueBeforeMarks;     // the order in which a click looks them up
    bool ButtonsByKopplad;     // after a click, by txtKopplad; else both by txtEgen
};

/// By the index of the tab.
inline constexpr std::array<MaterialList, 4> kMaterialLists = {{
    {.CaptionKey = "R0136",
     .Svenska = "SELECT ID, Name, Description FROM Metal WHERE Med = -1 ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Metal WHERE Med = -1 "
                "ORDER BY NameEN",
     .FyllReport = ") in procedure FyllMetal in Form frmURelations",
     .Table = "relMetal",
     .IdColumn = "MetalID",
     .Klass = 5,
     .NoneSelectedKey = "R0090",
     .FirstSelectedCounts = false,
     .ValueBeforeMarks = true,
     .ButtonsByKopplad = false},
    {.CaptionKey = "R0134",
     .Svenska = "SELECT ID, Name, Description FROM Plast WHERE Med = -1 ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Plast WHERE Med = -1 "
                "ORDER BY NameEN",
     .FyllReport = ") in procedure FyllPlast in Form frmURelations",
     .Table = "relPlast",
     .IdColumn = "PlastID",
     .Klass = 3,
     .NoneSelectedKey = "R0091",
     .FirstSelectedCounts = false,
     .ValueBeforeMarks = false,
     .ButtonsByKopplad = false},
    {.CaptionKey = "R0132",
     .Svenska = "SELECT ID, Name, Description FROM Tight WHERE Med = -1 ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Tight WHERE Med = -1 "
                "ORDER BY NameEN",
     .FyllReport = ") in procedure FyllTight in Form frmURelations",
     .Table = "relTight",
     .IdColumn = "TightID",
     .Klass = 4,
     .NoneSelectedKey = "R0092",
     .FirstSelectedCounts = false,
     .ValueBeforeMarks = false,
     .ButtonsByKopplad = false},
    {.CaptionKey = "R0130",
     .Svenska = "SELECT ID, Name, Description FROM Misc WHERE Med = -1 ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Misc WHERE Med = -1 "
                "ORDER BY NameEN",
     .FyllReport = ") in procedure FyllÖvrigt in Form frmURelations",
     .Table = "relMisc",
     .IdColumn = "MiscID",
     .Klass = 2,
     .NoneSelectedKey = "R0093",
     .FirstSelectedCounts = true,
     .ValueBeforeMarks = false,
     .ButtonsByKopplad = true},
}};

}  // namespace vemora
