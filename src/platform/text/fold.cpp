// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/fold.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform {

namespace {

/// No character below it is written in two ways or combines with the one before it.
constexpr char32_t kFirstMark = 0x300;

/// The code points up to the Cyrillic ones are looked up; the library is asked for the rest.
constexpr std::size_t kTable = 0x530;

char32_t SimpleFold(char32_t c) {
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

/// Whether a text with this character may have another canonical form than it has.
bool MayCompose(char32_t c) {
    const auto point = static_cast<UChar32>(c);
    return c >= kFirstMark && (u_getCombiningClass(point) != 0 ||
                               u_getIntPropertyValue(point, UCHAR_NFC_QUICK_CHECK) != UNORM_YES);
}

struct Folding {
    char32_t folded = 0;
    bool mayCompose = false;
};

const std::array<Folding, kTable>& Table() {
    static const auto table = [] {
        std::array<Folding, kTable> made{};
        for (char32_t c = 0; c < kTable; ++c) {
            made[c] = {SimpleFold(c), MayCompose(c)};
        }
        return made;
    }();
    return table;
}

/// What a byte of UTF-8 takes at most when it is folded, in units of the text: an ill-formed one becomes
/// U+FFFD.
template <class Text>
constexpr std::size_t kGrowth = sizeof(typename Text::value_type) == 1 ? 3 : 1;

char32_t* Put(char32_t* at, char32_t c) {
    *at = c;
    return at + 1;
}

char* Put(char* at, char32_t c) {
    std::size_t length = 0;
    U8_APPEND_UNSAFE(at, length, c);
    return at + length;
}

/// Folds each character by itself; returns whether the text may have another canonical form.
template <class Text>
bool FoldEach(std::string_view text, Text& out) {
    using Unit = typename Text::value_type;
    const auto& table = Table();
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int64_t>(text.size());
    bool mayCompose = false;
    out.resize(text.size() * kGrowth<Text>);
    Unit* next = out.data();
    for (std::int64_t i = 0; i < length;) {
        if (bytes[i] < 0x80) {
            *next++ = static_cast<Unit>(kAsciiFolds[bytes[i++]]);
            continue;
        }
        UChar32 point;
        U8_NEXT_OR_FFFD(bytes, i, length, point);
        const auto c = static_cast<char32_t>(point);
        const Folding folding = c < kTable ? table[c] : Folding{SimpleFold(c), MayCompose(c)};
        mayCompose = mayCompose || folding.mayCompose;
        next = Put(next, folding.folded);
    }
    out.resize(static_cast<std::size_t>(next - out.data()));
    return mayCompose;
}

std::string Composed(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* composer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status)) {
        return std::string(text);
    }
    std::string composed;
    icu::StringByteSink<std::string> sink(&composed);
    composer->normalizeUTF8(0, icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())), sink,
                            nullptr, status);
    return U_FAILURE(status) ? std::string(text) : composed;
}

template <class Text>
void FoldInto(std::string_view text, Text& folded) {
    if (!FoldEach(text, folded)) {
        return;
    }
    // A capital may have no composed form where its small letter has one, so composing comes in again.
    std::string lower;
    FoldEach(Composed(text), lower);
    const std::string composed = Composed(lower);
    FoldEach(composed, folded);
}

}  // namespace

void Fold(std::string_view text, std::string& folded) {
    FoldInto(text, folded);
}

void Fold(std::string_view text, std::u32string& folded) {
    FoldInto(text, folded);
}

bool IsAscii(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    constexpr std::uint64_t kHigh = 0x8080808080808080;
    for (; end - at >= 8; at += 8) {
        std::uint64_t eight;
        std::memcpy(&eight, at, sizeof eight);
        if ((eight & kHigh) != 0) {
            return false;
        }
    }
    return std::none_of(at, end, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

}  // namespace platform
