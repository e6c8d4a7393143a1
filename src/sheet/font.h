// The font of a block of cells: Bold and Size. Reading gives the value the
// whole block shares, or Null when its cells differ.
#pragma once

#include "sheet/cell_reference.h"
#include "sheet/workbook_document.h"

namespace telvaro::sheet {

class Font : public SheetPart {
public:
    Font(std::shared_ptr<SheetApplication> app, std::shared_ptr<WorkbookDocument> doc, CellBlock block)
        : SheetPart(std::move(app), std::move(doc)), block_(block) {}
    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Font"; }

private:
    template <typename Read>
    Variant shared(Read read) const;

    CellBlock block_;
};

}  // namespace telvaro::sheet
