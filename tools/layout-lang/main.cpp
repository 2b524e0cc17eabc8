// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// layout-lang IN.ini OUT.ini: turns a language file as it is edited (UTF-8, any line ends) into the file that
// the program reads (Windows-1252, CR LF). Exit status 0: OUT is right; 1: failed; 2: wrong use.

#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

std::string WithCrLf(std::string_view text) {
    std::string lines = platform::Replace(platform::Replace(text, "\r\n", "\n"), "\r", "\n");
    if (!lines.empty() && lines.back() != '\n') {
        lines += '\n';
    }
    return platform::Replace(lines, "\n", "\r\n");
}

// "line:column: what is wrong" for the character at a byte of the text.
std::string Complaint(std::string_view text, std::size_t at) {
    const std::string_view before = text.substr(0, at);
    const std::size_t lineBegin = before.rfind('\n') + 1;  // npos + 1 is 0
    UChar32 code = 0;
    std::size_t end = at;
    U8_NEXT(text.data(), end, text.size(), code);
    return platform::Text(static_cast<long>(std::count(before.begin(), before.end(), '\n')) + 1) + ":" +
           platform::Text(static_cast<long>(platform::Len(before.substr(lineBegin))) + 1) + ": " +
           (code < 0 ? "not valid UTF-8"
                     : "no place in Windows-1252 for \"" + std::string(text.substr(at, end - at)) + "\"");
}

int Run(const std::filesystem::path& in, const std::filesystem::path& out) {
    std::string bytes = platform::ReadFile(in);
    if (bytes.starts_with(kMark)) {
        bytes.erase(0, kMark.size());
    }
    const std::string text = WithCrLf(bytes);
    const std::string encoded = platform::ToWindows1252(text);

    // What doesn't come back as it was had no place, or was no text to begin with.
    const std::string decoded = platform::FromWindows1252(encoded);
    const auto differs = std::mismatch(text.begin(), text.end(), decoded.begin(), decoded.end()).first;
    if (differs != text.end()) {
        std::cerr << platform::Utf8FromPath(in) << ":"
                  << Complaint(text, static_cast<std::size_t>(differs - text.begin())) << "\n";
        return 1;
    }
    if (!std::filesystem::is_regular_file(out) || platform::ReadFile(out) != encoded) {
        platform::WriteFile(out,
                            encoded);  // only if need be, so that builds see no change where there is none
    }
    return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "usage: layout-lang IN.ini OUT.ini\n";
        return 2;
    }
    try {
        return Run(argv[1], argv[2]);
    } catch (const platform::Error& error) {
        std::cerr << "layout-lang: " << error.Description << "\n";
    } catch (const std::exception& error) {
        std::cerr << "layout-lang: " << error.what() << "\n";
    }
    return 1;
}
