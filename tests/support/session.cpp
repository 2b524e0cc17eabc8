// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "support/session.h"

namespace test {

void Session::Search(const std::string& text, int option) {
    vemora::frmMain& window = Main();
    window.optSökaI(option).InputClick();
    window.txtChem.InputFocus();
    window.txtChem.InputText(text);
    Press(window, platform::key::Return);
}

void Session::OpenSheet(std::int32_t ID, const std::function<void(vemora::frmChemical&)>& piece) {
    Sheet().Nyckel(ID);
    Desktop.WhileModal<vemora::frmChemical>([&](vemora::frmChemical& sheet) {
        piece(sheet);
        if (sheet.IsLoaded() && !Desktop.Ended()) {
            sheet.cmdStäng.InputClick();
        }
    });
    Desktop.Event([&] { Sheet().Show(platform::vbModal, &Main()); });
}

Strings Session::Ask(const std::string& statement) {
    platform::adodb::Recordset rs;
    Strings values;
    for (rs.Open(statement, *Core.gCn); !rs.Eof(); rs.MoveNext()) {
        values.push_back(rs[rs.FieldNames().front()].Joined());
    }
    return values;
}

Strings Rows(const platform::ListView& list) {
    Strings rows;
    for (int place = 0; place < list.ItemCount(); ++place) {
        std::string row = list.Item(place).Text;
        for (int column = 1; column < list.ColumnCount(); ++column) {
            row += "|" + list.Item(place).SubItems(static_cast<std::size_t>(column));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

Strings Keys(const platform::ListView& list) {
    Strings keys;
    for (int place = 0; place < list.ItemCount(); ++place) {
        keys.push_back(list.Item(place).Key());
    }
    return keys;
}

Strings Headings(const platform::ListView& list) {
    Strings headings;
    for (int column = 0; column < list.ColumnCount(); ++column) {
        headings.push_back(list.Column(column).Text);
    }
    return headings;
}

Strings Entries(const platform::ComboBox& list) {
    Strings entries;
    for (int i = 0; i < list.ListCount(); ++i) {
        entries.push_back(list.List(i) + "=" + std::to_string(list.ItemData(i)));
    }
    return entries;
}

void Choose(platform::ComboBox& list, std::string_view beginning) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i).starts_with(beginning)) {
            list.InputIndex(i);
            return;
        }
    }
    ADD_FAILURE() << list.FullName() << " has no entry " << beginning;
}

}  // namespace test
