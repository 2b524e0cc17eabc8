// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <charconv>

#include "platform/adodb/impl.h"

namespace platform::adodb {

namespace {

RecordsetImpl& Need(const std::unique_ptr<RecordsetImpl>& impl) {
    if (!impl) {
        throw Error(errors::NoObject, "Using a record set failed: it was handed to someone else.", kSource);
    }
    return *impl;
}

[[noreturn]] void Fail(long number, std::string_view doing, std::string_view why) {
    throw Error(number, std::string(doing) + " failed: " + std::string(why) + ".", kSource);
}

/// A stream has no row behind it and does not know its last one.
void CheckScrollable(const RecordsetImpl& rs, std::string_view doing) {
    rs.CheckOpen(doing);
    if (rs.stream) {
        Fail(errors::NotAllowedNow, doing, "the record set only goes forward");
    }
}

struct Criterion {
    std::string_view name;
    std::int64_t number;
};

/// "ID = 12".
Criterion ParseCriterion(std::string_view text) {
    const auto trim = [](std::string_view part) {
        const auto first = part.find_first_not_of(' ');
        if (first == std::string_view::npos) {
            return std::string_view();
        }
        return part.substr(first, part.find_last_not_of(' ') - first + 1);
    };
    const auto equals = text.find('=');
    Criterion criterion{trim(text.substr(0, equals)), 0};
    const auto digits = equals == std::string_view::npos ? std::string_view() : trim(text.substr(equals + 1));
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), criterion.number);
    if (criterion.name.empty() || digits.empty() || read.ec != std::errc() ||
        read.ptr != digits.data() + digits.size()) {
        Fail(errors::BadArgument, "Finding a row", "the criterion is not a field, \"=\" and a number");
    }
    return criterion;
}

}  // namespace

Value Field::Get() const {
    return rs_->Get(static_cast<std::size_t>(column_));
}

Field& Field::operator=(const Value& value) {
    rs_->Set(static_cast<std::size_t>(column_), value);
    return *this;
}

Recordset::Recordset() : impl_(std::make_unique<RecordsetImpl>()) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

void Recordset::Open(std::string_view source, Connection& connection, int cursorType, int lockType) {
    if (!impl_) {
        impl_ = std::make_unique<RecordsetImpl>();
    }
    auto& rs = *impl_;
    if (rs.connection != nullptr) {
        Fail(errors::ObjectOpen, "Opening a record set", "it is open already");
    }
    if (!connection.IsOpen()) {
        Fail(errors::ConnectionClosed, "Opening a record set", "the database is not open");
    }
    rs.source = source;
    rs.lockType = lockType;
    rs.stream = cursorType == adOpenForwardOnly && lockType == adLockReadOnly;
    rs.connection = &connection.Impl();
    try {
        rs.Load();
    } catch (...) {
        rs.Shut();
        throw;
    }
    rs.Notify();
}

bool Recordset::IsOpen() const {
    return impl_ && impl_->connection != nullptr;
}

void Recordset::Close() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Closing a record set");
    if (rs.Assigned()) {
        Fail(errors::NotAllowedNow, "Closing a record set", "a row in it is not saved yet");
    }
    rs.Shut();
    rs.Notify();
}

bool Recordset::Eof() const {
    const auto& rs = Need(impl_);
    rs.CheckOpen("Testing for the end of a record set");
    return rs.AtEnd();
}

bool Recordset::Bof() const {
    const auto& rs = Need(impl_);
    rs.CheckOpen("Testing for the beginning of a record set");
    const bool empty = rs.AtEnd() && (rs.stream ? rs.position == 0 : rs.rows.Count() == 0);
    return (rs.place == RecordsetImpl::Place::Before && !rs.adding) || empty;
}

Field Recordset::operator[](std::string_view name) {
    auto& rs = Need(impl_);
    rs.CheckOpen("Reading a field");
    return Field(rs, static_cast<int>(rs.Find(name)));
}

std::vector<std::string> Recordset::FieldNames() const {
    const auto& rs = Need(impl_);
    rs.CheckOpen("Listing the fields");
    std::vector<std::string> names;
    for (const auto& column : rs.columns) {
        names.push_back(column.name);
    }
    return names;
}

