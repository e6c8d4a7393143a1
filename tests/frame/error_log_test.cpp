// The error log: the month's file, the entry, the reads, the message.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "context/fun.h"
#include "frame/invoke.h"
#include "platform/ansi.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "runtime/datetime.h"
#include "runtime/object.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

// A control or form: named properties, and a log of the members read.
class Control : public Object {
public:
    Control(std::map<String, Variant> members, std::vector<String>* reads)
        : members_(std::move(members)), reads_(reads) {}
    Variant invoke(StringView member, InvokeKind, std::span<Variant>) override {
        reads_->push_back(String(member));
        auto it = members_.find(String(member));
        if (it == members_.end()) raiseNoSuchMember();
        return it->second;
    }

private:
    std::map<String, Variant> members_;
    std::vector<String>* reads_;
};

class ErrorLog : public ::testing::Test {
protected:
    void SetUp() override {
        auto form = std::make_shared<Control>(std::map<String, Variant>{{u"Name", Variant(u"frmClientes")}}, &reads_);
        auto frame = std::make_shared<Control>(std::map<String, Variant>{{u"Name", Variant(u"Frame1")}}, &reads_);
        control_ = std::make_shared<Control>(std::map<String, Variant>{{u"Name", Variant(u"txtCodigo")},
                                                                       {u"Parent", Variant(ObjectRef(form))},
                                                                       {u"Container", Variant(ObjectRef(frame))}},
                                             &reads_);
        error_ = std::make_shared<Control>(
            std::map<String, Variant>{{u"Description", Variant(u"Overflow")}, {u"Number", Variant(6)}}, &reads_);
        setDate(2024, 7, 14);
    }
    void setDate(int year, int month, int day) {
        const double at = dateSerial(year, month, day) + timeSerial(9, 30, 0);
        platform_.recording.clock = [at] { return at; };
    }
    void log(Variant object, const char16_t* info = u"Validar") {
        std::vector<Variant> args{std::move(object), Variant(ObjectRef(error_)), Variant(info)};
        invoke(fun_, "fn_LogErrores", args);
    }
    static std::string logFile(int month) {
        return posix::readBytes(posix::mapPath(u"C:\\Errores\\ErrLog\\" + toString(Variant(month)) + u".txt"))
            .value_or("<none>");
    }

    fakes::TestPlatform platform_;
    Fun fun_{platform_};
    std::vector<String> reads_;
    std::shared_ptr<Control> control_, error_;
};

const std::string kSeparator = std::string(127, '-') + "\r\n";

TEST_F(ErrorLog, AppendsTheEntryAndTellsWhereTheFileIs) {
    log(Variant(ObjectRef(control_)));
    const std::string entry = toAnsi(
        u"14/07/2024 - Módulo: frmClientes - Contenedor: Frame1 - Control: txtCodigo - Procedimiento: Validar - "
        u"Error: Overflow\r\n");
    EXPECT_EQ(logFile(7), entry + kSeparator);
    EXPECT_EQ(reads_, (std::vector<String>{u"Description", u"Parent", u"Name", u"Container", u"Name", u"Name"}));

    ASSERT_EQ(platform_.boxes().shown().size(), 1u);
    const ShownMessage& shown = platform_.boxes().shown()[0];
    EXPECT_EQ(shown.style, 16);
    EXPECT_EQ(shown.title, u"Error interceptado");
    EXPECT_EQ(shown.prompt,
              u"La operación solicitada no pudo completarse debido a un error. Se ha generado un archivo de errores el "
              u"cual contiene la descripción del error y el control que lo generó. Notifique los errores al "
              u"desarrollador de este sistema para su corrección respectiva. El archivo se encuentra en "
              u"C:\\Errores\\ErrLog\\7.txt");

    log(Variant(ObjectRef(control_)), u"");
    EXPECT_EQ(logFile(7).size(), 2 * (entry.size() + kSeparator.size()) - 7);  // no "Validar" the second time
    setDate(2024, 8, 1);
    log(Variant(ObjectRef(control_)));
    EXPECT_EQ(logFile(8).substr(0, 13), "01/08/2024 - ");
    EXPECT_TRUE(platform_.boxes().shown().back().prompt.ends_with(u"8.txt"));
}

TEST_F(ErrorLog, TheDriveIsTheApplicationsButTheMessageSaysC) {
    ScopedVariable app("TELVARO_APP_PATH", "D:\\Sistemas\\Contable");
    ScopedVariable drive("TELVARO_DRIVE_D", (fs::current_path() / "unidad-d").c_str());
    fs::create_directories(fs::current_path() / "unidad-d");
    log(Variant(ObjectRef(control_)));
    EXPECT_TRUE(fs::exists(fs::current_path() / "unidad-d" / "Errores" / "ErrLog" / "7.txt"));
    EXPECT_NE(platform_.boxes().shown().back().prompt.find(u"en C:\\Errores\\ErrLog\\7.txt"), String::npos);
}

TEST_F(ErrorLog, ObjectsWithoutParentOrContainerFailBeforeWriting) {
    auto form = std::make_shared<Control>(std::map<String, Variant>{{u"Name", Variant(u"frmClientes")}}, &reads_);
    const std::string before = logFile(7);
    EXPECT_EQ(errorNumberOf([&] { log(Variant(ObjectRef(form))); }), err::ObjectDoesNotSupport);
    EXPECT_EQ(logFile(7), before);
    EXPECT_TRUE(platform_.boxes().shown().empty());
}

}  // namespace
}  // namespace telvaro
