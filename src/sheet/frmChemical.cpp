// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "sheet/frmChemical.h"

#include "core/mListViewVem.h"
#include "platform/error.h"
#include "platform/text/text.h"

namespace vemora {

using platform::adodb::Recordset;
namespace ado = platform::adodb;
namespace pointer = platform::pointer;

frmChemical::frmChemical(mMain& main)
    : Window(main, "frmChemical",
             {.Caption = "Vemora",
              .Tag = "R0001",
              .ClientWidth = 13560,
              .ClientHeight = 7920,
              .KeyPreview = true,
              .Sizable = true}) {
    cboConc.Click = [this] { Visa(); };
    cboTemp.Click = [this] { Visa(); };
    chkMaterial.Bind(&platform::CheckBox::Click, [this](int) { Visa(); });
    chkVärde.Bind(&platform::CheckBox::Click, [this](int) { Visa(); });
    chkFilter.Click = [this] { chkFilter_Click(); };
    opt1Språk.Bind(&platform::OptionButton::Click, [this](int Index) { opt1Språk_Click(Index); });
    txtFields.Bind(&platform::TextBox::Change, [this](int Index) { txtFields_Change(Index); });
    cmdStäng.Click = [this] { cmdStäng_Click(); };
    mnuClip.Click = [this] { mnuClip_Click(); };
    lvwMaterial.ColumnClick = [this](int ColumnHeader) { lvwMaterial_ColumnClick(ColumnHeader); };
    lvwMaterial.Look = [this](int column, const std::string& text) { return Utseende(column, text); };
    lvwMaterial.Tip = [this](const platform::ListItem& item) { return Källor(item); };
}

std::int32_t frmChemical::Nyckel() {
    return mNyckel;
}

void frmChemical::Nyckel(std::int32_t value) {
    mNyckel = value;
}

void frmChemical::Form_Load() {
    MousePointer(pointer::Hourglass);
    mFilterAv = false;
    SetTextOfForm();
    VisaBild(imgBild);

    // Their first entries are selected here, which asks for the table before there is a chemical to show.
    FyllKonc(cboConc);
    FyllTemp(cboTemp);

    oFormula1.SetPlainText("");
    oFormula1.Font = {"Arial", 10};
    oFormula1.Padding = 4;
    oFormula1.SetRichText("");

    mChemRs = std::make_unique<Recordset>();
    mChemRs->Open("SELECT * FROM Chemical WHERE ID = " + std::to_string(mNyckel), *gCn,
                  ado::adOpenForwardOnly, ado::adLockReadOnly);
    for (const auto& box : txtFields) {
        box->SetDataSource(mChemRs.get());
    }

    lvwMaterial.View = 3;
    lvwMaterial.SetColumnHeaderIcons(Main.imgList);
    lvwMaterial.ClearColumns();
    lvwMaterial.AddColumn(TextTillAndra("R0017"), 620);
    lvwMaterial.AddColumn(TextTillAndra("R0018"), 1200);
    lvwMaterial.AddColumn(TextTillAndra("R0019"), lvwMaterial.Width - (620 + 1200) - 120);
    VisaSorteringspil(lvwMaterial, 1, 0, false);
    VisaSorteringspil(lvwMaterial, 0, 0, true);

    if (mNyckel > -1) {
        while (!mChemRs->Eof() && txtFields(0).Text != std::to_string(mNyckel)) {
            mChemRs->MoveNext();
        }
        Visa();
    }
    Icon = Main.MainIcon;
    NämnFönstret();
    MousePointer(pointer::Default);
}

void frmChemical::Form_Activate() {
    if (bAktiverad) {
        return;
    }
    chkFilter.ToolTipText = TextTillAndra("R0011");
    if (gSpråk == "Svenska") {
        opt1Språk(2).Value = true;
    } else if (gSpråk == "English") {
        opt1Språk(0).Value = true;
    }
    cboConc.SetFocus();
    bAktiverad = true;
}

void frmChemical::Form_Unload() {
    Nyckel(-1);
}

void frmChemical::cmdStäng_Click() {
    Unload();
}

// --- filters and language ---

void frmChemical::chkFilter_Click() {
    if (mFilterAv) {
        mFilterAv = false;
        chkFilter.Caption = TextTillAndra("R0010");
        chkFilter.ToolTipText = TextTillAndra("R0011");
    } else {
        mFilterAv = true;
        chkFilter.Caption = TextTillAndra("R0008");
        chkFilter.ToolTipText = TextTillAndra("R0009");
    }
    // With nothing left out anywhere the table would come out the same.
    if (platform::Trim(lblFilter.Caption.Get()) != TextTillAndra("R0012")) {
        Visa();
    }
}

void frmChemical::opt1Språk_Click(int Index) {
    const std::string ID = std::to_string(platform::Value(txtFields(0).Text.Get()).Long());
    switch (Index) {
        case 0:
            txtFields(2).DataField = "NameEN";
            txtFields(10).DataField = "NickNameEN";
            txtFields(5).DataField = "NoteEN";
            break;
        case 1:
            txtFields(2).DataField = "NameGE";
            txtFields(10).DataField = "NickNameGE";
            txtFields(5).DataField = "NoteGE";
            break;
        case 2:
            txtFields(2).DataField = "NameSE";
            txtFields(10).DataField = "NickNameSE";
            txtFields(5).DataField = "NoteSE";
            break;
        default:
            break;
    }
    mChemRs->Requery();
    while (txtFields(0).Text != ID) {
        mChemRs->MoveNext();
    }
    NämnFönstret();
}

void frmChemical::txtFields_Change(int Index) {
    if (Index == 1) {
        oFormula1.SetPlainText(txtFields(1).Text);
        if (!txtFields(0).Text->empty()) {
            VisaÄndrad();
        }
    } else if (Index == 11) {
        oFormula1.Font = {"Arial", oFormula1.Font->Size};
        oFormula1.SetRichText(txtFields(11).Text);
    }
}

void frmChemical::VisaÄndrad() {
    lblÄndrad.Visible = Main.GetEgen(platform::Value(txtFields(0).Text.Get()).Long(), -1, "");
}

// --- layout and keys ---

void frmChemical::Form_Resize() {
    if (WindowState() == platform::vbMinimized) {
        return;
    }
    // Between the two bounds there is no height to give: the list keeps its last one.
    if (Height() - (lvwMaterial.Top + 700) >= 120) {
        lvwMaterial.Height = Height() - (lvwMaterial.Top + 700) - 120;
    }
    if (Width() - (lvwMaterial.Left + 120) > 0) {
        lvwMaterial.Width = Width() - (lvwMaterial.Left + 120);
    }
}

void frmChemical::Form_KeyDown(int& KeyCode, int) {
    const platform::Control* active = ActiveControl();
    if (active != nullptr && (active->Name() == "cboConc" || active->Name() == "cboTemp")) {
        return;  // there Esc belongs to the list
    }
    if (KeyCode == platform::key::Escape) {
        cmdStäng_Click();
        KeyCode = 0;
    }
}

void frmChemical::lvwMaterial_ColumnClick(int ColumnHeader) {
    if (ColumnHeader - 1 == SenasteKolumn) {
        mSortFallande = !mSortFallande;
    } else {
        mSortFallande = false;
    }
    SenasteKolumn = ColumnHeader - 1;
    lvwMaterial.SortKey = SenasteKolumn;
    lvwMaterial.SortOrder = mSortFallande ? 1 : 0;
    lvwMaterial.Sorted = true;
    VisaSorteringspilar(lvwMaterial);
}

// --- clipboard ---

void frmChemical::mnuClip_Click() {
    const std::string line = "\r\n";
    std::string report = TextTillAndra("R0031") + ": " + oFormula1.PlainText();
    if (lblÄndrad.Visible) {
        report += " " + TextTillAndra("R0153");
    }
    report += line;
    report += TextTillAndra("R0034") + ": " + txtFields(2).Text.Get() + line;
    report += TextTillAndra("R0035") + ": " + txtFields(10).Text.Get() + line;
    report += TextTillAndra("R0036") + ": " + txtFields(5).Text.Get() + line;
    report += TextTillAndra("R0015") + ": " + cboConc.Text() + line;
    report += TextTillAndra("R0016") + ": " + cboTemp.Text() + line;
    report += line;
    report += TextTillAndra("R0039") + ": " + line;
    for (int column = 0; column < lvwMaterial.ColumnCount(); ++column) {
        report += lvwMaterial.Column(column).Text + "\t";
    }
    report += line;
    for (int row = 0; row < lvwMaterial.ItemCount(); ++row) {
        const platform::ListItem& item = lvwMaterial.Item(row);
        report += item.Text + "\t" + item.SubItems(1) + "\t" + item.SubItems(2) + "\t" +
                  platform::Trim(item.SubItems(3)) + "\t" + item.SubItems(4) + "\t" + line;
    }
    Screen().ClipboardClear();
    Screen().ClipboardSetText(report);
    Screen().MsgBox(TextTillAndra("R0033"), platform::msg::Information, gFelTitel);
}

}  // namespace vemora
