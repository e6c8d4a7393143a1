#include "objects/member_call.h"

#include "runtime/convert.h"
#include "runtime/error.h"

namespace telvaro::objects {

std::span<Variant> MemberCall::indices(std::size_t count) const {
    const std::size_t given = isPut() ? (args_.empty() ? 0 : args_.size() - 1) : args_.size();
    if (given != count || (isPut() && args_.empty())) raise(err::WrongNumberOfArguments);
    return args_.first(count);
}

const Variant& MemberCall::value() const {
    if (!isPut() || args_.empty()) raise(err::WrongNumberOfArguments);
    return args_.back();
}

std::span<Variant> MemberCall::arguments(std::size_t min, std::size_t max) const {
    if (isPut()) raiseNoSuchMember();
    // Trailing omitted optional arguments count as not given.
    std::size_t count = args_.size();
    while (count > min && args_[count - 1].isMissing()) --count;
    if (count < min || count > max) raise(err::WrongNumberOfArguments);
    return args_.first(count);
}

void MemberCall::readOnly() const {
    if (isPut()) raise(383, u"'" + name_ + u"' property is read-only");
}

namespace {

const Variant& present(const Variant& v) {
    if (v.isMissing()) raise(err::ArgumentNotOptional);
    return v;
}

}  // namespace

std::int32_t longValue(const Variant& v) { return toLong(present(v)); }
std::int16_t integerValue(const Variant& v) { return toInteger(present(v)); }
double doubleValue(const Variant& v) { return toDouble(present(v)); }
Boolean booleanValue(const Variant& v) { return toBoolean(present(v)); }
String textValue(const Variant& v) { return toString(present(v)); }

ObjectRef objectValue(const Variant& v) {
    if (!present(v).isObject()) raise(err::ObjectRequired);
    return v.get<ObjectRef>();
}

std::int32_t sizeValue(const Variant& v) {
    const std::int32_t n = longValue(v);
    if (n < 0) raise(err::InvalidPropertyValue);
    return n;
}

Variant flagProperty(const MemberCall& call, bool& field) {
    return property(
        call, [&] { return Variant(Boolean(field)); }, [&](const Variant& v) { field = booleanValue(v).isTrue(); });
}

Variant twipsProperty(const MemberCall& call, double& field, bool mayBeNegative) {
    return property(
        call, [&] { return Variant(field); },
        [&](const Variant& v) {
            const double twips = doubleValue(v);
            if (!(twips >= (mayBeNegative ? -2147483648.0 : 0.0) && twips <= 2147483647.0))
                raise(err::InvalidPropertyValue);
            field = twips;
        });
}

Variant choiceProperty(const MemberCall& call, std::int16_t& field, std::int16_t highest) {
    return property(
        call, [&] { return Variant(field); },
        [&](const Variant& v) {
            const auto choice = integerValue(v);
            if (choice < 0 || choice > highest) raise(err::InvalidPropertyValue);
            field = choice;
        });
}

}  // namespace telvaro::objects
