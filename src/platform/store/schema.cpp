// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/schema.h"

#include <string>

#include "platform/store/store.h"

namespace platform {

// No text column has an index: the order of an index would depend on the version of the collation that
// wrote it, and a later version would then miss rows. An ID is never given twice, since the verdicts of a
// deleted row stay behind and would turn up under the next one. TheValue compares exactly (a blank is a
// verdict). The verdicts of one material, whatever the chemical, are found by an index of whole numbers; a
// database without it only answers that question more slowly.
std::string_view SchemaSql() {
    return R"sql(
CREATE TABLE Chemical(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Formula TEXT COLLATE NOCASE,
  FormulaRTF TEXT,
  NameSE TEXT COLLATE NOCASE,
  NameEN TEXT COLLATE NOCASE,
  NameGE TEXT COLLATE NOCASE,
  NickNameSE TEXT COLLATE NOCASE,
  NickNameEN TEXT COLLATE NOCASE,
  NickNameGE TEXT COLLATE NOCASE,
  NoteSE TEXT COLLATE NOCASE,
  NoteEN TEXT COLLATE NOCASE,
  NoteGE TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE Conc(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  ConcentrationSE TEXT COLLATE NOCASE,
  ConcentrationEN TEXT COLLATE NOCASE,
  ConcentrationDE TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE [Temp](
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  [Temp] TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE Metal(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE,
  Description TEXT COLLATE NOCASE,
  NameEN TEXT COLLATE NOCASE,
  DescriptionEN TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE Plast(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE,
  Description TEXT COLLATE NOCASE,
  NameEN TEXT COLLATE NOCASE,
  DescriptionEN TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE Tight(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE,
  Description TEXT COLLATE NOCASE,
  NameEN TEXT COLLATE NOCASE,
  DescriptionEN TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1,
  NameDE TEXT COLLATE NOCASE,
  DescriptionDE TEXT COLLATE NOCASE);
CREATE TABLE Misc(
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name TEXT COLLATE NOCASE,
  Description TEXT COLLATE NOCASE,
  NameEN TEXT COLLATE NOCASE,
  DescriptionEN TEXT COLLATE NOCASE,
  Egen INTEGER NOT NULL DEFAULT 0,
  Med INTEGER NOT NULL DEFAULT -1);
CREATE TABLE relMetal(
  ChemID INTEGER NOT NULL,
  ConcID INTEGER NOT NULL,
  TempID INTEGER NOT NULL,
  MetalID INTEGER NOT NULL,
  TheValue TEXT,
  Egen INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY(ChemID, ConcID, TempID, MetalID)) WITHOUT ROWID;
CREATE TABLE relPlast(
  ChemID INTEGER NOT NULL,
  ConcID INTEGER NOT NULL,
  TempID INTEGER NOT NULL,
  PlastID INTEGER NOT NULL,
  TheValue TEXT,
  Egen INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY(ChemID, ConcID, TempID, PlastID)) WITHOUT ROWID;
CREATE TABLE relTight(
  ChemID INTEGER NOT NULL,
  ConcID INTEGER NOT NULL,
  TempID INTEGER NOT NULL,
  TightID INTEGER NOT NULL,
  TheValue TEXT,
  Egen INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY(ChemID, ConcID, TempID, TightID)) WITHOUT ROWID;
CREATE TABLE relMisc(
  ChemID INTEGER NOT NULL,
  ConcID INTEGER NOT NULL,
  TempID INTEGER NOT NULL,
  MiscID INTEGER NOT NULL,
  TheValue TEXT,
  Egen INTEGER NOT NULL DEFAULT 0,
  PRIMARY KEY(ChemID, ConcID, TempID, MiscID)) WITHOUT ROWID;
CREATE INDEX relMetalByMaterial ON relMetal(MetalID);
CREATE INDEX relPlastByMaterial ON relPlast(PlastID);
CREATE INDEX relTightByMaterial ON relTight(TightID);
CREATE INDEX relMiscByMaterial ON relMisc(MiscID);
CREATE TABLE Source(
  RelTable TEXT NOT NULL,
  ChemID INTEGER NOT NULL,
  ConcID INTEGER NOT NULL,
  TempID INTEGER NOT NULL,
  Source TEXT,
  PRIMARY KEY(RelTable, ChemID, ConcID, TempID)) WITHOUT ROWID;
CREATE TABLE MaterialKey(
  Class TEXT NOT NULL,
  ID INTEGER NOT NULL,
  [Key] TEXT NOT NULL,
  PRIMARY KEY(Class, ID)) WITHOUT ROWID;
CREATE TABLE SourceName(
  ID INTEGER PRIMARY KEY,
  Code TEXT NOT NULL,
  NameSE TEXT,
  NameEN TEXT,
  NameDE TEXT);
)sql";
}

void CreateSchema(Store& store) {
    store.Execute("PRAGMA application_id = " + std::to_string(kApplicationID) +
                  "; PRAGMA user_version = " + std::to_string(kSchemaVersion));
    store.Execute("BEGIN");
    try {
        store.Execute(SchemaSql());
        store.Execute("COMMIT");
    } catch (...) {
        // A failed transaction may be rolled back already; what counts is the first failure.
        try {
            store.Execute("ROLLBACK");
        } catch (const std::exception&) {
        }
        throw;
    }
}

}  // namespace platform
