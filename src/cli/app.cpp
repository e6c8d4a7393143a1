#include "cli/app.h"

#include <fcntl.h>

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/batch.h"
#include "cli/com_source.h"
#include "cli/commands.h"

namespace telvaro::cli {

namespace {

// A closed stdout cannot take the answers; worse, the first file the
// library opened would take its place and receive them.
bool stdoutIsOpen(const char* command) {
    if (::fcntl(1, F_GETFD) != -1) return true;
    std::cerr << "telvaro " << command << ": the answers cannot be written: stdout is closed\n";
    return false;
}

}  // namespace

int run(int argc, char** argv) {
    CLI::App app{"telvaro: the Fun library's methods from the command line"};
    app.require_subcommand(1);

    bool missingOnly = false;
    auto* methods = app.add_subcommand("methods", "List the methods: order, DISPID, name, parameters, result");
    methods->add_flag("--missing", missingOnly, "Only the names of the methods not built yet");

    std::string method;
    std::vector<std::string> args;
    auto* call = app.add_subcommand("call", "Call one method with text arguments and print its result");
    call->add_option("method", method, "Method name")->required();
    call->add_option("args", args, "Arguments, coerced to the declared parameter types");
    call->positionals_at_end();

    auto* batch = app.add_subcommand("batch", "Answer JSON Lines requests from stdin on stdout");
    auto* demo = app.add_subcommand("demo", "A guided tour of what the library can do");

    std::string part;
    auto* comSource = app.add_subcommand("com-source", "Print a source of the Windows server made from the catalogue");
    comSource->add_option("part", part, "idl: the type library's description; vtable: the C++ v-table; enums: the enumerations and records in C++")
        ->required()
        ->check(CLI::IsMember({"idl", "vtable", "enums"}));

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : 2;
    }

    if (methods->parsed()) {
        listMethods(std::cout, missingOnly);
        return 0;
    }
    if (call->parsed()) return stdoutIsOpen("call") ? callMethod(method, args, std::cout, std::cerr) : 1;
    if (batch->parsed()) {
        if (!stdoutIsOpen("batch")) return 1;
        std::ios::sync_with_stdio(false);
        return runBatch(std::cin, std::cout, std::cerr);
    }
    if (comSource->parsed()) {
        if (part == "idl")
            writeInterfaceDescription(std::cout);
        else if (part == "vtable")
            writeVtableDeclaration(std::cout);
        else
            writeEnumerationHeader(std::cout);
        return 0;
    }
    if (demo->parsed()) {
        runDemo(std::cout);
        return 0;
    }
    return 2;
}

}  // namespace telvaro::cli
