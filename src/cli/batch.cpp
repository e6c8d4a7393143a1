#include "frame/invoke.h"
#include "host/default_platform.h"
#include "cli/batch.h"

#include <istream>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/json_values.h"
#include "platform/scripted_message_box.h"
#include "context/fun.h"
#include "runtime/error.h"

namespace telvaro::cli {

using json = nlohmann::ordered_json;

namespace {

json errorAnswer(const json& id, int number, const std::string& description) {
    return json{{"id", id}, {"error", {{"number", number}, {"description", description}}}};
}

json messagesOf(const ScriptedPlatform& platform) {
    json messages = json::array();
    for (const auto& m : platform.boxes().shown())
        messages.push_back(
            {{"prompt", toUtf8(m.prompt)}, {"style", m.style}, {"title", toUtf8(m.title)}, {"answer", m.answer}});
    return messages;
}

json byRefOf(const std::vector<Variant>& args) {
    json values = json::array();
    for (const auto& a : args) values.push_back(encodeValue(a));
    return values;
}

json answer(const json& request) {
    if (!request.is_object()) throw MalformedRequest("a request is a JSON object");
    const json id = request.contains("id") ? request.at("id") : json();
    if (!request.contains("method") || !request.at("method").is_string())
        throw MalformedRequest("the request has no \"method\" text");
    std::vector<Variant> args;
    if (request.contains("args")) {
        if (!request.at("args").is_array()) throw MalformedRequest("\"args\" is not an array");
        for (const auto& a : request.at("args")) args.push_back(decodeValue(a));
    }
    std::vector<int> answers;
    if (request.contains("answers")) {
        if (!request.at("answers").is_array()) throw MalformedRequest("\"answers\" is not an array");
        for (const auto& a : request.at("answers")) {
            if (!a.is_number_integer()) throw MalformedRequest("an answer is a button code");
            answers.push_back(a.get<int>());
        }
    }

    ScriptedPlatform platform(defaultPlatform(), std::move(answers));
    Fun fun(platform);
    json out{{"id", id}};
    try {
        Variant result = invoke(fun, request.at("method").get<std::string>(), args);
        out["result"] = encodeValue(result);
    } catch (const RuntimeError& e) {
        out["error"] = {{"number", e.number()}, {"description", toUtf8(e.description())}};
    }
    out["byref"] = byRefOf(args);
    out["messages"] = messagesOf(platform);
    return out;
}

}  // namespace

std::string answerRequest(const std::string& line) {
    json id = nullptr;
    try {
        json request = json::parse(line);
        if (request.is_object() && request.contains("id")) id = request.at("id");
        return answer(request).dump(-1, ' ', false, json::error_handler_t::replace);
    } catch (const RuntimeError& e) {
        return errorAnswer(id, e.number(), toUtf8(e.description())).dump();
    } catch (const std::exception& e) {
        return errorAnswer(id, -1, e.what()).dump(-1, ' ', false, json::error_handler_t::replace);
    }
}

void runBatch(std::istream& in, std::ostream& out) {
    std::string line;
    while (std::getline(in, line)) {
        if (line.find_first_not_of(" \t\r") == std::string::npos) continue;
        out << answerRequest(line) << '\n';
        out.flush();
    }
}

}  // namespace telvaro::cli
