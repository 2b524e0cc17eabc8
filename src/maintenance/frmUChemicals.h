// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "maintenance/record_window.h"

namespace vemora {

/// Chemicals: formula, name, trade name and note, side by side in three languages. The hidden edit mode,
/// which opens the supplied records of all the windows, is switched on here.
class frmUChemicals final : public RecordWindow {
  public:
    explicit frmUChemicals(mMain& main);

    platform::oFormula oFormula1{
        *this,
        "oFormula1",
        {.Left = 3900, .Top = 405, .Width = 4380, .Height = 450, .Tag = "R0331", .Locked = true}};
    platform::Label txtEgen{*this,
                            "txtEgen",
                            {.Left = 8460,
                             .Top = 510,
                             .Width = 3000,
                             .Height = 255,
                             .Tag = "R0153",
                             .Visible = false,
                             .Font = {.Bold = true}}};

  private:
    void FörbereddLaddning() override;
    void Laddad() override;
    void Form_Unload() override;
    void VisaPost() override;
    void LåsFält(bool bVal) override;
    void PrövaSkydd() override;
    void LäggTill() override;
    void SkrivFält() override;
    bool BlirEgen() const override { return Main.IsSkyddat(); }
    void Sparad() override;
    void Avbruten() override;
    void TaBort() override;
    void TömFält() override;

    void txtFields_LostFocus(int Index);
    void cmdClose_KeyDown(int Shift);
    void cmdCancel_KeyDown(int Shift);

    bool mAlt = false;
};

}  // namespace vemora
