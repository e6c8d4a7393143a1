#include "cli/app.h"

#include <cstdio>

namespace telvaro::cli {

int run(int, char**) {
    std::fputs("telvaro: the command line is being built\n", stderr);
    return 2;
}

}  // namespace telvaro::cli
