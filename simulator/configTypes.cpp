#include "configTypes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>

namespace {

using Accepts = std::function<bool(const std::string&)>;

ConfigField text(std::string name, bool isRequired, Accepts accepts, std::string otherwise) {
    return {std::move(name), isRequired, false, std::move(accepts), std::move(otherwise), {}};
}

ConfigField number(std::string name, int least, int greatest) {
    const auto accepts = [=](const std::string& digits) {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [rest, error] = std::from_chars(digits.data(), end, value);
        return error == std::errc{} && rest == end && value >= least && value <= greatest;
    };
    return text(std::move(name), false, accepts,
                "must be a number from " + std::to_string(least) + " to " + std::to_string(greatest));
}

ConfigField choice(std::string name, const std::vector<std::string>& choices) {
    std::string otherwise = "must be one of";
    for (const std::string& one : choices) otherwise += " " + one;
    const auto accepts = [=](const std::string& chosen) {
        return std::find(choices.begin(), choices.end(), chosen) != choices.end();
    };
    return text(std::move(name), false, accepts, std::move(otherwise));
}

ConfigField address(std::string name, bool isRequired) {
    const auto accepts = [](const std::string& dotted) {
        in_addr parsed{};
        return inet_pton(AF_INET, dotted.c_str(), &parsed) == 1;
    };
    return text(std::move(name), isRequired, accepts, "must be an IPv4 address");
}

ConfigField anyText(std::string name, bool isRequired) {
    return text(
        std::move(name), isRequired, [](const std::string& any) { return !any.empty(); },
        "must not be empty");
}

ConfigField listOf(ConfigField field) {
    field.isList = true;
    return field;
}

ConfigField reference(std::string name, std::string type) {
    ConfigField field = anyText(std::move(name), false);
    field.refersTo = std::move(type);
    return field;
}

}  // namespace

const std::vector<ConfigType>& configTypes() {
    static const std::vector<ConfigType> types{
        {"EthernetInterface",
         "",
         false,
         {address("address", true), number("prefixLength", 0, 32), number("mtu", 576, 9000),
          listOf(address("nameServers", false))}},
        {"VirtualAddress", "EthernetInterface", false, {address("address", true)}},
        {"UserGroup",
         "",
         false,
         {choice("role", {"administrator", "operator", "viewer"}), anyText("description", false),
          listOf(anyText("members", false))}},
        {"LogTarget",
         "",
         false,
         {anyText("host", true), number("port", 1, 65535), choice("protocol", {"udp", "tcp"}),
          reference("interface", "EthernetInterface")}},
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
