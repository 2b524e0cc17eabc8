// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/csv_writer.h"

#include <system_error>

#include "platform/error.h"
#include "platform/files/files.h"

namespace vemora_db {

namespace {

constexpr std::size_t kBuffer = 64 * 1024;

bool NeedsQuotes(std::string_view text) {
    return text.empty() || text.front() == ' ' || text.back() == ' ' ||
           text.find_first_of(",\"\r\n") != std::string_view::npos;
}

}  // namespace

CsvWriter::CsvWriter(const std::filesystem::path& file) : file_(file), temporary_(file) {
    temporary_ += ".tmp";
    stream_.open(temporary_, std::ios::binary | std::ios::trunc);
    if (!stream_) {
        Fail("the file can't be made");
    }
}

CsvWriter::~CsvWriter() {
    if (!published_) {
        stream_.close();
        std::error_code ignored;
        std::filesystem::remove(temporary_, ignored);
    }
}

void CsvWriter::Null() {
    Separate();
}

void CsvWriter::Text(std::string_view text) {
    Separate();
    if (!NeedsQuotes(text)) {
        rows_ += text;
        return;
    }
    rows_ += '"';
    for (const char c : text) {
        rows_.append(c == '"' ? 2 : 1, c);
    }
    rows_ += '"';
}

void CsvWriter::Number(std::int64_t number) {
    Separate();
    rows_ += std::to_string(number);
}

void CsvWriter::EndRow() {
    rows_ += '\n';
    rowBegun_ = false;
    if (rows_.size() >= kBuffer) {
        Flush();
    }
}

void CsvWriter::Finish() {
    Flush();
    stream_.close();
    if (!stream_) {
        Fail("the disk is full or can't be written");
    }
}

void CsvWriter::Publish() {
    std::error_code problem;
    std::filesystem::rename(temporary_, file_, problem);
    if (problem) {
        Fail(problem.message());
    }
    published_ = true;
}

void CsvWriter::Separate() {
    if (rowBegun_) {
        rows_ += ',';
    }
    rowBegun_ = true;
}

void CsvWriter::Flush() {
    stream_.write(rows_.data(), static_cast<std::streamsize>(rows_.size()));
    if (!stream_) {
        Fail("the disk is full or can't be written");
    }
    rows_.clear();
}

void CsvWriter::Fail(const std::string& reason) const {
    throw platform::Error(platform::errors::PathFileAccess,
                          "Writing \"" + platform::Utf8FromPath(file_) + "\" failed: " + reason + ".", "csv");
}

}  // namespace vemora_db
