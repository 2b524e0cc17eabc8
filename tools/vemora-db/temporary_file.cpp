// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "vemora-db/temporary_file.h"

#include <random>
#include <string>
#include <system_error>

#include "platform/error.h"
#include "platform/files/files.h"
#include "vemora-db/failures.h"

namespace vemora_db {

namespace fs = std::filesystem;

fs::path Beside(const fs::path& file, std::string_view suffix) {
    fs::path name = file;
    name += suffix;
    return name;
}

void RefuseJournal(const fs::path& file) {
    std::error_code problem;
    if (fs::exists(Beside(file, "-wal"), problem) || fs::exists(Beside(file, "-journal"), problem)) {
        throw WrongUsage(platform::Utf8FromPath(file) +
                         " is in use, or was not closed in order: open and close it with the program first");
    }
}

void RefuseSame(const fs::path& one, const fs::path& other) {
    std::error_code problem;
    if (fs::equivalent(one, other, problem)) {
        throw WrongUsage(platform::Utf8FromPath(one) + " and " + platform::Utf8FromPath(other) +
                         " are the same file");
    }
}

TemporaryFile::TemporaryFile(const fs::path& file) : target_(file) {
    // Of two programs that make the same file, each must rename its own.
    path_ = Beside(file, "." + std::to_string(std::random_device{}()) + ".tmp");
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    for (const std::string_view suffix : {"", "-wal", "-shm", "-journal"}) {
        fs::remove(Beside(path_, suffix), ignored);
    }
}

void TemporaryFile::TakePlace() {
    std::error_code problem;
    const fs::file_status old = fs::status(target_, problem);
    problem.clear();
    // Not every file system can change them; there they are alike.
    if (fs::exists(old) && old.permissions() != fs::status(path_, problem).permissions()) {
        fs::permissions(path_, old.permissions(), problem);
    }
    if (!problem) {
        fs::rename(path_, target_, problem);
    }
    if (problem) {
        throw platform::Error(
            platform::errors::PathFileAccess,
            "Replacing \"" + platform::Utf8FromPath(target_) + "\" failed: " + problem.message() + ".",
            "create");
    }
}

}  // namespace vemora_db
