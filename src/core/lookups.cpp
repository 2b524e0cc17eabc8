// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <array>
#include <string_view>

#include "core/mMain.h"
#include "platform/error.h"

namespace vemora {

using platform::Error;
using platform::adodb::Recordset;
namespace ado = platform::adodb;

namespace {

// The tables in the order in which their markers are looked for: the first that is found counts.
struct Category {
    std::string_view Marker;
    std::string_view Statement;
};
constexpr std::array<Category, 6> kCategories = {{
    {"(Koncentration)", "SELECT Egen FROM Conc"},
    {"(Temperatur)", "SELECT Egen FROM Temp"},
    {"(Övrigt)", "SELECT Misc.Egen AS Egen FROM Misc"},
    {"(Tätning)", "SELECT Tight.Egen AS Egen FROM Tight"},
    {"(Plast)", "SELECT Plast.Egen AS Egen FROM Plast"},
    {"(Metall)", "SELECT Metal.Egen AS Egen FROM Metal"},
}};

// Name of the table with this number; empty for any other, so that the statement fails.
std::string TableOf(std::int32_t typ) {
    constexpr std::array<const char*, 6> names = {"Conc", "Misc", "Plast", "Tight", "Metal", "Temp"};
    return typ >= 1 && typ <= 6 ? names[static_cast<std::size_t>(typ - 1)] : "";
}

}  // namespace

bool mMain::GetEgen(std::int32_t ChemID, std::int32_t ID, const std::string& Kategori) {
    bool result = false;
    try {
        std::string statement;
        if (ID == -1) {
            statement = "SELECT Egen FROM Chemical WHERE Chemical.ID = " + std::to_string(ChemID);
        } else {
            for (const Category& category : kCategories) {
                if (Kategori.find(category.Marker) != std::string::npos) {
                    statement = std::string(category.Statement) + " WHERE ID = " + std::to_string(ID);
                    break;
                }
            }
        }
        if (!statement.empty()) {
            Recordset rs;
            rs.Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
            if (!rs.Eof()) {
                result = rs["Egen"].Bool();
            }
            rs.Close();
        }
    } catch (const Error& error) {
        Felrapport(error, ") in procedure GetEgen in Module mMain");
        return false;
    }
    return result;
}

std::unique_ptr<Recordset> mMain::GetValdaMaterial(std::int32_t Typ, bool BaraMed, bool BaraEjMed) {
    try {
        std::string statement = "SELECT * FROM " + TableOf(Typ);
        if (BaraMed) {
            statement += " WHERE Med = -1";
        } else if (BaraEjMed) {
            statement += " WHERE Med = 0";
        }
        auto rs = std::make_unique<Recordset>();
        rs->Open(statement, *gCn, ado::adOpenForwardOnly, ado::adLockReadOnly);
        return rs;
    } catch (const Error& error) {
        Felrapport(error, ") in procedure GetValdaMaterial in Module mMain");
        return nullptr;
    }
}

bool mMain::SetValdaMaterial(std::int32_t Typ, std::int32_t ID, bool Med) {
    try {
        Recordset rs;
        rs.Open("SELECT ID, Med FROM " + TableOf(Typ) + " WHERE ID = " + std::to_string(ID), *gCn,
                ado::adOpenStatic, ado::adLockOptimistic);
        if (!rs.Eof()) {
            rs["Med"] = Med;
            rs.Update();
        }
        rs.Close();
        return true;
    } catch (const Error& error) {
        Felrapport(error, ") in procedure SetValdaMaterial in Module mMain");
        return false;
    }
}

bool mMain::FilterPå() {
    try {
        for (const std::int32_t table :
             {typ::Conc, typ::Metal, typ::Misc, typ::Plast, typ::Temp, typ::Tight}) {
            const auto rs = GetValdaMaterial(table, false, true);
            if (rs == nullptr) {
                throw Error(platform::errors::NoObject, "There is no record set to look into.", "core");
            }
            if (!rs->Eof()) {
                rs->Close();
                return true;
            }
        }
        return false;
    } catch (const Error& error) {
        Felrapport(error, ") in procedure FilterPå in Module mMain");
        return false;
    }
}

}  // namespace vemora
