// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <sstream>

#include "platform/error.h"

namespace platform {

namespace {

constexpr const char* kSource = "value";

[[noreturn]] void NotANumber(std::string_view text) {
    throw Error(errors::TypeMismatch,
                "Reading a number failed: \"" + std::string(text.substr(0, 40)) + "\" is not a whole number.",
                kSource);
}

/// The double as the shortest text that reads back as the same number.
std::string RealText(double value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, result.ptr);
}

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// A number written in decimal, a fraction allowed; nothing for any other text.
std::optional<double> ParseNumber(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.find_first_of("0123456789") == std::string_view::npos ||
        digits.find_first_not_of("0123456789.") != std::string_view::npos ||
        std::count(digits.begin(), digits.end(), '.') > 1) {
        return std::nullopt;
    }
    // Not from_chars, which some libraries don't have for real numbers.
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double number = 0;
    stream >> number;
    return stream.fail() ? std::nullopt : std::optional(number);
}

std::int32_t Whole(double number, std::string_view shown) {
    if (!(number >= std::numeric_limits<std::int32_t>::min() &&
          number <= std::numeric_limits<std::int32_t>::max()) ||
        std::trunc(number) != number) {
        NotANumber(shown);
    }
    return static_cast<std::int32_t>(number);
}

[[noreturn]] void NullRead(const char* wanted) {
    throw Error(errors::InvalidNull, std::string("Reading ") + wanted + " failed: the field holds Null.",
                kSource);
}

}  // namespace

std::string Value::Text() const {
    if (IsNull()) {
        NullRead("a text");
    }
    return Joined();
}

std::string Value::Joined() const {
    if (const auto* number = std::get_if<std::int64_t>(&data_)) {
        return std::to_string(*number);
    }
    if (const auto* real = std::get_if<double>(&data_)) {
        return RealText(*real);
    }
    if (const auto* text = std::get_if<std::string>(&data_)) {
        return *text;
    }
    return {};
}

std::int32_t Value::Long() const {
    if (const auto* number = std::get_if<std::int64_t>(&data_)) {
        return Whole(static_cast<double>(*number), std::to_string(*number));
    }
    if (const auto* real = std::get_if<double>(&data_)) {
        return Whole(*real, RealText(*real));
    }
    if (const auto* text = std::get_if<std::string>(&data_)) {
        const auto number = ParseNumber(*text);
        if (!number) {
            NotANumber(*text);
        }
        return Whole(*number, *text);
    }
    NullRead("a number");
}

bool Value::Bool() const {
    if (const auto* number = std::get_if<std::int64_t>(&data_)) {
        return *number != 0;
    }
    if (const auto* real = std::get_if<double>(&data_)) {
        return *real != 0;
    }
    if (const auto* text = std::get_if<std::string>(&data_)) {
        const auto number = ParseNumber(*text);
        if (!number) {
            NotANumber(*text);
        }
        return *number != 0;
    }
    NullRead("a yes or no");
}

bool IsNumeric(std::string_view text) {
    return ParseNumber(text).has_value();
}

}  // namespace platform
