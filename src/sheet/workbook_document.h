// One workbook of the embedded spreadsheet: its single worksheet's contents
// and whether they changed since the workbook was last written.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/object.h"
#include "sheet/sheet_data.h"

namespace telvaro::sheet {

class SheetApplication;

struct WorkbookDocument {
    SheetData sheet;
    // Counts the changes; `writtenAt` is the count when last written.
    std::uint64_t changes = 0;
    std::uint64_t writtenAt = 0;
    bool everWritten = false;

    bool unwritten() const { return !everWritten || changes != writtenAt; }
};

// Every object below the application keeps the application alive, as the
// spreadsheet's objects do: the workbooks are written when the last
// reference to any of them is gone.
class SheetPart : public Object {
protected:
    SheetPart(std::shared_ptr<SheetApplication> app, std::shared_ptr<WorkbookDocument> doc)
        : app_(std::move(app)), doc_(std::move(doc)) {}

    // The sheet, to be changed.
    SheetData& edit() {
        ++doc_->changes;
        return doc_->sheet;
    }
    const SheetData& sheet() const { return doc_->sheet; }

    std::shared_ptr<SheetApplication> app_;
    std::shared_ptr<WorkbookDocument> doc_;
};

}  // namespace telvaro::sheet
