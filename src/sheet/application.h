// The embedded spreadsheet application, created for "Excel.Application":
// Workbooks, ActiveSheet and Visible. It keeps its workbooks in memory and
// writes each as an .xlsx file into the folder the host chose, when the
// host calls finish() or, at the latest, when the last reference to the
// application or to any of its objects is gone.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "runtime/object.h"
#include "sheet/workbook_document.h"

namespace telvaro::sheet {

struct WrittenWorkbook {
    std::filesystem::path path;
    bool visible = false;  // whether the caller made the application visible
};

struct SheetOptions {
    std::filesystem::path folder;    // where the files go
    std::string baseName = "Libro";  // files are named <base><n>.xlsx
    // Told of each file written when the application is released, and of a
    // failure to write one (the release itself cannot fail).
    std::function<void(const WrittenWorkbook&)> written;
    std::function<void(const RuntimeError&)> failed;
};

class SheetApplication : public Object {
public:
    static std::shared_ptr<SheetApplication> create(SheetOptions options);
    ~SheetApplication() override;

    Variant invoke(StringView member, InvokeKind kind, std::span<Variant> args) override;
    String typeName() const override { return u"Application"; }

    // Writes every workbook changed since it was last written (or never
    // written) and gives the files written by this call. A RuntimeError
    // when one cannot be written; the others are still written.
    std::vector<WrittenWorkbook> finish();
    bool visible() const { return visible_; }
    // Every file written so far.
    const std::vector<WrittenWorkbook>& writtenFiles() const { return files_; }

    // For the Workbooks collection and the sheets.
    std::shared_ptr<WorkbookDocument> addWorkbook();
    ObjectRef activeSheet();

private:
    explicit SheetApplication(SheetOptions options) : options_(std::move(options)) {}
    std::shared_ptr<SheetApplication> self();

    SheetOptions options_;
    bool visible_ = false;
    std::vector<std::shared_ptr<WorkbookDocument>> workbooks_;
    std::shared_ptr<WorkbookDocument> active_;
    std::vector<WrittenWorkbook> files_;
};

}  // namespace telvaro::sheet
