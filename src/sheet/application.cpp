#include "sheet/application.h"

#include "runtime/convert.h"
#include "sheet/member_name.h"
#include "sheet/workbooks.h"
#include "sheet/worksheet.h"
#include "sheet/xlsx_output.h"

namespace telvaro::sheet {

std::shared_ptr<SheetApplication> SheetApplication::create(SheetOptions options) {
    return std::shared_ptr<SheetApplication>(new SheetApplication(std::move(options)));
}

SheetApplication::~SheetApplication() {
    const std::size_t before = files_.size();
    try {
        finish();
    } catch (const RuntimeError& e) {
        if (options_.failed) options_.failed(e);
    } catch (const std::bad_alloc&) {
        if (options_.failed) options_.failed(RuntimeError(err::OutOfMemory));
    } catch (const std::exception&) {
        if (options_.failed) options_.failed(RuntimeError(err::InternalError));
    }
    if (!options_.written) return;
    for (std::size_t i = before; i < files_.size(); ++i) options_.written(files_[i]);
}

std::shared_ptr<SheetApplication> SheetApplication::self() {
    return std::static_pointer_cast<SheetApplication>(shared_from_this());
}

std::vector<WrittenWorkbook> SheetApplication::finish() {
    std::vector<WrittenWorkbook> written;
    std::optional<RuntimeError> firstFailure;
    for (const auto& book : workbooks_) {
        if (!book->unwritten()) continue;
        try {
            WrittenWorkbook file{writeXlsx(book->sheet, options_.folder, options_.baseName), visible_};
            book->writtenAt = book->changes;
            book->everWritten = true;
            files_.push_back(file);
            written.push_back(file);
        } catch (const RuntimeError& e) {
            if (!firstFailure) firstFailure = e;
        }
    }
    if (firstFailure) throw *firstFailure;
    return written;
}

std::shared_ptr<WorkbookDocument> SheetApplication::addWorkbook() {
    auto book = std::make_shared<WorkbookDocument>();
    book->sheet.spillInto(options_.folder);
    workbooks_.push_back(book);
    active_ = book;
    return book;
}

ObjectRef SheetApplication::activeSheet() {
    if (!active_) return nullptr;  // no workbook open: Nothing
    return std::make_shared<Worksheet>(self(), active_);
}

Variant SheetApplication::invoke(StringView member, InvokeKind kind, std::span<Variant> args) {
    const bool reading = kind == InvokeKind::Method || kind == InvokeKind::PropertyGet;
    if (isMember(member, u"Workbooks") && reading && args.empty())
        return Variant(ObjectRef(std::make_shared<Workbooks>(self())));
    if (isMember(member, u"ActiveSheet") && reading && args.empty()) return Variant(activeSheet());
    if (isMember(member, u"Visible")) {
        if (reading && args.empty()) return Variant(Boolean(visible_));
        if (kind == InvokeKind::PropertyPut && args.size() == 1) {
            visible_ = toBoolean(args[0]).isTrue();
            return {};
        }
        raise(err::WrongNumberOfArguments);
    }
    raiseNoSuchMember();
}

}  // namespace telvaro::sheet
