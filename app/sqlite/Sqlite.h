// SQLite databases and statements that close themselves and report errors as exceptions.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace app {

// Return "name" as an identifier and 'text' as a text in SQL, whatever characters but NUL they
// hold.
std::string QuotedName(std::string_view name);
std::string QuotedText(std::string_view text);

class SqliteDatabase;

// A prepared statement. Parameters and columns are numbered as SQLite does: parameters from 1,
// columns from 0. Every operation that fails throws Failure. Must not outlive its database.
class SqliteStatement {
public:
    SqliteStatement(SqliteDatabase& database, const std::string& sql);

    void BindNull(int parameter);
    void BindWhole(int parameter, std::int64_t value);
    void BindReal(int parameter, double value);

    // The bytes must stay until the next Step has returned.
    void BindText(int parameter, std::string_view utf8);
    void BindBlob(int parameter, std::string_view bytes);

    // Goes to the next row. Returns false at the end; the statement can then be bound and run
    // again.
    bool Step();

    // Gives up the rows that are left, so that the statement can be run again.
    void Reset();

    int ColumnCount() const;
    int Type(int column) const;  // SQLITE_INTEGER, ...
    std::int64_t Whole(int column) const;
    double Real(int column) const;

    // Valid until the next Step. A NULL gives an empty view.
    std::string_view Text(int column) const;
    std::string_view Blob(int column) const;

    sqlite3_stmt* Handle() const { return statement_.get(); }

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    void Check(int result) const;

    SqliteDatabase* database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

class SqliteDatabase {
public:
    // Create opens a new file, or one of this program's own, that is written without a journal: it
    // is thrown away on any failure.
    // Read opens a file that may come from anybody, and hardens SQLite against it. Change opens
    // such a file for changes, too, with the journal that it has.
    enum class Mode { Create, Read, Change };

    // subject names the file in messages. Throws Failure.
    SqliteDatabase(const std::filesystem::path& path, Mode mode, std::string subject);

    // An empty database in memory.
    explicit SqliteDatabase(std::string subject);

    void Execute(const std::string& sql);

    // Makes `target`, a new file, a copy of this database: also of what waits in a write-ahead log.
    // SQLite reads the pages. Opening the file in another way would, on POSIX systems, end the
    // locks that connections of this process have on it. Throws Failure with the subject of
    // `target`.
    void CopyTo(SqliteDatabase& target);

    // Closes the file; what can't be written is reported here at the latest.
    void Close();

    // Throws Failure with the subject and SQLite's own reason.
    [[noreturn]] void Fail() const;

    const std::string& Subject() const { return subject_; }
    sqlite3* Handle() const { return handle_.get(); }

private:
    struct CloseHandle {
        void operator()(sqlite3* handle) const;
    };

    std::string Reason() const;

    std::string subject_;
    std::string action_;  // that a failure prevents: ": can't read"; "" in memory
    std::unique_ptr<sqlite3, CloseHandle> handle_;  // null once closed
};

}  // namespace app
