// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace platform {

class Store;

/// The value of PRAGMA application_id in every database file of the system: "VEMO".
inline constexpr int kApplicationID = 0x56454D4F;
/// The value of PRAGMA user_version: the generation of the schema.
inline constexpr int kSchemaVersion = 1;

/// The statements that make all tables of an empty store, in the store's own SQL.
std::string_view SchemaSql();

/// Makes all tables, in one transaction. Error -2147467259 and others of the store when it can't.
void CreateSchema(Store& store);

}  // namespace platform
