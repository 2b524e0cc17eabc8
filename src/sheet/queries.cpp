// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/error.h"
#include "sheet/frmChemical.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;
namespace pointer = platform::pointer;

// What differs between the four classes; all else of their statements is the same.
struct frmChemical::MaterialClass {
    std::string Table;   // the relation table and the ID column are named after it
    std::string HeadSE;  // up to the opening quote and, but for Metal, the blank of the class label
    std::string HeadEN;
    std::string HeadOther;   // in any other language; empty: the statement has no head and fails
    std::string LabelBlank;  // between the head and the class label
    std::string LabelKey;
    std::int32_t Typ;
    bool AlwaysByMaterial;  // names every material even when the user's selection is off
    std::string OrderBy;
    const char* Ending;
};

frmChemical::RecordsetPtr frmChemical::GetMetallRs(bool VisaPlus, bool VisaMinus, bool VisaNoll,
                                                   bool VisaBlank) {
    static const MaterialClass metal{
        .Table = "Metal",
        .HeadSE = "SELECT 'me' & Metal.ID AS IDFält, Metal.Name, relMetal.TheValue, Metal.Description + '",
        .HeadEN =
            "SELECT 'me' & Metal.ID AS IDFält, Metal.NameEN AS [Name], relMetal.TheValue, "
            "Metal.DescriptionEN + '",
        .HeadOther = "",
        .LabelBlank = " ",
        .LabelKey = "R0070",
        .Typ = typ::Metal,
        .AlwaysByMaterial = true,
        .OrderBy = "",
        .Ending = ") in procedure GetMetallRs in Form frmChemical"};
    return GetClassRs(metal, VisaPlus, VisaMinus, VisaNoll, VisaBlank);
}

frmChemical::RecordsetPtr frmChemical::GetPlastRs(bool VisaPlus, bool VisaMinus, bool VisaNoll,
                                                  bool VisaBlank) {
    static const MaterialClass plast{
        .Table = "Plast",
        .HeadSE = "SELECT 'pl' & Plast.ID AS IDFält, Plast.Name, relPlast.TheValue, Plast.Description + ' ",
        .HeadEN =
            "SELECT 'pl' & Plast.ID AS IDFält, Plast.NameEN AS [Name], relPlast.TheValue, "
            "Plast.DescriptionEN + ' ",
        .HeadOther = "",
        .LabelBlank = "",
        .LabelKey = "R0086",
        .Typ = typ::Plast,
        .AlwaysByMaterial = false,
        .OrderBy = " ORDER BY relPlast.ConcID, relPlast.TempID, Plast.Name",
        .Ending = ") in procedure GetPlastRs in Form frmChemical"};
    return GetClassRs(plast, VisaPlus, VisaMinus, VisaNoll, VisaBlank);
}

frmChemical::RecordsetPtr frmChemical::GetTightRs(bool VisaPlus, bool VisaMinus, bool VisaNoll,
                                                  bool VisaBlank) {
    static const std::string swedish =
        "SELECT 'ti' & Tight.ID AS IDFält, Tight.Name, relTight.TheValue, Tight.Description + ' ";
    static const MaterialClass tight{
        .Table = "Tight",
        .HeadSE = swedish,
        .HeadEN =
            "SELECT 'ti' & Tight.ID AS IDFält, Tight.NameEN AS [Name], relTight.TheValue, "
            "Tight.DescriptionEN + ' ",
        .HeadOther = swedish,
        .LabelBlank = "",
        .LabelKey = "R0110",
        .Typ = typ::Tight,
        .AlwaysByMaterial = false,
        .OrderBy = "",
        .Ending = ") in procedure GetTightRs in Form frmChemical"};
    return GetClassRs(tight, VisaPlus, VisaMinus, VisaNoll, VisaBlank);
}

frmChemical::RecordsetPtr frmChemical::GetMiscRs(bool VisaPlus, bool VisaMinus, bool VisaNoll,
                                                 bool VisaBlank) {
    static const std::string swedish =
        "SELECT 'öv' & Misc.ID AS IDFält, Misc.Name, relMisc.TheValue, Misc.Description + ' ";
    static const MaterialClass misc{.Table = "Misc",
                                    .HeadSE = swedish,
                                    .HeadEN = swedish,
                                    .HeadOther = swedish,
                                    .LabelBlank = "",
                                    .LabelKey = "R0073",
                                    .Typ = typ::Misc,
                                    .AlwaysByMaterial = false,
                                    .OrderBy = "",
                                    .Ending = ") in procedure GetMiscRs in Form frmChemical"};
    return GetClassRs(misc, VisaPlus, VisaMinus, VisaNoll, VisaBlank);
}

// The record set of the class with the index of its check box; none when the box isn't ticked.
frmChemical::RecordsetPtr frmChemical::GetRs(int index) {
    if (chkMaterial(index).Value != 1) {
        return nullptr;
    }
    const bool plus = chkVärde(0).Value != 0;
    const bool minus = chkVärde(1).Value != 0;
    const bool zero = chkVärde(2).Value != 0;
    const bool blank = chkVärde(3).Value != 0;
    switch (index) {
        case 0:
            return GetMetallRs(plus, minus, zero, blank);
        case 1:
            return GetPlastRs(plus, minus, zero, blank);
        case 2:
            return GetTightRs(plus, minus, zero, blank);
        default:
            return GetMiscRs(plus, minus, zero, blank);
    }
}

