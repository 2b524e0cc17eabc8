// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/forms/list_view.h"

namespace vemora {

/// Shows or removes the sort arrow in the heading of a column, counted from 0. Bild is the index of the
/// arrow in the list's heading images: 0 ascending, 1 descending. The column "Värde" never shows one.
void VisaSorteringspil(platform::ListView& lvw, int Kolumn, int Bild, bool Visa);

/// Sorts the list by a column, counted from 1 as a click on its heading tells it, and moves the arrow there.
void SorteraPåKolumn(platform::ListView& lvw, int ColumnHeader, bool fallande);

/// Sets the arrow on the list's sort column and removes it from all others, after a click on a heading.
void VisaSorteringspilar(platform::ListView& lvw);

}  // namespace vemora
