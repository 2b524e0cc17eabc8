// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/differences.h"

namespace vemora {

using platform::adodb::Recordset;

const InLanguage& Difference::In(const std::string& language) const {
    static const InLanguage none;
    return language == "Svenska"   ? Svenska
           : language == "English" ? English
           : language == "Deutsch" ? Deutsch
                                   : none;
}

// The windows of the materials. In one of them English texts are shown from columns of their own and saved to
// the Swedish ones; in two the language's columns go under the names that are written.

const Difference kUMisc{
    .Name = "frmUMisc",
    .NameInReport = "frmUMisc",
    .TitleKey = "R0130",
    .List = "lstMisc",
    .ListLabelKey = "R0269",
    .Svenska = {"SELECT * from Misc Order by Name", "Name", "", {"Name", "Description"}},
    .English = {"SELECT * from Misc Order by Name", "Name", "", {"Name", "Description"}},
    .Deutsch = {},
    .LineAfterRefresh = "Name",
    .Written = {"Name", "Description"},
    .MoveFirstAlways = false,
    .DuplicateBegin = "SELECT * FROM Misc WHERE Name LIKE '%",
    .DuplicateBox = 1,
    .DuplicateEnd = "%'",
    .DuplicateKey = "R0072",
    .ClassKey = "R0073",
    .CancelCall = &Recordset::Cancel,
};

const Difference kUPlast{
    .Name = "frmUPlast",
    .NameInReport = "frmUPlast",
    .TitleKey = "R0134",
    .List = "lstPlast",
    .ListLabelKey = "R0287",
    .Svenska = {"SELECT * from Plast Order by Name", "Name", "", {"Name", "Description"}},
    .English = {"SELECT * from Plast Order by Name", "NameEN", "", {"NameEN", "DescriptionEN"}},
    .Deutsch = {},
    .LineAfterRefresh = "Name",
    .Written = {"Name", "Description"},
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Plast WHERE Name LIKE '%",
    .DuplicateBox = 1,
    .DuplicateEnd = "%'",
    .DuplicateKey = "R0085",
    .ClassKey = "R0086",
    .CancelCall = &Recordset::Cancel,
};

const Difference kUTight{
    .Name = "frmUTight",
    .NameInReport = "frmUTight",
    .TitleKey = "R0132",
    .List = "lstTight",
    .ListLabelKey = "R0327",
    .Svenska = {"SELECT ID, Name, Description, Egen, Med from Tight Order by Name",
                "Name",
                "",
                {"Name", "Description"}},
    .English = {"SELECT ID, NameEN AS Name, DescriptionEN AS Description, Egen, Med from Tight Order by Name",
                "Name",
                "",
                {"Name", "Description"}},
    .Deutsch = {"SELECT ID, NameDE AS Name, DescriptionDE AS Description, Egen, Med from Tight Order by Name",
                "Name",
                "",
                {"Name", "Description"}},
    .LineAfterRefresh = "Name",
    .Written = {"Name", "Description"},
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Tight WHERE Name LIKE '%",
    .DuplicateBox = 1,
    .DuplicateEnd = "%'",
    .DuplicateKey = "R0109",
    .ClassKey = "R0110",
    .CancelCall = &Recordset::Cancel,
};

const Difference kUMetal{
    .Name = "frmUMetal",
    .NameInReport = "frmUMetal",
    .TitleKey = "R0136",
    .List = "lstMetaller",
    .ListLabelKey = "R0258",
    .Svenska = {"SELECT ID, Name, Description, Egen, Med FROM Metal Order by Name",
                "Name",
                "",
                {"Name", "Description"}},
    .English = {"SELECT ID, NameEN AS Name, DescriptionEN AS Description, Egen, Med FROM Metal Order by Name",
                "Name",
                "",
                {"Name", "Description"}},
    .Deutsch = {},
    .LineAfterRefresh = "Name",
    .Written = {"Name", "Description"},
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Metal WHERE Name LIKE '%",
    .DuplicateBox = 1,
    .DuplicateEnd = "%'",
    .DuplicateKey = "R0069",
    .ClassKey = "R0070",
    .CancelCall = &Recordset::Cancel,
};

const Difference kUConcentration{
    .Name = "frmUConcentration",
    .NameInReport = "frmUConcentration",
    .TitleKey = "R0238",
    .List = "lstConc",
    .ListLabelKey = "R0246",
    .Svenska = {"SELECT * FROM Conc Order by ConcentrationSE",
                "ConcentrationSE",
                "",
                {"ConcentrationSE", "ConcentrationEN", "ConcentrationDE"}},
    .English = {"SELECT * FROM Conc Order by ConcentrationEN",
                "ConcentrationEN",
                "ConcentrationSE",
                {"ConcentrationSE", "ConcentrationEN", "ConcentrationDE"}},
    .Deutsch = {},
    .LineAfterRefresh = "ConcentrationSE",
    .Written = {"ConcentrationSE", "ConcentrationEN", "ConcentrationDE"},
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Conc WHERE ConcentrationSE = '",
    .DuplicateBox = 1,
    .DuplicateEnd = "'",
    .DuplicateKey = "R0066",
    .ClassKey = "R0067",
    .CancelCall = &Recordset::CancelUpdate,
};

const Difference kUTemperature{
    .Name = "frmUTemperature",
    .NameInReport = "frmUTemerature",
    .TitleKey = "R0016",
    .List = "lstTemp",
    .ListLabelKey = "R0316",
    .Svenska = {"SELECT * FROM Temp Order by ID", "Temp", "", {"Temp"}},
    .English = {"SELECT * FROM Temp Order by ID", "Temp", "", {"Temp"}},
    .Deutsch = {},
    .LineAfterRefresh = "Temp",
    .Written = {"Temp"},
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Temp WHERE Temp LIKE '%",
    .DuplicateBox = 1,
    .DuplicateEnd = "%'",
    .DuplicateKey = "R0106",
    .ClassKey = "R0107",
    .CancelCall = &Recordset::CancelUpdate,
};

namespace {

// One a text box from 1, and the order in which a save writes them.
const std::vector<const char*> kChemicalColumns = {"Formula",    "NameSE",     "NameEN",    "NameGE",
                                                   "NoteSE",     "NoteEN",     "NoteGE",    "NickNameGE",
                                                   "NickNameEN", "NickNameSE", "FormulaRTF"};

}  // namespace

// The class is no matter here: a chemical is asked for by its own ID.
const Difference kUChemicals{
    .Name = "frmUChemicals",
    .NameInReport = "frmUChemicals",
    .TitleKey = "R0218",
    .List = "lstChemicals",
    .ListLabelKey = "R0227",
    .Svenska = {"SELECT * FROM Chemical Order by NameSE", "NameSE", "", kChemicalColumns},
    .English = {"SELECT * FROM Chemical Order by NameEN", "NameEN", "NameSE", kChemicalColumns},
    .Deutsch = {},
    .LineAfterRefresh = "NameSE",
    .Written = kChemicalColumns,
    .MoveFirstAlways = true,
    .DuplicateBegin = "SELECT * FROM Chemical WHERE NameSE = '",
    .DuplicateBox = 2,
    .DuplicateEnd = "'",
    .DuplicateKey = "R0064",
    .ClassKey = "",
    .CancelCall = &Recordset::CancelUpdate,
};

}  // namespace vemora
