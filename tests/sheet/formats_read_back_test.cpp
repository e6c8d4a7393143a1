// The pages the grid and query exports build, driven member by member the
// way the exports drive the spreadsheet, then read back from the file.
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

Variant at(Object& sheet, std::int32_t row, std::int32_t column) {
    return sheet.get(u"Cells", {Variant(row), Variant(column)});
}

// Workbooks.Add, ActiveSheet, Visible = True.
ObjectRef openSheet(Object& app) {
    objectOf(app.get(u"Workbooks")).call(u"Add");
    ObjectRef sheet = app.get(u"ActiveSheet").object();
    app.put(u"Visible", Variant(True));
    return sheet;
}

void borderAround(const Variant& range) {
    objectOf(range).call(u"BorderAround", {Variant(std::int32_t(1)), Variant(std::int32_t(2)), Variant(std::int32_t(1))});
}

struct GridPage {
    String title, subtitle;
    std::vector<std::vector<String>> rows;  // the header row first
    std::vector<double> gridWidths;         // in the grid's units
    Boolean lines = True;
};

void writeGridPage(Object& app, const GridPage& page) {
    ObjectRef sheet = openSheet(app);
    sheet->put(u"Cells", {Variant(1), Variant(2)}, Variant(page.title));
    objectOf(objectOf(at(*sheet, 1, 2)).get(u"Font")).put(u"Bold", Variant(True));
    objectOf(objectOf(at(*sheet, 1, 2)).get(u"Font")).put(u"Size", Variant(std::int32_t(12)));
    objectOf(at(*sheet, 3, 2)).put(u"Value", Variant(page.subtitle));
    objectOf(objectOf(at(*sheet, 3, 2)).get(u"Font")).put(u"Bold", Variant(True));
    const auto columns = static_cast<std::int32_t>(page.rows.front().size());
    char16_t letter = u'B';
    for (std::int32_t i = 0; i < columns; ++i, ++letter) {
        objectOf(at(*sheet, 4, i + 2)).put(u"", Variant(page.rows[0][i]));
        try {  // the export skips failing statements
            objectOf(sheet->get(u"Columns", {Variant(String(1, letter))}))
                .put(u"ColumnWidth", Variant(page.gridWidths[i] / 85));
        } catch (const RuntimeError&) {
        }
    }
    for (std::size_t r = 1; r < page.rows.size(); ++r)
        for (std::int32_t i = 0; i < columns; ++i)
            sheet->put(u"Cells", {Variant(std::int32_t(r + 4)), Variant(i + 2)}, Variant(page.rows[r][i]));
    const auto lastRow = static_cast<std::int32_t>(page.rows.size() - 1 + 4);
    for (std::int32_t i = 0; i < columns; ++i) {
        if (page.lines == True) borderAround(at(*sheet, 4, i + 2));
        objectOf(objectOf(at(*sheet, 4, i + 2)).get(u"Font")).put(u"Bold", Variant(True));
        if (page.lines == True) borderAround(sheet->get(u"Range", {at(*sheet, 5, i + 2), at(*sheet, lastRow, i + 2)}));
    }
}

struct RecordPage {
    String title;
    std::vector<String> headers;
    std::vector<double> widths;
    std::vector<std::vector<Variant>> records;
};

