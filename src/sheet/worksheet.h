// The worksheet of a workbook: Cells(row, column), Columns(letters) and
// Range(cell1, cell2) name blocks of cells; each gives a Range, and an
// assignment to any of them puts the value into every cell of the block.
#pragma once

#include "sheet/cell_reference.h"
#include "sheet/workbook_document.h"

namespace telvaro::sheet {

class Worksheet : public SheetPart {
public:
    Worksheet(std::shared_ptr<SheetApplication> app, std::shared_ptr<WorkbookDocument> doc)
        : SheetPart(std::move(app), std::move(doc)) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Worksheet"; }

    // The block named by the arguments of each member; error 1004 for a
    // cell outside the sheet or a reference that cannot be read, error 13
    // for column letters that name no column.
    static CellBlock cellsBlock(std::span<const Variant> args);
    static CellBlock columnsBlock(std::span<const Variant> args);
    CellBlock rangeBlock(std::span<const Variant> args) const;

private:
    CellBlock blockOf(const WorkbookDocument* doc, const Variant& corner) const;
};

}  // namespace telvaro::sheet
