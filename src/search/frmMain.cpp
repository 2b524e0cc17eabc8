// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "search/frmMain.h"

#include "platform/error.h"
#include "platform/text/text.h"
#include "search/search_statement.h"
#include "sheet/frmChemical.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;

frmMain::frmMain(mMain& main)
    : Window(main, "frmMain",
             {.Caption = "Vemora",
              .Tag = "R0001",
              .ClientWidth = 6570,
              .ClientHeight = 6570,
              .KeyPreview = true,
              .Sizable = true,
              .Icon = "vemora"}) {
    main.MainIcon = DesignState().Icon;
    main.imgList = &imgList;

    cmdSök.Click = [this] { cmdSök_Click(); };
    cmdStäng.Click = [this] { cmdStäng_Click(); };
    txtChem.GotFocus = [this] { txtChem_GotFocus(); };
    lvwResultat.GotFocus = [this] { lvwResultat_GotFocus(); };
    lvwResultat.ItemClick = [this](const platform::ListItem& Item) { lvwResultat_ItemClick(Item); };
    lvwResultat.ColumnClick = [this](int ColumnHeader) { lvwResultat_ColumnClick(ColumnHeader); };
    lvwResultat.DblClick = [this] { lvwResultat_DblClick(); };
    lvwResultat.KeyPress = [this](int& KeyAscii) { lvwResultat_KeyPress(KeyAscii); };

    mnuExit.Click = [this] { mnuExit_Click(); };
    mnuInställningar.Click = [this] { mnuInställningar_Click(); };
    BindMenu(mnuChemicals, main.Windows.UChemicals);
    BindMenu(mnuUConcentration, main.Windows.UConcentration);
    BindMenu(mnuUTemperature, main.Windows.UTemperature);
    BindMenu(mnuUMetal, main.Windows.UMetal);
    BindMenu(mnuUPlast, main.Windows.UPlast);
    BindMenu(mnuUTight, main.Windows.UTight);
    BindMenu(mnuUMisc, main.Windows.UMisc);
    BindMenu(mnuURelations, main.Windows.URelations);
    BindMenu(mnuUpd, main.Windows.UPD);
    BindMenu(mnuInfo, main.Windows.About);
}

void frmMain::BindMenu(platform::Menu& menu, const Windows::Any& window) {
    menu.Click = [&window] { window().Show(platform::vbModal); };
}

void frmMain::Form_Load() {
    SetTextOfForm();
    VisaBild(imgBild);
}

void frmMain::Form_Resize() {
    if (WindowState() == platform::vbMinimized) {
        return;
    }
    // Between the two bounds there is no height to give: the list keeps its last one.
    if (Height() - (lvwResultat.Top + 750) >= 120) {
        lvwResultat.Height = Height() - (lvwResultat.Top + 750) - 120;
    }
    if (Width() - (lvwResultat.Left + 200) > 0) {
        lvwResultat.Width = Width() - (lvwResultat.Left + 200);
    }
}

void frmMain::Form_KeyPress(int& KeyAscii) {
    if (ActiveControl() != nullptr && ActiveControl()->Name() == "lvwResultat" &&
        KeyAscii == platform::key::Return) {
        lvwResultat_DblClick();
        KeyAscii = 0;
    } else if (!Main.IsSkyddat() && KeyAscii == platform::key::Escape) {
        Unload();
    }
}

void frmMain::Form_Unload() {
    gCn->Close();
    gCn.reset();
    for (Form* form : Main.Forms) {
        form->Unload();
    }
}

// --- the search ---

void frmMain::cmdSök_Click() {
    cmdSök.SetFocus();
    lvwResultat.ClearItems();

    int option = -1;
    for (const auto& opt : optSökaI) {
        if (opt->Value) {
            option = opt->Index();
            break;
        }
    }
    const std::string statement = SearchStatement(txtChem.Text, option);
    lblInfo.Caption = TextTillAndra("R0055");

    Recordset rs;
    rs.Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
    if (!rs.Eof()) {
        SetColumns();
        AddToListView(rs);
        lblInfo.Caption = TextTillAndra("R0054") + " " + std::to_string(lvwResultat.ItemCount());
    }
    rs.Close();

    if (lvwResultat.ItemCount() == 0) {
        txtChem.SetFocus();
    } else {
        lvwResultat.SetFocus();
        lvwResultat.Select(0);
        lvwResultat_ItemClick(lvwResultat.Item(0));
    }
}

void frmMain::SetColumns() {
    try {
        lvwResultat.SetColumnHeaderIcons(&imgBilder);
        lvwResultat.View = 3;
        lvwResultat.ClearColumns();
        lvwResultat.AddColumn(TextTillAndra("R0034"), lvwResultat.Width - 2100, platform::Align::Left,
                              "Chemical");
        lvwResultat.AddColumn(TextTillAndra("R0031"), 1750, platform::Align::Left, "Formula");
        Main.SetColWidth(lvwResultat);
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure SetColumns in Form frmSök");
    }
}

void frmMain::AddToListView(Recordset& rs) {
    try {
        while (!rs.Eof()) {
            const std::string mark = rs["Egen"].Bool() ? TextTillAndra("R0057") + "   " : std::string();
            platform::ListItem* item = nullptr;
            if (gSpråk == "Svenska") {
                item = &lvwResultat.AddItem("K" + rs["ID"].Text(), rs["NameSE"].Joined() + mark);
            } else if (gSpråk == "English") {
                item = &lvwResultat.AddItem("K" + rs["ID"].Text(), rs["NameEN"].Joined() + mark);
            }
            const std::string formula = platform::Replace(rs["Formula"].Joined(), "–", "-");
            if (item == nullptr) {
                throw Error(platform::errors::NoObject, "There is no row in the list to take the formula.",
                            "frmMain");
            }
            item->AddSubItem(formula);
            rs.MoveNext();
        }
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure AddToListView in Form frmSök");
    }
}

void frmMain::txtChem_GotFocus() {
    cmdSök.Default = true;
    txtChem.SelStart = 0;
    txtChem.SelLength = 999;
}

// --- the result list ---

void frmMain::lvwResultat_GotFocus() {
    cmdSök.Default = false;
}

void frmMain::lvwResultat_ItemClick(const platform::ListItem& Item) {
    mValdRad = Item;
}

void frmMain::lvwResultat_ColumnClick(int ColumnHeader) {
    mSortFallande = !mSortFallande;
    lvwResultat.SortKey = ColumnHeader - 1;
    lvwResultat.SortOrder = mSortFallande ? 1 : 0;
    lvwResultat.Sorted = true;
}

void frmMain::lvwResultat_DblClick() {
    if (!mValdRad) {
        return;
    }
    frmChemical& sheet = Main.Windows.Chemical();
    sheet.Nyckel(platform::Value(mValdRad->Key().substr(1)).Long());
    sheet.Show(platform::vbModal, this);
}

void frmMain::lvwResultat_KeyPress(int& KeyAscii) {
    if (KeyAscii == platform::key::Return) {
        lvwResultat_DblClick();
    }
}

// --- the rest of the window ---

void frmMain::cmdStäng_Click() {
    Unload();
    Unload();
}

void frmMain::mnuExit_Click() {
    Unload();
}

void frmMain::mnuInställningar_Click() {
    Main.Windows.Inställningar().Show(platform::vbModal, this);
    SetTextOfForm();
    VisaBild(imgBild);
}

}  // namespace vemora
