// The tour of the database helpers, on a small shop kept in the embedded
// engine: the way a data-entry form uses them, on the library's own list,
// grid and form standing in for the application's controls.
#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <memory>
#include <sstream>
#include <vector>

#include "cli/demo_sections.h"
#include "cli/print_deliveries.h"
#include "frame/invoke.h"
#include "host/exported_sheets.h"
#include "objects/flex_grid.h"
#include "objects/form.h"
#include "objects/label.h"
#include "objects/list_control.h"
#include "objects/text_box.h"
#include "platform/scripted_message_box.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace telvaro::cli {

namespace {

constexpr const char16_t* kShopRows[] = {
    u"(1, 'Arroz flor 2 kg', 2.35, 120, '2026-01-05', 1)",    u"(2, 'Aceite de palma 1 l', 3.10, 48, '2026-02-11', 1)",
    u"(3, 'Atún en agua 170 g', 1.45, 300, '2026-03-02', 0)", u"(5, 'Café molido 500 g', 6.80, 25, '2026-05-19', 1)",
    u"(8, 'Panela 1 kg', 1.20, 75, '2026-07-23', 1)",
};

// Runs one statement or call of the tour, printing what a failure says.
template <typename F>
bool step(std::ostream& out, const std::string& what, F&& f) {
    try {
        f();
        return true;
    } catch (const RuntimeError& e) {
        out << "  " << what << " raises error " << e.number() << ": " << toUtf8(e.description()) << '\n';
        return false;
    }
}

// Letters, not bytes, so accented names line up.
std::size_t letters(const std::string& utf8) {
    std::size_t n = 0;
    for (unsigned char b : utf8) n += (b & 0xC0) != 0x80;
    return n;
}

void printGrid(std::ostream& out, const objects::FlexGrid& grid) {
    std::vector<std::size_t> widths(static_cast<std::size_t>(grid.cols()), 0);
    for (std::int32_t r = 0; r < grid.rows(); ++r)
        for (std::int32_t c = 0; c < grid.cols(); ++c)
            widths[c] = std::max(widths[c], letters(toUtf8(grid.textMatrix(r, c))));
    for (std::int32_t r = 0; r < grid.rows(); ++r) {
        out << "    |";
        for (std::int32_t c = 0; c < grid.cols(); ++c) {
            const std::string text = toUtf8(grid.textMatrix(r, c));
            out << ' ' << text << std::string(widths[c] - letters(text), ' ') << " |";
        }
        out << '\n';
    }
}

// The product form moving through its records: an unsaved edit, the save
// question answered Yes, then the last record and one step past it.
void navigationSteps(std::ostream& out, Fun& fun, const ObjectRef& connection) {
    auto form = std::make_shared<objects::Form>(u"frmProductos");
    step(out, "Opening the form's records", [&] {
        form->lista = fun.platform().objectFactory().create(u"ADODB.Recordset");
        form->lista->put(u"CursorLocation", Variant(std::int32_t(3)));
        form->lista->call(u"Open", {Variant(u"SELECT codigo, nombre FROM productos ORDER BY codigo"),
                                    Variant(connection), Variant(std::int32_t(3)), Variant(std::int32_t(1))});
    });
    if (!form->lista) return;
    form->changed = true;
    form->saveSucceeds = {true};
    ScriptedPlatform answered(fun.platform(), {6});
    Fun asking(answered);
    const Variant formArg{ObjectRef(form)};
    std::size_t boxesSeen = 0;
    auto move = [&](const char* method, const std::string& before) {
        step(out, method, [&] {
            call(asking, method, {formArg});
            out << "  " << std::left << std::setw(34) << (std::string(method) + "(frmProductos)") << before;
            if (!form->loaded().empty()) out << "loads codigo " << toUtf8(toString(form->loaded().back())) << '\n';
            for (; boxesSeen < answered.boxes().shown().size(); ++boxesSeen) {
                const ShownMessage& box = answered.boxes().shown()[boxesSeen];
                out << "    message box \"" << toUtf8(box.title) << "\": " << toUtf8(box.prompt) << " -> "
                    << (box.answer == 6   ? "Yes"
                        : box.answer == 7 ? "No"
                                          : "OK")
                    << '\n';
            }
        });
    };
    move("RegistroSiguiente", "with an unsaved edit: saves, ");
    move("RegistroFinal", "");
    move("RegistroSiguiente", "on the last record: ");
}

// The product form as it looks on screen, printed: a title, the product
// being edited and the grid, on a page kept as a PDF file.
void printForm(std::ostream& out, Fun& fun, const std::shared_ptr<objects::FlexGrid>& grid) {
    auto form = std::make_shared<objects::Form>(u"frmProductos");
    auto title = std::make_shared<objects::Label>(u"lblTitulo");
    title->caption = u"Productos de la tienda";
    title->left = 600;
    title->top = 300;
    title->width = 5000;
    form->add(title);
    auto name = std::make_shared<objects::TextBox>(u"txtNombre");
    name->setText(u"Café molido 500 g");
    name->left = 600;
    name->top = 900;
    name->width = 3000;
    name->height = 300;
    form->add(name);
    grid->left = 600;
    grid->top = 1500;
    grid->width = 9000;
    grid->height = 2000;
    form->add(grid);
    // The tour's page is kept as a file, never sent to a printer of the
    // machine: no print server is reachable from here.
    ::setenv("CUPS_SERVER", "/nonexistent/telvaro-demo.sock", 1);
    Platform platform = fun.platform();
    const auto printing = recordPrinting(platform);
    Fun printingFun(platform);
    step(out, "ImprimeForm", [&] {
        call(printingFun, "ImprimeForm", {Variant(ObjectRef(form)), Variant(u"")});
        out << "  ImprimeForm(frmProductos, \"\")\n";
        std::ostringstream said;
        if (printing) reportPrinted(*printing, said);
        std::istringstream lines(said.str());
        for (std::string line; std::getline(lines, line);) out << "    " << line << '\n';
    });
}

}  // namespace

