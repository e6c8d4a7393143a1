#include "data/odbc/odbc_provider.h"

#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <cstdio>
#include <limits>
#include <utility>

#include "data/connection_string.h"
#include "data/errors.h"
#include "data/names.h"
#include "runtime/datetime.h"
#include "runtime/error.h"

namespace telvaro::data {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "ODBC wide characters are UTF-16 units");

constexpr StringView kName = u"ODBC";

bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

SQLWCHAR* wide(String& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

// The driver's messages for a handle: "[SQLSTATE] text" each, one after
// the other.
String diagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
    String all;
    for (SQLSMALLINT record = 1; record <= 8; ++record) {
        SQLWCHAR state[6] = {};
        SQLINTEGER native = 0;
        SQLWCHAR message[1024] = {};
        SQLSMALLINT length = 0;
        const SQLRETURN rc = SQLGetDiagRecW(handleType, handle, record, state, &native, message,
                                            SQLSMALLINT(std::size(message)), &length);
        if (!succeeded(rc)) break;
        if (!all.empty()) all += u" ";
        all += u"[" + String(reinterpret_cast<const char16_t*>(state)) + u"] ";
        all += reinterpret_cast<const char16_t*>(message);
    }
    return all;
}

// Raises a statement's failure: a timeout (SQLSTATE HYT00 or HYT01; 57014, a
// statement cancelled, as PostgreSQL reports its query timeout) as
// the command timeout, anything else as an error in the command.
[[noreturn]] void raiseStatementError(SQLHSTMT stmt, StringView sql) {
    const String message = diagnostics(SQL_HANDLE_STMT, stmt);
    const bool timeout =
        message.starts_with(u"[HYT00]") || message.starts_with(u"[HYT01]") || message.starts_with(u"[57014]");
    raiseProviderError(timeout ? ado::QueryTimeout : ado::ErrorsInCommand, kName, message, sql);
}

// The environment and connection handles of one session, released in
// order when the last cursor over them is gone.
class Link {
public:
    Link() {
        if (!succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &env_))) raise(err::OutOfMemory);
        SQLSetEnvAttr(env_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        if (!succeeded(SQLAllocHandle(SQL_HANDLE_DBC, env_, &dbc_))) {
            SQLFreeHandle(SQL_HANDLE_ENV, env_);
            raise(err::OutOfMemory);
        }
    }
    ~Link() {
        if (connected_) SQLDisconnect(dbc_);
        SQLFreeHandle(SQL_HANDLE_DBC, dbc_);
        SQLFreeHandle(SQL_HANDLE_ENV, env_);
    }
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    void connect(StringView connectionString) {
        SQLSetConnectAttrW(dbc_, SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(SQLULEN(10)), 0);
        String text(connectionString);
        SQLSMALLINT outLength = 0;
        const SQLRETURN rc = SQLDriverConnectW(dbc_, nullptr, wide(text), SQLSMALLINT(text.size()), nullptr, 0,
                                               &outLength, SQL_DRIVER_NOPROMPT);
        if (!succeeded(rc)) raiseProviderError(ado::ProviderFailure, kName, diagnostics(SQL_HANDLE_DBC, dbc_));
        connected_ = true;
    }

    SQLHDBC dbc() const { return dbc_; }

private:
    SQLHENV env_ = SQL_NULL_HENV;
    SQLHDBC dbc_ = SQL_NULL_HDBC;
    bool connected_ = false;
};

class StatementHandle {
public:
    explicit StatementHandle(SQLHDBC dbc) {
        if (!succeeded(SQLAllocHandle(SQL_HANDLE_STMT, dbc, &stmt_))) raise(err::OutOfMemory);
    }
    ~StatementHandle() { release(); }
    StatementHandle(const StatementHandle&) = delete;
    StatementHandle& operator=(const StatementHandle&) = delete;
    void release() {
        if (stmt_ != SQL_NULL_HSTMT) {
            SQLFreeStmt(stmt_, SQL_CLOSE);
            SQLFreeHandle(SQL_HANDLE_STMT, stmt_);
            stmt_ = SQL_NULL_HSTMT;
        }
    }
    SQLHSTMT get() const { return stmt_; }

private:
    SQLHSTMT stmt_ = SQL_NULL_HSTMT;
};

enum class Reading { Integer, Long, BigInt, Double, Exact, Date, Time, Boolean, Binary, Text };

struct OdbcColumn {
    Reading reading = Reading::Text;
};

