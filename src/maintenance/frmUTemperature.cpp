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
    : RecordWindow(main, kUTemperature,
                   {.Labels = {{2, RecordLayout::LabelAt(120, "R0249")},
                               {0, {.Left = 5820, .Top = 465, .Width = 600, .Height = 255, .Caption = kUnit}},
                               {3, RecordLayout::Hidden("Värde:")}},
                    .Boxes = {{1, RecordLayout::BoxAt(405, RecordLayout::kColumn, 1800)},
                              {2, RecordLayout::Hidden()}}}) {
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
