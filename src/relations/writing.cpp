// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/error.h"
#include "platform/text/text.h"
#include "relations/frmURelations.h"

namespace vemora {

using platform::Error;
namespace msg = platform::msg;

void frmURelations::cmdKoppla_Click(int Index) {
    try {
        Koppla(Index);
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure cmdKoppla_Click in Form frmURelations");
    }
}

// Nothing asks whether the row is supplied: the buttons' being enabled is all its protection. Whether there
// is one at all is what the marks say, and the table is not asked.
void frmURelations::Koppla(int Index) {
    if (!Vald(lstChemicals, "R0087") || !Vald(cboConc, "R0088") || !Vald(cboTemp, "R0089")) {
        return;
    }
    const MaterialList& klass = Klass(SSTab1.Tab);
    platform::ListView& lvw = Lista(SSTab1.Tab);
    int place = 0;
    while (place < lvw.ItemCount() && !lvw.Item(place).Selected()) {
        ++place;
    }
    if (place == lvw.ItemCount()) {
        Screen().MsgBox(TextTillAndra(klass.NoneSelectedKey), msg::Exclamation, gFelTitel);
        lvw.SetFocus();
        return;
    }
    if (Index == 0 && cboVärde.ListIndex < 0) {
        Screen().Beep();
        Vald(cboVärde, "R0094");
        return;
    }
    const std::string ID = lvw.Item(place).Key().substr(1);
    const std::string value = platform::Left(cboVärde.Text(), 1);
    const std::string where = " WHERE ConcID = " + ConcID() + " AND ChemID = " + ChemID() +
                              " AND TempID = " + TempID() + " AND " + klass.IdColumn + " = " + ID;
    const std::string table = klass.Table;
    const bool exists = txtKopplad.Visible || txtEgen.Visible;
    std::string statement;
    if (Index == 0 && exists) {
        statement = "UPDATE " + table + " SET TheValue = '" + value + "', Egen = -1" + where;
    } else if (Index == 0) {
        statement = "INSERT INTO " + table + " (ChemID, ConcID, TempID, " + klass.IdColumn +
                    ", TheValue, Egen) VALUES(" + ChemID() + ", " + ConcID() + ", " + TempID() + ", " + ID +
                    ", '" + value + "', -1)";
    } else if (exists) {
        statement = "DELETE FROM " + table + where;
    }
    // The empty one, of a removal with nothing to remove, too: that the store refuses it is the answer.
    gCn->Execute(statement);
    if (Index == 0) {
        txtEgen.Visible = true;
    } else {
        txtKopplad.Visible = false;
        txtEgen.Visible = false;
    }
}

/// Whether the list has a selected line; if not, says so and leads there.
bool frmURelations::Vald(platform::LineList& list, const char* nyckel) {
    if (list.ListIndex >= 0) {
        return true;
    }
    Screen().MsgBox(TextTillAndra(nyckel), msg::Exclamation, gFelTitel);
    list.SetFocus();
    return false;
}

}  // namespace vemora
