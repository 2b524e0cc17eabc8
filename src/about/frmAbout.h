// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "core/mMain.h"

namespace vemora {

/// What the program is, and what its data is worth.
class frmAbout final : public Window {
  public:
    explicit frmAbout(mMain& main);

    platform::ControlArray<platform::Image> imgBild{
        *this,
        "imgBild",
        {{0, {.Left = 240, .Top = 240, .Width = 1080, .Height = 3240, .Picture = "bild-sv"}},
         {1,
          {.Left = 240,
           .Top = 3600,
           .Width = 1080,
           .Height = 3240,
           .Visible = false,
           .Picture = "bild-en"}}}};
    platform::Label lblTitle{*this,
                             "lblTitle",
                             {.Left = 1560,
                              .Top = 240,
                              .Width = 5400,
                              .Height = 375,
                              .Caption = "Vemora",
                              .Font = {.Size = 14, .Bold = true}}};
    platform::Label lblVersion{*this, "lblVersion", {.Left = 1560, .Top = 645, .Width = 5400, .Height = 255}};
    platform::Label lblDisclaimer{
        *this, "lblDisclaimer", {.Left = 1560, .Top = 1020, .Width = 5400, .Height = 1740, .Tag = "R0330"}};
    // First in the order, so that Enter closes the box as it comes up.
    platform::CommandButton cmdOK{*this,
                                  "cmdOK",
                                  {.Left = 5625,
                                   .Top = 3075,
                                   .Width = 1335,
                                   .Height = 405,
                                   .Tag = "R0170",
                                   .Default = true,
                                   .Cancel = true}};
    platform::Image imgMaker{
        *this,
        "imgMaker",
        {.Left = 1560, .Top = 2880, .Width = 900, .Height = 660, .Tag = ";R0120", .Picture = "logo-data"}};
    platform::Image imgDistributor{
        *this,
        "imgDistributor",
        {.Left = 2580, .Top = 2880, .Width = 900, .Height = 660, .Tag = ";R0121", .Picture = "logo-manual"}};
    platform::CommandButton cmdSysInfo{
        *this, "cmdSysInfo", {.Left = 3720, .Top = 3075, .Width = 1785, .Height = 405, .Tag = "R0340"}};

  protected:
    void Form_Load() override;

  private:
    void cmdSysInfo_Click();
};

}  // namespace vemora
