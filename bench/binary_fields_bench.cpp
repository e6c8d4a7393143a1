// Binary field values through a file: regGuardaStream writing a 1 MB Byte
// array, and regLeeStream reading it back, against writing and reading the
// same bytes with the standard streams (the direct way, which starts from
// bytes, not from the runtime's Byte array: the ratio is what the automation
// value costs on top of the file work).
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "context/fun.h"
#include "data/byte_array.h"
#include "data/factory.h"
#include "frame/invoke.h"
#include "host/default_platform.h"

namespace telvaro {
namespace {

constexpr std::size_t kBytes = 1 << 20;

const std::filesystem::path& benchFolder() {
    static const std::filesystem::path folder = [] {
        auto path = std::filesystem::temp_directory_path() / ("telvaro-streambench-" + std::to_string(::getpid()));
        std::filesystem::create_directories(path);
        std::atexit([] { std::filesystem::remove_all(benchFolder()); });
        return path;
    }();
    return folder;
}

// The default platform whose Streams write in the bench's folder.
const Platform& benchPlatform() {
    static const Platform platform = [] {
        Platform p = defaultPlatform();
        data::DataServices services{[](StringView) { return benchFolder() / "valor.bin"; }};
        p.use(std::shared_ptr<ObjectFactory>(std::make_shared<FunctionObjectFactory>(
            [services](StringView progId) { return data::createDataObject(progId, services); })));
        return p;
    }();
    return platform;
}

std::vector<std::uint8_t> someBytes() {
    std::vector<std::uint8_t> bytes(kBytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + (i >> 9));
    return bytes;
}

void saveLibrary(benchmark::State& state) {
    Fun fun(benchPlatform());
    std::vector<Variant> args = {data::byteArray(someBytes()), Variant(String(u"C:\\bench\\valor.bin"))};
    for (auto _ : state) benchmark::DoNotOptimize(invoke(fun, std::string_view("regGuardaStream"), args));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(saveLibrary)->Name("regGuardaStream 1 MB/library")->Unit(benchmark::kMillisecond);

void saveDirect(benchmark::State& state) {
    const std::vector<std::uint8_t> bytes = someBytes();
    const auto file = benchFolder() / "directo.bin";
    for (auto _ : state) {
        // The same safe write: a new file beside, renamed over the old one.
        auto part = file;
        part += ".part";
        std::ofstream(part, std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        std::filesystem::rename(part, file);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(saveDirect)->Name("regGuardaStream 1 MB/direct")->Unit(benchmark::kMillisecond);

void readLibrary(benchmark::State& state) {
    Fun fun(benchPlatform());
    std::vector<Variant> save = {data::byteArray(someBytes()), Variant(String(u"C:\\bench\\valor.bin"))};
    invoke(fun, std::string_view("regGuardaStream"), save);
    std::vector<Variant> args = {Variant(String(u"C:\\bench\\valor.bin"))};
    for (auto _ : state) benchmark::DoNotOptimize(invoke(fun, std::string_view("regLeeStream"), args));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(readLibrary)->Name("regLeeStream 1 MB/library")->Unit(benchmark::kMillisecond);

void readDirect(benchmark::State& state) {
    const std::vector<std::uint8_t> bytes = someBytes();
    const auto file = benchFolder() / "directo.bin";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    for (auto _ : state) {
        std::ifstream in(file, std::ios::binary);
        std::vector<std::uint8_t> read((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        benchmark::DoNotOptimize(read.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kBytes));
}
BENCHMARK(readDirect)->Name("regLeeStream 1 MB/direct")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace telvaro
