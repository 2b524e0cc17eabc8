// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>

#include <algorithm>

#include "platform/adodb/impl.h"
#include "platform/text/text.h"

namespace platform::adodb {

namespace {

std::string Quoted(const std::string& name) {
    return "[" + name + "]";
}

}  // namespace

void RecordsetImpl::CheckOpen(std::string_view doing) const {
    if (connection == nullptr) {
        throw Error(errors::ObjectClosed, std::string(doing) + " failed: the record set is not open.",
                    kSource);
    }
}

void RecordsetImpl::CheckWritable(std::string_view doing) const {
    CheckOpen(doing);
    if (lockType == adLockReadOnly) {
        throw Error(errors::NotSupported, std::string(doing) + " failed: the record set is only for reading.",
                    kSource);
    }
}

void RecordsetImpl::NoCurrent(std::string_view doing) {
    throw Error(errors::NoCurrentRecord, std::string(doing) + " failed: there is no current record.",
                kSource);
}

void RecordsetImpl::Load() {
    if (running) {
        running->Reset();
    } else {
        running = connection->Acquire(source);
        if (running->Columns() == 0) {
            throw Error(errors::BadStatement, "Opening a record set failed: the statement has no rows.",
                        kSource);
        }
        DescribeColumns(*running);
    }
    connection->open.insert(this);
    adding = false;
    assigned.assign(columns.size(), std::nullopt);
    position = 0;
    rows = Rows(columns.size());
    if (stream) {
        place = Place::After;
        StepStream();
        NextOfStream();
        return;
    }
    while (running->Step()) {
        rows.Append(*running);
    }
    place = rows.Count() > 0 ? Place::Row : Place::After;
    connection->Release(source, std::move(*running));
    running.reset();
}

void RecordsetImpl::Shut() noexcept {
    if (connection == nullptr) {
        return;
    }
    connection->open.erase(this);
    if (running) {
        try {
            connection->Release(source, std::move(*running));
        } catch (const std::exception&) {
            // Without room to keep it, the statement simply ends here.
        }
        running.reset();
    }
    connection = nullptr;
    rows = Rows();
    columns.clear();
    assigned.clear();
    adding = false;
    place = Place::After;
    position = 0;
}

void RecordsetImpl::Notify() {
    std::erase_if(observers, [](const auto& observer) { return observer.expired(); });
    // What is told may subscribe and end subscriptions, its own among them.
    const auto told = observers;
    for (const auto& observer : told) {
        if (const auto moved = observer.lock()) {
            (*moved)();
        }
    }
}

void RecordsetImpl::DescribeColumns(const Statement& statement) {
    const auto text = [](const char* name) { return name == nullptr ? std::string() : std::string(name); };
    columns.clear();
    for (int i = 0; i < statement.Columns(); ++i) {
        Column column{statement.ColumnName(i), text(sqlite3_column_table_name(statement.Handle(), i)),
                      text(sqlite3_column_origin_name(statement.Handle(), i))};
        // Out of a join in brackets a column comes with its table in front.
        const auto suffix = "." + column.origin;
        if (!column.origin.empty() && column.name.size() > suffix.size() &&
            sqlite3_stricmp(column.name.c_str() + column.name.size() - suffix.size(), suffix.c_str()) == 0) {
            column.name = column.origin;
        }
        columns.push_back(std::move(column));
    }
}

void RecordsetImpl::NextOfStream() {
    place = Place::After;  // also when the step fails
    if (!running) {
        return;
    }
    rows.Clear();
    rows.Append(*running);
    StepStream();
    place = Place::Row;
}

void RecordsetImpl::StepStream() {
    if (running->Step()) {
        return;
    }
    // A statement at rest holds no read on the file. One that did would keep the journal from being folded
    // back for as long as the set stays open.
    connection->Release(source, std::move(*running));
    running.reset();
}

void RecordsetImpl::NextRow() {
    if (stream) {
        NextOfStream();
        ++position;
        return;
    }
    // The row behind a deleted one stands in its place already.
    if (place == Place::Row) {
        ++position;
    } else if (place == Place::Before) {
        position = 0;
    }
    place = position < rows.Count() ? Place::Row : Place::After;
}

std::size_t RecordsetImpl::Find(std::string_view name) const {
    const auto exact =
        std::find_if(columns.begin(), columns.end(), [&](const auto& c) { return c.name == name; });
    if (exact != columns.end()) {
        return static_cast<std::size_t>(exact - columns.begin());
    }
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const auto& c) { return EqualIgnoringCase(c.name, name); });
    if (found == columns.end()) {
        throw Error(errors::NoSuchField,
                    "Reading a field failed: the record set has none named " + std::string(name) + ".",
                    kSource);
    }
    return static_cast<std::size_t>(found - columns.begin());
}

