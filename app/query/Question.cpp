#include "app/query/Question.h"

#include "app/base/DisplayWidth.h"
#include "app/base/Errors.h"
#include "app/base/Utf8.h"
#include "app/query/ColumnNames.h"
#include "app/sqlite/Sqlite.h"

#include <sqlite3.h>

#include <charconv>
#include <cstring>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace app {
namespace {

constexpr const char* kTable = "feature";
constexpr const char* kOption = "--where";

bool IsTextKind(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::SmallInt:
    case ColumnKind::LargeInt:
    case ColumnKind::Decimal:
    case ColumnKind::Float:
    case ColumnKind::Logical:
        return false;
    default:
        return true;
    }
}

// What the table's one row is made of. SQLite holds a pointer to it.
struct Row {
    std::span<const LayerColumn> columns;
    const Feature* feature = nullptr;
};

struct Table : sqlite3_vtab {
    Row* row = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
    bool isAtEnd = false;
};

// The table as SQLite sees it. Types decide how SQLite compares: a number column with the text '12'
// as with 12, a text column with 12 as with '12'.
std::string Declaration(std::span<const LayerColumn> columns) {
    std::string sql = "CREATE TABLE feature(";
    std::set<std::u32string> taken;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        // Of names that differ in case only, SQL reaches the first.
        const bool isNew = taken.insert(FoldedCase(columns[i].name)).second;
        const std::string name =
            isNew ? columns[i].name : columns[i].name + "\x01" + std::to_string(i);
        sql += (i == 0 ? "" : ", ") + QuotedName(name) +
               (IsTextKind(columns[i].kind) ? " TEXT" : " NUMERIC");
    }
    return sql + (columns.empty() ? "\"\x01\")" : ")");
}

int Connect(sqlite3* database, void* row, int, const char* const*, sqlite3_vtab** table, char**) {
    auto made = std::make_unique<Table>();
    made->row = static_cast<Row*>(row);
    const int result = sqlite3_declare_vtab(database, Declaration(made->row->columns).c_str());
    if (result == SQLITE_OK) {
        *table = made.release();
    }
    return result;
}

int Disconnect(sqlite3_vtab* table) {
    delete static_cast<Table*>(table);
    return SQLITE_OK;
}

int BestIndex(sqlite3_vtab*, sqlite3_index_info* plan) {
    plan->estimatedCost = 1.0;
    plan->estimatedRows = 1;
    return SQLITE_OK;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    *cursor = std::make_unique<Cursor>().release();
    return SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
    delete static_cast<Cursor*>(cursor);
    return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value**) {
    static_cast<Cursor*>(cursor)->isAtEnd = false;
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    static_cast<Cursor*>(cursor)->isAtEnd = true;
    return SQLITE_OK;
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
    return static_cast<Cursor*>(cursor)->isAtEnd ? 1 : 0;
}

// Numbers with more digits than a double holds are texts, but compare as numbers.
void AnswerText(sqlite3_context* context, const std::string& text, ColumnKind kind) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    if (!IsTextKind(kind) && parsed.ec == std::errc() && parsed.ptr == end) {
        sqlite3_result_double(context, number);
        return;
    }
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

int ColumnValue(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    const Row& row = *static_cast<Table*>(cursor->pVtab)->row;
    const auto at = static_cast<std::size_t>(column);
    if (at >= row.feature->values.size()) {
        return SQLITE_OK;  // null
    }
    const Value& value = row.feature->values[at];
    if (const auto* text = std::get_if<std::string>(&value)) {
        AnswerText(context, *text, row.columns[at].kind);
    } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        sqlite3_result_int64(context, *whole);
    } else if (const auto* real = std::get_if<double>(&value)) {
        sqlite3_result_double(context, *real);
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        sqlite3_result_int(context, *truth ? 1 : 0);
    }
    return SQLITE_OK;
}

int RowNumber(sqlite3_vtab_cursor* cursor, sqlite3_int64* number) {
    *number = static_cast<sqlite3_int64>(static_cast<Table*>(cursor->pVtab)->row->feature->number);
    return SQLITE_OK;
}

// A table that is there without being made, and has one row.
constexpr sqlite3_module kModule = {.iVersion = 0,
                                    .xCreate = nullptr,
                                    .xConnect = Connect,
                                    .xBestIndex = BestIndex,
                                    .xDisconnect = Disconnect,
                                    .xDestroy = nullptr,
                                    .xOpen = Open,
                                    .xClose = Close,
                                    .xFilter = Filter,
                                    .xNext = Next,
                                    .xEof = IsAtEnd,
                                    .xColumn = ColumnValue,
                                    .xRowid = RowNumber,
                                    .xUpdate = nullptr,
                                    .xBegin = nullptr,
                                    .xSync = nullptr,
                                    .xCommit = nullptr,
                                    .xRollback = nullptr,
                                    .xFindFunction = nullptr,
                                    .xRename = nullptr,
                                    .xSavepoint = nullptr,
                                    .xRelease = nullptr,
                                    .xRollbackTo = nullptr,
                                    .xShadowName = nullptr};

