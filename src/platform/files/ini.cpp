// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/files/ini.h"

#include <unicode/unistr.h>

#include "platform/error.h"
#include "platform/files/files.h"
#include "platform/text/codepage.h"
#include "platform/text/text.h"

namespace platform {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view TakeLine(std::string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r') {
        ++end;
    }
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end < text.size() ? end + 1 : end);  // of CR LF the LF ends an empty line: no harm
    return line;
}

std::string_view Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string ValidUtf8(std::string_view text) {
    std::string result;
    icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())))
        .toUTF8String(result);
    return result;
}

std::string Utf8FromUtf16(std::string_view bytes) {
    icu::UnicodeString text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8);
    }
    std::string result;
    text.toUTF8String(result);
    return result;
}

// Decode turns a piece of the text into UTF-8. Only names and the value are decoded: in all encodings that
// get here brackets, "=" and line ends are the bytes that they are in ASCII.
template <typename Decode>
std::string Find(std::string_view text, std::string_view section, std::string_view key, Decode decode) {
    bool inside = false;
    while (!text.empty()) {
        const std::string_view line = TrimBlanks(TakeLine(text));
        if (line.empty() || line.front() == ';') {
            continue;
        }
        const auto bracket = line.find(']');
        if (line.front() == '[' && bracket != std::string_view::npos) {
            if (inside) {
                break;  // a second section of the same name doesn't count
            }
            inside = EqualIgnoringCase(decode(TrimBlanks(line.substr(1, bracket - 1))), section);
        } else if (inside) {
            const auto equals = line.find('=');
            if (equals != std::string_view::npos &&
                EqualIgnoringCase(decode(TrimBlanks(line.substr(0, equals))), key)) {
                const std::string_view value = Unquoted(TrimBlanks(line.substr(equals + 1)));
                return decode(value.substr(0, value.find('\0')));
            }
        }
    }
    return {};
}

}  // namespace

std::string ValueOfKey(std::string_view bytes, std::string_view section, std::string_view key) {
    if (key.empty()) {
        return {};
    }
    if (bytes.starts_with(kUtf8Mark)) {
        return Find(bytes.substr(kUtf8Mark.size()), section, key, ValidUtf8);
    }
    if (bytes.starts_with(kUtf16Mark)) {
        return Find(Utf8FromUtf16(bytes.substr(kUtf16Mark.size())), section, key, ValidUtf8);
    }
    return Find(bytes, section, key, FromWindows1252);
}

std::string GetPrivateProfileString(std::string_view section, std::string_view key, std::size_t size,
                                    const std::filesystem::path& file) {
    if (size == 0) {
        return {};
    }
    std::string bytes;
    try {
        bytes = ReadFile(file);
    } catch (const Error&) {
        // A file that can't be read has no keys: it is the one failure that the reader of a key is not told.
    }
    std::string buffer = Left(ValueOfKey(bytes, section, key), size - 1);
    const std::size_t rest = size - 1 - Len(buffer);
    buffer += '\0';
    buffer.append(rest, ' ');
    return buffer;
}

std::string ReadKey(std::string_view section, std::string_view key, std::size_t size,
                    const std::filesystem::path& file) {
    std::string text = Trim(GetPrivateProfileString(section, key, size, file));
    if (!text.empty()) {
        text.pop_back();  // the NUL, which trimming the blanks behind it has left last
    }
    return text;
}

}  // namespace platform
