#include "cli/app.h"

#include <fcntl.h>

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/batch.h"
#include "cli/closest_names.h"
#include "cli/com_source.h"
#include "cli/commands.h"
#include "cli/version.h"

namespace telvaro::cli {

namespace {

// A closed stdout cannot take the answers; worse, the first file the
// library opened would take its place and receive them.
bool stdoutIsOpen(const char* command) {
    if (::fcntl(1, F_GETFD) != -1) return true;
    std::cerr << "telvaro " << command << ": the answers cannot be written: stdout is closed\n";
    return false;
}

const std::vector<std::string> kCommands = {"methods", "call", "help", "batch", "demo", "com-source"};

// A first word that is no sub-command: one line with the closest names.
bool unknownCommand(int argc, char** argv) {
    if (argc < 2 || argv[1][0] == '-') return false;
    const std::string word = argv[1];
    for (const auto& c : kCommands)
        if (c == word) return false;
    std::vector<std::string> near = closestNames(word, kCommands);
    if (near.empty()) {
        // A method name typed without "call".
        for (auto& m : closestNames(word, methodNames(), 2)) near.push_back("call " + m);
    }
    const std::string hint = suggestionText(near);
    std::cerr << "telvaro: no command named " << word << (hint.empty() ? "" : "; " + hint)
              << " (telvaro --help lists them)\n";
    return true;
}

}  // namespace

int run(int argc, char** argv) {
    CLI::App app{"telvaro: the Fun library's methods from the command line"};
    app.require_subcommand(1);
    app.set_version_flag("--version", std::string("telvaro ") + kVersion);
    if (unknownCommand(argc, argv)) return 2;

    bool missingOnly = false;
    bool asJson = false;
    auto* methods = app.add_subcommand("methods", "List the methods: order, DISPID, name, parameters, result");
    methods->add_flag("--missing", missingOnly, "Only the names of the methods not built yet");
    methods->add_flag("--json", asJson, "The catalogue as JSON, with each method's description");
    bool asMarkdown = false;
    methods->add_flag("--markdown", asMarkdown, "The method reference in Markdown (docs/methods.md)");

    bool asText = false;
    auto* call = app.add_subcommand("call", "Call one method and print its result");
    call->add_flag("--text", asText, "Every argument is text, also one that reads as a number");
    call->prefix_command();
    call->footer(
        "Arguments: METHOD [ARG ...]. A number literal (1234.56, -5, 1e3, &H1F) is a number whatever the\n"
        "locale; an enumeration member (String_, Numero_) is its value; anything else is text, which the\n"
        "method reads under the regional settings. \"1234.56\" (quotes included) or --text keeps text.\n"
        "--Name=value gives a parameter by name; optional ones left out before it are omitted.");

    std::string helpTopic;
    auto* help = app.add_subcommand("help", "Describe one method: signature, what it does, an example");
    help->add_option("method", helpTopic, "Method name")->required();

    auto* batch = app.add_subcommand("batch", "Answer JSON Lines requests from stdin on stdout");
    auto* demo = app.add_subcommand("demo", "A guided tour of what the library can do");

    std::string part;
    auto* comSource = app.add_subcommand("com-source", "Print a source of the Windows server made from the catalogue");
    comSource
        ->add_option(
            "part", part,
            "idl: the type library's description; vtable: the C++ v-table; enums: the enumerations and records in C++")
        ->required()
        ->check(CLI::IsMember({"idl", "vtable", "enums"}));

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : 2;
    }

    if (methods->parsed()) {
        if (asJson)
            listMethodsJson(std::cout);
        else if (asMarkdown)
            writeMethodReference(std::cout);
        else
            listMethods(std::cout, missingOnly);
        return 0;
    }
    if (help->parsed()) return helpMethod(helpTopic, std::cout, std::cerr);
    if (call->parsed()) {
        std::vector<std::string> words = call->remaining();
        if (words.empty()) {
            std::cerr << "telvaro call: name a method (telvaro methods lists them)\n";
            return 2;
        }
        const std::string method = words.front();
        words.erase(words.begin());
        return stdoutIsOpen("call") ? callMethod(method, words, std::cout, std::cerr, asText) : 1;
    }
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
