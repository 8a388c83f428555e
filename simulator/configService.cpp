#include <algorithm>
#include <map>
#include <memory>
#include <span>
#include <tuple>

#include "configTypes.h"
#include "memory.h"
#include "simulated.h"
#include "valueJson.h"

namespace talvern::config {

const char* const OPSTATE_STR[] = {"UNKNOWN", "UP", "DOWN", "PENDING", "FAILED"};
const char* const ADMINSTATE_STR[] = {"UNKNOWN", "ENABLED", "DISABLED"};
const char* const RETURNCODE_STR[] = {"OK",   "FAILED",       "NOT_FOUND",    "ALREADY_EXISTS", "NOT_PERMITTED",
                                      "BUSY", "INVALID_NAME", "INVALID_TYPE", "IN_USE",         "NULL_VALUE"};

static std::span<const char* const> namesOf(Service::AdminState) { return ADMINSTATE_STR; }
static std::span<const char* const> namesOf(Service::OpState) { return OPSTATE_STR; }

}  // namespace talvern::config

using talvern::config::ArrayValue;
using talvern::config::Service;
using talvern::config::SimpleValue;
using talvern::config::StructValue;
using talvern::config::Value;
using talvern::config::messaging::ConfigChangeException;
using talvern::config::messaging::ValidationException;
using Code = Service::ReturnCode;
using AdminState = Service::AdminState;
using OpState = Service::OpState;

namespace talvern::config::simulated {

namespace {

struct Key {
    std::string type, parent, name;

    bool operator<(const Key& other) const {
        return std::tie(type, parent, name) < std::tie(other.type, other.parent, other.name);
    }
};

OpState opStateIn(AdminState state) { return state == AdminState::ENABLED ? OpState::UP : OpState::DOWN; }

struct Object {
    std::unique_ptr<Value> value;
    std::unique_ptr<Value> initialValue;  // null: the present one
    AdminState adminState = AdminState::ENABLED, initialState = AdminState::ENABLED;
    OpState opState = OpState::UP;
    bool isBuiltIn = false;

    void setAdminState(AdminState state) {
        adminState = state;
        opState = opStateIn(state);
    }
};

using Objects = std::map<Key, Object>;

std::unique_ptr<Value> copyOf(const Value* value) { return std::unique_ptr<Value>{value->clone()}; }

Object newObject(std::unique_ptr<Value> value, AdminState state) {
    Object object;
    object.value = std::move(value);
    object.initialState = state;
    object.setAdminState(state);
    return object;
}

struct State {
    State() {
        addBuiltIn({"EthernetInterface", "", "eth0"}, {{"address", "192.0.2.10"}, {"prefixLength", "24"}});
        addBuiltIn({"EthernetInterface", "", "eth1"}, {{"address", "198.51.100.10"}, {"prefixLength", "24"}});
        addBuiltIn({"UserGroup", "", "administrators"}, {{"role", "administrator"}});
    }

    void addBuiltIn(const Key& key, const std::map<std::string, std::string>& members) {
        auto value = std::make_unique<StructValue>(false);
        for (const auto& [name, text] : members) value->put(name, std::make_unique<SimpleValue>(text, false));
        objects[key] = newObject(std::move(value), AdminState::ENABLED);
        objects[key].isBuiltIn = true;
    }

