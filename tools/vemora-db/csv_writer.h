// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace vemora_db {

/// Writes a CSV file as CsvReader reads it, with quotes only where they are needed. The file takes its name
/// with Publish; without it, it is gone at the end. Failures are platform::Error.
class CsvWriter {
  public:
    explicit CsvWriter(const std::filesystem::path& file);
    CsvWriter(const CsvWriter&) = delete;
    CsvWriter& operator=(const CsvWriter&) = delete;
    ~CsvWriter();

    void Null();
    void Text(std::string_view text);
    void Number(std::int64_t number);
    void EndRow();
    /// No more rows: all is written, still under the temporary name.
    void Finish();
    /// Gives the finished file its name, in place of one that may be there.
    void Publish();

  private:
    void Separate();
    void Flush();
    [[noreturn]] void Fail(const std::string& reason) const;

    std::filesystem::path file_;
    std::filesystem::path temporary_;
    std::ofstream stream_;
    std::string rows_;
    bool rowBegun_ = false;
    bool published_ = false;
};

}  // namespace vemora_db
