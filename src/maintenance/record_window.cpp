// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/record_window.h"

#include "platform/error.h"
#include "platform/text/text.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;
namespace msg = platform::msg;

namespace {

constexpr int kMargin = 120;
constexpr int kListTop = 405;
constexpr int kStripHeight = 405;
constexpr int kButtonWidth = 1335;

// A button of the strip; `more` is what it has beyond its place and its text.
platform::Design Button(int place, const char* key, platform::Control& strip, platform::Design more = {}) {
    more.Left = place * (kButtonWidth + kMargin);
    more.Width = kButtonWidth;
    more.Height = kStripHeight;
    more.Tag = key;
    more.Container = &strip;
    return more;
}

}  // namespace

RecordWindow::RecordWindow(mMain& main, const Difference& difference, RecordLayout layout)
    : Window(main, difference.Name,
             {.Caption = difference.Name,
              .Tag = difference.TitleKey,
              .ClientWidth = layout.ClientWidth,
              .ClientHeight = layout.ClientHeight,
              .KeyPreview = true}),
      difference_(difference),
      layout_(std::move(layout)),
      lblLabels(*this, "lblLabels", layout_.Labels),
      lst(*this, difference.List,
          {.Left = kMargin,
           .Top = kListTop,
           .Width = layout_.ListWidth,
           .Height = layout_.ClientHeight - kListTop - kStripHeight - 2 * kMargin}),
      txtFields(*this, "txtFields", layout_.Boxes),
      picButtons(*this, "picButtons",
                 {.Left = kMargin,
                  .Top = layout_.ClientHeight - kStripHeight - kMargin,
                  .Width = layout_.ClientWidth - 2 * kMargin,
                  .Height = kStripHeight}),
      cmdAdd(*this, "cmdAdd", Button(0, "R0223", picButtons)),
      cmdUpdate(*this, "cmdUpdate", Button(0, "R0224", picButtons, {.Visible = false})),
      cmdCancel(*this, "cmdCancel", Button(1, "R0171", picButtons, {.Visible = false})),
      cmdEdit(*this, "cmdEdit", Button(1, "R0226", picButtons, {.Enabled = false})),
      cmdDelete(*this, "cmdDelete", Button(2, "R0220", picButtons, {.Enabled = false})),
      cmdRefresh(*this, "cmdRefresh",
                 Button(4, layout_.RefreshKey, picButtons, {.Caption = "&Läs in igen", .Visible = false})),
      cmdClose(*this, "cmdClose", Button(3, "R0148", picButtons, {.Cancel = true})) {
    lst.Click = [this] { lst_Click(); };
    cmdAdd.Click = [this] { cmdAdd_Click(); };
    cmdDelete.Click = [this] { cmdDelete_Click(); };
    cmdRefresh.Click = [this] { cmdRefresh_Click(); };
    cmdEdit.Click = [this] { cmdEdit_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    cmdUpdate.Click = [this] { cmdUpdate_Click(); };
    cmdClose.Click = [this] { cmdClose_Click(); };
}

// --- opening and closing ---

void RecordWindow::Form_Load() {
    SetTextOfForm();
    FörbereddLaddning();
    const InLanguage& språk = difference_.In(gSpråk);
    mRs.Open(språk.Source, *gCn, ado::adOpenStatic, ado::adLockOptimistic);
    FyllLista([&] {
        std::string line = mRs[språk.Line].Joined();
        if (*språk.LineWhenBlank != '\0' && platform::Trim(line).empty()) {
            line = mRs[språk.LineWhenBlank].Joined();
        }
        return line;
    });
    if (difference_.MoveFirstAlways || !mRs.Eof()) {
        mRs.MoveFirst();
    }
    Laddad();
    Icon = Main.MainIcon;
}

void RecordWindow::FyllLista(const std::function<std::string()>& rad) {
    lst.Clear();
    while (!mRs.Eof()) {
        lst.AddItem(rad());
        lst.SetItemData(lst.NewIndex(), mRs["ID"].Long());
        mRs.MoveNext();
    }
}

void RecordWindow::Form_KeyDown(int& KeyCode, int) {
    if (!mRedigerar && !mLäggerTill && KeyCode == platform::key::Escape) {
        cmdClose_Click();
    }
}

void RecordWindow::cmdClose_Click() {
    Unload();
}

void RecordWindow::Form_Unload() {
    mRs.Close();
    mRs = Recordset();
    MousePointer(platform::pointer::Default);
}

// --- browsing ---

void RecordWindow::lst_Click() {
    if (lst.ListIndex < 0) {
        return;
    }
    mRs.MoveFirst();
    mRs.Find("ID = " + std::to_string(lst.ItemData(lst.ListIndex)));
    VisaPost();
    SättKnappar(true);
}

void RecordWindow::VisaPost() {
    txtFields(0).Text = mRs["ID"].Joined();
    FyllFält(difference_.In(gSpråk).Shown);
}

void RecordWindow::FyllFält(const std::vector<const char*>& columns) {
    int box = 1;
    for (const char* column : columns) {
        txtFields(box++).Text = mRs[column].Joined();
    }
}

void RecordWindow::SättKnappar(bool bVal) {
    LåsFält(bVal);
    lst.Enabled = bVal;
    cmdAdd.Visible = bVal;
    cmdUpdate.Visible = !bVal;
    cmdCancel.Visible = !bVal;
    cmdDelete.Visible = bVal;
    cmdClose.Visible = bVal;
    VisaSkydd();
    if (!Main.IsSkyddat()) {
        cmdEdit.Enabled = true;
    }
    cmdDelete.Enabled = cmdEdit.Enabled;
}

void RecordWindow::LåsFält(bool bVal) {
    for (std::size_t i = 1; i <= difference_.Written.size(); ++i) {
        txtFields(static_cast<int>(i)).Locked = bVal;
    }
}

void RecordWindow::VisaSkydd() {
    if (txtFields(0).Text->empty()) {
        cmdEdit.Enabled = false;
        return;
    }
    const std::int32_t ID = platform::Value(txtFields(0).Text.Get()).Long();
    cmdEdit.Enabled = Main.GetEgen(ID, ID, TextTillAndra(difference_.ClassKey));
}

// --- editing ---

void RecordWindow::Vakta(const std::function<void()>& händelse) {
    try {
        händelse();
    } catch (const Error& error) {
        Screen().MsgBox(error.Description, msg::Critical, gFelTitel);
    }
}

void RecordWindow::cmdAdd_Click() {
    Vakta([this] { LäggTill(); });
}

void RecordWindow::LäggTill() {
    mRs.AddNew();
    mLäggerTill = true;
    FyllFält(difference_.Written);
    SättKnappar(false);
    txtFields(1).SetFocus();
    mSparatIndex = lst.ListIndex;
    lst.ListIndex = -1;
}

void RecordWindow::cmdEdit_Click() {
    Vakta([this] {
        mRedigerar = true;
        SättKnappar(false);
    });
}

// Each step runs, whatever became of the one before. Where no line gets selected the list is still disabled
// when it is to get the focus, and that step fails.
void RecordWindow::cmdCancel_Click() {
    const auto ändå = [](const auto& steg) {
        try {
            steg();
        } catch (const Error&) {
        }
    };
    ändå([this] { (mRs.*difference_.CancelCall)(); });
    ändå([this] { lst.ListIndex = mSparatIndex; });
    ändå([this] { lst.SetFocus(); });
    ändå([this] { SättKnappar(true); });
    Avbruten();
}

void RecordWindow::cmdUpdate_Click() {
    Vakta([this] {
        if (mLäggerTill && FinnsRedan()) {
            Screen().Beep();
            Screen().MsgBox(TextTillAndra(difference_.DuplicateKey), msg::Exclamation, gFelTitel);
            mRs.CancelUpdate();
            mLäggerTill = false;
            SättKnappar(true);
            return;
        }
        SkrivFält();
        mRs["Egen"] = BlirEgen();
        mRs["Med"] = true;
        mRs.Update();
        SättKnappar(true);
        if (mLäggerTill) {
            cmdRefresh.Value = true;
            mRs.MoveLast();
            mLäggerTill = false;
        }
        cmdRefresh.Value = true;
        Sparad();
    });
}

void RecordWindow::SkrivFält() {
    int box = 1;
    for (const char* column : difference_.Written) {
        mRs[column] = txtFields(box++).Text.Get();
    }
}

bool RecordWindow::FinnsRedan() {
    try {
        Recordset rs;
        rs.Open(difference_.FinnsBegin + txtFields(difference_.FinnsBox).Text.Get() + difference_.FinnsEnd,
                *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        return !rs.Eof();
    } catch (const Error& error) {
        const std::string ending =
            std::string(") in procedure FinnsRedan in Form ") + difference_.NameInReport;
        Main.Felrapport(error, ending.c_str());
        return false;
    }
}

void RecordWindow::cmdDelete_Click() {
    Vakta([this] { TaBort(); });
}

void RecordWindow::TaBort() {
    if (lst.ListIndex < 0) {
        return;
    }
    if (Screen().MsgBox(TextTillAndra("R0063"), msg::YesNoDefaultNo, gFelTitel) != msg::AnswerYes) {
        return;
    }
    mRs.Find("ID = " + std::to_string(lst.ItemData(lst.ListIndex)));
    mRs.Delete();
    cmdRefresh.Value = true;
}

void RecordWindow::cmdRefresh_Click() {
    Vakta([this] {
        mRs.Requery();
        FyllLista([this] { return mRs[difference_.LineAfterRefresh].Joined(); });
        TömFält();
        mRs.MoveFirst();
        lst.SetFocus();
    });
}

void RecordWindow::TömFält() {
    for (std::size_t i = 1; i <= difference_.Written.size(); ++i) {
        txtFields(static_cast<int>(i)).Text = "";
    }
}

}  // namespace vemora