void Recordset::MoveFirst() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Moving to the first row");
    rs.Settle();
    if (rs.stream) {
        if (rs.place != RecordsetImpl::Place::Row || rs.position != 0) {
            rs.Load();
        }
    } else {
        rs.position = 0;
        rs.place = rs.rows.Count() > 0 ? RecordsetImpl::Place::Row : RecordsetImpl::Place::After;
    }
    if (rs.place == RecordsetImpl::Place::After) {
        RecordsetImpl::NoCurrent("Moving to the first row");
    }
    rs.Notify();
}

void Recordset::MoveNext() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Moving to the next row");
    rs.Settle();
    if (rs.place == RecordsetImpl::Place::After) {
        RecordsetImpl::NoCurrent("Moving to the next row");
    }
    rs.NextRow();
    rs.Notify();
}

void Recordset::MoveLast() {
    auto& rs = Need(impl_);
    CheckScrollable(rs, "Moving to the last row");
    rs.Settle();
    if (rs.rows.Count() == 0) {
        RecordsetImpl::NoCurrent("Moving to the last row");
    }
    rs.position = rs.rows.Count() - 1;
    rs.place = RecordsetImpl::Place::Row;
    rs.Notify();
}

void Recordset::MovePrevious() {
    auto& rs = Need(impl_);
    CheckScrollable(rs, "Moving to the previous row");
    rs.Settle();
    if (rs.place == RecordsetImpl::Place::Before || rs.rows.Count() == 0) {
        RecordsetImpl::NoCurrent("Moving to the previous row");
    }
    const auto from = rs.place == RecordsetImpl::Place::After ? rs.rows.Count() : rs.position;
    rs.place = from == 0 ? RecordsetImpl::Place::Before : RecordsetImpl::Place::Row;
    rs.position = from == 0 ? 0 : from - 1;
    rs.Notify();
}

void Recordset::AddNew() {
    auto& rs = Need(impl_);
    rs.CheckWritable("Adding a row");
    rs.Settle();
    rs.placeBefore = rs.place;
    rs.adding = true;
    rs.assigned.assign(rs.columns.size(), std::nullopt);
    rs.Notify();
}

void Recordset::Update() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Saving a row");
    if (!rs.Pending()) {
        return;
    }
    try {
        rs.Save();
    } catch (const Error&) {
        rs.assigned.assign(rs.columns.size(), std::nullopt);
        throw;
    }
}

void Recordset::CancelUpdate() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Dropping a change");
    if (!rs.Pending()) {
        return;
    }
    rs.Drop();
    rs.Notify();
}

void Recordset::Cancel() {
    Need(impl_).CheckOpen("Cancelling");
}

void Recordset::Delete() {
    auto& rs = Need(impl_);
    rs.CheckWritable("Deleting a row");
    if (rs.adding) {
        rs.Drop();
        rs.Notify();
        return;
    }
    if (rs.place != RecordsetImpl::Place::Row) {
        RecordsetImpl::NoCurrent("Deleting a row");
    }
    rs.Drop();
    rs.DeleteRow();
}

void Recordset::Find(std::string_view criterion) {
    auto& rs = Need(impl_);
    rs.CheckOpen("Finding a row");
    const auto wanted = ParseCriterion(criterion);
    const auto column = rs.Find(wanted.name);
    rs.Settle();
    if (rs.place != RecordsetImpl::Place::Row) {
        RecordsetImpl::NoCurrent("Finding a row");
    }
    while (rs.place == RecordsetImpl::Place::Row && rs.Get(column) != Value(wanted.number)) {
        rs.NextRow();
    }
    rs.Notify();
}

void Recordset::Requery() {
    auto& rs = Need(impl_);
    rs.CheckOpen("Asking anew");
    if (rs.Assigned()) {
        Fail(errors::NotAllowedNow, "Asking anew", "a row is not saved yet");
    }
    try {
        rs.Load();
    } catch (...) {
        rs.Shut();
        throw;
    }
    rs.Notify();
}

std::shared_ptr<void> Recordset::Subscribe(std::function<void()> moved) {
    auto handle = std::make_shared<std::function<void()>>(std::move(moved));
    Need(impl_).observers.push_back(handle);
    return handle;
}

}  // namespace platform::adodb