void writeRecordPage(Object& app, const RecordPage& page) {
    const auto count = static_cast<std::int32_t>(page.records.size());
    ObjectRef sheet = openSheet(app);
    objectOf(sheet->get(u"Columns", {Variant(u"A")})).put(u"ColumnWidth", Variant(std::int32_t(6)));
    sheet->put(u"Cells", {Variant(2), Variant(3)}, Variant(page.title));
    objectOf(objectOf(at(*sheet, 2, 3)).get(u"Font")).put(u"Bold", Variant(True));
    objectOf(objectOf(at(*sheet, 2, 3)).get(u"Font")).put(u"Size", Variant(std::int32_t(14)));
    char16_t letter = u'B';
    for (std::int32_t i = 1; i <= static_cast<std::int32_t>(page.headers.size()); ++i, ++letter) {
        sheet->put(u"Cells", {Variant(4), Variant(i + 1)}, Variant(page.headers[i - 1]));
        objectOf(sheet->get(u"Columns", {Variant(String(1, letter))})).put(u"ColumnWidth", Variant(page.widths[i - 1]));
        borderAround(at(*sheet, 4, i + 1));
        objectOf(objectOf(at(*sheet, 4, i + 1)).get(u"Font")).put(u"Bold", Variant(True));
        borderAround(sheet->get(u"Range", {at(*sheet, 5, i + 1), at(*sheet, count + 5, i + 1)}));
    }
    for (std::int32_t r = 0; r < count; ++r)
        for (std::size_t j = 0; j < page.records[r].size(); ++j) {
            const Variant& field = page.records[r][j];
            const Variant value = isDate(field) ? Variant(u"'" + toString(field)) : field;
            sheet->put(u"Cells", {Variant(r + 5), Variant(std::int32_t(j + 2))}, value);
        }
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

TEST(GridPage, HoldsTitleHeaderDataBordersAndWidths) {
    GridPage page{u"Ventas de julio", u"",
                  {{u"Código", u"Nombre", u"Saldo"}, {u"001", u"Ana Ñúñez", u"12.50"}, {u"002", u"Luis", u"abc"}},
                  {850, 2040, 1275}};
    const fs::path folder = freshFolder("grid");
    Written written = releaseAfter(folder, [&](Object& app) { writeGridPage(app, page); });
    SheetFile file = onlyFile(written);
    const std::vector<std::string> expected = {
        "B1 s:Ventas de julio bold size=12",
        "B3 bold",
        "B4 s:Código bold" + kBox,
        "C4 s:Nombre bold" + kBox,
        "D4 s:Saldo bold" + kBox,
        "B5 n:1.0 T=thin/000000 L=thin/000000 R=thin/000000",
        "C5 s:Ana Ñúñez T=thin/000000 L=thin/000000 R=thin/000000",
        "D5 n:12.5 T=thin/000000 L=thin/000000 R=thin/000000",
        "B6 n:2.0 L=thin/000000 B=thin/000000 R=thin/000000",
        "C6 s:Luis L=thin/000000 B=thin/000000 R=thin/000000",
        "D6 s:abc L=thin/000000 B=thin/000000 R=thin/000000",
    };
    EXPECT_EQ(file.cells, expected);
    EXPECT_EQ(file.sheetName, "Hoja1");
    ASSERT_EQ(file.widths.size(), 3u);
    EXPECT_NEAR(file.widths["B"], widthReadBack(10), testing::kWidthTolerance);
    EXPECT_NEAR(file.widths["C"], widthReadBack(24), testing::kWidthTolerance);
    EXPECT_NEAR(file.widths["D"], widthReadBack(15), testing::kWidthTolerance);
    EXPECT_TRUE(written.files[0].visible);
    EXPECT_EQ(written.files[0].path, folder / "Libro1.xlsx");
}

TEST(GridPage, WithoutDataRowsOrLinesKeepsHeaderBold) {
    // No data rows: the data block runs from row 5 back to row 4, so its
    // border is drawn around B4:B5.
    GridPage onlyHeader{u"T", u"Sub", {{u"Uno"}}, {850}};
    SheetFile file = onlyFile(releaseAfter(freshFolder("header"), [&](Object& app) { writeGridPage(app, onlyHeader); }));
    EXPECT_EQ(file.cells, (std::vector<std::string>{"B1 s:T bold size=12", "B3 s:Sub bold",
                                                    "B4 s:Uno bold T=thin/000000 L=thin/000000 B=thin/000000 R=thin/000000",
                                                    "B5 L=thin/000000 B=thin/000000 R=thin/000000"}));
    // Lines given as 1 rather than True: no borders at all.
    GridPage noLines{u"T", u"", {{u"Uno"}, {u"x"}}, {850}, Boolean::fromBits(1)};
    file = onlyFile(releaseAfter(freshFolder("nolines"), [&](Object& app) { writeGridPage(app, noLines); }));
    EXPECT_EQ(file.cells, (std::vector<std::string>{"B1 s:T bold size=12", "B3 bold", "B4 s:Uno bold", "B5 s:x"}));
}

TEST(GridPage, ThirtyColumnsGetWidthsOnlyUpToZ) {
    GridPage page{u"Ancha", u"", {{}, {}}, {}};
    for (int i = 0; i < 30; ++i) {
        page.rows[0].push_back(u"C" + ascii(std::to_string(i)));
        page.rows[1].push_back(ascii(std::to_string(i)));
        page.gridWidths.push_back(85.0 * (i + 1));
    }
    SheetFile file = onlyFile(releaseAfter(freshFolder("wide"), [&](Object& app) { writeGridPage(app, page); }));
    ASSERT_EQ(file.widths.size(), 25u);
    for (int i = 0; i < 25; ++i) {
        const std::string letter(1, static_cast<char>('B' + i));
        EXPECT_NEAR(file.widths[letter], widthReadBack(i + 1), testing::kWidthTolerance) << letter;
    }
    // All 30 columns of data, the last in AE.
    EXPECT_EQ(file.cells.back(), "AE5 n:29.0" + kBox);
    EXPECT_EQ(file.cells.size(), 2u + 30 + 30);
}

TEST(GridPage, ThreeHundredColumnsReachLowerCaseLettersAndStopAtTheRest) {
    GridPage page{u"Muy ancha", u"", {{}, {}}, {}};
    for (int i = 0; i < 300; ++i) {
        page.rows[0].push_back(u"C" + ascii(std::to_string(i)));
        page.rows[1].push_back(u"x");
        page.gridWidths.push_back(85.0 * (i + 1));
    }
    SheetFile file = onlyFile(releaseAfter(freshFolder("widest"), [&](Object& app) { writeGridPage(app, page); }));
    // After "Z" come "[" to "`" (no columns), then "a" to "z", which name
    // columns A to Z again, then characters that name none.
    ASSERT_EQ(file.widths.size(), 26u);
    for (int i = 0; i < 26; ++i) {
        const std::string letter(1, static_cast<char>('A' + i));
        EXPECT_NEAR(file.widths[letter], widthReadBack(32 + i), testing::kWidthTolerance) << letter;
    }
    EXPECT_EQ(file.cells.size(), 2u + 300 + 300);
    EXPECT_EQ(file.cells.back(), "KO5 s:x" + kBox);
}

TEST(RecordPage, KeepsDateLikeTextsAndBordersOneRowPastTheRecords) {
    RecordPage page{u"Clientes",
                    {u"Nombre", u"Fecha", u"Monto"},
                    {20, 12.5, 9},
                    {{Variant(u"Ana"), Variant(u"2/3"), Variant(1500.25)},
                     {Variant(u"Luis"), Variant(u"sin fecha"), Variant(std::int32_t(7)), Variant(True)}}};
    SheetFile file = onlyFile(releaseAfter(freshFolder("records"), [&](Object& app) { writeRecordPage(app, page); }));
    const std::string sides = " L=thin/000000 R=thin/000000";
    const std::vector<std::string> expected = {
        "C2 s:Clientes bold size=14",
        "B4 s:Nombre bold" + kBox,
        "C4 s:Fecha bold" + kBox,
        "D4 s:Monto bold" + kBox,
        "B5 s:Ana T=thin/000000" + sides,
        "C5 s:2/3 T=thin/000000" + sides,
        "D5 n:1500.25 T=thin/000000" + sides,
        "B6 s:Luis" + sides,
        "C6 s:sin fecha" + sides,
        "D6 n:7.0" + sides,
        "E6 b:True",
        "B7 L=thin/000000 B=thin/000000 R=thin/000000",
        "C7 L=thin/000000 B=thin/000000 R=thin/000000",
        "D7 L=thin/000000 B=thin/000000 R=thin/000000",
    };
    EXPECT_EQ(file.cells, expected);
    for (auto [letter, set] : {std::pair{"A", 6.0}, {"B", 20.0}, {"C", 12.5}, {"D", 9.0}})
        EXPECT_NEAR(file.widths[letter], widthReadBack(set), testing::kWidthTolerance) << letter;
}

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
    EXPECT_EQ(file.cells, (std::vector<std::string>{"B2 T=thin L=thin", "C2 T=thin", "D2 T=thin R=thin", "B3 L=thin",
                                                    "C3 s:centro", "D3 R=thin", "B4 L=thin B=thin", "C4 B=thin",
                                                    "D4 B=thin R=thin"}));
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
