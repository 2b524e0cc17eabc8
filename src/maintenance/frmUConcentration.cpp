// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUConcentration.h"

#include "platform/text/text.h"

namespace vemora {

frmUConcentration::frmUConcentration(mMain& main)
    : RecordWindow(main, kUConcentration,
                   {.ClientWidth = 8400,
                    .ClientHeight = 5400,
                    .ListWidth = 3600,
                    .Labels = {{11,
                                {.Left = 120,
                                 .Top = 120,
                                 .Width = 3600,
                                 .Height = 255,
                                 .Tag = kUConcentration.ListLabelKey}},
                               {2, {.Left = 3900, .Top = 120, .Width = 4380, .Height = 255, .Tag = "R0249"}},
                               {3, {.Left = 3900, .Top = 900, .Width = 4380, .Height = 255, .Tag = "R0248"}},
                               {4, {.Left = 3900, .Top = 1680, .Width = 4380, .Height = 255, .Tag = "R0247"}},
                               {5, {.Visible = false}}},
                    .Boxes = {{0, {.Visible = false, .Locked = true}},
                              {1, {.Left = 3900, .Top = 405, .Width = 4380, .Height = 345, .Locked = true}},
                              {2, {.Left = 3900, .Top = 1185, .Width = 4380, .Height = 345, .Locked = true}},
                              {3, {.Left = 3900, .Top = 1965, .Width = 4380, .Height = 345, .Locked = true}},
                              {4, {.Visible = false, .Locked = true}}},
                    .RefreshKey = "R0221"}) {}

// The three labels are one text, whose colon gives way to the language.
void frmUConcentration::FörbereddLaddning() {
    const std::string& text = lblLabels(2).Caption;
    const std::size_t length = platform::Len(text);
    const std::string description = platform::Left(text, length > 0 ? length - 1 : 0);
    lblLabels(2).Caption = description + " SE:";
    lblLabels(3).Caption = description + " EN:";
    lblLabels(4).Caption = description + " DE:";
}

}  // namespace vemora
