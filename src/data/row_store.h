// The rows a recordset holds, stored by column: per cell one byte of kind
// and eight bytes of payload; texts and byte strings go to paged buffers per
// column, so a row set costs about nine bytes a cell plus its texts, never
// one Variant a cell or a byte, and growing never copies the rows already
// read. Values become Variants only when read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "data/paged_store.h"
#include "runtime/variant.h"

namespace telvaro::data {

enum class CellKind : std::uint8_t {
    Null,
    Integer,
    Long,
    Double,
    Currency,
    Date,
    Boolean,
    Byte,
    Decimal,
    Text,
    Utf8Text,
    Bytes
};

class RowStore {
public:
    explicit RowStore(std::size_t columns = 0);

    std::size_t columnCount() const { return columns_.size(); }
    std::size_t rowCount() const { return rows_; }

    // Appends a row of Nulls; the setters below fill the cells of the row
    // added last.
    void addRow();
    void setNull(std::size_t column);
    void setInteger(std::size_t column, std::int16_t value);
    void setLong(std::size_t column, std::int32_t value);
    void setDouble(std::size_t column, double value);
    void setCurrency(std::size_t column, std::int64_t scaled);
    void setDate(std::size_t column, double serial);
    void setBoolean(std::size_t column, bool value);
    void setByte(std::size_t column, std::uint8_t value);
    void setDecimal(std::size_t column, const Decimal& value);
    void setText(std::size_t column, StringView text);
    // A text as a provider gives it in UTF-8: kept so (half the room for
    // most texts) and made UTF-16 only when read.
    void setUtf8Text(std::size_t column, std::string_view text);
    void setBytes(std::size_t column, std::span<const std::uint8_t> bytes);

    // Drops every row and keeps the buffers for the next ones.
    void clear();

    CellKind kind(std::size_t row, std::size_t column) const;
    Variant value(std::size_t row, std::size_t column) const;
    // The value's length in bytes: 2 a UTF-16 unit for texts, the count for
    // byte strings, the size of the type for numbers, 0 for Null.
    std::int32_t actualSize(std::size_t row, std::size_t column) const;

    // Bytes held, for measuring.
    std::size_t memoryUsed() const;

private:
    struct Column {
        PagedVector<CellKind> kinds;
        PagedVector<std::uint64_t> payloads;
        PagedRuns<char16_t> texts;
        PagedRuns<char> utf8Texts;
        PagedRuns<std::uint8_t> bytes;
        PagedVector<Decimal, 256> decimals;
    };
    void set(std::size_t column, CellKind kind, std::uint64_t payload);
    const Column& cellColumn(std::size_t row, std::size_t column) const;

    std::vector<Column> columns_;
    std::size_t rows_ = 0;
};

}  // namespace telvaro::data
