// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/adodb/adodb.h"
#include "platform/error.h"
#include "update/update_file.h"

namespace vemora {

/// Turns the lines of an update file into rows. The file wins over the database: nobody asks whose a row is,
/// and whose it was it stays.
///
/// Each writer guards itself: what fails is reported, and its caller goes on. A change is on the disk when
/// its writer returns; there is no way back.
class UpdateWriters {
  public:
    /// Gets a failure and the end of its report, which names the procedure.
    using Report = std::function<void(const platform::Error& error, const char* ending)>;

    /// Asked for the connection before each statement; a failure of it is reported like any other.
    using Connection = std::function<platform::adodb::Connection&()>;

    UpdateWriters(platform::adodb::Connection& connection, Report report)
        : UpdateWriters([&connection]() -> platform::adodb::Connection& { return connection; },
                        std::move(report)) {}
    UpdateWriters(Connection connection, Report report)
        : gCn(std::move(connection)), Felrapport(std::move(report)) {}

    /// The chemical and the concentration that the next value line belongs to.
    std::int32_t ChemID = 0;
    std::int32_t ConcID = 0;
    /// New chemicals and changed verdicts; a verdict that is new counts as no change.
    std::int32_t Ändringar = 0;

    void SättKemikalie(const UpdateFields& Fält);
    /// Of thirty fields.
    void SättVärden(const UpdateFields& Fält);

  private:
    /// The ID of the row with these texts, which is made if need be; 0 after a failure.
    std::int32_t GetKonc(const UpdateFields& Fält);
    std::int32_t GetTemp(const UpdateFields& Fält);
    std::int32_t IdOf(const std::string& statement) const;
    void SättVärde(const ValueTable& table, const std::string& Värde, std::int32_t MaterialID,
                   std::int32_t TempID);

    Connection gCn;
    Report Felrapport;
};

/// Takes in a whole file: its heading is dropped unseen, empty lines are passed over, and each other line is
/// written. Gets the Swedish name of each chemical before it is written. What fails outside the writers ends
/// the reading.
void TaIn(UpdateLines& lines, UpdateWriters& writers,
          const std::function<void(const std::string& NameSE)>& chemical);

}  // namespace vemora
