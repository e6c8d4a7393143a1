#include "cli/app.h"

int main(int argc, char** argv) { return telvaro::cli::run(argc, argv); }
