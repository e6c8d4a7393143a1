// The published interface of Fun: its 119 methods in v-table order with
// their DISPIDs, result types and parameters, the thirteen enumerations and
// the three records. Applications built against earlier builds bind to these
// exact names, slots, numbers and defaults, so nothing here is ever
// reordered, renamed or renumbered; new methods are only appended.
//
// Each row reads like the method's declaration:
//   in(name, type)             required, by reference
//   val(name, type)            required, by value
//   opt(name, type, default)   optional, by reference
//   optVal(name, type, default) optional, by value
// The type is written as the caller declares it: a base type ("String",
// "Integer", ...), an enumeration of the library (passed as a Long), or the
// kind of caller object ("Connection", "Grid", "Form", ...; passed as an
// Object). Defaults carry the declared type: int16() for Integer, int32()
// for Long and enumerations, dbl() for Double, byte() for Byte, True/False,
// u"..." for String. An open range end declared as 65535 in an Integer is
// int16(-1), which is the same 16 bits.
#include <array>

#include "frame/catalogue.h"

namespace telvaro {

namespace {

// The enumerations that parameters are declared with travel as Long.
constexpr std::array kEnumerationTypes = {
    std::string_view("TipoDato"),       std::string_view("eSexo"),          std::string_view("LadoCadena"),
    std::string_view("ClavesRegistro"), std::string_view("TipoCarpetaSys"),
};
// The kinds of caller object a parameter or result may be declared with.
constexpr std::array kObjectTypes = {
    std::string_view("Object"),    std::string_view("Connection"), std::string_view("Recordset"),
    std::string_view("Font"),      std::string_view("Picture"),    std::string_view("Form"),
    std::string_view("Control"),   std::string_view("ListBox"),    std::string_view("Grid"),
    std::string_view("DataGrid"),  std::string_view("DataReport"), std::string_view("Chart"),
    std::string_view("ErrObject"),
};

bool among(std::string_view name, const auto& names) {
    for (std::string_view n : names)
        if (n == name) return true;
    return false;
}

// The type dispatch coerces to for a declared type. An unknown name gives
// None, which no parameter may have (the catalogue's tests check it).
ArgType argTypeFor(std::string_view typeName) {
    struct Base {
        std::string_view name;
        ArgType type;
    };
    static constexpr Base bases[] = {
        {"String", ArgType::String}, {"Integer", ArgType::Integer},   {"Long", ArgType::Long},
        {"Double", ArgType::Double}, {"Boolean", ArgType::Boolean},   {"Byte", ArgType::Byte},
        {"Date", ArgType::Date},     {"Currency", ArgType::Currency}, {"Variant", ArgType::Variant},
    };
    for (const auto& b : bases)
        if (b.name == typeName) return b.type;
    if (among(typeName, kEnumerationTypes)) return ArgType::Long;
    if (among(typeName, kObjectTypes)) return ArgType::Object;
    return ArgType::None;
}

ParamInfo param(std::string_view name, std::string_view typeName, bool byRef, bool optional, Variant def) {
    ParamInfo p;
    p.name = name;
    p.type = argTypeFor(typeName);
    p.typeName = typeName;
    p.byRef = byRef;
    p.optional = optional;
    p.defaultValue = std::move(def);
    return p;
}

ParamInfo in(std::string_view name, std::string_view type) { return param(name, type, true, false, Variant()); }
ParamInfo val(std::string_view name, std::string_view type) { return param(name, type, false, false, Variant()); }
ParamInfo opt(std::string_view name, std::string_view type, Variant def) {
    return param(name, type, true, true, std::move(def));
}
ParamInfo optVal(std::string_view name, std::string_view type, Variant def) {
    return param(name, type, false, true, std::move(def));
}

Variant int16(std::int16_t v) { return Variant(v); }
Variant int32(std::int32_t v) { return Variant(v); }
Variant dbl(double v) { return Variant(v); }
Variant byte(std::uint8_t v) { return Variant(v); }
// An optional object without a default arrives as Nothing.
Variant nothing() { return Variant(ObjectRef()); }

// "none" is a procedure; "Picture" is a picture object.
MethodInfo method(int order, std::int32_t dispid, std::string_view name, std::string_view resultName,
                  std::initializer_list<ParamInfo> params) {
    MethodInfo m;
    m.order = order;
    m.dispid = dispid;
    m.name = name;
    m.result = resultName == "none" ? ArgType::None : argTypeFor(resultName);
    m.resultName = resultName;
    m.params = params;
    return m;
}

// The save question that record navigation asks before moving.
constexpr const char16_t* kGuardarAhora = u"El registro actual no ha sido guardado. Desea guardarlo ahora?";

}  // namespace

const std::vector<MethodInfo>& catalogue() {
    static const std::vector<MethodInfo> methods = {
        // Text: counting and cutting strings
        method(1, 0x60030000, "strCuentaCaracteres", "Integer",
               {in("Cadena", "String"), in("Caracter", "String"), opt("PosInicio", "Integer", int16(1))}),
        method(2, 0x60030002, "strCadenaEntrePosicion", "String",
               {in("Cadena", "String"), in("posIni", "Integer"), in("PosFin", "Integer")}),
        method(3, 0x60030003, "strPosicion_XAvo_Caracter", "Integer",
               {in("Cadena", "String"), in("Caracter", "String"), in("NumCaracter", "Integer")}),

        // Numbers: fractioned quantities, stock, integer and decimal parts
        method(4, 0x60030005, "numFraccion_a_Decimal", "Double",
               {in("CantidadFraccionad", "String"), in("NumFraciones", "Integer")}),
        method(5, 0x60030006, "numDecimal_a_Fraccion", "String",
               {in("CantidadDecimal", "String"), in("NumFraciones", "Integer")}),
        method(6, 0x60030007, "StockResta", "Double",
               {val("CantActual", "Double"), val("CantiResta", "String"), in("NumFracciones", "Integer")}),
        method(7, 0x60030008, "StockSuma", "Double",
               {val("CantActual", "Double"), val("CantiSuma", "String"), in("NumFracciones", "Integer")}),
        method(8, 0x60030009, "numEsMultiplo", "Boolean", {in("Numero", "Double"), in("Factor", "Double")}),
        method(9, 0x6003000A, "numParteEntera", "Double", {in("Numero", "Double")}),
        method(10, 0x6003000B, "numParteDecimal", "Double", {in("Numero", "Double")}),
        method(11, 0x6003000C, "numTruncar", "Double", {in("Numero", "Double"), in("NumDecimal", "Integer")}),

        // Forms: numeric keystroke filter
        method(12, 0x6003000E, "VerificaNumero", "Integer",
               {in("Objeto", "Control"), in("KeyAscii", "Integer"), opt("NumDecimales", "Integer", int16(2)),
                opt("ConSigno", "Boolean", False), opt("Longitud", "Integer", int16(100)),
                opt("EsGridEx", "Boolean", False)}),

        // Numbers: amount in words (Femenino = 0, Masculino = 1)
        method(13, 0x6003000F, "Numero2Letra", "String",
               {val("strNum", "String"), optVal("Lo", "Long", int32(0)), optVal("NumDecimales", "Long", int32(2)),
                optVal("sMoneda", "String", u""), optVal("sCentimos", "String", u""),
                optVal("SexoMoneda", "eSexo", int32(0)), optVal("SexoCentimos", "eSexo", int32(1))}),

        // Dates
        method(14, 0x60030014, "MyFecha", "String", {in("Fecha", "String")}),
        method(15, 0x60030015, "fecEdadExacta", "String", {in("FechaActual", "Date"), in("FechaNacimiento", "Date")}),
        method(16, 0x60030016, "fecUltimoDiaMes", "Byte", {in("Mes", "Byte"), in("Anio", "Integer")}),

        // Database: one value, next code, lists and grids from queries
        method(17, 0x60030017, "regDevuelveDatoCampoSQL", "Variant",
               {in("Conexion", "Connection"), in("SQL", "String")}),
        method(18, 0x60030018, "regUltimoCodigo", "Long",
               {in("Conexion", "Connection"), in("NomCampo", "String"), in("NomTabla", "String"),
                in("CondicionSinWhere", "String"), opt("Incremento", "Integer", int16(1))}),
        method(19, 0x60030019, "regCargaListaSQL", "none",
               {in("Conexion", "Connection"), in("SQL_", "String"), in("ListaText", "Control"),
                in("CampoText", "String"), opt("ListaCod", "Control", nothing()), opt("CampoCod", "String", u""),
                opt("Elige1erItem", "Boolean", True), opt("Limpiar1ro", "Boolean", True),
                opt("PrimerItemText", "String", u""), opt("PrimerItemCod", "String", u"")}),
        method(
            20, 0x6003001A, "regCargaListaSQL2", "none",
            {in("Conexion", "Connection"), in("SQL_", "String"), in("ListaText", "Control"), in("CampoText", "String"),
             opt("CampoCod", "String", u""), opt("Elige1erItem", "Boolean", True), opt("Limpiar1ro", "Boolean", True),
             opt("PrimerItemText", "String", u""), opt("PrimerItemCod", "Long", int32(0))}),
        method(21, 0x6003001B, "regLlenaListaLIKE", "none",
               {in("Tabla", "Recordset"), in("SQL", "String"), in("dGrid", "DataGrid"),
                opt("OcultaSiNo", "Boolean", True)}),
        method(22, 0x6003001C, "regLlenaGridLIKE", "none",
               {in("Conexion", "Connection"), in("SQL_", "String"), in("Grid", "Grid"), in("CamposC", "String"),
                optVal("FilaInic", "Long", int32(0)), opt("ColInic", "Integer", int16(0)),
                opt("OcultaSiNo", "Boolean", True), opt("Deja1rafila", "Boolean", False)}),

        // Database: record navigation with save prompts
        method(23, 0x6003001D, "regReintentaCargarDatos", "none",
               {in("Formulario", "Form"), in("CodRegistro", "Variant"), opt("MsgError", "String", kGuardarAhora),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"cargar los datos del registro seleccionado?")}),
        method(24, 0x6003001E, "regReintentarEstaOperacion", "Boolean",
               {in("Formul", "Form"),
                opt("MsgError", "String",
                    u"Se han realizado cambios en el registro que aun no se han guardado. Desea guardarlos ahora?. "),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"y realizar la operación solicitada?")}),
        method(25, 0x6003001F, "RegistroInicial", "none",
               {in("Formulario", "Form"), opt("MsgError", "String", kGuardarAhora),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"y pasar al primer registro de todas formas?")}),
        method(26, 0x60030020, "RegistroAnterior", "none",
               {in("Formulario", "Form"), opt("MsgError", "String", kGuardarAhora),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"y pasar al registro anterior de todas formas?")}),
        method(27, 0x60030021, "RegistroSiguiente", "none",
               {in("Formulario", "Form"), opt("MsgError", "String", kGuardarAhora),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"y pasar al siguiente registro de todas formas?")}),
        method(28, 0x60030022, "RegistroFinal", "none",
               {in("Formulario", "Form"), opt("MsgError", "String", kGuardarAhora),
                opt("MsgIgnora", "String",
                    u"El registro no ha podido ser guardado. Desea ignorar esto "
                    u"y pasar al último registro de todas formas?")}),

        // Database: a grid filled from a query with the column-format list
        method(29, 0x60030023, "RegLlenaGridRegSql", "none",
               {in("Conexion", "Connection"), in("Grid", "Grid"), in("SQL_", "String"), in("Campos", "String"),
                opt("Limpiar", "Boolean", True), opt("Dejar1Fila", "Boolean", False),
                optVal("FilInicio", "Long", int32(1)), opt("ColInicio", "Integer", int16(1)),
                opt("NegritaTit", "Boolean", False), opt("NumDeci", "String", u"##0.00"),
                opt("ProgresB", "Boolean", False)}),

        // Pictures: copy and screen capture
        method(30, 0x60030024, "ImgCopiaImagen", "none",
               {in("Origen", "Object"), in("Destino", "Object"), opt("DestinoInvisible", "Boolean", True),
                opt("PonerDestinoTrasOrigen", "Boolean", True)}),
        method(31, 0x60030025, "imgCreateBitmapPicture", "Picture", {val("hBmp", "Long"), val("hPal", "Long")}),
        method(32, 0x60030026, "imgCaptureWindow", "Picture",
               {val("hWndSrc", "Long"), val("Client", "Boolean"), val("LeftSrc", "Long"), val("TopSrc", "Long"),
                val("WidthSrc", "Long"), val("HeightSrc", "Long")}),
        method(33, 0x60030027, "imgCaptureScreen", "Picture", {}),
        method(34, 0x60030028, "imgCaptureActiveWindow", "Picture", {}),

        // Standard messages of record editing
        method(
            35, 0x60030029, "MsgGuardarRegistro", "Boolean",
            {opt("Msg", "String", u"Los datos del registro actual no han sido guardados. Desea guardarlos ahora ?")}),
        method(36, 0x6003002A, "MsgEliminarRegistro", "Boolean",
               {opt("Msg", "String", u"Está seguro que desea eliminar los datos del registro actual ?")}),
        method(37, 0x6003002B, "MsgRegistroNoGuardado", "Boolean",
               {opt("Msg", "String",
                    u"El registro no pudo ser guardado. Desea ignorar esto y realizar la operación solicitada de "
                    u"todas formas ?")}),
        method(38, 0x6003002C, "MsgDatosGuardados", "none",
               {opt("Msg", "String", u"Los datos del registro fueron guardados con éxito!")}),
        method(39, 0x6003002D, "MsgDatosEliminados", "none",
               {opt("Msg", "String", u"El registro fue eliminado con éxito!")}),
        method(40, 0x6003002E, "MsgHayCambios", "Boolean",
               {in("Changed", "Boolean"),
                opt("Msg", "String",
                    u"No se ha realizado ninguna modificación en el registro que necesite ser guardada!")}),
        method(41, 0x6003002F, "MsgRegistroSeleccionado", "Boolean",
               {in("Nuevo", "Boolean"),
                opt("Msg", "String",
                    u"Primero debe seleccionar un registro existente para realizar la operación solicitada!")}),

        // System: sounds and message-box capture
        method(42, 0x60030030, "sndTocaArchivoWab", "none",
               {in("Archivo", "String"), opt("Detener", "Boolean", False), opt("Repetitivo", "Boolean", False)}),
        method(43, 0x60030031, "CapturaMsgBox", "none", {opt("mostrarMsgBox", "Boolean", False)}),

        // Error log
        method(44, 0x60030032, "fn_LogErrores", "none",
               {in("Objeto", "Variant"), in("nerr", "ErrObject"), opt("InfoExtra", "String", u"")}),

        // Forms: dragging a control, backspace
        method(45, 0x60030033, "fn_MoverControl", "none", {in("hWnd_control", "Long")}),
        method(46, 0x60030034, "fn_Backspace", "Integer", {in("Control", "Control")}),

        // Database: items of list and combo boxes
        method(47, 0x60030035, "fn_ExisteItem", "Boolean", {in("Lista", "Control"), in("ItemB", "Variant")}),
        method(48, 0x60030036, "fn_BuscaItem", "Long", {in("Lista", "Control"), in("ItemB", "Variant")}),

        // Forms: clearing text controls
        method(49, 0x60030037, "fn_LimpiaTextObjetos", "none", {in("Formulario", "Form")}),

        // Grid: search, invalid rows, colours, export
        method(50, 0x60030038, "fn_BuscaColGrid", "Long",
               {in("Grid", "Grid"), in("Columna", "Integer"), in("Valor", "Variant"),
                optVal("FilaInic", "Long", int32(1)), optVal("FilaFin", "Long", int32(-1))}),
        method(51, 0x60030039, "fn_BuscaFilGrid", "Long",
               {in("Grid", "Grid"), val("Fila", "Long"), in("Valor", "Variant"), opt("ColInic", "Integer", int16(1)),
                opt("ColFin", "Integer", int16(-1))}),
        method(52, 0x6003003A, "fn_QuitaFilasInvalidas", "none",
               {in("Grid", "Grid"), in("ColumnaBuscar", "Integer"), opt("ValorNulo", "String", u""),
                opt("FilasFixed", "Byte", byte(1))}),
        // Colours: the system colours of window background and window text.
        method(53, 0x6003003B, "fn_PintaFilaGrid", "none",
               {in("Grid", "Grid"), val("Fila", "Long"), opt("Color", "Long", int32(-2147483643)),
                opt("ColorLetra", "Long", int32(-2147483640)), opt("ColInicio", "Integer", int16(1)),
                opt("ColFin", "Integer", int16(-1))}),
        method(54, 0x6003003C, "fn_PintaColumnaGrid", "none",
               {in("Grid", "Grid"), in("Columna", "Integer"), opt("Color", "Long", int32(-2147483643)),
                opt("ColorLetra", "Long", int32(-2147483640)), optVal("FilInicio", "Long", int32(1)),
                optVal("FilFin", "Long", int32(-1))}),
        method(55, 0x6003003D, "fn_ExportaExcelGrid", "none",
               {in("Grid", "Grid"), val("FilaInicio", "Integer"), opt("Titulo", "String", u""),
                opt("SubTitulo", "String", u""), opt("ColInicio", "Integer", int16(0)),
                opt("ColFin", "Integer", int16(-1)), opt("FilaFin", "Integer", int16(-1)),
                opt("PoneLineas", "Boolean", True)}),

        // Text: a separated list to an array
        method(56, 0x6003003F, "fn_LlenaVector", "Variant",
               {in("Elementos", "String"), in("TipoDat", "TipoDato"), opt("Separador", "String", u",")}),

        // Database: chart data from a query
        method(57, 0x60030040, "fn_MatrizParaEstadistica", "Variant",
               {in("Conexion", "Connection"), in("SQL", "String"), opt("SufijoX", "String", u""),
                opt("ConMsgError", "Boolean", True), opt("Chart", "Chart", nothing())}),

        // System: computer and user names
        method(58, 0x60030041, "fn_NombreComputador", "String", {}),
        method(59, 0x60030042, "fn_NombreUsuarioWindows", "String", {}),

        // Forms: list scrolling and window placement
        method(60, 0x60030043, "fn_ScrollHListBox", "none", {in("Lista", "ListBox")}),
        method(61, 0x60030044, "fn_FormSiempreVisible", "none", {in("Formulario", "Form")}),
        method(62, 0x60030045, "fn_VentanaFlotante", "none", {in("Formulario", "Form"), in("Padre", "Form")}),

        // System: waiting, running a file, internet check
        method(63, 0x60030046, "fn_EsperaXSegundos", "none",
               {val("NumSegundos", "Integer"), opt("EjecutarOtrosProcesos", "Boolean", False)}),
        method(64, 0x60030047, "EjecutaArchivo", "none",
               {in("Archivo", "String"), opt("Parametros", "String", u""), opt("Directorio", "String", u"C:\\"),
                opt("Visible", "Boolean", True)}),
        method(65, 0x60030048, "HayConexionInternet", "Boolean", {}),

        // Identity numbers: format checks
        method(66, 0x60030049, "fn_ValidaCedula", "Boolean", {in("NumCedula", "String")}),
        method(67, 0x6003004A, "fn_ValidaRUC", "Boolean", {in("NumRUC", "String")}),

        // Forms: enabling the controls of a container
        method(68, 0x6003004B, "HabilitaControles", "none",
               {in("NomControl", "Control"), opt("Habilitar", "Boolean", False)}),

        // Dates: regional settings
        method(69, 0x6003004D, "fn_CambiaConfRegional", "Boolean", {}),
        method(70, 0x6003004E, "fn_VerificaConfRegional", "Boolean", {}),

        // Text: searching an array
        method(71, 0x6003004F, "fn_BuscaEnVector", "Long", {in("Vector", "Variant"), in("ItemB", "Variant")}),

        // Grid: alignment, widths, values, pictures, check boxes, fonts
        method(72, 0x60030050, "fn_CentraFilaGrid", "none",
               {in("Grid", "Grid"), opt("Fila", "Long", int32(0)), opt("Alineamiento", "Integer", int16(4)),
                opt("ColInicio", "Integer", int16(0)), opt("ColFin", "Integer", int16(-1))}),
        method(73, 0x60030051, "fn_CentraColumGrid", "none",
               {in("Grid", "Grid"), in("Columna", "Integer"), opt("Alineamiento", "Integer", int16(4)),
                optVal("FilInicio", "Long", int32(1)), optVal("FilFin", "Long", int32(-1))}),
        method(74, 0x60030052, "fn_CambiaAnchoColumnaGrid", "none",
               {in("Grid", "Grid"), in("Columnas", "String"), in("Anchos", "String")}),
        method(75, 0x60030053, "fn_ReemplazaValorColumnaGrid", "none",
               {in("Grid", "Grid"), in("Columna", "Integer"), opt("Que", "Variant", u""), opt("ConQue", "Variant", u""),
                optVal("FilInicio", "Long", int32(1)), optVal("FilFin", "Long", int32(-1))}),
        method(
            76, 0x60030054, "fn_PoneImagenGrid", "none",
            {in("Grid", "Grid"), val("Fila", "Long"), in("Columna", "Integer"), in("RutaImg", "String"),
             opt("DejarTexto", "Boolean", False), opt("Ancho", "Integer", int16(0)), opt("Alto", "Integer", int16(0))}),
        // Check-box values are Variants holding the Integer literals.
        method(77, 0x60030055, "fn_PoneCheckGrid", "none",
               {in("Grid", "Grid"), val("Fila", "Long"), in("Columna", "Integer"), opt("ValorSI", "Variant", int16(1)),
                opt("ValorNO", "Variant", int16(0)), opt("DeshabSI", "Variant", int16(11)),
                opt("DeshabNO", "Variant", int16(10)), opt("InvertirValores", "Boolean", False),
                opt("Ancho", "Integer", int16(0)), opt("Alto", "Integer", int16(0))}),
        method(78, 0x60030056, "fn_PoneCheckColumnaGrid", "none",
               {in("Grid", "Grid"), in("Columna", "Integer"), opt("ValorSI", "Variant", int16(1)),
                opt("ValorNO", "Variant", int16(0)), opt("DeshabSI", "Variant", int16(11)),
                opt("DeshabNO", "Variant", int16(10)), opt("InvertirValores", "Boolean", False),
                optVal("FilInicio", "Long", int32(1)), optVal("FilFin", "Long", int32(-1)),
                opt("Ancho", "Integer", int16(0)), opt("Alto", "Integer", int16(0))}),
        method(79, 0x60030057, "fn_PoneCheck", "none",
               {in("Grid", "Grid"), val("Fila", "Long"), in("Columna", "Integer"), opt("Checked", "Boolean", True),
                opt("Deshabilitado", "Boolean", False), opt("PonerElValor", "Variant", u"")}),
        method(80, 0x60030058, "fn_CambiaLetraFilaGrid", "none",
               {in("Grid", "Grid"), val("Fila", "Long"), opt("Tamanio", "Double", dbl(10.0)),
                opt("Negrita", "Boolean", True), opt("Cursiva", "Boolean", False), opt("Subrayada", "Boolean", False),
                opt("NomLetra", "String", u"MS Sans Serif"), opt("ColInicio", "Integer", int16(1)),
                opt("ColFin", "Integer", int16(-1))}),

        // Grid: typing into a cell, clearing a row
        method(81, 0x60030059, "EscribeGrid", "none", {in("Grid", "Grid"), in("KEyAsci", "Integer")}),
        method(82, 0x6003005A, "fn_LimpiaFilaGrid", "none",
               {in("Grid", "Grid"), val("Fila", "Long"), opt("ValoraPoner", "Variant", u""),
                opt("ColInicio", "Integer", int16(1)), opt("ColFin", "Integer", int16(-1))}),

        // Database: a query exported to a spreadsheet
        method(83, 0x6003005B, "ExportExcelReg", "none",
               {in("Conexion", "Connection"), in("Campos", "String"), in("Anchos", "String"), in("SQL_", "String"),
                in("Titulo", "String")}),

        // Forms: change tracking, trimming text controls
        method(84, 0x6003005C, "esChanged", "Boolean",
               {in("aControl", "Control"), in("KeyA", "Integer"), in("EstActual", "Boolean")}),
        method(85, 0x6003005D, "QuitaEspacios", "none", {in("Formulario", "Form")}),

        // Dates: first day of a month
        method(86, 0x6003005E, "FechaPrimerDia", "Date", {opt("Fecha", "Variant", u"")}),

        // System: files, INI files, registry
        method(87, 0x6003005F, "fsoBorraArchivo", "none", {in("Origen", "String"), opt("PoneMsg", "Boolean", False)}),
        method(88, 0x60030060, "fsoExisteCarpeta", "Boolean", {in("Carpeta", "String")}),
        method(89, 0x60030061, "fsoExisteArchivo", "Boolean", {in("Archivo", "String")}),
        method(90, 0x60030062, "fsoCarpetaSistema", "String", {in("Cual", "TipoCarpetaSys")}),
        method(91, 0x60030063, "fsoCrearCarpeta", "none", {in("Carpeta", "String")}),
        method(92, 0x60030064, "fsoLeeArchivo", "Variant", {in("NomArchivo", "String"), in("NumRegistro", "Integer")}),
        method(93, 0x60030065, "fsoGrabaArchivo", "none",
               {in("NomArchivo", "String"), in("NumRegistro", "Integer"), in("Valor", "Variant")}),
        method(94, 0x60030066, "INI_LeerIni", "String",
               {in("lpFileName", "String"), in("lpAppName", "String"), in("lpKeyName", "String"),
                opt("vDefault", "Variant", Variant::missing())}),
        method(95, 0x60030067, "INI_GuardarIni", "none",
               {in("lpFileName", "String"), in("lpAppName", "String"), in("lpKeyName", "String"),
                in("lpString", "String")}),
        method(96, 0x60030068, "REG_CreaClave", "Long",
               {in("Donde", "ClavesRegistro"), in("NuevaClave", "String"), opt("CerrarClave", "Boolean", False)}),
        method(97, 0x60030069, "REG_PoneValor", "Long",
               {in("Donde", "ClavesRegistro"), in("NombreClave", "String"), in("NombreValor", "String"),
                in("ValoraPoner", "Variant"), opt("TipoValor", "Long", int32(1)),
                opt("Nota", "String", u"Nota: tipos String=1; tipos DWORD=4")}),
        method(98, 0x6003006B, "REG_BuscaRegistro", "Variant",
               {in("Donde", "ClavesRegistro"), in("ClaveBuscar", "String"), in("ValorBuscar", "String")}),

        // Printing: choosing the printer by port
        method(99, 0x6003006D, "fn_FijaImpresora", "none", {in("Puerto", "String")}),

        // Database: a CASE expression from two lists
        method(100, 0x6003006E, "SQL_When", "String",
               {in("NomCampo", "String"), in("When_", "String"), in("Then_", "String"),
                opt("TipDato", "TipoDato", int32(0))}),

        // Grid: numbering a column, removing a row
        method(101, 0x6003006F, "fn_NumeraColumnaGrid", "none",
               {in("Grid", "Grid"), opt("Columna", "Integer", int16(0)), opt("FilaInicial", "Integer", int16(1)),
                opt("FilaFin", "Integer", int16(-1)), opt("NumeroInicial", "Double", dbl(1.0)),
                opt("Incremento", "Double", dbl(1.0)), opt("SignoNumero", "String", u"")}),
        method(102, 0x60030070, "fn_QuitaFilaGrid2", "none",
               {in("Grid", "Grid"), in("Fila", "Integer"), opt("Dejar1Fila", "Boolean", False)}),

        // Numbers: formula evaluation
        method(103, 0x60030071, "numCalculaFormula", "Double", {val("Formula", "String")}),

        // Database: item numbers of lists
        method(104, 0x60030072, "fnBuscaIndex", "Integer", {in("Lista", "Control"), in("Que", "Long")}),

        // Database: binary fields through a scratch file
        method(105, 0x60030073, "regLeeStream", "Variant", {in("RutaArchivo", "String")}),
        method(106, 0x60030074, "regGuardaStream", "String",
               {in("CampoStream", "Variant"), opt("RutaArch", "String", u"")}),
        method(107, 0x60030075, "regImgStream", "Picture",
               {in("CampoStream", "Variant"), opt("RutaArch", "String", u"")}),
        method(108, 0x60030076, "ItemD", "Long", {in("ControlLista", "Control")}),

        // Grid: counting cells, clearing an area
        method(109, 0x60030077, "fn_CuentaElementosColGrid", "Integer",
               {in("Grid", "Grid"), in("Columna", "Integer"), in("Valor", "Variant"), opt("Operacion", "String", u"="),
                opt("FilaInicio", "Integer", int16(1)), opt("FilaFin", "Integer", int16(-1))}),

        // Database: binding a report to a recordset
        method(110, 0x60030078, "PreparaReportes", "none",
               {in("rptReport", "DataReport"), in("Registro", "Recordset")}),

        method(111, 0x60030079, "fn_LimpiaAreaGrid", "none",
               {in("Grid", "Grid"), opt("FilaIni", "Integer", int16(1)), opt("ColInic", "Integer", int16(1)),
                opt("FilaFin", "Integer", int16(-1)), opt("ColFin", "Integer", int16(-1)),
                opt("PonerEsto", "String", u"")}),

        // Printing: a whole form on the printer
        method(112, 0x6003007A, "ImprimeForm", "none",
               {in("Formulario", "Form"), in("NoEstosTags", "String"), opt("NombreContenedor", "String", u""),
                opt("X_ini", "Double", dbl(0)), opt("Y_ini", "Double", dbl(0)), opt("SelecPrinter", "Boolean", False),
                opt("AnchoPapel", "Long", int32(0)), opt("AltoPapel", "Long", int32(0)),
                opt("Copias", "Integer", int16(1)), opt("MismoPapel", "Integer", int16(0)),
                opt("PuertoPrn", "String", u""), opt("LineaRegresar", "Integer", int16(0))}),
        method(113, 0x6003007B, "SeparaEnLineasImprimir", "Variant",
               {in("Indices", "Integer"), in("Texto", "String"), in("Tamanio", "Double"), in("Letra", "Font")}),
        method(114, 0x6003007C, "LimitaTamTexto", "String",
               {in("Texto", "String"), in("Tamanio", "Double"), in("Letra", "Font")}),

        // Database: a list filled from a search pattern
        method(115, 0x6003007D, "LlenaListLIKE", "none",
               {in("Conexion", "Connection"), val("SQL", "String"), in("Lista", "Control")}),

        // Identity numbers: full checks, appended by later builds with
        // DISPIDs above their neighbours'
        method(116, 0x60030087, "fn_ValidaCedula2", "Boolean", {in("NumCedula", "String"), in("Advertir", "Boolean")}),
        method(117, 0x60030088, "fn_ValidaRUC2", "Boolean", {in("NumRUC", "String"), in("Advertir", "Boolean")}),
        method(118, 0x60030092, "fn_ValidaCedula3", "Integer", {in("NumCedula", "String"), in("Advertir", "Boolean")}),
        method(119, 0x60030093, "fn_ValidaRUC3", "Boolean", {in("NumRUC", "String"), in("Advertir", "Boolean")}),
    };
    return methods;
}

