// The telvaro command line: methods, call, batch, demo.
#pragma once

namespace telvaro::cli {

int run(int argc, char** argv);

}  // namespace telvaro::cli
