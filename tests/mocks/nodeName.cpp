#include "mocks/nodeName.h"

#include "mocks/mock.h"
#include "platform/nodeName.h"

namespace talvern::nodeName {

std::int32_t init() { return platform::operation(&NodeNameMock::init); }
std::string get() { return platform::operation(&NodeNameMock::get); }
std::int32_t set(const std::string& name) { return platform::operation(&NodeNameMock::set, name); }

}  // namespace talvern::nodeName
