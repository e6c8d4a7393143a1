// What each method of Fun does, in one or two sentences, and an example
// call: the one table the command line's help, the method reference
// (docs/methods.md) and the type library's help strings are made from.
#pragma once

#include <string_view>
#include <vector>

namespace telvaro {

struct MethodExample {
    // The arguments as typed after `telvaro call METHOD` (script literals).
    std::vector<std::string_view> args;
    // The printed result, one line per array element; nullptr when it
    // depends on the machine (its name, its folders) and is not compared.
    const char* result = nullptr;
};

struct MethodNote {
    std::string_view name;
    std::string_view text;
    // An example that runs; only for methods that take no caller objects.
    std::vector<MethodExample> examples;
};

// The note of a method (case-insensitive), nullptr when it has none.
const MethodNote* methodNote(std::string_view name);
const std::vector<MethodNote>& methodNotes();

}  // namespace telvaro
