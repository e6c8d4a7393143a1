// The environment methods through a recording environment, and the Linux
// pieces behind them: the launcher and the internet probe's address.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <tuple>

#include "context/fun.h"
#include "frame/invoke.h"
#include "platform/posix/home.h"
#include "platform/posix/internet_probe.h"
#include "platform/posix/launcher.h"
#include "runtime/datetime.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

class EnvironmentMethods : public ::testing::Test {
protected:
    Variant call(const char* method, std::vector<Variant> args = {}) { return invoke(fun_, method, args); }
    fakes::RecordingEnvironment& env() { return platform_.recording; }

    fakes::TestPlatform platform_;
    Fun fun_{platform_};
};

TEST_F(EnvironmentMethods, NamesComeFromTheirBuffers) {
    env().user = String(u"ana") + u'\0' + u"resto";
    EXPECT_TRUE(identical(call("fn_NombreUsuarioWindows"), Variant(u"ana")));
    EXPECT_TRUE(identical(call("fn_NombreComputador"), Variant(u"CAJA01")));
    env().computer = String(300, u'c');
    EXPECT_EQ(call("fn_NombreComputador").get<String>().size(), 255u);
}

TEST_F(EnvironmentMethods, OpeningPassesTheShowCommandAndTheDefaults) {
    call("EjecutaArchivo", {u"C:\\Reportes\\ventas.pdf"});
    call("EjecutaArchivo", {u"notepad.exe", u"a.txt", u"C:\\Datos", False});
    ASSERT_EQ(env().opened.size(), 2u);
    const auto& o = env().opened;
    EXPECT_EQ(o[0].file + u"|" + o[0].parameters + u"|" + o[0].folder, u"C:\\Reportes\\ventas.pdf||C:\\");
    EXPECT_EQ(o[1].parameters, u"a.txt");
    EXPECT_EQ(std::make_pair(o[0].showCommand, o[1].showCommand), std::make_pair(1, 4));  // 4: shown, not active
}

TEST_F(EnvironmentMethods, SoundRequests) {
    call("sndTocaArchivoWab", {u"C:\\s\\alerta.wav"});
    call("sndTocaArchivoWab", {u"C:\\s\\alerta.wav", False, True});
    call("sndTocaArchivoWab", {u"C:\\s\\ignorado.wav", True, True});
    ASSERT_EQ(env().played.size(), 3u);
    EXPECT_EQ(std::make_tuple(env().played[0].flags, env().played[1].flags, env().played[2].flags),
              std::make_tuple(1, 9, 0));
    EXPECT_EQ(env().played[2].file, u"1");  // stopping ignores the file
}

TEST_F(EnvironmentMethods, InternetProbeAnswer) {
    EXPECT_TRUE(identical(call("HayConexionInternet"), Variant(True)));
    env().reachable = false;
    EXPECT_TRUE(identical(call("HayConexionInternet"), Variant(False)));
}

TEST_F(EnvironmentMethods, CapturedMessageBoxesCloseWithoutShowing) {
    call("CapturaMsgBox");
    EXPECT_TRUE(identical(call("MsgGuardarRegistro"), Variant(False)));  // closed: not Yes
    call("MsgDatosGuardados");
    call("fsoBorraArchivo", {u"C:\\no\\hay.txt", True});
    EXPECT_TRUE(platform_.boxes().shown().empty());
    call("CapturaMsgBox", {True});
    call("MsgDatosGuardados");
    EXPECT_EQ(platform_.boxes().shown().size(), 1u);
    EXPECT_EQ(env().captures, (std::vector<bool>{true, false}));
}

TEST(ClosingAnswer, CancelElseNoElseOkElseAbort) {
    const std::pair<int, int> cases[] = {{0, 1}, {1, 2}, {2, 3}, {3, 2}, {4, 7}, {5, 2}, {36, 7}, {16, 1}, {0x104, 7}};
    for (auto [style, answer] : cases) EXPECT_EQ(closingAnswer(style), answer) << style;
}

// A clock at hh:mm:`second` that moves `step` seconds at every reading.
std::function<double()> steppingClock(int second, double step, int* readings) {
    return [=]() mutable {
        ++*readings;
        const double at = timeSerial(10, 0, second) + (*readings - 1) * step / 86400.0;
        return dateSerial(2024, 7, 14) + at;
    };
}

TEST_F(EnvironmentMethods, WaitComparesOnlyTheSecondsField) {
    int readings = 0;
    env().clock = steppingClock(30, 1, &readings);
    call("fn_EsperaXSegundos", {3, True});
    EXPECT_EQ(readings, 4);  // 30 -> target 33; then 31, 32, 33
    EXPECT_EQ(env().eventsProcessed, 3);

    // A target past second 59 is never reached: the loop goes on until the clock gives up.
    readings = 0;
    env().clock = [&] {
        if (++readings > 500) throw RuntimeError(err::InternalError);
        return dateSerial(2024, 7, 14) + timeSerial(10, 0, 55) + readings / 86400.0;
    };
    EXPECT_EQ(errorNumberOf([&] { call("fn_EsperaXSegundos", {10}); }), err::InternalError);

    // The target is an Integer sum.
    env().clock = steppingClock(5, 0, &readings);
    EXPECT_EQ(errorNumberOf([&] { call("fn_EsperaXSegundos", {32767}); }), err::Overflow);
}

TEST(Launcher, ProgramsStartWithTheirParametersSplitAsWindowsSplitsThem) {
    const fs::path folder = fs::current_path() / "lanzar";
    fs::create_directories(folder);
    std::ofstream(folder / "programa") << "#!/bin/sh\n";
    fs::permissions(folder / "programa", fs::perms::owner_all);
    const auto command = posix::launchCommand(u"lanzar\\programa", u"uno \"dos tres\" \"\"\"q\"\"\"", folder);
    ASSERT_EQ(command.size(), 4u);
    EXPECT_EQ(fs::path(command[0]).filename(), "programa");
    EXPECT_EQ(std::vector<std::string>(command.begin() + 1, command.end()),
              (std::vector<std::string>{"uno", "dos tres", "\"q\""}));
}

TEST(Launcher, DocumentsAndAddressesGoToTheOpener) {
    const fs::path folder = fs::current_path() / "docs";
    fs::create_directories(folder);
    std::ofstream(folder / "informe.pdf") << "%PDF";
    ScopedVariable opener("TELVARO_OPENER", "/bin/echo");
    using Command = std::vector<std::string>;
    EXPECT_EQ(posix::launchCommand(u"informe.pdf", u"ignorado", folder),
              (Command{"/bin/echo", folder / "informe.pdf"}));
    EXPECT_EQ(posix::launchCommand(u"https://x.ec/a b", u"", {}), (Command{"/bin/echo", "https://x.ec/a b"}));
    EXPECT_TRUE(posix::launchCommand(u"C:\\no\\existe.pdf", u"", {}).empty());
    // A program on the PATH, named as on Windows.
    EXPECT_EQ(posix::launchCommand(u"true.exe", u"", {}).size(), 1u);
}

TEST(InternetProbe, AddressForms) {
    using Case = std::array<const char*, 3>;  // text, host, port
    for (const Case& c : {Case{"mail.example.com:8443", "mail.example.com", "8443"},
                          Case{"mail.example.com", "mail.example.com", "443"}, Case{"[::1]:80", "::1", "80"},
                          Case{"::1", "::1", "443"}}) {
        const auto a = posix::parseProbeAddress(c[0]);
        EXPECT_EQ(a.host + ":" + a.port, std::string(c[1]) + ":" + c[2]) << c[0];
    }
}

}  // namespace
}  // namespace telvaro
