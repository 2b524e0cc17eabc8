// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/progress.h"

#include <csignal>
#include <cstdio>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "vemora-db/failures.h"

namespace vemora_db {

namespace {

volatile std::sig_atomic_t interrupted = 0;

}  // namespace

void Progress::Show(std::string_view what, std::uintmax_t done, std::uintmax_t total) {
    if (interrupted != 0) {
        throw Interrupted();
    }
    const auto now = std::chrono::steady_clock::now();
    if (!enabled_ || now - last_ < std::chrono::milliseconds(100)) {
        return;
    }
    last_ = now;
    std::string line(what);
    line += total > 0 ? " " + std::to_string(done * 100 / total) + " %" : " " + std::to_string(done);
    const std::size_t length = line.size();
    if (length < shown_) {
        line.append(shown_ - length, ' ');
    }
    shown_ = length;
    terminal_ << '\r' << line << std::flush;
}

void Progress::Clear() {
    if (shown_ > 0) {
        terminal_ << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
        shown_ = 0;
    }
}

bool ErrorsGoToTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(fileno(stderr)) != 0;
#endif
}

void CatchInterrupts() {
    std::vector<int> signals = {SIGINT, SIGTERM};
#ifdef SIGHUP
    signals.push_back(SIGHUP);  // the terminal was closed
#endif
    for (const int one : signals) {
        // What the caller had ignored, as nohup does, stays so.
        if (std::signal(one, [](int) { interrupted = 1; }) == SIG_IGN) {
            std::signal(one, SIG_IGN);
        }
    }
}

}  // namespace vemora_db
