#include "data/sqlite/sqlite_provider.h"

#include <sqlite3.h>

#include <chrono>
#include <limits>
#include <utility>

#include "data/errors.h"
#include "runtime/error.h"

namespace telvaro::data {

namespace {

constexpr StringView kName = u"SQLite";

// One open database, shared by the session and the cursors over it, so a
// cursor never outlives the database it reads.
class Database {
public:
    explicit Database(sqlite3* db) : db_(db) {
        // Checked every few thousand steps of the engine's program.
        sqlite3_progress_handler(db_, 4000, &Database::pastDeadline, this);
    }
    ~Database() { sqlite3_close_v2(db_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    sqlite3* get() const { return db_; }
    String message() const { return fromUtf8(sqlite3_errmsg(db_)); }

    void setTimeout(std::chrono::milliseconds timeout) { timeout_ = timeout; }
    // Starts the time of one piece of work (preparing and stepping).
    void startClock() { deadline_ = std::chrono::steady_clock::now() + timeout_; }
    bool timedOut() const { return timeout_.count() > 0 && std::chrono::steady_clock::now() >= deadline_; }

    // The error of the last call: the timeout when it was the timeout that
    // stopped the engine, else the database's message.
    [[noreturn]] void raiseLast(StringView sql) const {
        if (sqlite3_errcode(db_) == SQLITE_INTERRUPT && timedOut())
            raiseProviderError(ado::QueryTimeout, kName, adoDescription(ado::QueryTimeout), sql);
        raiseProviderError(ado::ErrorsInCommand, kName, message(), sql);
    }

private:
    static int pastDeadline(void* self) { return static_cast<Database*>(self)->timedOut() ? 1 : 0; }

    sqlite3* db_;
    std::chrono::milliseconds timeout_{30000};
    std::chrono::steady_clock::time_point deadline_ = std::chrono::steady_clock::time_point::max();
};

class Statement {
public:
    Statement() = default;
    ~Statement() { reset(); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    Statement(Statement&& other) noexcept : stmt_(std::exchange(other.stmt_, nullptr)) {}
    Statement& operator=(Statement&& other) noexcept {
        if (this != &other) {
            reset();
            stmt_ = std::exchange(other.stmt_, nullptr);
        }
        return *this;
    }
    void reset(sqlite3_stmt* stmt = nullptr) {
        if (stmt_) sqlite3_finalize(stmt_);
        stmt_ = stmt;
    }
    sqlite3_stmt* get() const { return stmt_; }
    explicit operator bool() const { return stmt_ != nullptr; }

private:
    sqlite3_stmt* stmt_ = nullptr;
};

DataType declaredType(const char* declared) {
    if (!declared) return DataType::Empty;
    std::string d;
    for (const char* p = declared; *p; ++p) d += static_cast<char>(*p >= 'a' && *p <= 'z' ? *p - 32 : *p);
    auto has = [&](const char* part) { return d.find(part) != std::string::npos; };
    // The engine's own affinity rules, in its order.
    if (has("INT")) return DataType::Integer;
    if (has("CHAR") || has("CLOB") || has("TEXT")) return DataType::VarWChar;
    if (d.empty()) return DataType::Empty;
    if (has("BLOB")) return DataType::LongVarBinary;
    if (has("REAL") || has("FLOA") || has("DOUB")) return DataType::Double;
    return DataType::Empty;  // numeric affinity: decided by the values
}

DataType typeOfValue(int storage) {
    switch (storage) {
        case SQLITE_INTEGER: return DataType::Integer;
        case SQLITE_FLOAT: return DataType::Double;
        case SQLITE_BLOB: return DataType::LongVarBinary;
        default: return DataType::VarWChar;
    }
}

class SqliteCursor : public ProviderCursor {
public:
    SqliteCursor(std::shared_ptr<Database> db, Statement stmt, String sql, bool hasRow, std::int32_t affected)
        : db_(std::move(db)),
          stmt_(std::move(stmt)),
          sql_(std::move(sql)),
          affected_(affected),
          pending_(hasRow),
          done_(!hasRow) {
        sqlite3_stmt* s = stmt_.get();
        const int count = sqlite3_column_count(s);
        for (int i = 0; i < count; ++i) {
            ColumnInfo column;
            const void* name = sqlite3_column_name16(s, i);
            if (!name) raise(err::OutOfMemory);
            column.name = String(static_cast<const char16_t*>(name));
            column.type = declaredType(sqlite3_column_decltype(s, i));
            if (column.type == DataType::Empty)
                column.type = hasRow ? typeOfValue(sqlite3_column_type(s, i)) : DataType::VarWChar;
            columns_.push_back(std::move(column));
        }
        if (count == 0) finish();
    }

    const std::vector<ColumnInfo>& columns() const override { return columns_; }
    std::int32_t recordsAffected() const override { return affected_; }

    bool fetch(RowStore& rows) override {
        if (done_) return false;
        if (!pending_) {
            db_->startClock();
            const int rc = sqlite3_step(stmt_.get());
            if (rc == SQLITE_DONE) {
                finish();
                return false;
            }
            if (rc != SQLITE_ROW) {
                // The error is read before the statement is finalized.
                try {
                    db_->raiseLast(sql_);
                } catch (...) {
                    finish();
                    throw;
                }
            }
        }
        pending_ = false;
        readRow(rows);
        return true;
    }

private:
    void finish() {
        done_ = true;
        pending_ = false;
        stmt_.reset();
    }

    void readRow(RowStore& rows) {
        sqlite3_stmt* s = stmt_.get();
        rows.addRow();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int c = static_cast<int>(i);
            switch (sqlite3_column_type(s, c)) {
                case SQLITE_INTEGER: {
                    const sqlite3_int64 v = sqlite3_column_int64(s, c);
                    if (v >= std::numeric_limits<std::int32_t>::min() && v <= std::numeric_limits<std::int32_t>::max())
                        rows.setLong(i, static_cast<std::int32_t>(v));
                    else
                        rows.setDouble(i, static_cast<double>(v));
                    break;
                }
                case SQLITE_FLOAT: rows.setDouble(i, sqlite3_column_double(s, c)); break;
                case SQLITE_TEXT: {
                    // Kept in the database's own UTF-8.
                    const unsigned char* text = sqlite3_column_text(s, c);
                    if (!text) raise(err::OutOfMemory);
                    const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes(s, c));
                    rows.setUtf8Text(i, std::string_view(reinterpret_cast<const char*>(text), bytes));
                    break;
                }
                case SQLITE_BLOB: {
                    const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_column_blob(s, c));
                    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(s, c));
                    rows.setBytes(i, std::span<const std::uint8_t>(bytes, bytes ? size : 0));
                    break;
                }
                default: rows.setNull(i); break;
            }
        }
    }

