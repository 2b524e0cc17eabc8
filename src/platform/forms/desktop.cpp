// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/forms/desktop.h"

#include <exception>
#include <new>

#include "platform/error.h"

namespace platform {

void Desktop::Event(const std::function<void()>& handler) {
    if (ended_) {
        return;
    }
    try {
        handler();
    } catch (const ProgramEnded&) {
        // Whatever was running when the program ended has been left; there is nothing more to do.
    } catch (const Error& error) {
        MsgBox(std::to_string(error.Number) + " (" + error.Description + ")", msg::Critical);
        End();
    } catch (const std::bad_alloc&) {
        MsgBox(std::to_string(errors::OutOfMemory) + " (There is not enough memory to go on.)",
               msg::Critical);
        End();
    } catch (const std::exception& error) {
        MsgBox(std::to_string(errors::Internal) +
                   " (Something failed that was not foreseen: " + error.what() + ")",
               msg::Critical);
        End();
    }
}

void Desktop::End() {
    if (ended_) {
        return;
    }
    ended_ = true;
    if (AtEnd) {
        try {
            AtEnd();
        } catch (const Error& error) {
            MsgBox(std::to_string(error.Number) + " (" + error.Description + ")", msg::Critical);
        }
    }
    Quit();
}

}  // namespace platform
