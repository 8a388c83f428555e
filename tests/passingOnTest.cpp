// What native methods pass on: their arguments to an operation, in order, and its answer to Java.
#include <climits>
#include <cstring>

#include "support/bridgeTest.h"

using namespace talvern;
using namespace std::string_literals;

namespace {

template <typename Value>
std::string asText(Value value) {
    if constexpr (std::is_convertible_v<Value, const void*>) {
        if (value == nullptr) return "null";
    }
    if constexpr (std::is_convertible_v<Value, std::string>) {
        return value;
    } else if constexpr (requires { value.pairs; }) {
        return testing::PrintToString(value.pairs);
    } else {
        return testing::PrintToString(value);
    }
}

std::string asText(const config::Value* value) { return dynamic_cast<const config::SimpleValue&>(*value).value; }

class PassingOnTest : public BridgeTest {
  protected:
    /// What the operation answers, and what is seen of it in Java.
    template <typename Answer>
    using Answers = std::vector<std::pair<Answer, std::string>>;

    /// The operation gets `received` for the Java arguments `given`.
    template <auto Operation, typename Answer, typename... Given, typename... Received>
    void passes(
        const std::string& native, const Answers<Answer>& answers, const std::tuple<Given...>& given,
        const Received&... received) {
        for (const auto& [answer, seen] : answers) {
            SCOPED_TRACE(native);
            Texts arrived;
            using Result = typename std::function<platform::Signature<Operation>>::result_type;
            platform::answer<Operation>([&, answer = answer](const auto&... arguments) -> Result {
                arrived = {asText(arguments)...};
                if constexpr (std::is_void_v<Result>) {
                    static_cast<void>(answer);
                } else {
                    return answer;
                }
            });
            const auto askIt = [&](const auto&... arguments) { return ask(native, arguments...); };
            EXPECT_EQ(std::apply(askIt, given), seen);
            EXPECT_EQ(arrived, Texts{asText(received)...});
            EXPECT_EQ(platform::operationCount(), 1U);
            platform::forgetMocks();
        }
    }

    /// The operation gets what Java gives.
    template <auto Operation, typename Answer, typename... Arguments>
    void passesOn(const std::string& native, const Answers<Answer>& answers, const Arguments&... arguments) {
        passes<Operation>(native, answers, std::tuple{arguments...}, arguments...);
    }

