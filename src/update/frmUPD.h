// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/mMain.h"
#include "platform/net/inet.h"
#include "update/writers.h"

namespace vemora {

/// The window that fetches the publisher's update file and writes it into the database, at one press and with
/// no way back.
class frmUPD final : public Window {
  public:
    explicit frmUPD(mMain& main);

    platform::Image imgBild{
        *this, "imgBild", {.Left = 240, .Top = 240, .Width = 1080, .Height = 720, .Picture = "update"}};
    platform::Label lblBesk{
        *this, "lblBesk", {.Left = 1560, .Top = 240, .Width = 5400, .Height = 1080, .Tag = "R0277"}};
    platform::Label lblInfo{
        *this,
        "lblInfo",
        {.Left = 1560, .Top = 1440, .Width = 5400, .Height = 255, .Tag = "R0278", .Visible = false}};
    platform::Label lblPost{
        *this, "lblPost", {.Left = 1560, .Top = 1755, .Width = 5400, .Height = 255, .Font = {.Bold = true}}};
    platform::CommandButton cmdImport{
        *this,
        "cmdImport",
        {.Left = 4170, .Top = 2220, .Width = 1335, .Height = 405, .Tag = "R0275;R0276", .Default = true}};
    platform::CommandButton cmdClose{
        *this,
        "cmdClose",
        {.Left = 5625, .Top = 2220, .Width = 1335, .Height = 405, .Tag = "R0273;R0274", .Cancel = true}};
    platform::Inet Inet;

  protected:
    void Form_Load() override;

  private:
    void cmdImport_Click();
    void Importera();
    void Knappar(bool Enabled);
    platform::adodb::Connection& Koppling() const;
    std::int32_t LäsFil();
    std::string Adress() const;

    // Made at the first import. The chemical and the concentration of one import's last line are those of the
    // next one's first, until it names its own.
    std::optional<UpdateWriters> mSkrivare;
};

}  // namespace vemora
