// The appliance that is kept in a file. With TALVERN_TEST_SCALE in the environment, the tests that repeat
// something do so that many times as often.
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <iterator>
#include <random>
#include <regex>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "wholePlatform.h"

using namespace talvern;
using config::Service;
using config::messaging::ConfigChangeException;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
namespace files = std::filesystem;

namespace {

const char* const file = std::getenv("TALVERN_APPLIANCE");

int scaled(int count) {
    const char* scale = std::getenv("TALVERN_TEST_SCALE");
    return scale == nullptr ? count : count * std::atoi(scale);
}

std::string fileText() {
    if (!files::is_regular_file(files::symlink_status(file))) return "";
    std::ifstream in{file};
    return {std::istreambuf_iterator<char>{in}, {}};
}

/// In place, as editors do.
void writeFile(const std::string& text) { std::ofstream{file} << text; }

/// What the standard exception of `action` says; empty if it throws none.
std::string refusal(const std::function<void()>& action) {
    try {
        action();
        return "";
    } catch (const std::exception& exception) {
        return exception.what();
    }
}

/// Runs `action` in a process of its own.
pid_t start(const std::function<void()>& action) {
    const pid_t process = fork();
    if (process == 0) {
        action();
        _exit(0);
    }
    return process;
}

int statusOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return status;
}

void end(pid_t process) {
    kill(process, SIGKILL);
    statusOf(process);
}

class Kept : public testing::Test {
  public:
    void SetUp() override { files::remove(file); }
};

/// All tests of this program start with a factory-new appliance.
[[maybe_unused]] const bool isNew = file == nullptr || std::remove(file) == 0;

TEST_F(Kept, FileIsItsOwnersAndHoldsNoPassword) {
    const std::string lock = std::string{file} + ".lock";
    const auto expectOwnerAndMode = [&](uid_t owner, mode_t mode) {
        for (const std::string& name : {std::string{file}, lock}) {
            struct stat status {};
            EXPECT_EQ(stat(name.c_str(), &status), 0);
            EXPECT_EQ(status.st_uid, owner) << name;
            EXPECT_EQ(status.st_mode & 0777, mode) << name;
        }
        files::remove(lock);
    };
    files::remove(lock);
    const mode_t usualMask = umask(0777);
    EXPECT_EQ(userManagerUtils::addUser("operator", "correct horse"), 0);
    expectOwnerAndMode(getuid(), 0600);
    chmod(file, 0640);
    const uid_t other = getuid() == 0 ? 65534 : getuid();  // root can give files away
    EXPECT_EQ(chown(file, other, getgid()), 0);
    EXPECT_EQ(nodeName::set("rack-7"), 0);
    umask(usualMask);
    expectOwnerAndMode(other, 0640);
    EXPECT_THAT(fileText(), HasSubstr("{\"name\": \"operator\", \"passwordHash\": \"$"));
    EXPECT_THAT(fileText(), Not(HasSubstr("correct horse")));
}

/// An appliance that uses every member of the file.
std::string richAppliance() {
    writeFile(R"({
        "captures": {"eth0": {"state": "capturing", "files": ["first.pcap"]}},
        "config": [
            {"type": "ApplicationData", "name": "data", "value": {"@mu": "new"}, "initialValue": "old",
             "initialState": "DISABLED", "opState": "PENDING"},
            {"type": "EthernetInterface", "name": "eth1", "value": {"address": "198.51.100.10"}, "isBuiltIn": true},
            {"type": "VirtualAddress", "parent": "eth1", "name": "shared", "value": {"address": "192.0.2.3"}}],
        "faults": [{"operation": "log::init", "outcome": "usual", "text": "t", "delay": 1, "times": 3}],
        "firmware": {
            "previous": {"name": "talvern-1.9.img", "isReleaseKeyed": true},
            "unfinished": {"image": "talvern-2.1.img", "stage": "unpacking", "done": 35}},
        "startedTests": ["database"],
        "users": [{"name": "admin", "passwordHash": "*", "sshKeys": ["ssh-ed25519 AAAA me@home"]}]})");
    ethernetInterfaces::addVIPToInterface("eth1", "10.0.0.91");
    return fileText();
}

