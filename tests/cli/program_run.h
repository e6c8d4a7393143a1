// The built program run as outside callers run it: a bash script with the
// program's path in $T, text on stdin, a fresh home folder, and what came
// out on stdout and stderr with the exit status.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace telvaro::cli {

struct Outcome {
    std::string out, err;
    int status = -1;
};

inline std::string fileText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// A file of the suite's scratch folder holding `content`; its path.
inline std::string scratchFile(const std::string& name, const std::string& content) {
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

inline Outcome shell(const std::string& script, const std::string& input = "") {
    static int count = 0;
    const std::string base = ::testing::TempDir() + "program_run_" + std::to_string(++count);
    std::filesystem::remove_all(base + "_home");
    std::filesystem::create_directories(base + "_home");
    std::ofstream(base + ".sh") << "T=" << TELVARO_BINARY << "\nexport TELVARO_HOME=" << base << "_home\n"
                                << script << "\n";
    scratchFile("program_run_" + std::to_string(count) + ".in", input);
    const int rc =
        std::system(("bash " + base + ".sh < " + base + ".in > " + base + ".out 2> " + base + ".err").c_str());
    Outcome r{fileText(base + ".out"), fileText(base + ".err")};
    r.status = WIFEXITED(rc) ? WEXITSTATUS(rc) : 128 + WTERMSIG(rc);
    return r;
}

// `telvaro <args>` with `environment` (VAR=value ...) before it.
inline Outcome runProgram(const std::string& args, const std::string& input = "", const std::string& environment = "") {
    return shell("env " + environment + " $T " + args, input);
}

}  // namespace telvaro::cli
