// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUChemicals.h"

#include "platform/text/text.h"

namespace vemora {

namespace msg = platform::msg;

namespace {

// Three columns of languages beside the list.
constexpr int kColumn1 = 3900;
constexpr int kColumn2 = 7350;
constexpr int kColumn3 = 10800;
constexpr int kColumnWidth = 3330;

platform::Design LabelAt(int left, int top, const char* key) {
    return {.Left = left, .Top = top, .Width = kColumnWidth, .Height = 255, .Tag = key};
}

platform::Design BoxAt(int left, int top) {
    return {.Left = left, .Top = top, .Width = kColumnWidth, .Height = 345, .Locked = true};
}

platform::Design NoteAt(int left, int top) {
    return {
        .Left = left, .Top = top, .Width = kColumnWidth, .Height = 2640, .Locked = true, .MultiLine = true};
}

}  // namespace

frmUChemicals::frmUChemicals(mMain& main)
    : RecordWindow(main, kUChemicals,
                   {.ClientWidth = kColumn3 + kColumnWidth + 120,
                    .ClientHeight = 6120,
                    .ListWidth = 3600,
                    .Labels = {{11, LabelAt(120, 120, kUChemicals.ListLabelKey)},
                               {0, {.Caption = "ID:", .Visible = false}},
                               {1, LabelAt(kColumn1, 120, "R0155")},
                               {2, LabelAt(kColumn1, 990, "R0236")},
                               {3, LabelAt(kColumn2, 990, "R0235")},
                               {4, LabelAt(kColumn3, 990, "R0234")},
                               {10, LabelAt(kColumn1, 1770, "R0164")},
                               {9, LabelAt(kColumn2, 1770, "R0163")},
                               {8, LabelAt(kColumn3, 1770, "R0162")},
                               {5, LabelAt(kColumn1, 2550, "R0159")},
                               {6, LabelAt(kColumn2, 2550, "R0160")},
                               {7, LabelAt(kColumn3, 2550, "R0161")}},
                    .Boxes = {{0, {.Visible = false, .Locked = true}},
                              {1, {.Visible = false, .Locked = true}},
                              {2, BoxAt(kColumn1, 1275)},
                              {3, BoxAt(kColumn2, 1275)},
                              {4, BoxAt(kColumn3, 1275)},
                              {10, BoxAt(kColumn1, 2055)},
                              {9, BoxAt(kColumn2, 2055)},
                              {8, BoxAt(kColumn3, 2055)},
                              {5, NoteAt(kColumn1, 2835)},
                              {6, NoteAt(kColumn2, 2835)},
                              {7, NoteAt(kColumn3, 2835)},
                              {11, {.Visible = false, .Locked = true}}},
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

void frmUChemicals::VisaSkydd() {
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
