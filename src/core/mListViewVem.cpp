// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "core/mListViewVem.h"

namespace vemora {

void VisaSorteringspil(platform::ListView& lvw, int Kolumn, int Bild, bool Visa) {
    if (lvw.Column(Kolumn).Text == "Värde") {
        return;
    }
    lvw.SetColumnSortImage(Kolumn, Visa ? std::optional(Bild) : std::nullopt);
}

void SorteraPåKolumn(platform::ListView& lvw, int ColumnHeader, bool fallande) {
    lvw.SortKey = ColumnHeader - 1;
    lvw.SortOrder = fallande ? 1 : 0;
    lvw.Sorted = true;
    VisaSorteringspilar(lvw);
}

void VisaSorteringspilar(platform::ListView& lvw) {
    for (int i = 0; i < lvw.ColumnCount(); ++i) {
        if (i == lvw.SortKey) {
            VisaSorteringspil(lvw, lvw.SortKey, lvw.SortOrder, true);
        } else {
            VisaSorteringspil(lvw, i, 0, false);
        }
    }
}

}  // namespace vemora
