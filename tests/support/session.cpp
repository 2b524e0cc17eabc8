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
        sheet.cmdStäng.InputClick();
    });
    Desktop.Event([&] { Sheet().Show(platform::vbModal, &Main()); });
}

Strings Session::All() {
    Strings rows;
    for (const std::string table : {"Chemical", "Conc", "Temp", "Metal", "Plast", "Tight", "Misc", "relMetal",
                                    "relPlast", "relTight", "relMisc"}) {
        platform::adodb::Recordset rs;
        for (rs.Open("SELECT * FROM " + table, *Core.gCn); !rs.Eof(); rs.MoveNext()) {
            rows.push_back(table);
            for (const std::string& field : rs.FieldNames()) {
                rows.back() += "|" + rs[field].Joined();
            }
        }
    }
    return rows;
}

Strings Less(const Strings& from, const Strings& what, const std::string& sign) {
    Strings left;
    for (const std::string& row : from) {
        if (std::find(what.begin(), what.end(), row) == what.end()) {
            left.push_back(sign + row);
        }
    }
    return left;
}

Strings Session::Ask(const std::string& statement) {
    platform::adodb::Recordset rs;
    Strings values;
    for (rs.Open(statement, *Core.gCn); !rs.Eof(); rs.MoveNext()) {
        values.push_back(rs[rs.FieldNames().front()].Joined());
    }
    return values;
}

void ExpectListFollows(platform::Form& form, const platform::ListView& list,
                       const std::vector<std::array<int, 5>>& cases) {
    for (const auto& [width, height, state, listWidth, listHeight] : cases) {
        form.InputResize(width, height, state);
        EXPECT_EQ(std::pair(list.Width.Get(), list.Height.Get()), std::pair(listWidth, listHeight)) << width;
    }
}

namespace {
template <class Text>
Strings Collect(int count, Text text) {
    Strings all;
    for (int i = 0; i < count; ++i) {
        all.push_back(text(i));
    }
    return all;
}
}  // namespace

Strings Rows(const platform::ListView& list) {
    return Collect(list.ItemCount(), [&](int place) {
        std::string row = list.Item(place).Text;
        for (int column = 1; column < list.ColumnCount(); ++column) {
            row += "|" + list.Item(place).SubItems(static_cast<std::size_t>(column));
        }
        return row;
    });
}

Strings Keys(const platform::ListView& list) {
    return Collect(list.ItemCount(), [&](int place) { return list.Item(place).Key(); });
}

Strings Columns(const platform::ListView& list) {
    return Collect(list.ColumnCount(), [&](int i) {
        const platform::ColumnHeader& column = list.Column(i);
        std::string text = column.Text + " " + std::to_string(column.Width);
        text += column.Alignment == platform::Align::Centre ? " centred" : "";
        text += column.Icon.empty() ? "" : " " + column.Icon;
        if (column.SortImage) {
            const platform::ImageList* images = list.ColumnHeaderIcons();
            text += " " + (images != nullptr ? images->PictureAt(*column.SortImage) : "?");
        }
        return text;
    });
}

Strings Entries(const platform::LineList& list) {
    return Collect(list.ListCount(),
                   [&](int i) { return list.List(i) + "=" + std::to_string(list.ItemData(i)); });
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
