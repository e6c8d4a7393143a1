// fn_ExportaExcelGrid on the library's own grid, through the frame, read
// back from the .xlsx file: titles, bold, sizes, values, boxes and widths.
#include <fstream>

#include "grid/grid_fixture.h"
#include "host/exported_sheets.h"
#include "platform/recording_progress_display.h"
#include "platform/scripted_message_box.h"
#include "sheet/sheet_file.h"

namespace telvaro::gridtest {
namespace {

using sheet::testing::readSheetFile;
using sheet::testing::SheetFile;
using sheet::testing::widthReadBack;

const std::string kBox = " T=thin/000000 L=thin/000000 B=thin/000000 R=thin/000000";
const std::string kTop = " T=thin/000000 L=thin/000000 R=thin/000000";
const std::string kBottom = " L=thin/000000 B=thin/000000 R=thin/000000";

class GridExport : public GridMethods {
protected:
    void SetUp() override { (void)host::takeExportReport(); }
    // Exports without an error and reads back the one file written.
    SheetFile exported(const Variant& grid, std::vector<Variant> args) {
        EXPECT_EQ(errorOf("fn_ExportaExcelGrid", grid, std::move(args)), 0);
        const host::ExportReport report = host::takeExportReport();
        EXPECT_TRUE(report.failures.empty());
        if (report.files.size() != 1) {
            ADD_FAILURE() << report.files.size() << " files written";
            return {};
        }
        const host::ExportedSheet& file = report.files[0];
        EXPECT_TRUE(file.visible);
        EXPECT_EQ(file.path.parent_path(), host::exportsFolder());
        EXPECT_EQ(file.path.extension(), ".xlsx");
        SheetFile sheet = readSheetFile(file.path);
        EXPECT_TRUE(sheet.readable) << file.path;
        return sheet;
    }
};

Variant gridOf(const Rows& rows) { return Variant(ObjectRef(makeGrid(rows))); }

const Rows kVentas = {
    {"#", "Código", "Nombre", "Saldo"}, {"1", "001", "Ana Ñúñez", "12.50"}, {"2", "002", "Luis", "abc"}};

// Faults of the caller's input (past the grid, Nothing): it returns normally and writes what it can.
TEST_F(GridExport, PagesTheGridAsAsked) {
    const Rows ab = {{"a", "b"}, {"1", "2"}};
    struct Case {
        const char* label;
        Variant grid;
        std::vector<Variant> args;  // after the grid
        std::vector<std::string> cells;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"columns 1 to the end, with lines", gridOf(kVentas), {I16{0}, u"Ventas de julio", u"Sucursal norte", I16{1}},
         {"B1 s:Ventas de julio bold size=12", "B3 s:Sucursal norte bold", "B4 s:Código bold" + kBox,
          "C4 s:Nombre bold" + kBox, "D4 s:Saldo bold" + kBox, "B5 n:1.0" + kTop, "C5 s:Ana Ñúñez" + kTop,
          "D5 n:12.5" + kTop, "B6 n:2.0" + kBottom, "C6 s:Luis" + kBottom, "D6 s:abc" + kBottom}},
        {"lines given as 1 draw nothing, headers stay bold", gridOf(kVentas),
         {I16{1}, u"", u"", I16{2}, I16{3}, I16{-1}, Variant(Boolean::fromBits(1))},
         {"B1 bold size=12", "B3 bold", "B4 s:Ana Ñúñez bold", "C4 n:12.5 bold", "B5 s:Luis", "C5 s:abc"}},
        {"columns past the grid's last: boxed, empty", gridOf(ab), {I16{0}, u"T", u"", I16{1}, I16{3}},
         {"B1 s:T bold size=12", "B3 bold", "B4 s:b bold" + kBox, "C4 bold" + kBox, "D4 bold" + kBox,
          "B5 n:2.0" + kBox, "C5" + kBox, "D5" + kBox}},
        {"a grid of Nothing: the titles only", Variant(ObjectRef()), {I16{0}, u"Vacío", u"Nada"},
         {"B1 s:Vacío bold size=12", "B3 s:Nada bold"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        EXPECT_EQ(exported(c.grid, c.args).cells, c.cells);
    }
}

TEST_F(GridExport, WidthsAreTheGridsOverEightyFiveAndOpenEndsAreWrittenBack) {
    auto grid = makeGrid(kVentas);
    for (auto [col, twips] : {std::pair{1, 850}, {2, 2040}, {3, 1275}}) grid->setColWidth(col, twips);
    SheetFile file = exported(Variant(ObjectRef(grid)), {I16{0}, u"", u"", I16{1}, I16{-1}, I16{-1}});
    ASSERT_EQ(file.widths.size(), 3u);
    for (auto [letter, set] : {std::pair{"B", 10.0}, {"C", 24.0}, {"D", 15.0}})
        EXPECT_NEAR(file.widths[letter], widthReadBack(set), sheet::testing::kWidthTolerance) << letter;
    EXPECT_EQ(describe(lastArgs()[5]), describe(Variant(I16{3})));  // ColFin = Cols - 1
    EXPECT_EQ(describe(lastArgs()[6]), describe(Variant(I16{2})));  // FilaFin = Rows - 1
}

// The progress form: its maximum counts the header row, its caption the
// data rows, and it is unloaded at the end.
TEST_F(GridExport, ShowsItsProgressOnFrmProg) {
    const std::string step = "Caption=Progreso . . .      (";
    auto recorder = std::make_shared<RecordingProgressDisplay>();
    ScriptedPlatform platform(defaultPlatform(), {});
    platform.use(std::shared_ptr<ProgressDisplay>(recorder));
    Fun fun(platform);
    std::vector<Variant> args = {gridOf(kVentas), I16{0}, u"", u"", I16{1}, I16{-1}, I16{-1}};
    invoke(fun, std::string_view("fn_ExportaExcelGrid"), args);
    (void)host::takeExportReport();
    std::vector<std::string> made;
    for (const auto& entry : recorder->entries()) made.push_back(toUtf8(entry));
    EXPECT_EQ(made, (std::vector<std::string>{"Load", "PB.Max=3", "PB.Value=0", "Show", "ZOrder 0", "PB.Value=1",
                                              step + "1 de 2)", "PB.Value=2", step + "2 de 2)", "Unload"}));
}

// Where no report is kept (the automation server), a workbook that cannot
// be written is told at once, with its error and the message the user sees.
TEST(ExportFailures, AreToldAtOnceWhereNoReportIsKept) {
    const std::filesystem::path blocker = std::filesystem::path(::testing::TempDir()) / "un-archivo-no-carpeta";
    { std::ofstream(blocker) << "x"; }
    std::vector<RuntimeError> told;
    (void)host::takeExportReport();
    {
        ObjectRef app = host::makeSheetApplication(blocker / "exports", host::ExportRecord::NotKept,
                                                   [&](const RuntimeError& e) { told.push_back(e); });
        objectOf(app->get(u"Workbooks")).call(u"Add");
        objectOf(app->get(u"ActiveSheet")).put(u"Cells", {Variant(1), Variant(1)}, Variant(String(u"dato")));
    }
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].number(), 76);
    EXPECT_TRUE(host::exportFailureMessage(told[0]).starts_with(u"No se pudo guardar el libro de cálculo: "));
    EXPECT_TRUE(host::takeExportReport().empty());
}

}  // namespace
}  // namespace telvaro::gridtest
