// The guided tour of `telvaro demo`: a few calls of each family built so
// far, made the way an application makes them (late-bound, by name), with
// their results. Each family adds one section to the list below.
#include <functional>
#include <iomanip>
#include <ostream>

#include "cli/batch.h"
#include "cli/commands.h"
#include "cli/demo_home.h"
#include "cli/demo_sections.h"
#include "context/fun.h"
#include "frame/bind.h"
#include "frame/catalogue.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/ansi.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/posix_file_system.h"
#include "platform/scripted_message_box.h"
#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/error.h"
#include "runtime/object.h"
#include "runtime/regional.h"

namespace telvaro::cli {

namespace {

std::string shown(const Variant& v) {
    if (v.isArray()) {
        std::string items;
        for (const auto& item : v.array().elements())
            items += (items.empty() ? "" : ", ") + toUtf8(typeName(item)) + " " + toUtf8(toString(item));
        return "Array(" + items + ")";
    }
    return toUtf8(typeName(v)) + " " + toUtf8(toString(v));
}

// Shows one call: the call as an application writes it, then its result.
void show(std::ostream& out, Fun& fun, const std::string& method, std::vector<Variant> args, const std::string& text) {
    out << "  " << std::left << std::setw(50) << (method + "(" + text + ")");
    try {
        std::string result = shown(invoke(fun, method, args));
        out << " = " << result << '\n';
    } catch (const RuntimeError& e) {
        out << " raises error " << e.number() << ": " << toUtf8(e.description()) << '\n';
    }
}

void textSection(std::ostream& out, Fun& fun) {
    out << "Text and vectors\n";
    show(out, fun, "strCuentaCaracteres", {Variant(u"aaaa"), Variant(u"aa")}, "\"aaaa\", \"aa\"");
    show(out, fun, "strCuentaCaracteres", {Variant(u"Abcabc"), Variant(u"B")}, "\"Abcabc\", \"B\"");
    show(out, fun, "strCadenaEntrePosicion", {Variant(u"abcdef"), Variant(std::int16_t(2)), Variant(std::int16_t(4))},
         "\"abcdef\", 2, 4");
    show(out, fun, "strPosicion_XAvo_Caracter", {Variant(u"a,b,c"), Variant(u","), Variant(std::int16_t(2))},
         "\"a,b,c\", \",\", 2");
    show(out, fun, "strPosicion_XAvo_Caracter", {Variant(u"a,b"), Variant(u","), Variant(std::int16_t(3))},
         "\"a,b\", \",\", 3");
    show(out, fun, "fn_LlenaVector", {Variant(u"1,2,3"), Variant(std::int32_t(1))}, "\"1,2,3\", Numero_");
    Variant list = call(fun, "fn_LlenaVector", {Variant(u"Uno,Dos,Tres"), Variant(std::int32_t(0))});
    show(out, fun, "fn_BuscaEnVector", {list, Variant(u"dos")}, "Array(\"Uno\",\"Dos\",\"Tres\"), \"dos\"");
    show(out, fun, "strCuentaCaracteres", {Variant(String(40000, u'x')), Variant(u"")}, "<40000 characters>, \"\"");
}

void fractionsSection(std::ostream& out, Fun& fun) {
    out << "Packs and loose units (a pack of 12)\n";
    const Variant twelve(std::int16_t(12));
    show(out, fun, "numFraccion_a_Decimal", {Variant(u"5.06"), twelve}, "\"5.06\", 12");
    show(out, fun, "numDecimal_a_Fraccion", {Variant(u"3.5"), twelve}, "\"3.5\", 12");
    show(out, fun, "StockResta", {Variant(5.06), Variant(u"2.08"), twelve}, "5.06, \"2.08\", 12");
    show(out, fun, "StockSuma", {Variant(5.06), Variant(u"0.08"), twelve}, "5.06, \"0.08\", 12");
    show(out, fun, "numTruncar", {Variant(2.5679), Variant(std::int16_t(2))}, "2.5679, 2");
}

void formulaSection(std::ostream& out, Fun& fun) {
    out << "Formulas typed in quantity fields\n";
    for (const char16_t* f : {u"2*3+1", u"2^3^2", u"6/2*3", u"1+2*-3", u"150 % 12", u"(1+2", u"10/0"})
        show(out, fun, "numCalculaFormula", {Variant(f)}, "\"" + toUtf8(f) + "\"");
}

void amountSection(std::ostream& out, Fun& fun) {
    out << "Amounts in words\n";
    const Variant masculine(std::int32_t(1)), omitted = Variant::missing();
    show(out, fun, "Numero2Letra",
         {Variant(u"1234.56"), omitted, omitted, Variant(u"dólares"), Variant(u"centavos"), masculine, masculine},
         "\"1234.56\", , , \"dólares\", \"centavos\", Masculino, Masculino");
    show(out, fun, "Numero2Letra",
         {Variant(u"21000000"), omitted, omitted, Variant(u"dólares"), Variant(u"centavos"), masculine},
         "\"21000000\", , , \"dólares\", \"centavos\", Masculino");
    show(out, fun, "Numero2Letra", {Variant(u"201.21"), omitted, omitted, Variant(u"pesetas"), Variant(u"céntimos")},
         "\"201.21\", , , \"pesetas\", \"céntimos\"");
}

void datesSection(std::ostream& out, Fun& fun) {
    out << "Dates\n";
    show(out, fun, "MyFecha", {Variant(u"15/03/2024")}, "\"15/03/2024\"");
    show(out, fun, "fecEdadExacta", {Variant(u"14/07/2024"), Variant(u"02/05/2004")}, "\"14/07/2024\", \"02/05/2004\"");
    show(out, fun, "fecUltimoDiaMes", {Variant(std::int32_t(2)), Variant(std::int32_t(2024))}, "2, 2024");
    show(out, fun, "FechaPrimerDia", {Variant(u"15/03/2024")}, "\"15/03/2024\"");
}

void identitySection(std::ostream& out, Fun& fun) {
    out << "Cedula and RUC\n";
    show(out, fun, "fn_ValidaCedula", {Variant(u"1710034065")}, "\"1710034065\"");
    show(out, fun, "fn_ValidaCedula2", {Variant(u"1710034065"), Variant(True)}, "\"1710034065\", True");
    show(out, fun, "fn_ValidaCedula3", {Variant(u"1710034064"), Variant(False)}, "\"1710034064\", False");
    show(out, fun, "fn_ValidaRUC2", {Variant(u"1790011674001"), Variant(False)}, "\"1790011674001\", False");
    show(out, fun, "fn_ValidaRUC", {Variant(u"1790011674004")}, "\"1790011674004\"");
}

void iniSection(std::ostream& out, Fun& fun) {
    out << "INI files (under the home folder; C:\\Windows for a bare file name)\n";
    show(out, fun, "INI_GuardarIni",
         {Variant(u"telvaro-demo.ini"), Variant(u"Conexion"), Variant(u"Servidor"), Variant(u"srv01")},
         "\"telvaro-demo.ini\", \"Conexion\", \"Servidor\", \"srv01\"");
    show(out, fun, "INI_LeerIni", {Variant(u"telvaro-demo.ini"), Variant(u"CONEXION"), Variant(u"servidor")},
         "\"telvaro-demo.ini\", \"CONEXION\", \"servidor\"");
    show(out, fun, "INI_LeerIni",
         {Variant(u"telvaro-demo.ini"), Variant(u"Conexion"), Variant(u"Puerto"), Variant(u"1433")},
         "\"telvaro-demo.ini\", \"Conexion\", \"Puerto\", \"1433\"");
}

void filesSection(std::ostream& out, Fun& fun) {
    out << "Files, records and the registry (drive C is <home>/drives/c)\n";
    show(out, fun, "fsoCrearCarpeta", {Variant(u"C:\\Demo\\2024\\Julio")}, "\"C:\\Demo\\2024\\Julio\"");
    show(out, fun, "fsoExisteCarpeta", {Variant(u"C:\\Demo\\2024")}, "\"C:\\Demo\\2024\"");
    show(out, fun, "fsoGrabaArchivo", {Variant(u"C:\\Demo\\ult.dat"), Variant(std::int16_t(3)), Variant(u"F-0012")},
         "\"C:\\Demo\\ult.dat\", 3, \"F-0012\"");
    show(out, fun, "fsoLeeArchivo", {Variant(u"C:\\Demo\\ult.dat"), Variant(std::int16_t(3))},
         "\"C:\\Demo\\ult.dat\", 3");
    show(out, fun, "fsoLeeArchivo", {Variant(u"C:\\Demo\\ult.dat"), Variant(std::int16_t(0))},
         "\"C:\\Demo\\ult.dat\", 0");
    show(out, fun, "fsoGrabaArchivo",
         {Variant(u"C:\\Demo\\ult.dat"), Variant(std::int16_t(1)), Variant(String(200, u'x'))},
         "\"C:\\Demo\\ult.dat\", 1, <200 characters>");
    show(out, fun, "REG_PoneValor",
         {Variant(std::int32_t(1)), Variant(u"Software\\Demo"), Variant(u"Puerto"), Variant(u"1433"),
          Variant(std::int32_t(4))},
         "HKEY_CURRENT_USER_, \"Software\\Demo\", \"Puerto\", \"1433\", 4");
    show(out, fun, "REG_BuscaRegistro", {Variant(std::int32_t(1)), Variant(u"software\\demo"), Variant(u"PUERTO")},
         "HKEY_CURRENT_USER_, \"software\\demo\", \"PUERTO\"");
    show(out, fun, "REG_BuscaRegistro", {Variant(std::int32_t(7)), Variant(u"Software\\Demo"), Variant(u"Puerto")},
         "7, \"Software\\Demo\", \"Puerto\"");
}

void regionalSection(std::ostream& out, Fun& fun) {
    out << "Regional settings (the check under two configurations)\n";
    RegionalSettings comma = RegionalSettings::standard();
    comma.shortDate = u"d/M/yy";
    comma.decimalSeparator = u",";
    comma.thousandSeparator = u".";
    {
        RegionalScope scope(comma);
        out << "  with d/M/yy and \",\" decimals:\n";
        show(out, fun, "fn_VerificaConfRegional", {}, "");
    }
    {
        RegionalScope scope(RegionalSettings::standard());
        out << "  with dd/MM/yyyy and \".\" decimals, what fn_CambiaConfRegional writes:\n";
        show(out, fun, "fn_VerificaConfRegional", {}, "");
    }
}

// A control on a form, as an application passes it to the error log.
class DemoControl : public Object {
public:
    explicit DemoControl(std::vector<std::pair<String, Variant>> members) : members_(std::move(members)) {}
    Variant invoke(StringView member, InvokeKind, std::span<Variant>) override {
        for (const auto& [name, value] : members_)
            if (name == member) return value;
        raiseNoSuchMember();
    }

private:
    std::vector<std::pair<String, Variant>> members_;
};

void errorLogSection(std::ostream& out) {
    out << "The error log (a failure in txtCodigo, inside Frame1, on frmClientes)\n";
    ScriptedPlatform platform(defaultPlatform(), {});
    Fun fun(platform);
    auto form =
        std::make_shared<DemoControl>(std::vector<std::pair<String, Variant>>{{u"Name", Variant(u"frmClientes")}});
    auto frame = std::make_shared<DemoControl>(std::vector<std::pair<String, Variant>>{{u"Name", Variant(u"Frame1")}});
    auto control = std::make_shared<DemoControl>(
        std::vector<std::pair<String, Variant>>{{u"Name", Variant(u"txtCodigo")},
                                                {u"Parent", Variant(ObjectRef(form))},
                                                {u"Container", Variant(ObjectRef(frame))}});
    auto error = std::make_shared<DemoControl>(std::vector<std::pair<String, Variant>>{
        {u"Number", Variant(std::int32_t(6))}, {u"Description", Variant(u"Overflow")}});
    show(out, fun, "fn_LogErrores", {Variant(ObjectRef(control)), Variant(ObjectRef(error)), Variant(u"Validar")},
         "txtCodigo, Err, \"Validar\"");
    for (const auto& box : platform.boxes().shown())
        out << "  message box \"" << toUtf8(box.title) << "\" (style " << box.style << "):\n    " << toUtf8(box.prompt)
            << '\n';
    const String month = toString(Variant(static_cast<std::int32_t>(civilDate(now()).month)));
    const auto file = posix::PosixFileSystem::resolve(u"C:\\Errores\\ErrLog\\" + month + u".txt");
    const std::string log = posix::readBytes(file).value_or("");
    // The last entry: the two lines before the end.
    std::size_t end = log.size() >= 2 ? log.rfind("\r\n", log.size() - 3) : std::string::npos;
    std::size_t start = end == std::string::npos ? std::string::npos : log.rfind("\r\n", end - 1);
    start = start == std::string::npos ? 0 : start + 2;
    out << "  last entry of " << file.string() << ":\n    "
        << (end == std::string::npos ? std::string() : toUtf8(fromAnsi(log.substr(start, end - start)))) << '\n';
}

void dispatchSection(std::ostream& out, Fun& fun) {
    out << "Late-bound calls\n";
    std::vector<Variant> args{Variant(u"banana"), Variant(u"A")};
    Variant r = invoke(fun, std::int32_t(0x60030000), args);
    out << "  by DISPID 0x60030000 (strCuentaCaracteres \"banana\", \"A\") = " << shown(r) << '\n';
    show(out, fun, "strCadenaEntrePosicion", {Variant(u"abc"), Variant(u"uno"), Variant(u"2")},
         "\"abc\", \"uno\", \"2\"");
    show(out, fun, "strCadenaEntrePosicion", {Variant(u"abc")}, "\"abc\"");
    show(out, fun, "NoExiste", {}, "");
}

void batchSection(std::ostream& out) {
    out << "Batch protocol (telvaro batch)\n";
    const std::string request = R"({"id":1,"method":"strPosicion_XAvo_Caracter","args":["a,b",",",3]})";
    out << "  > " << request << '\n';
    out << "  < " << answerRequest(request) << '\n';
}

}  // namespace

void runDemo(std::ostream& out) {
    out << "Telvaro: the Fun library of the data-entry applications\n\n";
    const DemoHome home(out);
    Fun fun(defaultPlatform());
    const std::vector<std::function<void()>> sections = {
        [&] { textSection(out, fun); },   [&] { fractionsSection(out, fun); }, [&] { formulaSection(out, fun); },
        [&] { amountSection(out, fun); }, [&] { datesSection(out, fun); },     [&] { identitySection(out, fun); },
        [&] { iniSection(out, fun); },    [&] { filesSection(out, fun); },     [&] { regionalSection(out, fun); },
        [&] { shopSection(out, fun); },   [&] { errorLogSection(out); },       [&] { dispatchSection(out, fun); },
        [&] { batchSection(out); },
    };
    for (const auto& section : sections) {
        section();
        out << '\n';
    }
    std::size_t built = 0;
    for (const auto& m : catalogue())
        if (findBinding(m.name)) ++built;
    out << "Methods built: " << built << " of " << catalogue().size()
        << (built < catalogue().size() ? " (telvaro methods --missing lists the others)" : "") << '\n';
}

}  // namespace telvaro::cli
