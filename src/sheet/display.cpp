// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <array>

#include <tuple>

#include "platform/error.h"
#include "platform/text/text.h"
#include "sheet/frmChemical.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;
namespace pointer = platform::pointer;

// Every query runs twice in a refresh: once dry, so that a failing one is told before the table is cleared,
// and once to fill.
void frmChemical::Visa() {
    if (txtFields(0).Text->empty()) {
        return;
    }
    if (cboConc.ListIndex == -1) {
        Screen().MsgBox(TextTillAndra("R0013"), platform::msg::Exclamation, gFelTitel);
        cboConc.SetFocus();
        return;
    }
    if (cboTemp.ListIndex == -1) {
        Screen().MsgBox(TextTillAndra("R0014"), platform::msg::Exclamation, gFelTitel);
        cboTemp.SetFocus();
        return;
    }
    try {
        for (int i = 0; i <= 3; ++i) {
            if (const RecordsetPtr rs = GetRs(i)) {
                rs->Close();
            }
        }

        MousePointer(pointer::Hourglass);
        lvwMaterial.ClearItems();
        // A box during the filling draws the list: the rows must keep their order until they are all there.
        lvwMaterial.Sorted = false;
        lblResultat.Caption = "";
        VisaKolumner();
        VisaÄndrad();

        for (int i = 0; i <= 3; ++i) {
            if (const RecordsetPtr rs = GetRs(i)) {
                FyllRader(i, *rs);
                rs->Close();
            }
        }

        mSortFallande = true;
        lvwMaterial_ColumnClick(2);
        lvwMaterial_ColumnClick(1);

        if (lvwMaterial.ItemCount() > 0) {
            lvwMaterial.Select(0);
            lblResultat.Caption = std::to_string(lvwMaterial.ItemCount()) + " " + TextTillAndra("R0021");
        } else {
            lblResultat.Caption = TextTillAndra("R0022");
        }
        lblFilter.Caption = " " + TextTillAndra(Main.FilterPå() ? "R0023" : "R0012") + " ";
        lblFilter.ToolTipText = TextTillAndra("R0025");
        MousePointer(pointer::Default);
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, ") in procedure Visa in Form frmChemical");
    }
}

void frmChemical::VisaKolumner() {
    lvwMaterial.View = 3;
    lvwMaterial.ClearColumns();
    lvwMaterial.AddColumn(TextTillAndra("R0015"), 1800);
    lvwMaterial.AddColumn(TextTillAndra("R0016"), 1200);
    lvwMaterial.AddColumn(TextTillAndra("R0017"), 1000, platform::Align::Centre);
    lvwMaterial.AddColumn(TextTillAndra("R0018"), 1200);
    lvwMaterial.AddColumn(TextTillAndra("R0019"), lvwMaterial.Width - 5200 - 360);
}

platform::CellLook frmChemical::Utseende(int column, const std::string& text) const {
    constexpr int kVärde = 2;
    const std::tuple<const std::string&, platform::Tone> verdicts[] = {
        {Main.gVärdeText1, platform::Tone::Good},
        {Main.gVärdeText2, platform::Tone::Bad},
        {Main.gVärdeText3, platform::Tone::Doubtful}};
    for (const auto& [label, tone] : verdicts) {
        if (column == kVärde && text == platform::Left(label, 1)) {
            return {.Tone = tone, .Spoken = platform::Trim(platform::Mid(label, 2))};
        }
    }
    return {};
}

void frmChemical::NämnFönstret() {
    SpokenName = txtFields(2).Text.Get() + " – " + Caption.Get();
}

void frmChemical::FyllRader(int index, Recordset& rs) {
    while (!rs.Eof()) {
        std::string mark;
        if (rs["RelEgen"].Bool()) {
            mark = TextTillAndra("R0020");
        }
        if (rs["Egen"].Bool()) {
            mark = TextTillAndra("R0020");
        }
        const std::string conc = rs["ConcID"].Text();
        const std::string temp = rs["TempID"].Text();
        platform::ListItem& item = lvwMaterial.AddItem("", GetConc(conc));
        std::string temperature = GetTemp(temp);
        if (platform::Len(temperature) == 2) {
            temperature.insert(0, " ");
        }
        item.AddSubItem(std::move(temperature));
        item.AddSubItem(platform::Trim(rs["TheValue"].Joined()));
        item.AddSubItem(rs["Name"].Joined());
        std::string description = rs["Description"].Joined();
        if (!mark.empty()) {
            description.append(" (").append(mark).append(")");
        }
        item.AddSubItem(std::move(description));
        if (mark.empty()) {
            // Behind the columns, where nobody sees it: what leads to the sources.
            std::string place = std::to_string(index);
            item.AddSubItem(place.append("|").append(conc).append("|").append(temp).append("|").append(
                rs["IDFält"].Text()));
        }
        rs.MoveNext();
    }
}

// The condition on Med holds for the first of the four tables only, as AND binds tighter than OR: a
// deselected row that another class has a verdict at is offered all the same.
namespace {
std::string OccurringIn(const char* table, const char* column, std::int32_t ID) {
    const std::string chemical = std::to_string(ID);
    std::string statement = std::string("SELECT * FROM ") + table + " WHERE Med = -1";
    const char* joint = " AND ID IN(";
    for (const char* relation : {"relMetal", "relMisc", "relPlast", "relTight"}) {
        statement.append(joint).append(" SELECT ").append(column).append(" FROM ").append(relation);
        statement.append(" WHERE ChemID = ").append(chemical).append(")");
        joint = " OR ID IN(";
    }
    return statement;
}
}  // namespace

void frmChemical::FyllKonc(platform::ComboBox& cbo) {
    try {
        std::string statement = OccurringIn("Conc", "ConcID", Nyckel());
        if (gSpråk == "Svenska") {
            statement += " Order by ConcentrationSE";
        } else if (gSpråk == "English") {
            statement += " Order by ConcentrationEN";
        }
        Recordset rs;
        rs.Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        cbo.Clear();
        cbo.AddItem(TextTillAndra(rs.Eof() ? "R0333" : "R0334"));
        cbo.SetItemData(cbo.NewIndex(), -1);
        while (!rs.Eof()) {
            if (gSpråk == "Svenska") {
                cbo.AddItem(rs["ConcentrationSE"].Joined());
            } else if (gSpråk == "English") {
                cbo.AddItem(rs["ConcentrationEN"].Joined());
            }
            // In any other language nothing was added, and the first entry takes the ID.
            cbo.SetItemData(cbo.NewIndex(), rs["ID"].Long());
            rs.MoveNext();
        }
        cbo.ListIndex = 0;
        rs.Close();
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, ") in procedure FyllKonc in Form frmChemical");
    }
}

void frmChemical::FyllTemp(platform::ComboBox& cbo) {
    try {
        Recordset rs;
        rs.Open(OccurringIn("Temp", "TempID", Nyckel()) + " Order by ID", *gCn, ado::adOpenForwardOnly,
                ado::adLockReadOnly);
        cbo.Clear();
        cbo.AddItem(TextTillAndra("R0040"));
        cbo.SetItemData(cbo.NewIndex(), -1);
        while (!rs.Eof()) {
            cbo.AddItem(rs["Temp"].Joined());
            cbo.SetItemData(cbo.NewIndex(), rs["ID"].Long());
            rs.MoveNext();
        }
        cbo.ListIndex = 0;
        rs.Close();
    } catch (const Error& error) {
        MousePointer(pointer::Default);
        Main.Felrapport(error, ") in procedure FyllTemp in Form frmChemical");
    }
}

}  // namespace vemora
