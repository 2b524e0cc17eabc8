// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/text.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "platform/error.h"
#include "platform/text/fold.h"

namespace platform {

namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

char AsciiFold(char c) {
    return static_cast<char>(kAsciiFolds[static_cast<unsigned char>(c)]);
}

// Index of the byte behind the first count characters.
std::size_t Offset(std::string_view text, std::size_t count) {
    std::size_t i = 0;
    while (i < text.size() && (count > 0 || !StartsCharacter(text[i]))) {
        if (StartsCharacter(text[i])) {
            --count;
        }
        ++i;
    }
    return i;
}

icu::UnicodeString Utf16(std::string_view text) {
    return icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
}

}  // namespace

std::size_t Len(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, Offset(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
    const std::size_t length = Len(text);
    return length <= count ? std::string(text) : std::string(text.substr(Offset(text, length - count)));
}

std::string Mid(std::string_view text, std::size_t start) {
    return Mid(text, start, text.size());
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
    if (start == 0) {
        throw Error(errors::InvalidCall, "A part of a text was asked for from position 0.", "text");
    }
    return Left(text.substr(Offset(text, start - 1)), count);
}

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Replace(std::string_view text, std::string_view from, std::string_view to) {
    if (from.empty()) {
        return std::string(text);
    }
    std::string result;
    std::size_t done = 0;
    for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from, done)) {
        result += text.substr(done, at - done);
        result += to;
        done = at + from.size();
    }
    result += text.substr(done);
    return result;
}

std::string LCase(std::string_view text) {
    std::string result;
    if (IsAscii(text)) {
        result.resize(text.size());
        std::transform(text.begin(), text.end(), result.begin(), AsciiFold);
    } else {
        Utf16(text).toLower(icu::Locale::getRoot()).toUTF8String(result);
    }
    return result;
}

std::string UCase(std::string_view text) {
    icu::UnicodeString upper;
    const icu::UnicodeString given = Utf16(text);
    for (std::int32_t i = 0; i < given.length(); i = given.moveIndex32(i, 1)) {
        upper.append(u_toupper(given.char32At(i)));
    }
    std::string result;
    upper.toUTF8String(result);
    return result;
}

std::size_t InStr(std::string_view text, std::string_view what) {
    const auto at = text.find(what);
    return at == std::string_view::npos ? 0 : Len(text.substr(0, at)) + 1;
}

std::size_t InStrRev(std::string_view text, std::string_view what) {
    const auto at = text.rfind(what);
    return at == std::string_view::npos ? 0 : Len(text.substr(0, at)) + 1;
}

std::string Text(long number) {
    return std::to_string(number);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    const bool asciiEqual = std::equal(a.begin(), a.end(), b.begin(), b.end(),
                                       [](char x, char y) { return AsciiFold(x) == AsciiFold(y); });
    if (asciiEqual || (IsAscii(a) && IsAscii(b))) {
        return asciiEqual;
    }
    std::string left;
    std::string right;
    Fold(a, left);
    Fold(b, right);
    return left == right;
}

}  // namespace platform
