// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUChemicals.h"

#include <array>

#include "platform/text/text.h"

namespace vemora {

namespace msg = platform::msg;

namespace {

// Three columns of languages beside the list.
constexpr int kWidth = 3330;
constexpr std::array<int, 3> kColumns = {3900, 7350, 10800};

platform::Design Label(int column, int top, const char* key) {
    return RecordLayout::LabelAt(top, key, kColumns[static_cast<std::size_t>(column)], kWidth);
}

platform::Design Box(int column, int top) {
    return RecordLayout::BoxAt(top, kColumns[static_cast<std::size_t>(column)], kWidth);
}

platform::Design Note(int column) {
    platform::Design design = Box(column, 2835);
    design.Height = 2640;
    design.MultiLine = true;
    return design;
}

}  // namespace

frmUChemicals::frmUChemicals(mMain& main)
    : RecordWindow(main, kUChemicals,
                   {.ClientWidth = kColumns[2] + kWidth + 120,
                    .ClientHeight = 6120,
                    .Labels = {{0, RecordLayout::Hidden("ID:")},
                               {1, Label(0, 120, "R0155")},
                               {2, Label(0, 990, "R0236")},
                               {3, Label(1, 990, "R0235")},
                               {4, Label(2, 990, "R0234")},
                               {10, Label(0, 1770, "R0164")},
                               {9, Label(1, 1770, "R0163")},
                               {8, Label(2, 1770, "R0162")},
                               {5, Label(0, 2550, "R0159")},
                               {6, Label(1, 2550, "R0160")},
                               {7, Label(2, 2550, "R0161")}},
                    .Boxes = {{1, RecordLayout::Hidden()},
                              {2, Box(0, 1275)},
                              {3, Box(1, 1275)},
                              {4, Box(2, 1275)},
                              {10, Box(0, 2055)},
                              {9, Box(1, 2055)},
                              {8, Box(2, 2055)},
                              {5, Note(0)},
                              {6, Note(1)},
                              {7, Note(2)},
                              {11, RecordLayout::Hidden()}},
                    .RefreshKey = "R0221"}) {
    PutBefore(oFormula1, txtFields(2));
    for (const auto& box : txtFields) {
        box->LostFocus = [this, Index = box->Index()] { txtFields_LostFocus(Index); };
    }
    cmdClose.KeyDown = [this](int&, int Shift) { cmdClose_KeyDown(Shift); };
    cmdCancel.KeyDown = [this](int&, int Shift) { cmdCancel_KeyDown(Shift); };
}

// --- opening and closing ---

void frmUChemicals::FörbereddLaddning() {
    oFormula1.SetPlainText("");
    oFormula1.Font = {"Arial", 10};
    oFormula1.Padding = 4;
}

void frmUChemicals::Laddad() {
    mRedigerar = false;
    mLäggerTill = false;
}

void frmUChemicals::Form_Unload() {
    mAlt = false;
    RecordWindow::Form_Unload();
}

// --- browsing ---

void frmUChemicals::VisaPost() {
    RecordWindow::VisaPost();
    oFormula1.Font = {"Arial", oFormula1.Font->Size};
    oFormula1.SetRichText(txtFields(11).Text);
}

void frmUChemicals::LåsFält(bool bVal) {
    oFormula1.Locked = bVal;
    RecordWindow::LåsFält(bVal);
}

void frmUChemicals::PrövaSkydd() {
    if (txtFields(0).Text->empty()) {
        cmdEdit.Enabled = false;
    } else {
        cmdEdit.Enabled = Main.GetEgen(platform::Value(txtFields(0).Text.Get()).Long(), -1, "");
        if (Main.gRedigeraAllt) {
            cmdEdit.Enabled = true;
        }
    }
    txtEgen.Visible = cmdEdit.Enabled && !Main.gRedigeraAllt;
}

// --- editing ---

void frmUChemicals::LäggTill() {
    mRs.AddNew();
    mLäggerTill = true;
    FyllFält(kUChemicals.Written);
    oFormula1.SetPlainText("");
    SättKnappar(false);
    mSparatIndex = lst.ListIndex;
    lst.ListIndex = -1;
    oFormula1.SetFocus();
}

void frmUChemicals::Avbruten() {
    if (mAlt) {
        Main.gRedigeraAllt = true;
    }
}

void frmUChemicals::SkrivFält() {
    oFormula1.Font = {"Arial", oFormula1.Font->Size};
    txtFields(1).Text = oFormula1.PlainText();
    txtFields(11).Text = oFormula1.RichText();
    RecordWindow::SkrivFält();
}

void frmUChemicals::Sparad() {
    mRedigerar = false;
    txtEgen.Visible = false;
}

void frmUChemicals::TömFält() {
    RecordWindow::TömFält();
    oFormula1.SetPlainText("");
}

// No transaction holds the deletions together: what is gone before a failure stays gone.
void frmUChemicals::TaBort() {
    if (lst.ListIndex >= 0 &&
        Screen().MsgBox("Är du säker?", msg::YesNoDefaultNo, gFelTitel) == msg::AnswerYes) {
        const std::string ID = std::to_string(lst.ItemData(lst.ListIndex));
        for (const char* statement : {"DELETE FROM relMetal", "DELETE FROM relPlast", "DELETE FROM relTight",
                                      "DELETE FROM relMisc"}) {
            gCn->Execute(statement + (" WHERE ChemID = " + ID));
        }
        mRs.Find("ID = " + ID);
        mRs.Delete();
        cmdRefresh.Value = true;
    }
    txtEgen.Visible = false;
}

void frmUChemicals::txtFields_LostFocus(int Index) {
    if (Index == 2) {
        const std::string& name = txtFields(2).Text;
        txtFields(2).Text = platform::UCase(platform::Left(name, 1)) + platform::Mid(name, 2);
    }
}

// --- the hidden edit mode ---

void frmUChemicals::cmdClose_KeyDown(int Shift) {
    if ((Shift & platform::shift::Alt) != 0 && Screen().InputBox("Lösen?", "Lösen") == "ordaK") {
        Main.gRedigeraAllt = true;
    }
}

void frmUChemicals::cmdCancel_KeyDown(int Shift) {
    if ((Shift & platform::shift::Alt) != 0) {
        mAlt = true;
    }
}

}  // namespace vemora
