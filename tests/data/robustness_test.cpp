// Every member of every data object called with junk (nothing, Null,
// Empty, out-of-range numbers, wrong types, Nothing, long texts): a value
// or a run-time error comes back, never a crash, a hang or a leak (this
// program runs under the sanitizers too).
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "data_support.h"

namespace telvaro::data::testing {
namespace {

std::vector<Variant> junkValues() {
    return {Variant(),
            Variant(Null{}),
            Variant::missing(),
            Variant(std::int16_t(-1)),
            Variant(std::numeric_limits<std::int32_t>::max()),
            Variant(std::numeric_limits<std::int32_t>::min()),
            Variant(std::nan("")),
            Variant(1e300),
            Variant(u""),
            Variant(String(70000, u'x')),
            Variant(u"C:\\..\\..\\etc\\passwd"),
            Variant(ObjectRef()),
            Variant(create(u"ADODB.Stream")),
            Variant(True),
            Variant(Date{-700000}),
            Variant(Array::ofValues({Variant(1), Variant(u"a")})),
            Variant(Array::vector(0, -1, VarType::Byte))};
}

// Every member the data objects have, the default member ("") and one
// that none has.
std::vector<String> memberNames() {
    std::vector<String> names = {u""};
    std::istringstream words(
        "Open Execute Close State CursorLocation ConnectionString RecordCount AbsolutePosition BOF EOF MoveFirst "
        "MovePrevious MoveNext MoveLast Fields DataSource DataMember Count Item Value Name Type ActualSize Write Read "
        "SaveToFile LoadFromFile NoExiste");
    for (std::string word; words >> word;) names.push_back(fromUtf8(word));
    return names;
}

TEST(Robustness, JunkGivesValuesOrErrors) {
    const std::vector<String> members = memberNames();
    std::size_t calls = 0, errors = 0;
    for (const Variant& junk : junkValues()) {
        ObjectRef connection = memoryConnection({u"CREATE TABLE t (a INTEGER, b TEXT, c BLOB)",
                                                 u"INSERT INTO t VALUES (1, 'x', x'01'), (NULL, NULL, NULL)"},
                                                3);
        ObjectRef rs = openRecordset(connection, u"SELECT * FROM t");
        ObjectRef fields = rs->get(u"Fields").get<ObjectRef>();
        ObjectRef field = fields->get(u"Item", {Variant(0)}).get<ObjectRef>();
        ObjectRef stream = create(u"ADODB.Stream");
        stream->put(u"Type", Variant(1));
        stream->call(u"Open");
        const ObjectRef objects[] = {connection, rs, fields, field, stream, create(u"ADODB.Recordset")};
        for (const auto& object : objects) {
            for (const auto& member : members) {
                const std::vector<std::pair<InvokeKind, std::vector<Variant>>> shapes = {
                    {InvokeKind::Method, {}},
                    {InvokeKind::Method, {junk}},
                    {InvokeKind::PropertyGet, {junk, junk}},
                    {InvokeKind::Method, {junk, junk, junk, junk, junk, junk}},
                    {InvokeKind::PropertyPut, {junk}},
                    {InvokeKind::PropertyPutRef, {junk, junk}},
                };
                for (auto shape : shapes) {
                    ++calls;
                    try {
                        object->invoke(member, shape.first, shape.second);
                    } catch (const RuntimeError&) {
                        ++errors;
                    }
                }
            }
        }
    }
    EXPECT_GT(errors, calls / 2) << "most junk is refused";
    EXPECT_LT(errors, calls) << "some calls take junk as a value";
}

}  // namespace
}  // namespace telvaro::data::testing
