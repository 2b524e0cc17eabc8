// Copyright (c) 2026 The Vemora developers
// SPDX-License-Identifier: MIT

#include "platform/store/store.h"

#include <sqlite3.h>

#include <cstdlib>
#include <system_error>

#include "platform/error.h"
#include "platform/text/collation.h"
#include "platform/text/like.h"

namespace platform {

namespace {

constexpr const char* kSource = "store";
constexpr const char* kOpening = "Opening the database";

/// In kilobytes: what decrypted pages may take. Decrypting a page costs far more than reading it, so that the
/// whole table of chemicals should stay decrypted between two searches. Taken as needed.
constexpr int kCacheKilobytes = 128 * 1024;

std::string Utf8(const std::filesystem::path& file) {
    const auto text = file.u8string();
    return {text.begin(), text.end()};
}

std::filesystem::path Beside(const std::filesystem::path& file, const char* suffix) {
    auto name = file;
    name += suffix;
    return name;
}

/// The file as an address that the store reads without locks and side files.
std::string ImmutableAddress(const std::filesystem::path& file) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    const auto generic = std::filesystem::absolute(file).generic_u8string();
    std::string address = "file:";
    if (generic.empty() || generic.front() != u8'/') {
        address += "///";
    }
    for (const auto unit : generic) {
        const auto byte = static_cast<unsigned char>(unit);
        if (byte == '%' || byte == '?' || byte == '#') {
            address += '%';
            address += kHex[byte >> 4];
            address += kHex[byte & 15];
        } else {
            address += static_cast<char>(byte);
        }
    }
    return address + "?immutable=1";
}

Error Describe(int code, std::string_view message, std::string_view doing) {
    const auto said = [&](long number, const std::string& what) {
        return Error(number, std::string(doing) + " failed: " + what + ".", kSource);
    };
    const auto behind = [&](std::string_view head, std::string& rest) {
        if (!message.starts_with(head)) {
            return false;
        }
        rest = message.substr(head.size());
        return true;
    };
    std::string name;
    switch (code) {
        case SQLITE_CONSTRAINT_NOTNULL:
            behind("NOT NULL constraint failed: ", name);
            return said(errors::RequiredField, "the field " + name + " must not be left Null");
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_ROWID:
            return said(errors::StoreFailed, "a row with the same key exists already");
    }
    switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return said(errors::StoreFailed, "the database is in use by another program");
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return said(errors::StoreFailed, "the database can only be read, not written");
        case SQLITE_CANTOPEN:
            return said(errors::StoreFailed, "the database or its journal beside it cannot be opened");
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return said(errors::StoreFailed, "the database file is damaged");
        case SQLITE_FULL:
            return said(errors::DiskNotReady, "the disk is full");
        case SQLITE_IOERR:
            return said(errors::DiskNotReady, "the disk cannot be read or written");
        case SQLITE_CONSTRAINT:
            return said(errors::StoreFailed, "the row breaks a rule of its table");
        case SQLITE_MISMATCH:
            return said(errors::TypeMismatch, "the key of the row is not a number");
        case SQLITE_TOOBIG:
            return said(errors::BadStatement, "the statement or a text in it is too long");
        case SQLITE_AUTH:
            return said(errors::BadStatement, "the statement does what no statement here may do");
        case SQLITE_NOMEM:
            return said(errors::StoreFailed, "there is not enough memory");
    }
    // The cipher's own word for a page that is not what was written.
    if (message.starts_with("SQL logic error")) {
        return said(errors::StoreFailed, "the database file is damaged");
    }
    if (behind("no such table: ", name)) {
        return said(errors::NoSuchTable, "there is no table " + name);
    }
    if (behind("no such column: ", name)) {
        return said(errors::NoSuchColumn, "there is no column " + name);
    }
    if (const auto at = message.find(" has no column named "); at != std::string_view::npos) {
        return said(errors::NoSuchColumn, "there is no column " + std::string(message.substr(at + 21)));
    }
    return said(errors::BadStatement, "the statement cannot be understood (" + std::string(message) + ")");
}

