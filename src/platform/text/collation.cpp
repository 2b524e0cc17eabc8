// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/text/collation.h"

#include <unicode/ucol.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

#include "platform/text/fold.h"

namespace platform {

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};

/// Reading it from several threads at once is safe.
const UCollator* Collator() noexcept {
    static const auto collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<UCollator, CloseCollator> made(ucol_open("sv", &status));
        // The rules are part of the library's data; without them no text can be compared at all.
        if (U_FAILURE(status) || !made) {
            std::abort();
        }
        ucol_setStrength(made.get(), UCOL_SECONDARY);
        ucol_setAttribute(made.get(), UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
        return made;
    }();
    return collator.get();
}

int ByTheLibrary(std::string_view left, std::string_view right) noexcept {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(Collator(), left.data(), static_cast<std::int32_t>(left.size()), right.data(),
                            static_cast<std::int32_t>(right.size()), &status);
}

/// The place of each ASCII character in the order, from 1; letters that differ in case share one. 0 for the
/// control characters, which the collation ignores, and for every byte beyond ASCII.
const std::array<unsigned char, 256>& Ranks() noexcept {
    static const auto ranks = [] {
        std::array<unsigned char, 256> made{};
        std::array<char, 127 - ' '> order{};
        for (std::size_t i = 0; i < order.size(); ++i) {
            order[i] = static_cast<char>(' ' + i);
        }
        const auto compare = [](const char& left, const char& right) {
            return ByTheLibrary({&left, 1}, {&right, 1});
        };
        std::stable_sort(order.begin(), order.end(),
                         [&](const char& left, const char& right) { return compare(left, right) < 0; });
        unsigned char rank = 1;
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i > 0 && compare(order[i - 1], order[i]) != 0) {
                ++rank;
            }
            made[static_cast<unsigned char>(order[i])] = rank;
        }
        return made;
    }();
    return ranks;
}

bool IsLatin1(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0xC4; });
}

}  // namespace

int Compare(std::string_view left, std::string_view right) noexcept {
    // No printable ASCII character combines with another one in this order, and each differs from every other
    // one but its own other case at the first level. So the first such difference decides, as long as the
    // characters behind it are ASCII, too: nothing beyond can then combine with it.
    const auto& ranks = Ranks();
    const std::size_t common = std::min(left.size(), right.size());
    std::size_t i = 0;
    for (; i < common; ++i) {
        const auto a = static_cast<unsigned char>(left[i]);
        const auto b = static_cast<unsigned char>(right[i]);
        if (a == b) {
            continue;
        }
        if (ranks[a] == 0 || ranks[b] == 0) {
            break;
        }
        if (ranks[a] == ranks[b]) {
            // The two cases of a letter; with a mark behind they are no longer the letter compared here.
            continue;
        }
        const bool bare = (i + 1 == left.size() || static_cast<unsigned char>(left[i + 1]) < 0x80) &&
                          (i + 1 == right.size() || static_cast<unsigned char>(right[i + 1]) < 0x80);
        if (!bare) {
            break;
        }
        return ranks[a] < ranks[b] ? -1 : 1;
    }
    if (i == common) {
        if (left.size() == right.size()) {
            return 0;
        }
        const auto next = static_cast<unsigned char>(left.size() > common ? left[common] : right[common]);
        if (ranks[next] != 0) {
            return left.size() < right.size() ? -1 : 1;
        }
    }
    // The library takes a few rare letters for others than their other case (the long s), so that it gets its
    // texts folded. Latin-1 has none of them, and folding can wait for a tie.
    if (IsLatin1(left) && IsLatin1(right)) {
        if (const int order = ByTheLibrary(left, right); order != 0) {
            return order;
        }
    }
    thread_local std::string a;
    thread_local std::string b;
    Fold(left, a);
    Fold(right, b);
    const int order = ByTheLibrary(a, b);
    return order != 0 ? order : a.compare(b);
}

std::string SortKey(std::string_view text) {
    thread_local std::string folded;
    Fold(text, folded);
    UErrorCode status = U_ZERO_ERROR;
    std::u16string wide(folded.size(), u'\0');
    std::int32_t length = 0;
    u_strFromUTF8(wide.data(), static_cast<std::int32_t>(wide.size()), &length, folded.data(),
                  static_cast<std::int32_t>(folded.size()), &status);
    std::string key(folded.size() * 2 + 16, '\0');
    const auto make = [&] {
        return ucol_getSortKey(Collator(), wide.data(), length, reinterpret_cast<std::uint8_t*>(key.data()),
                               static_cast<std::int32_t>(key.size()));
    };
    const auto needed = make();
    if (static_cast<std::size_t>(needed) > key.size()) {
        key.resize(static_cast<std::size_t>(needed));
        make();
    }
    // It ends with a byte of 0, which is in no key before its end.
    key.resize(static_cast<std::size_t>(needed));
    key += folded;
    return key;
}

}  // namespace platform
