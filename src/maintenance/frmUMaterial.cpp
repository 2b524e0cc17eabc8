// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "maintenance/frmUMaterial.h"

namespace vemora {

MaterialWindow::MaterialWindow(mMain& main, const Difference& difference, const char* refreshKey)
    : RecordWindow(main, difference,
                   {.Labels = {{0, RecordLayout::Hidden("ID:")},
                               {1, RecordLayout::LabelAt(120, "R0260")},
                               {2, RecordLayout::LabelAt(900, "R0249")}},
                    .Boxes = {{1, RecordLayout::BoxAt(405)}, {2, RecordLayout::BoxAt(1185)}},
                    .RefreshKey = refreshKey}) {}

}  // namespace vemora
