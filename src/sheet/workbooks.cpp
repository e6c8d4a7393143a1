#include "sheet/workbooks.h"

#include "runtime/convert.h"
#include "sheet/member_name.h"
#include "sheet/sheet_error.h"
#include "sheet/workbook.h"

namespace telvaro::sheet {

namespace {
// Add's one accepted template: a workbook of one worksheet.
constexpr std::int32_t kWorksheetTemplate = -4167;
}  // namespace

Variant Workbooks::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    if (isMember(member, u"Add") && kind != InvokeKind::PropertyPut && kind != InvokeKind::PropertyPutRef) {
        if (args.size() > 1) raise(err::WrongNumberOfArguments);
        // Templates from files are not offered; the one-sheet template is.
        if (given(args, 0) && (!args[0].isNumber() || toLong(args[0]) != kWorksheetTemplate)) raiseSheetError();
        return Variant(ObjectRef(std::make_shared<Workbook>(app_, app_->addWorkbook())));
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::sheet
