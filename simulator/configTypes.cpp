#include "configTypes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>

using talvern::config::ArrayValue;
using talvern::config::SimpleValue;
using talvern::config::StructValue;
using talvern::config::Value;

namespace {

using Accepts = std::function<bool(const std::string&)>;

ConfigField text(std::string name, Accepts accepts, std::string accepted, std::string example) {
    return {std::move(name), false, false, std::move(accepts), std::move(accepted), std::move(example), {}};
}

ConfigField number(std::string name, int least, int greatest, std::string example) {
    const auto accepts = [=](const std::string& digits) {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [rest, error] = std::from_chars(digits.data(), end, value);
        return error == std::errc{} && rest == end && value >= least && value <= greatest;
    };
    return text(
        std::move(name), accepts, "a number from " + std::to_string(least) + " to " + std::to_string(greatest),
        std::move(example));
}

ConfigField choice(std::string name, const std::vector<std::string>& choices) {
    std::string accepted = "one of";
    for (const std::string& one : choices) accepted += " " + one;
    const auto accepts = [=](const std::string& chosen) {
        return std::find(choices.begin(), choices.end(), chosen) != choices.end();
    };
    return text(std::move(name), accepts, std::move(accepted), choices.back());
}

ConfigField address(std::string name, std::string example) {
    const auto accepts = [](const std::string& dotted) {
        in_addr parsed{};
        return inet_pton(AF_INET, dotted.c_str(), &parsed) == 1;
    };
    return text(std::move(name), accepts, "an IPv4 address", std::move(example));
}

ConfigField anyText(std::string name, std::string example) {
    return text(
        std::move(name), [](const std::string& any) { return !any.empty(); }, "a text that is not empty",
        std::move(example));
}

ConfigField required(ConfigField field) {
    field.isRequired = true;
    return field;
}

ConfigField listOf(ConfigField field) {
    field.isList = true;
    return field;
}

ConfigField reference(std::string name, std::string type, std::string example) {
    ConfigField field = anyText(std::move(name), std::move(example));
    field.accepted = "the name of an object of type " + type;
    field.refersTo = std::move(type);
    return field;
}

}  // namespace

const std::vector<ConfigType>& configTypes() {
    static const std::vector<ConfigType> types{
        {"EthernetInterface",
         "",
         false,
         {required(address("address", "192.0.2.20")), number("prefixLength", 0, 32, "24"),
          number("mtu", 576, 9000, "1500"), listOf(address("nameServers", "192.0.2.53"))}},
        {"VirtualAddress", "EthernetInterface", false, {required(address("address", "192.0.2.21"))}},
        {"UserGroup",
         "",
         false,
         {choice("role", {"administrator", "operator", "viewer"}), anyText("description", "auditors"),
          listOf(anyText("members", "eve"))}},
        {"LogTarget",
         "",
         false,
         {required(anyText("host", "log.example")), number("port", 1, 65535, "514"), choice("protocol", {"udp", "tcp"}),
          reference("interface", "EthernetInterface", "eth0")}},
        {"ApplicationData", "", true, {}},
    };
    return types;
}

const ConfigType* configType(const std::string& name) {
    const auto& types = configTypes();
    const auto found =
        std::find_if(types.begin(), types.end(), [&](const ConfigType& type) { return type.name == name; });
    return found == types.end() ? nullptr : &*found;
}

std::unique_ptr<Value> description(const ConfigType& type) {
    const auto put = [](StructValue& value, const std::string& name, const std::string& text) {
        value.put(name, std::make_unique<SimpleValue>(text, false));
    };
    auto result = std::make_unique<StructValue>(false);
    if (!type.parentType.empty()) put(*result, "parentType", type.parentType);
    put(*result, "accepts", type.takesAnyValue ? "any value" : "these fields");
    auto fields = std::make_unique<ArrayValue>(false);
    for (const ConfigField& field : type.fields) {
        auto described = std::make_unique<StructValue>(false);
        put(*described, "name", field.name);
        put(*described, "required", field.isRequired ? "true" : "false");
        put(*described, "accepts", field.isList ? "a list, each " + field.accepted : field.accepted);
        put(*described, "example", field.isList ? "[\"" + field.example + "\"]" : field.example);
        fields->add(std::move(described));
    }
    result->put("fields", std::move(fields));
    return result;
}
