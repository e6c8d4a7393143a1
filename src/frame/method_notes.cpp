#include "frame/method_notes.h"

#include "runtime/text.h"

namespace telvaro {

namespace {

using Args = std::vector<std::string_view>;

// One row per method, in catalogue order but for the file methods, which
// follow the order a session calls them in (create, write, read, delete).
// The examples are run in this order by the tests, their arguments read as
// `telvaro call` reads them; the ones that touch files use drive C.
const std::vector<MethodNote> kNotes = {
    {"strCuentaCaracteres", "Counts how often Caracter occurs in Cadena from position PosInicio on, overlapping occurrences included; text compares case-insensitively.", {{Args{"aaaa", "aa"}, "3"}}},
    {"strCadenaEntrePosicion", "The characters of Cadena from posIni up to, not including, PosFin; empty unless 0 < posIni < PosFin.", {{Args{"abcdef", "2", "4"}, "bc"}}},
    {"strPosicion_XAvo_Caracter", "The position of the NumCaracter-th occurrence of Caracter in Cadena; with fewer occurrences the search wraps around to the start.", {{Args{"a,b,c", ",", "2"}, "4"}}},
    {"numFraccion_a_Decimal", "Turns a fractioned quantity (whole packs, \".\", loose units) into a decimal number of packs of NumFraciones units.", {{Args{"3.06", "12"}, "3.5"}}},
    {"numDecimal_a_Fraccion", "Turns a decimal number of packs into a fractioned quantity: whole packs, \".\" and the loose units in two digits.", {{Args{"3.5", "12"}, "3.06"}}},
    {"StockResta", "Subtracts the fractioned quantity CantiResta from the stock CantActual, both in packs of NumFracciones units, and answers the fractioned result.", {{Args{"5.06", "2.08", "12"}, "2.1"}}},
    {"StockSuma", "Adds the fractioned quantity CantiSuma to the stock CantActual, both in packs of NumFracciones units, and answers the fractioned result.", {{Args{"5.06", "0.08", "12"}, "6.02"}}},
    {"numEsMultiplo", "True when Numero is a whole multiple of Factor.", {{Args{"12", "4"}, "True"}}},
    {"numParteEntera", "The integer part of Numero, cut towards zero as its text form reads.", {{Args{"-3.7"}, "-3"}}},
    {"numParteDecimal", "The decimal part of Numero, with its sign.", {{Args{"-2.25"}, "-0.25"}}},
    {"numTruncar", "Numero cut, not rounded, to NumDecimal decimals.", {{Args{"2.5679", "2"}, "2.56"}}},
    {"VerificaNumero", "The numeric keystroke filter of a text box or grid cell: answers the key to keep (0 to refuse it) so the text stays a number with at most NumDecimales decimals, an optional sign and at most Longitud characters.", {}},
    {"Numero2Letra", "An amount in Spanish words, with the currency and cents names and their gender, as written on cheques and invoices.", {{Args{"1234.56"}, nullptr}}},
    {"MyFecha", "A date written under the regional settings, rewritten as year-month-day for a query.", {{Args{"15/03/2024"}, "2024-03-15"}}},
    {"fecEdadExacta", "The exact age between FechaNacimiento and FechaActual in years, months and days, as text; empty when the birth date is later.", {{Args{"01/01/2020", "01/01/2000"}, " 20 años con  0 meses y  0 días"}}},
    {"fecUltimoDiaMes", "The last day of month Mes of year Anio (29 for a leap February); 0 for a month out of range.", {{Args{"2", "2024"}, "29"}}},
    {"regDevuelveDatoCampoSQL", "The first column of the first row a query answers on the connection; Empty when it answers no rows.", {}},
    {"regUltimoCodigo", "The next code for a table: the largest NomCampo under the condition plus Incremento, or Incremento on an empty table.", {}},
    {"regCargaListaSQL", "Fills a list (and optionally a parallel code list) from a query, with an optional first item, selecting the first item when asked.", {}},
    {"regCargaListaSQL2", "Fills a list from a query keeping the codes in its ItemData, optionally appending and with an optional first item.", {}},
    {"regLlenaListaLIKE", "Fills a data-bound grid with the records a search statement finds on an open recordset, hiding the grid when it finds nothing.", {}},
    {"regLlenaGridLIKE", "Fills a grid from a search statement from a given row and column, hiding it when the search finds nothing.", {}},
    {"regReintentaCargarDatos", "Before loading another record into a form, offers to save the current one and loads the record CodRegistro when it may.", {}},
    {"regReintentarEstaOperacion", "Before an operation on a form with unsaved changes, offers to save them; True when the operation may go on.", {}},
    {"RegistroInicial", "Moves a form to the first record of its list, offering to save unsaved changes first.", {}},
    {"RegistroAnterior", "Moves a form to the previous record of its list, offering to save unsaved changes first.", {}},
    {"RegistroSiguiente", "Moves a form to the next record of its list, offering to save unsaved changes first.", {}},
    {"RegistroFinal", "Moves a form to the last record of its list, offering to save unsaved changes first.", {}},
    {"RegLlenaGridRegSql", "Fills a grid from a query, the columns and their display formats named in Campos, with a progress window for long results.", {}},
    {"ImgCopiaImagen", "Copies the picture, size and scale mode of one picture control onto another, optionally hiding it and placing it behind the first.", {}},
    {"imgCreateBitmapPicture", "A picture object made from a bitmap handle and a palette handle.", {}},
    {"imgCaptureWindow", "A picture of a window, or of a rectangle of it, taken from the screen.", {}},
    {"imgCaptureScreen", "A picture of the whole screen.", {}},
    {"imgCaptureActiveWindow", "A picture of the active window.", {}},
    {"MsgGuardarRegistro", "Asks \"Guardar registro?\" whether to save the current record; True when the user answers Yes.", {{Args{}, nullptr}}},
    {"MsgEliminarRegistro", "Asks \"¡Eliminar registro?\" whether to delete the current record; True when the user answers Yes.", {{Args{}, nullptr}}},
    {"MsgRegistroNoGuardado", "Tells that the record could not be saved and asks whether to go on anyway; True when the user answers Yes.", {{Args{}, nullptr}}},
    {"MsgDatosGuardados", "Tells that the record was saved.", {{Args{}, ""}}},
    {"MsgDatosEliminados", "Tells that the record was deleted.", {{Args{}, ""}}},
    {"MsgHayCambios", "When Changed is False, tells that nothing needs saving; answers Changed.", {{Args{"True"}, "True"}}},
    {"MsgRegistroSeleccionado", "When Nuevo is set, asks the user to select an existing record first; answers the complement of Nuevo.", {{Args{"False"}, "True"}}},
    {"sndTocaArchivoWab", "Plays a wave sound file, once or looping, or stops the sound playing; a sound that cannot play plays nothing.", {{Args{"\"\"", "True"}, ""}}},
    {"CapturaMsgBox", "Turns the capture of the library's message boxes on or off for the calling thread: captured boxes close at once with their default answer.", {{Args{"False"}, ""}}},
    {"fn_LogErrores", "Appends the caller's error, the control or form it happened in and extra text to this month's error log.", {}},
    {"fn_MoverControl", "Lets the user drag a control with the mouse, by its window handle.", {}},
    {"fn_Backspace", "Deletes the last character of a text control; answers 0.", {}},
    {"fn_ExisteItem", "True when a list holds the item ItemB (text compares case-insensitively).", {}},
    {"fn_BuscaItem", "The index of the item ItemB in a list, -1 when it is not there.", {}},
    {"fn_LimpiaTextObjetos", "Empties the text boxes of a form.", {}},
    {"fn_BuscaColGrid", "The first row between FilaInic and FilaFin whose cell in column Columna equals Valor as text; -1 when none does.", {}},
    {"fn_BuscaFilGrid", "The first column between ColInic and ColFin whose cell in row Fila equals Valor as text; -1 when none does.", {}},
    {"fn_QuitaFilasInvalidas", "Removes the rows of a grid whose cell in column ColumnaBuscar holds ValorNulo.", {}},
    {"fn_PintaFilaGrid", "Paints a row of a grid with a background and a text colour.", {}},
    {"fn_PintaColumnaGrid", "Paints a column of a grid with a background and a text colour.", {}},
    {"fn_ExportaExcelGrid", "Exports the rows and columns of a grid to a new spreadsheet with a title and a subtitle, showing its progress.", {}},
    {"fn_LlenaVector", "Splits Elementos at every Separador into an array, converting every piece but the last to a number or a date as TipDat says.", {{Args{"1,2,3", "Numero_"}, "1\n2\n3"}}},
    {"fn_MatrizParaEstadistica", "A matrix of labels and values from a query, for a chart, which it fills when one is given.", {}},
    {"fn_NombreComputador", "The name of this computer.", {{Args{}, nullptr}}},
    {"fn_NombreUsuarioWindows", "The name of the user logged on.", {{Args{}, nullptr}}},
    {"fn_ScrollHListBox", "Gives a list box a horizontal scroll bar as wide as its longest item.", {}},
    {"fn_FormSiempreVisible", "Keeps a form above every other window.", {}},
    {"fn_VentanaFlotante", "Makes a form float over its parent form.", {}},
    {"fn_EsperaXSegundos", "Waits NumSegundos seconds, optionally letting other events run meanwhile.", {{Args{"0"}, ""}}},
    {"EjecutaArchivo", "Opens a file or runs a program with its parameters and working folder.", {}},
    {"HayConexionInternet", "True when this computer is connected to the Internet.", {{Args{}, nullptr}}},
    {"fn_ValidaCedula", "The format check of a cédula: ten characters without \"-\"; the number made of nines is refused.", {{Args{"1710034065"}, "True"}, {Args{"9999999999"}, "False"}}},
    {"fn_ValidaRUC", "The format check of a RUC: thirteen characters, a cédula or company number followed by an establishment number.", {{Args{"\"1710034065001\""}, "True"}}},
    {"HabilitaControles", "Enables or disables every control inside a container.", {}},
    {"fn_CambiaConfRegional", "Writes the regional configuration the applications expect: day/month/four-digit-year dates, \".\" for decimals and \",\" for thousands, in amounts too; True when every item was written.", {{Args{}, "True"}}},
    {"fn_VerificaConfRegional", "True when the regional configuration in force is the one the applications expect.", {{Args{}, "True"}}},
    {"fn_BuscaEnVector", "The index of the first element of an array equal to ItemB as text; -1 when none is.", {}},
    {"fn_CentraFilaGrid", "Aligns the cells of a row of a grid (by default centres the header row).", {}},
    {"fn_CentraColumGrid", "Aligns the cells of a column of a grid.", {}},
    {"fn_CambiaAnchoColumnaGrid", "Sets the widths of the grid columns listed in Columnas to the widths listed in Anchos.", {}},
    {"fn_ReemplazaValorColumnaGrid", "Replaces the value Que by ConQue in the cells of a column of a grid.", {}},
    {"fn_PoneImagenGrid", "Puts a picture from a file into a cell of a grid, optionally keeping the text.", {}},
    {"fn_PoneCheckGrid", "Shows a cell of a grid as a check box following its value, optionally inverting it.", {}},
    {"fn_PoneCheckColumnaGrid", "Shows the cells of a column of a grid as check boxes following their values.", {}},
    {"fn_PoneCheck", "Shows a cell of a grid as a check box, checked or not, enabled or not, optionally writing a value.", {}},
    {"fn_CambiaLetraFilaGrid", "Sets the font of a row of a grid: size, bold, italic, underline and name.", {}},
    {"EscribeGrid", "Types the key KEyAsci into the current cell of a grid, as an editable grid does.", {}},
    {"fn_LimpiaFilaGrid", "Writes ValoraPoner into the cells of a row of a grid between two columns.", {}},
    {"ExportExcelReg", "Exports the records of a query to a new spreadsheet with a title, the headers and widths given.", {}},
    {"esChanged", "Whether a keystroke in a control changes the record: answers True for an editing key, else EstActual.", {}},
    {"QuitaEspacios", "Trims the blanks around the text of every text box of a form.", {}},
    {"FechaPrimerDia", "The first day of the month of Fecha, or of the current month when Fecha is left out.", {{Args{"15/03/2024"}, "01/03/2024"}}},
    {"fsoCrearCarpeta", "Creates a folder and every folder above it that is missing.", {{Args{"C:\\telvaro-ejemplo"}, ""}}},
    {"fsoGrabaArchivo", "Writes Valor as record NumRegistro of a file of records.", {{Args{"C:\\telvaro-ejemplo\\datos.bin", "1", "hola"}, ""}}},
    {"fsoLeeArchivo", "Reads record NumRegistro of a file of records.", {{Args{"C:\\telvaro-ejemplo\\datos.bin", "1"}, "hola"}}},
    {"fsoExisteCarpeta", "True when the folder exists.", {{Args{"C:\\telvaro-ejemplo"}, "True"}}},
    {"fsoExisteArchivo", "True when the file exists.", {{Args{"C:\\telvaro-ejemplo\\no-existe.txt"}, "False"}}},
    {"fsoBorraArchivo", "Deletes a file, optionally telling the user when it cannot.", {{Args{"C:\\telvaro-ejemplo\\datos.bin"}, ""}}},
    {"fsoCarpetaSistema", "The Windows, system or temporary folder, as Cual says; empty for any other value.", {{Args{"3"}, ""}}},
    {"INI_LeerIni", "Reads a key of a section of an INI file; vDefault as text, or empty, when the key is missing.", {{Args{"telvaro-ejemplo.ini", "General", "Moneda", "USD"}, "USD"}}},
    {"INI_GuardarIni", "Writes a key of a section of an INI file.", {{Args{"telvaro-ejemplo.ini", "General", "Empresa", "Telvaro"}, ""}}},
    {"REG_CreaClave", "Creates a registry key under one of the roots and answers its handle.", {{Args{"HKEY_CURRENT_USER_", "Software\\TelvaroEjemplo", "True"}, nullptr}}},
    {"REG_PoneValor", "Writes a value of a registry key with its type, creating the key when missing, and answers the key's handle.", {{Args{"HKEY_CURRENT_USER_", "Software\\TelvaroEjemplo", "Moneda", "USD"}, nullptr}}},
    {"REG_BuscaRegistro", "Reads a value of a registry key; Empty when it is missing.", {{Args{"HKEY_CURRENT_USER_", "Software\\TelvaroEjemplo", "Moneda"}, "USD"}}},
    {"fn_FijaImpresora", "Makes the last installed printer on port Puerto the current printer.", {}},
    {"SQL_When", "A CASE column for a query, from a list of WHEN values and a list of THEN values, quoted unless they are numbers.", {}},
    {"fn_NumeraColumnaGrid", "Numbers the cells of a column of a grid from NumeroInicial by Incremento, with an optional sign after each number.", {}},
    {"fn_QuitaFilaGrid2", "Removes a row of a grid, optionally leaving one empty data row.", {}},
    {"numCalculaFormula", "Evaluates an arithmetic formula written as text (+ - * / \\ ^ %, parentheses); 0 for a formula it cannot read.", {{Args{"2*3+1"}, "7"}}},
    {"fnBuscaIndex", "The index of the first item of a list whose ItemData is Que.", {}},
    {"regLeeStream", "The bytes of a file, for a binary field.", {}},
    {"regGuardaStream", "Writes the bytes of a binary field to a file and answers its path.", {}},
    {"regImgStream", "The picture held in a binary field.", {}},
    {"ItemD", "The ItemData of the selected item of a list.", {}},
    {"fn_CuentaElementosColGrid", "Counts the cells of a column of a grid that compare with Valor as Operacion says.", {}},
    {"PreparaReportes", "Binds a data report, the text boxes of its detail and the functions of its footer to a recordset.", {}},
    {"fn_LimpiaAreaGrid", "Writes PonerEsto into every cell of a rectangle of a grid.", {}},
    {"ImprimeForm", "Prints the controls of a form, leaving out the tags listed, from a starting point.", {}},
    {"SeparaEnLineasImprimir", "A text cut into lines that fit a printing width in a font.", {}},
    {"LimitaTamTexto", "A text shortened to fit a printing width in a font.", {}},
    {"LlenaListLIKE", "Fills a list from a search statement, hiding it when the search finds nothing.", {}},
    {"fn_ValidaCedula2", "The full check of a cédula (province, class and check digit); with Advertir, a failing number may still be accepted by the user.", {{Args{"\"1710034065\"", "False"}, "True"}}},
    {"fn_ValidaRUC2", "The full check of a RUC; with Advertir, a failing number may still be accepted by the user.", {{Args{"\"1710034065001\"", "False"}, "True"}}},
    {"fn_ValidaCedula3", "The full check of a cédula telling how it passed: 1 valid, 2 accepted by the user after the warning, 0 rejected.", {{Args{"\"1710034065\"", "False"}, "1"}}},
    {"fn_ValidaRUC3", "The full check of a RUC with the warning the user may override; True or False.", {{Args{"\"1710034065001\"", "False"}, "True"}}},
};

}  // namespace

const std::vector<MethodNote>& methodNotes() { return kNotes; }

const MethodNote* methodNote(std::string_view name) {
    const String key = fromUtf8(std::string(name));
    for (const auto& note : kNotes)
        if (textEquals(key, fromUtf8(std::string(note.name)))) return &note;
    return nullptr;
}

}  // namespace telvaro