    const Answers<std::int32_t> number{{0, "0"}, {5, "5"}, {INT_MIN, "-2147483648"}};
    const Answers<std::int32_t> isZero{{0, "true"}, {5, "false"}, {-1, "false"}};
    const Answers<std::int32_t> dropped{{5, ""}};  ///< also of an operation that returns nothing
    const Answers<bool> flag{{true, "true"}, {false, "false"}};
    const Answers<std::string> text{{"", ""}, {"x-42", "x-42"}, {"\0x"s, ""}};
    const Answers<std::string> textOrNull{{"", "null"}, {"x-42", "x-42"}, {"\0x"s, ""}};
    const Answers<Texts> list{{{}, "[]"}, {{"b", "", "a", "b"}, "[b, , a, b]"}};
};

TEST_F(PassingOnTest, TheAppliance) {
    passesOn<&applianceUtils::getSerialNumber>("_getSerialNumber", textOrNull);
    passesOn<&applianceUtils::getMachineType>("_getMachineType", textOrNull);
    passesOn<&applianceUtils::getMTM>("_getMTM", textOrNull);
    passesOn<&applianceUtils::isAppliance>("_isAppliance", flag);
    passesOn<&applianceUtils::getCPUCount>("_getCPUCount", number);
    passesOn<&applianceUtils::getLocale>("_getLocale", text);
    passesOn<&applianceUtils::setLocale>("_setLocale", flag, "A", "B");
    passesOn<&applianceUtils::setLocale>("_setLocale", flag, "A", jstring{});
    passesOn<&applianceUtils::setDefaultLocale>("_setDefaultLocale", flag, "A");
    passesOn<&applianceUtils::getDateTime>("_getDateTime", list);
    passesOn<&applianceUtils::getTimezone>("_getConfiguredTimeZone", text);
    passesOn<&applianceUtils::setTimezone>("_setConfiguredTimeZone", flag, "A");
    passesOn<&applianceUtils::getTimezones>("_getTimeZones", list);
    passesOn<&applianceUtils::syncNTPServer>("_syncNTPServer", flag, "A");
    passesOn<&applianceUtils::areHostSSHKeysStrong>("_areHostSSHKeysStrong", flag);
    passesOn<&applianceUtils::resetHostSSHKeys>("_resetHostSSHKeys", number);
    passesOn<&applianceUtils::triggerException>("_triggerException", dropped, "A");
    passes<&diagnosticUtils::pingHost>("_pingHost", flag, std::tuple{"A"}, "A", "");
    const Answers<std::int32_t> states{{0, "3"}, {1, "1"}, {2, "2"}, {3, "3"}, {4, "3"}, {-1, "3"}};
    passesOn<&diagnosticUtils::networkReady>("_networkReady", states);
}

TEST_F(PassingOnTest, TheNetwork) {
    passesOn<&nodeName::init>("_initNodeName", number);
    passesOn<&nodeName::get>("_getNodeName", text);
    passesOn<&nodeName::set>("_setNodeName", isZero, "A");
    passes<&nameServers::getNameServers>("_getNameServers", list, std::tuple{}, nullptr);
    passesOn<&nameServers::getSearchDomains>("_getSearchDomains", list);
    passes<&timeServers::getTimeServers>("_getTimeServers", list, std::tuple{}, nullptr);
    passesOn<&hostsUtils::getHostnames>("_getHostnames", list, "A");
    passesOn<&hostsUtils::deleteHostnames>("_deleteHostnames", flag, "A");
    for (const Texts& servers : {Texts{}, Texts{"B", "", "C", "B"}}) {
        passesOn<&nameServers::setSearchDomains>("_setSearchDomains", isZero, servers);
        passes<&timeServers::setTimeServers>("_setTimeServers", isZero, std::tuple{servers}, servers, nullptr);
        passesOn<&hostsUtils::setHostnames>("_setHostnames", flag, "A", servers);
    }
    passesOn<&ethernetInterfaces::addVIPToInterface>("_addVIPToInterface", number, "A", "B");
    passesOn<&ethernetInterfaces::removeVIPFromInterface>("_removeVIPFromInterface", number, "A", "B");
    passesOn<&ethernetInterfaces::addVIPToLoopback>("_addVIPToLoopback", number, "A");
    passesOn<&ethernetInterfaces::removeVIPFromLoopback>("_removeVIPFromLoopback", number, "A");
    passesOn<&ethernetInterfaces::setHWAddressImmediate>("_setHWAddressImmediate", number, "A", "B");
    passesOn<&ethernetInterfaces::resetHWAddressImmediate>("_resetHWAddressImmediate", number, "A");
    passesOn<&ethernetInterfaces::clearInterface>("_clearEthernetInterface", number, "A");
    const std::map<std::string, std::string> theLastOfEachKey{{"a", "3"}, {"b", "2"}}, no;
    passes<&ethernetInterfaces::setInterface>(
        "_setEthernetInterface", number, std::tuple{Texts{"a", "b", "a"}, Texts{"1", "2", "3"}}, theLastOfEachKey);
    passes<&ethernetInterfaces::setInterface>("_setEthernetInterface", number, std::tuple{Texts{}, Texts{}}, no);
    const Answers<Texts*> names{{new Texts{"lo", "eth0"}, "[lo, eth0]"}, {nullptr, "[]"}};
    passesOn<&ethernetInterfaces::getInterfaceNames>("_getInterfaceNames", names);

    types::KeyValPair eth0{{{"mtu", "1500"}, {"name", "eth0"}}}, eth1{{{"name", "eth1"}}};
    const Answers<types::KeyValPair*> attributes{{&eth0, "{name=eth0, mtu=1500}"}, {nullptr, "null"}};
    passesOn<&ethernetInterfaces::getInterface>("_getEthernetInterface", attributes, "A");
    types::InterfaceStatus enabled, up;
    enabled.isEnabled = up.isUp = true;
    std::memset(up.unread, 0xFF, sizeof up.unread);
    std::memset(up.alsoUnread, 0xFF, sizeof up.alsoUnread);
    up.details = {&eth1, &eth0, &eth1};
    const Answers<types::InterfaceStatus*> states{
        {&enabled, "A enabled down []"},
        {&up, "A disabled up [{name=eth1}, {name=eth0, mtu=1500}, {name=eth1}]"},
        {nullptr, "null"}};
    passesOn<&ethernetInterfaces::getInterfaceStatus>("_getEthernetInterfaceStatus", states, "A");
    passesOn<&ethernetInterfaces::getAggregateStatus>("_getAggregateStatus", states, "A");
    passesOn<&ethernetInterfaces::getVLANStatus>("_getVLANStatus", states, "A");
}

TEST_F(PassingOnTest, TheHardware) {
    using statusUtils::ServiceStatus;
    passesOn<&statusUtils::getUptime>("_getUptime", Answers<std::int64_t>{{0x123456789A, "78187493530"}, {-2, "-2"}});
    passesOn<&statusUtils::clearIntrusionStatus>("_clearIntrusionStatus", number);
    passesOn<&statusUtils::batteryReplaced>("_batteryReplaced", flag);
    passes<&statusUtils::isServiceReady>("_isServiceReady", flag, std::tuple{-9}, ServiceStatus{-9}, 0);
    passes<&statusUtils::isNetServiceReady>("_isNetServiceReady", flag, std::tuple{9}, ServiceStatus{9}, 0);
    for (const jboolean on : std::vector<jboolean>{0, 1, 128}) {  // any byte but zero is true
        passes<&statusUtils::setLocateLED>("_setLocateLED", dropped, std::tuple{on}, on != 0);
    }
}

TEST_F(PassingOnTest, ProcessesAndFirmware) {
    using processManagerUtils::PlatformLogLevel;
    passesOn<&processManagerUtils::getPlatformTraceMask>(
        "_getPlatformTraceMask", Answers<std::uint32_t>{{0x80000001, "-2147483647"}});
    passes<&processManagerUtils::setPlatformLogLevel>(
        "_setPlatformLogLevel", isZero, std::tuple{11}, PlatformLogLevel{11});
    passes<&processManagerUtils::distributeLogging>("_distributeLogging", dropped, std::tuple{-1, 5}, 4294967295U, 5);
    passesOn<&processManagerUtils::requestReboot>("_requestReboot", number);
    passesOn<&processManagerUtils::requestShutdown>("_requestShutdown", number);
    passesOn<&processManagerUtils::signalApplicationIsUnhealthy>("_signalProcessIsUnhealthy", isZero, "A");
    passes<&processManagerUtils::signalIAmReady>("_signalProcessIsReady", isZero, std::tuple{"A"}, "A", false);
    passesOn<&log::init>("_initLogging", dropped, "A");
    passesOn<&firmwareManagerUtils::rollback>(
        "_rollbackFirmware", Answers<std::int32_t>{{0, "0"}, {1, "1"}, {5, "1"}, {-1, "1"}});
    passesOn<&firmwareManagerUtils::deletePrevious>("_deletePreviousFirmware", number);
    passesOn<&firmwareManagerUtils::reflash>("_reflashFirmware", number, "A");
    passesOn<&firmwareManagerUtils::isReleaseKeyed>("_isReleaseKeyed", flag);
}

TEST_F(PassingOnTest, UsersCapturesAndServices) {
    constexpr auto password = userManagerUtils::loginType::password;
    static_assert(static_cast<int>(password) == 0);
    passesOn<&userManagerUtils::listUsers>("_listUsers", list);
    passesOn<&userManagerUtils::addUser>("_addUser", number, "A", "B");
    passesOn<&userManagerUtils::sshKeyAdd>("_sshKeyAdd", number, "A", "B");
    passesOn<&userManagerUtils::deleteUser>("_deleteUser", number, "A");
    passesOn<&userManagerUtils::sshKeyDel>("_sshKeyDel", number, "A");
    passes<&userManagerUtils::login>("_authenticateUser", flag, std::tuple{"A", "B"}, password, "A", "B");
    passes<&userManagerUtils::changePasswd>("_changePassword", flag, std::tuple{"A", "B"}, password, "A", "B");
    using namespace packetCapture;
    const Answers<InterfaceState> start{{capturing, "CAPTURING"}};
    passes<&sStartPacketCapture>(
        "_startPacketCapture", start, std::tuple{"A", "B", "C", 1, 2, 3, 4}, "A", "B", "C", 1, 2, 3, 4, false);
    passes<&sStartPacketCapture>(
        "_startPacketCapture", start, std::tuple{"", "", "", -1, INT_MAX, 0, 0}, "", "", "", 4294967295U, INT_MAX, 0, 0,
        false);
    const CaptureInfo info{"T", finished, {"Y", "X"}};
    passesOn<&sGetCaptureInfo>("_getCaptureInfo", Answers<CaptureInfo>{{info, "T: FINISHED, files [Y, X]"}}, "A");
    passesOn<&sStopPacketCapture>("_stopPacketCapture", number, "A");
    passesOn<&sRemoveCapture>("_removeCapture", number, "A");
    passesOn<&sGetAllCapturedInterfaces>("_getAllCapturedInterfaces", list);
    passesOn<&snmpUtils::startSNMP>("_startSNMP", flag);
    passesOn<&snmpUtils::stopSNMP>("_stopSNMP", flag);
    passesOn<&snmpUtils::restartSNMP>("_restartSNMP", flag);
    passesOn<&servicesUtils::startTest>("_startTest", number, "grüß", -7);
    passesOn<&servicesUtils::stopTest>("_stopTest", number, "A");
    passesOn<&servicesUtils::performTest>("_performTest", dropped, "A", 7);
}

TEST_F(PassingOnTest, TheConfiguration) {
    using config::Service;
    using Code = Service::ReturnCode;
    const Answers<Code> codes{{Code::OK, "OK"}, {Code::NULL_VALUE, "NULL_VALUE"}};
    jobject value = newObject("com/kvo/talvern/config/SimpleValue", "(Ljava/lang/String;Z)V", javaString("D"), false);
    passes<&Service::createObject>(
        "_createObject", codes, std::tuple{"A", "B", "C", value, 2, true}, "A", "B", "C", "D", Service::AdminState{2},
        true);
    passes<&Service::updateObject>(
        "_updateObject", codes, std::tuple{"A", "B", "C", value, false}, "A", "B", "C", "D", false);
    passes<&Service::validateObject>("_validateObject", codes, std::tuple{"A", value}, "A", "D");
    passesOn<&Service::deleteObject>("_deleteObject", codes, "A", "B", "C");
    passes<&Service::deleteObject>("_deleteObject", codes, std::tuple{"A", jstring{}, "C"}, "A", "", "C");
    passesOn<&Service::resetObject>("_resetObject", codes, "A", "B", "C");
    passesOn<&Service::getObjectTypes>("_getObjectTypes", list);
    jobject four = newObject("com/kvo/talvern/testing/Numbered");  // at another place of its enum
    passes<&Service::setOpState>(
        "_setOpState", codes, std::tuple{"A", "B", "C", four}, "A", "B", "C", Service::OpState{4});
    passes<&Service::setAdminState>(
        "_setAdminState", codes, std::tuple{"A", "B", "C", four}, "A", "B", "C", Service::AdminState{4});
}

TEST_F(PassingOnTest, NumbersOfConstants) {
    const Texts levels{"EMERGENCY", "ALERT", "CRITICAL", "ERROR", "WARNING", "NOTICE", "INFO", "DEBUG"};
    const Texts states{"NO_CAPTURE",        "CAPTURING",         "STOPPED", "FINISHED",
                       "ALREADY_CAPTURING", "UNKNOWN_INTERFACE", "FAILED",  "INVALID_ARGUMENTS"};
    int answered = 0;  // the platform's answer
    platform::answer<&processManagerUtils::getPlatformLogLevel>([&](auto& level) {
        level = processManagerUtils::PlatformLogLevel{answered};
        return 0;
    });
    using packetCapture::InterfaceState;
    platform::answer<&packetCapture::sStartPacketCapture>([&](auto&&...) { return InterfaceState{answered}; });
    platform::answer<&packetCapture::sGetCaptureInfo>([&](auto&&...) {
        return packetCapture::CaptureInfo{"eth0", InterfaceState{answered}, {}};
    });
    platform::answer<&statusUtils::getIntrusionStatus>([&] { return answered; });

    const auto expectConstants = [&](const Texts& constants, int first, const char* native, const auto&... arguments) {
        SCOPED_TRACE(native);
        answered = first;
        for (const std::string& constant : constants) {
            EXPECT_THAT(ask(native, arguments...), testing::HasSubstr(constant)) << answered;
            ++answered;
        }
        for (const int unknown : {answered, first - 1, INT_MIN, INT_MAX}) {
            answered = unknown;
            EXPECT_EQ(ask(native, arguments...), "null") << answered;
            EXPECT_THAT(takeThrown(), testing::StartsWith("java.lang.ArrayIndexOutOfBoundsException: "));
        }
    };
    expectConstants(levels, 0, "_getPlatformLogLevel");
    expectConstants(states, 0, "_startPacketCapture", "eth0", "file", "", 0, 0, 0, 0);
    expectConstants(states, 0, "_getCaptureInfo", "eth0");
    expectConstants({"UNKNOWN", "INTACT", "OPENED"}, -1, "_getIntrusionStatus");
}

TEST_F(PassingOnTest, NoLevelThatCannotBeRead) {
    for (const int status : {1, -1}) {
        platform::answer<&processManagerUtils::getPlatformLogLevel>([&](auto&) { return status; });
        EXPECT_EQ(ask("_getPlatformLogLevel"), "null");
        EXPECT_EQ(takeThrown(), "com.kvo.talvern.TalvernException: Unknown native exception");
    }
}

TEST_F(PassingOnTest, NoCaptureWithANegativeLimit) {
    for (const auto& [bytes, seconds, packets] : {std::tuple{-1, 0, 0}, {0, -1, 0}, {0, 0, -1}}) {
        EXPECT_EQ(ask("_startPacketCapture", "A", "B", "C", 0, bytes, seconds, packets), "INVALID_ARGUMENTS");
    }
    EXPECT_EQ(platform::operationCount(), 0U);
}

}  // namespace
