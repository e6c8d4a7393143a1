// Grids filled from queries: the column list and every format code, the rows
// cleared and kept, the progress form, the title rows, the search variant,
// the failures, and the same on PostgreSQL through ODBC.
#include <gtest/gtest.h>

#include "context/frm_prog.h"
#include "context/fun.h"
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
    const char16_t* conditional = u";(0.00);:cero;0.00;:sin dato";
    // clang-format off
    const std::vector<Case> cases = {
        {"no code", u"12.5", u"", "12.5"}, {"check box", u"1", u"V", "1"},
        {"N with NumDeci", u"3.14159", u"N", "3.14"},
        {"N on text", u"'mucho'", u"N", "antes", 13},
        {"N% above 0", u"15", u"N%", "15%"}, {"N$ ignores NumDeci", u"1234.5", u"N$", "$ 1234.50", 0, u"0.0000"},
        {"HL", u"'2024-03-15 08:05:09'", u"HL", "08:05:09"}, {"H", u"'2024-03-15 08:05:09'", u"H", "08:05"},
        {"HM", u"'2024-03-15 08:05:09'", u"HM", "08h 05m"}, {"HH", u"'2024-03-15 17:30:00'", u"HH", "17h"},
        {"FC", u"'2024-03-15'", u"FC", "15/03/24"}, {"f in small letters", u"'2024-03-15'", u"f", "15/03/2024"},
        {"FM", u"'2024-03-15'", u"FM", "15-mar-2024"}, {"FD", u"'2024-03-15'", u"FD", "vie, 15-mar-2024"},
        {"FL", u"'2024-03-15'", u"FL", "vie, 15 de marzo del 2024"},
        {"FF", u"'2024-03-15'", u"FF", "viernes, 15 de marzo del 2024"},
        {"FT", u"'2024-03-05'", u"FT", "5 de marzo del 2024"},
        {"a pattern", u"2.26", u"0.0", "2.3"},
        {"conditional, negative", u"-5", conditional, "(5.00)"},
        {"conditional, Null", u"NULL", conditional, "sin dato"},
        {"conditional, three sections", u"4", u";a;b;c", "antes", 5},
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

TEST(GridLoading, ColumnsChosenByTheList) {
    // Campos, ColInicio, the data rows after the call, the error
    using Case = std::tuple<const char16_t*, std::int16_t, Texts, int>;
    // clang-format off
    const Case cases[] = {
        {u"Codigo, Nombre, Precio|N$", 1, {"-|1|Arroz|$ 12.50|-", "-|2|Azúcar|$ 0.75|-", "-|3|Café|$ 3.00|-"}, 0},
        {u"codigo, apellido, nombre", 2, {"-|-|1|-|Arroz", "-|-|2|-|Azúcar", "-|-|3|-|Café"}, 0},  // no such field
        {u"codigo, nombre", 4, {"-|-|-|-|1", "-|-|-|-|-", "-|-|-|-|-"}, 381},  // past the grid: what was written stays
    };
    // clang-format on
    for (const auto& [campos, colInicio, rows, error] : cases) {
        auto grid = newGrid(4, 5);
        for (std::int32_t r = 1; r < 4; ++r)
            for (std::int32_t col = 0; col < 5; ++col) grid->setTextMatrix(r, col, u"-");
        Session session;
        EXPECT_EQ(fill(session, products(), grid, kAll, campos, {v(False), v(False), v(1), Variant(colInicio)}).error,
                  error);
        Texts expected = {"||||"};
        expected.insert(expected.end(), rows.begin(), rows.end());
        EXPECT_EQ(textsOf(*grid), expected) << toUtf8(campos);
    }
}

TEST(GridLoading, RowsClearedAndKept) {
    const char16_t* const none = u"SELECT codigo, nombre FROM productos WHERE codigo > 9";
    const char16_t* const two = u"SELECT codigo, nombre FROM productos WHERE codigo < 3 ORDER BY codigo";
    // statement, cursor location, Limpiar, Dejar1Fila, FilInicio, the texts after
    using Case = std::tuple<const char16_t*, std::int32_t, Boolean, Boolean, std::int32_t, Texts>;
    // clang-format off
    const Case cases[] = {
        {none, 3, True, True, 1, {"T0|T1", "|"}},  // empty result, one empty row left
        {two, 3, True, True, 1, {"T0|T1", "1|Arroz", "2|Azúcar"}},
        {two, 3, False, False, 2, {"T0|T1", "a|b", "1|Arroz", "2|Azúcar"}},  // the rows above FilInicio stay
        {two, 2, True, False, 1, {"T0|T1"}},  // a server cursor counts -1: nothing written
    };
    // clang-format on
    for (const auto& [sql, location, limpiar, dejar, filInicio, cells] : cases) {
        auto grid = newGrid(5, 2);
        grid->setTextMatrix(0, 0, u"T0");
        grid->setTextMatrix(0, 1, u"T1");
        for (std::int32_t r = 1; r < 5; ++r) {
            grid->setTextMatrix(r, 0, u"a");
            grid->setTextMatrix(r, 1, u"b");
        }
        Session session;
        EXPECT_EQ(fill(session, products(location), grid, sql, u"codigo, nombre",
                       {v(limpiar), v(dejar), v(filInicio), i16(0)})
                      .error,
                  0);
        EXPECT_EQ(textsOf(*grid), cells) << toUtf8(sql);
    }
}

TEST(GridLoading, ProgressFormSequence) {
    const std::string step = "Caption=Progreso . . .      (";
    const std::vector<std::string> shown = {"Load",       "PB.Value=0",     "PB.Max=3",   "Show",
                                            "PB.Value=1", step + "1 de 3)", "PB.Value=2", step + "2 de 3)",
                                            "PB.Value=3", step + "3 de 3)", "Unload"};
    for (const bool progresB : {true, false}) {
        auto grid = newGrid(2, 3);
        Session session;
        const Outcome out = fill(session, products(), grid, kAll, u"codigo, nombre",
                                 {v(True), v(False), v(1), i16(1), v(False), v(u"##0.00"), v(Boolean(progresB))});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(session.progress(), progresB ? shown : std::vector<std::string>{});
    }
}

TEST(GridLoading, SearchAsTheUserTypes) {
    // pattern, FilaInic, Deja1rafila, Visible before and after, Rows after
    using Case = std::tuple<const char16_t*, std::int32_t, Boolean, bool, bool, std::int32_t>;
    const Case cases[] = {
        {u"'%car%'", 1, False, false, true, 2},
        {u"'%'", 1, True, false, true, 2},   // an empty row left is a row
        {u"'%'", 0, False, true, false, 1},  // from row 0, nothing found: the last cell is empty
    };
    for (const auto& [pattern, filaInic, deja, visibleBefore, visible, rows] : cases) {
        auto grid = newGrid(4, 2);
        grid->visible = visibleBefore;
        Session session;
        const String sql = String(u"SELECT nombre, codigo FROM productos WHERE nombre LIKE ") + pattern;
        const Outcome out =
            session.run("regLlenaGridLIKE", {Variant(products()), Variant(sql), Variant(ObjectRef(grid)),
                                             v(u"codigo, nombre"), v(filaInic), i16(0), v(True), v(deja)});
        ASSERT_EQ(out.error, 0) << toUtf8(out.description);
        EXPECT_EQ(grid->rows(), rows) << toUtf8(pattern);
        EXPECT_EQ(grid->visible, visible) << toUtf8(pattern);
        EXPECT_TRUE(session.progress().empty());
    }
}

TEST(GridLoading, Failures) {
    // clang-format off
    const std::tuple<const char16_t*, const char16_t*, int, Texts> cases[] = {
        {u"SELECT * FROM nada", u"codigo", -2147217900, {"|", "|x"}},  // the grid untouched
        // A text under a date code: the rows before it stay.
        {u"SELECT CASE WHEN codigo = 3 THEN 'pronto' ELSE alta END AS alta FROM productos ORDER BY codigo", u"alta|F",
         13,
         {"|", "|15/03/2024", "|01/12/2024", "|"}},
    };
    // clang-format on
    for (const auto& [sql, campos, error, cells] : cases) {
        auto grid = newGrid(2, 2);
        grid->setTextMatrix(1, 1, u"x");
        Session session;
        EXPECT_EQ(fill(session, products(), grid, sql, campos).error, error);
        EXPECT_EQ(textsOf(*grid), cells);
    }
    // Nothing for the grid: 91 once the statement has run.
    EXPECT_EQ(run("RegLlenaGridRegSql", {Variant(products()), Variant(ObjectRef()), v(kAll), v(u"codigo")}).error, 91);
}

TEST(GridLoading, FrmProgMembers) {
    Session session;
    Fun fun = session.fun();
    const callers::ProgressForm form = frmProg(fun);
    EXPECT_EQ(toUtf8(toString(form.caption())), " Progreso . . .");
    EXPECT_EQ(errorNumberOf([&] { form.setValue(Variant(101.0)); }), 380);  // above the designed Max of 100
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
    EXPECT_EQ(pictureOf(*grid, 1, 6), "imSI");
    EXPECT_EQ(pictureOf(*grid, 2, 6), "imNO");
    EXPECT_EQ(grid->cellFormat(0, 3)->fontBold, true);  // NegritaTit: the title row bold and centred
    EXPECT_EQ(grid->cellFormat(0, 3)->alignment, std::int16_t(4));
    EXPECT_EQ(session.progress().size(), 11u);
}

}  // namespace
}  // namespace telvaro::dbtest
