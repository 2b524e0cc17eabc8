// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <iostream>

#include "vemora-db/program.h"
#include "vemora-db/progress.h"

int main(int argc, char** argv) {
    vemora_db::CatchInterrupts();
    return static_cast<int>(
        vemora_db::Run(argc, argv, std::cout, std::cerr, vemora_db::ErrorsGoToTerminal()));
}
