// The catalogue of Fun's public methods: for each, its place in the
// v-table, its DISPID, its name, its result type and every parameter with
// its declared type, by-reference flag, optional flag and default. The
// catalogue drives dispatch by name and by DISPID, the command line's
// listing, and (on Windows) the type library; its order is fixed.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "runtime/variant.h"

namespace telvaro {

// The declared type of a parameter or result, as dispatch coerces it.
// Enumerations travel as Long; caller objects (forms, controls, connections,
// recordsets, fonts, pictures) as Object.
enum class ArgType { None, String, Integer, Long, Double, Boolean, Byte, Date, Currency, Variant, Object };

// The Variant type an argument of the declared type is coerced to.
VarType varTypeOf(ArgType t);
const char* argTypeName(ArgType t);

struct ParamInfo {
    std::string_view name;
    ArgType type = ArgType::Variant;
    // The type as the caller sees it declared: "String", "TipoDato",
    // "Connection", "Font", ... (for listings and the type library).
    std::string_view typeName;
    bool byRef = true;
    bool optional = false;
    // The value an omitted optional argument takes: the declared default,
    // the missing-argument marker for an optional Variant without a
    // default, Nothing for an optional object without a default.
    Variant defaultValue;
};

// Where a parameter's default is kept in the type library. An optional
// object's default (Nothing) is never stored: the parameter is optional and
// arrives as Nothing. The MinGW build's IDL compiler stores whole-number
// defaults of by-value texts, integers and Booleans only; a text default
// on a by-reference parameter, any default on a Variant, Double, Date or
// Currency stays out of its library (MSVC's keeps it). Either way the
// server applies the catalogue's default to an omitted argument.
enum class StoredDefault { None, Everywhere, OutsideWidl };
StoredDefault storedDefault(const ParamInfo& p);

struct MethodInfo {
    int order = 0;            // 1-based place among the methods of the v-table
    std::int32_t dispid = 0;  // 0x60030000 + member number
    std::string_view name;
    ArgType result = ArgType::None;  // None: a procedure with no result
    std::string_view resultName;     // "Integer", "Picture", "none", ...
    std::vector<ParamInfo> params;

    std::size_t requiredCount() const;
};

// The methods in v-table order (119 of them).
const std::vector<MethodInfo>& catalogue();
// Case-insensitive lookup by name; nullptr when there is no such method.
const MethodInfo* findMethod(StringView name);
const MethodInfo* findMethod(std::string_view name);
const MethodInfo* findMethod(std::int32_t dispid);

// The public enumerations and records of the library.
struct EnumMember {
    std::string_view name;
    std::int32_t value;
};
struct EnumInfo {
    std::string_view name;
    std::vector<EnumMember> members;  // in declaration order
};
const std::vector<EnumInfo>& enumerations();

struct RecordField {
    std::string_view name;
    std::string_view typeName;  // "Long" (32-bit signed) or "Variant"
};
struct RecordInfo {
    std::string_view name;
    std::vector<RecordField> fields;  // in declaration order
};
const std::vector<RecordInfo>& records();

}  // namespace telvaro
