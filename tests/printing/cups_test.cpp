// Printing through CUPS: a private cupsd, started and stopped here, with
// its own configuration folder, a socket in that folder and two queues
// whose backend keeps each job in a file named by the queue's device URI.
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
    for (int i = 0; i < seconds * 20; ++i) {
        if (done()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return done();
}

class PrivateCups {
public:
    PrivateCups() {
        std::string pattern = (fs::temp_directory_path() / "telvaro-cups-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) return;
        dir_ = pattern;
        for (const char* sub : {"spool", "tmp", "state", "cache", "bin/backend"}) fs::create_directories(dir_ / sub);
        for (const char* sub : {"filter", "daemon", "cgi-bin", "notifier", "monitor"})
            fs::create_symlink(fs::path("/usr/lib/cups") / sub, dir_ / "bin" / sub);
        const fs::path backend = dir_ / "bin/backend/telvaro";
        std::ofstream(backend)
            << "#!/bin/sh\n"
               "[ $# -eq 0 ] && { echo 'direct telvaro \"Unknown\" \"Telvaro test file\"'; exit 0; }\n"
               "out=\"${DEVICE_URI#telvaro:}\"\n"
               "if [ -n \"$6\" ]; then cat \"$6\" > \"$out.part\"; else cat > \"$out.part\"; fi "
               "&& chmod 644 \"$out.part\" && mv \"$out.part\" \"$out\"\n";
        ::chmod(backend.c_str(), 0700);  // a backend that is not world-readable runs as cupsd's own user
        std::ofstream(dir_ / "cupsd.conf") << "Listen " << server() << "\nLogLevel info\n"
                                           << "DefaultAuthType None\nWebInterface No\nBrowsing No\n"
                                           << "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                                           << "<Policy default>\n  <Limit All>\n    Order deny,allow\n  </Limit>\n"
                                           << "</Policy>\n";
        const std::string d = dir_.string();
        std::ofstream(dir_ / "cups-files.conf")
            << "ServerRoot " << d << "\nRequestRoot " << d << "/spool\nTempDir " << d << "/tmp\nStateDir " << d
            << "/state\nCacheDir " << d << "/cache\nDataDir /usr/share/cups\nServerBin " << d << "/bin\n"
            << "AccessLog " << d << "/access_log\nErrorLog " << d << "/error_log\nPageLog " << d << "/page_log\n"
            << "Printcap " << d << "/printcap\n";
        std::ofstream(dir_ / "printers.conf")
            << "<DefaultPrinter telvaro_a>\nDeviceURI " << uri("a")
            << "\nState Idle\nAccepting Yes\nShared No\n</DefaultPrinter>\n"
            << "<Printer telvaro_b>\nDeviceURI " << uri("b") << "\nState Idle\nAccepting Yes\nShared No\n</Printer>\n";
        pid_ = ::fork();
        if (pid_ == 0) {
            const int log = ::open((dir_ / "cupsd.out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            ::dup2(log, 1);
            ::dup2(log, 2);
            const std::string conf = (dir_ / "cupsd.conf").string(), files = (dir_ / "cups-files.conf").string();
            ::execlp("cupsd", "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(), static_cast<char*>(nullptr));
            ::_exit(127);
        }
        started_ = pid_ > 0 && waitFor([&] { return exited() || fs::exists(server()); }, 15) && !exited();
    }

    ~PrivateCups() {
        if (pid_ > 0 && !exited()) {
            ::kill(pid_, SIGTERM);
            if (!waitFor([&] { return exited(); }, 10)) ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        std::error_code ec;
        if (!dir_.empty()) fs::remove_all(dir_, ec);
    }

    bool started() const { return started_; }
    std::string server() const { return (dir_ / "cupsd.sock").string(); }
    std::string uri(const std::string& queue) const { return "telvaro:" + output(queue).string(); }
    fs::path output(const std::string& queue) const { return dir_ / (queue + ".out"); }
    std::string log() const {
        return commandOutput("cat '" + (dir_ / "cupsd.out").string() + "' '" + (dir_ / "error_log").string() +
                             "' 2>/dev/null");
    }

private:
    bool exited() {
        if (reaped_) return true;
        reaped_ = ::waitpid(pid_, nullptr, WNOHANG) == pid_;
        return reaped_;
    }

    fs::path dir_;
    pid_t pid_ = -1;
    bool started_ = false;
    bool reaped_ = false;
};

class CupsPrinting : public PrintingTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(cups_.started()) << "the private cupsd did not start:\n" << cups_.log();
        ::setenv("CUPS_SERVER", cups_.server().c_str(), 1);
    }
    void TearDown() override { ::setenv("CUPS_SERVER", "/nonexistent/telvaro-cups.sock", 1); }

    void printForm(const String& port = u"") {
        auto form = std::make_shared<objects::Form>(u"frmRecibo");
        auto title = std::make_shared<objects::Label>(u"lblTitulo");
        title->caption = u"RECIBO";
        title->width = 3000;
        form->add(title);
        call("ImprimeForm", {Variant(ObjectRef(form)), Variant(String()), Variant(String()), Variant(0.0), Variant(0.0),
                             Variant(False), Variant(std::int32_t(0)), Variant(std::int32_t(0)),
                             Variant(std::int16_t(1)), Variant(std::int16_t(0)), Variant(port)});
    }

    PrivateCups cups_;
};

TEST_F(CupsPrinting, TheJobReachesThePrinterChosenByPort) {
    struct Case {
        const char* label;
        const char* chosenPort;   // given to fn_FijaImpresora first, when set
        const char* printerPort;  // PuertoPrn of ImprimeForm
        const char* queue;        // where the job must arrive
    };
    const std::string a = cups_.uri("a"), b = cups_.uri("b");
    const Case cases[] = {
        {"the default printer", nullptr, "", "a"},
        {"chosen by fn_FijaImpresora", b.c_str(), "", "b"},
        {"a port that matches nothing keeps the printer", "telvaro:/nowhere", "", "b"},
        {"chosen by PuertoPrn", nullptr, a.c_str(), "a"},
    };
    for (const auto& c : cases) {
        fs::remove(cups_.output("a"));
        fs::remove(cups_.output("b"));
        if (c.chosenPort) {
            EXPECT_EQ(errorOf("fn_FijaImpresora", {Variant(fromUtf8(c.chosenPort))}), 0) << c.label;
        }
        const auto before = printing_->deliveries().size();
        printForm(fromUtf8(c.printerPort));
        ASSERT_EQ(printing_->deliveries().size(), before + 1) << c.label;
        const PrintDelivery& sent = printing_->deliveries().back();
        EXPECT_EQ(toUtf8(sent.printer), std::string("telvaro_") + c.queue) << c.label;
        EXPECT_GT(sent.job, 0) << c.label;
        EXPECT_TRUE(sent.file.empty()) << c.label << ": no file is kept";
        const fs::path out = cups_.output(c.queue);
        ASSERT_TRUE(waitFor([&] { return fs::exists(out); }, 20)) << c.label << ": no job arrived\n" << cups_.log();
        EXPECT_NE(commandOutput("pdftotext '" + out.string() + "' -").find("RECIBO"), std::string::npos) << c.label;
    }
}

}  // namespace
}  // namespace telvaro
