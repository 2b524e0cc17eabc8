// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace vemora {

/// What a publisher sets when the program is built.
struct Published {
    std::string Version;
    /// The server of the update file: a host, or "https://" and a host. Empty: there is none yet.
    std::string UpdateHost;
    /// Web pages; where one is empty, a page in the program's folder stands for it.
    std::string DefaultPage, MakerPage, DistributorPage;
};

Published BuiltIn();

}  // namespace vemora
