// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "core/published.h"

namespace vemora {

Published BuiltIn() {
    return {.Version = VEMORA_VERSION,
            .UpdateHost = VEMORA_UPDATE_HOST,
            .DefaultPage = VEMORA_DEFAULT_PAGE,
            .MakerPage = VEMORA_MAKER_PAGE,
            .DistributorPage = VEMORA_DISTRIBUTOR_PAGE};
}

}  // namespace vemora
