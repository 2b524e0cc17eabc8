// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUMaterial.h"

namespace vemora {

MaterialWindow::MaterialWindow(mMain& main, const Difference& difference, const char* refreshKey)
    : RecordWindow(
          main, difference,
          {.ClientWidth = 8400,
           .ClientHeight = 5400,
           .ListWidth = 3600,
           .Labels =
               {{11, {.Left = 120, .Top = 120, .Width = 3600, .Height = 255, .Tag = difference.ListLabelKey}},
                {0, {.Caption = "ID:", .Visible = false}},
                {1, {.Left = 3900, .Top = 120, .Width = 4380, .Height = 255, .Tag = "R0260"}},
                {2, {.Left = 3900, .Top = 900, .Width = 4380, .Height = 255, .Tag = "R0249"}}},
           .Boxes = {{0, {.Visible = false, .Locked = true}},
                     {1, {.Left = 3900, .Top = 405, .Width = 4380, .Height = 345, .Locked = true}},
                     {2, {.Left = 3900, .Top = 1185, .Width = 4380, .Height = 345, .Locked = true}}},
           .RefreshKey = refreshKey}) {}

}  // namespace vemora