Value RecordsetImpl::Get(std::size_t column) const {
    CheckOpen("Reading a field");
    if (column >= columns.size()) {
        NoCurrent("Reading a field");
    }
    if (assigned[column]) {
        return *assigned[column];
    }
    if (adding) {
        return {};
    }
    if (place != Place::Row) {
        NoCurrent("Reading a field");
    }
    return rows.Get(stream ? 0 : position, column);
}

void RecordsetImpl::Set(std::size_t column, const Value& value) {
    CheckWritable("Writing a field");
    if (column >= columns.size() || (!adding && place != Place::Row)) {
        NoCurrent("Writing a field");
    }
    if (columns[column].origin.empty()) {
        throw Error(
            errors::NotSupported,
            "Writing a field failed: " + columns[column].name + " is computed and has no place of its own.",
            kSource);
    }
    assigned[column] = value;
}

bool RecordsetImpl::Assigned() const {
    return std::any_of(assigned.begin(), assigned.end(), [](const auto& value) { return value.has_value(); });
}

void RecordsetImpl::Drop() {
    if (adding) {
        place = placeBefore;
    }
    adding = false;
    assigned.assign(columns.size(), std::nullopt);
}

void RecordsetImpl::Save() {
    if (adding) {
        WriteNew();
    } else {
        WriteEdit();
    }
    adding = false;
    assigned.assign(columns.size(), std::nullopt);
}

void RecordsetImpl::Settle() {
    if (Assigned()) {
        Save();
    } else if (adding) {
        Drop();
    }
}

std::string RecordsetImpl::KeyCondition(const std::string& table, std::vector<Value>& values) const {
    const TableKey& key = connection->Key(table);
    std::string condition;
    for (const auto& part : key.columns) {
        const auto column = std::find_if(columns.begin(), columns.end(),
                                         [&](const auto& c) { return c.table == table && c.origin == part; });
        if (column == columns.end()) {
            throw Error(errors::NotSupported,
                        "Writing a row failed: the statement lacks its key column " + part + ".", kSource);
        }
        condition += (condition.empty() ? "" : " AND ") + Quoted(part) + " = ?";
        values.push_back(rows.Get(position, static_cast<std::size_t>(column - columns.begin())));
    }
    if (condition.empty()) {
        throw Error(errors::NotSupported, "Writing a row failed: its table has no key.", kSource);
    }
    return condition;
}

void RecordsetImpl::Run(const std::string& sql, const std::vector<Value>& values) {
    Statement statement = connection->AcquireOwn(sql);
    for (std::size_t i = 0; i < values.size(); ++i) {
        statement.Bind(static_cast<int>(i), values[i]);
    }
    statement.Step();
    connection->ReleaseOwn(sql, std::move(statement));
}

