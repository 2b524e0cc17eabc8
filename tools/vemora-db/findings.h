// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <map>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace vemora_db {

enum class Severity { Error, Warning };

/// What a check of a database has found: equal findings are counted, and the first examples kept.
class Findings {
  public:
    void Add(Severity severity, const std::string& what, const std::string& where, const std::string& example,
             std::size_t count = 1);
    bool Has(Severity severity) const;
    /// A table, the errors first, and a line that sums it up.
    void Print(std::ostream& out, bool warnings) const;

  private:
    struct Finding {
        std::size_t Count = 0;
        std::vector<std::string> Examples;
    };
    using Name = std::tuple<Severity, std::string, std::string>;

    std::map<Name, Finding> findings_;
};

}  // namespace vemora_db
