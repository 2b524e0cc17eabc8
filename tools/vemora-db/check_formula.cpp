// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>

#include "vemora-db/check_parts.h"

namespace vemora_db {

namespace {

// The periodic table (IUPAC, 2016), in the order of the alphabet.
constexpr auto kElements = std::to_array<std::string_view>(
    {"Ac", "Ag", "Al", "Am", "Ar", "As", "At", "Au", "B",  "Ba", "Be", "Bh", "Bi", "Bk", "Br", "C",  "Ca",
     "Cd", "Ce", "Cf", "Cl", "Cm", "Cn", "Co", "Cr", "Cs", "Cu", "Db", "Ds", "Dy", "Er", "Es", "Eu", "F",
     "Fe", "Fl", "Fm", "Fr", "Ga", "Gd", "Ge", "H",  "He", "Hf", "Hg", "Ho", "Hs", "I",  "In", "Ir", "K",
     "Kr", "La", "Li", "Lr", "Lu", "Lv", "Mc", "Md", "Mg", "Mn", "Mo", "Mt", "N",  "Na", "Nb", "Nd", "Ne",
     "Nh", "Ni", "No", "Np", "O",  "Og", "Os", "P",  "Pa", "Pb", "Pd", "Pm", "Po", "Pr", "Pt", "Pu", "Ra",
     "Rb", "Re", "Rf", "Rg", "Rh", "Rn", "Ru", "S",  "Sb", "Sc", "Se", "Sg", "Si", "Sm", "Sn", "Sr", "Ta",
     "Tb", "Tc", "Te", "Th", "Ti", "Tl", "Tm", "Ts", "U",  "V",  "W",  "Xe", "Y",  "Yb", "Zn", "Zr"});

/// Takes the first of these signs that stands in front off the text.
bool Take(std::string_view& rest, std::initializer_list<std::string_view> signs) {
    const auto* const found = std::find_if(signs.begin(), signs.end(),
                                           [&](std::string_view sign) { return rest.starts_with(sign); });
    if (found == signs.end()) {
        return false;
    }
    rest.remove_prefix(found->size());
    return true;
}

bool TakeElement(std::string_view& rest) {
    // The longer one counts: Co is cobalt.
    for (const std::size_t length : {2U, 1U}) {
        if (rest.size() >= length &&
            std::binary_search(kElements.begin(), kElements.end(), rest.substr(0, length))) {
            rest.remove_prefix(length);
            return true;
        }
    }
    return false;
}

bool StartsWithDigit(std::string_view text) {
    return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

bool TakeNumber(std::string_view& rest) {
    const std::size_t before = rest.size();
    while (StartsWithDigit(rest)) {
        rest.remove_prefix(1);
    }
    return rest.size() < before;
}

/// A count or factor: 2, 0.5, 10–13, n, 2n+2.
bool TakeCount(std::string_view& rest) {
    const bool number = Take(rest, {"½"}) || TakeNumber(rest);
    for (const std::string_view sign : {".", ",", "–"}) {
        if (number && rest.starts_with(sign) && StartsWithDigit(rest.substr(sign.size()))) {
            rest.remove_prefix(sign.size());
            TakeNumber(rest);
        }
    }
    if (!Take(rest, {"n", "m", "x", "y"})) {
        return number;
    }
    if ((rest.starts_with('+') || rest.starts_with('-')) && StartsWithDigit(rest.substr(1))) {
        rest.remove_prefix(1);
        TakeNumber(rest);
    }
    return true;
}

}  // namespace

bool FormulaReads(std::string_view formula) {
    bool mayEnd = formula.empty();  // what is open is complete
    bool factor = true;             // one may stand here
    while (!formula.empty()) {
        if (TakeElement(formula) || (mayEnd && Take(formula, {")", "]", "}"}))) {
            TakeCount(formula);
            mayEnd = true;
            factor = false;
        } else if (Take(formula, {"(", "[", "{"}) || (mayEnd && Take(formula, {"·", ".", "–", "="}))) {
            mayEnd = false;
            factor = true;
        } else if (mayEnd && Take(formula, {"+", "-"})) {
            factor = true;  // a charge, at which it may end, or a bond
        } else if (factor && TakeCount(formula)) {
            mayEnd = false;
            factor = false;
        } else {
            return false;
        }
    }
    return mayEnd;
}

bool BracketsBalance(std::string_view formula) {
    constexpr std::string_view opening = "([{";
    constexpr std::string_view closing = ")]}";
    std::string open;
    for (const char c : formula) {
        if (opening.find(c) != std::string_view::npos) {
            open += closing[opening.find(c)];
        } else if (closing.find(c) != std::string_view::npos) {
            if (open.empty() || open.back() != c) {
                return false;
            }
            open.pop_back();
        }
    }
    return open.empty();
}

}  // namespace vemora_db