const std::vector<EnumInfo>& enumerations() {
    static const std::vector<EnumInfo> all = {
        // Two members share the value 1 and one is -1: kept as published.
        {"PermisosShareFolder",
         {{"pACCESS_READ", 1},
          {"pACCESS_WRITE", 2},
          {"pACCESS_CREATE", 4},
          {"pACCESS_EXEC", 8},
          {"pACCESS_DELETE", 16},
          {"pACCESS_ATRIB", 32},
          {"pACCESS_PERM", 64},
          {"pACCESS_ALL", 127},
          {"pWNTYPE_DRIVE", 1},
          {"pSHI_USES_UNLIMITED", -1}}},
        {"eTipoRecurso", {{"rSTYPE_DISKTREE", 0}, {"rSTYPE_PRINTQ", 1}, {"rSTYPE_DEVICE", 2}, {"rSTYPE_IPC", 3}}},
        {"ClavesRegistro",
         {{"HKEY_CLASSES_ROOT_", 0}, {"HKEY_CURRENT_USER_", 1}, {"HKEY_LOCAL_MACHINE_", 2}, {"HKEY_USERS_", 3}}},
        {"TipoCarpetaSys", {{"deWindows", 0}, {"deSystem", 1}, {"deTemp", 2}}},
        {"TipoAtributoArch", {{"aSoloLectura", 0}, {"aDeSistema", 1}, {"aArchivo", 2}, {"aOculto", 3}, {"aNormal", 4}}},
        {"TipoUnidad",
         {{"uDiscoDuro", 0}, {"uCDRom", 1}, {"uDeRed", 2}, {"uDiscoRAM", 3}, {"uDesconocido", 4}, {"uRemovible", 5}}},
        // Absolute is -32768 (0xFFFF8000), not the platform's absolute-move flag.
        {"enMouseEvent",
         {{"LeftBtnDown", 2},
          {"LeftBtnUp", 4},
          {"MiddleBtnDown", 32},
          {"MiddleBtnUp", 64},
          {"RightBtnDown", 8},
          {"RightBtnUp", 16},
          {"MouseMove", 1},
          {"Absolute", -32768}}},
        {"enBotonMouse", {{"btnIzquierdo", 0}, {"btnDerecho", 1}, {"btnMedio", 2}}},
        {"enMode", {{"bTwips", 0}, {"bPixeles", 1}, {"bMilimetros", 2}, {"bCentimetros", 3}, {"bPulgadas", 4}}},
        {"eSexo", {{"Femenino", 0}, {"Masculino", 1}}},
        {"LadoCadena", {{"Izquierdo", 0}, {"Derecho", 1}}},
        {"TipoDato", {{"String_", 0}, {"Numero_", 1}, {"Fecha_", 2}}},
        {"ConstApagar", {{"CerrarSesion_", 0}, {"Apagar_", 1}, {"Reiniciar_", 2}}},
    };
    return all;
}

const std::vector<RecordInfo>& records() {
    static const std::vector<RecordInfo> all = {
        {"POINTAPI", {{"x", "Long"}, {"y", "Long"}}},
        {"RECT", {{"Left", "Long"}, {"Top", "Long"}, {"Right", "Long"}, {"Bottom", "Long"}}},
        {"CoordenadasMouse", {{"x", "Variant"}, {"y", "Variant"}}},
    };
    return all;
}

}  // namespace telvaro
