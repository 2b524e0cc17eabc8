// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/csv_reader.h"

#include <unicode/utf8.h>

#include <algorithm>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"
#include "vemora-db/failures.h"
#include "vemora-db/tables.h"

namespace vemora_db {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

CsvReader::Parser::Parser() : csv_parser() {
    csv_init(this, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL);
    csv_set_space_func(this, [](unsigned char) { return 0; });  // blanks are text as any other
}

CsvReader::Parser::~Parser() {
    csv_free(this);
}

CsvReader::CsvReader(std::filesystem::path file) : file_(std::move(file)) {
    std::error_code problem;
    if (!std::filesystem::is_regular_file(file_, problem)) {
        throw platform::Error(platform::errors::FileNotFound,
                              platform::Utf8FromPath(file_) + ": there is no such file", "csv");
    }
    size_ = std::filesystem::file_size(file_, problem);
    stream_.open(file_, std::ios::binary);
    if (!stream_) {
        throw platform::Error(platform::errors::PermissionDenied,
                              "Reading \"" + platform::Utf8FromPath(file_) + "\" failed: permission denied.",
                              "csv");
    }
    if (!ReadRow()) {
        FailAtRow("the heading is missing");
    }
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        const std::string_view name = Text(i);
        if (name.empty()) {
            Fail(i, "the column has no name");
        }
        if (std::find(heading_.begin(), heading_.end(), name) != heading_.end()) {
            Fail(i, "the column " + std::string(name) + " is there twice");
        }
        heading_.emplace_back(name);
    }
}

std::vector<std::size_t> CsvReader::Columns(std::span<const std::string_view> names) const {
    std::vector<std::size_t> places;
    for (const std::string_view name : names) {
        const auto found = std::find(heading_.begin(), heading_.end(), name);
        if (found == heading_.end()) {
            FailAtRow("the column " + std::string(name) + " is missing");
        }
        places.push_back(static_cast<std::size_t>(found - heading_.begin()));
    }
    for (std::size_t i = 0; i < heading_.size(); ++i) {
        if (std::find(names.begin(), names.end(), heading_[i]) == names.end()) {
            Fail(i, "there is no column " + heading_[i] + " in this table");
        }
    }
    return places;
}

bool CsvReader::Next() {
    if (!ReadRow()) {
        return false;
    }
    if (cells_.size() != heading_.size()) {
        Fail(std::min(cells_.size() - 1, heading_.size()), "the row has " + std::to_string(cells_.size()) +
                                                               " cells, the heading " +
                                                               std::to_string(heading_.size()));
    }
    return true;
}

std::string_view CsvReader::Text(std::size_t cell) const {
    return std::string_view(text_).substr(cells_[cell].Text, cells_[cell].Length);
}

std::string_view CsvReader::ProgramText(std::size_t cell) const {
    const std::string_view text = Text(cell);
    if (IsAscii(text)) {
        return text;
    }
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t begin = i;
        UChar32 code = 0;
        U8_NEXT(text.data(), i, text.size(), code);
        if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
            continue;  // nearly all there is: the same in both
        }
        const std::string_view character = text.substr(begin, i - begin);
        if (platform::ToWindows1252(character) == "?") {
            Fail(cell, "Windows-1252 has no place for the character \"" + std::string(character) + "\"");
        }
    }
    return text;
}

std::int32_t CsvReader::Number(std::size_t cell) const {
    const auto number = ParseNumber(Text(cell));
    if (!number) {
        Fail(cell,
             heading_[cell] + " must be a whole number of 32 bits, not \"" + std::string(Text(cell)) + "\"");
    }
    return *number;
}

std::int32_t CsvReader::Flag(std::size_t cell) const {
    const std::string_view text = Text(cell);
    if (text != "0" && text != "-1") {
        Fail(cell, heading_[cell] + " must be -1 (true) or 0 (false), not \"" + std::string(text) + "\"");
    }
    return text == "0" ? 0 : -1;
}

void CsvReader::Fail(std::size_t cell, std::string_view fault) const {
    FailAt(cells_[cell].Begin, fault);
}

