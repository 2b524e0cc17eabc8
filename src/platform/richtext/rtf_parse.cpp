// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/richtext/rtf.h"
#include "platform/text/codepage.h"

namespace platform {

namespace {

constexpr std::string_view kBegin = "{\\rtf";
// Deeper groups share the format of the last one that counts. No editor nests a formula a tenth as deep.
constexpr std::size_t kMaxDepth = 200;
constexpr std::int32_t kMaxNumber = 100'000'000;

// Words that stand for a character.
constexpr std::array<std::pair<std::string_view, char16_t>, 9> kCharacters = {{{"par", u'\n'},
                                                                               {"line", u'\n'},
                                                                               {"tab", u'\t'},
                                                                               {"endash", 0x2013},
                                                                               {"emdash", 0x2014},
                                                                               {"lquote", 0x2018},
                                                                               {"rquote", 0x2019},
                                                                               {"ldblquote", 0x201C},
                                                                               {"rdblquote", 0x201D}}};

// Words that begin a group whose text is not part of the document.
constexpr std::array<std::string_view, 21> kDestinations = {
    "fonttbl",  "colortbl",  "stylesheet",        "info",    "pict",    "object",  "header",
    "headerl",  "headerr",   "headerf",           "footer",  "footerl", "footerr", "footerf",
    "footnote", "listtable", "listoverridetable", "filetbl", "revtbl",  "fldinst", "nonshppict"};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexDigit(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto at = digits.find(c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at);
}

class RtfReader {
  public:
    explicit RtfReader(std::string_view rtf) : rtf_(rtf) {}

    RichText Read() {
        while (at_ < rtf_.size() && !ended_) {
            const char c = rtf_[at_];
            if (c == '{') {
                ++at_;
                OpenGroup();
            } else if (c == '}') {
                ++at_;
                CloseGroup();
            } else if (c == '\\') {
                ++at_;
                Control();
            } else if (c == '\r' || c == '\n') {
                ++at_;
            } else {
                UChar32 code = 0;
                U8_NEXT_OR_FFFD(rtf_.data(), at_, rtf_.size(), code);
                Put(code);
            }
        }
        FlushLead();
        text_.DropLastLineEnd();
        return text_.Take();
    }

  private:
    // What a group inherits, and what ends with it.
    struct Group {
        Run::Height Height = Run::Normal;
        bool Skipped = false;
        std::int32_t FallbackLength = 1;
    };

    Group& Current() { return groups_.back(); }

    void OpenGroup() {
        fallback_ = 0;
        groupBegins_ = groups_.size() < kMaxDepth;
        if (groupBegins_) {
            groups_.push_back(Current());
        } else {
            ++tooDeep_;
        }
    }

    void CloseGroup() {
        fallback_ = 0;
        groupBegins_ = false;
        if (tooDeep_ > 0) {
            --tooDeep_;
            return;
        }
        groups_.pop_back();
        ended_ = groups_.size() == 1;  // behind the outermost group there is no document any more
    }

    // What stands behind a backslash.
    void Control() {
        if (at_ >= rtf_.size()) {
            return;
        }
        if (IsLetter(rtf_[at_])) {
            const auto begin = at_;
            at_ = static_cast<std::size_t>(
                std::find_if_not(rtf_.begin() + static_cast<std::ptrdiff_t>(at_), rtf_.end(), IsLetter) -
                rtf_.begin());
            const std::string_view word = rtf_.substr(begin, at_ - begin);
            const auto number = TakeNumber();
            if (at_ < rtf_.size() && rtf_[at_] == ' ') {
                ++at_;
            }
            Word(word, number);
            groupBegins_ = false;
        } else {
            Symbol(rtf_[at_++]);
        }
    }

    std::optional<std::int32_t> TakeNumber() {
        const bool negative = at_ + 1 < rtf_.size() && rtf_[at_] == '-' && IsDigit(rtf_[at_ + 1]);
        if (negative) {
            ++at_;
        }
        if (at_ >= rtf_.size() || !IsDigit(rtf_[at_])) {
            return std::nullopt;
        }
        std::int32_t number = 0;
        for (; at_ < rtf_.size() && IsDigit(rtf_[at_]); ++at_) {
            number = std::min(number * 10 + (rtf_[at_] - '0'), kMaxNumber);
        }
        return negative ? -number : number;
    }

