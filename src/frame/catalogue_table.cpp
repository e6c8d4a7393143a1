// The published interface of Fun: its 119 methods in v-table order with
// their DISPIDs, result types and parameters, the thirteen enumerations and
// the three records. Applications built against earlier builds bind to these
// exact names, slots, numbers and defaults; new methods are only appended.
#include "frame/catalogue.h"

namespace telvaro {

namespace {

// A parameter as the signature declares it, by reference or by value; an
// optional one carries its default.
struct Param : ParamInfo {
    Param&& optional(Variant value) && {
        ParamInfo::optional = true;
        defaultValue = std::move(value);
        return std::move(*this);
    }
};

Param byRef(std::string_view name, ArgType type, std::string_view typeName) {
    Param p;
    p.name = name;
    p.type = type;
    p.typeName = typeName;
    p.byRef = true;
    return p;
}

Param byVal(std::string_view name, ArgType type, std::string_view typeName) {
    Param p = byRef(name, type, typeName);
    p.byRef = false;
    return p;
}

Variant integer(std::int16_t v) { return Variant(v); }
Variant longValue(std::int32_t v) { return Variant(v); }
Variant byte(std::uint8_t v) { return Variant(v); }
Variant number(double v) { return Variant(v); }
Variant nothing() { return Variant(ObjectRef()); }

MethodInfo method(int order, std::int32_t dispid, std::string_view name, ArgType result,
                  std::string_view resultName, std::vector<Param> params) {
    MethodInfo m;
    m.order = order;
    m.dispid = dispid;
    m.name = name;
    m.result = result;
    m.resultName = resultName;
    m.params.assign(params.begin(), params.end());
    return m;
}

}  // namespace

const std::vector<MethodInfo>& catalogue() {
    static const std::vector<MethodInfo> methods = {
        method(1, 0x60030000, "strCuentaCaracteres", ArgType::Integer, "Integer", {
              byRef("Cadena", ArgType::String, "String"),
              byRef("Caracter", ArgType::String, "String"),
              byRef("PosInicio", ArgType::Integer, "Integer").optional(integer(1))}),
        method(2, 0x60030002, "strCadenaEntrePosicion", ArgType::String, "String", {
              byRef("Cadena", ArgType::String, "String"),
              byRef("posIni", ArgType::Integer, "Integer"),
              byRef("PosFin", ArgType::Integer, "Integer")}),
        method(3, 0x60030003, "strPosicion_XAvo_Caracter", ArgType::Integer, "Integer", {
              byRef("Cadena", ArgType::String, "String"),
              byRef("Caracter", ArgType::String, "String"),
              byRef("NumCaracter", ArgType::Integer, "Integer")}),
        method(4, 0x60030005, "numFraccion_a_Decimal", ArgType::Double, "Double", {
              byRef("CantidadFraccionad", ArgType::String, "String"),
              byRef("NumFraciones", ArgType::Integer, "Integer")}),
        method(5, 0x60030006, "numDecimal_a_Fraccion", ArgType::String, "String", {
              byRef("CantidadDecimal", ArgType::String, "String"),
              byRef("NumFraciones", ArgType::Integer, "Integer")}),
        method(6, 0x60030007, "StockResta", ArgType::Double, "Double", {
              byVal("CantActual", ArgType::Double, "Double"),
              byVal("CantiResta", ArgType::String, "String"),
              byRef("NumFracciones", ArgType::Integer, "Integer")}),
        method(7, 0x60030008, "StockSuma", ArgType::Double, "Double", {
              byVal("CantActual", ArgType::Double, "Double"),
              byVal("CantiSuma", ArgType::String, "String"),
              byRef("NumFracciones", ArgType::Integer, "Integer")}),
        method(8, 0x60030009, "numEsMultiplo", ArgType::Boolean, "Boolean", {
              byRef("Numero", ArgType::Double, "Double"),
              byRef("Factor", ArgType::Double, "Double")}),
        method(9, 0x6003000A, "numParteEntera", ArgType::Double, "Double", {
              byRef("Numero", ArgType::Double, "Double")}),
        method(10, 0x6003000B, "numParteDecimal", ArgType::Double, "Double", {
              byRef("Numero", ArgType::Double, "Double")}),
        method(11, 0x6003000C, "numTruncar", ArgType::Double, "Double", {
              byRef("Numero", ArgType::Double, "Double"),
              byRef("NumDecimal", ArgType::Integer, "Integer")}),
        method(12, 0x6003000E, "VerificaNumero", ArgType::Integer, "Integer", {
              byRef("Objeto", ArgType::Object, "Control"),
              byRef("KeyAscii", ArgType::Integer, "Integer"),
              byRef("NumDecimales", ArgType::Integer, "Integer").optional(integer(2)),
              byRef("ConSigno", ArgType::Boolean, "Boolean").optional(False),
              byRef("Longitud", ArgType::Integer, "Integer").optional(integer(100)),
              byRef("EsGridEx", ArgType::Boolean, "Boolean").optional(False)}),
        method(13, 0x6003000F, "Numero2Letra", ArgType::String, "String", {
              byVal("strNum", ArgType::String, "String"),
              byVal("Lo", ArgType::Long, "Long").optional(longValue(0)),
              byVal("NumDecimales", ArgType::Long, "Long").optional(longValue(2)),
              byVal("sMoneda", ArgType::String, "String").optional(String(u"")),
              byVal("sCentimos", ArgType::String, "String").optional(String(u"")),
              byVal("SexoMoneda", ArgType::Long, "eSexo").optional(longValue(0)),
              byVal("SexoCentimos", ArgType::Long, "eSexo").optional(longValue(1))}),
        method(14, 0x60030014, "MyFecha", ArgType::String, "String", {
              byRef("Fecha", ArgType::String, "String")}),
        method(15, 0x60030015, "fecEdadExacta", ArgType::String, "String", {
              byRef("FechaActual", ArgType::Date, "Date"),
              byRef("FechaNacimiento", ArgType::Date, "Date")}),
        method(16, 0x60030016, "fecUltimoDiaMes", ArgType::Byte, "Byte", {
              byRef("Mes", ArgType::Byte, "Byte"),
              byRef("Anio", ArgType::Integer, "Integer")}),
        method(17, 0x60030017, "regDevuelveDatoCampoSQL", ArgType::Variant, "Variant", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("SQL", ArgType::String, "String")}),
        method(18, 0x60030018, "regUltimoCodigo", ArgType::Long, "Long", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("NomCampo", ArgType::String, "String"),
              byRef("NomTabla", ArgType::String, "String"),
              byRef("CondicionSinWhere", ArgType::String, "String"),
              byRef("Incremento", ArgType::Integer, "Integer").optional(integer(1))}),
        method(19, 0x60030019, "regCargaListaSQL", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("SQL_", ArgType::String, "String"),
              byRef("ListaText", ArgType::Object, "Control"),
              byRef("CampoText", ArgType::String, "String"),
              byRef("ListaCod", ArgType::Object, "Control").optional(nothing()),
              byRef("CampoCod", ArgType::String, "String").optional(String(u"")),
              byRef("Elige1erItem", ArgType::Boolean, "Boolean").optional(True),
              byRef("Limpiar1ro", ArgType::Boolean, "Boolean").optional(True),
              byRef("PrimerItemText", ArgType::String, "String").optional(String(u"")),
              byRef("PrimerItemCod", ArgType::String, "String").optional(String(u""))}),
        method(20, 0x6003001A, "regCargaListaSQL2", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("SQL_", ArgType::String, "String"),
              byRef("ListaText", ArgType::Object, "Control"),
              byRef("CampoText", ArgType::String, "String"),
              byRef("CampoCod", ArgType::String, "String").optional(String(u"")),
              byRef("Elige1erItem", ArgType::Boolean, "Boolean").optional(True),
              byRef("Limpiar1ro", ArgType::Boolean, "Boolean").optional(True),
              byRef("PrimerItemText", ArgType::String, "String").optional(String(u"")),
              byRef("PrimerItemCod", ArgType::Long, "Long").optional(longValue(0))}),
        method(21, 0x6003001B, "regLlenaListaLIKE", ArgType::None, "none", {
              byRef("Tabla", ArgType::Object, "Recordset"),
              byRef("SQL", ArgType::String, "String"),
              byRef("dGrid", ArgType::Object, "DataGrid"),
              byRef("OcultaSiNo", ArgType::Boolean, "Boolean").optional(True)}),
        method(22, 0x6003001C, "regLlenaGridLIKE", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("SQL_", ArgType::String, "String"),
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("CamposC", ArgType::String, "String"),
              byVal("FilaInic", ArgType::Long, "Long").optional(longValue(0)),
              byRef("ColInic", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("OcultaSiNo", ArgType::Boolean, "Boolean").optional(True),
              byRef("Deja1rafila", ArgType::Boolean, "Boolean").optional(False)}),
        method(23, 0x6003001D, "regReintentaCargarDatos", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("CodRegistro", ArgType::Variant, "Variant"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto cargar los datos del registro seleccionado?"))}),
        method(24, 0x6003001E, "regReintentarEstaOperacion", ArgType::Boolean, "Boolean", {
              byRef("Formul", ArgType::Object, "Form"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"Se han realizado cambios en el registro que aun no se han guardado. Desea guardarlos ahora?. ")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto y realizar la operación solicitada?"))}),
        method(25, 0x6003001F, "RegistroInicial", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto y pasar al primer registro de todas formas?"))}),
        method(26, 0x60030020, "RegistroAnterior", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto y pasar al registro anterior de todas formas?"))}),
        method(27, 0x60030021, "RegistroSiguiente", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto y pasar al siguiente registro de todas formas?"))}),
        method(28, 0x60030022, "RegistroFinal", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("MsgError", ArgType::String, "String").optional(String(u"El registro actual no ha sido guardado. Desea guardarlo ahora?")),
              byRef("MsgIgnora", ArgType::String, "String").optional(String(u"El registro no ha podido ser guardado. Desea ignorar esto y pasar al último registro de todas formas?"))}),
        method(29, 0x60030023, "RegLlenaGridRegSql", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("SQL_", ArgType::String, "String"),
              byRef("Campos", ArgType::String, "String"),
              byRef("Limpiar", ArgType::Boolean, "Boolean").optional(True),
              byRef("Dejar1Fila", ArgType::Boolean, "Boolean").optional(False),
              byVal("FilInicio", ArgType::Long, "Long").optional(longValue(1)),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("NegritaTit", ArgType::Boolean, "Boolean").optional(False),
              byRef("NumDeci", ArgType::String, "String").optional(String(u"##0.00")),
              byRef("ProgresB", ArgType::Boolean, "Boolean").optional(False)}),
        method(30, 0x60030024, "ImgCopiaImagen", ArgType::None, "none", {
              byRef("Origen", ArgType::Object, "Object"),
              byRef("Destino", ArgType::Object, "Object"),
              byRef("DestinoInvisible", ArgType::Boolean, "Boolean").optional(True),
              byRef("PonerDestinoTrasOrigen", ArgType::Boolean, "Boolean").optional(True)}),
        method(31, 0x60030025, "imgCreateBitmapPicture", ArgType::Object, "Picture", {
              byVal("hBmp", ArgType::Long, "Long"),
              byVal("hPal", ArgType::Long, "Long")}),
        method(32, 0x60030026, "imgCaptureWindow", ArgType::Object, "Picture", {
              byVal("hWndSrc", ArgType::Long, "Long"),
              byVal("Client", ArgType::Boolean, "Boolean"),
              byVal("LeftSrc", ArgType::Long, "Long"),
              byVal("TopSrc", ArgType::Long, "Long"),
              byVal("WidthSrc", ArgType::Long, "Long"),
              byVal("HeightSrc", ArgType::Long, "Long")}),
        method(33, 0x60030027, "imgCaptureScreen", ArgType::Object, "Picture", {}),
        method(34, 0x60030028, "imgCaptureActiveWindow", ArgType::Object, "Picture", {}),
        method(35, 0x60030029, "MsgGuardarRegistro", ArgType::Boolean, "Boolean", {
              byRef("Msg", ArgType::String, "String").optional(String(u"Los datos del registro actual no han sido guardados. Desea guardarlos ahora ?"))}),
        method(36, 0x6003002A, "MsgEliminarRegistro", ArgType::Boolean, "Boolean", {
              byRef("Msg", ArgType::String, "String").optional(String(u"Está seguro que desea eliminar los datos del registro actual ?"))}),
        method(37, 0x6003002B, "MsgRegistroNoGuardado", ArgType::Boolean, "Boolean", {
              byRef("Msg", ArgType::String, "String").optional(String(u"El registro no pudo ser guardado. Desea ignorar esto y realizar la operación solicitada de todas formas ?"))}),
        method(38, 0x6003002C, "MsgDatosGuardados", ArgType::None, "none", {
              byRef("Msg", ArgType::String, "String").optional(String(u"Los datos del registro fueron guardados con éxito!"))}),
        method(39, 0x6003002D, "MsgDatosEliminados", ArgType::None, "none", {
              byRef("Msg", ArgType::String, "String").optional(String(u"El registro fue eliminado con éxito!"))}),
        method(40, 0x6003002E, "MsgHayCambios", ArgType::Boolean, "Boolean", {
              byRef("Changed", ArgType::Boolean, "Boolean"),
              byRef("Msg", ArgType::String, "String").optional(String(u"No se ha realizado ninguna modificación en el registro que necesite ser guardada!"))}),
        method(41, 0x6003002F, "MsgRegistroSeleccionado", ArgType::Boolean, "Boolean", {
              byRef("Nuevo", ArgType::Boolean, "Boolean"),
              byRef("Msg", ArgType::String, "String").optional(String(u"Primero debe seleccionar un registro existente para realizar la operación solicitada!"))}),
        method(42, 0x60030030, "sndTocaArchivoWab", ArgType::None, "none", {
              byRef("Archivo", ArgType::String, "String"),
              byRef("Detener", ArgType::Boolean, "Boolean").optional(False),
              byRef("Repetitivo", ArgType::Boolean, "Boolean").optional(False)}),
        method(43, 0x60030031, "CapturaMsgBox", ArgType::None, "none", {
              byRef("mostrarMsgBox", ArgType::Boolean, "Boolean").optional(False)}),
        method(44, 0x60030032, "fn_LogErrores", ArgType::None, "none", {
              byRef("Objeto", ArgType::Variant, "Variant"),
              byRef("nerr", ArgType::Object, "ErrObject"),
              byRef("InfoExtra", ArgType::String, "String").optional(String(u""))}),
        method(45, 0x60030033, "fn_MoverControl", ArgType::None, "none", {
              byRef("hWnd_control", ArgType::Long, "Long")}),
        method(46, 0x60030034, "fn_Backspace", ArgType::Integer, "Integer", {
              byRef("Control", ArgType::Object, "Control")}),
        method(47, 0x60030035, "fn_ExisteItem", ArgType::Boolean, "Boolean", {
              byRef("Lista", ArgType::Object, "Control"),
              byRef("ItemB", ArgType::Variant, "Variant")}),
        method(48, 0x60030036, "fn_BuscaItem", ArgType::Long, "Long", {
              byRef("Lista", ArgType::Object, "Control"),
              byRef("ItemB", ArgType::Variant, "Variant")}),
        method(49, 0x60030037, "fn_LimpiaTextObjetos", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form")}),
        method(50, 0x60030038, "fn_BuscaColGrid", ArgType::Long, "Long", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Valor", ArgType::Variant, "Variant"),
              byVal("FilaInic", ArgType::Long, "Long").optional(longValue(1)),
              byVal("FilaFin", ArgType::Long, "Long").optional(longValue(-1))}),
        method(51, 0x60030039, "fn_BuscaFilGrid", ArgType::Long, "Long", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Valor", ArgType::Variant, "Variant"),
              byRef("ColInic", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(52, 0x6003003A, "fn_QuitaFilasInvalidas", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("ColumnaBuscar", ArgType::Integer, "Integer"),
              byRef("ValorNulo", ArgType::String, "String").optional(String(u"")),
              byRef("FilasFixed", ArgType::Byte, "Byte").optional(byte(1))}),
        method(53, 0x6003003B, "fn_PintaFilaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Color", ArgType::Long, "Long").optional(longValue(-2147483643)),
              byRef("ColorLetra", ArgType::Long, "Long").optional(longValue(-2147483640)),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(54, 0x6003003C, "fn_PintaColumnaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Color", ArgType::Long, "Long").optional(longValue(-2147483643)),
              byRef("ColorLetra", ArgType::Long, "Long").optional(longValue(-2147483640)),
              byVal("FilInicio", ArgType::Long, "Long").optional(longValue(1)),
              byVal("FilFin", ArgType::Long, "Long").optional(longValue(-1))}),
        method(55, 0x6003003D, "fn_ExportaExcelGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("FilaInicio", ArgType::Integer, "Integer"),
              byRef("Titulo", ArgType::String, "String").optional(String(u"")),
              byRef("SubTitulo", ArgType::String, "String").optional(String(u"")),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1)),
              byRef("FilaFin", ArgType::Integer, "Integer").optional(integer(-1)),
              byRef("PoneLineas", ArgType::Boolean, "Boolean").optional(True)}),
        method(56, 0x6003003F, "fn_LlenaVector", ArgType::Variant, "Variant", {
              byRef("Elementos", ArgType::String, "String"),
              byRef("TipoDat", ArgType::Long, "TipoDato"),
              byRef("Separador", ArgType::String, "String").optional(String(u","))}),
        method(57, 0x60030040, "fn_MatrizParaEstadistica", ArgType::Variant, "Variant", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("SQL", ArgType::String, "String"),
              byRef("SufijoX", ArgType::String, "String").optional(String(u"")),
              byRef("ConMsgError", ArgType::Boolean, "Boolean").optional(True),
              byRef("Chart", ArgType::Object, "Chart").optional(nothing())}),
        method(58, 0x60030041, "fn_NombreComputador", ArgType::String, "String", {}),
        method(59, 0x60030042, "fn_NombreUsuarioWindows", ArgType::String, "String", {}),
        method(60, 0x60030043, "fn_ScrollHListBox", ArgType::None, "none", {
              byRef("Lista", ArgType::Object, "Control")}),
        method(61, 0x60030044, "fn_FormSiempreVisible", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form")}),
        method(62, 0x60030045, "fn_VentanaFlotante", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("Padre", ArgType::Object, "Form")}),
        method(63, 0x60030046, "fn_EsperaXSegundos", ArgType::None, "none", {
              byVal("NumSegundos", ArgType::Integer, "Integer"),
              byRef("EjecutarOtrosProcesos", ArgType::Boolean, "Boolean").optional(False)}),
        method(64, 0x60030047, "EjecutaArchivo", ArgType::None, "none", {
              byRef("Archivo", ArgType::String, "String"),
              byRef("Parametros", ArgType::String, "String").optional(String(u"")),
              byRef("Directorio", ArgType::String, "String").optional(String(u"C:\\")),
              byRef("Visible", ArgType::Boolean, "Boolean").optional(True)}),
        method(65, 0x60030048, "HayConexionInternet", ArgType::Boolean, "Boolean", {}),
        method(66, 0x60030049, "fn_ValidaCedula", ArgType::Boolean, "Boolean", {
              byRef("NumCedula", ArgType::String, "String")}),
        method(67, 0x6003004A, "fn_ValidaRUC", ArgType::Boolean, "Boolean", {
              byRef("NumRUC", ArgType::String, "String")}),
        method(68, 0x6003004B, "HabilitaControles", ArgType::None, "none", {
              byRef("NomControl", ArgType::Object, "Control"),
              byRef("Habilitar", ArgType::Boolean, "Boolean").optional(False)}),
        method(69, 0x6003004D, "fn_CambiaConfRegional", ArgType::Boolean, "Boolean", {}),
        method(70, 0x6003004E, "fn_VerificaConfRegional", ArgType::Boolean, "Boolean", {}),
        method(71, 0x6003004F, "fn_BuscaEnVector", ArgType::Long, "Long", {
              byRef("Vector", ArgType::Variant, "Variant"),
              byRef("ItemB", ArgType::Variant, "Variant")}),
        method(72, 0x60030050, "fn_CentraFilaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Fila", ArgType::Long, "Long").optional(longValue(0)),
              byRef("Alineamiento", ArgType::Integer, "Integer").optional(integer(4)),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(73, 0x60030051, "fn_CentraColumGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Alineamiento", ArgType::Integer, "Integer").optional(integer(4)),
              byVal("FilInicio", ArgType::Long, "Long").optional(longValue(1)),
              byVal("FilFin", ArgType::Long, "Long").optional(longValue(-1))}),
        method(74, 0x60030052, "fn_CambiaAnchoColumnaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columnas", ArgType::String, "String"),
              byRef("Anchos", ArgType::String, "String")}),
        method(75, 0x60030053, "fn_ReemplazaValorColumnaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Que", ArgType::Variant, "Variant").optional(String(u"")),
              byRef("ConQue", ArgType::Variant, "Variant").optional(String(u"")),
              byVal("FilInicio", ArgType::Long, "Long").optional(longValue(1)),
              byVal("FilFin", ArgType::Long, "Long").optional(longValue(-1))}),
        method(76, 0x60030054, "fn_PoneImagenGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("RutaImg", ArgType::String, "String"),
              byRef("DejarTexto", ArgType::Boolean, "Boolean").optional(False),
              byRef("Ancho", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("Alto", ArgType::Integer, "Integer").optional(integer(0))}),
        method(77, 0x60030055, "fn_PoneCheckGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("ValorSI", ArgType::Variant, "Variant").optional(integer(1)),
              byRef("ValorNO", ArgType::Variant, "Variant").optional(integer(0)),
              byRef("DeshabSI", ArgType::Variant, "Variant").optional(integer(11)),
              byRef("DeshabNO", ArgType::Variant, "Variant").optional(integer(10)),
              byRef("InvertirValores", ArgType::Boolean, "Boolean").optional(False),
              byRef("Ancho", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("Alto", ArgType::Integer, "Integer").optional(integer(0))}),
        method(78, 0x60030056, "fn_PoneCheckColumnaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("ValorSI", ArgType::Variant, "Variant").optional(integer(1)),
              byRef("ValorNO", ArgType::Variant, "Variant").optional(integer(0)),
              byRef("DeshabSI", ArgType::Variant, "Variant").optional(integer(11)),
              byRef("DeshabNO", ArgType::Variant, "Variant").optional(integer(10)),
              byRef("InvertirValores", ArgType::Boolean, "Boolean").optional(False),
              byVal("FilInicio", ArgType::Long, "Long").optional(longValue(1)),
              byVal("FilFin", ArgType::Long, "Long").optional(longValue(-1)),
              byRef("Ancho", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("Alto", ArgType::Integer, "Integer").optional(integer(0))}),
        method(79, 0x60030057, "fn_PoneCheck", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Checked", ArgType::Boolean, "Boolean").optional(True),
              byRef("Deshabilitado", ArgType::Boolean, "Boolean").optional(False),
              byRef("PonerElValor", ArgType::Variant, "Variant").optional(String(u""))}),
        method(80, 0x60030058, "fn_CambiaLetraFilaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("Tamanio", ArgType::Double, "Double").optional(number(10)),
              byRef("Negrita", ArgType::Boolean, "Boolean").optional(True),
              byRef("Cursiva", ArgType::Boolean, "Boolean").optional(False),
              byRef("Subrayada", ArgType::Boolean, "Boolean").optional(False),
              byRef("NomLetra", ArgType::String, "String").optional(String(u"MS Sans Serif")),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(81, 0x60030059, "EscribeGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("KEyAsci", ArgType::Integer, "Integer")}),
        method(82, 0x6003005A, "fn_LimpiaFilaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byVal("Fila", ArgType::Long, "Long"),
              byRef("ValoraPoner", ArgType::Variant, "Variant").optional(String(u"")),
              byRef("ColInicio", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(83, 0x6003005B, "ExportExcelReg", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byRef("Campos", ArgType::String, "String"),
              byRef("Anchos", ArgType::String, "String"),
              byRef("SQL_", ArgType::String, "String"),
              byRef("Titulo", ArgType::String, "String")}),
        method(84, 0x6003005C, "esChanged", ArgType::Boolean, "Boolean", {
              byRef("aControl", ArgType::Object, "Control"),
              byRef("KeyA", ArgType::Integer, "Integer"),
              byRef("EstActual", ArgType::Boolean, "Boolean")}),
        method(85, 0x6003005D, "QuitaEspacios", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form")}),
        method(86, 0x6003005E, "FechaPrimerDia", ArgType::Date, "Date", {
              byRef("Fecha", ArgType::Variant, "Variant").optional(String(u""))}),
        method(87, 0x6003005F, "fsoBorraArchivo", ArgType::None, "none", {
              byRef("Origen", ArgType::String, "String"),
              byRef("PoneMsg", ArgType::Boolean, "Boolean").optional(False)}),
        method(88, 0x60030060, "fsoExisteCarpeta", ArgType::Boolean, "Boolean", {
              byRef("Carpeta", ArgType::String, "String")}),
        method(89, 0x60030061, "fsoExisteArchivo", ArgType::Boolean, "Boolean", {
              byRef("Archivo", ArgType::String, "String")}),
        method(90, 0x60030062, "fsoCarpetaSistema", ArgType::String, "String", {
              byRef("Cual", ArgType::Long, "TipoCarpetaSys")}),
        method(91, 0x60030063, "fsoCrearCarpeta", ArgType::None, "none", {
              byRef("Carpeta", ArgType::String, "String")}),
        method(92, 0x60030064, "fsoLeeArchivo", ArgType::Variant, "Variant", {
              byRef("NomArchivo", ArgType::String, "String"),
              byRef("NumRegistro", ArgType::Integer, "Integer")}),
        method(93, 0x60030065, "fsoGrabaArchivo", ArgType::None, "none", {
              byRef("NomArchivo", ArgType::String, "String"),
              byRef("NumRegistro", ArgType::Integer, "Integer"),
              byRef("Valor", ArgType::Variant, "Variant")}),
        method(94, 0x60030066, "INI_LeerIni", ArgType::String, "String", {
              byRef("lpFileName", ArgType::String, "String"),
              byRef("lpAppName", ArgType::String, "String"),
              byRef("lpKeyName", ArgType::String, "String"),
              byRef("vDefault", ArgType::Variant, "Variant").optional(Variant::missing())}),
        method(95, 0x60030067, "INI_GuardarIni", ArgType::None, "none", {
              byRef("lpFileName", ArgType::String, "String"),
              byRef("lpAppName", ArgType::String, "String"),
              byRef("lpKeyName", ArgType::String, "String"),
              byRef("lpString", ArgType::String, "String")}),
        method(96, 0x60030068, "REG_CreaClave", ArgType::Long, "Long", {
              byRef("Donde", ArgType::Long, "ClavesRegistro"),
              byRef("NuevaClave", ArgType::String, "String"),
              byRef("CerrarClave", ArgType::Boolean, "Boolean").optional(False)}),
        method(97, 0x60030069, "REG_PoneValor", ArgType::Long, "Long", {
              byRef("Donde", ArgType::Long, "ClavesRegistro"),
              byRef("NombreClave", ArgType::String, "String"),
              byRef("NombreValor", ArgType::String, "String"),
              byRef("ValoraPoner", ArgType::Variant, "Variant"),
              byRef("TipoValor", ArgType::Long, "Long").optional(longValue(1)),
              byRef("Nota", ArgType::String, "String").optional(String(u"Nota: tipos String=1; tipos DWORD=4"))}),
        method(98, 0x6003006B, "REG_BuscaRegistro", ArgType::Variant, "Variant", {
              byRef("Donde", ArgType::Long, "ClavesRegistro"),
              byRef("ClaveBuscar", ArgType::String, "String"),
              byRef("ValorBuscar", ArgType::String, "String")}),
        method(99, 0x6003006D, "fn_FijaImpresora", ArgType::None, "none", {
              byRef("Puerto", ArgType::String, "String")}),
        method(100, 0x6003006E, "SQL_When", ArgType::String, "String", {
              byRef("NomCampo", ArgType::String, "String"),
              byRef("When_", ArgType::String, "String"),
              byRef("Then_", ArgType::String, "String"),
              byRef("TipDato", ArgType::Long, "TipoDato").optional(longValue(0))}),
        method(101, 0x6003006F, "fn_NumeraColumnaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("FilaInicial", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("FilaFin", ArgType::Integer, "Integer").optional(integer(-1)),
              byRef("NumeroInicial", ArgType::Double, "Double").optional(number(1)),
              byRef("Incremento", ArgType::Double, "Double").optional(number(1)),
              byRef("SignoNumero", ArgType::String, "String").optional(String(u""))}),
        method(102, 0x60030070, "fn_QuitaFilaGrid2", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Fila", ArgType::Integer, "Integer"),
              byRef("Dejar1Fila", ArgType::Boolean, "Boolean").optional(False)}),
        method(103, 0x60030071, "numCalculaFormula", ArgType::Double, "Double", {
              byVal("Formula", ArgType::String, "String")}),
        method(104, 0x60030072, "fnBuscaIndex", ArgType::Integer, "Integer", {
              byRef("Lista", ArgType::Object, "Control"),
              byRef("Que", ArgType::Long, "Long")}),
        method(105, 0x60030073, "regLeeStream", ArgType::Variant, "Variant", {
              byRef("RutaArchivo", ArgType::String, "String")}),
        method(106, 0x60030074, "regGuardaStream", ArgType::String, "String", {
              byRef("CampoStream", ArgType::Variant, "Variant"),
              byRef("RutaArch", ArgType::String, "String").optional(String(u""))}),
        method(107, 0x60030075, "regImgStream", ArgType::Object, "Picture", {
              byRef("CampoStream", ArgType::Variant, "Variant"),
              byRef("RutaArch", ArgType::String, "String").optional(String(u""))}),
        method(108, 0x60030076, "ItemD", ArgType::Long, "Long", {
              byRef("ControlLista", ArgType::Object, "Control")}),
        method(109, 0x60030077, "fn_CuentaElementosColGrid", ArgType::Integer, "Integer", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("Columna", ArgType::Integer, "Integer"),
              byRef("Valor", ArgType::Variant, "Variant"),
              byRef("Operacion", ArgType::String, "String").optional(String(u"=")),
              byRef("FilaInicio", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("FilaFin", ArgType::Integer, "Integer").optional(integer(-1))}),
        method(110, 0x60030078, "PreparaReportes", ArgType::None, "none", {
              byRef("rptReport", ArgType::Object, "DataReport"),
              byRef("Registro", ArgType::Object, "Recordset")}),
        method(111, 0x60030079, "fn_LimpiaAreaGrid", ArgType::None, "none", {
              byRef("Grid", ArgType::Object, "Grid"),
              byRef("FilaIni", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("ColInic", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("FilaFin", ArgType::Integer, "Integer").optional(integer(-1)),
              byRef("ColFin", ArgType::Integer, "Integer").optional(integer(-1)),
              byRef("PonerEsto", ArgType::String, "String").optional(String(u""))}),
        method(112, 0x6003007A, "ImprimeForm", ArgType::None, "none", {
              byRef("Formulario", ArgType::Object, "Form"),
              byRef("NoEstosTags", ArgType::String, "String"),
              byRef("NombreContenedor", ArgType::String, "String").optional(String(u"")),
              byRef("X_ini", ArgType::Double, "Double").optional(number(0)),
              byRef("Y_ini", ArgType::Double, "Double").optional(number(0)),
              byRef("SelecPrinter", ArgType::Boolean, "Boolean").optional(False),
              byRef("AnchoPapel", ArgType::Long, "Long").optional(longValue(0)),
              byRef("AltoPapel", ArgType::Long, "Long").optional(longValue(0)),
              byRef("Copias", ArgType::Integer, "Integer").optional(integer(1)),
              byRef("MismoPapel", ArgType::Integer, "Integer").optional(integer(0)),
              byRef("PuertoPrn", ArgType::String, "String").optional(String(u"")),
              byRef("LineaRegresar", ArgType::Integer, "Integer").optional(integer(0))}),
        method(113, 0x6003007B, "SeparaEnLineasImprimir", ArgType::Variant, "Variant", {
              byRef("Indices", ArgType::Integer, "Integer"),
              byRef("Texto", ArgType::String, "String"),
              byRef("Tamanio", ArgType::Double, "Double"),
              byRef("Letra", ArgType::Object, "Font")}),
        method(114, 0x6003007C, "LimitaTamTexto", ArgType::String, "String", {
              byRef("Texto", ArgType::String, "String"),
              byRef("Tamanio", ArgType::Double, "Double"),
              byRef("Letra", ArgType::Object, "Font")}),
        method(115, 0x6003007D, "LlenaListLIKE", ArgType::None, "none", {
              byRef("Conexion", ArgType::Object, "Connection"),
              byVal("SQL", ArgType::String, "String"),
              byRef("Lista", ArgType::Object, "Control")}),
        method(116, 0x60030087, "fn_ValidaCedula2", ArgType::Boolean, "Boolean", {
              byRef("NumCedula", ArgType::String, "String"),
              byRef("Advertir", ArgType::Boolean, "Boolean")}),
        method(117, 0x60030088, "fn_ValidaRUC2", ArgType::Boolean, "Boolean", {
              byRef("NumRUC", ArgType::String, "String"),
              byRef("Advertir", ArgType::Boolean, "Boolean")}),
        method(118, 0x60030092, "fn_ValidaCedula3", ArgType::Integer, "Integer", {
              byRef("NumCedula", ArgType::String, "String"),
              byRef("Advertir", ArgType::Boolean, "Boolean")}),
        method(119, 0x60030093, "fn_ValidaRUC3", ArgType::Boolean, "Boolean", {
              byRef("NumRUC", ArgType::String, "String"),
              byRef("Advertir", ArgType::Boolean, "Boolean")}),
    };
    return methods;
}

const std::vector<EnumInfo>& enumerations() {
    static const std::vector<EnumInfo> all = {
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
