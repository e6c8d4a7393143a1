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
        if (answers_.empty()) return 7;
        const int a = answers_.front();
        answers_.pop_front();
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
        std::int32_t position;
        std::vector<std::int32_t> loads;
        std::vector<String> titles;
        bool changedAfter;
    };
    const String save = u"Guardar registro?", ignore = u"Ignorar advertencia?";
    const std::vector<Case> cases = {
        {"RegistroSiguiente", 3, false, {}, {}, 4, {4}, {}, false},
        {"RegistroSiguiente", 3, true, {}, {No}, 4, {4}, {save}, false},
        {"RegistroSiguiente", 3, true, {false}, {Yes, Yes}, 4, {4}, {save, ignore}, false},
        {"RegistroSiguiente", 3, true, {false}, {Yes, No}, 3, {}, {save, ignore}, true},
        {"RegistroAnterior", 3, false, {}, {}, 2, {2}, {}, false},
        {"RegistroInicial", 5, true, {}, {No}, 1, {1}, {save}, false},
        {"RegistroFinal", 5, false, {}, {}, 10, {10}, {}, false},
        // At the ends: the notice, the record reloaded, the edits untouched.
        {"RegistroAnterior", 1, true, {}, {}, 1, {1}, {u"1er registro"}, true},
        {"RegistroSiguiente", 10, true, {}, {}, 10, {10}, {u"Ultimo registro"}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " from " + std::to_string(c.start));
        Scene scene(10, 3, c.start, c.changed, c.saves, c.answers);
        scene.call(c.method, {Variant(ObjectRef(scene.form))});
        ASSERT_EQ(scene.error, 0);
        EXPECT_EQ(scene.position(), c.position);
        EXPECT_EQ(scene.loads(), c.loads);
        EXPECT_EQ(scene.titles(), c.titles);
        EXPECT_EQ(scene.form->changed, c.changedAfter);
    }
}

TEST(RecordNavigation, NoticeTextsAndOrder) {
    struct Case {
        const char* method;
        std::int32_t start;
        const char16_t* prompt;
        std::size_t loadsBefore;
    };
    const std::vector<Case> cases = {
        {"RegistroInicial", 1, u"Ya está ubicado en el primer registro!", 1},
        {"RegistroAnterior", 1, u"Ya está ubicado en el primer registro!", 0},
        {"RegistroFinal", 4, u"Ya está ubicado en el último registro!", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.method);
        Scene scene(4, 3, c.start, false, {}, {});
        scene.call(c.method, {Variant(ObjectRef(scene.form))});
        ASSERT_EQ(scene.boxes->shown.size(), 1u);
        EXPECT_EQ(scene.boxes->shown[0].prompt, c.prompt);
        EXPECT_EQ(scene.boxes->shown[0].style, 64);
        EXPECT_EQ(scene.boxes->shown[0].loadsBefore, c.loadsBefore);
    }
}

TEST(RecordNavigation, NothingToMoveThrough) {
    // Empty, and a server cursor that cannot count: silent no-ops.
    for (auto [rows, location] : {std::pair{0, 3}, std::pair{5, 2}}) {
        for (const char* method : {"RegistroInicial", "RegistroAnterior", "RegistroSiguiente", "RegistroFinal"}) {
            Scene scene(rows, location, rows == 0 ? 0 : 1, true, {}, {});
            scene.call(method, {Variant(ObjectRef(scene.form))});
            EXPECT_EQ(scene.error, 0) << method;
            EXPECT_TRUE(scene.boxes->shown.empty()) << method;
            EXPECT_TRUE(scene.form->loaded().empty()) << method;
        }
    }
}

TEST(RecordNavigation, MdiParentMovesItsActiveChild) {
    Scene scene(5, 3, 2, false, {}, {});
    auto parent = std::make_shared<objects::Form>(u"mdiPrincipal", true);
    parent->activeForm = scene.form;
    scene.call("RegistroSiguiente", {Variant(ObjectRef(parent))});
    EXPECT_EQ(scene.error, 0);
    EXPECT_EQ(scene.position(), 3);
    auto lonely = std::make_shared<objects::Form>(u"mdiVacio", true);
    scene.call("RegistroFinal", {Variant(ObjectRef(lonely))});
    EXPECT_EQ(scene.error, 91);
    scene.error = 0;
    scene.call("RegistroFinal", {v(u"frmClientes")});
    EXPECT_EQ(scene.error, 13);
}

TEST(RecordNavigation, RetryLoadAndOperationGuard) {
    struct Case {
        const char* method;
        bool changed;
        std::vector<bool> saves;
        std::deque<int> answers;
        std::vector<String> titles;
        std::vector<std::int32_t> loads;
        bool changedAfter;
        Variant result;
    };
    const String save = u"Guardar registro?", ignore = u"Ignorar advertencia?";
    const String guard = u"Guardar registro", ign = u"Ignorar?";
    const std::vector<Case> cases = {
        // Always asks, even on a clean form.
        {"regReintentaCargarDatos", false, {}, {No}, {save}, {7}, false, Variant()},
        {"regReintentaCargarDatos", true, {false}, {Yes, Yes}, {save, ignore}, {7}, false, Variant()},
        {"regReintentaCargarDatos", true, {false}, {Yes, No}, {save, ignore}, {}, true, Variant()},
        {"regReintentarEstaOperacion", false, {}, {}, {}, {}, false, v(True)},
        {"regReintentarEstaOperacion", true, {}, {No}, {guard}, {}, false, v(True)},
        {"regReintentarEstaOperacion", true, {false}, {Yes, Yes}, {guard, ign}, {}, false, v(True)},
        {"regReintentarEstaOperacion", true, {false}, {Yes, No}, {guard, ign}, {}, true, v(False)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.method) + " " + std::to_string(c.answers.size()));
        Scene scene(3, 3, 1, c.changed, c.saves, c.answers);
        std::vector<Variant> args = {Variant(ObjectRef(scene.form))};
        if (std::string(c.method) == "regReintentaCargarDatos") args.push_back(v(7));
        scene.call(c.method, args);
        ASSERT_EQ(scene.error, 0);
        EXPECT_EQ(scene.titles(), c.titles);
        EXPECT_EQ(scene.loads(), c.loads);
        EXPECT_EQ(scene.form->changed, c.changedAfter);
        if (!c.result.isEmpty()) {
            EXPECT_TRUE(identical(scene.result, c.result)) << describe(scene.result);
        }
    }
}

}  // namespace
}  // namespace telvaro::dbtest
