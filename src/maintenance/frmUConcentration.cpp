// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUConcentration.h"

#include "platform/text/text.h"

namespace vemora {

frmUConcentration::frmUConcentration(mMain& main)
    : RecordWindow(main, kUConcentration,
                   {.Labels = {{2, RecordLayout::LabelAt(120, "R0249")},
                               {3, RecordLayout::LabelAt(900, "R0248")},
                               {4, RecordLayout::LabelAt(1680, "R0247")},
                               {5, RecordLayout::Hidden()}},
                    .Boxes = {{1, RecordLayout::BoxAt(405)},
                              {2, RecordLayout::BoxAt(1185)},
                              {3, RecordLayout::BoxAt(1965)},
                              {4, RecordLayout::Hidden()}},
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
