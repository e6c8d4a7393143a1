// The in-memory caller objects of the batch protocol: built from their
// JSON description ({"object": "grid", ...}) and written back as their
// state after the call, with "calls", the ordered members the method used.
//
// Kinds: grid, list, combobox, textbox, checkbox, optionbutton, label,
// font, frame, picturebox, picture, datagrid and form (with its controls, nested in
// frames by "controls" or by "container": NAME). Other kinds (connection,
// recordset, ...) come from hooks that other layers give; without one the
// kind is error 445, "Object kind not supported yet". A description that
// does not fit its kind is error 5 naming the field and what it expects.
#pragma once

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "runtime/object.h"

namespace telvaro::cli {

using Json = nlohmann::ordered_json;

struct ObjectKindHooks {
    // Builds an object of a kind not known here; nullptr when the hook does
    // not know it either.
    std::function<ObjectRef(const std::string& kind, const Json& description)> build;
    // The state of an object not known here; nothing when the hook does not
    // know it either.
    std::function<std::optional<Json>(const Object& object)> state;
};

// Builds the objects of one request. It keeps what the objects need to live
// as long as the request (the form around a frame given on its own), so
// keep it until the answer is written.
class ObjectBuilder {
public:
    explicit ObjectBuilder(ObjectKindHooks hooks = {}) : hooks_(std::move(hooks)) {}

    ObjectRef build(const Json& description);

private:
    ObjectRef buildKind(const std::string& kind, const Json& d);
    ObjectRef buildForm(const Json& d);
    ObjectRef buildFrame(const Json& d);

    ObjectKindHooks hooks_;
    std::vector<ObjectRef> kept_;
};

// The state of an object after the call, as the answer gives it; an object
// not known here and to no hook gives {"object": TypeName}.
Json objectState(const Object& object, const ObjectKindHooks& hooks = {});

}  // namespace telvaro::cli
