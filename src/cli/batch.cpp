#include "cli/batch.h"

#include <cerrno>
#include <cstring>
#include <istream>
#include <nlohmann/json.hpp>
#include <ostream>
#include <streambuf>

#include "cli/json_values.h"
#include "cli/object_json.h"
#include "cli/object_kinds.h"
#include "cli/print_deliveries.h"
#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "host/exported_sheets.h"
#include "platform/posix/window_effects.h"
#include "platform/recording_progress_display.h"
#include "platform/scripted_message_box.h"
#include "runtime/error.h"

namespace telvaro::cli {

using json = nlohmann::ordered_json;

namespace {

const auto kDump = json::error_handler_t::replace;

json errorAnswer(const json& id, int number, const std::string& description) {
    return json{{"id", id},
                {"error", {{"number", number}, {"description", description}}},
                {"byref", json::array()},
                {"messages", json::array()}};
}

// What the request's window calls told each window, by handle.
json windowsOf(const posix::WindowEffects& windows) {
    json out = json::array();
    for (const auto& [handle, effect] : windows.effects()) {
        json w{{"hwnd", handle}, {"topmost", effect.topmost}, {"drags", effect.drags}};
        if (effect.horizontalExtent) w["horizontalExtent"] = *effect.horizontalExtent;
        if (effect.owner) w["owner"] = *effect.owner;
        out.push_back(std::move(w));
    }
    return out;
}

json messagesOf(const ScriptedPlatform& platform) {
    json messages = json::array();
    for (const auto& m : platform.boxes().shown())
        messages.push_back(
            {{"prompt", toUtf8(m.prompt)}, {"style", m.style}, {"title", toUtf8(m.title)}, {"answer", m.answer}});
    return messages;
}

// The progress form is shown nowhere in a batch: its windows are recorded.
// One display for the whole batch, so that a form a request leaves loaded
// is the one the next request finds, as on one client thread.
const std::shared_ptr<RecordingProgressDisplay>& progressRecorder() {
    static const auto recorder = std::make_shared<RecordingProgressDisplay>();
    return recorder;
}

// The spreadsheet files the call wrote, and the ones it could not write.
void addExportedFiles(json& out) {
    const host::ExportReport report = host::takeExportReport();
    if (report.files.empty() && report.failures.empty()) return;
    json files = json::array();
    for (const auto& f : report.files)
        files.push_back({{"path", f.path.string()}, {"visible", f.visible}, {"opened", f.opened}});
    for (const auto& e : report.failures)
        files.push_back({{"error", {{"number", e.number()}, {"description", toUtf8(e.description())}}}});
    out["files"] = std::move(files);
}

json byRefOf(const std::vector<Variant>& args, const ObjectKindHooks& hooks) {
    json values = json::array();
    for (const auto& a : args) values.push_back(encodeValue(a, &hooks));
    return values;
}

// True when brackets and braces outside texts nest deeper than `limit`.
bool nestsDeeperThan(const std::string& line, std::size_t limit) {
    std::size_t depth = 0;
    bool inText = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (inText) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inText = false;
        } else if (c == '"') {
            inText = true;
        } else if (c == '[' || c == '{') {
            if (++depth > limit) return true;
        } else if ((c == ']' || c == '}') && depth > 0) {
            --depth;
        }
    }
    return false;
}

json answer(const json& request) {
    const json id = request.contains("id") ? request.at("id") : json();
    if (!request.contains("method") || !request.at("method").is_string())
        throw MalformedRequest("the request has no \"method\" text");
    if (request.contains("args") && !request.at("args").is_array()) throw MalformedRequest("\"args\" is not an array");
    std::vector<int> answers;
    if (request.contains("answers")) {
        if (!request.at("answers").is_array()) throw MalformedRequest("\"answers\" is not an array");
        for (const auto& a : request.at("answers")) {
            if (!a.is_number_integer() || a.get<std::int64_t>() < INT32_MIN || a.get<std::int64_t>() > INT32_MAX)
                throw MalformedRequest("an answer is a button code");
            answers.push_back(a.get<int>());
        }
    }

    (void)defaultPlatform();  // the regional settings in force before any argument is read
    // The request's caller objects live until its answer is written.
    const ObjectKindHooks hooks = batchObjectHooks();
    ObjectBuilder objects(hooks);
    std::vector<Variant> args;
    try {
        if (request.contains("args"))
            for (const auto& a : request.at("args")) args.push_back(decodeValue(a, &objects));
    } catch (const RuntimeError& e) {
        return errorAnswer(id, e.number(), toUtf8(e.description()));
    }

    ScriptedPlatform platform(defaultPlatform(), std::move(answers));
    const auto windows = std::make_shared<posix::WindowEffects>();
    platform.use(std::shared_ptr<Windows>(windows));
    platform.use(std::shared_ptr<ProgressDisplay>(progressRecorder()));
    const auto printing = recordPrinting(platform);
    json out{{"id", id}};
    (void)host::takeExportReport();  // only this request's files
    try {
        Fun fun(platform);
        Variant result = invoke(fun, request.at("method").get<std::string>(), args);
        out["result"] = encodeValue(result, &hooks);
    } catch (const RuntimeError& e) {
        out["error"] = {{"number", e.number()}, {"description", toUtf8(e.description())}};
    }
    out["byref"] = byRefOf(args, hooks);
    out["messages"] = messagesOf(platform);
    if (!windows->effects().empty()) out["windows"] = windowsOf(*windows);
    const std::vector<String> progress = progressRecorder()->take();
    if (!progress.empty()) {
        json calls = json::array();
        for (const auto& entry : progress) calls.push_back(toUtf8(entry));
        out["progress"] = std::move(calls);
    }
    addExportedFiles(out);
    if (printing && !printing->deliveries().empty()) out["printed"] = printedOf(*printing);
    return out;
}