/// Also where neither the size of the file nor its time tells that it has been edited in place.
TEST_F(Kept, EachMemberIsWrittenAsItIsRead) {
    const std::string original = richAppliance();
    const auto packed = [](std::string text) {
        std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
        const std::string usual = ",\"isBuiltIn\":false";
        const std::size_t position = text.find(usual);
        return position == std::string::npos ? text : text.erase(position, usual.size());
    };
    const std::regex leaf{R"((true|false|-?[0-9]+|"[^"]*")(?=[,\]}\n]))"};
    int kept = 0;
    int refused = 0;
    for (std::sregex_iterator found{original.begin(), original.end(), leaf}, end; found != end; ++found) {
        std::string value = found->str();
        if (value == "true" || value == "false") {
            value = value == "true" ? "false" : "true";
        } else {
            value = value.front() == '"' ? value.insert(1, "1") : std::to_string(std::stoll(value) + 1);
        }
        std::string changed = original;
        changed.replace(static_cast<std::size_t>(found->position()), found->str().size(), value);
        writeFile(changed);
        const std::string problem = refusal([] {
            servicesUtils::startTest("storage", 1);
            servicesUtils::stopTest("storage");
        });
        ++(problem.empty() ? kept : refused);
        ASSERT_EQ(packed(fileText()), packed(changed)) << "after a change of " << found->str() << problem;
    }
    EXPECT_GT(kept, 200);
    EXPECT_LT(refused, 60);  // names of constants, addresses
}

TEST_F(Kept, ValuesKeepFlagsKeysAndEveryCharacter) {
    auto list = std::make_unique<config::ArrayValue>(true);
    list->add(nullptr);
    list->add(std::make_unique<config::SimpleValue>("\xED\xA0\xBD\xED\xB8\x80 \xC0\x80 \xC3\xA4 \x01\"\\\n", true));
    config::StructValue value{true};
    value.put("@mu", std::move(list));
    value.put("", std::make_unique<config::StructValue>(true));
    std::unique_ptr<config::Value> deep;
    for (int level = 2; level < 1000; ++level) {
        auto parent = std::make_unique<config::ArrayValue>(true);
        parent->add(std::move(deep));
        deep = std::move(parent);
    }
    value.put("deep", std::move(deep));
    EXPECT_EQ(
        Service::createObject("ApplicationData", "", "data", &value, Service::AdminState::ENABLED, false),
        Service::ReturnCode::OK);
    EXPECT_THAT(fileText(), HasSubstr("\xF0\x9F\x98\x80 \\u0000 \xC3\xA4"));
    writeFile(fileText() + " ");
    config::Value* found = nullptr;
    Service::queryObject("ApplicationData", "", "data", &found);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->asXML(), value.asXML());

    for (const char* text : {"\xED\xA0\xBD", "\xED\xB8\x80", "\xF0\x9F\x98\x80", "\xE2\x82", "\x80"}) {
        const std::string before = fileText();
        const config::SimpleValue broken{text, false};
        EXPECT_THAT(
            refusal([&] { Service::updateObject("ApplicationData", "", "data", &broken, false); }),
            HasSubstr("config: a text is not Unicode"));
        EXPECT_EQ(fileText(), before);
    }
}

/// Nothing reads or changes the file, and all that asks for it learns this problem.
void expectRefused(const std::string& problem) {
    const std::string before = fileText();
    for (const std::string& refused :
         {refusal([] { nodeName::get(); }), refusal([] { nodeName::set("rack-8"); }),
          refusal([] { applianceUtils::isAppliance(); }), refusal([] { log::init("test"); })}) {
        EXPECT_THAT(refused, testing::StartsWith(file));
        EXPECT_THAT(refused, HasSubstr(problem));
    }
    EXPECT_EQ(fileText(), before);
}

