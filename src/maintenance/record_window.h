// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/mMain.h"
#include "maintenance/differences.h"

namespace vemora {

/// Where a maintenance window has what isn't alike in all of them, in twips.
struct RecordLayout {
    int ClientWidth = 8400;
    int ClientHeight = 5400;
    /// Beside the list's own, 11.
    std::vector<platform::ControlArray<platform::Label>::Member> Labels = {};
    /// Beside box 0, which holds the ID and is never seen.
    std::vector<platform::ControlArray<platform::TextBox>::Member> Boxes = {};
    const char* RefreshKey = "";

    /// Left edge and width of the one column of labels and boxes beside the list.
    static constexpr int kColumn = 3900;
    static constexpr int kColumnWidth = 4380;
    static platform::Design LabelAt(int top, const char* key, int left = kColumn, int width = kColumnWidth) {
        return {.Left = left, .Top = top, .Width = width, .Height = 255, .Tag = key};
    }
    static platform::Design BoxAt(int top, int left = kColumn, int width = kColumnWidth) {
        return {.Left = left, .Top = top, .Width = width, .Height = 345, .Locked = true};
    }
    static platform::Design Hidden(const char* caption = "") {
        return {.Caption = caption, .Visible = false, .Locked = true};
    }
};

/// A window that keeps one table: looks through its records, adds, changes and deletes. Browsing and editing
/// are the same in all of them; Difference says what isn't, and a window that differs in more than data
/// overrides a step.
///
/// The records that came with the program are protected by nothing but the two buttons that are disabled.
class RecordWindow : public Window {
  private:
    // What the controls below are made from.
    const Difference& difference_;
    const RecordLayout layout_;

  public:
    // In the order of the Tab key. What is declared first lies on top: Cancel over Edit. From Edit, which it
    // covers, the keyboard goes on to the first text box.
    platform::ControlArray<platform::Label> lblLabels;
    platform::ListBox lst;
    platform::ControlArray<platform::TextBox> txtFields;
    platform::PictureBox picButtons;
    platform::CommandButton cmdAdd, cmdUpdate, cmdCancel, cmdEdit, cmdDelete, cmdRefresh, cmdClose;

  protected:
    RecordWindow(mMain& main, const Difference& difference, RecordLayout layout);

    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void Form_Unload() override;

    // --- the steps in which a window may differ ---
    /// Before the record set is opened.
    virtual void FörbereddLaddning() {}
    /// Behind the last step that can fail at load.
    virtual void Laddad() {}
    /// Shows the current record in the text boxes.
    virtual void VisaPost();
    virtual void LåsFält(bool bVal);
    /// Whether the record whose ID box 0 holds may be changed.
    virtual void PrövaSkydd();
    virtual void LäggTill();
    virtual void SkrivFält();
    /// The Egen that a save writes.
    virtual bool BlirEgen() const { return true; }
    virtual void Sparad() {}
    virtual void Avbruten() {}
    virtual void TaBort();
    virtual void TömFält();

    void SättKnappar(bool bVal);
    bool FinnsRedan();
    /// Fills the boxes from 1 with these columns of the current row.
    void FyllFält(const std::vector<const char*>& columns);
    void cmdClose_Click();

    platform::adodb::Recordset mRs;
    // These outlive the closing of the window.
    bool mRedigerar = false;
    bool mLäggerTill = false;
    int mSparatIndex = 0;

  private:
    /// Runs an event under the handler that these windows share.
    void Vakta(const std::function<void()>& händelse);
    void FyllLista(const std::function<std::string()>& rad);
    void lst_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdRefresh_Click();
    void cmdEdit_Click();
    void cmdCancel_Click();
    void cmdUpdate_Click();
};

}  // namespace vemora
