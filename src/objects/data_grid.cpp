#include "objects/data_grid.h"

namespace telvaro::objects {

namespace {

enum Member { DataSource = 0, DataMember, Refresh };

}  // namespace

const MemberTable& DataGrid::members() const {
    static const MemberTable table(commonMemberNames(), {u"DataSource", u"DataMember", u"Refresh"});
    return table;
}

Variant DataGrid::dispatch(int id, const MemberCall& call) {
    if (id < CommonMemberCount) return dispatchCommon(id, call);
    switch (id - CommonMemberCount) {
        case DataSource:
            return property(
                call, [&] { return Variant(dataSource); }, [&](const Variant& v) { dataSource = objectValue(v); });
        case DataMember:
            return property(
                call, [&] { return Variant(dataMember); }, [&](const Variant& v) { dataMember = textValue(v); });
        case Refresh: call.arguments(0, 0); return ++refreshes_, Variant();
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::objects
