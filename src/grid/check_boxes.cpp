#include "grid/check_boxes.h"

#include <array>
#include <optional>

#include "context/frm_dll.h"
#include "context/fun.h"
#include "grid/cells.h"
#include "runtime/text.h"

namespace telvaro::grid {

using callers::FlexGrid;

namespace {

// The caller's four values, as the cell's text compares with them.
struct CheckValues {
    std::optional<String> yes, no, disabledYes, disabledNo;

    CheckValues(const Variant& ValorSI, const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO)
        : yes(comparableText(ValorSI)),
          no(comparableText(ValorNO)),
          disabledYes(comparableText(DeshabSI)),
          disabledNo(comparableText(DeshabNO)) {}
};

// Writes the opposite value into a cell holding one of the four, testing
// the disabled values first; a cell holding none is left as it is.
void toggle(const FlexGrid& grid, std::int32_t row, std::int16_t col, const CheckValues& values, const Variant& ValorSI,
            const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO) {
    if (cellEquals(grid.textMatrix(row, col), values.disabledYes))
        grid.setTextMatrix(row, col, DeshabNO);
    else if (cellEquals(grid.textMatrix(row, col), values.disabledNo))
        grid.setTextMatrix(row, col, DeshabSI);
    else if (cellEquals(grid.textMatrix(row, col), values.yes))
        grid.setTextMatrix(row, col, ValorNO);
    else if (cellEquals(grid.textMatrix(row, col), values.no))
        grid.setTextMatrix(row, col, ValorSI);
}

struct PictureTest {
    const std::optional<String> CheckValues::*value;
    CheckBoxPicture picture;
};

// Four separate tests of the cell's text, in the given order: each that
// holds sets the picture, so the last one that holds wins.
void showPictureOfValue(const Fun& fun, const FlexGrid& grid, std::int32_t row, std::int16_t col,
                        const CheckValues& values, const std::array<PictureTest, 4>& tests) {
    for (const PictureTest& test : tests)
        if (cellEquals(grid.textMatrix(row, col), values.*test.value))
            grid.setCellPicture(frmDllPicture(fun, test.picture));
}

constexpr std::array<PictureTest, 4> kEnabledFirst{{
    {&CheckValues::yes, CheckBoxPicture::Checked},
    {&CheckValues::no, CheckBoxPicture::Unchecked},
    {&CheckValues::disabledYes, CheckBoxPicture::CheckedDisabled},
    {&CheckValues::disabledNo, CheckBoxPicture::UncheckedDisabled},
}};
constexpr std::array<PictureTest, 4> kDisabledFirst{{
    {&CheckValues::disabledYes, CheckBoxPicture::CheckedDisabled},
    {&CheckValues::disabledNo, CheckBoxPicture::UncheckedDisabled},
    {&CheckValues::yes, CheckBoxPicture::Checked},
    {&CheckValues::no, CheckBoxPicture::Unchecked},
}};

// A full path ("C:\img\logo.bmp", "\\server\x") has a ":"; any other name
// is in the folder of the running application.
String pictureFile(Fun& fun, const String& RutaImg) {
    if (inStr(RutaImg, u":") > 0) return RutaImg;
    return fun.platform().fileSystem().applicationPath() + u"\\" + RutaImg;
}

}  // namespace

void fn_PoneImagenGrid(Fun& fun, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, const String& RutaImg,
                       Boolean DejarTexto, std::int16_t Ancho, std::int16_t Alto) {
    const FlexGrid grid(Grid);
    const Variant savedCol = grid.col();
    const Variant savedRow = grid.row();
    grid.setCol(Columna);
    grid.setRow(Fila);
    grid.setRedraw(False);
    if (Ancho > 0) grid.setColWidth(Columna, Ancho);
    if (Alto > 0) grid.setRowHeight(Fila, Alto);
    if (!DejarTexto.isTrue()) applyHiddenTextStyle(grid);
    grid.setCellPicture(Variant(fun.platform().pictures().load(pictureFile(fun, RutaImg))));
    grid.setCellPictureAlignment(kCentreCentre);
    grid.setCol(savedCol);
    grid.setRow(savedRow);
    grid.setRedraw(True);
}

void fn_PoneCheckGrid(Fun& fun, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, const Variant& ValorSI,
                      const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO, Boolean InvertirValores,
                      std::int16_t Ancho, std::int16_t Alto) {
    const FlexGrid grid(Grid);
    const CheckValues values(ValorSI, ValorNO, DeshabSI, DeshabNO);
    const Variant savedCol = grid.col();
    const Variant savedRow = grid.row();
    grid.setCol(Columna);
    grid.setRow(Fila);
    grid.setRedraw(False);
    if (Ancho > 0) grid.setColWidth(Columna, Ancho);
    if (Alto > 0) grid.setRowHeight(Fila, Alto);
    applyHiddenTextStyle(grid);
    if (InvertirValores.isTrue()) toggle(grid, Fila, Columna, values, ValorSI, ValorNO, DeshabSI, DeshabNO);
    showPictureOfValue(fun, grid, Fila, Columna, values, kEnabledFirst);
    grid.setCellPictureAlignment(kCentreCentre);
    grid.setCol(savedCol);
    grid.setRow(savedRow);
    grid.setRedraw(True);
}

void fn_PoneCheckColumnaGrid(Fun& fun, const ObjectRef& Grid, std::int16_t Columna, const Variant& ValorSI,
                             const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO,
                             Boolean InvertirValores, std::int32_t FilInicio, std::int32_t FilFin, std::int16_t Ancho,
                             std::int16_t Alto) {
    const FlexGrid grid(Grid);
    const CheckValues values(ValorSI, ValorNO, DeshabSI, DeshabNO);
    const Variant savedCol = grid.col();
    const Variant savedRow = grid.row();
    grid.setRedraw(False);
    if (Ancho > 0) grid.setColWidth(Columna, Ancho);
    if (FilFin < 0) FilFin = Int32::of(openEnd(FilFin, grid.rows()));
    grid.setCol(Columna);
    forLoop(Int32(FilInicio), FilFin, [&](Int32 r) {
        const std::int32_t row = r.value();
        grid.setRow(row);
        if (Alto > 0) grid.setRowHeight(row, Alto);
        applyHiddenTextStyle(grid);
        if (InvertirValores.isTrue()) toggle(grid, row, Columna, values, ValorSI, ValorNO, DeshabSI, DeshabNO);
        showPictureOfValue(fun, grid, row, Columna, values, kDisabledFirst);
        grid.setCellPictureAlignment(kCentreCentre);
    });
    grid.setCol(savedCol);
    grid.setRow(savedRow);
    grid.setRedraw(True);
}

void fn_PoneCheck(Fun& fun, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, Boolean Checked,
                  Boolean Deshabilitado, const Variant& PonerElValor) {
    const FlexGrid grid(Grid);
    const Variant savedCol = grid.col();
    const Variant savedRow = grid.row();
    grid.setCol(Columna);
    grid.setRow(Fila);
    applyHiddenTextStyle(grid);
    if (!PonerElValor.isNull() && !toString(PonerElValor).empty()) grid.setTextMatrix(Fila, Columna, PonerElValor);
    const bool disabled = Deshabilitado.isTrue(), checked = Checked.isTrue();
    const CheckBoxPicture picture =
        disabled ? (checked ? CheckBoxPicture::CheckedDisabled : CheckBoxPicture::UncheckedDisabled)
                 : (checked ? CheckBoxPicture::Checked : CheckBoxPicture::Unchecked);
    grid.setCellPicture(frmDllPicture(fun, picture));
    grid.setCellPictureAlignment(kCentreCentre);
    grid.setCol(savedCol);
    grid.setRow(savedRow);
}

}  // namespace telvaro::grid