// Allows expressions over the one table, and nothing else.
int Authorize(void*, int action, const char* first, const char* second, const char*, const char*) {
    switch (action) {
    case SQLITE_SELECT:
        return SQLITE_OK;
    case SQLITE_READ:
        return std::strcmp(first, kTable) == 0 ? SQLITE_OK : SQLITE_DENY;
    case SQLITE_FUNCTION:
        return std::strcmp(second, "load_extension") == 0 ? SQLITE_DENY : SQLITE_OK;
    default:
        return SQLITE_DENY;
    }
}

// The expression on a line of its own, with a caret below the byte.
std::string WithCaret(std::string expression, std::size_t offset) {
    for (char& c : expression) {
        c = static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    const std::string_view before = std::string_view(expression).substr(0, offset);
    return "\n  " + expression + "\n  " + std::string(DisplayWidth(before), ' ') + "^";
}

// The name at the beginning of the text, without its quotes.
std::string NameAt(std::string_view text) {
    if (text.starts_with('"') || text.starts_with('[') || text.starts_with('`')) {
        const char closing = text.front() == '[' ? ']' : text.front();
        return std::string(text.substr(1, text.find(closing, 1) - 1));
    }
    constexpr std::string_view kEnds = " \t\r\n()+-*/%<>=!,.;|&~'\"";
    return std::string(text.substr(0, text.find_first_of(kEnds)));
}

}  // namespace

class Question::Evaluation {
public:
    Evaluation(const std::string& expression, std::span<const LayerColumn> columns,
               const std::string& subject)
        : expression_(expression), subject_(subject),
          columns_(columns.begin(), columns.end()), row_{columns_},
          database_(subject + ": " + kOption) {
        if (expression.find_first_not_of(" \t\r\n") == std::string::npos) {
            throw UsageError(std::string(kOption) + " needs an expression, such as \"pop > 1000\"");
        }
        sqlite3* const handle = database_.Handle();
        sqlite3_create_module_v2(handle, kTable, &kModule, &row_, nullptr);
        SqliteStatement(database_, "SELECT 1 FROM feature");  // makes the table, while it may
        sqlite3_set_authorizer(handle, Authorize, nullptr);
        // A name in double quotes that no column has would else become a text.
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        constexpr int kLongestText = 100'000'000;
        sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestText);
        const std::string select = "SELECT 1 FROM feature WHERE ";
        // First as it stands: in brackets, a fault at its end would be found behind it.
        static_cast<void>(Prepared(select, expression));
        statement_.emplace(Prepared(select + "(", expression + "\n)"));
        if (sqlite3_bind_parameter_count(statement_->Handle()) > 0) {
            throw UsageError(std::string(kOption) + ": a parameter has no value here" +
                             WithCaret(expression, expression.find_first_of("?:@$")));
        }
    }

    bool Holds(const Feature& feature) {
        row_.feature = &feature;
        const bool holds = statement_->Step();
        statement_->Reset();
        return holds;
    }

private:
    SqliteStatement Prepared(const std::string& before, const std::string& text) {
        try {
            return {database_, before + text};
        } catch (const Failure&) {
            Explain(sqlite3_errmsg(database_.Handle()),
                    sqlite3_error_offset(database_.Handle()) - static_cast<int>(before.size()));
        }
    }

    [[noreturn]] void Explain(std::string_view reason, int errorOffset) const {
        const bool isWithin =
            errorOffset >= 0 && static_cast<std::size_t>(errorOffset) < expression_.size();
        const std::size_t offset =
            isWithin ? static_cast<std::size_t>(errorOffset) : expression_.size();
        constexpr std::string_view kNoColumn = "no such column: ";
        if (reason.starts_with(kNoColumn)) {
            ExplainColumn(std::string(reason.substr(kNoColumn.size())), offset, isWithin);
        }
        if (reason == "incomplete input") {
            reason = "the expression ends too early";
        } else if (reason == "not authorized") {
            reason = "only the columns of the layer and functions of values may be used";
        }
        throw UsageError(std::string(kOption) + ": " + std::string(reason) +
                         WithCaret(expression_, offset));
    }

    [[noreturn]] void ExplainColumn(std::string name, std::size_t offset, bool isWithin) const {
        const std::string_view rest = std::string_view(expression_).substr(offset);
        name = isWithin ? NameAt(rest) : name;
        std::string problem = NoSuchColumn(columns_, name);
        const bool isNameMeant = problem.find("did you mean") != std::string::npos;
        if (!isNameMeant || rest.starts_with('"')) {
            problem += "; a text stands in single quotes: '" + name + "'";
        }
        throw Failure(subject_ + ": " + kOption + ": " + problem +
                      (isWithin ? WithCaret(expression_, offset) : ""));
    }

    std::string expression_;
    std::string subject_;
    std::vector<LayerColumn> columns_;
    Row row_;
    SqliteDatabase database_;
    std::optional<SqliteStatement> statement_;
};

Question::Question(const std::string& expression, std::span<const LayerColumn> columns,
                   const std::string& subject)
    : evaluation_(std::make_unique<Evaluation>(expression, columns, subject)) {}

Question::~Question() = default;
Question::Question(Question&&) noexcept = default;
Question& Question::operator=(Question&&) noexcept = default;

bool Question::Holds(const Feature& feature) {
    return evaluation_->Holds(feature);
}

}  // namespace app
