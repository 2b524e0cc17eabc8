// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace vemora_db {

/// Tells how far long work is, on one line that is written over and over, and lets the user stop it.
class Progress {
  public:
    /// Says nothing when there is no terminal to say it to.
    Progress(std::ostream& terminal, bool enabled) : terminal_(terminal), enabled_(enabled) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress() { Clear(); }

    /// Cheap enough to be called for every row. A total of 0 is one that isn't known.
    void Tell(std::string_view what, std::uintmax_t done, std::uintmax_t total) {
        if ((++calls_ & 0xFF) == 0) {
            Show(what, done, total);
        }
    }
    /// For steps that take long themselves.
    void TellStep(std::string_view what, std::uintmax_t done, std::uintmax_t total) {
        Show(what, done, total);
    }
    /// Takes the line away, so that something else can be said.
    void Clear();

  private:
    void Show(std::string_view what, std::uintmax_t done, std::uintmax_t total);

    std::ostream& terminal_;
    bool enabled_;
    std::uint32_t calls_ = 0;
    std::size_t shown_ = 0;
    std::chrono::steady_clock::time_point last_;
};

/// Whether what is written to stderr is read by a person.
bool ErrorsGoToTerminal();

/// From now on the user's interrupt, or the end of the terminal, ends the work at the next Progress::Tell, by
/// an Interrupted.
void CatchInterrupts();

}  // namespace vemora_db
