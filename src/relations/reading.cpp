// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "core/mListViewVem.h"
#include "platform/error.h"
#include "platform/text/text.h"
#include "relations/frmURelations.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;

// --- what is loaded ---

template <class Row>
void frmURelations::Läs(const char* svenska, const char* english, Row row) {
    Recordset rs;
    rs.Open(gSpråk == "Svenska" ? svenska : gSpråk == "English" ? english : "", *gCn);
    for (; !rs.Eof(); rs.MoveNext()) {
        row(rs);
    }
    rs.Close();
}

void frmURelations::FillValues() {
    const auto add = [](platform::LineList& list, const std::string& text, std::int32_t data) {
        list.AddItem(text);
        list.SetItemData(list.NewIndex(), data);
    };
    try {
        cboVärde.Clear();
        for (const std::string* text :
             {&Main.gVärdeText1, &Main.gVärdeText2, &Main.gVärdeText3, &Main.gVärdeText4}) {
            cboVärde.AddItem(*text);
        }
        Läs("SELECT ID, NameSE FROM Chemical WHERE Med = -1 ORDER BY NameSE",
            "SELECT ID, NameEN AS NameSE FROM Chemical WHERE Med = -1 ORDER BY NameEN",
            [&](Recordset& rs) { add(lstChemicals, rs["NameSE"].Joined(), rs["ID"].Long()); });
        add(cboConc, TextTillAndra("R0040"), -1);
        Läs("SELECT ID, ConcentrationSE FROM Conc WHERE Med = -1 ORDER BY ConcentrationSE",
            "SELECT ID, ConcentrationEN AS ConcentrationSE FROM Conc WHERE Med = -1 ORDER BY ConcentrationEN",
            [&](Recordset& rs) { add(cboConc, rs["ConcentrationSE"].Joined(), rs["ID"].Long()); });
        constexpr const char* kTemp = "SELECT * FROM Temp WHERE Med = -1";
        Läs(kTemp, kTemp, [&](Recordset& rs) { add(cboTemp, rs["Temp"].Joined(), rs["ID"].Long()); });
        for (int tab = 0; tab < SSTab1.Tabs(); ++tab) {
            Recordset rs;
            rs.Open(gSpråk == "Svenska" ? Klass(tab).Svenska : Klass(tab).English, *gCn);
            FyllMaterial(tab, rs);
            rs.Close();
        }
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure FillValues in Form frmURelations");
    }
}

void frmURelations::FyllMaterial(int tab, Recordset& rs) {
    try {
        platform::ListView& lvw = Lista(tab);
        lvw.View = 3;
        lvw.ClearColumns();
        lvw.AddColumn(TextTillAndra("R0018"), lvw.Width / 2 - 60);
        lvw.AddColumn(TextTillAndra("R0019"), lvw.Width / 2 - 60);
        for (; !rs.Eof(); rs.MoveNext()) {
            lvw.AddItem("K" + rs["ID"].Text(), rs["Name"].Joined()).AddSubItem(rs["Description"].Joined());
        }
        lvw.Select(-1);
    } catch (const Error& error) {
        Main.Felrapport(error, Klass(tab).FyllReport);
    }
}

// --- what is clicked ---

void frmURelations::lstChemicals_Click() {
    try {
        SSTab1.Enabled = true;
        Recordset rs;
        rs.Open("SELECT Egen, FormulaRTF FROM Chemical WHERE ID = " + ChemID(), *gCn);
        txtEgenKem.Visible = false;
        if (!rs.Eof()) {
            txtEgenKem.Visible = rs["Egen"].Bool();
            rtb.SetTextRTF(rs["FormulaRTF"].Joined());
        }
        rs.Close();
        Kolla();
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure lstChemicals_Click in Form frmURelations");
    }
}

void frmURelations::Kolla() {
    const auto own = [this](const char* statement, const platform::LineList& list, platform::Label& mark) {
        if (list.ListIndex < 0) {
            return;
        }
        Recordset rs;
        rs.Open(statement + Data(list), *gCn);
        mark.Visible = false;
        if (!rs.Eof()) {
            mark.Visible = rs["Egen"].Bool();
        }
        rs.Close();
    };
    try {
        txtKopplad.Visible = false;
        txtEgen.Visible = false;
        own("SELECT Egen FROM Conc WHERE ID = ", cboConc, txtEgenKon);
        own("SELECT Egen FROM Temp WHERE ID = ", cboTemp, txtEgenTemp);
        cmdKoppla(0).Enabled = txtKopplad.Visible;
        cmdKoppla(1).Enabled = txtKopplad.Visible;
        cboVärde.ListIndex = -1;
        SSTab1.Enabled = lstChemicals.ListIndex >= 0 && cboConc.ListIndex >= 0 && cboTemp.ListIndex >= 0;
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure Kolla in Form frmURelations");
    }
}

