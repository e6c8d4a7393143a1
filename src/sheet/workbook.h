// One workbook of the embedded spreadsheet; its ActiveSheet is its only
// worksheet.
#pragma once

#include "sheet/workbook_document.h"

namespace telvaro::sheet {

class Workbook : public SheetPart {
public:
    Workbook(std::shared_ptr<SheetApplication> app, std::shared_ptr<WorkbookDocument> doc)
        : SheetPart(std::move(app), std::move(doc)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Workbook"; }
};

}  // namespace telvaro::sheet
