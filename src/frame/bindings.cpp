// The methods of Fun built so far, bound to their C++ functions. A method
// of the catalogue that is not listed here raises "not implemented".
#include "frame/bind.h"

#include <unordered_map>

#include "dates/date_helpers.h"
#include "dates/regional_settings.h"
#include "db/binary_fields.h"
#include "db/chart_data.h"
#include "db/grid_loading.h"
#include "db/list_loading.h"
#include "db/query_export.h"
#include "db/query_helpers.h"
#include "db/record_navigation.h"
#include "db/report_binding.h"
#include "forms/backspace.h"
#include "forms/capture.h"
#include "forms/enabling.h"
#include "forms/form_texts.h"
#include "forms/number_keys.h"
#include "forms/printing.h"
#include "forms/record_changes.h"
#include "forms/window_tricks.h"
#include "grid/check_boxes.h"
#include "grid/export.h"
#include "grid/fill.h"
#include "grid/formatting.h"
#include "grid/row_removal.h"
#include "grid/search.h"
#include "grid/typing.h"
#include "ident/cedula_ruc.h"
#include "messages/error_log.h"
#include "messages/standard_messages.h"
#include "system/environment.h"
#include "system/files.h"
#include "system/ini_files.h"
#include "system/registry.h"
#include "text/amount_in_words.h"
#include "text/formula.h"
#include "text/fractions.h"
#include "text/strings.h"