void frmURelations::SSTab1_Click() {
    Caption = Flikrubrik();
    cboVärde.ListIndex = -1;
    txtKopplad.Visible = false;
    txtEgen.Visible = false;
    cmdKoppla(0).Enabled = false;
    cmdKoppla(1).Enabled = false;
    for (platform::ListView* lvw : {&lvwMetal, &lvwMisc, &lvwPlast, &lvwTight}) {
        lvw->Visible = false;
    }
    platform::ListView& open = Lista(SSTab1.Tab);
    open.Visible = true;
    // While the window loads, and until there is something to look up, the list can't have it.
    if (open.CanFocus()) {
        open.SetFocus();
    }
}

// It comes from a click and, before that, from the row's own event: a click on a row looks everything up
// twice.
void frmURelations::lvw_Click(int tab) {
    if (lstChemicals.ListIndex < 0) {
        return;
    }
    std::int32_t ID = -1;
    const platform::ListView& lvw = Lista(tab);
    for (int i = 0; i < lvw.ItemCount(); ++i) {
        if (lvw.Item(i).Selected()) {
            ID = platform::Value(lvw.Item(i).Key().substr(1)).Long();
            if (Klass(tab).FirstSelectedCounts) {
                break;
            }
        }
    }
    if (Klass(tab).ValueBeforeMarks) {
        VisaVärde(tab, ID);
        VisaMärken(tab, ID);
    } else {
        VisaMärken(tab, ID);
        VisaVärde(tab, ID);
    }
    // Whatever the choice of the value has just made of them.
    if (Klass(tab).ButtonsByKopplad) {
        cmdKoppla(0).Enabled = !txtKopplad.Visible;
        cmdKoppla(1).Enabled = txtKopplad.Visible;
    } else {
        cmdKoppla(0).Enabled = txtEgen.Visible;
        cmdKoppla(1).Enabled = txtEgen.Visible;
    }
}

void frmURelations::VisaVärde(int tab, std::int32_t ID) {
    Recordset rs;
    rs.Open(std::string("SELECT TheValue FROM ") + Klass(tab).Table + " Where ChemID = " + ChemID() +
                " AND ConcID = " + ConcID() + " AND TempID = " + TempID() + " AND " + Klass(tab).IdColumn +
                " = " + std::to_string(ID),
            *gCn);
    cboVärde.ListIndex = -1;
    if (!rs.Eof()) {
        const std::string value = rs["TheValue"].Joined();
        for (int i = 0; i < cboVärde.ListCount(); ++i) {
            if (platform::Left(cboVärde.List(i), 1) == value) {
                cboVärde.ListIndex = i;
                break;
            }
        }
    }
    rs.Close();
}

void frmURelations::VisaMärken(int tab, std::int32_t ID) {
    if (ID > -1) {
        txtKopplad.Visible = FinnsKoppling(ID, Klass(tab).Klass);
        if (txtEgen.Visible) {
            txtKopplad.Visible = false;
        }
    } else {
        txtKopplad.Visible = false;
    }
}

// Under the entry that stands for all concentrations any row of the material counts, and the first one found
// says whose it is.
bool frmURelations::FinnsKoppling(std::int32_t ID, std::int32_t Klass) {
    bool found = false;
    try {
        std::string condition = " WHERE ";
        if (cboConc.ItemData(cboConc.ListIndex) > -1) {
            condition = " Where ChemID = " + ChemID() + " AND ConcID = " + ConcID() +
                        " AND TempID = " + TempID() + " AND ";
        }
        std::string statement;
        for (const MaterialList& list : kMaterialLists) {
            if (list.Klass == Klass) {
                statement = std::string("SELECT * FROM ") + list.Table + condition + list.IdColumn + " = " +
                            std::to_string(ID);
            }
        }
        if (!statement.empty()) {
            Recordset rs;
            rs.Open(statement, *gCn);
            found = !rs.Eof();
            txtEgen.Visible = found && rs["Egen"].Bool();
            rs.Close();
        }
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure FinnsKoppling in Form frmURelations");
    }
    return found;
}

void frmURelations::cboVärde_Click() {
    cmdKoppla(0).Enabled = true;
    if (txtKopplad.Visible) {
        cmdKoppla(1).Enabled = true;
    }
}

void frmURelations::lvw_ColumnClick(int tab, int ColumnHeader) {
    platform::Static<bool>& descending = bFallande[static_cast<std::size_t>(tab)];
    descending = !descending;
    SorteraPåKolumn(Lista(tab), ColumnHeader, descending);
}

}  // namespace vemora
