// The standard record-editing messages: texts, styles, titles and results.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/scripted_message_box.h"
#include "support/support.h"

namespace telvaro {
namespace {

struct Shown {
    Variant result;
    std::vector<ShownMessage> boxes;
};

Shown call(const char* method, std::vector<Variant> args, std::vector<int> answers = {}) {
    ScriptedPlatform platform(defaultPlatform(), std::move(answers));
    Fun fun(platform);
    Variant result = invoke(fun, method, args);
    return {result, platform.boxes().shown()};
}

TEST(StandardMessages, DefaultTextsStylesAndTitles) {
    struct Case {
        const char* method;
        int style;
        const char16_t* title;
        const char16_t* prompt;
        std::vector<Variant> args = {};
    };
    // clang-format off
    const std::vector<Case> cases = {
        {"MsgGuardarRegistro", 36, u"Guardar registro?",
         u"Los datos del registro actual no han sido guardados. Desea guardarlos ahora ?"},
        {"MsgEliminarRegistro", 52, u"¡Eliminar registro?",
         u"Está seguro que desea eliminar los datos del registro actual ?"},
        {"MsgRegistroNoGuardado", 52, u"Registro no guardado!",
         u"El registro no pudo ser guardado. Desea ignorar esto y realizar la operación solicitada de todas formas ?"},
        {"MsgDatosGuardados", 64, u"LISTO", u"Los datos del registro fueron guardados con éxito!"},
        {"MsgDatosEliminados", 64, u"LISTO", u"El registro fue eliminado con éxito!"},
        {"MsgHayCambios", 64, u"Registro sin cambios",
         u"No se ha realizado ninguna modificación en el registro que necesite ser guardada!", {Variant(False)}},
        {"MsgRegistroSeleccionado", 64, u"Seleccione un registro",
         u"Primero debe seleccionar un registro existente para realizar la operación solicitada!", {Variant(True)}},
        {"MsgGuardarRegistro", 36, u"Guardar registro?", u"¿Otro texto?", {Variant(u"¿Otro texto?")}},
    };
    // clang-format on
    for (const auto& c : cases) {
        Shown s = call(c.method, c.args);
        ASSERT_EQ(s.boxes.size(), 1u) << c.method;
        EXPECT_EQ(s.boxes[0].style, c.style) << c.method;
        EXPECT_EQ(toUtf8(s.boxes[0].title), toUtf8(c.title)) << c.method;
        EXPECT_EQ(toUtf8(s.boxes[0].prompt), toUtf8(c.prompt)) << c.method;
    }
}

TEST(StandardMessages, AnswersBecomeBooleansChangesAndSelectionShowOnlyInTheNegativeCase) {
    EXPECT_TRUE(identical(call("MsgGuardarRegistro", {}, {6}).result, Variant(True)));
    EXPECT_TRUE(identical(call("MsgGuardarRegistro", {}, {2}).result, Variant(False))) << "closed";
    EXPECT_TRUE(call("MsgDatosGuardados", {}).result.isEmpty());
    struct Case {
        const char* method;
        std::int16_t in;
        std::int16_t out;
        std::size_t boxes;
    };
    // clang-format off
    const Case cases[] = {
        {"MsgHayCambios", -1, -1, 0}, {"MsgHayCambios", 0, 0, 1}, {"MsgHayCambios", 1, 1, 0},
        {"MsgRegistroSeleccionado", 0, -1, 0}, {"MsgRegistroSeleccionado", -1, 0, 1},
        {"MsgRegistroSeleccionado", 1, -2, 1},
    };
    // clang-format on
    for (const auto& c : cases) {
        Shown s = call(c.method, {Variant(Boolean::fromBits(c.in))});
        EXPECT_TRUE(identical(s.result, Variant(Boolean::fromBits(c.out)))) << c.method << "(" << c.in << ")";
        EXPECT_EQ(s.boxes.size(), c.boxes) << c.method << "(" << c.in << ")";
    }
}

}  // namespace
}  // namespace telvaro