std::pair<DataType, Reading> mapSqlType(SQLSMALLINT sqlType) {
    switch (sqlType) {
        case SQL_SMALLINT: return {DataType::SmallInt, Reading::Integer};
        case SQL_TINYINT: return {DataType::TinyInt, Reading::Integer};
        case SQL_INTEGER: return {DataType::Integer, Reading::Long};
        case SQL_BIGINT: return {DataType::BigInt, Reading::BigInt};
        case SQL_REAL: return {DataType::Single, Reading::Double};
        case SQL_FLOAT:
        case SQL_DOUBLE: return {DataType::Double, Reading::Double};
        case SQL_DECIMAL:
        case SQL_NUMERIC: return {DataType::Numeric, Reading::Exact};
        case SQL_TYPE_DATE:
        case SQL_DATE: return {DataType::DBDate, Reading::Date};
        case SQL_TYPE_TIME:
        case SQL_TIME: return {DataType::DBTime, Reading::Time};
        case SQL_TYPE_TIMESTAMP:
        case SQL_TIMESTAMP: return {DataType::DBTimeStamp, Reading::Date};
        case SQL_BIT: return {DataType::Boolean, Reading::Boolean};
        case SQL_BINARY:
        case SQL_VARBINARY: return {DataType::VarBinary, Reading::Binary};
        case SQL_LONGVARBINARY: return {DataType::LongVarBinary, Reading::Binary};
        case SQL_GUID: return {DataType::Guid, Reading::Text};
        case SQL_CHAR:
        case SQL_WCHAR: return {DataType::WChar, Reading::Text};
        case SQL_LONGVARCHAR:
        case SQL_WLONGVARCHAR: return {DataType::LongVarWChar, Reading::Text};
        default: return {DataType::VarWChar, Reading::Text};
    }
}

class OdbcCursor : public ProviderCursor {
public:
    OdbcCursor(std::shared_ptr<Link> link, std::unique_ptr<StatementHandle> stmt, String sql)
        : link_(std::move(link)), stmt_(std::move(stmt)), sql_(std::move(sql)) {
        SQLSMALLINT count = 0;
        check(SQLNumResultCols(stmt_->get(), &count));
        for (SQLSMALLINT i = 1; i <= count; ++i) {
            SQLWCHAR name[256] = {};
            SQLSMALLINT nameLength = 0, sqlType = 0, digits = 0, nullable = 0;
            SQLULEN size = 0;
            check(SQLDescribeColW(stmt_->get(), i, name, SQLSMALLINT(std::size(name)), &nameLength, &sqlType, &size,
                                  &digits, &nullable));
            const auto [type, reading] = mapSqlType(sqlType);
            const auto shown =
                std::min<std::size_t>(std::size_t(std::max<SQLSMALLINT>(nameLength, 0)), std::size(name) - 1);
            columns_.push_back({String(reinterpret_cast<const char16_t*>(name), shown), type});
            readings_.push_back(reading);
        }
        if (count == 0) {
            SQLLEN affected = -1;
            if (succeeded(SQLRowCount(stmt_->get(), &affected)) && affected >= 0)
                affected_ =
                    static_cast<std::int32_t>(std::min<SQLLEN>(affected, std::numeric_limits<std::int32_t>::max()));
            stmt_->release();
        }
    }

    const std::vector<ColumnInfo>& columns() const override { return columns_; }
    std::int32_t recordsAffected() const override { return affected_; }

    bool fetch(RowStore& rows) override {
        if (columns_.empty() || done_) return false;
        const SQLRETURN rc = SQLFetch(stmt_->get());
        if (rc == SQL_NO_DATA) {
            done_ = true;
            stmt_->release();
            return false;
        }
        check(rc);
        rows.addRow();
        for (std::size_t i = 0; i < columns_.size(); ++i) readCell(rows, i);
        return true;
    }

private:
    void check(SQLRETURN rc) {
        if (succeeded(rc)) return;
        done_ = true;
        try {
            raiseStatementError(stmt_->get(), sql_);
        } catch (...) {
            stmt_->release();
            throw;
        }
    }

    // One fixed-size value; false for Null.
    template <typename T>
    bool fixed(std::size_t i, SQLSMALLINT cType, T& value) {
        SQLLEN indicator = 0;
        check(SQLGetData(stmt_->get(), SQLUSMALLINT(i + 1), cType, &value, sizeof(T), &indicator));
        return indicator != SQL_NULL_DATA;
    }

    // A text or binary value of any length, read in pieces; false for Null.
    bool pieces(std::size_t i, bool text, std::basic_string<char16_t>& chars, std::vector<std::uint8_t>& bytes) {
        chars.clear();
        bytes.clear();
        constexpr SQLLEN kPiece = 8192;
        std::uint8_t buffer[kPiece + 2];
        for (;;) {
            SQLLEN indicator = 0;
            const SQLRETURN rc = SQLGetData(stmt_->get(), SQLUSMALLINT(i + 1), text ? SQL_C_WCHAR : SQL_C_BINARY,
                                            buffer, kPiece, &indicator);
            if (rc == SQL_NO_DATA) return true;
            check(rc);
            if (indicator == SQL_NULL_DATA) return false;
            // A piece that did not hold the whole rest is full (less the
            // closing zero of a text).
            const SQLLEN room = text ? kPiece - SQLLEN(sizeof(SQLWCHAR)) : kPiece;
            const SQLLEN got = (indicator == SQL_NO_TOTAL || indicator > room) ? room : indicator;
            if (text)
                chars.append(reinterpret_cast<const char16_t*>(buffer), std::size_t(got) / sizeof(SQLWCHAR));
            else
                bytes.insert(bytes.end(), buffer, buffer + got);
            if (rc == SQL_SUCCESS) return true;
        }
    }

