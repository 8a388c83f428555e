#include "mocks/firmwareManagerUtils.h"

#include "mocks/mock.h"

namespace talvern::firmwareManagerUtils {

using Mock = FirmwareManagerMock;
using platform::operation;

bool isReleaseKeyed() { return operation(&Mock::isReleaseKeyed); }
std::int32_t rollback() { return operation(&Mock::rollback); }
std::int32_t deletePrevious() { return operation(&Mock::deletePrevious); }
std::int32_t reflash(const std::string& image) { return operation(&Mock::reflash, image); }
std::int32_t upgrade(const std::string& image, bool force, bool keepPrevious, UpgradeCallback* callback) {
    return operation(&Mock::upgrade, image, force, keepPrevious, callback);
}

}  // namespace talvern::firmwareManagerUtils
