// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/like.h"

#include <algorithm>
#include <array>

#include "platform/text/fold.h"

namespace platform {

namespace {

constexpr unsigned char kFirstMarkByte = 0xCC;  // begins the first character that may compose

/// What lies beyond ASCII and folds to a character in it.
struct Foreigner {
    char ascii;
    std::string_view bytes;
};
constexpr std::array<Foreigner, 4> kForeigners = {
    {{'k', "\xE2\x84\xAA"}, {'s', "\xC5\xBF"}, {';', "\xCD\xBE"}, {'`', "\xE1\xBF\xAF"}}};

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
    std::u32string folded;
    Fold(pattern, folded);
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
        for (const auto& [ascii, bytes] : kForeigners) {
            if (ascii_.find(ascii) != std::string::npos) {
                foreign_.push_back(bytes);
            }
        }
    }
}

bool LikePattern::Match(std::string_view text) const {
    if (plain_) {
        const Found found = FindAscii(ascii_, text);
        if (found == Found::Yes) {
            return true;
        }
        const auto holds = [&](std::string_view bytes) { return text.find(bytes) != std::string_view::npos; };
        if (found == Found::No && std::none_of(foreign_.begin(), foreign_.end(), holds)) {
            return false;
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
    thread_local std::u32string folded;
    Fold(text, folded);
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
