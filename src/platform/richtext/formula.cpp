// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <unicode/uchar.h>

#include <algorithm>
#include <cstddef>

#include "platform/richtext/formula.h"

namespace platform {

namespace {

constexpr char32_t kEnDash = 0x2013;
constexpr char32_t kMinus = 0x2212;

bool IsDash(char32_t c) {
    return c == '-' || c == kEnDash;
}
bool IsSign(char32_t c) {
    return c == '+' || IsDash(c) || c == kMinus;
}
bool IsLetter(char32_t c) {
    return u_isalpha(static_cast<UChar32>(c)) != 0;
}
// Whether a number behind this counts it.
bool IsCounted(char32_t c) {
    return c == ')' || c == ']' || c == '}' || IsLetter(c);
}

class FormulaReader {
  public:
    FormulaReader(std::u32string_view formula, bool typing) : formula_(formula), typing_(typing) {}

    // The height of each character; no charges yet.
    std::vector<Run::Height> Indices() const {
        std::vector<Run::Height> heights(formula_.size(), Run::Normal);
        for (std::size_t i = 0; i < formula_.size();) {
            if (!IsDigit(formula_[i])) {
                ++i;
                continue;
            }
            const bool index = i > 0 && IsCounted(formula_[i - 1]);
            const std::size_t end = index ? IndexEnd(i) : NumberEnd(i);
            Put(heights, i, end, index ? Run::Sub : Run::Normal);
            i = end;
        }
        return heights;
    }

    // End of the charge that begins at i; i when there is none.
    std::size_t ChargeEnd(std::size_t i) const {
        const std::size_t end = NumberEnd(i);
        return IsSign(At(end)) ? end + 1 : i;
    }

    // Raises the charge that the formula ends in: "Fe3+", "SO42-", "SO4 2-", "Ca++".
    void RaiseLastCharge(std::vector<Run::Height>& heights) const {
        std::size_t end = formula_.size();
        while (end > 0 && formula_[end - 1] == ' ') {
            --end;
        }
        std::size_t sign = end;
        while (sign > 0 && IsSign(formula_[sign - 1]) && formula_[sign - 1] == formula_[end - 1]) {
            --sign;
        }
        const std::size_t number = NumberBegin(sign);
        if (sign == end || number == 0) {
            return;
        }
        if (IsCounted(formula_[number - 1])) {
            Put(heights, ChargeBegin(number, sign), end, Run::Super);
        } else if (formula_[number - 1] == ' ' && number < sign &&
                   formula_.find_first_not_of(U' ') < number) {
            Put(heights, number, end, Run::Super);
        }
    }

  private:
    char32_t At(std::size_t i) const { return i < formula_.size() ? formula_[i] : U'\0'; }

    std::size_t NumberEnd(std::size_t i) const {
        while (IsDigit(At(i))) {
            ++i;
        }
        return i;
    }
    std::size_t NumberBegin(std::size_t end) const {
        while (end > 0 && IsDigit(formula_[end - 1])) {
            --end;
        }
        return end;
    }

    // Where the charge begins in an ion's number and sign: the last digit is the charge's, unless it is the
    // only one and counts the last of several elements ("NH4+").
    std::size_t ChargeBegin(std::size_t number, std::size_t sign) const {
        const bool single = sign - number == 1 && formula_[number - 1] != ']' && !IsLoneElement(number);
        return sign == number || single || formula_[sign - 1] == '0' ? sign : sign - 1;
    }

    // Whether nothing but one element, with a factor or not, stands before i.
    bool IsLoneElement(std::size_t i) const {
        if (i > 1 && u_islower(static_cast<UChar32>(formula_[i - 1]))) {
            --i;
        }
        return u_isupper(static_cast<UChar32>(formula_[i - 1])) && NumberBegin(i - 1) == 0;
    }

    // Whether a number ending at i is the coefficient of a hydrate ("CuSO4.5H2O"), where a dot or a dash
    // divides and belongs to no number.
    bool CountsWater(std::size_t i) const {
        return (At(i) == 'H' || At(i) == 'D') && At(i + 1) == '2' && At(i + 2) == 'O' &&
               !u_islower(static_cast<UChar32>(At(i + 3)));
    }

    // Whether what stands from i on may still become water.
    bool BeginsWater(std::size_t i) const {
        const std::u32string_view rest = formula_.substr(i);
        return std::u32string_view(U"H2O").starts_with(rest) || std::u32string_view(U"D2O").starts_with(rest);
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
        if (next == end + 1 || CountsWater(next) || (typing_ && At(end) == '.' && BeginsWater(next))) {
            return end;
        }
        const bool decimal = At(end) == '.' || At(end) == ',';
        const bool range = IsDash(At(end)) && IsLess(begin, end + 1);
        return decimal || range ? next : end;
    }

    static void Put(std::vector<Run::Height>& heights, std::size_t begin, std::size_t end,
                    Run::Height height) {
        std::fill(heights.begin() + static_cast<std::ptrdiff_t>(begin),
                  heights.begin() + static_cast<std::ptrdiff_t>(end), height);
    }

    std::u32string_view formula_;
    bool typing_;
};

}  // namespace

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

RichText FormulaRichText(std::string_view formula) {
    const std::u32string text = CodePoints(formula);
    const FormulaReader reader(text, false);
    const std::vector<Run::Height> heights = reader.Indices();
    RichTextBuilder set;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t charge = text[i] == '^' ? reader.ChargeEnd(i + 1) : i + 1;
        if (charge == i + 1) {
            set.Add(static_cast<UChar32>(text[i]), heights[i]);
            continue;
        }
        while (++i < charge) {
            set.Add(static_cast<UChar32>(text[i]), Run::Super);
        }
        --i;
    }
    return set.Take();
}

std::vector<Run::Height> TypedHeights(std::u32string_view formula) {
    const FormulaReader reader(formula, true);
    std::vector<Run::Height> heights = reader.Indices();
    reader.RaiseLastCharge(heights);
    return heights;
}

}  // namespace platform
