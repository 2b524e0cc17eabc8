// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

#include "core/mMain.h"
#include "settings/selection_lists.h"

namespace vemora {

/// Which rows take part in the program, and its language. The ticks are a working copy until they are saved;
/// a language takes effect when it is chosen.
class frmInställningar final : public Window {
  public:
    explicit frmInställningar(mMain& main);

    platform::ControlArray<platform::Label> lblLabels{
        *this, "lblLabels", {{1, {.Left = 120, .Top = 645, .Width = 7860, .Height = 255, .Tag = "R0178"}}}};
    platform::SSTab SSTab1{*this,
                           "SSTab1",
                           {.Left = 120, .Top = 960, .Width = 9120, .Height = 4800},
                           {"Koncentration", "Metall", "Plast", "Temperatur", "Tätning", "Övrigt"}};
    platform::ListView lvwConcentrations{*this, "lvwConcentrations", OnPage(0)};
    platform::ListView lvwMetal{*this, "lvwMetal", OnPage(1)};
    platform::ListView lvwPlast{*this, "lvwPlast", OnPage(2)};
    platform::ListView lvwTemp{*this, "lvwTemp", OnPage(3)};
    platform::ListView lvwTight{*this, "lvwTight", OnPage(4)};
    platform::ListView lvwMisc{*this, "lvwMisc", OnPage(5)};
    platform::ControlArray<platform::CommandButton> cmdMarkera{
        *this,
        "cmdMarkera",
        {{0, {.Left = 120, .Top = 5880, .Width = 1620, .Height = 405, .Tag = "R0169"}},
         {1, {.Left = 1860, .Top = 5880, .Width = 1620, .Height = 405, .Tag = "R0168"}}}};
    platform::CommandButton cmdSpara{
        *this,
        "cmdSpara",
        {.Left = 6450, .Top = 5880, .Width = 1335, .Height = 405, .Tag = "R0170", .Default = true}};
    platform::CommandButton cmdStäng{
        *this,
        "cmdStäng",
        {.Left = 7905, .Top = 5880, .Width = 1335, .Height = 405, .Tag = "R0171", .Cancel = true}};
    // Last in the order: what is chosen here is chosen at once, so that the keyboard doesn't begin with it.
    platform::Label lblLang{
        *this,
        "lblLang",
        {.Left = 120, .Top = 180, .Width = 1620, .Height = 255, .Caption = "Language/Språk"}};
    platform::ComboBox cboLang{
        *this, "cboLang", {.Left = 1800, .Top = 135, .Width = 2640, .Height = 345, .Tag = "R0338"}};
    platform::Image imgBild{
        *this, "imgBild", {.Left = 8160, .Top = 120, .Width = 1080, .Height = 720, .Picture = "settings"}};

  protected:
    void Form_Load() override;

  private:
    platform::Design OnPage(int page) {
        return {.Left = 120,
                .Top = 120,
                .Width = 8820,
                .Height = 4140,
                .MultiSelect = true,
                .Checkboxes = true,
                .Container = &SSTab1,
                .Page = page};
    }

    void FillValues();
    void FyllLista(int tab, platform::adodb::Recordset& rs);
    void VisaVal();
    void SSTab1_Click();
    void cboLang_Click();
    void cmdMarkera_Click(int Index);
    void cmdSpara_Click();
    void cmdStäng_Click();
    void lvw_ColumnClick(int tab, int ColumnHeader);

    platform::ListView& Lista(int tab) const { return *mListor[static_cast<std::size_t>(tab)]; }

    const std::array<platform::ListView*, 6> mListor{&lvwConcentrations, &lvwMetal, &lvwPlast,
                                                     &lvwTemp,           &lvwTight, &lvwMisc};
    // Of each list, whether its last sort was a descending one.
    std::array<platform::Static<bool>, 6> bFallande{
        {{*this, false}, {*this, false}, {*this, false}, {*this, false}, {*this, false}, {*this, false}}};
    // Something has been changed and not saved. It outlives the closing of the window: only a save clears it.
    bool bÄndrad = false;
    bool bLaddar = false;
};

}  // namespace vemora
