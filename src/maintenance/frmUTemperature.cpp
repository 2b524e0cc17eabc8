// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUTemperature.h"

#include "platform/text/text.h"

namespace vemora {

namespace {

// The masculine ordinal and a C: what the update file compares with.
constexpr const char* kUnit = "ºC";

}  // namespace

frmUTemperature::frmUTemperature(mMain& main)
    : RecordWindow(
          main, kUTemperature,
          {.ClientWidth = 8400,
           .ClientHeight = 5400,
           .ListWidth = 3600,
           .Labels =
               {{11,
                 {.Left = 120, .Top = 120, .Width = 3600, .Height = 255, .Tag = kUTemperature.ListLabelKey}},
                {2, {.Left = 3900, .Top = 120, .Width = 4380, .Height = 255, .Tag = "R0249"}},
                {0, {.Left = 5820, .Top = 465, .Width = 600, .Height = 255, .Caption = kUnit}},
                {3, {.Caption = "Värde:", .Visible = false}}},
           .Boxes = {{0, {.Visible = false, .Locked = true}},
                     {1, {.Left = 3900, .Top = 405, .Width = 1800, .Height = 345, .Locked = true}},
                     {2, {.Visible = false, .Locked = true}}}}) {
    txtFields.Bind(&platform::TextBox::Change, [this](int Index) { txtFields_Change(Index); });
}

void frmUTemperature::SkrivFält() {
    mRs["Temp"] = txtFields(1).Text.Get() + kUnit;
}

void frmUTemperature::txtFields_Change(int Index) {
    if (Index != 1 || mRedigerar || mLäggerTill || mRs.Eof()) {
        return;
    }
    const std::string temperature = mRs["Temp"].Joined();
    if (platform::Right(temperature, 2) == kUnit) {
        txtFields(1).Text = platform::Left(temperature, platform::Len(temperature) - 2);
    }
}

}  // namespace vemora
