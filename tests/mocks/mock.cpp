#include "mocks/mock.h"

#include <atomic>
#include <map>
#include <mutex>

#include "support/jniTable.h"

namespace platform {

namespace {

std::mutex mutex;
std::map<const void*, std::shared_ptr<void>> all;
std::atomic<std::size_t> operations;

}  // namespace

Mocks& mocks() {
    static Mocks instance;
    return instance;
}

void makeHostile(std::string& text, Hostility hostility) {
    if (hostility == Hostility::empty) text.clear();
    if (hostility == Hostility::huge) text.assign(10'000'000, 'x');
}

Mocks::Mocks() {
    testing::DefaultValue<std::string>::Set("text");
    testing::DefaultValue<Texts>::Set({"one", "two"});
}

void* Mocks::find(const void* key, const std::function<std::shared_ptr<void>()>& create) {
    const std::lock_guard lock{mutex};
    auto& mock = all[key];
    if (!mock) mock = create();
    return mock.get();
}

void Mocks::clear() {
    const std::lock_guard lock{mutex};
    all.clear();
    beforeOperation = nullptr;
    hostility = Hostility::none;
    operations = 0;
}

void Mocks::operationStarts() {
    ++operations;
    if (JniTable* table = currentJniTable()) table->platformCalled();
    if (beforeOperation) beforeOperation();
}

std::size_t Mocks::operationCount() const { return operations; }

}  // namespace platform