namespace telvaro {

const std::vector<Binding>& bindings() {
    static const std::vector<Binding> all = {
        // Standard messages
        bind<&messages::MsgGuardarRegistro>("MsgGuardarRegistro"),
        bind<&messages::MsgEliminarRegistro>("MsgEliminarRegistro"),
        bind<&messages::MsgRegistroNoGuardado>("MsgRegistroNoGuardado"),
        bind<&messages::MsgDatosGuardados>("MsgDatosGuardados"),
        bind<&messages::MsgDatosEliminados>("MsgDatosEliminados"),
        bind<&messages::MsgHayCambios>("MsgHayCambios"),
        bind<&messages::MsgRegistroSeleccionado>("MsgRegistroSeleccionado"),
        // Text and vectors
        bind<&text::strCuentaCaracteres>("strCuentaCaracteres"),
        bind<&text::strCadenaEntrePosicion>("strCadenaEntrePosicion"),
        bind<&text::strPosicion_XAvo_Caracter>("strPosicion_XAvo_Caracter"),
        bind<&text::fn_LlenaVector>("fn_LlenaVector"),
        bind<&text::fn_BuscaEnVector>("fn_BuscaEnVector"),
        // Fractions and stock quantities
        bind<&text::numFraccion_a_Decimal>("numFraccion_a_Decimal"),
        bind<&text::numDecimal_a_Fraccion>("numDecimal_a_Fraccion"),
        bind<&text::StockResta>("StockResta"),
        bind<&text::StockSuma>("StockSuma"),
        bind<&text::numEsMultiplo>("numEsMultiplo"),
        bind<&text::numParteEntera>("numParteEntera"),
        bind<&text::numParteDecimal>("numParteDecimal"),
        bind<&text::numTruncar>("numTruncar"),
        bind<&text::Numero2Letra>("Numero2Letra"),
        bind<&text::numCalculaFormula>("numCalculaFormula"),
        // Dates
        bind<&dates::MyFecha>("MyFecha"),
        bind<&dates::fecEdadExacta>("fecEdadExacta"),
        bind<&dates::fecUltimoDiaMes>("fecUltimoDiaMes"),
        bind<&dates::FechaPrimerDia>("FechaPrimerDia"),
        // Identity numbers
        bind<&ident::fn_ValidaCedula>("fn_ValidaCedula"),
        bind<&ident::fn_ValidaCedula2>("fn_ValidaCedula2"),
        bind<&ident::fn_ValidaCedula3>("fn_ValidaCedula3"),
        bind<&ident::fn_ValidaRUC>("fn_ValidaRUC"),
        bind<&ident::fn_ValidaRUC2>("fn_ValidaRUC2"),
        bind<&ident::fn_ValidaRUC3>("fn_ValidaRUC3"),
        // Files, INI and registry
        bind<&system::INI_LeerIni>("INI_LeerIni"),
        bind<&system::INI_GuardarIni>("INI_GuardarIni"),
        bind<&system::fsoBorraArchivo>("fsoBorraArchivo"),
        bind<&system::fsoExisteCarpeta>("fsoExisteCarpeta"),
        bind<&system::fsoExisteArchivo>("fsoExisteArchivo"),
        bind<&system::fsoCarpetaSistema>("fsoCarpetaSistema"),
        bind<&system::fsoCrearCarpeta>("fsoCrearCarpeta"),
        bind<&system::fsoLeeArchivo>("fsoLeeArchivo"),
        bind<&system::fsoGrabaArchivo>("fsoGrabaArchivo"),
        bind<&system::REG_CreaClave>("REG_CreaClave"),
        bind<&system::REG_PoneValor>("REG_PoneValor"),
        bind<&system::REG_BuscaRegistro>("REG_BuscaRegistro"),
        // Regional settings
        bind<&dates::fn_CambiaConfRegional>("fn_CambiaConfRegional"),
        bind<&dates::fn_VerificaConfRegional>("fn_VerificaConfRegional"),
        // Grid search and editing
        bind<&grid::fn_BuscaColGrid>("fn_BuscaColGrid"),
        bind<&grid::fn_BuscaFilGrid>("fn_BuscaFilGrid"),
        bind<&grid::fn_QuitaFilasInvalidas>("fn_QuitaFilasInvalidas"),
        bind<&grid::fn_ReemplazaValorColumnaGrid>("fn_ReemplazaValorColumnaGrid"),
        bind<&grid::EscribeGrid>("EscribeGrid"),
        bind<&grid::fn_LimpiaFilaGrid>("fn_LimpiaFilaGrid"),
        bind<&grid::fn_NumeraColumnaGrid>("fn_NumeraColumnaGrid"),
        bind<&grid::fn_QuitaFilaGrid2>("fn_QuitaFilaGrid2"),
        bind<&grid::fn_CuentaElementosColGrid>("fn_CuentaElementosColGrid"),
        bind<&grid::fn_LimpiaAreaGrid>("fn_LimpiaAreaGrid"),
        // Grid formatting, check boxes and pictures
        bind<&grid::fn_PintaFilaGrid>("fn_PintaFilaGrid"),
        bind<&grid::fn_PintaColumnaGrid>("fn_PintaColumnaGrid"),
        bind<&grid::fn_CentraFilaGrid>("fn_CentraFilaGrid"),
        bind<&grid::fn_CentraColumGrid>("fn_CentraColumGrid"),
        bind<&grid::fn_CambiaAnchoColumnaGrid>("fn_CambiaAnchoColumnaGrid"),
        bind<&grid::fn_CambiaLetraFilaGrid>("fn_CambiaLetraFilaGrid"),
        bind<&grid::fn_PoneImagenGrid>("fn_PoneImagenGrid"),
        bind<&grid::fn_PoneCheckGrid>("fn_PoneCheckGrid"),
        bind<&grid::fn_PoneCheckColumnaGrid>("fn_PoneCheckColumnaGrid"),
        bind<&grid::fn_PoneCheck>("fn_PoneCheck"),
        // Environment
        bind<&system::fn_NombreComputador>("fn_NombreComputador"),
        bind<&system::fn_NombreUsuarioWindows>("fn_NombreUsuarioWindows"),
        bind<&system::fn_EsperaXSegundos>("fn_EsperaXSegundos"),
        bind<&system::EjecutaArchivo>("EjecutaArchivo"),
        bind<&system::HayConexionInternet>("HayConexionInternet"),
        bind<&system::sndTocaArchivoWab>("sndTocaArchivoWab"),
        bind<&system::CapturaMsgBox>("CapturaMsgBox"),
        // Error log
        bind<&fn_LogErrores>("fn_LogErrores"),
        // Forms and controls
        bind<&forms::VerificaNumero>("VerificaNumero"),
        bind<&forms::fn_Backspace>("fn_Backspace"),
        bind<&forms::esChanged>("esChanged"),
        bind<&forms::fn_LimpiaTextObjetos>("fn_LimpiaTextObjetos"),
        bind<&forms::QuitaEspacios>("QuitaEspacios"),
        bind<&forms::HabilitaControles>("HabilitaControles"),
        bind<&forms::fn_ScrollHListBox>("fn_ScrollHListBox"),
        bind<&forms::fn_FormSiempreVisible>("fn_FormSiempreVisible"),
        bind<&forms::fn_VentanaFlotante>("fn_VentanaFlotante"),
        bind<&forms::fn_MoverControl>("fn_MoverControl"),
        // Pictures: copy and screen capture
        bind<&forms::ImgCopiaImagen>("ImgCopiaImagen"),
        bind<&forms::imgCreateBitmapPicture>("imgCreateBitmapPicture"),
        bind<&forms::imgCaptureWindow>("imgCaptureWindow"),
        bind<&forms::imgCaptureScreen>("imgCaptureScreen"),
        bind<&forms::imgCaptureActiveWindow>("imgCaptureActiveWindow"),
        // Printing
        bind<&forms::fn_FijaImpresora>("fn_FijaImpresora"),
        bind<&forms::ImprimeForm>("ImprimeForm"),
        bind<&forms::SeparaEnLineasImprimir>("SeparaEnLineasImprimir"),
        bind<&forms::LimitaTamTexto>("LimitaTamTexto"),
        // Database: queries, lists and record navigation
        bind<&db::regDevuelveDatoCampoSQL>("regDevuelveDatoCampoSQL"),
        bind<&db::regUltimoCodigo>("regUltimoCodigo"),
        bind<&db::SQL_When>("SQL_When"),
        bind<&db::regCargaListaSQL>("regCargaListaSQL"),
        bind<&db::regCargaListaSQL2>("regCargaListaSQL2"),
        bind<&db::LlenaListLIKE>("LlenaListLIKE"),
        bind<&db::regLlenaListaLIKE>("regLlenaListaLIKE"),
        bind<&db::fn_ExisteItem>("fn_ExisteItem"),
        bind<&db::fn_BuscaItem>("fn_BuscaItem"),
        bind<&db::fnBuscaIndex>("fnBuscaIndex"),
        bind<&db::ItemD>("ItemD"),
        // Grids filled from queries
        bind<&db::RegLlenaGridRegSql>("RegLlenaGridRegSql"),
        bind<&db::regLlenaGridLIKE>("regLlenaGridLIKE"),
        bind<&db::RegistroInicial>("RegistroInicial"),
        bind<&db::RegistroAnterior>("RegistroAnterior"),
        bind<&db::RegistroSiguiente>("RegistroSiguiente"),
        bind<&db::RegistroFinal>("RegistroFinal"),
        bind<&db::regReintentaCargarDatos>("regReintentaCargarDatos"),
        bind<&db::regReintentarEstaOperacion>("regReintentarEstaOperacion"),
        // Spreadsheet export
        bind<&grid::fn_ExportaExcelGrid>("fn_ExportaExcelGrid"),
        bind<&db::ExportExcelReg>("ExportExcelReg"),
        // Database: binary fields, reports and chart data
        bind<&db::regLeeStream>("regLeeStream"),
        bind<&db::regGuardaStream>("regGuardaStream"),
        bind<&db::regImgStream>("regImgStream"),
        bind<&db::PreparaReportes>("PreparaReportes"),
        bind<&db::fn_MatrizParaEstadistica>("fn_MatrizParaEstadistica"),
    };
    return all;
}

const Binding* findBinding(std::string_view name) {
    static const std::unordered_map<std::string_view, const Binding*> byName = [] {
        std::unordered_map<std::string_view, const Binding*> m;
        for (const auto& b : bindings()) m.emplace(b.name, &b);
        return m;
    }();
    auto it = byName.find(name);
    return it == byName.end() ? nullptr : it->second;
}

const Binding* findBinding(const MethodInfo& method) {
    // One slot per method of the catalogue, filled once.
    static const std::vector<const Binding*> byOrder = [] {
        std::vector<const Binding*> slots(catalogue().size() + 1, nullptr);
        for (const auto& m : catalogue()) slots[static_cast<std::size_t>(m.order)] = findBinding(m.name);
        return slots;
    }();
    auto order = static_cast<std::size_t>(method.order);
    return order < byOrder.size() ? byOrder[order] : findBinding(method.name);
}

}  // namespace telvaro
