// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/mMain.h"

namespace vemora {

/// The sheet of one chemical: formula, name, trade name and note, and the table of how each material stands
/// up to it. Shown modally for the chemical that Nyckel names.
class frmChemical final : public Window {
  public:
    explicit frmChemical(mMain& main);

    /// ID of the shown chemical; -1 once the window has been unloaded.
    std::int32_t Nyckel();
    void Nyckel(std::int32_t value);

    platform::ControlArray<platform::Label> lblLabels{
        *this,
        "lblLabels",
        {{1, {.Left = 120, .Top = 195, .Width = 1440, .Height = 255, .Tag = "R0155"}},
         {2, {.Left = 120, .Top = 660, .Width = 1440, .Height = 255, .Tag = "R0156"}},
         {10, {.Left = 120, .Top = 1065, .Width = 1440, .Height = 255, .Tag = "R0035"}},
         {5, {.Left = 120, .Top = 1470, .Width = 1440, .Height = 255, .Tag = "R0036"}},
         {0, {.Left = 120, .Top = 2520, .Width = 2700, .Height = 255, .Tag = "R0152"}},
         {12, {.Left = 2940, .Top = 2520, .Width = 1800, .Height = 255, .Tag = "R0151"}},
         {11, {.Left = 120, .Top = 3195, .Width = 4680, .Height = 255, .Tag = "R0154"}},
         {3, {.Tag = "R0157", .Visible = false}},
         {4, {.Tag = "R0158", .Visible = false}},
         {6, {.Caption = "Kommentar (EN):", .Visible = false}},
         {7, {.Caption = "Kommentar (DE):", .Visible = false}},
         {8, {.Caption = "Handelsnamn (DE):", .Visible = false}},
         {9, {.Caption = "Handelsnamn (EN):", .Visible = false}}}};
    platform::oFormula oFormula1{
        *this,
        "oFormula1",
        {.Left = 1620, .Top = 90, .Width = 3000, .Height = 450, .Tag = "R0331", .Locked = true}};
    platform::Label lblÄndrad{*this,
                              "lblÄndrad",
                              {.Left = 4740,
                               .Top = 195,
                               .Width = 2100,
                               .Height = 255,
                               .Tag = "R0153",
                               .Visible = false,
                               .Font = {.Bold = true},
                               .ForeColor = platform::Colour::Warning}};
    platform::ControlArray<platform::TextBox> txtFields{
        *this,
        "txtFields",
        {{0, {.Visible = false, .DataField = "ID"}},
         {1, {.Visible = false, .DataField = "Formula"}},
         {11, {.Visible = false, .DataField = "FormulaRTF"}},
         {2, {.Left = 1620, .Top = 615, .Width = 5220, .Height = 345, .Locked = true, .DataField = "NameSE"}},
         {10,
          {.Left = 1620,
           .Top = 1020,
           .Width = 5220,
           .Height = 345,
           .Locked = true,
           .DataField = "NickNameSE"}},
         {5,
          {.Left = 1620,
           .Top = 1425,
           .Width = 5220,
           .Height = 960,
           .Locked = true,
           .MultiLine = true,
           .DataField = "NoteSE"}},
         {3, {.Visible = false, .DataField = "NameEN"}},
         {4, {.Visible = false, .DataField = "NameGE"}},
         {9, {.Visible = false, .DataField = "NickNameEN"}},
         {8, {.Visible = false, .DataField = "NickNameGE"}},
         {6, {.Visible = false, .DataField = "NoteEN"}},
         {7, {.Visible = false, .DataField = "NoteGE"}}}};
    platform::ComboBox cboConc{*this, "cboConc", {.Left = 120, .Top = 2775, .Width = 2700, .Height = 345}};
    platform::ComboBox cboTemp{*this, "cboTemp", {.Left = 2940, .Top = 2775, .Width = 1800, .Height = 345}};
    platform::CheckBox chkFilter{
        *this,
        "chkFilter",
        {.Left = 4860, .Top = 2745, .Width = 1980, .Height = 405, .Tag = "R0010", .Style = 1}};
    platform::Frame fraMaterialVal{
        *this,
        "fraMaterialVal",
        {.Left = 7020, .Top = 60, .Width = 2100, .Height = 1560, .Tag = "R0128;R0129"}};
    platform::ControlArray<platform::CheckBox> chkMaterial{*this,
                                                           "chkMaterial",
                                                           {{0,
                                                             {.Left = 120,
                                                              .Top = 285,
                                                              .Width = 1920,
                                                              .Height = 285,
                                                              .Tag = "R0136;R0129",
                                                              .Value = 1,
                                                              .Container = &fraMaterialVal}},
                                                            {1,
                                                             {.Left = 120,
                                                              .Top = 585,
                                                              .Width = 1920,
                                                              .Height = 285,
                                                              .Tag = "R0134;R0129",
                                                              .Value = 1,
                                                              .Container = &fraMaterialVal}},
                                                            {2,
                                                             {.Left = 120,
                                                              .Top = 885,
                                                              .Width = 1920,
                                                              .Height = 285,
                                                              .Tag = "R0132;R0129",
                                                              .Value = 1,
                                                              .Container = &fraMaterialVal}},
                                                            {3,
                                                             {.Left = 120,
                                                              .Top = 1185,
                                                              .Width = 1920,
                                                              .Height = 285,
                                                              .Tag = "R0130;R0129",
                                                              .Value = 1,
                                                              .Container = &fraMaterialVal}}}};
    platform::Frame fraVärden{
        *this, "fraVärden", {.Left = 9240, .Top = 60, .Width = 3000, .Height = 1560, .Tag = "R0138;R0139"}};
    platform::ControlArray<platform::CheckBox> chkVärde{*this,
                                                        "chkVärde",
                                                        {{0,
                                                          {.Left = 120,
                                                           .Top = 285,
                                                           .Width = 2820,
                                                           .Height = 285,
                                                           .Tag = "R0146;R0139",
                                                           .Value = 1,
                                                           .Container = &fraVärden}},
                                                         {1,
                                                          {.Left = 120,
                                                           .Top = 585,
                                                           .Width = 2820,
                                                           .Height = 285,
                                                           .Tag = "R0144;R0139",
                                                           .Value = 1,
                                                           .Container = &fraVärden}},
                                                         {2,
                                                          {.Left = 120,
                                                           .Top = 885,
                                                           .Width = 2820,
                                                           .Height = 285,
                                                           .Tag = "R0142;R0139",
                                                           .Value = 1,
                                                           .Container = &fraVärden}},
                                                         {3,
                                                          {.Left = 120,
                                                           .Top = 1185,
                                                           .Width = 2820,
                                                           .Height = 285,
                                                           .Caption = "( )",
                                                           .Tag = "R0115;R0139",
                                                           .Container = &fraVärden}}}};
    platform::Frame fraSpråk{
        *this, "fraSpråk", {.Left = 7020, .Top = 1680, .Width = 5220, .Height = 705, .Tag = "R0124"}};
    platform::ControlArray<platform::OptionButton> opt1Språk{
        *this,
        "opt1Språk",
        {{2,
          {.Left = 120,
           .Top = 315,
           .Width = 1620,
           .Height = 285,
           .Tag = "R0127",
           .Value = 1,
           .Container = &fraSpråk}},
         {0,
          {.Left = 1800, .Top = 315, .Width = 1620, .Height = 285, .Tag = "R0126", .Container = &fraSpråk}},
         {1,
          {.Left = 3480, .Top = 315, .Width = 1620, .Height = 285, .Tag = "R0125", .Container = &fraSpråk}}}};
    platform::Label lblFilter{
        *this, "lblFilter", {.Left = 7020, .Top = 2835, .Width = 3600, .Height = 255, .Tag = "R0012"}};
    platform::CommandButton cmdStäng{
        *this, "cmdStäng", {.Left = 10800, .Top = 2745, .Width = 1440, .Height = 405, .Tag = "R0148;R0149"}};
    platform::Label lblResultat{
        *this,
        "lblResultat",
        {.Left = 7020, .Top = 3195, .Width = 5220, .Height = 255, .Alignment = platform::Align::Right}};
    platform::ListView lvwMaterial{
        *this, "lvwMaterial", {.Left = 120, .Top = 3480, .Width = 13440, .Height = 4320}};
    platform::ControlArray<platform::Image> imgBild{
        *this,
        "imgBild",
        {{0, {.Left = 12420, .Top = 120, .Width = 1020, .Height = 3060, .Picture = "bild-sv"}},
         {1,
          {.Left = 12420,
           .Top = 3240,
           .Width = 1020,
           .Height = 3060,
           .Visible = false,
           .Picture = "bild-en"}}}};
    platform::Menu mnuRedigera{*this, "mnuRedigera", {.Tag = "R0165"}};
    platform::Menu mnuClip{
        *this, "mnuClip", {.Tag = "R0166", .Shortcut = "Ctrl+C", .Container = &mnuRedigera}};

  protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    void Form_Unload() override;

  private:
    using RecordsetPtr = std::unique_ptr<platform::adodb::Recordset>;
    struct MaterialClass;

    // The queries. A class whose statement failed, which is reported, has no record set.
    RecordsetPtr GetMetallRs(bool VisaPlus, bool VisaMinus, bool VisaNoll, bool VisaBlank);
    RecordsetPtr GetPlastRs(bool VisaPlus, bool VisaMinus, bool VisaNoll, bool VisaBlank);
    RecordsetPtr GetTightRs(bool VisaPlus, bool VisaMinus, bool VisaNoll, bool VisaBlank);
    RecordsetPtr GetMiscRs(bool VisaPlus, bool VisaMinus, bool VisaNoll, bool VisaBlank);
    RecordsetPtr GetClassRs(const MaterialClass& klass, bool VisaPlus, bool VisaMinus, bool VisaNoll,
                            bool VisaBlank);
    RecordsetPtr GetRs(int index);
    std::string GetConc(const std::string& ID);
    std::string GetTemp(const std::string& ID);
    std::string GetAllaConc();
    std::string GetAllaTemp();
    std::string GetAlla(const char* statement, const char* ending);

    // The display.
    void Visa();
    void VisaKolumner();
    void FyllRader(int index, platform::adodb::Recordset& rs);
    void VisaÄndrad();
    void FyllKonc(platform::ComboBox& cbo);
    void FyllTemp(platform::ComboBox& cbo);

    // The filters.
    void chkFilter_Click();
    void opt1Språk_Click(int Index);
    void txtFields_Change(int Index);
    void cmdStäng_Click();
    void mnuClip_Click();
    void lvwMaterial_ColumnClick(int ColumnHeader);
    /// The signs of the verdicts in words and colours.
    platform::CellLook Utseende(int column, const std::string& text) const;
    /// Where the verdict of a row comes from: its sources, by name, or that it is the user's own.
    std::string Källor(const platform::ListItem& item);
    /// The title is the program's; for who hears it, the chemical goes before.
    void NämnFönstret();

    std::int32_t mNyckel = -1;
    bool mFilterAv = false;
    bool mSortFallande = false;
    RecordsetPtr mChemRs;
    platform::Static<std::int32_t> SenasteKolumn{*this, 0};
    platform::Static<bool> bAktiverad{*this, false};
};

}  // namespace vemora
