// Grids filled from queries: the column list and every format code, the
// rows cleared and kept, the progress form's sequence, the title rows, the
// search variant, the failures, and the same on PostgreSQL through ODBC.
#include <gtest/gtest.h>

#include "context/frm_prog.h"
#include "context/fun.h"
#include "db/grid_loading.h"
#include "db_support.h"
#include "objects/flex_grid.h"
#include "objects/picture.h"

namespace telvaro::dbtest {
namespace {

// A grid's texts, one string per row with "|" between the cells.
using Texts = std::vector<std::string>;
using Grid = std::shared_ptr<objects::FlexGrid>;

Grid newGrid(std::int32_t rows, std::int32_t cols, std::int32_t fixedRows = 1) {
    auto grid = std::make_shared<objects::FlexGrid>(u"grdDatos", rows, cols);
    grid->setFixedRows(fixedRows);
    return grid;
}

Texts textsOf(const objects::FlexGrid& grid) {
    Texts out;
    for (std::int32_t r = 0; r < grid.rows(); ++r) {
        out.emplace_back();
        for (std::int32_t c = 0; c < grid.cols(); ++c) out.back() += (c ? "|" : "") + toUtf8(grid.textMatrix(r, c));
    }
    return out;
}

std::string pictureOf(const objects::FlexGrid& grid, std::int32_t row, std::int32_t col) {
    const objects::CellFormat* cell = grid.cellFormat(row, col);
    if (!cell || !cell->picture) return "";
    return toUtf8(std::static_pointer_cast<objects::Picture>(cell->picture)->source());
}

ObjectRef products(std::int32_t location = 3) {
    return data::testing::memoryConnection(
        {u"CREATE TABLE productos (codigo INTEGER, nombre TEXT, precio REAL, stock INTEGER, alta TEXT)",
         u"INSERT INTO productos VALUES (1, 'Arroz', 12.5, 40, '2024-03-15')",
         u"INSERT INTO productos VALUES (2, 'Azúcar', 0.75, 0, '2024-12-01')",
         u"INSERT INTO productos VALUES (3, 'Café', 3, NULL, NULL)"},
        location);
}

const char16_t* const kAll = u"SELECT codigo, nombre, precio, stock, alta FROM productos ORDER BY codigo";

// RegLlenaGridRegSql in `session`; `options` are its arguments after Campos.
Outcome fill(Session& session, const ObjectRef& connection, const Grid& grid, const char16_t* sql,
             const char16_t* campos, std::vector<Variant> options = {}) {
    std::vector<Variant> args = {Variant(connection), Variant(ObjectRef(grid)), v(sql), v(campos)};
    args.insert(args.end(), options.begin(), options.end());
    return session.run("RegLlenaGridRegSql", std::move(args));
}

TEST(GridLoading, EveryFormatCode) {
    struct Case {
        const char* what;
        const char16_t* value;  // an SQL expression
        const char16_t* code;   // "" for an entry without "|"
        const char* cell;       // "antes" when the cell is left as it was
        int error = 0;
        const char16_t* numDeci = u"##0.00";
    };
    // One time and one date code stand for their tables of patterns.
    const char16_t* conditional = u";(0.00);:cero;0.00;:sin dato";
    // clang-format off
    const std::vector<Case> cases = {
        {"no code", u"12.5", u"", "12.5"},
        {"check box", u"1", u"V", "1"},
        {"N with NumDeci", u"3.14159", u"N", "3.14"},
        {"n in small letters, another NumDeci", u"3.14159", u"n", "3.142", 0, u"0.000"},
        {"N on a numeric text", u"'7.5'", u"N", "7.50"},
        {"N on text", u"'mucho'", u"N", "antes", 13},
        {"N% above 0", u"15", u"N%", "15%"},
        {"N% of 0 leaves the cell", u"0", u"N%", "antes"},
        {"N% of Null leaves the cell", u"NULL", u"N%", "antes"},
        {"N$ ignores NumDeci", u"1234.5", u"N$", "$ 1234.50", 0, u"0.0000"},
        {"N$ of Null", u"NULL", u"N$", "$ "},
        {"HM", u"'2024-03-15 08:05:09'", u"HM", "08h 05m"},
        {"HH", u"'2024-03-15 17:30:00'", u"HH", "17h"},
        {"H on text", u"'tarde'", u"H", "antes", 13},
        {"f in small letters", u"'2024-03-15'", u"f", "15/03/2024"},
        {"FL", u"'2024-03-15'", u"FL", "vie, 15 de marzo del 2024"},
        {"FT", u"'2024-03-05'", u"FT", "5 de marzo del 2024"},
        {"F of a day count", u"45366", u"F", "15/03/2024"},
        {"F of Null", u"NULL", u"F", ""},
        {"F on text", u"'mañana'", u"F", "antes", 13},
        {"a pattern", u"2.26", u"0.0", "2.3"},
        {"a blank after the bar makes a pattern: n is the minute", u"5", u" N$", " 0$"},
        {"an unknown code is a pattern: q is the quarter", u"5", u"QQ", "11"},
        {"conditional, negative", u"-5", conditional, "(5.00)"},
        {"conditional, zero", u"0", conditional, "cero"},
        {"conditional, positive", u"7.5", conditional, "7.50"},
        {"conditional, Null", u"NULL", conditional, "sin dato"},
        {"conditional, numeric text", u"'-2'", u";:debe;:cero;:haber;:nada", "debe"},
        {"conditional, text", u"'abc'", u";:debe;:cero;:haber;:nada", "antes"},
        {"conditional, three sections", u"4", u";a;b;c", "antes", 5},
        {"conditional cut at its comma (an entry ends there)", u"4", u";(#,##0.00);:cero;#,##0.00;:x", "antes", 5},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(2, 2);
        grid->setTextMatrix(1, 1, u"antes");
        const String campos = String(u"valor") + (*c.code ? u"|" + String(c.code) : String());
        const String sql = u"SELECT " + String(c.value) + u" AS valor";
        Session session;
        const Outcome out = session.run("RegLlenaGridRegSql",
                                        {Variant(products()), Variant(ObjectRef(grid)), Variant(sql), Variant(campos),
                                         v(False), v(False), v(1), i16(1), v(False), v(c.numDeci)});
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        EXPECT_EQ(toUtf8(grid->textMatrix(1, 1)), c.cell);
    }
}

TEST(GridLoading, CheckBoxColumns) {
    auto grid = newGrid(2, 3);
    Session session;
    const Outcome out =
        fill(session, products(), grid,
             u"SELECT codigo, CASE WHEN stock > 0 THEN 1 ELSE 0 END AS hay FROM productos ORDER BY codigo",
             u"codigo, hay|V");
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(textsOf(*grid), (Texts{"||", "|1|1", "|2|0", "|3|0"}));
    EXPECT_EQ(pictureOf(*grid, 1, 2), "imSI");
    EXPECT_EQ(pictureOf(*grid, 2, 2), "imNO");
    EXPECT_EQ(grid->cellFormat(1, 2)->fontName, String(u"Small Fonts"));  // the value kept as hidden text
    EXPECT_EQ(pictureOf(*grid, 1, 1), "");
}

TEST(GridLoading, ColumnsChosenByTheList) {
    struct Case {
        const char* what;
        const char16_t* campos;
        std::int16_t colInicio;
        Texts rows;  // the data rows after the call
        int error = 0;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"three entries from column 1, stock ignored", u"Codigo, Nombre, Precio|N$", 1,
         {"-|1|Arroz|$ 12.50|-", "-|2|Azúcar|$ 0.75|-", "-|3|Café|$ 3.00|-"}},
        {"names trimmed, any case, in another order", u" PRECIO |n, nombre ", 0,
         {"12.50|Arroz|-|-|-", "0.75|Azúcar|-|-|-", "3.00|Café|-|-|-"}},
        {"an entry naming no field leaves its column", u"codigo, apellido, nombre", 2,
         {"-|-|1|-|Arroz", "-|-|2|-|Azúcar", "-|-|3|-|Café"}},
        {"the first of two equal entries", u"nombre, NOMBRE|>", 1, {"-|Arroz|-|-|-", "-|Azúcar|-|-|-", "-|Café|-|-|-"}},
        {"a column past the grid: what was written stays", u"codigo, nombre", 4,
         {"-|-|-|-|1", "-|-|-|-|-", "-|-|-|-|-"}, 381},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(4, 5);
        for (std::int32_t r = 1; r < 4; ++r)
            for (std::int32_t col = 0; col < 5; ++col) grid->setTextMatrix(r, col, u"-");
        Session session;
        const Outcome out =
            fill(session, products(), grid, kAll, c.campos, {v(False), v(False), v(1), Variant(c.colInicio)});
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        Texts expected = {"||||"};
        expected.insert(expected.end(), c.rows.begin(), c.rows.end());
        EXPECT_EQ(textsOf(*grid), expected);
    }
}

TEST(GridLoading, RowsClearedAndKept) {
    struct Case {
        const char* what;
        const char16_t* sql;
        std::int32_t location;
        std::vector<Variant> options;  // Limpiar, Dejar1Fila, FilInicio, ColInicio
        Texts cells;
    };
    const char16_t* const none = u"SELECT codigo, nombre FROM productos WHERE codigo > 9";
    const char16_t* const two = u"SELECT codigo, nombre FROM productos WHERE codigo < 3 ORDER BY codigo";
    // clang-format off
    const std::vector<Case> cases = {
        {"empty result, one empty row left", none, 3, {v(True), v(True), v(1), i16(0)}, {"T0|T1", "|"}},
        {"empty result, no row left", none, 3, {v(True), v(False), v(1), i16(0)}, {"T0|T1"}},
        {"two records from row 1", two, 3, {v(True), v(True), v(1), i16(0)}, {"T0|T1", "1|Arroz", "2|Azúcar"}},
        {"from row 0 the whole grid is cleared", two, 3, {v(True), v(False), v(0), i16(0)}, {"1|Arroz", "2|Azúcar"}},
        {"without Limpiar the rows above FilInicio stay", two, 3, {v(False), v(False), v(2), i16(0)},
         {"T0|T1", "a|b", "1|Arroz", "2|Azúcar"}},
        {"a server cursor counts -1: nothing written", two, 2, {v(True), v(False), v(1), i16(0)}, {"T0|T1"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(5, 2);
        grid->setTextMatrix(0, 0, u"T0");
        grid->setTextMatrix(0, 1, u"T1");
        for (std::int32_t r = 1; r < 5; ++r) {
            grid->setTextMatrix(r, 0, u"a");
            grid->setTextMatrix(r, 1, u"b");
        }
        Session session;
        const Outcome out = fill(session, products(c.location), grid, c.sql, u"codigo, nombre", c.options);
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(textsOf(*grid), c.cells);
    }
}

TEST(GridLoading, ProgressFormSequence) {
    const std::string step = "Caption=Progreso . . .      (";
    // clang-format off
    const std::vector<std::string> shown = {"Load", "PB.Value=0", "PB.Max=3", "Show", "PB.Value=1", step + "1 de 3)",
                                            "PB.Value=2", step + "2 de 3)", "PB.Value=3", step + "3 de 3)", "Unload"};
    // clang-format on
    struct Case {
        const char* what;
        const char16_t* sql;
        Variant progresB;
        std::vector<std::string> progress;
    };
    const std::vector<Case> cases = {
        {"shown while three rows are written", kAll, v(True), shown},
        {"not asked", kAll, v(False), {}},
        {"no rows: never loaded", u"SELECT codigo FROM productos WHERE codigo = 0", v(True), {}},
        // Only exactly True shows it; another non-zero value counts on it unseen, against the designed Max.
        {"ProgresB 1",
         kAll,
         Variant(Boolean::fromBits(1)),
         {"Load", "PB.Value=1", step + "1 de 100)", "PB.Value=2", step + "2 de 100)", "PB.Value=3", step + "3 de 100)",
          "Unload"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(2, 3);
        Session session;
        const Outcome out = fill(session, products(), grid, c.sql, u"codigo, nombre",
                                 {v(True), v(False), v(1), i16(1), v(False), v(u"##0.00"), c.progresB});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(session.progress(), c.progress);
    }
}

TEST(GridLoading, ProgressFormLeftOnScreenByAFailure) {
    Session session;
    auto narrow = newGrid(2, 2);
    const std::vector<Variant> options = {v(True), v(False), v(1), i16(1), v(False), v(u"##0.00"), v(True)};
    // The second column is past the grid: the first cell is written, then 381.
    const Outcome failed = fill(session, products(), narrow, kAll, u"codigo, nombre", options);
    EXPECT_EQ(failed.error, 381);
    EXPECT_EQ(toUtf8(narrow->textMatrix(1, 1)), "1");
    EXPECT_EQ(session.progress(), (std::vector<std::string>{"Load", "PB.Value=0", "PB.Max=3", "Show", "PB.Value=1",
                                                            "Caption=Progreso . . .      (1 de 3)"}));
    // The next call finds the form loaded and shown as it was.
    auto wide = newGrid(2, 3);
    const Outcome next =
        fill(session, products(), wide, u"SELECT codigo FROM productos WHERE codigo = 2", u"codigo", options);
    ASSERT_EQ(next.error, 0) << toUtf8(next.description);
    EXPECT_EQ(session.progress(), (std::vector<std::string>{"PB.Value=0", "PB.Max=1", "Show", "PB.Value=1",
                                                            "Caption=Progreso . . .      (1 de 1)", "Unload"}));
    // ProgresB 1 counts against the designed Max of 100: the 101st row is 380, the 100 rows before it stay.
    std::vector<String> many = {u"CREATE TABLE n (i INTEGER)"};
    for (int i = 1; i <= 101; ++i) many.push_back(u"INSERT INTO n VALUES (" + fromUtf8(std::to_string(i)) + u")");
    auto grid = newGrid(2, 2);
    std::vector<Variant> counted = options;
    counted.back() = Variant(Boolean::fromBits(1));
    const Outcome over =
        fill(session, data::testing::memoryConnection(many, 3), grid, u"SELECT i FROM n ORDER BY i", u"i", counted);
    EXPECT_EQ(over.error, 380);
    EXPECT_EQ(toUtf8(grid->textMatrix(100, 1)), "100");
    EXPECT_EQ(toUtf8(grid->textMatrix(101, 1)), "");
    const auto entries = session.progress();
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(entries.front(), "Load");
    EXPECT_EQ(entries.back(), "Caption=Progreso . . .      (100 de 100)");
}

TEST(GridLoading, TitleRows) {
    struct Case {
        const char* what;
        std::int32_t fixedRows;
        Variant negritaTit;
        bool formatted;
    };
    const std::vector<Case> cases = {
        {"bold and centred", 2, v(True), true},
        {"no title rows", 0, v(True), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(3, 3, c.fixedRows);
        grid->setTextMatrix(0, 1, u"Código");
        const ObjectRef font = grid->get(u"Font").object();
        font->put(u"Name", v(u"Tahoma"));
        font->put(u"Size", Variant(11.0));
        Session session;
        const Outcome out =
            fill(session, products(), grid, kAll, u"codigo", {v(True), v(False), v(2), i16(1), c.negritaTit});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(toUtf8(grid->textMatrix(0, 1)), "Código");  // the titles are the form's
        for (std::int32_t r = 0; r < 3; ++r)
            for (std::int32_t col = 0; col < 3; ++col) {
                const objects::CellFormat* cell = grid->cellFormat(r, col);
                const bool title = r < c.fixedRows && c.formatted;
                ASSERT_EQ(cell != nullptr, title) << r << "," << col;
                if (!title) continue;
                EXPECT_EQ(cell->alignment, std::int16_t(4));
                EXPECT_EQ(cell->fontBold, true);
                EXPECT_EQ(cell->fontItalic, false);
                EXPECT_EQ(cell->fontName, String(u"Tahoma"));
                EXPECT_EQ(cell->fontSize, 11.0);
            }
    }
}

TEST(GridLoading, SearchAsTheUserTypes) {
    struct Case {
        const char* what;
        const char16_t* pattern;
        std::vector<Variant> options;  // FilaInic, ColInic, OcultaSiNo, Deja1rafila
        bool visibleBefore;
        bool visible;
        std::int32_t rows;
    };
    const std::vector<Case> cases = {
        {"a match from row 1", u"'%car%'", {v(1), i16(0)}, false, true, 2},
        {"empty search with a blank from row 1: hidden", u"' %'", {v(1), i16(0)}, true, false, 1},
        {"an empty row left is a row", u"'%'", {v(1), i16(0), v(True), v(True)}, false, true, 2},
        {"from row 0, nothing found: the last cell is empty", u"'%'", {v(0), i16(0)}, true, false, 1},
        {"OcultaSiNo False leaves Visible", u"'%'", {v(1), i16(0), v(False)}, true, true, 1},
        {"a negative row leaves Visible", u"'%'", {v(-1), i16(0)}, true, true, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        auto grid = newGrid(4, 2);
        grid->visible = c.visibleBefore;
        Session session;
        const String sql = String(u"SELECT nombre, codigo FROM productos WHERE nombre LIKE ") + c.pattern;
        std::vector<Variant> args = {Variant(products()), Variant(sql), Variant(ObjectRef(grid)), v(u"codigo, nombre")};
        args.insert(args.end(), c.options.begin(), c.options.end());
        const Outcome out = session.run("regLlenaGridLIKE", args);
        if (c.rows < 0) {
            EXPECT_NE(out.error, 0);  // Rows = -1 is refused by the grid
        } else {
            ASSERT_EQ(out.error, 0) << toUtf8(out.description);
            EXPECT_EQ(grid->rows(), c.rows);
        }
        EXPECT_EQ(grid->visible, c.visible);
        EXPECT_TRUE(session.progress().empty());
    }
}

TEST(GridLoading, NumericEmptySearchMarker) {
    const std::vector<std::pair<String, String>> cases = {
        {u"WHERE a LIKE ' %' OR b LIKE ' %'", u"WHERE a LIKE '0.00000000' OR b LIKE '0.00000000'"},
        {u"WHERE a LIKE '%' OR b LIKE ' %'", u"WHERE a LIKE '0.00000000' OR b LIKE ' %'"},
    };
    for (const auto& [sql, expected] : cases) EXPECT_EQ(db::markEmptyNumericSearch(sql), expected) << toUtf8(sql);
}

TEST(GridLoading, Failures) {
    struct Case {
        const char16_t* sql;
        const char16_t* campos;
        int error;
        Texts cells;
    };
    // clang-format off
    const std::vector<Case> cases = {
        {u"SELECT * FROM nada", u"codigo", -2147217900, {"|", "|x"}},  // the grid untouched
        // A text under a date code: the rows before it stay.
        {u"SELECT CASE WHEN codigo = 3 THEN 'pronto' ELSE alta END AS alta FROM productos ORDER BY codigo", u"alta|F",
         13,
         {"|", "|15/03/2024", "|01/12/2024", "|"}},
    };
    // clang-format on
    for (const auto& c : cases) {
        auto grid = newGrid(2, 2);
        grid->setTextMatrix(1, 1, u"x");
        Session session;
        const Outcome out = fill(session, products(), grid, c.sql, c.campos);
        EXPECT_EQ(out.error, c.error) << toUtf8(out.description);
        EXPECT_EQ(textsOf(*grid), c.cells);
    }
    // Nothing for the grid: 91 once the statement has run.
    EXPECT_EQ(run("RegLlenaGridRegSql", {Variant(products()), Variant(ObjectRef()), v(kAll), v(u"codigo")}).error, 91);
}

TEST(GridLoading, FrmProgMembers) {
    Session session;
    Fun fun = session.fun();
    const callers::ProgressForm form = frmProg(fun);
    EXPECT_EQ(toUtf8(toString(form.caption())), " Progreso . . .");
    EXPECT_EQ(toDouble(form.max()), 100);
    struct Case {
        const char* what;
        std::function<void()> call;
        int error;
    };
    const std::vector<Case> cases = {
        {"a value above Max", [&] { form.setValue(Variant(101.0)); }, 380},
        {"a Max not above Min", [&] { form.setMax(Variant(0.0)); }, 380},
        {"a modal Show", [&] { form.object().call(u"Show", {i16(1)}); }, 5},
        {"a ZOrder of 2", [&] { form.zOrder(i16(2)); }, 5},
        {"ZOrder 0", [&] { form.zOrder(i16(0)); }, 0},
        {"Unload", [&] { form.unload(); }, 0},
        {"a member after Unload", [&] { form.setValue(Variant(1.0)); }, 364},
    };
    for (const auto& c : cases) EXPECT_EQ(errorNumberOf(c.call), c.error) << c.what;
    EXPECT_EQ(session.progress(), (std::vector<std::string>{"Load", "ZOrder 0", "Unload"}));
    // The next reference loads it anew, in its design.
    EXPECT_EQ(toDouble(frmProg(fun).value()), 0);
    EXPECT_EQ(session.progress(), std::vector<std::string>{"Load"});
}

TEST(GridLoading, OnPostgreSQL) {
    const ObjectRef client = serverConnection(3);
    for (const char16_t* sql :
         {u"DROP TABLE IF EXISTS gridventas",
          u"CREATE TABLE gridventas (codigo INTEGER, cliente VARCHAR(20), total NUMERIC(10,2), fecha DATE, saldo "
          u"DOUBLE PRECISION, pagado INTEGER)",
          u"INSERT INTO gridventas VALUES (1, 'Ana', 12.5, '2024-03-15', -4, 1), (2, 'QUITO', 0, '2024-12-01', 0, 0), "
          u"(3, NULL, 1234.5, NULL, NULL, 1)"})
        client->call(u"Execute", {Variant(String(sql))});
    auto grid = newGrid(2, 7);
    Session session;
    const Outcome out = fill(session, client, grid, u"SELECT * FROM gridventas ORDER BY codigo",
                             u"CODIGO, Cliente, total|N$, fecha|FL, saldo|;(0.00);:cero;0.00;:sin dato, pagado|V",
                             {v(True), v(False), v(1), i16(1), v(True), v(u"##0.00"), v(True)});
    ASSERT_EQ(out.error, 0) << toUtf8(out.description);
    EXPECT_EQ(textsOf(*grid),
              (Texts{"||||||", "|1|Ana|$ 12.50|vie, 15 de marzo del 2024|(4.00)|1",
                     "|2|QUITO|$ 0.00|dom, 01 de diciembre del 2024|cero|0", "|3||$ 1234.50||sin dato|1"}));
    EXPECT_EQ(pictureOf(*grid, 2, 6), "imNO");
    EXPECT_EQ(grid->cellFormat(0, 3)->fontBold, true);
    EXPECT_EQ(session.progress().size(), 11u);
    // A server-side cursor cannot count: nothing is written, the rows are cleared.
    auto cleared = newGrid(3, 2);
    cleared->setTextMatrix(2, 1, u"viejo");
    EXPECT_EQ(fill(session, serverConnection(2), cleared, u"SELECT codigo FROM gridventas", u"codigo").error, 0);
    EXPECT_EQ(textsOf(*cleared), (Texts{"|"}));
    EXPECT_TRUE(session.progress().empty());
}

}  // namespace
}  // namespace telvaro::dbtest
