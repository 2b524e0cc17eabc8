// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A pattern of LIKE, made once and matched against many texts. "%" stands for any run of characters, "_" for
/// one character (a code point of the folded text); every other character is itself by the rule of fold.h, as
/// for "=".
class LikePattern {
  public:
    explicit LikePattern(std::string_view pattern);

    bool Match(std::string_view text) const;

  private:
    /// What stands between two "%": folded code points, kAny for "_".
    using Segment = std::vector<char32_t>;

    template <class Iterator, class Same>
    bool MatchSegments(Iterator begin, Iterator end, Same same) const;

    static constexpr char32_t kAny = 0xFFFFFFFF;
    std::vector<Segment> segments_;          // the first begins the text, the last ends it
    std::string ascii_;                      // the folded literal of "%literal%", when that is plain ASCII
    bool plain_ = false;                     // ascii_ holds the whole pattern
    std::vector<std::string_view> foreign_;  // characters beyond ASCII that fold to one of ascii_
    bool beyond_ = false;                    // the pattern holds a character that no ASCII text has
};

}  // namespace platform
