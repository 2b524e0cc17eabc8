// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

namespace platform {

class Form;

/// A variable of an event procedure that keeps its value from call to call, and is back to its first value at
/// each unload of the window.
template <class T>
class Static {
  public:
    Static(Form& parent, T first);
    Static(const Static&) = delete;
    Static& operator=(const Static&) = delete;
    operator const T&() const { return value_; }
    Static& operator=(T value) {
        value_ = value;
        return *this;
    }

  private:
    T first_;
    T value_;
};

}  // namespace platform
