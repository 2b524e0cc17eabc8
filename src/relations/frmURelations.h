// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "core/mMain.h"
#include "relations/material_lists.h"

namespace vemora {

/// The window in which the user reads and states verdicts: one chemical, concentration, temperature and
/// material, one value.
///
/// The window keeps nothing but what stands in its controls: whether there is a row, and whose it is, is what
/// the visible marks say, and they are only right directly after a click on a material.
class frmURelations final : public Window {
  public:
    explicit frmURelations(mMain& main);

    platform::Label lblChem{
        *this, "lblChem", {.Left = 120, .Top = 120, .Width = 2100, .Height = 255, .Tag = "R0156"}};
    platform::Label txtEgenKem{*this, "txtEgenKem", OwnMark(2280, 120, 1680)};
    platform::ListBox lstChemicals{
        *this, "lstChemicals", {.Left = 120, .Top = 405, .Width = 3840, .Height = 5790}};
    platform::RichTextBox rtb{*this, "rtb", {.Left = 120, .Top = 6315, .Width = 3840, .Height = 450}};
    platform::ControlArray<platform::Label> lblLabels{
        *this,
        "lblLabels",
        {{0, {.Left = 4200, .Top = 120, .Width = 1560, .Height = 255, .Tag = "R0152"}},
         {12, {.Left = 7620, .Top = 120, .Width = 1320, .Height = 255, .Tag = "R0306"}}}};
    platform::Label txtEgenKon{*this, "txtEgenKon", OwnMark(5760, 120, 1680)};
    platform::ComboBox cboConc{*this, "cboConc", {.Left = 4200, .Top = 405, .Width = 3240, .Height = 345}};
    platform::Label txtEgenTemp{*this, "txtEgenTemp", OwnMark(8940, 120, 1680)};
    platform::ComboBox cboTemp{*this, "cboTemp", {.Left = 7620, .Top = 405, .Width = 3000, .Height = 345}};
    platform::SSTab SSTab1{*this,
                           "SSTab1",
                           {.Left = 4200, .Top = 945, .Width = 8160, .Height = 4470, .Enabled = false},
                           {"Metall", "Plast", "Tätning", "Övrigt"}};
    platform::ListView lvwMetal{*this, "lvwMetal", OnPage(0)};
    platform::ListView lvwPlast{*this, "lvwPlast", OnPage(1)};
    platform::ListView lvwTight{*this, "lvwTight", OnPage(2)};
    platform::ListView lvwMisc{*this, "lvwMisc", OnPage(3)};
    platform::Label Text1{
        *this, "Text1", {.Left = 4200, .Top = 5550, .Width = 900, .Height = 255, .Tag = "R0295"}};
    platform::Label txtEgen{*this, "txtEgen", OwnMark(5160, 5550, 1800)};
    platform::Label txtKopplad{*this,
                               "txtKopplad",
                               {.Left = 7020,
                                .Top = 5550,
                                .Width = 2400,
                                .Height = 255,
                                .Tag = "R0299",
                                .Visible = false,
                                .Font = {.Bold = true}}};
    platform::ComboBox cboVärde{*this,
                                "cboVärde",
                                {.Left = 4200,
                                 .Top = 5835,
                                 .Width = 3960,
                                 .Height = 345,
                                 .ToolTipText = "Aktuellt värde för relationen"}};
    platform::ControlArray<platform::CommandButton> cmdKoppla{
        *this,
        "cmdKoppla",
        {{0, {.Left = 8280, .Top = 5805, .Width = 1335, .Height = 405, .Tag = "R0298"}},
         {1, {.Left = 9735, .Top = 5805, .Width = 1335, .Height = 405, .Tag = "R0220"}}}};
    platform::CommandButton cmdClose{
        *this,
        "cmdClose",
        {.Left = 11025, .Top = 6360, .Width = 1335, .Height = 405, .Tag = "R0148", .Cancel = true}};
    platform::Image imgRel{
        *this, "imgRel", {.Left = 11160, .Top = 120, .Width = 1200, .Height = 705, .Picture = "relation"}};

  protected:
    void Form_Load() override;

  private:
    static platform::Design OwnMark(int left, int top, int width) {
        return {.Left = left,
                .Top = top,
                .Width = width,
                .Height = 255,
                .Tag = "R0153",
                .Visible = false,
                .Font = {.Bold = true}};
    }
    platform::Design OnPage(int page) {
        return {.Left = 120,
                .Top = 120,
                .Width = 7860,
                .Height = 3810,
                .MultiSelect = true,
                .Container = &SSTab1,
                .Page = page};
    }

    // --- reading ---
    void FillValues();
    /// Fills a list by a statement for each language; none for any other.
    template <class Row>
    void Läs(const char* svenska, const char* english, Row row);
    void FyllMaterial(int tab, platform::adodb::Recordset& rs);
    void lstChemicals_Click();
    void SSTab1_Click();
    void lvw_Click(int tab);
    void lvw_ColumnClick(int tab, int ColumnHeader);
    void cboVärde_Click();
    void VisaVärde(int tab, std::int32_t ID);
    void VisaMärken(int tab, std::int32_t ID);
    bool FinnsKoppling(std::int32_t ID, std::int32_t Klass);
    void Kolla();
    std::string Flikrubrik();

    // --- writing ---
    void cmdKoppla_Click(int Index);
    void Koppla(int Index);
    bool Vald(platform::LineList& list, const char* nyckel);

    platform::ListView& Lista(int tab) const { return *mListor[static_cast<std::size_t>(tab)]; }
    static const MaterialList& Klass(int tab) { return kMaterialLists[static_cast<std::size_t>(tab)]; }
    // The IDs of what is chosen, as text; an error of the list where nothing is.
    std::string ChemID() const { return Data(lstChemicals); }
    std::string ConcID() const { return Data(cboConc); }
    std::string TempID() const { return Data(cboTemp); }
    static std::string Data(const platform::LineList& list);

    const std::array<platform::ListView*, 4> mListor{&lvwMetal, &lvwPlast, &lvwTight, &lvwMisc};
    // Of each list, whether its last sort was a descending one.
    std::array<platform::Static<bool>, 4> bFallande{
        {{*this, false}, {*this, false}, {*this, false}, {*this, false}}};
};

}  // namespace vemora
