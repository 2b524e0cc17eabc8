// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "platform/adodb/impl.h"
#include "platform/files/files.h"
#include "platform/store/lexer.h"

namespace platform::adodb {

namespace {

constexpr std::size_t kKept = 256;
constexpr std::size_t kLongestKept = 64 * 1024;  // bytes
constexpr char kOwnMark = '\0';                  // no statement of the dialect holds it

bool IsInternalTable(const char* table) {
    return table != nullptr && sqlite3_strnicmp(table, "sqlite_", 7) == 0;
}

bool IsKnownFunction(const char* name) {
    static constexpr std::array<const char*, 7> kFunctions = {"like", "ifnull", "count", "min",
                                                              "max",  "sum",    "avg"};
    return name != nullptr && std::any_of(kFunctions.begin(), kFunctions.end(), [&](const char* known) {
               return sqlite3_stricmp(name, known) == 0;
           });
}

/// Lets a running program read and change rows and nothing else.
int Authorize(void* context, int action, const char* first, const char* second, const char*,
              const char*) noexcept {
    if (static_cast<const ConnectionImpl*>(context)->trusted) {
        return SQLITE_OK;
    }
    switch (action) {
        case SQLITE_SELECT:
            return SQLITE_OK;
        case SQLITE_READ:
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
            return IsInternalTable(first) ? SQLITE_DENY : SQLITE_OK;
        case SQLITE_FUNCTION:
            return IsKnownFunction(second) ? SQLITE_OK : SQLITE_DENY;
        default:
            return SQLITE_DENY;
    }
}

/// Holds the authorizer off while a statement of our own is prepared.
class Trust {
  public:
    explicit Trust(bool& trusted) : trusted_(trusted) { trusted_ = true; }
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;
    ~Trust() { trusted_ = false; }

  private:
    bool& trusted_;
};

std::filesystem::path FileOf(const std::string& connectionString) {
    static constexpr std::string_view kKey = "data source=";
    const std::string_view text = connectionString;
    const bool given = text.size() > kKey.size() &&
                       sqlite3_strnicmp(text.data(), kKey.data(), static_cast<int>(kKey.size())) == 0;
    if (!given) {
        throw Error(errors::StoreFailed, "Opening the database failed: the connection string names no file.",
                    kSource);
    }
    const auto file = PathFromUtf8(text.substr(kKey.size()));
    return FindFile(file.parent_path(), Utf8FromPath(file.filename())).value_or(file);
}

}  // namespace

std::optional<Statement> StatementCache::Take(const std::string& text) {
    const auto found = index_.find(text);
    if (found == index_.end()) {
        return std::nullopt;
    }
    const auto entry = found->second;
    index_.erase(found);
    std::optional<Statement> statement(std::move(entry->second));
    entries_.erase(entry);
    return statement;
}

void StatementCache::Give(const std::string& text, Statement statement) {
    if (text.size() > kLongestKept || index_.contains(text)) {
        return;  // one is enough
    }
    entries_.emplace_front(text, std::move(statement));
    index_.emplace(entries_.front().first, entries_.begin());
    if (entries_.size() > kKept) {
        index_.erase(entries_.back().first);
        entries_.pop_back();
    }
}

void StatementCache::Clear() {
    index_.clear();
    entries_.clear();
}

Statement ConnectionImpl::Acquire(const std::string& text) {
    auto kept = cache.Take(text);
    return Readied(kept ? std::move(*kept) : Statement(*store, ToStoreSql(text)));
}

Statement ConnectionImpl::AcquireOwn(const std::string& sql) {
    auto kept = cache.Take(kOwnMark + sql);
    const Trust trust(trusted);
    return Readied(kept ? std::move(*kept) : Statement(*store, sql));
}

Statement ConnectionImpl::Readied(Statement statement) {
    const bool reads = sqlite3_stmt_readonly(statement.Handle()) != 0;
    if (reads != holding) {
        // A failure to read is for the statement itself to tell.
        holding = reads && sqlite3_step(hold->Handle()) == SQLITE_ROW;
        if (!holding) {
            hold->Reset();
        }
    }
    return statement;
}

void ConnectionImpl::Release(const std::string& text, Statement statement) {
    statement.Reset();
    cache.Give(text, std::move(statement));
}

void ConnectionImpl::ReleaseOwn(const std::string& sql, Statement statement) {
    statement.Reset();
    // The bound values are the caller's and end with it.
    sqlite3_clear_bindings(statement.Handle());
    cache.Give(kOwnMark + sql, std::move(statement));
}

const TableKey& ConnectionImpl::Key(const std::string& table) {
    const auto known = tables.find(table);
    if (known != tables.end()) {
        return known->second;
    }
    TableKey key;
    std::string type;
    const std::string sql = "PRAGMA table_info([" + table + "])";
    Statement ask = AcquireOwn(sql);
    std::map<std::int64_t, std::string> parts;
    while (ask.Step()) {
        if (ask.Integer(5) == 0) {
            continue;
        }
        parts[ask.Integer(5)] = ask.Text(1);
        type = ask.Text(2);
    }
    for (auto& part : parts) {
        key.columns.push_back(std::move(part.second));
    }
    if (key.columns.size() == 1 && sqlite3_stricmp(type.c_str(), "INTEGER") == 0) {
        key.generated = key.columns.front();
    }
    return tables.emplace(table, std::move(key)).first->second;
}

Connection::Connection() : impl_(std::make_unique<ConnectionImpl>()) {}

Connection::~Connection() {
    for (auto* recordset : std::exchange(impl_->open, {})) {
        recordset->Shut();
    }
}

void Connection::Open() {
    if (IsOpen()) {
        throw Error(errors::ObjectOpen, "Opening the database failed: the connection is open already.",
                    kSource);
    }
    const auto password = Properties.find("Jet OLEDB:Database Password");
    auto store = std::make_unique<Store>(FileOf(ConnectionString),
                                         password == Properties.end() ? std::string_view() : password->second,
                                         Store::Access::Exclusive);
    sqlite3_set_authorizer(store->Handle(), Authorize, impl_.get());
    {
        // From here on the authorizer would refuse what the store asks for itself.
        const Trust trust(impl_->trusted);
        store->CheckPages();
        impl_->hold = store->Prepare("SELECT 1 FROM sqlite_master");
    }
    impl_->store = std::move(store);
}

void Connection::Close() {
    if (!IsOpen()) {
        throw Error(errors::ObjectClosed, "Closing the database failed: it is not open.", kSource);
    }
    // Telling an observer may open and close others.
    while (!impl_->open.empty()) {
        auto* recordset = *impl_->open.begin();
        recordset->Shut();
        recordset->Notify();
    }
    impl_->cache.Clear();
    impl_->tables.clear();
    impl_->hold.reset();
    impl_->holding = false;
    const auto store = std::move(impl_->store);
    sqlite3_set_authorizer(store->Handle(), nullptr, nullptr);
    store->Close();
}

bool Connection::IsOpen() const {
    return impl_->store != nullptr;
}

void Connection::Execute(std::string_view statement) {
    if (!IsOpen()) {
        throw Error(errors::ObjectClosed, "Running a statement failed: the database is not open.", kSource);
    }
    const std::string text(statement);
    Statement run = impl_->Acquire(text);
    run.Step();
    impl_->Release(text, std::move(run));
}

}  // namespace platform::adodb
