#include "db/record_navigation.h"

#include "callers/navigable_form.h"
#include "context/fun.h"
#include "runtime/convert.h"

namespace telvaro::db {

namespace {

constexpr int kYesNoQuestion = 36;
constexpr int kInformation = 64;
constexpr int kYes = 6;

enum class Move { First, Previous, Next, Last };

bool isTrueValue(const Variant& v) { return toBoolean(v).isTrue(); }

// Asks whether to save the edits; true when the form may go on (the edits
// were saved, dropped or ignored), false when the user keeps them.
bool settleEdits(Fun& fun, const callers::NavigableForm& form, StringView msgError, StringView msgIgnora) {
    if (fun.showMessage(msgError, kYesNoQuestion, u"Guardar registro?") != kYes) {
        form.setChanged(false);
        return true;
    }
    form.guardaRegistro();
    // Still True: the save failed.
    if (!isTrueValue(form.changed())) return true;
    if (fun.showMessage(msgIgnora, kYesNoQuestion, u"Ignorar advertencia?") != kYes) return false;
    form.setChanged(false);
    return true;
}

void moveRecord(Fun& fun, const ObjectRef& formulario, Move move, StringView msgError, StringView msgIgnora) {
    const callers::NavigableForm form = callers::NavigableForm::target(formulario);
    const callers::Recordset lista = form.lista();
    const std::int32_t count = toLong(lista.recordCount());
    if (count <= 0) return;
    // The position as the provider reports it; its negative codes are not
    // treated apart.
    const std::int32_t position = toLong(lista.absolutePosition());
    const bool backwards = move == Move::First || move == Move::Previous;
    const bool canMove = backwards ? position > 1 : position < count;
    auto reload = [&] { form.cargaDatosRegistro(lista.fieldObject(Variant(std::int32_t(0)))); };
    if (!canMove) {
        const String notice =
            backwards ? u"Ya está ubicado en el primer registro!" : u"Ya está ubicado en el último registro!";
        const String title = backwards ? u"1er registro" : u"Ultimo registro";
        // The first-record button reloads before its notice; the others
        // show the notice first.
        if (move == Move::First) reload();
        fun.showMessage(notice, kInformation, title);
        if (move != Move::First) reload();
        return;
    }
    if (isTrueValue(form.changed()) && !settleEdits(fun, form, msgError, msgIgnora)) return;
    switch (move) {
        case Move::First: lista.moveFirst(); break;
        case Move::Previous: lista.movePrevious(); break;
        case Move::Next: lista.moveNext(); break;
        case Move::Last: lista.moveLast(); break;
    }
    reload();
}

}  // namespace

void RegistroInicial(Fun& fun, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora) {
    moveRecord(fun, Formulario, Move::First, MsgError, MsgIgnora);
}

void RegistroAnterior(Fun& fun, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora) {
    moveRecord(fun, Formulario, Move::Previous, MsgError, MsgIgnora);
}

void RegistroSiguiente(Fun& fun, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora) {
    moveRecord(fun, Formulario, Move::Next, MsgError, MsgIgnora);
}

void RegistroFinal(Fun& fun, const ObjectRef& Formulario, const String& MsgError, const String& MsgIgnora) {
    moveRecord(fun, Formulario, Move::Last, MsgError, MsgIgnora);
}

void regReintentaCargarDatos(Fun& fun, const ObjectRef& Formulario, const Variant& CodRegistro, const String& MsgError,
                             const String& MsgIgnora) {
    const callers::NavigableForm form{Variant(Formulario)};
    if (settleEdits(fun, form, MsgError, MsgIgnora)) form.cargaDatosRegistro(CodRegistro);
}

Boolean regReintentarEstaOperacion(Fun& fun, const ObjectRef& Formul, const String& MsgError, const String& MsgIgnora) {
    const callers::NavigableForm form{Variant(Formul)};
    if (!isTrueValue(form.changed())) return True;
    if (fun.showMessage(MsgError, kYesNoQuestion, u"Guardar registro") != kYes) {
        form.setChanged(false);
        return True;
    }
    form.guardaRegistro();
    // Null counts as False.
    const Variant after = form.changed();
    if (after.isNull() || !isTrueValue(after)) return True;
    if (fun.showMessage(MsgIgnora, kYesNoQuestion, u"Ignorar?") != kYes) return Boolean(false);
    form.setChanged(false);
    return True;
}

}  // namespace telvaro::db
