// Printing through CUPS: a private cupsd with its own configuration folder,
// a socket in it and two queues whose backend keeps each job in the file
// its device URI names.
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "objects/form.h"
#include "objects/label.h"
#include "printing/printing_fixture.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;

// Waits up to `seconds` for `done`; not a measurement, only a limit.
template <typename Done>
bool waitFor(Done done, int seconds) {
    for (int i = 0; i < seconds * 20 && !done(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return done();
}

TEST_F(PrintingTest, TheJobReachesThePrinterChosenByPort) {
    std::string pattern = (fs::temp_directory_path() / "telvaro-cups-XXXXXX").string();
    ASSERT_TRUE(::mkdtemp(pattern.data()));
    const fs::path dir = pattern;
    const std::string d = pattern, server = d + "/cupsd.sock";
    auto uri = [&](const char* queue) { return "telvaro:" + d + "/" + queue + ".out"; };
    for (const char* sub : {"spool", "tmp", "state", "cache", "bin/backend"}) fs::create_directories(dir / sub);
    for (const char* sub : {"filter", "daemon"}) fs::create_symlink(fs::path("/usr/lib/cups") / sub, dir / "bin" / sub);
    std::ofstream(dir / "bin/backend/telvaro") << "#!/bin/sh\n[ $# -eq 0 ] && exit 0\nout=\"${DEVICE_URI#telvaro:}\"\n"
                                                  "cat \"${6:--}\" > \"$out.part\" && mv \"$out.part\" \"$out\"\n";
    ::chmod((dir / "bin/backend/telvaro").c_str(), 0700);  // not world-readable: runs as cupsd's own user
    std::ofstream(dir / "cupsd.conf") << "Listen " << server << "\nDefaultAuthType None\nWebInterface No\n"
                                      << "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n";
    std::ofstream(dir / "cups-files.conf")
        << "ServerRoot " << d << "\nRequestRoot " << d << "/spool\nTempDir " << d << "/tmp\nStateDir " << d
        << "/state\nCacheDir " << d << "/cache\nServerBin " << d << "/bin\nErrorLog " << d << "/error_log\n";
    std::ofstream(dir / "printers.conf") << "<DefaultPrinter telvaro_a>\nDeviceURI " << uri("a")
                                         << "\nState Idle\nAccepting Yes\n</DefaultPrinter>\n<Printer telvaro_b>\n"
                                         << "DeviceURI " << uri("b") << "\nState Idle\nAccepting Yes\n</Printer>\n";
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::execlp("cupsd", "cupsd", "-f", "-c", (d + "/cupsd.conf").c_str(), "-s", (d + "/cups-files.conf").c_str(),
                 static_cast<char*>(nullptr));
        ::_exit(127);
    }
    const std::shared_ptr<void> stop(nullptr, [&](void*) {  // cupsd stopped and its folder gone at the end
        if (pid > 0) ::kill(pid, SIGTERM), ::waitpid(pid, nullptr, 0);
        std::error_code ignored;
        fs::remove_all(dir, ignored);
    });
    const std::string log = "cat '" + d + "/error_log' 2>/dev/null";
    ASSERT_TRUE(waitFor([&] { return fs::exists(server); }, 15)) << "cupsd did not start:\n" << commandOutput(log);

    ::setenv("CUPS_SERVER", server.c_str(), 1);
    EXPECT_EQ(errorOf("fn_FijaImpresora", {Variant(fromUtf8(uri("b")))}), 0);
    auto form = std::make_shared<objects::Form>(u"frmRecibo");
    auto title = std::make_shared<objects::Label>(u"lblTitulo");
    title->caption = u"RECIBO";
    title->width = 3000;
    form->add(title);
    call("ImprimeForm", {Variant(ObjectRef(form)), Variant(String())});
    ::setenv("CUPS_SERVER", "/nonexistent/telvaro-cups.sock", 1);
    ASSERT_EQ(printing_->deliveries().size(), 1u);
    const PrintDelivery& sent = printing_->deliveries().back();
    EXPECT_EQ(sent.printer, u"telvaro_b");
    EXPECT_GT(sent.job, 0);
    EXPECT_TRUE(sent.file.empty()) << "no file is kept";
    ASSERT_TRUE(waitFor([&] { return fs::exists(d + "/b.out"); }, 20)) << "no job arrived\n" << commandOutput(log);
    EXPECT_NE(commandOutput("pdftotext '" + d + "/b.out' -").find("RECIBO"), std::string::npos);
}

}  // namespace
}  // namespace telvaro
