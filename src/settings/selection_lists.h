// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

#include "core/mMain.h"

namespace vemora {

/// What sets one list of frmInställningar apart from the other five, to the letter.
struct SelectionList {
    const char* CaptionKey;  // of its tab
    std::int32_t Typ;
    const char* Svenska;  // the statements that fill it
    const char* English;
    const char* TextColumn;
    const char* HeadingKey;
    bool Described;         // a second column, and both of them half the width
    bool ClearsItemsFirst;  // before it is filled
    const char* FyllReport;
};

/// By the index of the tab.
inline constexpr std::array<SelectionList, 6> kSelectionLists = {{
    {.CaptionKey = "R0015",
     .Typ = typ::Conc,
     .Svenska = "SELECT ID, ConcentrationSE FROM Conc ORDER BY ConcentrationSE",
     .English = "SELECT ID, ConcentrationEN AS ConcentrationSE FROM Conc ORDER BY ConcentrationEN",
     .TextColumn = "ConcentrationSE",
     .HeadingKey = "R0044",
     .Described = false,
     .ClearsItemsFirst = true,
     .FyllReport = ") in procedure FyllKoncentration in Form frmURelations"},
    {.CaptionKey = "R0136",
     .Typ = typ::Metal,
     .Svenska = "SELECT ID, Name, Description FROM Metal ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Metal ORDER BY NameEN",
     .TextColumn = "Name",
     .HeadingKey = "R0018",
     .Described = true,
     .ClearsItemsFirst = false,
     .FyllReport = ") in procedure FyllMetal in Form frmURelations"},
    {.CaptionKey = "R0134",
     .Typ = typ::Plast,
     .Svenska = "SELECT ID, Name, Description FROM Plast ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Plast ORDER BY NameEN",
     .TextColumn = "Name",
     .HeadingKey = "R0018",
     .Described = true,
     .ClearsItemsFirst = false,
     .FyllReport = ") in procedure FyllPlast in Form frmURelations"},
    {.CaptionKey = "R0016",
     .Typ = typ::Temp,
     .Svenska = "SELECT * FROM Temp ORDER BY ID",
     .English = "SELECT * FROM Temp ORDER BY ID",
     .TextColumn = "Temp",
     .HeadingKey = "R0016",
     .Described = false,
     .ClearsItemsFirst = false,
     .FyllReport = ") in procedure FyllTemp in Form frmURelations"},
    {.CaptionKey = "R0132",
     .Typ = typ::Tight,
     .Svenska = "SELECT ID, Name, Description FROM Tight ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Tight ORDER BY NameEN",
     .TextColumn = "Name",
     .HeadingKey = "R0018",
     .Described = true,
     .ClearsItemsFirst = false,
     .FyllReport = ") in procedure FyllTight in Form frmURelations"},
    {.CaptionKey = "R0130",
     .Typ = typ::Misc,
     .Svenska = "SELECT ID, Name, Description FROM Misc ORDER BY Name",
     .English = "SELECT ID, NameEN AS Name, DescriptionEN AS Description FROM Misc ORDER BY NameEN",
     .TextColumn = "Name",
     .HeadingKey = "R0018",
     .Described = true,
     .ClearsItemsFirst = true,
     .FyllReport = ") in procedure FyllÖvrigt in Form frmURelations"},
}};

}  // namespace vemora
