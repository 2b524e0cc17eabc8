// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

// The names that people type, on the data as shipped.

#include <gtest/gtest.h>

#include <sstream>

#include "support/session.h"
#include "vemora-db/create.h"
#include "vemora-db/password.h"

namespace test {
namespace {

// The chemical by its Swedish name, and what finds it.
constexpr std::pair<const char*, const char*> kNames[] = {
    {"Svavelsyra", "svavelsyra|sulphuric acid|Schwefelsäure|batterisyra|oil of vitriol"},
    {"Saltsyra", "muriatic acid|spirits of salt|salzsäure"},
    {"Salpetersyra", "aqua fortis|scheidewasser"},
    {"Kungsvatten", "aqua regia|königswasser"},
    {"Ättiksyra", "isättika|glacial|eisessig"},
    {"Ättika", "vinegar|vinäger|speiseessig"},
    {"Borsyra", "boracic"},
    {"Natriumhydroxid", "caustic soda|lye|natronlut|ätznatron|propplösare"},
    {"Ammoniaklösning", "salmiakspiritus|household ammonia|salmiakgeist"},
    {"Kalciumhydroxid", "slaked lime|kalkmilch"},
    {"Natriumhypoklorit", "bleach|klorin|chlorreiniger"},
    {"Kalciumhypoklorit", "bleaching powder|poolklor|chlorkalk"},
    {"Etanol", "methylated spirits|rödsprit|brennspiritus|t-sprit"},
    {"Metanol", "wood alcohol|träsprit"},
    {"Aceton", "nail varnish|nagellack"},
    {"Natriumklorid", "table salt|koksalt|kochsalz"},
    {"Natriumkarbonat", "washing soda|kristallsoda|waschsoda"},
    {"Natriumvätekarbonat", "baking soda|bikarbonat"},
    {"Aluminiumsulfat", "aluminum sulfate|aluminium sulphate"},
    {"Kopparsulfat", "blue vitriol|copper sulphate"},
    {"Terpentin", "Terpentinöl|turpentine"},
    {"Svavelväte", "hydrogen sulphide"},
    {"Bensin", "gasoline|ottokraftstoff"},
    {"Koldioxid", "dry ice|torris"},
    {"Etylenglykol", "antifreeze|kylarglykol|frostschutz"},
    {"Natriumborat", "borax"},
    {"Svartlut", "black liquor|schwarzlauge"},
    {"Fotogen", "paraffin oil|leuchtöl"}};

TEST(ShippedNames, AreFoundFirstOrSecond) {
    Session run;
    std::ostringstream nowhere;
    vemora_db::Progress progress(nowhere, false);
    vemora_db::Create(std::filesystem::path(VEMORA_SOURCE_DIR) / "data", run.Folder.Database(),
                      std::string(vemora_db::kDeliveredPassword), true, progress);
    run.Start();
    int asked = 0;
    for (const auto& [name, queries] : kNames) {
        std::istringstream words(queries);
        for (std::string query; std::getline(words, query, '|'); ++asked) {
            run.Search(query);
            Strings rows = Rows(run.Main().lvwResultat);
            rows.resize(2);
            EXPECT_TRUE(rows[0].find(name) != std::string::npos || rows[1].find(name) != std::string::npos)
                << query << ": " << rows[0] << " / " << rows[1];
        }
    }
    EXPECT_GE(asked, 60);
}

}  // namespace
}  // namespace test
