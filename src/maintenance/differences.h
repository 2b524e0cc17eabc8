// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "platform/adodb/adodb.h"

namespace vemora {

/// What a maintenance window shows in one language of the program.
struct InLanguage {
    /// The statement of its record set; none for a language in which the window can't be opened.
    const char* Source = "";
    /// Column of a line when the window opens, and the one that stands in where that is blank.
    const char* Line = "";
    const char* LineWhenBlank = "";
    /// Columns that a click shows, one a text box from 1.
    std::vector<const char*> Shown = {};
};

/// All that sets one maintenance window apart from the others, to the letter.
struct Difference {
    const char* Name;
    const char* NameInReport;
    const char* TitleKey;
    const char* List;
    const char* ListLabelKey;
    InLanguage Svenska, English, Deutsch;
    /// Column of a line after a refresh, in every language.
    const char* LineAfterRefresh;
    /// Columns that a new row shows and a save writes, one a text box from 1.
    std::vector<const char*> Written;
    /// Opening moves to the first row even of an empty table, and fails there.
    bool MoveFirstAlways;
    /// The test for a record that is there already: the text of a box between two pieces of a statement.
    const char* DuplicateBegin;
    int DuplicateBox;
    const char* DuplicateEnd;
    const char* DuplicateKey;
    /// Key of the class that GetEgen is asked about.
    const char* ClassKey;
    /// What the Cancel button calls: the one leaves a new row pending, the other drops it.
    void (platform::adodb::Recordset::*CancelCall)();

    const InLanguage& In(const std::string& language) const;
};

extern const Difference kUMisc, kUPlast, kUTight, kUMetal, kUConcentration, kUTemperature, kUChemicals;

}  // namespace vemora
