// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <array>
#include <sstream>

#include "platform/error.h"
#include "platform/store/sources.h"
#include "platform/text/text.h"
#include "sheet/frmChemical.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;

namespace {

// The field in the first row; empty when there is none.
std::string Ask(platform::adodb::Connection& cn, const std::string& field, const std::string& from) {
    Recordset rs;
    rs.Open("SELECT [" + field + "] FROM " + from, cn, ado::adOpenForwardOnly, ado::adLockReadOnly);
    return rs.Eof() ? std::string() : rs[field].Joined();
}

}  // namespace

std::string frmChemical::Källor(const platform::ListItem& item) {
    const std::string& place = item.SubItems(5);
    if (place.empty()) {
        return TextTillAndra("R0153");
    }
    constexpr std::array classes = {"Metal", "Plast", "Tight", "Misc"};
    std::istringstream parts(place);
    std::string part[4];  // class, concentration, temperature, material
    for (std::string& one : part) {
        std::getline(parts, one, '|');
    }
    const std::string name = classes.at(static_cast<std::size_t>(part[0][0] - '0'));
    const std::string column = gSpråk == "Svenska" ? "NameSE" : gSpråk == "English" ? "NameEN" : "NameDE";
    std::string names;
    try {
        const std::string text =
            Ask(*gCn, "Source",
                "Source WHERE RelTable = 'rel" + name + "' AND ChemID = " + txtFields(0).Text.Get() +
                    " AND ConcID = " + part[1] + " AND TempID = " + part[2]);
        const std::string key = Ask(
            *gCn, "Key", "MaterialKey WHERE Class = '" + name + "' AND ID = " + platform::Mid(part[3], 3));
        for (const std::string& code : platform::SourceCodes(text, key)) {
            const std::string known =
                Ask(*gCn, column, "SourceName WHERE Code = '" + platform::Replace(code, "'", "''") + "'");
            names += (names.empty() ? "" : "\n") + code + (known.empty() ? "" : ": " + known);
        }
    } catch (const Error&) {
        return "";  // an older database doesn't have these tables
    }
    return names;
}

}  // namespace vemora