void LikeFunction(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    // like(pattern, text): the order in which the store hands on "text LIKE pattern".
    if (sqlite3_value_type(arguments[1]) == SQLITE_NULL) {
        return;
    }
    try {
        const auto* pattern = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
        std::unique_ptr<LikePattern> made;
        const auto view = [](sqlite3_value* value) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
            return text == nullptr
                       ? std::string_view()
                       : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
        };
        if (pattern == nullptr) {
            if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) {
                return;
            }
            made = std::make_unique<LikePattern>(view(arguments[0]));
            pattern = made.get();
        }
        sqlite3_result_int(context, pattern->Match(view(arguments[1])) ? 1 : 0);
        // Only now: the store may drop what it is handed at once.
        if (made) {
            sqlite3_set_auxdata(context, 0, made.release(), [](void* old) {
                std::unique_ptr<LikePattern>(static_cast<LikePattern*>(old));
            });
        }
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

int CollateFunction(void*, int leftBytes, const void* left, int rightBytes, const void* right) noexcept {
    return Compare({static_cast<const char*>(left), static_cast<std::size_t>(leftBytes)},
                   {static_cast<const char*>(right), static_cast<std::size_t>(rightBytes)});
}

}  // namespace

void Store::CloseHandle::operator()(sqlite3* db) const {
    sqlite3_close_v2(db);
    std::error_code ignored;
    if (!index.empty()) {
        std::filesystem::remove(index, ignored);
    }
}

Store::Store(const std::filesystem::path& file, std::string_view password, Access access) {
    std::error_code problem;
    const auto status = std::filesystem::status(file, problem);
    if (access == Access::Create) {
        if (std::filesystem::exists(status)) {
            throw Error(errors::StoreFailed, "Making the database failed: the file exists already.", kSource);
        }
    } else {
        if (!std::filesystem::exists(status)) {
            throw Error(errors::StoreFailed,
                        std::string(kOpening) + " failed: the file \"" + Utf8(file) + "\" does not exist.",
                        kSource);
        }
        // The store would take an empty file for a new database and its folder for nothing at all.
        if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, problem) == 0) {
            throw Error(errors::BadPassword, std::string(kOpening) + " failed: the file is empty.", kSource);
        }
    }
    // With an empty password the cipher would be off and the file in plain text.
    if (password.empty()) {
        throw Error(errors::BadPassword, std::string(kOpening) + " failed: no password was given.", kSource);
    }

    const auto journal = Beside(file, "-wal");
    const bool journalLeft = std::filesystem::exists(journal, problem);
    if (access == Access::ReadOnly) {
        if (journalLeft) {
            ReadThrough(file, password);
        } else {
            // No one has the file open. Read as one that never changes, it gets no side files from us.
            OpenHandle(file, SQLITE_OPEN_READONLY, true);
            SetKey(password);
            ProvePassword();
        }
        return;
    }

    // A journal that a crash left is copied into the file by whoever closes it as the last, even with a wrong
    // password. So the password is proved first by a handle that cannot write.
    if (access == Access::Exclusive && journalLeft && std::filesystem::file_size(journal, problem) > 0) {
        ReadThrough(file, password);
        db_.reset();
    }
    writes_ = true;
    OpenHandle(file, SQLITE_OPEN_READWRITE | (access == Access::Create ? SQLITE_OPEN_CREATE : 0), false);
    if (sqlite3_db_readonly(db_.get(), "main") != 0) {
        Fail(SQLITE_READONLY, kOpening);
    }
    SetKey(password);
    TakeOver();
}

Store::~Store() = default;