void CsvReader::FailAt(std::size_t offset, std::string_view fault) const {
    const std::string_view before = std::string_view(raw_).substr(0, offset);
    const auto line = firstLine_ + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const auto begin = before.rfind('\n') + 1;  // npos + 1 is 0
    throw BadData(platform::Utf8FromPath(file_) + ":" + std::to_string(line) + ":" +
                  std::to_string(platform::Len(before.substr(begin)) + 1) + ": " + std::string(fault));
}

bool CsvReader::ReadRow() {
    raw_.clear();
    text_.clear();
    cells_.clear();
    next_ = 0;
    ended_ = false;
    firstLine_ = lines_ + 1;
    while (!ended_) {
        const std::size_t begin = raw_.size();
        if (!ReadLine()) {
            if (raw_.empty()) {
                return false;
            }
            Parse(begin);
            break;
        }
        raw_ += line_;
        CheckBytes(begin);
        if (begin == 0 && line_.find_first_not_of("\r\n") == std::string::npos) {
            FailAt(0, "the line is empty");
        }
        Parse(begin);
    }
    if (next_ < raw_.size() && raw_.compare(next_, std::string::npos, "\n") != 0) {
        FailAt(next_, "a carriage return must stand in front of a line feed or within quotes");
    }
    return true;
}

bool CsvReader::ReadLine() {
    if (!std::getline(stream_, line_)) {
        if (stream_.bad()) {
            throw platform::Error(
                platform::errors::DiskNotReady,
                "Reading \"" + platform::Utf8FromPath(file_) + "\" failed: the disk can't be read.", "csv");
        }
        return false;
    }
    position_ += line_.size();
    if (!stream_.eof()) {
        line_ += '\n';
        ++position_;
    }
    if (lines_++ == 0 && line_.starts_with(kByteOrderMark)) {
        line_.erase(0, kByteOrderMark.size());
    }
    return true;
}

// Hands the line at hand to the parser, or the end of the file when begin is the end of raw_.
void CsvReader::Parse(std::size_t begin) {
    const auto onCell = [](void* text, std::size_t length, void* self) noexcept {
        static_cast<CsvReader*>(self)->TakeCell(static_cast<const char*>(text), length);
    };
    const auto onRow = [](int, void* self) noexcept { static_cast<CsvReader*>(self)->ended_ = true; };
    if (begin == raw_.size()) {
        if (csv_fini(&parser_, onCell, onRow, this) != 0) {
            FailAt(next_, "the quote is never closed");
        }
        return;
    }
    const std::size_t parsed = csv_parse(&parser_, line_.data(), line_.size(), onCell, onRow, this);
    if (parsed == line_.size()) {
        return;
    }
    if (csv_error(&parser_) == CSV_ENOMEM || csv_error(&parser_) == CSV_ETOOBIG) {
        throw std::bad_alloc();
    }
    FailAt(begin + parsed, raw_[next_] == '"' ? "there is text behind the closing quote"
                                              : "a cell that holds a quote must stand in quotes");
}

void CsvReader::CheckBytes(std::size_t begin) const {
    if (line_.find('\0') != std::string::npos) {
        FailAt(begin + line_.find('\0'), "there is a NUL in the text");
    }
    if (IsAscii(line_)) {
        return;
    }
    for (std::size_t i = 0; i < line_.size();) {
        const std::size_t character = i;
        UChar32 code = 0;
        U8_NEXT(line_.data(), i, line_.size(), code);
        if (code < 0) {
            FailAt(begin + character, "the text is not UTF-8");
        }
    }
}

void CsvReader::TakeCell(const char* text, std::size_t length) {
    if (ended_) {
        return;  // what stands behind a stray carriage return
    }
    const std::string_view content = text == nullptr ? std::string_view() : std::string_view(text, length);
    cells_.push_back({next_, text_.size(), length, text == nullptr});
    text_ += content;
    // How long the cell is in the file follows from its content: quotes are around it and doubled within.
    if (next_ < raw_.size() && raw_[next_] == '"') {
        next_ += 2 + static_cast<std::size_t>(std::count(content.begin(), content.end(), '"'));
    }
    next_ += content.size() + 1;
}

}  // namespace vemora_db
