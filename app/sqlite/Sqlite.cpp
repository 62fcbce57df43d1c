#include "app/sqlite/Sqlite.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <system_error>

namespace app {
namespace {

std::string Quoted(std::string_view text, char quote) {
    std::string quoted(1, quote);
    for (const char c : text) {
        quoted.append(c == quote ? 2 : 1, c);
    }
    return quoted + quote;
}

// A file from elsewhere may have views and triggers that call functions, and damaged pages.
void Harden(sqlite3* handle) {
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_exec(handle, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr);
}

}  // namespace

std::string QuotedName(std::string_view name) {
    return Quoted(name, '"');
}

std::string QuotedText(std::string_view text) {
    return Quoted(text, '\'');
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, const std::string& sql)
    : database_(&database) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(database.Handle(), sql.data(),
                                          static_cast<int>(sql.size()), &statement, nullptr);
    statement_.reset(statement);
    Check(result);
}

void SqliteStatement::Check(int result) const {
    if (result != SQLITE_OK) {
        database_->Fail();
    }
}

void SqliteStatement::BindNull(int parameter) {
    Check(sqlite3_bind_null(statement_.get(), parameter));
}

void SqliteStatement::BindWhole(int parameter, std::int64_t value) {
    Check(sqlite3_bind_int64(statement_.get(), parameter, value));
}

void SqliteStatement::BindReal(int parameter, double value) {
    Check(sqlite3_bind_double(statement_.get(), parameter, value));
}

void SqliteStatement::BindText(int parameter, std::string_view utf8) {
    // A null pointer would bind NULL.
    Check(sqlite3_bind_text64(statement_.get(), parameter, utf8.empty() ? "" : utf8.data(),
                              utf8.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void SqliteStatement::BindBlob(int parameter, std::string_view bytes) {
    Check(sqlite3_bind_blob64(statement_.get(), parameter, bytes.empty() ? "" : bytes.data(),
                              bytes.size(), SQLITE_STATIC));
}

bool SqliteStatement::Step() {
    switch (sqlite3_step(statement_.get())) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        Reset();
        return false;
    default:
        database_->Fail();
    }
}

void SqliteStatement::Reset() {
    sqlite3_reset(statement_.get());  // repeats the error of Step, which has been thrown
}

int SqliteStatement::ColumnCount() const {
    return sqlite3_column_count(statement_.get());
}

int SqliteStatement::Type(int column) const {
    return sqlite3_column_type(statement_.get(), column);
}

std::int64_t SqliteStatement::Whole(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

double SqliteStatement::Real(int column) const {
    return sqlite3_column_double(statement_.get(), column);
}

std::string_view SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return text != nullptr ? std::string_view(text, size) : std::string_view();
}

std::string_view SqliteStatement::Blob(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes != nullptr ? std::string_view(bytes, size) : std::string_view();
}

void SqliteDatabase::CloseHandle::operator()(sqlite3* handle) const {
    sqlite3_close_v2(handle);
}

SqliteDatabase::SqliteDatabase(const std::filesystem::path& path, Mode mode, std::string subject)
    : subject_(std::move(subject)), action_(mode == Mode::Read ? ": can't read" : ": can't write") {
    const int flags = mode == Mode::Create   ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE
                      : mode == Mode::Change ? SQLITE_OPEN_READWRITE
                                             : SQLITE_OPEN_READONLY;
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(ArgumentFromPath(path).c_str(), &handle, flags, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) {
        Fail();
    }
    if (mode != Mode::Create) {
        Harden(handle);
        return;
    }
    Execute("PRAGMA journal_mode = OFF");
    Execute("PRAGMA synchronous = OFF");
    Execute("PRAGMA locking_mode = EXCLUSIVE");
}

SqliteDatabase::SqliteDatabase(std::string subject) : subject_(std::move(subject)) {
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(":memory:", &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK) {
        Fail();
    }
}

void SqliteDatabase::Execute(const std::string& sql) {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        Fail();
    }
}

void SqliteDatabase::CopyTo(SqliteDatabase& target) {
    sqlite3_backup* const backup =
        sqlite3_backup_init(target.handle_.get(), "main", handle_.get(), "main");
    if (backup == nullptr) {
        target.Fail();
    }
    constexpr int kAllPages = -1;
    sqlite3_backup_step(backup, kAllPages);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) {
        target.Fail();
    }
}

void SqliteDatabase::Close() {
    if (sqlite3_close(handle_.get()) != SQLITE_OK) {
        Fail();
    }
    static_cast<void>(handle_.release());
}

void SqliteDatabase::Fail() const {
    throw Failure(subject_ + action_ + ": " + Reason());
}

// SQLite's own words, but the system's where it is the disk.
std::string SqliteDatabase::Reason() const {
    if (handle_ == nullptr) {
        return sqlite3_errstr(SQLITE_NOMEM);
    }
    const int code = sqlite3_errcode(handle_.get());
    if (code == SQLITE_FULL) {
        return std::strerror(ENOSPC);
    }
    const std::string reason = sqlite3_errmsg(handle_.get());
    const int systemError = sqlite3_system_errno(handle_.get());
    return code == SQLITE_IOERR && systemError != 0
               ? reason + ": " + std::system_category().message(systemError)
               : reason;
}

}  // namespace app
