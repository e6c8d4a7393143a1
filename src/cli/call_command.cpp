#include <new>
#include <ostream>

#include "cli/call_arguments.h"
#include "cli/closest_names.h"
#include "cli/commands.h"
#include "cli/json_values.h"
#include "cli/print_deliveries.h"
#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "host/exported_sheets.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace telvaro::cli {

namespace {

// The display form of a result: its text; an array as its elements, one
// per line.
void printValue(std::ostream& out, const Variant& v) {
    if (v.isArray()) {
        for (const auto& item : v.array().elements()) printValue(out, item);
        return;
    }
    if (v.isNull()) {
        out << "Null\n";
        return;
    }
    if (v.isObject()) {
        out << (v.get<ObjectRef>() ? "(Object)" : "Nothing") << '\n';
        return;
    }
    out << toUtf8(toString(v)) << '\n';
}

// The spreadsheet files the call wrote, one line each on stderr, so that
// the result on stdout stays the method's alone.
void reportExportedFiles(std::ostream& err) {
    const host::ExportReport report = host::takeExportReport();
    for (const auto& f : report.files) err << "telvaro call: wrote " << f.path.string() << '\n';
    for (const auto& e : report.failures)
        err << "telvaro call: a spreadsheet could not be written: Error " << e.number() << ": "
            << toUtf8(e.description()) << '\n';
}

}  // namespace

std::vector<std::string> methodNames() {
    std::vector<std::string> names;
    for (const auto& m : catalogue()) names.emplace_back(m.name);
    return names;
}

int callMethod(const std::string& method, const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               bool asText) {
    const MethodInfo* info = findMethod(std::string_view(method));
    if (!info) {
        const std::string hint = suggestionText(closestNames(method, methodNames()));
        err << "telvaro call: no method named " << method << (hint.empty() ? "" : "; " + hint) << '\n';
        return 2;
    }
    try {
        // The settings in force before any argument is read.
        Platform platform = defaultPlatform();
        const auto printing = recordPrinting(platform);
        Fun fun(platform);
        std::vector<Variant> values = callArguments(*info, args, asText);
        Variant result = [&] {
            // Where a document went is said even when the method then failed.
            struct Report {
                const std::shared_ptr<RecordingPrinting>& printing;
                std::ostream& err;
                ~Report() {
                    if (printing) reportPrinted(*printing, err);
                    reportExportedFiles(err);
                }
            } report{printing, err};
            return invoke(fun, *info, values);
        }();
        printValue(out, result);
        out.flush();
        if (!out) {
            err << "telvaro call: the result cannot be written\n";
            return 1;
        }
        return 0;
    } catch (const RuntimeError& e) {
        reportExportedFiles(err);
        err << "Error " << e.number() << ": " << toUtf8(e.description()) << '\n';
        return 1;
    } catch (const std::bad_alloc&) {
        // The result itself may not fit: printing a text of millions of
        // characters needs its UTF-8 copy. The runtime's answer is error 7.
        const RuntimeError outOfMemory(err::OutOfMemory);
        err << "Error 7: " << toUtf8(outOfMemory.description()) << '\n';
        return 1;
    }
}

}  // namespace telvaro::cli