void shopSection(std::ostream& out, Fun& fun) {
    out << "The shop's database (embedded engine, C:\\tienda.db)\n";
    ObjectRef connection;
    if (!step(out, "Opening the database", [&] {
            connection = fun.platform().objectFactory().create(u"ADODB.Connection");
            // A client cursor counts its rows, as the list and grid loaders need.
            connection->put(u"CursorLocation", Variant(std::int32_t(3)));
            connection->call(u"Open", {Variant(u"Data Source=C:\\tienda.db")});
            connection->call(u"Execute", {Variant(u"DROP TABLE IF EXISTS productos")});
            connection->call(u"Execute", {Variant(u"CREATE TABLE productos (codigo INTEGER, nombre TEXT, "
                                                  u"precio REAL, stock INTEGER, alta DATE, activo INTEGER)")});
            for (const char16_t* row : kShopRows)
                connection->call(u"Execute", {Variant(String(u"INSERT INTO productos VALUES ") + row)});
        }))
        return;
    const Variant conexion{connection};
    out << "  productos: 5 rows (codigo, nombre, precio, stock, alta, activo)\n";

    auto show = [&](const std::string& text, const char* method, std::vector<Variant> args) {
        step(out, text, [&] {
            const Variant r = call(fun, method, std::move(args));
            out << "  " << std::left << std::setw(58) << text << " = " << toUtf8(typeName(r)) << ' '
                << toUtf8(toString(r)) << '\n';
        });
    };
    show("regUltimoCodigo(cn, \"codigo\", \"productos\", \"1=1\")", "regUltimoCodigo",
         {conexion, Variant(u"codigo"), Variant(u"productos"), Variant(u"1=1")});
    show("regDevuelveDatoCampoSQL(cn, \"SELECT nombre ... codigo = 5\")", "regDevuelveDatoCampoSQL",
         {conexion, Variant(u"SELECT nombre FROM productos WHERE codigo = 5")});

    auto names = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ComboBox, u"cboProducto");
    auto codes = std::make_shared<objects::ListControl>(objects::ListControl::Kind::ListBox, u"lstCodigo");
    step(out, "regCargaListaSQL", [&] {
        call(fun, "regCargaListaSQL",
             {conexion, Variant(u"SELECT codigo, nombre FROM productos ORDER BY nombre"), Variant(ObjectRef(names)),
              Variant(u"nombre"), Variant(ObjectRef(codes)), Variant(u"codigo")});
        out << "  regCargaListaSQL(cn, \"SELECT codigo, nombre ...\", cboProducto, \"nombre\", lstCodigo, "
               "\"codigo\")\n";
        for (std::size_t i = 0; i < names->items().size(); ++i)
            out << "    " << toUtf8(codes->items()[i].text) << "  " << toUtf8(names->items()[i].text) << '\n';
        out << "    ListIndex = " << names->listIndex() << " (" << toUtf8(names->text()) << ")\n";
    });

    navigationSteps(out, fun, connection);

    // The grid of the product form, with a title row, filled from a query
    // with a format per column.
    auto grid = std::make_shared<objects::FlexGrid>(u"grdProductos", 2, 6);
    const char16_t* titles[] = {u"", u"Código", u"Producto", u"Precio", u"Alta", u"Activo"};
    for (std::int32_t c = 0; c < 6; ++c) grid->setTextMatrix(0, c, titles[c]);
    const Variant gridArg{ObjectRef(grid)};
    const bool filled = step(out, "RegLlenaGridRegSql", [&] {
        call(fun, "RegLlenaGridRegSql",
             {conexion, gridArg, Variant(u"SELECT codigo, nombre, precio, alta, activo FROM productos"),
              Variant(u"codigo,nombre,precio|N$,alta|FL,activo|V")});
        out << "  RegLlenaGridRegSql(cn, grdProductos, \"SELECT ...\", \"codigo,nombre,precio|N$,alta|FL,activo|V\")\n";
        printGrid(out, *grid);
    });
    if (filled)
        step(out, "ExportExcelReg", [&] {
            call(fun, "ExportExcelReg",
                 {conexion, Variant(u"Código,Producto,Precio,Stock"), Variant(u"8,30,10,8"),
                  Variant(u"SELECT codigo, nombre, precio, stock FROM productos"), Variant(u"Lista de productos")});
            out << "  ExportExcelReg(cn, \"Código,Producto,Precio,Stock\", \"8,30,10,8\", \"SELECT ...\", "
                   "\"Lista de productos\")\n";
            const host::ExportReport report = host::takeExportReport();
            for (const auto& file : report.files) out << "    workbook written: " << file.path.string() << '\n';
            for (const auto& failure : report.failures)
                out << "    workbook not written: " << toUtf8(failure.description()) << '\n';
        });
    if (filled) printForm(out, fun, grid);
    connection->call(u"Close");
}

}  // namespace telvaro::cli
