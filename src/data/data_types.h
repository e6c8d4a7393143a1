// The field types a recordset reports in Field.Type: the data-access
// component's type codes, and the automation value each one reads as.
#pragma once

#include <cstdint>

namespace telvaro::data {

enum class DataType : std::int32_t {
    Empty = 0,
    SmallInt = 2,          // Integer
    Integer = 3,           // Long
    Single = 4,            // read as Double
    Double = 5,            // Double
    Currency = 6,          // Currency
    Date = 7,              // Date
    Boolean = 11,          // Boolean
    Decimal = 14,          // Decimal
    TinyInt = 16,          // read as Integer
    UnsignedTinyInt = 17,  // Byte
    BigInt = 20,           // Long within its range, else Decimal
    Guid = 72,             // String
    WChar = 130,           // String
    Numeric = 131,         // Decimal
    DBDate = 133,          // Date
    DBTime = 134,          // Date
    DBTimeStamp = 135,     // Date
    VarWChar = 202,        // String
    LongVarWChar = 203,    // String
    VarBinary = 204,       // Byte array
    LongVarBinary = 205,   // Byte array
};

// Cursor and lock settings of a recordset, and where its cursor lives.
inline constexpr std::int32_t kOpenForwardOnly = 0;
inline constexpr std::int32_t kOpenKeyset = 1;
inline constexpr std::int32_t kOpenDynamic = 2;
inline constexpr std::int32_t kOpenStatic = 3;
inline constexpr std::int32_t kLockReadOnly = 1;
inline constexpr std::int32_t kLockBatchOptimistic = 4;
inline constexpr std::int32_t kUseServer = 2;
inline constexpr std::int32_t kUseClient = 3;

// Object states (State).
inline constexpr std::int32_t kStateClosed = 0;
inline constexpr std::int32_t kStateOpen = 1;

// Positions (AbsolutePosition) that are not a record number.
inline constexpr std::int32_t kPosUnknown = -1;
inline constexpr std::int32_t kPosBOF = -2;
inline constexpr std::int32_t kPosEOF = -3;

}  // namespace telvaro::data
