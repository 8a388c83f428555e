#include "mocks/servicesUtils.h"

#include "mocks/mock.h"
#include "platform/servicesUtils.h"

namespace talvern::servicesUtils {

std::int32_t startTest(const char* name, std::int32_t interval) {
    return platform::operation(&ServicesMock::startTest, name, interval);
}
std::int32_t stopTest(const char* name) { return platform::operation(&ServicesMock::stopTest, name); }
std::int32_t performTest(const char* name, std::int32_t count) {
    return platform::operation(&ServicesMock::performTest, name, count);
}

}  // namespace talvern::servicesUtils