namespace {

// Cuts the separator behind the last entry.
std::string Cut(std::string list) {
    if (list.size() > 2) {
        list.resize(list.size() - 2);
    }
    return list;
}

}  // namespace

frmChemical::RecordsetPtr frmChemical::GetClassRs(const MaterialClass& klass, bool VisaPlus, bool VisaMinus,
                                                  bool VisaNoll, bool VisaBlank) {
    try {
        MousePointer(pointer::Hourglass);
        const std::string& table = klass.Table;
        const std::string rel = "rel" + table;

        std::string statement = gSpråk == "Svenska"   ? klass.HeadSE
                                : gSpråk == "English" ? klass.HeadEN
                                                      : klass.HeadOther;
        statement += klass.LabelBlank + TextTillAndra(klass.LabelKey);
        statement += "' AS Description, " + rel + ".Egen AS RelEgen, " + table + ".Egen AS Egen, " + rel +
                     ".ConcID, " + rel + ".TempID";
        statement += " FROM " + table + " INNER JOIN (Chemical INNER JOIN " + rel +
                     " ON Chemical.ID = " + rel + ".ChemID) ON " + table + ".ID = " + rel + "." + table +
                     "ID";
        statement += " Where " + rel + ".ChemID = " + txtFields(0).Text.Get();

        std::string values;
        values += VisaPlus ? "'+', " : "";
        values += VisaMinus ? "'-', " : "";
        values += VisaNoll ? "'0', " : "";
        values += VisaBlank ? "' ', " : "";
        if (values.size() > 2) {
            statement += " AND TheValue IN (" + Cut(values) + ")";
        }

        // The first entry of the concentrations stands for all of them, that of the temperatures for those
        // that take part.
        const int conc = cboConc.ListIndex;
        if (conc > 0) {
            statement += " AND " + rel + ".ConcID = " + std::to_string(cboConc.ItemData(conc));
        } else if (cboConc.ItemData(conc) != -1) {
            statement += " AND " + rel + ".ConcID IN (" + GetAllaConc() + ")";
        }
        const int temp = cboTemp.ListIndex;
        if (temp > 0) {
            statement += " AND " + rel + ".TempID = " + std::to_string(cboTemp.ItemData(temp));
        } else {
            statement += " AND " + rel + ".TempID IN (" + GetAllaTemp() + ")";
        }

        if (klass.AlwaysByMaterial || !mFilterAv) {
            const RecordsetPtr selected = Main.GetValdaMaterial(klass.Typ, !mFilterAv, false);
            if (selected == nullptr) {
                throw Error(platform::errors::NoObject, "There is no record set of the materials.",
                            "frmChemical");
            }
            std::string list;
            if (selected->Eof()) {
                list = "-1";
            }
            while (!selected->Eof()) {
                list += (*selected)["ID"].Text() + ", ";
                selected->MoveNext();
            }
            selected->Close();
            list = Cut(list);
            if (!list.empty()) {
                statement += " AND " + table + ".ID IN (" + list + ")";
            }
        }
        statement += klass.OrderBy;

        auto rs = std::make_unique<Recordset>();
        rs->Open(statement, *gCn, ado::adOpenStatic, ado::adLockOptimistic);
        MousePointer(pointer::Default);
        return rs;
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, klass.Ending);
        return nullptr;
    }
}

std::string frmChemical::GetConc(const std::string& ID) {
    std::string result;
    try {
        MousePointer(pointer::Hourglass);
        std::string statement;
        if (gSpråk == "Svenska") {
            statement = "SELECT ConcentrationSE FROM Conc WHERE ID = " + ID;
        } else if (gSpråk == "English") {
            statement = "SELECT ConcentrationEN AS ConcentrationSE FROM Conc WHERE ID = " + ID;
        }
        Recordset rs;
        rs.Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        if (!rs.Eof()) {
            result = rs["ConcentrationSE"].Text();
        }
        rs.Close();
        MousePointer(pointer::Default);
    } catch (const Error& error) {
        // The pointer stays as it was.
        Main.Felrapport(error, ") in procedure GetConc in Form frmChemical");
    }
    return result;
}

std::string frmChemical::GetTemp(const std::string& ID) {
    std::string result;
    try {
        MousePointer(pointer::Hourglass);
        Recordset rs;
        rs.Open("SELECT Temp FROM Temp WHERE ID = " + ID, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        if (!rs.Eof()) {
            result = rs["Temp"].Text();
        }
        rs.Close();
        MousePointer(pointer::Default);
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, ") in procedure GetTemp in Form frmChemical");
    }
    return result;
}

std::string frmChemical::GetAllaConc() {
    return GetAlla("SELECT ID FROM Conc WHERE Med = -1", ") in procedure GetAllaConc in Form frmChemical");
}

std::string frmChemical::GetAllaTemp() {
    return GetAlla("SELECT ID FROM Temp WHERE Med = -1", ") in procedure GetAllaTemp in Form frmChemical");
}

std::string frmChemical::GetAlla(const char* statement, const char* ending) {
    std::string result;
    try {
        MousePointer(pointer::Hourglass);
        Recordset rs;
        rs.Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        std::string work;
        while (!rs.Eof()) {
            work += rs["ID"].Text() + ", ";
            rs.MoveNext();
        }
        if (work.size() > 2) {
            result = Cut(work);
        }
        rs.Close();
        MousePointer(pointer::Default);
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, ending);
    }
    return result;
}

}  // namespace vemora