void RecordsetImpl::WriteEdit() {
    std::vector<std::string> tables;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (assigned[i] && std::find(tables.begin(), tables.end(), columns[i].table) == tables.end()) {
            tables.push_back(columns[i].table);
        }
    }
    for (const auto& table : tables) {
        std::string sql = "UPDATE " + Quoted(table) + " SET ";
        std::vector<Value> values;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!assigned[i] || columns[i].table != table) {
                continue;
            }
            sql += (values.empty() ? "" : ", ") + Quoted(columns[i].origin) + " = ?";
            values.push_back(*assigned[i]);
        }
        sql += " WHERE " + KeyCondition(table, values);
        Run(sql, values);
        if (sqlite3_changes(connection->store->Handle()) == 0) {
            // Kept pending it could never be saved, and no move would lead away from it.
            Drop();
            ForgetRow();
            throw Error(errors::StoreFailed, "Saving a row failed: it is no longer in the table.", kSource);
        }
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (assigned[i]) {
            rows.Set(position, i, *assigned[i]);
        }
    }
}

std::string RecordsetImpl::OnlyTable() const {
    std::string table;
    for (const auto& column : columns) {
        if (column.table.empty() || column.table == table) {
            continue;
        }
        if (!table.empty()) {
            throw Error(errors::NotSupported, "Writing a row failed: its fields come from several tables.",
                        kSource);
        }
        table = column.table;
    }
    if (table.empty()) {
        throw Error(errors::NotSupported, "Writing a row failed: it comes from no table.", kSource);
    }
    return table;
}

void RecordsetImpl::WriteNew() {
    const std::string table = OnlyTable();
    std::string names;
    std::string places;
    std::vector<Value> values;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!assigned[i]) {
            continue;
        }
        names += (names.empty() ? "" : ", ") + Quoted(columns[i].origin);
        places += places.empty() ? "?" : ", ?";
        values.push_back(*assigned[i]);
    }
    const auto& generated = connection->Key(table).generated;
    const std::string what = names.empty() ? " DEFAULT VALUES" : "(" + names + ") VALUES(" + places + ")";
    Run("INSERT INTO " + Quoted(table) + what, values);
    adding = false;  // it is in the table, whatever fails from here on
    rows.AppendNulls();
    position = rows.Count() - 1;
    place = Place::Row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!generated.empty() && columns[i].origin == generated) {
            rows.Set(position, i, connection->store->LastInsertedID());
        } else if (assigned[i]) {
            rows.Set(position, i, *assigned[i]);
        }
    }
    const auto& key = connection->Key(table).columns;
    const bool whole = std::all_of(key.begin(), key.end(), [&](const auto& part) {
        return std::any_of(columns.begin(), columns.end(), [&](const auto& c) { return c.origin == part; });
    });
    if (whole && !key.empty()) {
        ReadDefaults(table);
    }
}

void RecordsetImpl::ReadDefaults(const std::string& table) {
    std::string names;
    for (const auto& column : columns) {
        names += (names.empty() ? "" : ", ") + (column.origin.empty() ? "NULL" : Quoted(column.origin));
    }
    std::vector<Value> values;
    const std::string condition = KeyCondition(table, values);
    const std::string sql = "SELECT " + names + " FROM " + Quoted(table) + " WHERE " + condition;
    Statement statement = connection->AcquireOwn(sql);
    for (std::size_t i = 0; i < values.size(); ++i) {
        statement.Bind(static_cast<int>(i), values[i]);
    }
    if (statement.Step()) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!assigned[i]) {
                rows.Set(position, i, statement.Column(static_cast<int>(i)));
            }
        }
    }
    connection->ReleaseOwn(sql, std::move(statement));
}

void RecordsetImpl::DeleteRow() {
    const std::string table = OnlyTable();
    std::vector<Value> values;
    const std::string condition = KeyCondition(table, values);
    Run("DELETE FROM " + Quoted(table) + " WHERE " + condition, values);
    ForgetRow();
}

void RecordsetImpl::ForgetRow() {
    rows.Erase(position);
    place = Place::Deleted;
}

}  // namespace platform::adodb
