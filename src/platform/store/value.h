// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace platform {

/// What a field of a row holds: Null, a whole number, a real number or a text (UTF-8).
/// A Boolean is the number -1 (true) or 0 (false).
class Value {
  public:
    Value() = default;
    Value(bool value) : data_(std::int64_t{value ? -1 : 0}) {}
    Value(int value) : data_(std::int64_t{value}) {}
    Value(long value) : data_(std::int64_t{value}) {}
    Value(long long value) : data_(std::int64_t{value}) {}
    Value(double value) : data_(value) {}
    Value(std::string value) : data_(std::move(value)) {}
    Value(std::string_view value) : data_(std::string(value)) {}
    Value(const char* value) : data_(std::string(value)) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }
    /// The value as text; error 94 for Null.
    std::string Text() const;
    /// The value joined to an empty text: Null becomes empty.
    std::string Joined() const;
    /// The value as a 32-bit number; error 94 for Null, 13 for a text that is no number or out of range.
    std::int32_t Long() const;
    /// True for any number but 0; error 94 for Null, 13 for a text that is no number.
    bool Bool() const;

    const std::variant<std::monostate, std::int64_t, double, std::string>& Data() const { return data_; }
    bool operator==(const Value&) const = default;

  private:
    std::variant<std::monostate, std::int64_t, double, std::string> data_;
};

/// Whether a text is a number in decimal: an optional sign, digits, perhaps a point and further digits,
/// blanks or tabs around them. "1e3" and "12,5" are none, and "12.5" is one that Value::Long refuses.
bool IsNumeric(std::string_view text);

}  // namespace platform
