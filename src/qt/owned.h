// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <utility>

namespace qt {

/// Makes an object that its Qt parent owns from the start; the parent is the last argument, as the window
/// system's constructors have it.
template <class T, class... Args>
T* Child(Args&&... args) {
    return std::make_unique<T>(std::forward<Args>(args)...).release();
}

}  // namespace qt
