package com.kvo.talvern.demo;

import com.kvo.talvern.appliance.DiskSnapShot;
import com.kvo.talvern.appliance.FlashVolume;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.RaidPartition;
import com.kvo.talvern.appliance.RaidVolume;
import com.kvo.talvern.appliance.Sensor;
import java.time.Instant;

/** A status page of the appliance's hardware. */
final class HardwareDemo {
    private HardwareDemo() {}

    static void run() {
        HardwareStatusUtils hardware = new HardwareStatusUtils();
        sensors(hardware);
        storage(hardware);
        health(hardware);
        controls(hardware);
    }

    private static void sensors(HardwareStatusUtils hardware) {
        Demo.title("Sensors");
        show(hardware.getFanStatus());
        show(hardware.getTemperatureStatus());
        show(hardware.getPowerStatus());
        show(hardware.getVoltageStatus());
    }

    private static void show(Sensor[] sensors) {
        for (Sensor sensor : sensors) {
            double lowest = sensor.getMinimum() / 1000;
            double highest = sensor.getMaximum() / 1000;
            String limits = highest == 0 ? "" : String.format("  (%.2f to %.2f V)", lowest, highest);
            Demo.show(sensor.getName(), sensor.getReading() + (sensor.isOk() ? "" : "  !") + limits);
        }
    }

    private static void storage(HardwareStatusUtils hardware) {
        Demo.title("Storage");
        for (RaidVolume volume : hardware.getRaidVolumes()) {
            Demo.show("volume " + volume.getName(),
                    "RAID " + volume.getRaidLevel() + (volume.isOk() ? ", ok" : ", degraded") + ", "
                            + volume.getSynchronised() + " % in step");
            for (RaidPartition partition : volume.getPartitions()) {
                Demo.show("  " + partition.getMountPoint() + " (" + partition.getFileSystem() + ")",
                        partition.getUsed() + " of " + partition.getSize() + " MiB");
            }
        }
        for (DiskSnapShot disk : hardware.getRaidPhysicalDiskStatus()) {
            Demo.show("disk " + disk.getDeviceName() + ", bay " + disk.getBay(),
                    disk.getState() + ", " + disk.getSize() / 1_000_000_000 + " GB, " + disk.getTemperature()
                            + " C, " + disk.getPowerOnHours() + " h, " + disk.getSerialNumber());
        }
        FlashVolume flash = hardware.getFlashStatus();
        Demo.show("flash", flash.getUsed() + " of " + flash.getSize() + " MiB");
    }

    private static void health(HardwareStatusUtils hardware) {
        Demo.title("Health");
        hardware.getCPUUsage().forEach((cpu, percent) -> Demo.show("processor " + cpu, percent + " %"));
        Demo.show("processors at rest", hardware.getCPUDetailedUsage().get(3) + " %");
        Demo.show("free memory", Integer.toUnsignedLong(hardware.getFreeMemory()) / 1024 + " of "
                + Integer.toUnsignedLong(hardware.getTotalMemory()) / 1024 + " MiB");
        Demo.show("running for", hardware.getUptime() / 86_400 + " days");
        Demo.show("battery from", Instant.ofEpochMilli(hardware.getBatteryInstallationTime()));
        Demo.show("battery good until", Instant.ofEpochMilli(hardware.getBatteryExpirationTime()));
        Demo.show("process manager ready", hardware.isServiceReady(HardwareStatusUtils.PROCESS_MANAGER));
        Demo.show("  from the network", hardware.isNetServiceReady(HardwareStatusUtils.PROCESS_MANAGER));
    }

    private static void controls(HardwareStatusUtils hardware) {
        Demo.title("Chassis");
        hardware.setLocateLED(true);
        Demo.show("the chassis is", hardware.getIntrusionStatus());
        Demo.show("status of clearing that", hardware.clearIntrusionStatus());
        Demo.show("the chassis is now", hardware.getIntrusionStatus());
        Demo.show("takes note of a new battery", hardware.batteryReplaced());
        hardware.setLocateLED(false);
    }
}