TEST_F(Kept, TextThatIsNoApplianceIsRefusedAndStaysAsItIs) {
    const std::string tooDeep = std::string(1001, '[') + std::string(1001, ']');
    const std::pair<std::string, const char*> cases[] = {
        {"", ":1: syntax error while parsing"},
        {"[]", ":1: must be an object"},
        {"{\n\"nodeName\": \"a\",\n}", ":3: syntax error while parsing object key"},
        {"{} {}", ":1: syntax error while parsing"},
        {"{\"nodeName\": \"\xF0\x9F\x98\x80\xFF\"}",
         "invalid string: ill-formed UTF-8 byte; last read: '\"\xED\xA0\xBD\xED\xB8\x80?'"},
        {"{\"nodeName\": \"a\",\n\"snmp\": {},\n\"nodeName\": \"b\"}", ":3: there are two members nodeName"},
        {std::string(100'000, '['), ":1: is nested too deeply"},
        {"{\n\n\"nodeNames\": \"a\"}", ":3: nodeNames: is not known here; known are captures, "},
        {"{\"hardware\": {\"fans\": [{},\n{\"sped\": 1}]}}",
         ":2: hardware.fans[1].sped: is not known here; known are name, reading, speed, minimumSpeed, isOk"},
        {"{\"hardware\": {\"fans\": [{\"speed\":\n2147483648\n}]}}",
         ":2: hardware.fans[0].speed: must be a whole number from -2147483648 to 2147483647"},
        {R"({"hardware": {"disks": [{"revision": "123456"}]}})",
         "hardware.disks[0].revision: must have at most 5 bytes"},
        {R"({"hardware": {"intrusion": 7}})", ":1: hardware: intrusion: must be 1, 0 or -1"},
        {R"({"inventory": {"components": [{"component": 2147483647}]}})",
         ":1: inventory.components[0]: component: must be below 1000000"},
        {R"({"config": [{"type": "ApplicationData", "name": "a", "value":)" + tooDeep + "}]}",
         ":1: config[0].value: is nested too deeply"},
        {R"({"logging": {"level": "loud"}})", ":1: logging.level: must be one of emergency, alert"},
        {R"({"hosts": {"db": []}})", ":1: hosts.db: is no address"},
        {R"({"users": [{}]})", ":1: users[0]: name: is missing"},
        {R"({"interfaces": {"a": {"type": "vlan", "configuration": {"parent": "a"}}}})",
         ":1: interfaces.a: configuration: parent must not be a"},
        {R"({"config": [{"type": "Nothing", "name": "a", "value": ""}]})",
         ":1: config[0]: type: is missing or not known"},
        {R"({"config": [{"type": "ApplicationData", "name": "a", "value": 1}]})",
         ":1: config[0].value: must be a text, a list, an object or null"},
        {R"({"config": [{"type": "LogTarget", "name": "a", "value": {"host": "h", "interface": "x"}}]})",
         ":1: config[0]: interface: there is no EthernetInterface x"},
        {R"({"faults": [{"operation": "nodeName::gets"}]})", ":1: faults[0]: operation: there is no nodeName::gets"},
    };
    for (const auto& [text, problem] : cases) {
        writeFile(text);
        expectRefused(problem);
    }
}

TEST_F(Kept, FileThatCannotBeReadOrWrittenIsRefusedAndStaysAsItIs) {
    nodeName::get();
    chmod(file, S_IRUSR);
    expectRefused(": is read-only");
    chmod(file, S_IRUSR | S_IWUSR);
    files::resize_file(file, 100'000'000);
    expectRefused(": is too large");
    files::remove(file);
    files::create_directory(file);
    expectRefused(": is no regular file");
    files::remove(file);
    files::create_symlink(file, file);
    expectRefused(": can't be read: Too many levels of symbolic links");
    files::remove(file);
}

TEST_F(Kept, ChangeForWhichThereIsNoRoomLeavesTheFileAsItIs) {
    EXPECT_EQ(nodeName::set("rack-7"), 0);
    const std::string before = fileText();
    const pid_t process = start([] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &limit);
        const std::string refused = refusal([] { nodeName::set("rack-8"); });
        _exit(
            refused == std::string{file} + ": can't be written: File too large" && nodeName::get() == "rack-7" ? 0 : 1);
    });
    EXPECT_EQ(statusOf(process), 0);
    EXPECT_EQ(fileText(), before);
    EXPECT_FALSE(files::exists(std::string{file} + ".new"));
}

std::string addressOf(int process, int number) {
    return "10." + std::to_string(process) + '.' + std::to_string(number / 256) + '.' + std::to_string(number % 256);
}

TEST_F(Kept, NoChangeOfTwoProcessesIsLost) {
    writeFile(R"({"faults": [{"operation": "hostsUtils::setHostnames", "outcome": "failure", "times": 60}]})");
    const int changes = scaled(150);
    const auto change = [=](int process) {
        return start([=] {
            int failures = 0;
            for (int i = 0; i < changes; ++i) {
                while (!hostsUtils::setHostnames(addressOf(process, i), {"host"})) ++failures;
            }
            _exit(failures);
        });
    };
    const pid_t one = change(1);
    const pid_t other = change(2);
    const int status = statusOf(one);
    const int otherStatus = statusOf(other);
    EXPECT_TRUE(WIFEXITED(status) && WIFEXITED(otherStatus));
    EXPECT_EQ(WEXITSTATUS(status) + WEXITSTATUS(otherStatus), 60);
    EXPECT_EQ(hostsUtils::getAddresses().size(), 2U + 2U * static_cast<unsigned>(changes));
}

TEST_F(Kept, KilledProcessLeavesAWholeFileWithEachAcknowledgedChange) {
    std::mt19937 random{42};
    int acknowledgedByAll = 0;
    for (int round = 0; round < scaled(30); ++round) {
        if (round % 10 == 0) files::remove(file);  // its creation is interrupted, too
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t process = start([&] {
            for (int i = 0;; ++i) {
                hostsUtils::setHostnames(addressOf(round % 256, i), {"host"});
                if (write(ends[1], &i, sizeof i) != sizeof i) _exit(1);
            }
        });
        close(ends[1]);
        std::vector<std::string> acknowledged;
        const auto readOne = [&] {
            int i = 0;
            const bool isThere = read(ends[0], &i, sizeof i) == sizeof i;
            if (isThere) acknowledged.push_back(addressOf(round % 256, i));
            return isThere;
        };
        for (auto wanted = random() % 10; wanted > 0; --wanted) readOne();
        std::this_thread::sleep_for(std::chrono::microseconds{random() % 2'000});
        end(process);
        while (readOne()) {
        }
        close(ends[0]);
        acknowledgedByAll += static_cast<int>(acknowledged.size());
        ASSERT_THAT(hostsUtils::getAddresses(), IsSupersetOf(acknowledged)) << "round " << round;
    }
    EXPECT_GT(acknowledgedByAll, scaled(60));
}

/// What the appliance, which has read other texts of its file, makes of one: its own, or why it is refused. After an
/// empty one it knows nothing.
std::string madeOf(const std::string& text, const std::vector<std::string>& known = {""}) {
    for (const std::string& read : known) {
        writeFile(read);
        refusal([] { nodeName::get(); });
    }
    writeFile(text);
    const std::string problem = refusal([] {
        snmpUtils::restartSNMP();
        Service::resetObject("UserGroup", "", "none");
    });
    return problem.empty() ? fileText() : problem;
}

TEST_F(Kept, ListInWhichSomebodyChangesObjectsIsReadAsIfItWereNew) {
    const auto edited = [](const std::string& text, const std::string& from, const std::string& to) {
        return std::regex_replace(text, std::regex{from}, to, std::regex_constants::format_first_only);
    };
    const std::string flat = madeOf(R"({"config": [
        {"type": "ApplicationData", "name": "1", "value": "a"}, {"type": "ApplicationData", "name": "2", "value": "a"},
        {"type": "EthernetInterface", "name": "bond", "value": {"address": "10.0.0.1"}},
        {"type": "LogTarget", "name": "log", "value": {"host": "h"}},
        {"type": "LogTarget", "name": "user", "value": {"host": "h", "interface": "bond"}}]})");
    // What looks like objects of the list, and is the value of one.
    const std::string nested = edited(flat, "[^]*?\\[(\n.*)(\n.*),\n[^]*", "[$1$2]");
    const std::string deep = edited(flat, "(\"2\", \"value\": )\"a\"", "$1" + nested);
    const std::string odd = edited(flat, "(\"1\", \"value\": )\"a\"(.*)\n(.*)\n", "$1" + nested + "$2$3");
    for (const auto& [known, from, to, refusal] :
         std::vector<std::tuple<std::vector<std::string>, std::string, std::string, const char*>>{
             {{flat}, R"(("1", "value": ))", R"($1"b", "initialValue": )", ""},
             {{flat}, ",\n.*\"user\".*", "", ""},
             {{flat}, "(\n.*)\"1\"(.*),([^]*?\"user\".*)", R"($1"1"$2,$3,$1"3"$2)", ""},
             {{flat}, ",\n(.*)\"2\"", R"(, $1"3")", ""},
             {{flat}, "\n.*\"bond\", .*", "", "interface: there is no EthernetInterface bond"},
             {{flat}, R"("bond"\})", R"("x"})", "interface: there is no EthernetInterface x"},
             {{flat}, R"("2")", R"("1")", "there is another one"},
             {{flat}, "\n  \\],", "\n  },", "syntax error"},
             {{deep}, "\"a\"\\},(\n.*\\]\\})", R"("b"},$1)", ""},
             {{flat, deep}, "\"a\"\\},(\n.*\\]\\})", R"("b"},$1)", ""},
             {{odd}, "\"a\"\\},(\n.*\\]\\})", R"("b"},$1)", ""}}) {
        const std::string text = edited(known.back(), from, to);
        const std::string made = madeOf(text, known);
        EXPECT_EQ(made, madeOf(text)) << from << " to " << to;
        EXPECT_EQ(made.starts_with(file), *refusal != '\0') << made;
        EXPECT_THAT(made, HasSubstr(refusal));
    }
}

/// Operations that reckon with the numbers of the file, or follow its names.
void useNumbers() {
    std::vector<statusUtils::CPUUsage> usage;
    std::vector<types::KeyValPair*> interfaces;
    statusUtils::getCPUUsage(usage);
    for (const auto& [number, percent] : usage) EXPECT_TRUE(percent >= 0 && percent <= 100) << percent;
    statusUtils::getUptime();
    applianceUtils::getDateTime();
    ethernetInterfaces::getInterfaces(interfaces);
    for (const auto* interface : interfaces) ethernetInterfaces::getVLANStatus(interface->pairs.at("name"));
    try {
        Service::deleteObject("EthernetInterface", "", "eth1");
    } catch (const ConfigChangeException&) {
    }
}

TEST_F(Kept, DamagedFileIsReadOrRefusedAndNeverMore) {
    const std::string good = richAppliance();
    std::istringstream words{R"(null true {} [] "" -1 0.5 1e999 99999999999999999999 "\ud800" "x" , } ] [[[ "@mu")"};
    std::vector<std::string> tokens{std::string(3000, '['), std::string(1, '\0'), "\xC0\x80"};
    tokens.insert(tokens.end(), std::istream_iterator<std::string>{words}, {});
    const std::vector<std::string> extremes{"2147483647", "-2147483648", "9223372036854775807", "-9223372036854775808"};
    /// Where what matches stands in the good text: position and length.
    const auto placesOf = [&](const char* pattern) {
        const std::regex matching{pattern};
        std::vector<std::pair<std::size_t, std::size_t>> places;
        for (std::sregex_iterator found{good.begin(), good.end(), matching}, end; found != end; ++found) {
            places.emplace_back(found->position(), found->length());
        }
        return places;
    };
    const auto places = placesOf(R"("[^"]*"|true|false|null|-?[0-9]+|[\[\]{},:])");
    const auto numbers = placesOf(R"(-?\b[0-9]+(?=[,\]}\n]))");
    std::mt19937 random{7};
    const auto any = [&](std::size_t count) { return random() % count; };
    int refused = 0;
    const int damages = scaled(200);
    for (int i = 0; i < damages; ++i) {
        std::string text = good;
        const auto [position, length] = places[any(places.size())];
        const auto [otherPosition, otherLength] = places[any(places.size())];
        const auto [number, digits] = numbers[any(numbers.size())];
        switch (any(5)) {
            case 0: text.resize(any(text.size())); break;
            case 1:
                for (auto count = any(20); count > 0; --count) text[any(text.size())] = static_cast<char>(any(256));
                break;
            case 2: {  // a line, the first one too
                const std::size_t begin = position == 0 ? 0 : text.rfind('\n', position - 1) + 1;
                const std::string line = text.substr(begin, text.find('\n', begin) + 1 - begin);
                any(2) == 0 ? text.erase(begin, line.size()) : text.insert(begin, line);
                break;
            }
            case 3:
                text.replace(
                    position, length,
                    any(2) == 0 ? tokens[any(tokens.size())] : good.substr(otherPosition, otherLength));
                break;
            default: text.replace(number, digits, extremes[any(extremes.size())]);
        }
        const std::string made = madeOf(text);
        const bool isRefused = made.starts_with(file);
        EXPECT_EQ(madeOf(text, {good}), made);
        EXPECT_EQ(fileText(), isRefused ? text : made);
        if (!isRefused) {  // what was accepted is accepted again
            writeFile(made + ' ');
            EXPECT_EQ(refusal(useNumbers), "") << text;
        }
        refused += isRefused ? 1 : 0;
    }
    EXPECT_GT(refused, damages / 2);
    EXPECT_LT(refused, damages - damages / 20);
}

TEST_F(Kept, FaultsDecideAboutTheNextCalls) {
    const auto prepare = [](const std::string& faults) { writeFile("{\"faults\": [" + faults + "]}"); };
    prepare(R"({"operation": "nodeName::get", "outcome": "exception", "text": "full", "times": 2},
               {"operation": "nodeName::get", "outcome": "failure", "times": 1},
               {"operation": "nodeName::set", "outcome": "failure"})");
    EXPECT_EQ(refusal([] { nodeName::get(); }), "full");
    EXPECT_EQ(nodeName::set("rack-7"), -1);
    EXPECT_EQ(refusal([] { nodeName::get(); }), "full");
    EXPECT_EQ(nodeName::get(), "");
    EXPECT_EQ(nodeName::get(), "talvern");
    EXPECT_EQ(nodeName::set("rack-7"), -1);
    EXPECT_THAT(fileText(), HasSubstr("\"faults\": [{\"operation\": \"nodeName::set\", \"outcome\": \"failure\""));

    prepare(R"({"operation": "config::Service::deleteObject", "outcome": "failure"},
               {"operation": "packetCapture::sGetCaptureInfo", "outcome": "failure"},
               {"operation": "ethernetInterfaces::getInterface", "outcome": "failure"},
               {"operation": "statusUtils::getUptime", "delay": 20})");
    EXPECT_EQ(Service::deleteObject("", "", ""), Service::ReturnCode::FAILED);
    EXPECT_EQ(packetCapture::sGetCaptureInfo("eth0").state, packetCapture::failed);
    EXPECT_EQ(ethernetInterfaces::getInterface("eth0"), nullptr);
    const auto before = std::chrono::steady_clock::now();
    EXPECT_GT(statusUtils::getUptime(), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::milliseconds{20});
}

std::string installed() {
    std::vector<applianceUtils::ComponentFirmware> components;
    applianceUtils::getComponentInfo(components);
    std::string texts;
    for (std::size_t i = 4; i < components.size(); ++i) texts += components[i].firmware + '\n';
    return texts;
}

/// What is installed, as soon as that has the part; what it is after some time at the latest.
std::string installedOnce(const std::string& part) {
    for (int i = 0; i < 1000 && installed().find(part) == std::string::npos; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    return installed();
}

TEST_F(Kept, UpgradeThatDiesIsShownAndGoneBackFromByAnotherProcess) {
    using namespace firmwareManagerUtils;
    constexpr int busy = 5;
    const auto startUpgrade = [] {
        return start([] {
            upgrade("talvern-2.1.img", false, true, nullptr);
            std::this_thread::sleep_for(std::chrono::minutes{1});
        });
    };
    const char* const incomplete = "firmware talvern-2.0.img\nfirmware talvern-2.1.img, incomplete: ";
    pid_t process = startUpgrade();
    EXPECT_THAT(installedOnce("unpacking"), HasSubstr(incomplete));
    EXPECT_EQ(upgrade("talvern-2.2-beta.img", true, true, nullptr), busy);
    EXPECT_EQ(rollback(), busy);
    EXPECT_EQ(reflash("talvern-2.0.img"), busy);
    end(process);
    EXPECT_THAT(installed(), HasSubstr(incomplete));

    process = startUpgrade();
    EXPECT_EQ(installedOnce("firmware talvern-2.1.img\n"), "firmware talvern-2.1.img\n");
    end(process);
    EXPECT_EQ(rollback(), 0);
    EXPECT_EQ(installed(), "firmware talvern-2.0.img\n");
}

}  // namespace
