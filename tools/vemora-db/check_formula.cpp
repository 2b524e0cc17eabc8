// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
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

bool IsUpper(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsLower(char c) {
    return c >= 'a' && c <= 'z';
}

/// Takes one sign off the front that stands between or behind the elements; false for anything else.
bool TakeSign(std::string_view& rest) {
    // Counts, charges, an unknown count, brackets, the dot of a hydrate and the dash of a range.
    for (const std::string_view sign : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "(", ")",
                                        "[", "]", "{", "}", "+", "-", "n", "x", ".", "·", "–"}) {
        if (rest.starts_with(sign)) {
            rest.remove_prefix(sign.size());
            return true;
        }
    }
    return false;
}

}  // namespace

bool FormulaReads(std::string_view formula) {
    while (!formula.empty()) {
        if (!IsUpper(formula[0])) {
            if (!TakeSign(formula)) {
                return false;
            }
            continue;
        }
        const bool two = formula.size() > 1 && IsLower(formula[1]) &&
                         std::binary_search(kElements.begin(), kElements.end(), formula.substr(0, 2));
        if (!two && !std::binary_search(kElements.begin(), kElements.end(), formula.substr(0, 1))) {
            return false;
        }
        formula.remove_prefix(two ? 2 : 1);
    }
    return true;
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
