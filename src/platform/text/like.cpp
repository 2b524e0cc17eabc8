// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/like.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace platform {

namespace {

constexpr char32_t kFirstMark = 0x300;                // no combining mark stands below it
constexpr unsigned char kFirstMarkByte = 0xCC;        // and this byte begins it
constexpr std::string_view kKelvin = "\xE2\x84\xAA";  // folds to k
constexpr std::string_view kLongS = "\xC5\xBF";       // folds to s

/// Simple case folding of the code points up to the Cyrillic ones; the rest is asked for.
constexpr std::size_t kTable = 0x530;

const std::array<char32_t, kTable>& Folds() {
    static const auto folds = [] {
        std::array<char32_t, kTable> made{};
        for (std::size_t c = 0; c < kTable; ++c) {
            made[c] = static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
        }
        return made;
    }();
    return folds;
}

constexpr std::array<unsigned char, 256> kAsciiFolds = [] {
    std::array<unsigned char, 256> made{};
    for (unsigned c = 0; c < 256; ++c) {
        made[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    }
    return made;
}();

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

/// Folds a text; returns whether it holds something that composing might change.
bool Fold(std::string_view text, std::vector<char32_t>& out) {
    const auto& folds = Folds();
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto length = static_cast<std::int32_t>(text.size());
    bool marks = false;
    out.resize(text.size());
    auto next = out.begin();
    for (std::int32_t i = 0; i < length;) {
        if (bytes[i] < 0x80) {
            *next++ = kAsciiFolds[bytes[i++]];
            continue;
        }
        UChar32 c;
        U8_NEXT_OR_FFFD(bytes, i, length, c);
        if (static_cast<char32_t>(c) >= kFirstMark && u_getCombiningClass(c) != 0) {
            marks = true;
        }
        *next++ = static_cast<std::size_t>(c) < kTable
                      ? folds[static_cast<std::size_t>(c)]
                      : static_cast<char32_t>(u_foldCase(c, U_FOLD_CASE_DEFAULT));
    }
    out.erase(next, out.end());
    return marks;
}

/// The text with its combining marks composed, as far as they can be.
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

void FoldComposed(std::string_view text, std::vector<char32_t>& out) {
    if (Fold(text, out)) {
        Fold(Composed(text), out);
    }
}

enum class Found { No, Yes, Unsure };

/// Looks for a folded ASCII literal. Unsure where a mark behind the place found may change its last
/// character.
Found FindAscii(std::string_view literal, std::string_view text) {
    if (literal.empty()) {
        return Found::Yes;
    }
    if (text.size() < literal.size()) {
        return Found::No;
    }
    const auto* folded = reinterpret_cast<const unsigned char*>(literal.data());
    const auto* begin = reinterpret_cast<const unsigned char*>(text.data());
    const auto* end = begin + text.size();
    const auto* last = end - literal.size();
    const unsigned char lower = folded[0];
    const unsigned char upper = lower >= 'a' && lower <= 'z' ? static_cast<unsigned char>(lower - 32) : lower;
    for (const auto* at = begin; at <= last; ++at) {
        if (*at != lower && *at != upper) {
            continue;
        }
        std::size_t i = 1;
        while (i < literal.size() && kAsciiFolds[at[i]] == folded[i]) {
            ++i;
        }
        if (i < literal.size()) {
            continue;
        }
        if (at + i < end && at[i] >= kFirstMarkByte) {
            return Found::Unsure;
        }
        return Found::Yes;
    }
    return Found::No;
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
    std::vector<char32_t> folded;
    FoldComposed(pattern, folded);
    segments_.emplace_back();
    for (const char32_t c : folded) {
        if (c == U'%') {
            segments_.emplace_back();
        } else {
            segments_.back().push_back(c == U'_' ? kAny : c);
        }
    }
    // "%%" is one "%".
    for (std::size_t i = segments_.size(); i-- > 2;) {
        if (segments_[i - 1].empty()) {
            segments_.erase(segments_.begin() + static_cast<std::ptrdiff_t>(i - 1));
        }
    }

    const auto isAscii = [](char32_t c) { return c < 0x80; };
    for (const auto& segment : segments_) {
        for (const char32_t c : segment) {
            if (!isAscii(c) && c != kAny) {
                beyond_ = true;
            }
        }
    }
    if (segments_.size() == 2 && segments_.front().empty() && segments_.back().empty()) {
        plain_ = true;
    } else if (segments_.size() == 3 && segments_.front().empty() && segments_.back().empty() &&
               std::all_of(segments_[1].begin(), segments_[1].end(), isAscii)) {
        plain_ = true;
        ascii_.assign(segments_[1].begin(), segments_[1].end());
        foreign_ = ascii_.find_first_of("ks") != std::string::npos;
    }
}

bool LikePattern::Match(std::string_view text) const {
    if (plain_) {
        const Found found = FindAscii(ascii_, text);
        if (found == Found::Yes) {
            return true;
        }
        if (found == Found::No) {
            if (!foreign_) {
                return false;
            }
            if (text.find(kKelvin) == std::string_view::npos && text.find(kLongS) == std::string_view::npos) {
                return false;
            }
        }
    }
    constexpr auto kSame = [](char32_t c, char32_t p) { return p == kAny || c == p; };
    if (IsAscii(text)) {
        if (beyond_) {
            return false;
        }
        return MatchSegments(text.begin(), text.end(), [&](char c, char32_t p) {
            return kSame(kAsciiFolds[static_cast<unsigned char>(c)], p);
        });
    }
    thread_local std::vector<char32_t> folded;
    FoldComposed(text, folded);
    return MatchSegments(folded.begin(), folded.end(), kSame);
}

template <class Iterator, class Same>
bool LikePattern::MatchSegments(Iterator begin, Iterator end, Same same) const {
    const auto reversed = [&](char32_t p, auto c) { return same(c, p); };
    const auto size = [](const Segment& segment) { return static_cast<std::ptrdiff_t>(segment.size()); };
    const Segment& first = segments_.front();
    if (end - begin < size(first) || !std::equal(first.begin(), first.end(), begin, reversed)) {
        return false;
    }
    if (segments_.size() == 1) {
        return end - begin == size(first);
    }
    begin += size(first);

    const Segment& last = segments_.back();
    if (end - begin < size(last)) {
        return false;
    }
    end -= size(last);
    if (!std::equal(last.begin(), last.end(), end, reversed)) {
        return false;
    }

    // Between two "%" the first place found is as good as any: it leaves the most to what comes behind.
    for (std::size_t i = 1; i + 1 < segments_.size(); ++i) {
        const auto found = std::search(begin, end, segments_[i].begin(), segments_[i].end(), same);
        if (found == end) {
            return false;
        }
        begin = found + size(segments_[i]);
    }
    return true;
}

}  // namespace platform
