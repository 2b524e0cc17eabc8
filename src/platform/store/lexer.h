// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Turns one statement of the system's dialect into the store's SQL. The dialect: SELECT, INSERT, UPDATE and
/// DELETE, keywords in any case, names of letters of any script, [Name] for a quoted name, texts in single or
/// double quotes with the quote doubled inside, decimal numbers, the operators = < > <= >= <> + - * / and &.
/// "&" joins its operands and takes Null as empty; "+" joins two texts and yields Null if either is Null,
/// between numbers it adds.
///
/// Refuses (error -2147217900) an empty text, anything but these four statements, a second statement,
/// comments, parameters, an unclosed quote or bracket, IN with an empty list, NUL and other control
/// characters outside of texts, ill-formed UTF-8, and brackets nested over 200 deep.
std::string ToStoreSql(std::string_view statement);

}  // namespace platform
