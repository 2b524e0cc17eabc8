// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"
#include "platform/store/value.h"

namespace platform::adodb {

enum CursorLocation { adUseServer = 2, adUseClient = 3 };
enum ConnectMode { adModeUnknown = 0, adModeReadWrite = 3, adModeShareExclusive = 12 };
enum CursorType { adOpenForwardOnly = 0, adOpenKeyset = 1, adOpenDynamic = 2, adOpenStatic = 3 };
enum LockType { adLockReadOnly = 1, adLockOptimistic = 3 };

class Recordset;
struct ConnectionImpl;
struct RecordsetImpl;

/// A connection to one password-protected database file. Statements are given in the system's own dialect
/// (see lexer.h) and run under an authorizer that lets them read and change rows and nothing else.
class Connection {
  public:
    Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    /// Either way a set has its rows to itself: as many as its type holds.
    int CursorLocation = adUseServer;
    /// Whatever it says, the file is locked against every other program from Open to Close.
    int Mode = adModeUnknown;
    std::string Provider;
    /// "Data Source=" and the path of the file, UTF-8.
    std::string ConnectionString;
    /// Named properties; "Jet OLEDB:Database Password" is the password of the file.
    std::map<std::string, std::string> Properties;

    /// Errors: -2147467259, -2147217843 (see store.h); 3705 when it is open already.
    void Open();
    /// Closes every record set still open on it, then the file. Error 3704 when it isn't open.
    void Close();
    bool IsOpen() const;
    /// Runs one statement that changes rows. An empty text is refused like any other bad statement.
    void Execute(std::string_view statement);

    ConnectionImpl& Impl() { return *impl_; }

  private:
    std::unique_ptr<ConnectionImpl> impl_;
};

/// A field of the current row of a record set: read with the conversions of Value, written by assignment.
class Field {
  public:
    Value Get() const;
    operator Value() const { return Get(); }
    bool IsNull() const { return Get().IsNull(); }
    std::string Text() const { return Get().Text(); }
    std::string Joined() const { return Get().Joined(); }
    std::int32_t Long() const { return Get().Long(); }
    bool Bool() const { return Get().Bool(); }
    /// Errors: 3251 on a read-only record set or a computed column, 3021 with no current record.
    Field& operator=(const Value& value);
    /// Copies what the other field holds, not the reference to it.
    Field& operator=(const Field& other) { return this == &other ? *this : *this = other.Get(); }
    Field(const Field&) = default;

  private:
    friend class Recordset;
    Field(RecordsetImpl& rs, int column) : rs_(&rs), column_(column) {}
    RecordsetImpl* rs_;
    int column_;
};

/// The rows of one statement.
///
/// Cursor type 0 with lock type 1 is a forward-only stream over the running statement: one row in memory,
/// and the statement one row ahead of it, so that on its last row nothing runs any more. Every other pair
/// holds all its rows. MovePrevious and MoveLast fail on a stream (error 3219). A changed row is written back
/// through each column's origin, so that a column read under an alias writes the column it came from.
class Recordset {
  public:
    Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();  // closes; a pending row is dropped

    /// Opens and stands on the first row, or at the end when there is none.
    /// Errors: 3705 when open already, 3709 when the connection isn't open, those of the statement.
    void Open(std::string_view source, Connection& connection, int cursorType = adOpenForwardOnly,
              int lockType = adLockReadOnly);
    bool IsOpen() const;
    /// Drops a pending row in which nothing was assigned. Errors: 3704 when it isn't open, 3219 while a field
    /// is assigned and not saved.
    void Close();
    /// Neither holds while a new row is pending. Error 3704 when it isn't open.
    bool Eof() const;
    bool Bof() const;

    /// A field by name, compared without regard to case. Errors: 3704, 3265 no such field. Reading with no
    /// current record: 3021.
    Field operator[](std::string_view name);
    std::vector<std::string> FieldNames() const;

    /// Every move off a pending or edited row saves it first if a field was assigned, and drops it if none.
    /// MoveFirst and MoveLast of an empty set and MoveNext at the end: error 3021. MoveFirst on a stream runs
    /// the statement anew when it isn't on its first row.
    void MoveFirst();
    void MoveNext();
    void MoveLast();
    void MovePrevious();

    /// Starts a new row, which becomes the current one with all fields Null.
    void AddNew();
    /// Writes the assigned fields of the current row; without a pending change it does nothing. The new row
    /// stays current, its generated key readable where the statement has it. After a failure what was
    /// assigned is forgotten, so that it holds up no later move or Close; a new row stays pending, and a row
    /// that is gone from its table counts as deleted here, too.
    void Update();
    /// Drops a pending row or edit; the row current before AddNew is current again.
    void CancelUpdate();
    /// Stops nothing here, since every call has ended when it returns; a pending row stays pending.
    void Cancel();
    void Delete();
    /// "ID = " and a number: looks forward from the current row, ends at the end when nothing is found.
    /// Error 3021 with no current record, 3001 for any other criterion.
    void Find(std::string_view criterion);
    /// Close, with its errors, and open again with the same source.
    void Requery();

    /// Called after each change of the current row (open, move, requery, close); what controls are bound by.
    /// The returned handle ends the subscription when it is destroyed.
    std::shared_ptr<void> Subscribe(std::function<void()> moved);

  private:
    std::unique_ptr<RecordsetImpl> impl_;
};

}  // namespace platform::adodb
