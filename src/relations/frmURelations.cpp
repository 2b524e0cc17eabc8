// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "relations/frmURelations.h"

#include "core/mListViewVem.h"
#include "platform/error.h"

namespace vemora {

frmURelations::frmURelations(mMain& main)
    : Window(main, "frmURelations",
             {.Caption = "Resistens", .Tag = "R0290", .ClientWidth = 12480, .ClientHeight = 6885}) {
    lstChemicals.Click = [this] { lstChemicals_Click(); };
    cboConc.Click = [this] { Kolla(); };
    cboTemp.Click = [this] { Kolla(); };
    cboVärde.Click = [this] { cboVärde_Click(); };
    SSTab1.Click = [this](int) { SSTab1_Click(); };
    for (int tab = 0; tab < SSTab1.Tabs(); ++tab) {
        platform::ListView& lvw = Lista(tab);
        lvw.Click = [this, tab] { lvw_Click(tab); };
        lvw.ItemClick = [this, tab](const platform::ListItem&) { lvw_Click(tab); };
        lvw.ColumnClick = [this, tab](int ColumnHeader) { lvw_ColumnClick(tab, ColumnHeader); };
    }
    // Not so the list of plastics.
    for (platform::ListView* lvw : {&lvwMetal, &lvwTight, &lvwMisc}) {
        lvw->DblClick = [this] { cmdKoppla(0).Value = true; };
    }
    cmdKoppla.Bind(&platform::CommandButton::Click, [this](int Index) { cmdKoppla_Click(Index); });
    cmdClose.Click = [this] { Unload(); };
}

void frmURelations::Form_Load() {
    SetTextOfForm();
    for (int tab = 0; tab < SSTab1.Tabs(); ++tab) {
        SSTab1.Tab = tab;
        SSTab1.SetCaption(TextTillAndra(Klass(tab).CaptionKey));
    }
    SSTab1.Tab = 0;
    Icon = Main.MainIcon;
    rtb.Font = {"Arial", 10};
    Caption = Flikrubrik();
    SSTab1.Tab = 0;
    txtKopplad.Visible = false;
    txtEgen.Visible = false;
    cmdKoppla(0).Enabled = !txtKopplad.Visible;
    cmdKoppla(1).Enabled = txtKopplad.Visible;
    FillValues();
    for (platform::ListView* lvw : {&lvwMetal, &lvwMisc, &lvwPlast, &lvwTight}) {
        lvw->SetColumnHeaderIcons(Main.imgList);
        if (lvw->ColumnCount() > 0) {  // a failure may have left it without any
            VisaSorteringspil(*lvw, 1, 0, false);
            VisaSorteringspil(*lvw, 0, 0, true);
        }
    }
}

std::string frmURelations::Flikrubrik() {
    return TextTillAndra("R0095") + " " + SSTab1.Caption();
}

std::string frmURelations::Data(const platform::LineList& list) {
    return std::to_string(list.ItemData(list.ListIndex));
}

}  // namespace vemora