void Store::OpenHandle(const std::filesystem::path& file, int flags, bool immutable) {
    sqlite3* raw = nullptr;
    const std::string name = immutable ? ImmutableAddress(file) : Utf8(file);
    if (immutable) {
        flags |= SQLITE_OPEN_URI;
    }
    flags |= SQLITE_OPEN_NOMUTEX;  // one thread uses a store
    const int code = sqlite3_open_v2(name.c_str(), &raw, flags, nullptr);
    db_ = {raw, CloseHandle()};
    if (code != SQLITE_OK) {
        Fail(code, kOpening);
    }
    sqlite3_extended_result_codes(raw, 1);
    sqlite3_busy_timeout(raw, 0);
    // The schema names the built-in NOCASE, so that other tools can open the file; here it means the system's
    // own order of texts, as LIKE has its own idea of case.
    if (sqlite3_create_collation_v2(raw, "NOCASE", SQLITE_UTF8, nullptr, CollateFunction, nullptr) !=
            SQLITE_OK ||
        sqlite3_create_function_v2(raw, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, LikeFunction,
                                   nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail(sqlite3_extended_errcode(raw), kOpening);
    }
}

void Store::SetKey(std::string_view password) {
    const int code = sqlite3_key(db_.get(), password.data(), static_cast<int>(password.size()));
    if (code != SQLITE_OK) {
        Fail(code, kOpening);
    }
    // From generation 4 on the cipher has other defaults and can be told to work as generation 3 does; only
    // the page size was never the same.
    std::string version;
    {
        Statement ask(*this, "PRAGMA cipher_version");
        if (ask.Step()) {
            version = ask.Text(0);
        }
    }
    if (version.empty()) {
        throw Error(errors::StoreFailed,
                    std::string(kOpening) + " failed: the store's library has no cipher.", kSource);
    }
    if (std::atoi(version.c_str()) >= 4) {
        Execute("PRAGMA cipher_compatibility = 3");
    } else {
        asksForDamage_ = true;
    }
    Execute("PRAGMA cipher_page_size = 4096; PRAGMA kdf_iter = 64000");
}

void Store::ProvePassword() {
    const int code = sqlite3_exec(db_.get(), "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (code == SQLITE_OK) {
        // Sorting and sub-selects must not leave plain text in temporary files.
        Execute("PRAGMA temp_store = MEMORY; PRAGMA cache_size = -" + std::to_string(kCacheKilobytes));
        return;
    }
    if ((code & 0xff) == SQLITE_NOTADB) {
        throw Error(
            errors::BadPassword,
            std::string(kOpening) + " failed: the password is not that of the file, or it is no database.",
            kSource);
    }
    Fail(code, kOpening);
}

void Store::ReadThrough(const std::filesystem::path& file, std::string_view password) {
    const auto index = Beside(file, "-shm");
    std::error_code problem;
    const bool ours = !std::filesystem::exists(index, problem);
    OpenHandle(file, SQLITE_OPEN_READONLY, false);
    if (ours) {
        db_.get_deleter().index = index;
    }
    SetKey(password);
    ProvePassword();
}

void Store::TakeOver() {
    // Exclusive before the first read: the lock is then taken with it and kept, and the journal's index lies
    // in memory instead of in a third file.
    Execute("PRAGMA locking_mode = EXCLUSIVE");
    ProvePassword();
    std::string mode;
    {
        Statement journal(*this, "PRAGMA journal_mode = WAL");
        if (journal.Step()) {
            mode = journal.Text(0);
        }
    }
    if (mode != "wal") {
        throw Error(errors::StoreFailed,
                    std::string(kOpening) + " failed: no journal can be written beside it.", kSource);
    }
    Execute("PRAGMA synchronous = FULL; PRAGMA foreign_keys = OFF");
    // A file that cannot be written shall fail here and not at the first change.
    Execute("BEGIN IMMEDIATE; ROLLBACK");
}

void Store::Execute(std::string_view sql) {
    const int code = sqlite3_exec(db_.get(), std::string(sql).c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) {
        Fail(code, "Running a statement");
    }
}

void Store::CheckPages() {
    if (!asksForDamage_) {
        return;
    }
    if (!probe_) {
        probe_.emplace(*this, "SELECT 1 FROM sqlite_master WHERE rowid = -1");
    }
    probe_->Step();
    probe_->Reset();
}

std::int64_t Store::LastInsertedID() const {
    return sqlite3_last_insert_rowid(db_.get());
}

void Store::Close() {
    if (!db_) {
        return;
    }
    probe_.reset();
    int code = SQLITE_OK;
    if (writes_) {
        // Closing copies the journal into the file as well, but says nothing when that fails.
        code = sqlite3_wal_checkpoint_v2(db_.get(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    }
    const std::string message = sqlite3_errmsg(db_.get());
    // What is still running keeps the handle open behind our back.
    if (code == SQLITE_OK && sqlite3_next_stmt(db_.get(), nullptr) != nullptr) {
        code = SQLITE_BUSY;
    }
    db_.reset();
    if ((code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED) {
        throw Error(errors::StoreFailed, "Closing the database failed: a statement on it has not ended.",
                    kSource);
    }
    if (code != SQLITE_OK) {
        throw Describe(code, message, "Closing the database");
    }
}

void Store::Fail(int code, std::string_view doing) const {
    throw Describe(code, db_ ? sqlite3_errmsg(db_.get()) : "", doing);
}

}  // namespace platform
