#include "data/row_store.h"

#include <bit>

#include "data/byte_array.h"
#include "runtime/error.h"
#include "runtime/ustring.h"

namespace telvaro::data {

RowStore::RowStore(std::size_t columns) : columns_(columns) {}

void RowStore::addRow() {
    for (auto& column : columns_) {
        column.kinds.push_back(CellKind::Null);
        column.payloads.push_back(0);
    }
    ++rows_;
}

void RowStore::set(std::size_t column, CellKind kind, std::uint64_t payload) {
    Column& c = columns_.at(column);
    c.kinds.back() = kind;
    c.payloads.back() = payload;
}

void RowStore::setNull(std::size_t column) { set(column, CellKind::Null, 0); }
void RowStore::setInteger(std::size_t column, std::int16_t value) {
    set(column, CellKind::Integer, static_cast<std::uint64_t>(static_cast<std::int64_t>(value)));
}
void RowStore::setLong(std::size_t column, std::int32_t value) {
    set(column, CellKind::Long, static_cast<std::uint64_t>(static_cast<std::int64_t>(value)));
}
void RowStore::setDouble(std::size_t column, double value) {
    set(column, CellKind::Double, std::bit_cast<std::uint64_t>(value));
}
void RowStore::setCurrency(std::size_t column, std::int64_t scaled) {
    set(column, CellKind::Currency, static_cast<std::uint64_t>(scaled));
}
void RowStore::setDate(std::size_t column, double serial) {
    set(column, CellKind::Date, std::bit_cast<std::uint64_t>(serial));
}
void RowStore::setBoolean(std::size_t column, bool value) { set(column, CellKind::Boolean, value ? 1 : 0); }
void RowStore::setByte(std::size_t column, std::uint8_t value) { set(column, CellKind::Byte, value); }

void RowStore::setDecimal(std::size_t column, const Decimal& value) {
    Column& c = columns_.at(column);
    c.decimals.push_back(value);
    set(column, CellKind::Decimal, c.decimals.size() - 1);
}

void RowStore::setText(std::size_t column, StringView text) {
    Column& c = columns_.at(column);
    set(column, CellKind::Text, c.texts.append(std::span<const char16_t>(text.data(), text.size())));
}

void RowStore::setUtf8Text(std::size_t column, std::string_view text) {
    Column& c = columns_.at(column);
    set(column, CellKind::Utf8Text, c.utf8Texts.append(std::span<const char>(text.data(), text.size())));
}

void RowStore::setBytes(std::size_t column, std::span<const std::uint8_t> bytes) {
    Column& c = columns_.at(column);
    set(column, CellKind::Bytes, c.bytes.append(bytes));
}

void RowStore::clear() {
    for (auto& column : columns_) {
        column.kinds.clear();
        column.payloads.clear();
        column.texts.clear();
        column.utf8Texts.clear();
        column.bytes.clear();
        column.decimals.clear();
    }
    rows_ = 0;
}

const RowStore::Column& RowStore::cellColumn(std::size_t row, std::size_t column) const {
    if (column >= columns_.size() || row >= rows_) raise(err::SubscriptOutOfRange);
    return columns_[column];
}

CellKind RowStore::kind(std::size_t row, std::size_t column) const { return cellColumn(row, column).kinds[row]; }

Variant RowStore::value(std::size_t row, std::size_t column) const {
    const Column& c = cellColumn(row, column);
    const std::uint64_t p = c.payloads[row];
    switch (c.kinds[row]) {
        case CellKind::Null: return Variant(Null{});
        case CellKind::Integer: return Variant(static_cast<std::int16_t>(static_cast<std::int64_t>(p)));
        case CellKind::Long: return Variant(static_cast<std::int32_t>(static_cast<std::int64_t>(p)));
        case CellKind::Double: return Variant(std::bit_cast<double>(p));
        case CellKind::Currency: return Variant(Currency{static_cast<std::int64_t>(p)});
        case CellKind::Date: return Variant(Date{std::bit_cast<double>(p)});
        case CellKind::Boolean: return Variant(Boolean(p != 0));
        case CellKind::Byte: return Variant(static_cast<std::uint8_t>(p));
        case CellKind::Decimal: return Variant(c.decimals[static_cast<std::size_t>(p)]);
        case CellKind::Text: {
            const auto text = c.texts.view(p);
            return Variant(String(text.data(), text.size()));
        }
        case CellKind::Utf8Text: {
            const auto text = c.utf8Texts.view(p);
            return Variant(fromUtf8(std::string_view(text.data(), text.size())));
        }
        case CellKind::Bytes: return byteArray(c.bytes.view(p));
    }
    return Variant(Null{});
}

std::int32_t RowStore::actualSize(std::size_t row, std::size_t column) const {
    const Column& c = cellColumn(row, column);
    const std::uint64_t p = c.payloads[row];
    switch (c.kinds[row]) {
        case CellKind::Null: return 0;
        case CellKind::Byte: return 1;
        case CellKind::Integer:
        case CellKind::Boolean: return 2;
        case CellKind::Long: return 4;
        case CellKind::Double:
        case CellKind::Currency:
        case CellKind::Date: return 8;
        case CellKind::Decimal: return 16;
        case CellKind::Text:
            return static_cast<std::int32_t>(std::min<std::size_t>(c.texts.view(p).size() * 2, INT32_MAX));
        case CellKind::Utf8Text: {
            const auto text = c.utf8Texts.view(p);
            const std::size_t units = fromUtf8(std::string_view(text.data(), text.size())).size();
            return static_cast<std::int32_t>(std::min<std::size_t>(units * 2, INT32_MAX));
        }
        case CellKind::Bytes:
            return static_cast<std::int32_t>(std::min<std::size_t>(c.bytes.view(p).size(), INT32_MAX));
    }
    return 0;
}

std::size_t RowStore::memoryUsed() const {
    std::size_t total = sizeof(*this) + columns_.capacity() * sizeof(Column);
    for (const auto& c : columns_) {
        total += c.kinds.memoryUsed() + c.payloads.memoryUsed() + c.texts.memoryUsed() + c.utf8Texts.memoryUsed() +
                 c.bytes.memoryUsed() + c.decimals.memoryUsed();
    }
    return total;
}

}  // namespace telvaro::data
