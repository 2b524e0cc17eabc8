// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/files.h"

#include <unicode/utf8.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/error.h"
#include "platform/files/sync.h"
#include "platform/text/fold.h"
#include "platform/text/text.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Fail(const std::error_code& code, const std::string& doing, const fs::path& file) {
    long number = errors::PathFileAccess;
    std::string reason = "the path or the file can't be accessed";
    if (code == std::errc::no_such_file_or_directory) {
        number = errors::FileNotFound;
        reason = "there is no such file";
    } else if (code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
               code == std::errc::device_or_resource_busy || code == std::errc::text_file_busy) {
        number = errors::PermissionDenied;
        reason = "permission denied";
    } else if (code == std::errc::no_space_on_device || code == std::errc::file_too_large) {
        number = errors::DiskNotReady;
        reason = "the disk is full";
    }
    throw Error(number, doing + " \"" + Utf8FromPath(file) + "\" failed: " + reason + ".", "files");
}

// Streams tell no reason of their own; the system's last error is as near as they come.
std::error_code LastError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

// Index behind the character at i.
std::size_t Next(std::string_view text, std::size_t i) {
    U8_FWD_1(text.data(), i, text.size());
    return i;
}

// A star is matched by what is shortest and stretched when the rest fails; only the last one ever needs it.
bool Matches(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t stretched = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = ++p;
            stretched = n;
        } else if (p < pattern.size() && pattern[p] == '?') {
            n = Next(name, n);
            ++p;
        } else if (p < pattern.size() && pattern[p] == name[n]) {
            ++n;
            ++p;
        } else if (star != std::string_view::npos) {
            stretched = Next(name, stretched);
            n = stretched;
            p = star;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

template <typename Visit>
void ForEachEntry(const fs::path& folder, Visit visit) {
    std::error_code code;
    for (fs::directory_iterator entry(folder, code), end; !code && entry != end; entry.increment(code)) {
        visit(*entry);
    }
}

bool IsFile(const fs::path& path) {
    std::error_code code;
    return fs::is_regular_file(path, code);
}

// First name of a relative place; takes it and the separators around it away.
std::string_view TakeName(std::string_view& relative) {
    constexpr std::string_view separators = "/\\";
    const auto begin = std::min(relative.find_first_not_of(separators), relative.size());
    const auto end = std::min(relative.find_first_of(separators, begin), relative.size());
    const std::string_view name = relative.substr(begin, end - begin);
    relative.remove_prefix(std::min(relative.find_first_not_of(separators, end), relative.size()));
    return name;
}

// Every spelling of the file at a place, the exact one first.
void FindSpellings(const fs::path& folder, std::string_view relative, std::vector<fs::path>& found,
                   bool firstOnly) {
    const std::string_view name = TakeName(relative);
    if (name.empty()) {
        return;
    }
    const auto take = [&](const fs::path& path) {
        if (relative.empty()) {
            if (IsFile(path)) {
                found.push_back(path);
            }
        } else {
            FindSpellings(path, relative, found, firstOnly);
        }
        return firstOnly && !found.empty();
    };
    const fs::path exact = folder / PathFromUtf8(name);
    if (take(exact)) {
        return;
    }
    std::vector<fs::path> others;
    ForEachEntry(folder, [&](const fs::directory_entry& entry) {
        const fs::path file = entry.path().filename();
        std::error_code code;
        if (file != exact.filename() && EqualIgnoringCase(Utf8FromPath(file), name) &&
            !fs::equivalent(entry.path(), exact, code)) {
            others.push_back(entry.path());
        }
    });
    for (const fs::path& other : others) {
        if (take(other)) {
            return;
        }
    }
}

}  // namespace

fs::path PathFromUtf8(std::string_view text) {
    return fs::path(std::u8string(text.begin(), text.end()));
}

std::string Utf8FromPath(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::vector<std::string> Dir(const fs::path& folder, std::string_view pattern) {
    std::string foldedPattern;
    Fold(pattern, foldedPattern);
    std::vector<std::string> names;
    std::string folded;
    ForEachEntry(folder, [&](const fs::directory_entry& entry) {
        std::string name = Utf8FromPath(entry.path().filename());
        Fold(name, folded);
        if (Matches(folded, foldedPattern) && IsFile(entry.path())) {
            names.push_back(std::move(name));
        }
    });
    return names;
}

std::optional<fs::path> FindFile(const fs::path& folder, std::string_view relative) {
    std::vector<fs::path> found;
    FindSpellings(folder, relative, found, true);
    return found.empty() ? std::nullopt : std::optional(found.front());
}

fs::path FindFolder(const fs::path& folder, std::string_view name) {
    const fs::path exact = folder / PathFromUtf8(name);
    fs::path found = exact;
    std::error_code code;
    if (!fs::is_directory(exact, code)) {
        ForEachEntry(folder, [&](const fs::directory_entry& entry) {
            if (entry.is_directory(code) && EqualIgnoringCase(Utf8FromPath(entry.path().filename()), name)) {
                found = entry.path();
            }
        });
    }
    return found;
}

void Kill(const fs::path& folder, std::string_view relative) {
    std::vector<fs::path> found;
    FindSpellings(folder, relative, found, false);
    if (found.empty()) {
        Fail(std::make_error_code(std::errc::no_such_file_or_directory), "Deleting",
             folder / PathFromUtf8(relative));
    }
    for (const fs::path& file : found) {
        std::error_code code;
        fs::remove(file, code);
        if (code) {
            Fail(code, "Deleting", file);
        }
    }
}

void FileCopy(const fs::path& from, const fs::path& to) {
    const auto source = FindFile(from.parent_path(), Utf8FromPath(from.filename()));
    WriteFile(to, ReadFile(source.value_or(from)));
}

std::ifstream OpenFile(const fs::path& file) {
    std::error_code code;
    const fs::file_status status = fs::status(file, code);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        Fail(std::make_error_code(std::errc::is_a_directory), "Reading", file);  // opening a pipe would wait
    }
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        Fail(LastError(), "Reading", file);
    }
    return stream;
}

std::string ReadFile(const fs::path& file) {
    std::ifstream stream = OpenFile(file);
    errno = 0;
    stream.seekg(0, std::ios::end);
    const std::streamoff size = stream.tellg();
    std::string bytes(static_cast<std::size_t>(size > 0 ? size : 0), '\0');
    stream.seekg(0);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (stream.bad() || size < 0) {
        Fail(LastError(), "Reading", file);
    }
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

void WriteFile(const fs::path& file, std::string_view bytes) {
    fs::path temporary = file;
    temporary += ".tmp";
    std::error_code code;
    {
        errno = 0;
        std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
        if (!stream) {
            const std::error_code reason = LastError();
            Fail(reason == std::errc::no_such_file_or_directory ? std::make_error_code(std::errc::io_error)
                                                                : reason,
                 "Writing", file);
        }
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) {
            code = LastError();
        }
    }
    if (!code) {
        code = Sync(temporary);
    }
    if (!code) {
        fs::rename(temporary, file, code);
    }
    if (code) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        Fail(code, "Writing", file);
    }
    SyncFolder(file.parent_path());
    std::vector<fs::path> spellings;
    FindSpellings(file.parent_path(), Utf8FromPath(file.filename()), spellings, false);
    for (std::size_t i = 1; i < spellings.size(); ++i) {
        fs::remove(spellings[i], code);
        if (code) {
            Fail(code, "Replacing", spellings[i]);
        }
    }
}

}  // namespace platform