// One line of `in`, without its end; lines longer than `limit` are read to
// their end but not kept.
enum class LineRead { Line, TooLong, End };
LineRead readLine(std::istream& in, std::string& line, std::size_t limit) {
    line.clear();
    std::streambuf* buffer = in.rdbuf();
    bool any = false, tooLong = false;
    for (;;) {
        int c;
        try {
            c = buffer->sbumpc();
        } catch (...) {
            in.setstate(std::ios::badbit);  // a read that failed
            return LineRead::End;
        }
        if (c == std::char_traits<char>::eof()) {
            in.setstate(std::ios::eofbit);
            if (!any) return LineRead::End;
            break;
        }
        any = true;
        if (c == '\n') break;
        if (line.size() < limit)
            line.push_back(static_cast<char>(c));
        else
            tooLong = true;
    }
    if (tooLong) {
        line.clear();
        return LineRead::TooLong;
    }
    return LineRead::Line;
}

}  // namespace

std::string answerRequest(const std::string& line) {
    json id = nullptr;
    try {
        if (nestsDeeperThan(line, kMaxNesting))
            return errorAnswer(id, -1, "the request nests deeper than " + std::to_string(kMaxNesting) + " levels")
                .dump(-1, ' ', false, kDump);
        json request = json::parse(line, nullptr, false);
        if (request.is_discarded()) return errorAnswer(id, -1, "the line is not JSON").dump(-1, ' ', false, kDump);
        if (!request.is_object()) return errorAnswer(id, -1, "a request is a JSON object").dump(-1, ' ', false, kDump);
        if (request.contains("id")) id = request.at("id");
        return answer(request).dump(-1, ' ', false, kDump);
    } catch (const MalformedRequest& e) {
        return errorAnswer(id, -1, e.what()).dump(-1, ' ', false, kDump);
    } catch (const RuntimeError& e) {
        return errorAnswer(id, e.number(), toUtf8(e.description())).dump(-1, ' ', false, kDump);
    } catch (const std::bad_alloc&) {
        return errorAnswer(id, err::OutOfMemory, toUtf8(standardDescription(err::OutOfMemory)))
            .dump(-1, ' ', false, kDump);
    } catch (const std::exception&) {
        return errorAnswer(id, -1, "the request could not be read").dump(-1, ' ', false, kDump);
    }
}

int runBatch(std::istream& in, std::ostream& out, std::ostream& err) {
    // The stored regional settings and the locale are in force before the
    // first request's arguments are read, as for `telvaro call`.
    (void)defaultPlatform();
    std::string line;
    for (;;) {
        const LineRead read = readLine(in, line, kMaxLineBytes);
        if (read == LineRead::End) break;
        if (read == LineRead::Line && line.find_first_not_of(" \t\r") == std::string::npos) continue;
        errno = 0;
        out << (read == LineRead::TooLong
                    ? errorAnswer(nullptr, -1, "the line is longer than " + std::to_string(kMaxLineBytes) + " bytes")
                          .dump()
                    : answerRequest(line))
            << '\n';
        out.flush();
        if (!out) {
            err << "telvaro batch: the answers cannot be written"
                << (errno ? std::string(": ") + std::strerror(errno) : std::string()) << '\n';
            return 1;
        }
    }
    if (in.bad()) {
        err << "telvaro batch: the requests cannot be read" << (errno ? std::string(": ") + std::strerror(errno) : "")
            << '\n';
        return 1;
    }
    return 0;
}

}  // namespace telvaro::cli
