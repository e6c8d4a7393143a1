// A block of cells of a worksheet: its Value (also the default member),
// Font, ColumnWidth of the columns it spans, and BorderAround, which draws
// a border on the outer edges of the block.
#pragma once

#include "sheet/cell_reference.h"
#include "sheet/workbook_document.h"

namespace telvaro::sheet {

class CellRange : public SheetPart {
public:
    CellRange(std::shared_ptr<SheetApplication> app, std::shared_ptr<WorkbookDocument> doc, CellBlock block)
        : SheetPart(std::move(app), std::move(doc)), block_(block) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Range"; }

    const CellBlock& block() const { return block_; }
    const WorkbookDocument* document() const { return doc_.get(); }

    // BorderAround(LineStyle, Weight, ColorIndex, Color), all optional: a
    // thin continuous line in the automatic colour when none is given;
    // error 1004 for values that are not the spreadsheet's constants.
    void borderAround(std::span<const Variant> args);

private:
    Variant columnWidth() const;
    void setColumnWidth(const Variant& width);

    CellBlock block_;
};

}  // namespace telvaro::sheet
