// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "core/mMain.h"

namespace vemora {

/// The main window: looks a chemical up and opens every other window. The one that isn't modal; when it
/// closes, the program ends.
class frmMain final : public Window {
  public:
    explicit frmMain(mMain& main);

    platform::ControlArray<platform::Image> imgBild{
        *this,
        "imgBild",
        {{0, {.Left = 60, .Top = 1080, .Width = 1080, .Height = 3240, .Picture = "bild-sv"}},
         {1,
          {.Left = 60, .Top = 4380, .Width = 1080, .Height = 3240, .Visible = false, .Picture = "bild-en"}}}};
    platform::ControlArray<platform::Label> Label1{
        *this,
        "Label1",
        {{1, {.Left = 60, .Top = 165, .Width = 1110, .Height = 255, .Tag = "R0189"}},
         {0, {.Left = 1200, .Top = 585, .Width = 2580, .Height = 255, .Tag = "R0188"}}}};
    platform::TextBox txtChem{*this, "txtChem", {.Left = 1200, .Top = 120, .Width = 2535, .Height = 345}};
    platform::CommandButton cmdSök{
        *this, "cmdSök", {.Left = 3840, .Top = 120, .Width = 1215, .Height = 345, .Tag = "R0180"}};
    platform::CommandButton cmdStäng{
        *this, "cmdStäng", {.Left = 5160, .Top = 120, .Width = 1215, .Height = 345, .Tag = "R0181"}};
    platform::Label lblInfo{*this, "lblInfo", {.Left = 3840, .Top = 600, .Width = 2535, .Height = 240}};
    // To the right of the window as it opens: seen once the window is made wider.
    platform::Frame fraSökaI{
        *this,
        "fraSökaI",
        {.Left = 7080, .Top = 0, .Width = 5760, .Height = 825, .Caption = "Söka på (Kemikalie)"}};
    platform::ControlArray<platform::OptionButton> optSökaI{
        *this,
        "optSökaI",
        {{0,
          {.Left = 120,
           .Top = 255,
           .Width = 1740,
           .Height = 270,
           .Tag = "R0183",
           .Value = 1,
           .Container = &fraSökaI}},
         {1,
          {.Left = 1920, .Top = 255, .Width = 1740, .Height = 270, .Tag = "R0031", .Container = &fraSökaI}},
         {2,
          {.Left = 3720, .Top = 255, .Width = 1920, .Height = 270, .Tag = "R0018", .Container = &fraSökaI}},
         {3, {.Left = 120, .Top = 525, .Width = 1740, .Height = 270, .Tag = "R0035", .Container = &fraSökaI}},
         {4,
          {.Left = 1920, .Top = 525, .Width = 1740, .Height = 270, .Tag = "R0036", .Container = &fraSökaI}}}};
    platform::ListView lvwResultat{
        *this, "lvwResultat", {.Left = 1200, .Top = 840, .Width = 5175, .Height = 5535}};
    platform::ImageList imgBilder{*this, "imgBilder", {{"Formula", "formula"}, {"Chemical", "chemical"}}};
    platform::ImageList imgList{*this, "imgList", {{"Upp", "sort-ascending"}, {"Ned", "sort-descending"}}};

    platform::Menu mnuFile{*this, "mnuFile", {.Tag = "R0190"}};
    platform::Menu mnuExit{*this, "mnuExit", {.Tag = "R0181", .Container = &mnuFile}};
    platform::Menu mnuMaintinence{*this, "mnuMaintinence", {.Tag = "R0193"}};
    platform::Menu mnuChemicals{*this, "mnuChemicals", {.Tag = "R0194", .Container = &mnuMaintinence}};
    platform::Menu mnuUConcentration{
        *this, "mnuUConcentration", {.Tag = "R0195", .Container = &mnuMaintinence}};
    platform::Menu mnuUTemperature{*this, "mnuUTemperature", {.Tag = "R0196", .Container = &mnuMaintinence}};
    platform::Menu mnuSep1{*this, "mnuSep1", {.Caption = "-", .Container = &mnuMaintinence}};
    platform::Menu mnuUMetal{*this, "mnuUMetal", {.Tag = "R0197", .Container = &mnuMaintinence}};
    platform::Menu mnuUPlast{*this, "mnuUPlast", {.Tag = "R0198", .Container = &mnuMaintinence}};
    platform::Menu mnuUTight{*this, "mnuUTight", {.Tag = "R0199", .Container = &mnuMaintinence}};
    platform::Menu mnuUMisc{*this, "mnuUMisc", {.Tag = "R0200", .Container = &mnuMaintinence}};
    platform::Menu mnuSep2{*this, "mnuSep2", {.Caption = "-", .Container = &mnuMaintinence}};
    platform::Menu mnuURelations{*this, "mnuURelations", {.Tag = "R0201", .Container = &mnuMaintinence}};
    platform::Menu mnuSep3{*this, "mnuSep3", {.Caption = "-", .Container = &mnuMaintinence}};
    platform::Menu mnuInställningar{
        *this, "mnuInställningar", {.Tag = "R0202", .Container = &mnuMaintinence}};
    platform::Menu mnuOm{*this, "mnuOm", {.Tag = "R0203"}};
    platform::Menu mnuUpd{*this, "mnuUpd", {.Tag = "R0204", .Container = &mnuOm}};
    platform::Menu mnuSep4{*this, "mnuSep4", {.Caption = "-", .Container = &mnuOm}};
    platform::Menu mnuInfo{*this, "mnuInfo", {.Tag = "R0205", .Container = &mnuOm}};

  protected:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_KeyPress(int& KeyAscii) override;
    void Form_Unload() override;

  private:
    void cmdSök_Click();
    void SetColumns();
    void AddToListView(platform::adodb::Recordset& rs);
    void txtChem_GotFocus();
    void lvwResultat_GotFocus();
    void lvwResultat_ItemClick(const platform::ListItem& Item);
    void lvwResultat_ColumnClick(int ColumnHeader);
    void lvwResultat_DblClick();
    void lvwResultat_KeyPress(int& KeyAscii);
    void cmdStäng_Click();
    void mnuExit_Click();
    void mnuInställningar_Click();
    void BindMenu(platform::Menu& menu, const Windows::Any& window);

    // The row clicked last, also when a new search has taken it out of the list.
    std::optional<platform::ListItem> mValdRad;
    bool mSortFallande = false;
};

}  // namespace vemora
