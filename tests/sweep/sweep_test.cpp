// Every method of the catalogue that is built, called with junk in every
// position (empty, huge, negative, wrong types, Null, Nothing, missing,
// 70,000 characters, hostile paths), each call in a fresh state and within
// a time and memory budget: only values or run-time errors come back, and
// nothing is written outside the home folder. Then the inputs that once
// took seconds and gigabytes, each with the answer it must give at once.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <thread>

#include "context/thread_state.h"
#include "frame/bind.h"
#include "frame/invoke.h"
#include "runtime/convert.h"
#include "support/support.h"
#include "support/test_platform.h"
#include "sweep/memory_budget.h"

namespace telvaro {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto kTimePerCall = 1s;
constexpr std::size_t kMemoryPerCall = std::size_t(256) << 20;
// A call still running after this is taken for a hang: the program stops
// with the call's name rather than waiting for the test runner's timeout.
constexpr auto kHang = 60s;

// What is left in a file's place by a path that climbs out.
std::string escapeName() { return "telvaro-escape-" + std::to_string(::getpid()); }

std::vector<Variant> junkValues() {
    const String escape = fromUtf8(escapeName());
    Array twoD = Array::matrix(0, 1, 0, 1);
    Array fromOne = Array::vector(1, 3);
    // clang-format off
    return {
        Variant(), Variant(Null{}), Variant::missing(), Variant(ObjectRef()), Variant(u""),
        Variant(String(70000, u'a')), Variant(String(70000, u'\\')), Variant(u"abc"), Variant(u"1,2,,3"),
        Variant(u"31/12/1998"), Variant(u"-1"), Variant(u"1e+1000000000"), Variant(std::int16_t(-32768)),
        Variant(std::int16_t(32767)), Variant(std::int32_t(-2147483647 - 1)), Variant(std::int32_t(2147483647)),
        Variant(std::int32_t(100000000)), Variant(1e308), Variant(-1e-300), Variant(True), Variant(Date{2958465.5}),
        Variant(Array::ofValues({Variant(u"Uno"), Variant(Null{})})), Variant(fromOne), Variant(twoD),
        // Paths that climb, in every form a caller may write one.
        Variant(u"C:\\..\\..\\..\\..\\..\\..\\..\\..\\" + escape),
        Variant(u"..\\..\\..\\..\\..\\..\\..\\..\\" + escape),
        Variant(u"\\\\srv\\share\\..\\..\\..\\..\\..\\..\\..\\" + escape),
        Variant(u"C:/../..\\../..//..\\\\../../../" + escape),
        Variant(u"C:\\..\\.\\..\\...\\.. \\..\\..\\..\\..\\" + escape + u"."), Variant(u"/tmp/" + escape),
        Variant(u"C:\\..\\..\\..\\..\\..\\..\\..\\..\\*.*"),
    };
    // clang-format on
}

// The ordinary values the other arguments take while one is junk.
const std::vector<Variant>& ordinaryValues() {
    static const std::vector<Variant> values{Variant(u"1"), Variant(u",")};
    return values;
}

std::string describeCall(std::string_view method, const std::vector<Variant>& args) {
    std::string text(method);
    text += "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string arg = describe(args[i]);
        if (arg.size() > 60) arg = arg.substr(0, 60) + "...";
        text += (i ? ", " : "") + arg;
    }
    return text + ")";
}

// Stops the program when one call runs past kHang.
class HangGuard {
public:
    HangGuard() : thread_([this] { watch(); }) {}
    ~HangGuard() {
        {
            std::lock_guard lock(mutex_);
            done_ = true;
        }
        wake_.notify_all();
        thread_.join();
    }
    void starting(std::string call) {
        std::lock_guard lock(mutex_);
        call_ = std::move(call);
        since_ = std::chrono::steady_clock::now();
        running_ = true;
    }
    void finished() {
        std::lock_guard lock(mutex_);
        running_ = false;
    }

private:
    void watch() {
        std::unique_lock lock(mutex_);
        while (!done_) {
            wake_.wait_for(lock, 200ms);
            if (running_ && std::chrono::steady_clock::now() - since_ > kHang) {
                std::fprintf(stderr, "hang: %s ran for more than %lld s\n", call_.c_str(),
                             static_cast<long long>(std::chrono::seconds(kHang).count()));
                std::abort();
            }
        }
    }

