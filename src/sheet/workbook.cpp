#include "sheet/workbook.h"

#include "sheet/member_name.h"
#include "sheet/worksheet.h"

namespace telvaro::sheet {

Variant Workbook::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    if (isMember(member, u"ActiveSheet") && (kind == InvokeKind::PropertyGet || kind == InvokeKind::Method) &&
        args.empty())
        return Variant(ObjectRef(std::make_shared<Worksheet>(app_, doc_)));
    raiseNoSuchMember();
}

}  // namespace telvaro::sheet
