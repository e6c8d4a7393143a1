// Printing through CUPS: a private cupsd with its own configuration folder,
// a socket in it and two queues whose backend keeps each job in a file
// named by the queue's device URI.
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

class PrivateCups {
public:
    PrivateCups() {
        std::string pattern = (fs::temp_directory_path() / "telvaro-cups-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) return;
        dir_ = pattern;
        const std::string d = dir_.string();
        for (const char* sub : {"spool", "tmp", "state", "cache", "bin/backend"}) fs::create_directories(dir_ / sub);
        for (const char* sub : {"filter", "daemon"})
            fs::create_symlink(fs::path("/usr/lib/cups") / sub, dir_ / "bin" / sub);
        const fs::path backend = dir_ / "bin/backend/telvaro";
        std::ofstream(backend) << "#!/bin/sh\n[ $# -eq 0 ] && exit 0\nout=\"${DEVICE_URI#telvaro:}\"\n"
                                  "cat \"${6:--}\" > \"$out.part\" && mv \"$out.part\" \"$out\"\n";
        ::chmod(backend.c_str(), 0700);  // a backend that is not world-readable runs as cupsd's own user
        std::ofstream(dir_ / "cupsd.conf") << "Listen " << server() << "\nDefaultAuthType None\nWebInterface No\n"
                                           << "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n";
        std::ofstream(dir_ / "cups-files.conf")
            << "ServerRoot " << d << "\nRequestRoot " << d << "/spool\nTempDir " << d << "/tmp\nStateDir " << d
            << "/state\nCacheDir " << d << "/cache\nServerBin " << d << "/bin\nErrorLog " << d << "/error_log\n";
        std::ofstream(dir_ / "printers.conf")
            << "<DefaultPrinter telvaro_a>\nDeviceURI " << uri("a")
            << "\nState Idle\nAccepting Yes\n</DefaultPrinter>\n<Printer telvaro_b>\n"
            << "DeviceURI " << uri("b") << "\nState Idle\nAccepting Yes\n</Printer>\n";
        pid_ = ::fork();
        if (pid_ == 0) {
            const std::string conf = (dir_ / "cupsd.conf").string(), files = (dir_ / "cups-files.conf").string();
            ::execlp("cupsd", "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), static_cast<char*>(nullptr));
            ::_exit(127);
        }
        started_ = pid_ > 0 && waitFor([&] { return fs::exists(server()); }, 15);
    }
    ~PrivateCups() {
        if (pid_ > 0) ::kill(pid_, SIGTERM), ::waitpid(pid_, nullptr, 0);
        std::error_code ec;
        if (!dir_.empty()) fs::remove_all(dir_, ec);
    }

    bool started() const { return started_; }
    std::string server() const { return (dir_ / "cupsd.sock").string(); }
    std::string uri(const std::string& queue) const { return "telvaro:" + output(queue).string(); }
    fs::path output(const std::string& queue) const { return dir_ / (queue + ".out"); }
    std::string log() const { return commandOutput("cat '" + (dir_ / "error_log").string() + "' 2>/dev/null"); }

private:
    fs::path dir_;
    pid_t pid_ = -1;
    bool started_ = false;
};

TEST_F(PrintingTest, TheJobReachesThePrinterChosenByPort) {
    PrivateCups cups;
    ASSERT_TRUE(cups.started()) << "the private cupsd did not start:\n" << cups.log();
    ::setenv("CUPS_SERVER", cups.server().c_str(), 1);
    EXPECT_EQ(errorOf("fn_FijaImpresora", {Variant(fromUtf8(cups.uri("b")))}), 0);
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
    ASSERT_TRUE(waitFor([&] { return fs::exists(cups.output("b")); }, 20)) << "no job arrived\n" << cups.log();
    EXPECT_NE(commandOutput("pdftotext '" + cups.output("b").string() + "' -").find("RECIBO"), std::string::npos);
}

}  // namespace
}  // namespace telvaro