    std::mutex mutex_;
    std::condition_variable wake_;
    std::string call_;
    std::chrono::steady_clock::time_point since_;
    bool running_ = false, done_ = false;
    std::thread thread_;
};

struct Outcome {
    bool returned = false;
    int error = 0;             // the run-time error, when one was raised
    std::string otherFailure;  // anything else that came out of the call
    Variant value;
};

// One call in a fresh state (a new platform and Fun, the thread's state
// cleared) within the time and memory budget; budget overruns are test
// failures naming the call.
Outcome callWithinBudget(HangGuard& guard, const MethodInfo& method, std::vector<Variant> args) {
    const std::string call = describeCall(method.name, args);
    threadState() = ThreadState{};
    Outcome outcome;
    fakes::TestPlatform platform;
    // The clock starts at second 30 of a minute and goes on one second per
    // reading: waits within the minute end at once.
    platform.recording.clock = [t = 36160.0 + 30.0 / 86400]() mutable { return t += 1.0 / 86400; };
    const auto started = std::chrono::steady_clock::now();
    guard.starting(call);
    bool overBudget = false;
    {
        sweep::MemoryBudget budget(kMemoryPerCall);
        try {
            Fun fun(platform);
            outcome.value = invoke(fun, method, args);
            outcome.returned = true;
        } catch (const RuntimeError& e) {
            outcome.error = e.number();
        } catch (const std::exception& e) {
            outcome.otherFailure = e.what();
        } catch (...) {
            outcome.otherFailure = "an exception that is not a std::exception";
        }
        overBudget = budget.exceeded();
    }
    guard.finished();
    const auto took = std::chrono::steady_clock::now() - started;
    if (took > kTimePerCall)
        ADD_FAILURE() << call << " took " << std::chrono::duration_cast<std::chrono::milliseconds>(took).count()
                      << " ms";
    if (overBudget) ADD_FAILURE() << call << " asked for more than " << (kMemoryPerCall >> 20) << " MB";
    if (!outcome.otherFailure.empty())
        ADD_FAILURE() << call << " raised something other than a run-time error: " << outcome.otherFailure;
    return outcome;
}

// A wait for a second the clock's seconds field never reaches does not end
// (see fn_EsperaXSegundos): such calls are left out.
bool endsByDesign(const MethodInfo& method, const std::vector<Variant>& args) {
    if (method.name != "fn_EsperaXSegundos" || args.empty()) return false;
    try {
        const double seconds = toDouble(args[0]);
        return seconds >= 29.5 && seconds < 32737.5;
    } catch (const RuntimeError&) {
        return false;
    }
}

// Entries of `folder` whose name starts with the escape name.
std::vector<fs::path> escapesIn(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(folder, ec))
        if (entry.path().filename().string().rfind(escapeName(), 0) == 0) found.push_back(entry.path());
    return found;
}

