#include <gmock/gmock.h>

#include "platform/configService.h"

using namespace talvern::config;
using messaging::ConfigChangeException;
using testing::ElementsAre;
using Code = Service::ReturnCode;
using AdminState = Service::AdminState;

namespace {

using Members = std::map<std::string, std::string>;

std::unique_ptr<StructValue> valueOf(const Members& members) {
    auto value = std::make_unique<StructValue>(false);
    for (const auto& [key, text] : members) value->put(key, std::make_unique<SimpleValue>(text, false));
    return value;
}

Code create(const char* type, const char* parent, const char* name, const Members& members) {
    return Service::createObject(type, parent, name, valueOf(members).get(), AdminState::ENABLED, false);
}

std::string queried() {
    Value* value = nullptr;
    Service::queryObject("LogTarget", "", "main", &value);
    return value == nullptr ? "null" : value->asXML();
}

TEST(ConfigService, CreatesChangesResetsAndDeletes) {
    const std::string created = "<struct>\n  <text key=\"host\">log-1</text>\n";
    EXPECT_EQ(create("LogTarget", "", "main", {{"host", "log-1"}}), Code::OK);
    EXPECT_EQ(Service::updateObject("LogTarget", "", "main", valueOf({{"port", "514"}}).get(), true), Code::OK);
    EXPECT_EQ(queried(), created + "  <text key=\"port\">514</text>\n</struct>\n");
    EXPECT_EQ(Service::resetObject("LogTarget", "", "main"), Code::OK);
    EXPECT_EQ(queried(), created + "</struct>\n");
    EXPECT_EQ(Service::deleteObject("LogTarget", "", "main"), Code::OK);
    EXPECT_EQ(queried(), "null");
}

TEST(ConfigService, KeepsWhatOthersUse) {
    EXPECT_EQ(Service::deleteObject("EthernetInterface", "", "eth0"), Code::NOT_PERMITTED);
    EXPECT_EQ(create("VirtualAddress", "eth2", "shared", {{"address", "192.0.2.3"}}), Code::NOT_FOUND);
    ASSERT_EQ(create("EthernetInterface", "", "eth2", {{"address", "192.0.2.2"}}), Code::OK);
    ASSERT_EQ(create("VirtualAddress", "eth2", "shared", {{"address", "192.0.2.3"}}), Code::OK);
    ASSERT_EQ(create("LogTarget", "", "far", {{"host", "log"}, {"interface", "eth2"}}), Code::OK);
    try {
        Service::deleteObject("EthernetInterface", "", "eth2");
        FAIL() << "deleted";
    } catch (const ConfigChangeException& exception) {
        EXPECT_STREQ(exception.what(), "EthernetInterface eth2 is in use");
        EXPECT_THAT(exception.texts, ElementsAre("LogTarget far", "VirtualAddress shared"));
    }
    EXPECT_THROW(Service::setAdminState("EthernetInterface", "", "eth2", AdminState::DISABLED), ConfigChangeException);
    EXPECT_EQ(Service::deleteObject("LogTarget", "", "far"), Code::OK);
    EXPECT_EQ(Service::deleteObject("VirtualAddress", "eth2", "shared"), Code::OK);
    EXPECT_EQ(Service::setAdminState("EthernetInterface", "", "eth2", AdminState::DISABLED), Code::OK);
    EXPECT_EQ(Service::deleteObject("EthernetInterface", "", "eth2"), Code::OK);
}

TEST(ConfigService, WritesXmlThatKeepsSpecialCharactersApart) {
    StructValue value{true};
    auto list = std::make_unique<ArrayValue>(false);
    list->add(nullptr);
    list->add(std::make_unique<SimpleValue>("a < b & c", true));
    value.put("\"quoted\"", std::move(list));
    EXPECT_EQ(
        value.asXML(),
        "<struct mu=\"true\">\n"
        "  <array key=\"&quot;quoted&quot;\">\n"
        "    <null />\n"
        "    <text mu=\"true\">a &lt; b &amp; c</text>\n"
        "  </array>\n"
        "</struct>\n");
}

}  // namespace
