// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "update/update_file.h"

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/store/value.h"
#include "platform/text/codepage.h"

namespace vemora {

using platform::Error;
namespace errors = platform::errors;

UpdateFields::UpdateFields(std::string_view line) {
    std::size_t begin = 0;
    while (fields_.size() < kMost) {
        const std::size_t end = line.find(';', begin);
        fields_.emplace_back(line.substr(begin, end - begin));
        if (end == std::string_view::npos) {
            return;
        }
        begin = end + 1;
    }
}

const std::string& UpdateFields::operator[](std::size_t field) const {
    if (field >= fields_.size()) {
        throw Error(errors::SubscriptOutOfRange,
                    "Reading a line of the update file failed: it has " + std::to_string(fields_.size()) +
                        " fields, and no field " + std::to_string(field) + ".",
                    "update");
    }
    return fields_[field];
}

bool UpdateFields::IsChemical() const {
    return platform::IsNumeric((*this)[field::kID]);
}

UpdateLines::UpdateLines(const std::filesystem::path& file)
    : stream_(platform::OpenFile(file)), buffer_(1U << 16U) {}

int UpdateLines::Get() {
    if (at_ == filled_) {
        stream_.read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        filled_ = static_cast<std::size_t>(stream_.gcount());
        at_ = 0;
        if (stream_.bad()) {
            throw Error(errors::PathFileAccess, "Reading the update file failed before its end.", "update");
        }
        if (filled_ == 0) {
            return -1;
        }
    }
    return static_cast<unsigned char>(buffer_[at_++]);
}

bool UpdateLines::Next(std::string& line) {
    std::string bytes;
    int c = Get();
    if (c < 0) {
        return false;
    }
    for (; c >= 0 && c != '\r' && c != '\n'; c = Get()) {
        bytes += static_cast<char>(c);
    }
    line = platform::FromWindows1252(bytes);
    return true;
}

}  // namespace vemora
