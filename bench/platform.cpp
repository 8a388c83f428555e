#include "platform.h"

#include <atomic>
#include <memory>

#include "platform/applianceUtils.h"
#include "platform/configService.h"
#include "platform/ethernetInterfaces.h"
#include "platform/nameServers.h"
#include "platform/nodeName.h"
#include "platform/statusUtils.h"
#include "platform/timeServers.h"

using namespace talvern;
using config::ArrayValue;
using config::Service;
using config::SimpleValue;
using config::StructValue;
using config::Value;

namespace {

struct Data {
    std::vector<std::string> texts;
    types::KeyValPair attributes;
    std::vector<statusUtils::FanStatus> fans;
    std::vector<statusUtils::VolumeStatus> volumes;
    std::unique_ptr<Value> tree;
};
Data data;

// Lists of texts that are ready to be handed out, so that no copy is made while a call is measured.
std::vector<std::vector<std::string>> readyLists;
std::atomic<std::size_t> listsLeft = 0;

bool isRecording = false;
std::string lastReceived;

/// A structure of texts; with itself, `size` values.
std::unique_ptr<Value> makeStruct(std::size_t size) {
    auto structure = std::make_unique<StructValue>(true);
    for (std::size_t i = 1; i < size; ++i) {
        structure->put(
            "member-" + std::to_string(i), std::make_unique<SimpleValue>("value " + std::to_string(i), i % 2 == 0));
    }
    return structure;
}

/// A structure of ten values, or a list of such.
std::unique_ptr<Value> makeTree(std::size_t size) {
    constexpr std::size_t structSize = 10;
    if (size <= structSize) return makeStruct(size);
    auto list = std::make_unique<ArrayValue>(false);
    for (std::size_t i = 0; i < size / structSize; ++i) list->add(makeStruct(structSize));
    return list;
}

void describe(const Value* value, std::string& text) {
    text += value->mu ? "*" : "";
    if (const auto* simple = dynamic_cast<const SimpleValue*>(value)) {
        text += simple->value;
    } else if (const auto* structure = dynamic_cast<const StructValue*>(value)) {
        for (const auto& [key, child] : structure->members) {
            text += "{" + key + "=";
            describe(child, text);
            text += "}";
        }
    } else {
        for (const Value* child : dynamic_cast<const ArrayValue&>(*value).elements) {
            text += "[";
            describe(child, text);
            text += "]";
        }
    }
}

}  // namespace

namespace bench {

void setSize(std::size_t size) {
    data = {};
    for (std::size_t i = 0; i < size; ++i) {
        const std::string number = std::to_string(i);
        data.texts.push_back("192.0.2." + std::to_string(i % 256));
        data.attributes.pairs["attribute-" + number] = "value " + number;
        data.fans.push_back({"Fan " + number, "5400 rpm", 5400, 900, i % 2 == 0});
        data.volumes.push_back({"volume-" + number, 1, {}, true, 100});
        data.volumes.back().partitions = {
            {"/data/" + number, 1024, 512, "ext4", true}, {"/spare/" + number, 2048, 0, "xfs", false}};
    }
    data.tree = makeTree(size);
}

void makeLists(std::size_t count) {
    readyLists.assign(count, data.texts);
    listsLeft = count;
}

void setRecording(bool shallRecord) {
    isRecording = shallRecord;
    lastReceived.clear();
}

std::string received() { return lastReceived; }

}  // namespace bench

std::int32_t applianceUtils::getCPUCount() { return 8; }

std::string nodeName::get() { return "rack-7"; }

std::int32_t nodeName::set(const std::string& name) {
    if (isRecording) lastReceived = name;
    return 0;
}

std::vector<std::string> nameServers::getNameServers(std::vector<std::string>*) {
    return std::move(readyLists.at(--listsLeft));
}

std::int32_t timeServers::setTimeServers(const std::vector<std::string>& servers, std::vector<std::string>*) {
    if (isRecording) {
        lastReceived.clear();
        for (const std::string& server : servers) lastReceived += server + ",";
    }
    return 0;
}

types::KeyValPair* ethernetInterfaces::getInterface(const std::string&) { return &data.attributes; }

bool statusUtils::getFanStatus(std::vector<FanStatus>& fans) {
    fans = data.fans;
    return true;
}

bool statusUtils::getVolumeStatus(std::vector<VolumeStatus>& volumes) {
    volumes = data.volumes;
    return true;
}

std::int32_t statusUtils::getIntrusionStatus() { return 1; }

Service::ReturnCode Service::validateObject(const std::string& type, const Value* value) {
    if (isRecording) {
        lastReceived = type + ": ";
        describe(value, lastReceived);
    }
    return ReturnCode::OK;
}

Service::ReturnCode Service::queryObject(const std::string&, const std::string&, const std::string&, Value** value) {
    *value = data.tree.get();
    return ReturnCode::OK;
}

Service::ReturnCode
Service::getAdminState(const std::string&, const std::string&, const std::string&, AdminState& state) {
    state = AdminState::ENABLED;
    return ReturnCode::OK;
}
