// telvaro help METHOD, methods --json and the method reference: the
// catalogue's declarations with each method's note and example.
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/closest_names.h"
#include "cli/commands.h"
#include "frame/bind.h"
#include "frame/catalogue.h"
#include "frame/method_notes.h"
#include "runtime/convert.h"

namespace telvaro::cli {

namespace {

using json = nlohmann::ordered_json;

// An argument as typed in a POSIX shell: in single quotes unless plain.
std::string shellWord(std::string_view a) {
    const bool plain = !a.empty() && a.find_first_not_of(
                                         "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "0123456789_.,-+/:=") == std::string_view::npos;
    if (plain) return std::string(a);
    std::string word = "'";
    for (char c : a) word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

std::string exampleLine(const MethodInfo& m, const MethodExample& e) {
    std::string line = "telvaro call " + std::string(m.name);
    for (auto a : e.args) line += " " + shellWord(a);
    return line;
}

json defaultJson(const ParamInfo& p) {
    if (!p.optional || p.defaultValue.isMissing()) return nullptr;
    if (p.defaultValue.isObject()) return "Nothing";
    if (p.defaultValue.holds<Boolean>()) return p.defaultValue.get<Boolean>().isTrue();
    if (p.defaultValue.isString()) return toUtf8(p.defaultValue.get<String>());
    const double value = toDouble(p.defaultValue);
    if (value == static_cast<double>(static_cast<std::int64_t>(value))) return static_cast<std::int64_t>(value);
    return value;
}

}  // namespace

int helpMethod(const std::string& method, std::ostream& out, std::ostream& err) {
    const MethodInfo* m = findMethod(std::string_view(method));
    if (!m) {
        const std::string hint = suggestionText(closestNames(method, methodNames()));
        err << "telvaro help: no method named " << method << (hint.empty() ? "" : "; " + hint) << '\n';
        return 2;
    }
    out << signatureText(*m) << '\n';
    const MethodNote* note = methodNote(m->name);
    if (note) out << '\n' << note->text << '\n';
    if (!findBinding(m->name)) {
        out << "\nNot built yet: a call answers error 445.\n";
        return 0;
    }
    if (note && !note->examples.empty()) {
        out << "\nExample:\n";
        for (const auto& e : note->examples) {
            out << "  " << exampleLine(*m, e) << '\n';
            if (e.result) out << "  -> " << e.result << '\n';
        }
    }
    return 0;
}

void listMethodsJson(std::ostream& out) {
    json methods = json::array();
    for (const auto& m : catalogue()) {
        json params = json::array();
        for (const auto& p : m.params)
            params.push_back({{"name", p.name},
                              {"type", p.typeName},
                              {"byRef", p.byRef},
                              {"optional", p.optional},
                              {"default", defaultJson(p)}});
        const MethodNote* note = methodNote(m.name);
        json examples = json::array();
        if (note)
            for (const auto& e : note->examples) {
                json args = json::array();
                for (auto a : e.args) args.push_back(a);
                examples.push_back({{"args", args}, {"result", e.result ? json(e.result) : json(nullptr)}});
            }
        methods.push_back({{"order", m.order},
                           {"dispid", m.dispid},
                           {"name", m.name},
                           {"result", m.resultName},
                           {"params", params},
                           {"built", findBinding(m.name) != nullptr},
                           {"description", note ? json(note->text) : json(nullptr)},
                           {"examples", examples}});
    }
    out << methods.dump(2) << '\n';
}

void writeMethodReference(std::ostream& out) {
    out << "# The methods of Fun\n\n"
           "Made by `telvaro methods --markdown` from the catalogue; do not edit by hand.\n"
           "Parameters are by reference unless marked ByVal; optional ones are in brackets with their default.\n"
           "A method marked *not built yet* answers error 445.\n";
    for (const auto& m : catalogue()) {
        out << "\n## " << m.name << "\n\n```\n" << signatureText(m) << "\n```\n\n";
        const MethodNote* note = methodNote(m.name);
        if (note) out << note->text << '\n';
        if (!findBinding(m.name)) {
            out << "\n*Not built yet.*\n";
            continue;
        }
        if (note && !note->examples.empty()) {
            out << "\n```\n";
            for (const auto& e : note->examples) {
                out << "$ " << exampleLine(m, e) << '\n';
                if (e.result) out << e.result << '\n';
            }
            out << "```\n";
        }
    }
}

}  // namespace telvaro::cli
