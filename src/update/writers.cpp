// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "update/writers.h"

#include "platform/text/text.h"

namespace vemora {

using platform::Error;
using platform::Value;
using platform::adodb::Recordset;
namespace ado = platform::adodb;

namespace {

// A row that is delivered and takes part.
void AddDelivered(Recordset& rs) {
    rs.AddNew();
    rs["Egen"] = false;
    rs["Med"] = true;
}

}  // namespace

void UpdateWriters::SättKemikalie(const UpdateFields& Fält) {
    try {
        Recordset rs;
        rs.Open("SELECT * FROM Chemical Where ID = " + Fält[field::kID], gCn(), ado::adOpenDynamic,
                ado::adLockOptimistic);
        if (rs.Eof()) {
            rs.AddNew();
            rs["ID"] = Fält[field::kID];
            rs["Egen"] = false;
            rs["Med"] = true;
            ++Ändringar;
        }
        for (std::size_t i = 0; i < kChemicalColumns.size(); ++i) {
            rs[kChemicalColumns[i]] = Fält[i + 1];
        }
        rs.Update();
        rs.Close();
    } catch (const Error& error) {
        Felrapport(error, ") in procedure SättKemikalie in Form frmUPD");
    }
}

void UpdateWriters::SättVärden(const UpdateFields& Fält) {
    try {
        if (!Fält[field::kConcentrationSE].empty()) {
            ConcID = GetKonc(Fält);
        }
        const std::int32_t TempID = GetTemp(Fält);
        for (const ValueField& value : kValueFields) {
            SättVärde(*value.Table, Fält[value.Field], value.MaterialID, TempID);
        }
    } catch (const Error& error) {
        Felrapport(error, ") in procedure SättVärden in Form frmUPD");
    }
}

std::int32_t UpdateWriters::GetKonc(const UpdateFields& Fält) {
    std::int32_t ID = 0;
    try {
        const std::string statement =
            "SELECT * FROM Conc Where ConcentrationSE = '" + Fält[field::kConcentrationSE] + "'";
        Recordset rs;
        rs.Open(statement, gCn(), ado::adOpenDynamic, ado::adLockOptimistic);
        if (rs.Eof()) {
            AddDelivered(rs);
        }
        constexpr std::pair<std::size_t, const char*> columns[] = {
            {field::kConcentrationSE, "ConcentrationSE"},
            {field::kConcentrationEN, "ConcentrationEN"},
            {field::kConcentrationDE, "ConcentrationDE"}};
        for (const auto& [place, column] : columns) {
            if (!Fält[place].empty()) {
                rs[column] = Fält[place];
            }
        }
        rs.Update();
        rs.Close();
        ID = IdOf(statement);
    } catch (const Error& error) {
        Felrapport(error, ") in procedure GetKonc in Form frmUPD");
    }
    return ID;
}

std::int32_t UpdateWriters::GetTemp(const UpdateFields& Fält) {
    std::int32_t ID = 0;
    try {
        const std::string statement = "SELECT * FROM Temp Where Temp = '" + Fält[field::kTemp] + "'";
        Recordset rs;
        rs.Open(statement, gCn(), ado::adOpenDynamic, ado::adLockOptimistic);
        if (rs.Eof()) {
            AddDelivered(rs);
        }
        rs["Temp"] = Fält[field::kTemp];
        rs.Update();
        rs.Close();
        ID = IdOf(statement);
    } catch (const Error& error) {
        Felrapport(error, ") in procedure GetTemp in Form frmUPD");
    }
    return ID;
}

std::int32_t UpdateWriters::IdOf(const std::string& statement) const {
    Recordset rs;
    rs.Open(statement, gCn());
    const std::int32_t ID = rs.Eof() ? 0 : rs["ID"].Long();
    rs.Close();
    return ID;
}

void UpdateWriters::SättVärde(const ValueTable& table, const std::string& Värde, std::int32_t MaterialID,
                              std::int32_t TempID) {
    try {
        Recordset rs;
        rs.Open(std::string("SELECT * FROM ") + table.Table + " WHERE ConcID = " + std::to_string(ConcID) +
                    " AND TempID = " + std::to_string(TempID) + " AND ChemID = " + std::to_string(ChemID) +
                    " AND " + table.IdColumn + " = " + std::to_string(MaterialID),
                gCn(), ado::adOpenDynamic, ado::adLockOptimistic);
        if (rs.Eof()) {
            rs.AddNew();
            rs["Egen"] = false;
            rs["ConcID"] = ConcID;
            rs[table.IdColumn] = MaterialID;
            rs["TempID"] = TempID;
            rs["ChemID"] = ChemID;
        }
        // With Null, which a new row has, nothing can be compared: it is no change.
        const Value before = rs["TheValue"];
        if (!before.IsNull() && platform::Trim(before.Text()) != platform::Trim(Värde)) {
            ++Ändringar;
        }
        rs["TheValue"] = Värde.empty() ? std::string(" ") : Värde;
        rs.Update();
        rs.Close();
    } catch (const Error& error) {
        Felrapport(error, table.Report);
    }
}

void TaIn(UpdateLines& lines, UpdateWriters& writers,
          const std::function<void(const std::string& NameSE)>& chemical) {
    std::string line;
    lines.Next(line);
    while (lines.Next(line)) {
        if (line.empty()) {
            continue;
        }
        UpdateFields Fält(line);
        if (Fält.IsChemical()) {
            writers.ChemID = Value(Fält[field::kID]).Long();
            chemical(Fält[field::kNameSE]);
            writers.SättKemikalie(Fält);
            writers.ConcID = -1;
        } else {
            Fält.FillUp();
            writers.SättVärden(Fält);
        }
    }
}

}  // namespace vemora
