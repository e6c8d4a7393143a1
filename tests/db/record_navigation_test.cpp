// Moving a data-entry form through its records with the save questions.
#include <gtest/gtest.h>

#include <deque>

#include "context/fun.h"
#include "data/prepared.h"
#include "db_support.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "objects/form.h"

namespace telvaro::dbtest {
namespace {

// Message boxes answered from a script, each noting how many records the
// form had loaded when it was shown (to tell reload-then-notice apart).
class WatchingBoxes : public MessageBoxService {
public:
    WatchingBoxes(std::deque<int> answers, const objects::Form& form) : answers_(std::move(answers)), form_(form) {}
    int show(StringView prompt, int style, StringView title) override {
        shown.push_back({String(prompt), String(title), style, form_.loaded().size()});
        const int a = answers_.empty() ? 7 : answers_.front();
        if (!answers_.empty()) answers_.pop_front();
        return a;
    }
    struct Shown {
        String prompt, title;
        int style;
        std::size_t loadsBefore;
    };
    std::vector<Shown> shown;

private:
    std::deque<int> answers_;
    const objects::Form& form_;
};

struct Scene {
    std::shared_ptr<objects::Form> form = std::make_shared<objects::Form>(u"frmClientes");
    std::shared_ptr<WatchingBoxes> boxes;
    Platform platform = defaultPlatform();
    int error = 0;
    Variant result;

    Scene(int rows, std::int32_t location, std::int32_t position, bool changed, std::vector<bool> saves,
          std::deque<int> answers) {
        const ObjectRef connection = clientConnection(rows, location);
        form->lista = data::openPreparedRecordset(connection, u"SELECT codigo, nombre FROM clientes ORDER BY codigo",
                                                  location, position, data::testing::homeServices());
        form->changed = changed;
        form->saveSucceeds = std::move(saves);
        boxes = std::make_shared<WatchingBoxes>(std::move(answers), *form);
        platform.use(std::shared_ptr<MessageBoxService>(boxes));
    }
    void call(const char* method, std::vector<Variant> args) {
        Fun fun(platform);
        try {
            result = invoke(fun, std::string_view(method), args);
        } catch (const RuntimeError& e) {
            error = e.number();
        }
    }
    std::int32_t position() const { return toLong(form->lista->get(u"AbsolutePosition")); }
    std::vector<std::int32_t> loads() const {
        std::vector<std::int32_t> out;
        for (const auto& key : form->loaded()) out.push_back(toLong(key));
        return out;
    }
    std::vector<String> titles() const {
        std::vector<String> out;
        for (const auto& s : boxes->shown) out.push_back(s.title);
        return out;
    }
};

constexpr int Yes = 6, No = 7;

TEST(RecordNavigation, MovesAndQuestions) {
    struct Case {
        const char* method;
        std::int32_t start;
        bool changed;
        std::vector<bool> saves;
        std::deque<int> answers;
        std::int32_t position;  // after the call
        std::vector<std::int32_t> loads;
        std::vector<String> titles;
        bool changedAfter;
        Variant result = Variant();  // Empty: not checked
    };
    const String save = u"Guardar registro?", ignore = u"Ignorar advertencia?";
    const String guard = u"Guardar registro", ign = u"Ignorar?";
    const std::vector<Case> cases = {
        {"RegistroSiguiente", 3, false, {}, {}, 4, {4}, {}, false},
        {"RegistroSiguiente", 3, true, {false}, {Yes, Yes}, 4, {4}, {save, ignore}, false},
        {"RegistroSiguiente", 3, true, {false}, {Yes, No}, 3, {}, {save, ignore}, true},
        {"RegistroInicial", 5, true, {}, {No}, 1, {1}, {save}, false},
        {"RegistroFinal", 5, false, {}, {}, 10, {10}, {}, false},
        // At the ends: the notice, the record reloaded, the edits untouched.
        {"RegistroAnterior", 1, true, {}, {}, 1, {1}, {u"1er registro"}, true},
        {"RegistroSiguiente", 10, true, {}, {}, 10, {10}, {u"Ultimo registro"}, true},
        // Retrying: the load always asks, even on a clean form; the guard asks only on a changed one.
        {"regReintentaCargarDatos", 1, false, {}, {No}, 1, {7}, {save}, false},
        {"regReintentarEstaOperacion", 1, false, {}, {}, 1, {}, {}, false, v(True)},
        {"regReintentarEstaOperacion", 1, true, {false}, {Yes, No}, 1, {}, {guard, ign}, true, v(False)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " from " + std::to_string(c.start));
        Scene scene(10, 3, c.start, c.changed, c.saves, c.answers);
        std::vector<Variant> args = {Variant(ObjectRef(scene.form))};
        if (std::string(c.method) == "regReintentaCargarDatos") args.push_back(v(7));
        scene.call(c.method, args);
        ASSERT_EQ(scene.error, 0);
        EXPECT_EQ(scene.position(), c.position);
        EXPECT_EQ(scene.loads(), c.loads);
        EXPECT_EQ(scene.titles(), c.titles);
        EXPECT_EQ(scene.form->changed, c.changedAfter);
        EXPECT_TRUE(c.result.isEmpty() || identical(scene.result, c.result)) << describe(scene.result);
    }
}

// The notice at either end, after the reload or before it.
TEST(RecordNavigation, NoticeTextsAndOrder) {
    using Case = std::tuple<const char*, std::int32_t, const char16_t*, std::size_t>;
    for (const auto& [method, start, prompt, loadsBefore] :
         {Case{"RegistroInicial", 1, u"Ya está ubicado en el primer registro!", 1},
          Case{"RegistroFinal", 4, u"Ya está ubicado en el último registro!", 0}}) {
        Scene scene(4, 3, start, false, {}, {});
        scene.call(method, {Variant(ObjectRef(scene.form))});
        ASSERT_EQ(scene.boxes->shown.size(), 1u) << method;
        EXPECT_EQ(scene.boxes->shown[0].prompt, prompt);
        EXPECT_EQ(scene.boxes->shown[0].style, 64);
        EXPECT_EQ(scene.boxes->shown[0].loadsBefore, loadsBefore) << method;
    }
}

TEST(RecordNavigation, NothingToMoveThrough) {
    // Empty, and a server cursor that cannot count: silent no-ops.
    for (auto [rows, location] : {std::pair{0, 3}, std::pair{5, 2}}) {
        Scene scene(rows, location, rows == 0 ? 0 : 1, true, {}, {});
        scene.call("RegistroSiguiente", {Variant(ObjectRef(scene.form))});
        EXPECT_EQ(scene.error, 0) << rows;
        EXPECT_TRUE(scene.boxes->shown.empty()) << rows;
        EXPECT_TRUE(scene.form->loaded().empty()) << rows;
    }
}

TEST(RecordNavigation, MdiParentMovesItsActiveChild) {
    Scene scene(5, 3, 2, false, {}, {});
    auto parent = std::make_shared<objects::Form>(u"mdiPrincipal", true);
    parent->activeForm = scene.form;
    scene.call("RegistroSiguiente", {Variant(ObjectRef(parent))});
    EXPECT_EQ(scene.error, 0);
    EXPECT_EQ(scene.position(), 3);
    scene.call("RegistroFinal", {Variant(ObjectRef(std::make_shared<objects::Form>(u"mdiVacio", true)))});
    EXPECT_EQ(scene.error, 91);
}

}  // namespace
}  // namespace telvaro::dbtest
