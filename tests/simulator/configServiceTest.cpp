#include <gmock/gmock.h>

#include "platform/configService.h"

using namespace talvern::config;
using messaging::ConfigChangeException;
using messaging::ValidationException;
using testing::Contains;
using testing::ElementsAre;
using testing::IsNull;
using Code = Service::ReturnCode;
using AdminState = Service::AdminState;
using OpState = Service::OpState;

namespace {

std::unique_ptr<StructValue> valueOf(const std::map<std::string, std::string>& members) {
    auto value = std::make_unique<StructValue>(false);
    for (const auto& [key, text] : members) value->put(key, std::make_unique<SimpleValue>(text, false));
    return value;
}

std::string queried(const char* type, const char* parent, const char* name) {
    Value* value = nullptr;
    EXPECT_EQ(Service::queryObject(type, parent, name, &value), Code::OK);
    return value == nullptr ? "null" : value->asXML();
}

Code create(const char* type, const char* parent, const char* name, const Value* value) {
    return Service::createObject(type, parent, name, value, AdminState::ENABLED, false);
}

TEST(ConfigService, CreatesChangesResetsAndDeletes) {
    EXPECT_EQ(create("LogTarget", "", "main", valueOf({{"host", "log-1"}}).get()), Code::OK);
    EXPECT_EQ(create("LogTarget", "", "main", valueOf({{"host", "log-2"}}).get()), Code::ALREADY_EXISTS);
    EXPECT_EQ(Service::updateObject("LogTarget", "", "main", valueOf({{"port", "514"}}).get(), true),
              Code::OK);
    EXPECT_EQ(queried("LogTarget", "", "main"),
              "<struct>\n"
              "  <text key=\"host\">log-1</text>\n"
              "  <text key=\"port\">514</text>\n"
              "</struct>\n");
    EXPECT_EQ(Service::updateObject("LogTarget", "", "main", valueOf({{"host", "log-3"}}).get(), false),
              Code::OK);
    EXPECT_EQ(queried("LogTarget", "", "main"), "<struct>\n  <text key=\"host\">log-3</text>\n</struct>\n");
    EXPECT_EQ(Service::resetObject("LogTarget", "", "main"), Code::OK);
    EXPECT_EQ(queried("LogTarget", "", "main"), "<struct>\n  <text key=\"host\">log-1</text>\n</struct>\n");
    std::vector<std::string> names;
    EXPECT_EQ(Service::getNamesofObject("LogTarget", "", names), Code::OK);
    EXPECT_THAT(names, ElementsAre("main"));
    EXPECT_EQ(Service::deleteObject("LogTarget", "", "main"), Code::OK);
    Value* value = nullptr;
    EXPECT_EQ(Service::queryObject("LogTarget", "", "main", &value), Code::NOT_FOUND);
    EXPECT_THAT(value, IsNull());
}

TEST(ConfigService, NamesTheFieldThatIsWrong) {
    const auto field = [](const char* type, const Value& value) -> std::string {
        try {
            Service::validateObject(type, &value);
            return "none";
        } catch (const ValidationException& exception) {
            return exception.first;
        }
    };
    EXPECT_EQ(field("EthernetInterface", *valueOf({{"address", "192.0.2.1"}, {"mtu", "9000"}})), "none");
    EXPECT_EQ(field("EthernetInterface", *valueOf({{"address", "192.0.2.256"}})), "address");
    EXPECT_EQ(field("EthernetInterface", *valueOf({{"address", "192.0.2.1"}, {"mtu", "9001"}})), "mtu");
    EXPECT_EQ(field("EthernetInterface", *valueOf({{"mtu", "1500"}})), "address");
    EXPECT_EQ(field("EthernetInterface", *valueOf({{"address", "192.0.2.1"}, {"nameServers", ""}})),
              "nameServers");
    EXPECT_EQ(field("UserGroup", *valueOf({{"role", "king"}})), "role");
    EXPECT_EQ(field("UserGroup", *valueOf({{"colour", "red"}})), "colour");
    EXPECT_EQ(field("LogTarget", *valueOf({{"host", "log"}, {"interface", "eth9"}})), "interface");
    EXPECT_EQ(field("LogTarget", SimpleValue{"text", false}), "LogTarget");
    StructValue nullMember{false};
    nullMember.put("host", nullptr);
    EXPECT_EQ(field("LogTarget", nullMember), "host");
}

TEST(ConfigService, RefusesWithACode) {
    const auto target = valueOf({{"host", "log"}});
    EXPECT_EQ(create("Unicorn", "", "a", target.get()), Code::INVALID_TYPE);
    EXPECT_EQ(create("LogTarget", "", "", target.get()), Code::INVALID_NAME);
    EXPECT_EQ(create("LogTarget", "eth0", "a", target.get()), Code::NOT_FOUND);
    EXPECT_EQ(create("VirtualAddress", "eth9", "a", valueOf({{"address", "192.0.2.1"}}).get()),
              Code::NOT_FOUND);
    EXPECT_EQ(create("LogTarget", "", "a", nullptr), Code::NULL_VALUE);
    EXPECT_EQ(Service::deleteObject("EthernetInterface", "", "eth0"), Code::NOT_PERMITTED);
    EXPECT_EQ(Service::setOpState("EthernetInterface", "", "eth0", OpState{7}), Code::FAILED);
    EXPECT_THROW(Service::createObject("LogTarget", "", "a", target.get(), AdminState{7}, false),
                 ValidationException);
}

TEST(ConfigService, KeepsWhatOthersUse) {
    ASSERT_EQ(create("EthernetInterface", "", "eth2", valueOf({{"address", "192.0.2.2"}}).get()), Code::OK);
    ASSERT_EQ(create("VirtualAddress", "eth2", "shared", valueOf({{"address", "192.0.2.3"}}).get()),
              Code::OK);
    ASSERT_EQ(create("LogTarget", "", "far", valueOf({{"host", "log"}, {"interface", "eth2"}}).get()),
              Code::OK);
    try {
        Service::deleteObject("EthernetInterface", "", "eth2");
        FAIL() << "deleted";
    } catch (const ConfigChangeException& exception) {
        EXPECT_STREQ(exception.what(), "EthernetInterface eth2 is in use");
        EXPECT_THAT(exception.texts, ElementsAre("LogTarget far", "VirtualAddress shared"));
    }
    EXPECT_THROW(Service::setAdminState("EthernetInterface", "", "eth2", AdminState::DISABLED),
                 ConfigChangeException);
    EXPECT_EQ(Service::deleteObject("LogTarget", "", "far"), Code::OK);
    EXPECT_EQ(Service::deleteObject("VirtualAddress", "eth2", "shared"), Code::OK);
    EXPECT_EQ(Service::setAdminState("EthernetInterface", "", "eth2", AdminState::DISABLED), Code::OK);
    OpState state{};
    EXPECT_EQ(Service::getOpState("EthernetInterface", "", "eth2", state), Code::OK);
    EXPECT_EQ(state, OpState::DOWN);
    EXPECT_EQ(Service::deleteObject("EthernetInterface", "", "eth2"), Code::OK);
}

TEST(ConfigService, WritesXmlThatKeepsSpecialCharactersApart) {
    StructValue value{true};
    auto list = std::make_unique<ArrayValue>(false);
    list->add(nullptr);
    list->add(std::make_unique<SimpleValue>("a < b & c", true));
    value.put("\"quoted\"", std::move(list));
    EXPECT_EQ(value.asXML(),
              "<struct mu=\"true\">\n"
              "  <array key=\"&quot;quoted&quot;\">\n"
              "    <null />\n"
              "    <text mu=\"true\">a &lt; b &amp; c</text>\n"
              "  </array>\n"
              "</struct>\n");
}

}  // namespace
