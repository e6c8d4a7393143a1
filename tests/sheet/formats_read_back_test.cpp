// Borders and fonts set through the spreadsheet's members, read back from
// the written file. The exports' whole pages are read back by the grid and
// query export tests.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "sheet/application.h"
#include "sheet_file.h"
#include "support/support.h"

namespace telvaro::sheet {
namespace {

namespace fs = std::filesystem;
using testing::readSheetFile;
using testing::SheetFile;
using testing::widthReadBack;

fs::path freshFolder(const std::string& name) {
    const char* home = std::getenv("TELVARO_TEST_HOME");
    fs::path folder = fs::path(home ? home : fs::temp_directory_path().string()) / "sheet" / name;
    fs::remove_all(folder);
    return folder;
}

// Workbooks.Add, ActiveSheet, Visible = True.
ObjectRef openSheet(Object& app) {
    objectOf(app.get(u"Workbooks")).call(u"Add");
    ObjectRef sheet = app.get(u"ActiveSheet").object();
    app.put(u"Visible", Variant(True));
    return sheet;
}

struct Written {
    std::vector<WrittenWorkbook> files;
    std::vector<int> failures;
};

// Runs `fill` on a new application and releases it; what it wrote.
template <typename Fill>
Written releaseAfter(const fs::path& folder, Fill fill) {
    Written written;
    {
        SheetOptions options;
        options.folder = folder;
        options.written = [&](const WrittenWorkbook& w) { written.files.push_back(w); };
        options.failed = [&](const RuntimeError& e) { written.failures.push_back(e.number()); };
        auto app = SheetApplication::create(std::move(options));
        fill(*app);
    }
    return written;
}

SheetFile onlyFile(const Written& written) {
    EXPECT_TRUE(written.failures.empty());
    if (written.files.size() != 1) {
        ADD_FAILURE() << written.files.size() << " files written";
        return {};
    }
    SheetFile file = readSheetFile(written.files[0].path);
    EXPECT_TRUE(file.readable) << written.files[0].path;
    return file;
}

const std::string kBox = " T=thin/000000 L=thin/000000 B=thin/000000 R=thin/000000";

TEST(Borders, TakeLineStyleWeightAndColourIndex) {
    struct Case {
        std::vector<Variant> args;
        std::string edges;
    } cases[] = {
        {{}, "T=thin L=thin B=thin R=thin"},
        {{Variant(std::int32_t(-4115)), Variant(std::int32_t(-4138)), Variant(std::int32_t(3))},
         "T=mediumDashed/FF0000 L=mediumDashed/FF0000 B=mediumDashed/FF0000 R=mediumDashed/FF0000"},
        {{Variant(std::int32_t(-4119)), Variant(std::int32_t(4)), Variant(std::int32_t(5))},
         "T=double/0000FF L=double/0000FF B=double/0000FF R=double/0000FF"},
        {{Variant(std::int32_t(1)), Variant(std::int32_t(4)), Variant::missing(), Variant(std::int32_t(0x00FF00))},
         "T=thick/00FF00 L=thick/00FF00 B=thick/00FF00 R=thick/00FF00"},
    };
    for (const auto& c : cases) {
        SheetFile file = onlyFile(releaseAfter(freshFolder("borders"), [&](Object& app) {
            ObjectRef sheet = openSheet(app);
            std::vector<Variant> args = c.args;
            objectOf(sheet->get(u"Range", {Variant(u"C3")})).call(u"BorderAround", args);
        }));
        EXPECT_EQ(file.cells, std::vector<std::string>{"C3 " + c.edges});
    }
}

TEST(Borders, OfABlockAreOnItsEdgesOnly) {
    SheetFile file = onlyFile(releaseAfter(freshFolder("block"), [&](Object& app) {
        ObjectRef sheet = openSheet(app);
        objectOf(sheet->get(u"Range", {Variant(u"D4:B2")})).call(u"BorderAround");
        sheet->put(u"Range", {Variant(u"C3")}, Variant(u"centro"));
    }));
    EXPECT_EQ(file.cells,
              (std::vector<std::string>{"B2 T=thin L=thin", "C2 T=thin", "D2 T=thin R=thin", "B3 L=thin", "C3 s:centro",
                                        "D3 R=thin", "B4 L=thin B=thin", "C4 B=thin", "D4 B=thin R=thin"}));
}

TEST(Fonts, OfWholeColumnsReachCellsWrittenLater) {
    SheetFile file = onlyFile(releaseAfter(freshFolder("columns"), [&](Object& app) {
        ObjectRef sheet = openSheet(app);
        sheet->put(u"Cells", {Variant(2), Variant(4)}, Variant(u"antes"));
        objectOf(objectOf(sheet->get(u"Columns", {Variant(u"D")})).get(u"Font")).put(u"Bold", Variant(True));
        sheet->put(u"Cells", {Variant(9), Variant(4)}, Variant(u"después"));
        sheet->put(u"Cells", {Variant(9), Variant(5)}, Variant(u"al lado"));
    }));
    EXPECT_EQ(file.cells, (std::vector<std::string>{"D2 s:antes bold", "D9 s:después bold", "E9 s:al lado"}));
}

}  // namespace
}  // namespace telvaro::sheet
