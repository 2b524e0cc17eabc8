// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "settings/frmInstallningar.h"

#include "core/mListViewVem.h"
#include "platform/error.h"
#include "texts/language_files.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace msg = platform::msg;
namespace pointer = platform::pointer;

namespace {

// The tabs in the order in which their lists are filled, and in the one in which they are marked and saved.
constexpr std::array<int, 6> kFillOrder = {0, 5, 2, 4, 1, 3};
constexpr std::array<int, 6> kSaveOrder = {0, 1, 5, 2, 3, 4};

const SelectionList& Sort(int tab) {
    return kSelectionLists[static_cast<std::size_t>(tab)];
}

}  // namespace

frmInställningar::frmInställningar(mMain& main)
    : Window(main, "frmInställningar",
             {.Caption = "Inställningar", .Tag = "R0167", .ClientWidth = 9360, .ClientHeight = 6405}) {
    for (int tab = 0; tab < SSTab1.Tabs(); ++tab) {
        Lista(tab).ItemCheck = [this](const platform::ListItem&) { bÄndrad = true; };
        Lista(tab).ColumnClick = [this, tab](int ColumnHeader) { lvw_ColumnClick(tab, ColumnHeader); };
    }
    SSTab1.Click = [this](int) { SSTab1_Click(); };
    cboLang.Click = [this] { cboLang_Click(); };
    cmdMarkera.Bind(&platform::CommandButton::Click, [this](int Index) { cmdMarkera_Click(Index); });
    cmdSpara.Click = [this] { cmdSpara_Click(); };
    cmdStäng.Click = [this] { cmdStäng_Click(); };
}

void frmInställningar::Form_Load() {
    SetTextOfForm();
    for (int tab = 0; tab < SSTab1.Tabs(); ++tab) {
        SSTab1.Tab = tab;
        SSTab1.SetCaption(TextTillAndra(Sort(tab).CaptionKey));
    }
    SSTab1.Tab = 0;
    Icon = Main.MainIcon;
    FillValues();
    VisaVal();
    for (platform::ListView* lvw : mListor) {
        lvw->SetColumnHeaderIcons(Main.imgList);
    }
    ListLanguages(cboLang, Main.Folder, bLaddar);
    SSTab1_Click();
}

// --- the lists ---

void frmInställningar::FillValues() {
    try {
        for (const int tab : kFillOrder) {
            Recordset rs;
            rs.Open(gSpråk == "Svenska"   ? Sort(tab).Svenska
                    : gSpråk == "English" ? Sort(tab).English
                                          : "",
                    *gCn);
            FyllLista(tab, rs);
            rs.Close();
        }
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure FillValues in Form frmURelations");
    }
}

void frmInställningar::FyllLista(int tab, Recordset& rs) {
    const SelectionList& list = Sort(tab);
    try {
        platform::ListView& lvw = Lista(tab);
        lvw.View = 3;
        lvw.ClearColumns();
        lvw.AddColumn(TextTillAndra(list.HeadingKey), list.Described ? lvw.Width / 2 - 60 : lvw.Width - 360);
        if (list.Described) {
            lvw.AddColumn(TextTillAndra("R0019"), lvw.Width / 2 - 60);
        }
        if (list.ClearsItemsFirst) {
            lvw.ClearItems();
        }
        for (; !rs.Eof(); rs.MoveNext()) {
            platform::ListItem& item = lvw.AddItem("K" + rs["ID"].Text(), rs[list.TextColumn].Joined());
            if (list.Described) {
                item.AddSubItem(rs["Description"].Joined());
            }
        }
        lvw.Select(-1);
    } catch (const Error& error) {
        Main.Felrapport(error, list.FyllReport);
    }
}

// The ticks follow the table. Where it has no row at all, every item is ticked.
void frmInställningar::VisaVal() {
    try {
        for (const int tab : kSaveOrder) {
            platform::ListView& lvw = Lista(tab);
            const auto rs = Main.GetValdaMaterial(Sort(tab).Typ, false, false);
            if (rs == nullptr) {
                throw Error(platform::errors::NoObject, "There is no record set to look into.",
                            "frmInställningar");
            }
            if (rs->Eof()) {
                for (int i = 0; i < lvw.ItemCount(); ++i) {
                    lvw.SetChecked(i, true);
                }
            }
            for (; !rs->Eof(); rs->MoveNext()) {
                if (platform::ListItem* item = lvw.ItemOf("K" + (*rs)["ID"].Text())) {
                    lvw.SetChecked(*item, (*rs)["Med"].Bool());
                }
            }
            rs->Close();
        }
    } catch (const Error& error) {
        Main.Felrapport(error, ") in procedure VisaVal in Form frmInställningar");
    }
}

void frmInställningar::cmdMarkera_Click(int Index) {
    bÄndrad = true;
    platform::ListView& lvw = Lista(SSTab1.Tab);
    for (int i = 0; i < lvw.ItemCount(); ++i) {
        lvw.SetChecked(i, Index == 0);
    }
}

void frmInställningar::lvw_ColumnClick(int tab, int ColumnHeader) {
    platform::Static<bool>& descending = bFallande[static_cast<std::size_t>(tab)];
    descending = !descending;
    SorteraPåKolumn(Lista(tab), ColumnHeader, descending);
}

void frmInställningar::SSTab1_Click() {
    Caption = TextTillAndra("R0039") + ": " + SSTab1.Caption();
}

// --- language, saving, closing ---

void frmInställningar::cboLang_Click() {
    if (bLaddar) {
        return;
    }
    ActivateLanguage(Main.Folder, cboLang.Text());
    bÄndrad = true;
}

void frmInställningar::cmdSpara_Click() {
    if (bÄndrad) {
        MousePointer(pointer::Hourglass);
        for (const int tab : kSaveOrder) {
            const platform::ListView& lvw = Lista(tab);
            for (int i = 0; i < lvw.ItemCount(); ++i) {
                const platform::ListItem& item = lvw.Item(i);
                const std::int32_t ID = platform::Value(item.Key().substr(1)).Long();
                if (!Main.SetValdaMaterial(Sort(tab).Typ, ID, item.Checked())) {
                    Screen().MsgBox(TextTillAndra("R0041"), msg::Exclamation, gFelTitel);
                }
            }
        }
        bÄndrad = false;
        const std::string language = TextTillAndra("lang");
        if (language != gSpråk) {
            gSpråk = language;
        }
        MousePointer(pointer::Default);
    }
    Unload();
}

void frmInställningar::cmdStäng_Click() {
    if (bÄndrad &&
        Screen().MsgBox(TextTillAndra("R0043"), msg::YesNoDefaultNo, gFelTitel) == msg::AnswerYes) {
        cmdSpara.Value = true;
    }
    Unload();
}

}  // namespace vemora
