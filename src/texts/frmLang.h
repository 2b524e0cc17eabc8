// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "platform/forms/form.h"

namespace vemora {

/// Chooses the language at the first start, when there is no active language file yet: a click on a language
/// copies its file. Bound to no text keys, since it works before there is a language.
class frmLang final : public platform::Form {
  public:
    frmLang(platform::Desktop& desktop, std::filesystem::path folder);

    platform::Label lblLang{
        *this,
        "lblLang",
        {.Left = 180, .Top = 210, .Width = 1500, .Height = 255, .Caption = "Language/Språk"}};
    platform::ComboBox cboLang{
        *this, "cboLang", {.Left = 1740, .Top = 165, .Width = 2640, .Height = 345, .Tag = "R1047"}};
    platform::CommandButton cmdOk{*this,
                                  "cmdOk",
                                  {.Left = 1740,
                                   .Top = 840,
                                   .Width = 1260,
                                   .Height = 405,
                                   .Caption = "&Ok",
                                   .Tag = "R1048",
                                   .Default = true}};
    platform::CommandButton cmdAvbryt{
        *this,
        "cmdAvbryt",
        {.Left = 3120, .Top = 840, .Width = 1260, .Height = 405, .Caption = "&Cancel", .Cancel = true}};

  protected:
    void Form_Load() override;

  private:
    void cboLang_Click();
    void cmdOk_Click();
    void cmdAvbryt_Click();

    std::filesystem::path folder_;
    bool bLaddar = false;
};

}  // namespace vemora
