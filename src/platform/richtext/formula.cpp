// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/richtext/formula.h"

namespace platform {

namespace {

constexpr char32_t kEnDash = 0x2013;
constexpr char32_t kMinus = 0x2212;

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}
bool IsDash(char32_t c) {
    return c == '-' || c == kEnDash;
}

class FormulaReader {
  public:
    explicit FormulaReader(std::string_view formula) {
        for (std::size_t i = 0; i < formula.size();) {
            UChar32 code = 0;
            U8_NEXT_OR_FFFD(formula.data(), i, formula.size(), code);
            formula_ += static_cast<char32_t>(code);
        }
    }

    RichText Read() {
        std::size_t i = 0;
        while (i < formula_.size()) {
            if (formula_[i] == '^' && ChargeEnd(i + 1) > i + 1) {
                i = Put(i + 1, ChargeEnd(i + 1), Run::Super);
            } else if (IsDigit(formula_[i])) {
                i = IsIndex(i) ? Put(i, IndexEnd(i), Run::Sub) : Put(i, NumberEnd(i), Run::Normal);
            } else {
                i = Put(i, i + 1, Run::Normal);
            }
        }
        return text_.Take();
    }

  private:
    char32_t At(std::size_t i) const { return i < formula_.size() ? formula_[i] : U'\0'; }

    std::size_t NumberEnd(std::size_t i) const {
        while (IsDigit(At(i))) {
            ++i;
        }
        return i;
    }

    std::size_t ChargeEnd(std::size_t i) const {
        i = NumberEnd(i);
        const bool sign = At(i) == '+' || IsDash(At(i)) || At(i) == kMinus;
        return sign ? i + 1 : i;
    }

    // Whether the number at i counts what stands before it.
    bool IsIndex(std::size_t i) const {
        if (i == 0) {
            return false;
        }
        const char32_t before = formula_[i - 1];
        return before == ')' || before == ']' || before == '}' || u_isalpha(static_cast<UChar32>(before));
    }

    // Whether a number ending at i is the coefficient of a hydrate ("CuSO4.5H2O"), where a dot or a dash
    // divides and belongs to no number.
    bool CountsWater(std::size_t i) const {
        return (At(i) == 'H' || At(i) == 'D') && At(i + 1) == '2' && At(i + 2) == 'O' &&
               !u_islower(static_cast<UChar32>(At(i + 3)));
    }

    bool IsLess(std::size_t a, std::size_t b) const {
        const std::size_t lengthA = NumberEnd(a) - a;
        const std::size_t lengthB = NumberEnd(b) - b;
        return lengthA != lengthB ? lengthA < lengthB
                                  : formula_.compare(a, lengthA, formula_, b, lengthB) < 0;
    }

    // An index may be a decimal number ("Fe0.95O") or a range of rising numbers ("C10-13").
    std::size_t IndexEnd(std::size_t begin) const {
        const std::size_t end = NumberEnd(begin);
        const std::size_t next = NumberEnd(end + 1);
        if (next == end + 1 || CountsWater(next)) {
            return end;
        }
        const bool decimal = At(end) == '.' || At(end) == ',';
        const bool range = IsDash(At(end)) && IsLess(begin, end + 1);
        return decimal || range ? next : end;
    }

    std::size_t Put(std::size_t begin, std::size_t end, Run::Height height) {
        for (std::size_t i = begin; i < end; ++i) {
            text_.Add(static_cast<UChar32>(formula_[i]), height);
        }
        return end;
    }

    std::u32string formula_;
    RichTextBuilder text_;
};

}  // namespace

RichText FormulaRichText(std::string_view formula) {
    return FormulaReader(formula).Read();
}

}  // namespace platform
