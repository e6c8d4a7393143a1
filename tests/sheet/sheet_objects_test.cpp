// The spreadsheet's objects member by member: what assigned values become,
// the errors bad arguments raise, when the files are written, and borders
// and fonts read back from the file.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "sheet/application.h"
#include "sheet_file.h"
#include "support/support.h"

namespace telvaro::sheet {
namespace {

namespace fs = std::filesystem;

fs::path freshFolder(const std::string& name) {
    const char* home = std::getenv("TELVARO_TEST_HOME");
    fs::path folder = fs::path(home ? home : fs::temp_directory_path().string()) / "sheet-objects" / name;
    fs::remove_all(folder);
    return folder;
}

std::shared_ptr<SheetApplication> application(const fs::path& folder) {
    SheetOptions options;
    options.folder = folder;
    return SheetApplication::create(std::move(options));
}

ObjectRef newSheet(Object& app) {
    objectOf(app.get(u"Workbooks")).call(u"Add");
    return app.get(u"ActiveSheet").object();
}

// Runs `fill` on the sheet of a new, visible application, releases it and
// reads back the one file it wrote.
template <typename Fill>
testing::SheetFile releasedFile(const std::string& name, Fill fill) {
    std::vector<WrittenWorkbook> files;
    std::vector<int> failures;
    {
        SheetOptions options;
        options.folder = freshFolder(name);
        options.written = [&](const WrittenWorkbook& w) { files.push_back(w); };
        options.failed = [&](const RuntimeError& e) { failures.push_back(e.number()); };
        auto app = SheetApplication::create(std::move(options));
        ObjectRef sheet = newSheet(*app);
        app->put(u"Visible", Variant(True));
        fill(*sheet);
    }
    EXPECT_TRUE(failures.empty());
    if (files.size() != 1) {
        ADD_FAILURE() << files.size() << " files written";
        return {};
    }
    testing::SheetFile file = testing::readSheetFile(files[0].path);
    EXPECT_TRUE(file.readable) << files[0].path;
    return file;
}

// A block's borders are on its edges only; line style, weight and colour index as given.
TEST(Borders, OfABlockAreOnItsEdgesOnly) {
    testing::SheetFile file = releasedFile("block", [&](Object& sheet) {
        objectOf(sheet.get(u"Range", {Variant(u"D4:B2")})).call(u"BorderAround");
        sheet.put(u"Range", {Variant(u"C3")}, Variant(u"centro"));
        objectOf(sheet.get(u"Range", {Variant(u"F5")}))
            .call(u"BorderAround", {Variant(std::int32_t(-4115)), Variant(std::int32_t(-4138)), Variant(3)});
    });
    EXPECT_EQ(file.cells,
              (std::vector<std::string>{
                  "B2 T=thin L=thin", "C2 T=thin", "D2 T=thin R=thin", "B3 L=thin", "C3 s:centro", "D3 R=thin",
                  "B4 L=thin B=thin", "C4 B=thin", "D4 B=thin R=thin",
                  "F5 T=mediumDashed/FF0000 L=mediumDashed/FF0000 B=mediumDashed/FF0000 R=mediumDashed/FF0000"}));
}

TEST(Fonts, OfWholeColumnsReachCellsWrittenLater) {
    testing::SheetFile file = releasedFile("columns", [&](Object& sheet) {
        sheet.put(u"Cells", {Variant(2), Variant(4)}, Variant(u"antes"));
        objectOf(objectOf(sheet.get(u"Columns", {Variant(u"D")})).get(u"Font")).put(u"Bold", Variant(True));
        sheet.put(u"Cells", {Variant(9), Variant(4)}, Variant(u"después"));
        sheet.put(u"Cells", {Variant(9), Variant(5)}, Variant(u"al lado"));
    });
    EXPECT_EQ(file.cells, (std::vector<std::string>{"D2 s:antes bold", "D9 s:después bold", "E9 s:al lado"}));
}

TEST(CellValues, AreTakenAsTheSpreadsheetTakesThem) {
    auto app = application(freshFolder("values"));
    ObjectRef sheet = newSheet(*app);
    // clang-format off
    const std::pair<Variant, Variant> cases[] = {  // assigned, read back
        {Variant(u"  -4.5 "), Variant(-4.5)}, {Variant(u"0012"), Variant(12.0)}, {Variant(u"1E3"), Variant(1000.0)},
        {Variant(u"&H10"), Variant(u"&H10")}, {Variant(u"'0012"), Variant(u"0012")}, {Variant(u"'"), Variant()},
        {Variant(u""), Variant()},
        {Variant(u"2/3"), Variant(toDate(Variant(u"2/3")))}, {Variant(String(70, u'7')), Variant(String(70, u'7'))},
        {Variant(std::int16_t(7)), Variant(7.0)}, {Variant(Currency{12345}), Variant(1.2345)},
        {Variant(True), Variant(True)}, {Variant(Date{45000.5}), Variant(Date{45000.5})}, {Variant(Null{}), Variant()},
    };
    // clang-format on
    std::int32_t row = 1;
    for (const auto& [assigned, readBack] : cases) {
        // Each value in a cell of its own: a date leaves its cell showing dates.
        ObjectRef cell = sheet->get(u"Cells", {Variant(++row), Variant(3)}).object();
        cell->put(u"Value", Variant(u"previo"));
        cell->put(u"Value", assigned);
        EXPECT_TRUE(identical(cell->get(u"Value"), readBack))
            << describe(assigned) << " -> " << describe(cell->get(u""));
    }
    // A cell that was given a date keeps showing numbers as dates.
    ObjectRef dated = sheet->get(u"Range", {Variant(u"E1")}).object();
    dated->put(u"", Variant(Date{45000}));
    dated->put(u"", Variant(std::int32_t(7)));
    EXPECT_TRUE(identical(dated->get(u""), Variant(Date{7})));
}

TEST(Members, RaiseTheSpreadsheetsErrorsForBadArguments) {
    auto app = application(freshFolder("errors"));
    ObjectRef sheet = newSheet(*app);
    ObjectRef heldB2 = sheet->get(u"Range", {Variant(u"B2")}).object();
    ObjectRef heldFont = heldB2->get(u"Font").object();
    ObjectRef columnsAB = sheet->get(u"Range", {Variant(u"A:B")}).object();
    Object& b2 = *heldB2;
    Object& font = *heldFont;
    auto put = [](Object& o, const char16_t* member, Variant v) { return [&o, member, v] { o.put(member, v); }; };
    auto get = [](Object& o, const char16_t* member, std::vector<Variant> args) {
        return [&o, member, args] { o.get(member, args); };
    };
    auto call = [](Object& o, const char16_t* member, std::vector<Variant> args) {
        return [&o, member, args]() mutable { o.call(member, args); };
    };
    // clang-format off
    const std::tuple<const char*, std::function<void()>, int> cases[] = {
        {"Columns(\"[\")", get(*sheet, u"Columns", {Variant(u"[")}), 13},
        {"Columns(0)", get(*sheet, u"Columns", {Variant(0)}), 1004},
        {"Range(\"hola\")", get(*sheet, u"Range", {Variant(u"hola")}), 1004},
        {"Cells(1048577, 1)", get(*sheet, u"Cells", {Variant(1048577), Variant(1)}), 1004},
        {"Cells(\"x\", 1)", get(*sheet, u"Cells", {Variant(u"x"), Variant(1)}), 13},
        {"Cells(1e10, 1)", get(*sheet, u"Cells", {Variant(1e10), Variant(1)}), 6},
        {"Font.Size = 0", put(font, u"Size", Variant(0)), 1004},
        {"Font.Size = 410", put(font, u"Size", Variant(410)), 1004},
        {"Font.Italic", get(font, u"Italic", {}), 438},
        {"ColumnWidth = 256", put(b2, u"ColumnWidth", Variant(256)), 1004},
        {"ColumnWidth = 255", put(b2, u"ColumnWidth", Variant(255)), 0},
        {"Value = 40000 characters", put(b2, u"Value", Variant(String(40000, u'x'))), 1004},
        {"Value = Nothing", put(b2, u"Value", Variant(ObjectRef())), 91},
        {"Range(\"A:B\").Value = 1", put(*columnsAB, u"Value", Variant(1)), 7},
        {"BorderAround(1, 3)", call(b2, u"BorderAround", {Variant(1), Variant(3)}), 1004},
        {"Workbooks.Add(x)", [&] { objectOf(app->get(u"Workbooks")).call(u"Add", {Variant(u"plantilla.xlt")}); }, 1004},
    };
    // clang-format on
    for (const auto& [what, action, error] : cases) EXPECT_EQ(errorNumberOf(action), error) << what;
}

TEST(Members, ReadBackWhatWasSetAndNullWhenCellsDiffer) {
    auto app = application(freshFolder("readback"));
    EXPECT_FALSE(app->get(u"ActiveSheet").object());  // no workbook yet: Nothing
    ObjectRef sheet = newSheet(*app);
    auto range = [&](const char16_t* text) { return sheet->get(u"Range", {Variant(text)}).object(); };
    objectOf(range(u"B2")->get(u"Font")).put(u"Bold", Variant(True));
    objectOf(range(u"B2:C2")->get(u"Font")).put(u"Size", Variant(14.5));
    range(u"C:D")->put(u"ColumnWidth", Variant(20));
    const std::tuple<const char*, Variant, Variant> cases[] = {
        {"B2 bold", objectOf(range(u"B2")->get(u"Font")).get(u"Bold"), Variant(True)},
        {"B2:C2 bold", objectOf(range(u"B2:C2")->get(u"Font")).get(u"Bold"), Variant(Null{})},
        {"B2:C2 size", objectOf(range(u"B2:C2")->get(u"Font")).get(u"Size"), Variant(14.5)},
        {"E9 size", objectOf(range(u"E9")->get(u"Font")).get(u"Size"), Variant(11.0)},
        {"C:D width", range(u"C:D")->get(u"ColumnWidth"), Variant(20.0)},
        {"B:C width", range(u"B:C")->get(u"ColumnWidth"), Variant(Null{})},
        {"B width", range(u"B7")->get(u"ColumnWidth"), Variant(8.43)},
        {"Visible", app->get(u"Visible"), Variant(False)},
    };
    for (const auto& [what, actual, expected] : cases)
        EXPECT_TRUE(identical(actual, expected)) << what << ": " << describe(actual);
}

// Written on release (nothing while a sheet still holds the application) or
// by finish, which writes each changed workbook once, under free names.
TEST(Files, AreWrittenOnReleaseOrFinishUnderFreeNamesAndReported) {
    const fs::path folder = freshFolder("release");
    std::vector<WrittenWorkbook> onRelease;
    SheetOptions options;
    options.folder = folder;
    options.written = [&](const WrittenWorkbook& w) { onRelease.push_back(w); };
    auto app = SheetApplication::create(std::move(options));
    ObjectRef first = newSheet(*app);
    ObjectRef second = newSheet(*app);
    first->put(u"Range", {Variant(u"A1")}, Variant(u"uno"));
    second->put(u"Range", {Variant(u"A1")}, Variant(1));
    auto written = app->finish();
    ASSERT_EQ(written.size(), 2u);
    EXPECT_EQ(written[0].path, folder / "Libro1.xlsx");
    EXPECT_FALSE(written[0].visible);
    EXPECT_EQ(testing::readSheetFile(written[0].path).cells, std::vector<std::string>{"A1 s:uno"});
    EXPECT_EQ(testing::readSheetFile(written[1].path).cells, std::vector<std::string>{"A1 n:1.0"});
    EXPECT_TRUE(app->finish().empty());
    second->put(u"Range", {Variant(u"A2")}, Variant(u"tres"));
    app->put(u"Visible", Variant(True));
    app.reset();
    first.reset();
    EXPECT_TRUE(onRelease.empty());
    second.reset();
    ASSERT_EQ(onRelease.size(), 1u);
    EXPECT_EQ(onRelease[0].path, folder / "Libro3.xlsx");
    EXPECT_TRUE(onRelease[0].visible);
    EXPECT_EQ(testing::readSheetFile(onRelease[0].path).cells, (std::vector<std::string>{"A1 n:1.0", "A2 s:tres"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 3) << "nothing else is left";
}

TEST(Files, AFolderThatCannotBeMadeIsReportedNotThrownOnRelease) {
    const fs::path parent = freshFolder("blocked");
    fs::create_directories(parent);
    std::ofstream(parent / "exports") << "a file where the folder should be";
    std::vector<int> failures;
    {
        SheetOptions options;
        options.folder = parent / "exports";
        options.failed = [&](const RuntimeError& e) { failures.push_back(e.number()); };
        auto app = SheetApplication::create(std::move(options));
        newSheet(*app)->put(u"Cells", {Variant(1), Variant(1)}, Variant(1));
        EXPECT_EQ(errorNumberOf([&] { app->finish(); }), err::PathNotFound);
    }
    EXPECT_EQ(failures, std::vector<int>{err::PathNotFound});
}

}  // namespace
}  // namespace telvaro::sheet
