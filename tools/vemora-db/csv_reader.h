// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <csv.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vemora_db {

/// Reads a CSV file row by row: commas, UTF-8 (a byte order mark at the beginning is passed over), lines that
/// end in LF or CR LF, a heading first. An unquoted empty cell is Null, a quoted one the empty text; blanks
/// belong to the cell. It holds one row at a time. Every fault in the file is a BadData that tells its place,
/// the column of which counts characters; a failing disk is a platform::Error.
class CsvReader {
  public:
    /// Opens the file and reads the heading, which is the row at hand until the first Next.
    explicit CsvReader(std::filesystem::path file);
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    const std::vector<std::string>& Heading() const { return heading_; }
    /// Where the columns stand, which may be in any order. A fault when one is missing or the heading holds
    /// another; to be asked before the first Next.
    std::vector<std::size_t> Columns(std::span<const std::string_view> names) const;

    /// Goes to the next row; false at the end of the file.
    bool Next();
    bool IsNull(std::size_t cell) const { return cells_[cell].Null; }
    /// Valid until Next; empty for Null.
    std::string_view Text(std::size_t cell) const;
    /// The same; a fault when Windows-1252 has no place for one of its characters.
    std::string_view ProgramText(std::size_t cell) const;
    /// A fault when the cell is no 32-bit number.
    std::int32_t Number(std::size_t cell) const;
    /// A fault when the cell is neither -1 nor 0.
    std::int32_t Flag(std::size_t cell) const;

    /// Reports a fault at a cell of the row at hand.
    [[noreturn]] void Fail(std::size_t cell, std::string_view fault) const;
    [[noreturn]] void FailAtRow(std::string_view fault) const { FailAt(0, fault); }

    const std::filesystem::path& File() const { return file_; }
    /// Bytes read so far, and of the whole file.
    std::uintmax_t Position() const { return position_; }
    std::uintmax_t Size() const { return size_; }

  private:
    struct Cell {
        std::size_t Begin;  // in raw_
        std::size_t Text;   // in text_
        std::size_t Length;
        bool Null;
    };

    struct Parser : csv_parser {
        Parser();
        Parser(const Parser&) = delete;
        Parser& operator=(const Parser&) = delete;
        ~Parser();
    };

    bool ReadRow();
    bool ReadLine();
    void Parse(std::size_t begin);
    void CheckBytes(std::size_t begin) const;
    void TakeCell(const char* text, std::size_t length);
    [[noreturn]] void FailAt(std::size_t offset, std::string_view fault) const;

    std::filesystem::path file_;
    std::ifstream stream_;
    Parser parser_;
    std::string line_;
    std::string raw_;   // the lines of the row at hand
    std::string text_;  // the texts of its cells, one behind the other
    std::vector<Cell> cells_;
    std::size_t next_ = 0;  // where the next cell begins in raw_
    bool ended_ = false;    // the row is complete
    std::size_t firstLine_ = 0;
    std::size_t lines_ = 0;
    std::uintmax_t position_ = 0;
    std::uintmax_t size_ = 0;
    std::vector<std::string> heading_;
};

}  // namespace vemora_db
