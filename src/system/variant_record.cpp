#include "system/variant_record.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>

#include "platform/ansi.h"
#include "runtime/decimal.h"
#include "runtime/error.h"

namespace telvaro::system {

namespace {

class Writer {
public:
    explicit Writer(std::size_t limit) : limit_(limit) {}

    template <typename T>
    void number(T v) {
        unsigned char bytes[sizeof(T)];
        std::memcpy(bytes, &v, sizeof(T));
        if constexpr (std::endian::native == std::endian::big) std::reverse(bytes, bytes + sizeof(T));
        append(std::string_view(reinterpret_cast<const char*>(bytes), sizeof(T)));
    }
    void append(std::string_view bytes) {
        if (out_.size() + bytes.size() > limit_) raise(err::BadRecordLength);
        out_ += bytes;
    }
    std::string take() {
        out_.resize(limit_, '\0');
        return std::move(out_);
    }

private:
    std::size_t limit_;
    std::string out_;
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    template <typename T>
    T number() {
        std::string_view raw = take(sizeof(T));
        unsigned char bytes[sizeof(T)];
        std::memcpy(bytes, raw.data(), sizeof(T));
        if constexpr (std::endian::native == std::endian::big) std::reverse(bytes, bytes + sizeof(T));
        T v;
        std::memcpy(&v, bytes, sizeof(T));
        return v;
    }
    std::size_t remaining() const { return bytes_.size() - at_; }
    std::string_view take(std::size_t n) {
        if (n > bytes_.size() - at_) raise(err::UnsupportedAutomationType);
        std::string_view part = bytes_.substr(at_, n);
        at_ += n;
        return part;
    }

private:
    std::string_view bytes_;
    std::size_t at_ = 0;
};

void write(Writer& out, const Variant& v);

void writeArray(Writer& out, const Array& array) {
    out.number(static_cast<std::uint16_t>(static_cast<std::uint16_t>(VarType::Array) |
                                          static_cast<std::uint16_t>(array.elementType())));
    out.number(static_cast<std::uint16_t>(array.dimensions()));
    for (int d = 1; d <= array.dimensions(); ++d) {
        const auto& dim = array.dimension(d);
        out.number(static_cast<std::int32_t>(array.ubound(d) - array.lbound(d) + 1));
        out.number(static_cast<std::int32_t>(dim.lower));
    }
    for (const auto& item : array.elements()) {
        if (item.isArray()) raise(err::TypeMismatch);  // arrays hold no arrays in a record
        write(out, item);
    }
}

void write(Writer& out, const Variant& v) {
    if (v.isArray()) return writeArray(out, v.array());
    const VarType type = v.type();
    if (type == VarType::Object) raise(err::TypeMismatch);
    out.number(static_cast<std::uint16_t>(type));
    switch (type) {
        case VarType::Empty:
        case VarType::Null: break;
        case VarType::Integer: out.number(v.get<std::int16_t>()); break;
        case VarType::Boolean: out.number(v.get<Boolean>().bits); break;
        case VarType::Long: out.number(v.get<std::int32_t>()); break;
        case VarType::Error: out.number(v.get<ErrorCode>().scode); break;
        case VarType::Double: out.number(v.get<double>()); break;
        case VarType::Date: out.number(v.get<Date>().serial); break;
        case VarType::Currency: out.number(v.get<Currency>().scaled); break;
        case VarType::Byte: out.number(v.get<std::uint8_t>()); break;
        case VarType::Decimal: {
            const Decimal& d = v.get<Decimal>();
            out.number(static_cast<std::uint8_t>(d.scale()));
            out.number(static_cast<std::uint8_t>(d.isNegative() ? 0x80 : 0));
            out.number(d.hi());
            out.number(static_cast<std::uint64_t>(d.mid()) << 32 | d.lo());
            break;
        }
        case VarType::String: {
            const std::string bytes = toAnsi(v.get<String>());
            if (bytes.size() > 0xFFFF) raise(err::BadRecordLength);
            out.number(static_cast<std::uint16_t>(bytes.size()));
            out.append(bytes);
            break;
        }
        default: raise(err::TypeMismatch);
    }
}

Variant read(Reader& in, int depth);

Variant readArray(Reader& in, VarType elementType, int depth) {
    const auto dimensions = in.number<std::uint16_t>();
    if (dimensions < 1 || dimensions > 2 || depth > 0) raise(err::UnsupportedAutomationType);
    std::int32_t count[2] = {0, 0}, lower[2] = {0, 0};
    for (int d = 0; d < dimensions; ++d) {
        count[d] = in.number<std::int32_t>();
        lower[d] = in.number<std::int32_t>();
        // Every element takes at least its 2-byte type: more than the record
        // holds is not a record of this layout.
        if (count[d] < 0 || count[d] > 0xFFFF || lower[d] > INT32_MAX - count[d]) raise(err::UnsupportedAutomationType);
    }
    // The bounds are checked against what the record holds before anything
    // is made of them.
    const std::uint64_t elements = static_cast<std::uint64_t>(count[0]) * (dimensions == 2 ? count[1] : 1);
    if (elements * sizeof(std::uint16_t) > in.remaining()) raise(err::UnsupportedAutomationType);
    Array array = dimensions == 1 ? Array::vector(lower[0], lower[0] + count[0] - 1, elementType)
                                  : Array::matrix(lower[0], lower[0] + count[0] - 1, lower[1], lower[1] + count[1] - 1,
                                                  elementType);
    for (auto& item : array.elements()) item = read(in, depth + 1);
    return Variant(std::move(array));
}

Variant read(Reader& in, int depth) {
    const auto code = in.number<std::uint16_t>();
    if (code & static_cast<std::uint16_t>(VarType::Array))
        return readArray(in, static_cast<VarType>(code & 0xFFF), depth);
    switch (static_cast<VarType>(code)) {
        case VarType::Empty: return Variant();
        case VarType::Null: return Variant(Null{});
        case VarType::Integer: return Variant(in.number<std::int16_t>());
        case VarType::Boolean: return Variant(Boolean::fromBits(in.number<std::int16_t>()));
        case VarType::Long: return Variant(in.number<std::int32_t>());
        case VarType::Error: return Variant(ErrorCode{in.number<std::int32_t>()});
        case VarType::Double: return Variant(in.number<double>());
        case VarType::Date: return Variant(Date{in.number<double>()});
        case VarType::Currency: return Variant(Currency{in.number<std::int64_t>()});
        case VarType::Byte: return Variant(in.number<std::uint8_t>());
        case VarType::Decimal: {
            const auto scale = in.number<std::uint8_t>();
            const auto sign = in.number<std::uint8_t>();
            const auto hi = in.number<std::uint32_t>();
            const auto low = in.number<std::uint64_t>();
            if (scale > Decimal::kMaxScale || (sign != 0 && sign != 0x80)) raise(err::UnsupportedAutomationType);
            return Variant(Decimal::fromParts(static_cast<std::uint32_t>(low), static_cast<std::uint32_t>(low >> 32),
                                              hi, scale, sign != 0));
        }
        case VarType::String: {
            const auto length = in.number<std::uint16_t>();
            return Variant(fromAnsi(in.take(length)));
        }
        default: raise(err::UnsupportedAutomationType);
    }
}

}  // namespace

std::string encodeRecord(const Variant& value, std::size_t recordLength) {
    Writer out(recordLength);
    write(out, value);
    return out.take();
}

Variant decodeRecord(std::string_view record) {
    Reader in(record);
    return read(in, 0);
}

}  // namespace telvaro::system