    void readCell(RowStore& rows, std::size_t i) {
        switch (readings_[i]) {
            case Reading::Integer: {
                SQLSMALLINT v = 0;
                if (fixed(i, SQL_C_SSHORT, v)) rows.setInteger(i, v);
                return;
            }
            case Reading::Long: {
                SQLINTEGER v = 0;
                if (fixed(i, SQL_C_SLONG, v)) rows.setLong(i, v);
                return;
            }
            case Reading::BigInt: {
                SQLBIGINT v = 0;
                if (!fixed(i, SQL_C_SBIGINT, v)) return;
                if (v >= std::numeric_limits<std::int32_t>::min() && v <= std::numeric_limits<std::int32_t>::max())
                    rows.setLong(i, static_cast<std::int32_t>(v));
                else
                    rows.setDecimal(i, Decimal::fromInt64(v));
                return;
            }
            case Reading::Double: {
                double v = 0;
                if (fixed(i, SQL_C_DOUBLE, v)) rows.setDouble(i, v);
                return;
            }
            case Reading::Boolean: {
                unsigned char v = 0;
                if (fixed(i, SQL_C_BIT, v)) rows.setBoolean(i, v != 0);
                return;
            }
            case Reading::Date: {
                SQL_TIMESTAMP_STRUCT v{};
                if (!fixed(i, SQL_C_TYPE_TIMESTAMP, v)) return;
                if (v.year < 100 || v.year > 9999) {  // outside the Date range: kept as text
                    char text[40];
                    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02u:%02u:%02u", int(v.year), unsigned(v.month),
                                  unsigned(v.day), unsigned(v.hour), unsigned(v.minute), unsigned(v.second));
                    rows.setText(i, ascii(text));
                    return;
                }
                const double day = dateSerial(v.year, v.month, v.day);
                const double time = (v.hour * 3600.0 + v.minute * 60.0 + v.second + v.fraction / 1e9) / 86400.0;
                rows.setDate(i, dateTimeSerial(day, time));
                return;
            }
            case Reading::Time: {
                SQL_TIME_STRUCT v{};
                if (fixed(i, SQL_C_TYPE_TIME, v)) rows.setDate(i, timeSerial(v.hour, v.minute, v.second));
                return;
            }
            case Reading::Exact: {
                if (!pieces(i, true, chars_, bytes_)) return;
                try {
                    if (auto d = Decimal::parse(chars_)) {
                        rows.setDecimal(i, *d);
                        return;
                    }
                } catch (const RuntimeError&) {
                    // beyond the Decimal range: kept as text
                }
                rows.setText(i, chars_);
                return;
            }
            case Reading::Binary:
                if (pieces(i, false, chars_, bytes_)) rows.setBytes(i, bytes_);
                return;
            case Reading::Text: break;
        }
        if (pieces(i, true, chars_, bytes_)) rows.setText(i, chars_);
    }

    std::shared_ptr<Link> link_;
    std::unique_ptr<StatementHandle> stmt_;
    String sql_;
    std::vector<ColumnInfo> columns_;
    std::vector<Reading> readings_;
    bool done_ = false;
    std::int32_t affected_ = -1;
    String chars_;
    std::vector<std::uint8_t> bytes_;
};

class OdbcSession : public ProviderSession {
public:
    explicit OdbcSession(std::shared_ptr<Link> link) : link_(std::move(link)) {}

    std::unique_ptr<ProviderCursor> execute(StringView sql) override {
        auto stmt = std::make_unique<StatementHandle>(link_->dbc());
        // The driver counts whole seconds; a part of one counts as one.
        const auto seconds = (timeout_.count() + 999) / 1000;
        SQLSetStmtAttrW(stmt->get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(SQLULEN(seconds)), 0);
        String text(sql);
        const SQLRETURN rc = SQLExecDirectW(stmt->get(), wide(text), SQLINTEGER(text.size()));
        if (!succeeded(rc) && rc != SQL_NO_DATA) raiseStatementError(stmt->get(), sql);
        return std::make_unique<OdbcCursor>(link_, std::move(stmt), String(sql));
    }

    StringView name() const override { return kName; }
    void setCommandTimeout(std::chrono::milliseconds timeout) override { timeout_ = timeout; }

private:
    std::shared_ptr<Link> link_;
    std::chrono::milliseconds timeout_{30000};
};

// Refuses what would let a connection string load a library or read or
// write a file of its choosing.
void refuseDangerousKeys(StringView connectionString) {
    for (const auto& pair : parseConnectionString(connectionString)) {
        const bool pathDriver = sameName(pair.key, u"Driver") && pair.value.find_first_of(u"/\\") != String::npos;
        if (pathDriver || sameName(pair.key, u"FILEDSN") || sameName(pair.key, u"SAVEFILE"))
            raiseAdo(ado::InvalidArgument, u"ADODB.Connection");
    }
}

}  // namespace

std::unique_ptr<ProviderSession> openOdbcSession(StringView connectionString) {
    refuseDangerousKeys(connectionString);
    auto link = std::make_shared<Link>();
    link->connect(connectionString);
    return std::make_unique<OdbcSession>(std::move(link));
}

}  // namespace telvaro::data
