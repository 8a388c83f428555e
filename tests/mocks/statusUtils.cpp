#include "mocks/statusUtils.h"

#include "mocks/mock.h"

using namespace talvern::statusUtils;
using Mock = StatusUtilsMock;

StatusUtilsMock::StatusUtilsMock() {
    static DiskSnapShot disk{};
    ON_CALL(*this, getFanStatus).WillByDefault(deliver<FanStatus>({{"fan 1", "5400 rpm", 1, 2, true}}));
    ON_CALL(*this, getTempStatus).WillByDefault(deliver<TempStatus>({{"board", "35 C", 1, 2, 3, true}}));
    ON_CALL(*this, getPowerStatus).WillByDefault(deliver<PowerStatus>({{"supply 1", "on", true}}));
    ON_CALL(*this, getVoltageStatus).WillByDefault(deliver<VoltStatus>({{"5 V", "5.02 V", 1, 3, 2, true}}));
    ON_CALL(*this, getVolumeStatus)
        .WillByDefault(deliver<VolumeStatus>({{"system", 1, {{"/", 9, 8, "ext4", true}}, true, 100}}));
    ON_CALL(*this, getRaidPhysDiskStatus).WillByDefault(deliver<DiskSnapShot*>({&disk}));
    ON_CALL(*this, getCPUUsage).WillByDefault(deliver<CPUUsage>({{0, 15}}));
    ON_CALL(*this, getCPUDetailedUsage).WillByDefault(deliver<CPUUsage>({{3, 85}}));
}

namespace talvern::statusUtils {

bool getFanStatus(std::vector<FanStatus>& fans) { return platform::operation(&Mock::getFanStatus, fans); }
bool getTempStatus(std::vector<TempStatus>& temperatures) {
    return platform::operation(&Mock::getTempStatus, temperatures);
}
bool getPowerStatus(std::vector<PowerStatus>& supplies) {
    return platform::operation(&Mock::getPowerStatus, supplies);
}
bool getVoltageStatus(std::vector<VoltStatus>& voltages) {
    return platform::operation(&Mock::getVoltageStatus, voltages);
}
bool getVolumeStatus(std::vector<VolumeStatus>& volumes) {
    return platform::operation(&Mock::getVolumeStatus, volumes);
}
bool getRaidPhysDiskStatus(std::vector<DiskSnapShot*>& disks) {
    return platform::operation(&Mock::getRaidPhysDiskStatus, disks);
}
bool getCPUUsage(std::vector<CPUUsage>& usage) { return platform::operation(&Mock::getCPUUsage, usage); }
bool getCPUDetailedUsage(std::vector<CPUUsage>& usage) {
    return platform::operation(&Mock::getCPUDetailedUsage, usage);
}
bool getMemoryUse(std::uint32_t& total, std::uint32_t& free) {
    return platform::operation(&Mock::getMemoryUse, total, free);
}
std::int64_t getUptime() { return platform::operation(&Mock::getUptime); }
std::int32_t getFlashStatus(FlashStatus& flash) { return platform::operation(&Mock::getFlashStatus, flash); }
bool getBatteryStatus(BatteryStatus& battery) {
    return platform::operation(&Mock::getBatteryStatus, battery);
}
bool batteryReplaced() { return platform::operation(&Mock::batteryReplaced); }
std::int32_t getIntrusionStatus() { return platform::operation(&Mock::getIntrusionStatus); }
std::int32_t clearIntrusionStatus() { return platform::operation(&Mock::clearIntrusionStatus); }
void setLocateLED(bool on) { platform::operation(&Mock::setLocateLED, on); }
bool isServiceReady(ServiceStatus service, std::int32_t seconds) {
    return platform::operation(&Mock::isServiceReady, service, seconds);
}
bool isNetServiceReady(ServiceStatus service, std::int32_t seconds) {
    return platform::operation(&Mock::isNetServiceReady, service, seconds);
}

}  // namespace talvern::statusUtils