    std::shared_ptr<Database> db_;
    Statement stmt_;
    String sql_;
    std::vector<ColumnInfo> columns_;
    std::int32_t affected_;
    bool pending_;
    bool done_;
};

class SqliteSession : public ProviderSession {
public:
    explicit SqliteSession(std::shared_ptr<Database> db) : db_(std::move(db)) {}

    std::unique_ptr<ProviderCursor> execute(StringView sql) override {
        // A text of several statements runs them in order; the rows are
        // those of the last one.
        const std::string text = toUtf8(sql);
        const char* rest = text.c_str();
        Statement last;
        bool hasRow = false;
        std::int32_t affected = -1;
        db_->startClock();
        while (*rest) {
            sqlite3_stmt* raw = nullptr;
            const char* tail = nullptr;
            if (sqlite3_prepare_v2(db_->get(), rest, -1, &raw, &tail) != SQLITE_OK) {
                sqlite3_finalize(raw);
                db_->raiseLast(sql);
            }
            rest = tail;
            if (!raw) continue;  // only blanks or a comment
            last.reset(raw);
            const int rc = sqlite3_step(raw);
            if (rc != SQLITE_ROW && rc != SQLITE_DONE) {
                try {
                    db_->raiseLast(sql);
                } catch (...) {
                    last.reset();
                    throw;
                }
            }
            hasRow = rc == SQLITE_ROW;
            // Only a statement that writes counts rows; a query is -1.
            affected = !hasRow && sqlite3_column_count(raw) == 0 && !sqlite3_stmt_readonly(raw)
                           ? static_cast<std::int32_t>(sqlite3_changes(db_->get()))
                           : -1;
        }
        if (!last) raiseProviderError(ado::ErrorsInCommand, kName, u"The command text holds no statement.", sql);
        return std::make_unique<SqliteCursor>(db_, std::move(last), String(sql), hasRow, affected);
    }

    StringView name() const override { return kName; }
    void setCommandTimeout(std::chrono::milliseconds timeout) override { db_->setTimeout(timeout); }

private:
    std::shared_ptr<Database> db_;
};

}  // namespace

std::unique_ptr<ProviderSession> openSqliteSession(StringView target, const DataServices& services) {
    std::string file;
    if (target == u":memory:") {
        file = ":memory:";
    } else {
        if (!services.resolvePath) raise(err::PathFileAccessError);
        file = services.resolvePath(target).string();
    }
    sqlite3* raw = nullptr;
    const int rc =
        sqlite3_open_v2(file.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (!raw) raise(err::OutOfMemory);
    auto db = std::make_shared<Database>(raw);
    if (rc != SQLITE_OK) raiseProviderError(ado::ProviderFailure, kName, db->message() + u": " + String(target));
    sqlite3_limit(raw, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_db_config(raw, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_busy_timeout(raw, 2000);
    return std::make_unique<SqliteSession>(std::move(db));
}

}  // namespace telvaro::data