class Sweep : public ::testing::Test {
protected:
    // A home folder three levels inside a folder of its own, which is also
    // the working folder: a climb by "..", in any form, shows up beside it.
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "telvaro-sweep-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        root_ = pattern;
        home_ = root_ / "a" / "b" / "home";
        fs::create_directories(home_);
        oldFolder_ = fs::current_path();
        fs::current_path(home_);
    }
    void TearDown() override {
        std::error_code ec;
        fs::current_path(oldFolder_, ec);
        fs::remove_all(root_, ec);
    }
    void expectNothingOutsideHome() {
        for (fs::path folder = home_.parent_path(); !folder.empty(); folder = folder.parent_path()) {
            for (const auto& entry : escapesIn(folder)) ADD_FAILURE() << "written outside the home folder: " << entry;
            if (folder == folder.root_path()) break;
        }
        for (const auto& folder : {root_, root_ / "a", root_ / "a" / "b"}) {
            std::size_t entries = 0;
            std::error_code ec;
            for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder, ec)) ++entries;
            EXPECT_EQ(entries, 1u) << "only the way to the home folder is in " << folder;
        }
    }

    fs::path root_, home_, oldFolder_;
    ScopedVariable homeVariable_{"TELVARO_HOME", nullptr};
    ScopedVariable noDriveC_{"TELVARO_DRIVE_C", nullptr};
    ScopedVariable noDriveD_{"TELVARO_DRIVE_D", nullptr};
};

TEST_F(Sweep, EveryBuiltMethodAnswersJunkWithAValueOrARuntimeError) {
    ::setenv("TELVARO_HOME", home_.c_str(), 1);
    const auto junk = junkValues();
    HangGuard guard;
    sweep::AddressSpaceLimit addressSpace(std::size_t(1) << 30);
    std::size_t calls = 0;
    for (const auto& method : catalogue()) {
        if (!findBinding(method.name)) continue;
        const std::size_t n = method.params.size();
        for (const auto& ordinary : ordinaryValues()) {
            for (std::size_t position = 0; position < n; ++position) {
                for (const auto& value : junk) {
                    std::vector<Variant> args(n, ordinary);
                    args[position] = value;
                    if (endsByDesign(method, args)) continue;
                    callWithinBudget(guard, method, std::move(args));
                    ++calls;
                }
            }
        }
        if (method.requiredCount() > 0) {
            const Outcome none = callWithinBudget(guard, method, {});
            EXPECT_EQ(none.error, err::ArgumentNotOptional) << method.name << " ran without its required arguments";
        }
    }
    EXPECT_GT(calls, 1000u);
    expectNothingOutsideHome();
}

TEST_F(Sweep, InputsThatOnceTookTheMachineAnswerAtOnce) {
    ::setenv("TELVARO_HOME", home_.c_str(), 1);
    // A record file whose array bounds promise 65,535 by 65,535 elements.
    {
        fs::create_directories(home_ / "drives" / "c");
        std::ofstream file(home_ / "drives" / "c" / "bounds.dat", std::ios::binary);
        const unsigned char header[] = {0x0C, 0x20, 0x02, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00,
                                        0x00, 0x00, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00};
        std::string record(reinterpret_cast<const char*>(header), sizeof header);
        record.resize(128, '\0');
        file << record;
    }
    struct Case {
        const char* method;
        std::vector<Variant> args;
        int error;  // 0: a value comes back
    };
    const Case cases[] = {
        {"Numero2Letra", {Variant(u"1"), Variant(std::int32_t(2147483647))}, err::OutOfStringSpace},
        {"numCalculaFormula", {Variant(u"1e-1000000000")}, 0},
        {"numCalculaFormula", {Variant(String(40000, u'\\'))}, err::OutOfStackSpace},
        {"numCalculaFormula", {Variant(u"2" + String(4000, u'*') + u"3")}, err::OutOfStackSpace},
        {"fsoLeeArchivo", {Variant(u"C:\\bounds.dat"), Variant(std::int16_t(1))}, err::UnsupportedAutomationType},
    };
    HangGuard guard;
    sweep::AddressSpaceLimit addressSpace(std::size_t(1) << 30);
    for (const auto& c : cases) {
        const MethodInfo* method = findMethod(std::string_view(c.method));
        ASSERT_NE(method, nullptr) << c.method;
        const Outcome outcome = callWithinBudget(guard, *method, c.args);
        EXPECT_EQ(outcome.error, c.error) << describeCall(c.method, c.args);
    }
    expectNothingOutsideHome();
}

}  // namespace
}  // namespace telvaro
