#include "mocks/hardware.h"

namespace talvern::statusUtils {

using Mock = StatusUtilsMock;
template <typename Entry>
using List = std::vector<Entry>;

bool getFanStatus(List<FanStatus>& fans) { return operation(&Mock::getFanStatus, fans); }
bool getTempStatus(List<TempStatus>& temperatures) { return operation(&Mock::getTempStatus, temperatures); }
bool getPowerStatus(List<PowerStatus>& supplies) { return operation(&Mock::getPowerStatus, supplies); }
bool getVoltageStatus(List<VoltStatus>& voltages) { return operation(&Mock::getVoltageStatus, voltages); }
bool getVolumeStatus(List<VolumeStatus>& volumes) { return operation(&Mock::getVolumeStatus, volumes); }
bool getRaidPhysDiskStatus(List<DiskSnapShot*>& disks) {
    return operation(&Mock::getRaidPhysDiskStatus, disks);
}
bool getCPUUsage(List<CPUUsage>& usage) { return operation(&Mock::getCPUUsage, usage); }
bool getCPUDetailedUsage(List<CPUUsage>& usage) { return operation(&Mock::getCPUDetailedUsage, usage); }
bool getMemoryUse(std::uint32_t& total, std::uint32_t& free) {
    return operation(&Mock::getMemoryUse, total, free);
}
std::int64_t getUptime() { return operation(&Mock::getUptime); }
std::int32_t getFlashStatus(FlashStatus& flash) { return operation(&Mock::getFlashStatus, flash); }
bool getBatteryStatus(BatteryStatus& battery) { return operation(&Mock::getBatteryStatus, battery); }
bool batteryReplaced() { return operation(&Mock::batteryReplaced); }
std::int32_t getIntrusionStatus() { return operation(&Mock::getIntrusionStatus); }
std::int32_t clearIntrusionStatus() { return operation(&Mock::clearIntrusionStatus); }
void setLocateLED(bool on) { operation(&Mock::setLocateLED, on); }
bool isServiceReady(ServiceStatus service, std::int32_t seconds) {
    return operation(&Mock::isServiceReady, service, seconds);
}
bool isNetServiceReady(ServiceStatus service, std::int32_t seconds) {
    return operation(&Mock::isNetServiceReady, service, seconds);
}

}  // namespace talvern::statusUtils

using namespace talvern::statusUtils;

StatusUtilsMock::StatusUtilsMock() {
    static DiskSnapShot disk{};
    ON_CALL(*this, getFanStatus).WillByDefault(deliver(List<FanStatus>{{"fan", "5400 rpm", 1, 2, true}}));
    ON_CALL(*this, getTempStatus).WillByDefault(deliver(List<TempStatus>{{"board", "35 C", 1, 2, 3, true}}));
    ON_CALL(*this, getPowerStatus).WillByDefault(deliver(List<PowerStatus>{{"supply", "on", true}}));
    ON_CALL(*this, getVoltageStatus).WillByDefault(deliver(List<VoltStatus>{{"5 V", "5 V", 1, 3, 2, true}}));
    ON_CALL(*this, getVolumeStatus)
        .WillByDefault(deliver(List<VolumeStatus>{{"system", 1, {{"/", 9, 8, "ext4", true}}, true, 100}}));
    ON_CALL(*this, getRaidPhysDiskStatus).WillByDefault(deliver(List<DiskSnapShot*>{&disk}));
    ON_CALL(*this, getCPUUsage).WillByDefault(deliver(List<CPUUsage>{{0, 15}}));
    ON_CALL(*this, getCPUDetailedUsage).WillByDefault(deliver(List<CPUUsage>{{3, 85}}));
}