    Objects objects;
};

void require(bool holds, std::string_view field, std::string_view reason, std::string_view more = {}) {
    if (!holds) throw ValidationException{std::string{field}, std::string{reason}.append(more)};
}

void checkText(const Objects& objects, const ConfigField& field, const Value* value) {
    const auto* simple = dynamic_cast<const SimpleValue*>(value);
    require(simple != nullptr, field.name, "must be a text");
    require(field.accepts(simple->value), field.name, "must be ", field.accepted);
    if (field.refersTo.empty() || objects.contains({field.refersTo, "", simple->value})) return;
    throw ValidationException{field.name, "there is no " + field.refersTo + " " + simple->value};
}

void checkField(const Objects& objects, const ConfigField& field, const Value* value) {
    if (!field.isList) return checkText(objects, field, value);
    const auto* list = dynamic_cast<const ArrayValue*>(value);
    require(list != nullptr, field.name, "must be a list");
    for (const Value* element : list->elements) checkText(objects, field, element);
}

void checkValue(const Objects& objects, const ConfigType& type, const Value& value) {
    if (type.takesAnyValue) return;
    const auto* structure = dynamic_cast<const StructValue*>(&value);
    require(structure != nullptr, type.name, "must be a structure");
    for (const auto& [name, member] : structure->members) {
        require(
            std::any_of(
                type.fields.begin(), type.fields.end(),
                [&, &wanted = name](const ConfigField& field) { return field.name == wanted; }),
            name, "is not a field of ", type.name);
    }
    for (const ConfigField& field : type.fields) {
        const auto member = structure->members.find(field.name);
        if (member != structure->members.end()) {
            checkField(objects, field, member->second);
        } else {
            require(!field.isRequired, field.name, "is required");
        }
    }
}

bool hasParent(const Objects& objects, const ConfigType& type, const std::string& parent) {
    return type.parentType.empty() ? parent.empty() : objects.contains({type.parentType, "", parent});
}

void checkState(AdminState state) {
    require(state == AdminState::ENABLED || state == AdminState::DISABLED, "adminState", "must be ENABLED or DISABLED");
}

bool refersTo(const Key& user, const Object& object, const Key& used) {
    const ConfigType* type = configType(user.type);
    if (type->parentType == used.type && user.parent == used.name) return true;
    const auto* structure = dynamic_cast<const StructValue*>(object.value.get());
    return structure != nullptr && std::any_of(type->fields.begin(), type->fields.end(), [&](const ConfigField& field) {
               const auto member = structure->members.find(field.name);
               return field.refersTo == used.type && member != structure->members.end() &&
                      static_cast<const SimpleValue*>(member->second)->value == used.name;
           });
}

/// Refuses a change of an object that others depend on.
void checkUnused(const Objects& objects, const Key& used) {
    std::vector<std::string> users;
    for (const auto& [key, object] : objects) {
        if (refersTo(key, object, used)) users.push_back(key.type + " " + key.name);
    }
    if (!users.empty()) {
        throw ConfigChangeException{
            static_cast<std::int32_t>(Code::IN_USE), used.type + " " + used.name + " is in use", users};
    }
}

bool isName(const std::string& name) {
    return !name.empty() && name.size() <= 64 && name.find('/') == std::string::npos;
}

/// The present value with the members of the new one.
std::unique_ptr<Value> merged(const Value& present, const Value& changes) {
    std::unique_ptr<Value> result = copyOf(&present);
    auto* structure = dynamic_cast<StructValue*>(result.get());
    const auto* changed = dynamic_cast<const StructValue*>(&changes);
    if (structure == nullptr || changed == nullptr) return copyOf(&changes);
    for (const auto& [name, member] : changed->members) {
        structure->put(name, member == nullptr ? nullptr : copyOf(member));
    }
    return result;
}

template <typename Members>
void describe(Members& members, Key& key, Object& object) {
    members("type", key.type);
    if (Members::isReading || !key.parent.empty()) members("parent", key.parent);
    members("name", key.name);
    members("value", object.value);
    if (Members::isReading || object.initialValue != nullptr) members("initialValue", object.initialValue);
    if (Members::isReading || object.adminState != AdminState::ENABLED) members("adminState", object.adminState);
    const AdminState usualInitialState = object.adminState;
    const OpState usualOpState = opStateIn(object.adminState);
    if constexpr (Members::isReading) {
        object.initialState = usualInitialState;
        object.opState = usualOpState;
    }
    if (Members::isReading || object.initialState != usualInitialState) members("initialState", object.initialState);
    if (Members::isReading || object.opState != usualOpState) members("opState", object.opState);
    if (Members::isReading || object.isBuiltIn) members("isBuiltIn", object.isBuiltIn);
}

using Inserted = std::vector<Objects::const_iterator>;

Inserted insert(Objects& objects, const json::Node& list) {
    Reader::expect(list, json::Kind::list, "must be a list");
    Inserted inserted;
    Reader::forEachChild(list, [&](const json::Node& child) {
        Key key;
        Object object;
        Reader members{child};
        describe(members, key, object);
        members.finish();
        members.require(configType(key.type) != nullptr, "type: is missing or not known");
        members.require(isName(key.name), "name: is missing or no name for an object");
        members.require(object.value != nullptr, "value: is missing");
        const std::size_t before = objects.size();
        // The file that the appliance writes is in this order.
        inserted.emplace_back(objects.emplace_hint(objects.end(), std::move(key), std::move(object)));
        members.require(objects.size() > before, "there is another one of this type, parent and name");
    });
    return inserted;
}

/// Objects refer to others, which may follow them in the list.
void check(const Objects& objects, const json::Node& list, const Inserted& inserted) {
    auto next = inserted.begin();
    Reader::forEachChild(list, [&](const json::Node& child) {
        const auto& [key, object] = **next++;
        const ConfigType& type = *configType(key.type);
        try {
            checkState(object.adminState);
            checkState(object.initialState);
            require(hasParent(objects, type, key.parent), "parent", "there is no such object");
            checkValue(objects, type, *object.value);
        } catch (const ValidationException& refusal) {
            throw json::Problem{child.position, refusal.first + ": " + refusal.second};
        }
    });
}

void fromJson(const json::Node& node, State& state) {
    state.objects.clear();
    check(state.objects, node, insert(state.objects, node));
}

/// False if an object is gone, since others may refer to it.
bool replaceElements(State& state, const json::Node& before, const json::Node& now) {
    Objects replaced;
    insert(replaced, before);
    for (const auto& [key, object] : replaced) state.objects.erase(key);
    check(state.objects, now, insert(state.objects, now));
    const auto isThere = [&](const auto& entry) { return state.objects.contains(entry.first); };
    return std::all_of(replaced.begin(), replaced.end(), isThere);
}

void toJson(json::Text& out, State& state) {
    out.open('[');
    for (auto& [key, object] : state.objects) {
        out.beginElement();
        out.open('{');
        Writer members{out};
        Key written = key;
        describe(members, written, object);
        out.close('}');
    }
    out.close(']');
}

auto& memory = Memory<State>::make("config");

/// Runs `action` on an object of `state` and all others; NOT_FOUND or INVALID_TYPE if there is no such
/// object.
template <typename AnyState, typename Action>
Code withObject(AnyState& state, const Key& key, Action action) {
    if (configType(key.type) == nullptr) return Code::INVALID_TYPE;
    const auto found = state.objects.find(key);
    return found == state.objects.end() ? Code::NOT_FOUND : action(found->second, state.objects);
}

/// Reads an object.
template <typename Action>
Code readObject(const Key& key, Action action) {
    return memory.read([&](const State& state) { return withObject(state, key, action); });
}

template <typename Action>
Code changeObject(const Key& key, Action action) {
    return memory.change([&](State& state) { return withObject(state, key, action); });
}

}  // namespace

Code createObject(
    const std::string& type, const std::string& parent, const std::string& name, const Value* value,
    AdminState adminState, bool replace) {
    const ConfigType* known = configType(type);
    if (known == nullptr) return Code::INVALID_TYPE;
    if (!isName(name)) return Code::INVALID_NAME;
    if (value == nullptr) return Code::NULL_VALUE;
    return memory.change([&](State& state) {
        if (!hasParent(state.objects, *known, parent)) return Code::NOT_FOUND;
        const auto present = state.objects.find({type, parent, name});
        if (present != state.objects.end() && !replace) return Code::ALREADY_EXISTS;
        if (present != state.objects.end() && present->second.isBuiltIn) return Code::NOT_PERMITTED;
        checkState(adminState);
        checkValue(state.objects, *known, *value);
        state.objects[{type, parent, name}] = newObject(copyOf(value), adminState);
        return Code::OK;
    });
}

Code updateObject(
    const std::string& type, const std::string& parent, const std::string& name, const Value* value, bool merge) {
    if (value == nullptr) return Code::NULL_VALUE;
    return changeObject({type, parent, name}, [&](Object& object, const Objects& objects) {
        std::unique_ptr<Value> changed = merge ? merged(*object.value, *value) : copyOf(value);
        checkValue(objects, *configType(type), *changed);
        if (object.initialValue == nullptr) object.initialValue = std::move(object.value);
        object.value = std::move(changed);
        return Code::OK;
    });
}

Code deleteObject(const std::string& type, const std::string& parent, const std::string& name) {
    const Key key{type, parent, name};
    return changeObject(key, [&](const Object& object, Objects& objects) {
        if (object.isBuiltIn) return Code::NOT_PERMITTED;
        checkUnused(objects, key);
        objects.erase(key);
        return Code::OK;
    });
}

Code resetObject(const std::string& type, const std::string& parent, const std::string& name) {
    return changeObject({type, parent, name}, [](Object& object, const Objects&) {
        if (object.initialValue != nullptr) object.value = std::move(object.initialValue);
        object.setAdminState(object.initialState);
        return Code::OK;
    });
}

Code queryObject(const std::string& type, const std::string& parent, const std::string& name, Value** value) {
    thread_local std::unique_ptr<Value> handedOut;
    handedOut = nullptr;
    if (type == "TypeDescription") {
        const ConfigType* described = configType(name);
        if (described == nullptr) return Code::NOT_FOUND;
        handedOut = description(*described);
        *value = handedOut.get();
        return Code::OK;
    }
    return readObject({type, parent, name}, [&](const Object& object, const Objects&) {
        handedOut = copyOf(object.value.get());
        *value = handedOut.get();
        return Code::OK;
    });
}

Code validateObject(const std::string& type, const Value* value) {
    const ConfigType* known = configType(type);
    if (known == nullptr) return Code::INVALID_TYPE;
    if (value == nullptr) return Code::NULL_VALUE;
    memory.read([&](const State& state) { checkValue(state.objects, *known, *value); });
    return Code::OK;
}

Code getNamesofObject(const std::string& type, const std::string& parent, std::vector<std::string>& names) {
    if (configType(type) == nullptr) return Code::INVALID_TYPE;
    memory.read([&](const State& state) {
        for (const auto& [key, object] : state.objects) {
            if (key.type == type && key.parent == parent) names.push_back(key.name);
        }
    });
    return Code::OK;
}

std::vector<std::string> getObjectTypes() {
    std::vector<std::string> names;
    for (const ConfigType& type : configTypes()) names.push_back(type.name);
    return names;
}

Code getAdminState(
    const std::string& type, const std::string& parent, const std::string& name, AdminState& adminState) {
    return readObject({type, parent, name}, [&](const Object& object, const Objects&) {
        adminState = object.adminState;
        return Code::OK;
    });
}

Code setAdminState(const std::string& type, const std::string& parent, const std::string& name, AdminState adminState) {
    const Key key{type, parent, name};
    return changeObject(key, [&](Object& object, const Objects& objects) {
        checkState(adminState);
        if (adminState == AdminState::DISABLED) checkUnused(objects, key);
        object.setAdminState(adminState);
        return Code::OK;
    });
}

Code getOpState(const std::string& type, const std::string& parent, const std::string& name, OpState& opState) {
    return readObject({type, parent, name}, [&](const Object& object, const Objects&) {
        opState = object.opState;
        return Code::OK;
    });
}

Code setOpState(const std::string& type, const std::string& parent, const std::string& name, OpState opState) {
    if (opState < OpState::UNKNOWN || opState > OpState::FAILED) return Code::FAILED;
    return changeObject({type, parent, name}, [&](Object& object, const Objects&) {
        object.opState = opState;
        return Code::OK;
    });
}

}  // namespace talvern::config::simulated