    void Symbol(char c) {
        switch (c) {
            case '\\':
            case '{':
            case '}':
                Put(c);
                break;
            case '~':
                Put(0xA0);
                break;
            case '_':
                Put('-');
                break;
            case '\r':
            case '\n':
                Put('\n');
                break;
            case '\'':
                Byte();
                break;
            case '*':
                if (groupBegins_) {
                    Current().Skipped = true;
                }
                break;
            default:
                // Places where a word may break, index entries and the like: nothing to be seen.
                break;
        }
        groupBegins_ = false;
    }

    void Byte() {
        const int high = at_ + 1 < rtf_.size() ? HexDigit(rtf_[at_]) : -1;
        const int low = at_ + 1 < rtf_.size() ? HexDigit(rtf_[at_ + 1]) : -1;
        if (high < 0 || low < 0) {
            return;
        }
        at_ += 2;
        const std::string utf8 = FromWindows1252(std::string(1, static_cast<char>(high * 16 + low)));
        std::size_t i = 0;
        UChar32 code = 0;
        U8_NEXT_OR_FFFD(utf8.data(), i, utf8.size(), code);
        Put(code);
    }

    void Word(std::string_view word, std::optional<std::int32_t> number) {
        const auto character = std::find_if(kCharacters.begin(), kCharacters.end(),
                                            [&](const auto& entry) { return entry.first == word; });
        if (character != kCharacters.end()) {
            Put(character->second);
            return;
        }
        fallback_ = 0;  // a word that stands for no character is no part of a replacement text
        const bool off = number == 0;
        if (word == "u") {
            Unicode(number.value_or(0));
        } else if (word == "uc") {
            Current().FallbackLength = std::max(number.value_or(1), 0);
        } else if (word == "sub" || word == "dn") {
            Current().Height = off ? Run::Normal : Run::Sub;
        } else if (word == "super" || word == "up") {
            Current().Height = off ? Run::Normal : Run::Super;
        } else if (word == "nosupersub" || word == "plain") {
            Current().Height = Run::Normal;
        } else if (word == "bin") {
            at_ += std::min(static_cast<std::size_t>(std::max(number.value_or(0), 0)), rtf_.size() - at_);
        } else if (groupBegins_ &&
                   std::find(kDestinations.begin(), kDestinations.end(), word) != kDestinations.end()) {
            Current().Skipped = true;
        }
    }

    // A UTF-16 unit, written as a signed number, with a replacement text behind it for readers without
    // Unicode.
    void Unicode(std::int32_t number) {
        const UChar32 code = number < 0 ? number + 0x10000 : number;
        if (U16_IS_LEAD(code) && !Current().Skipped) {
            FlushLead();
            lead_ = code;
        } else if (U16_IS_TRAIL(code) && lead_ != 0) {
            const UChar32 lead = std::exchange(lead_, 0);
            Put(U16_GET_SUPPLEMENTARY(lead, code));
        } else {
            Put(code);
        }
        fallback_ = Current().FallbackLength;
    }

    void FlushLead() {
        if (lead_ != 0) {
            text_.Add(std::exchange(lead_, 0), Current().Height);
        }
    }

    void Put(UChar32 code) {
        groupBegins_ = false;
        if (fallback_ > 0) {
            --fallback_;
        } else if (!Current().Skipped) {
            FlushLead();
            text_.Add(code, Current().Height);
        }
    }

    std::string_view rtf_;
    std::size_t at_ = 0;
    RichTextBuilder text_;
    std::vector<Group> groups_{Group()};
    std::size_t tooDeep_ = 0;
    bool ended_ = false;
    bool groupBegins_ = false;
    std::int32_t fallback_ = 0;  // characters of a replacement text still to be passed over
    UChar32 lead_ = 0;           // first half of a surrogate pair, or 0
};

}  // namespace

RichText ParseRtf(std::string_view rtf) {
    if (rtf.starts_with(kBegin)) {
        return RtfReader(rtf).Read();
    }
    RichTextBuilder plain;
    plain.AddText(rtf, Run::Normal);
    return plain.Take();
}

}  // namespace platform
