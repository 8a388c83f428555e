package com.kvo.talvern.console;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DiskSnapShot;
import com.kvo.talvern.appliance.FlashVolume;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.HardwareStatusUtils.IntrusionStatus;
import com.kvo.talvern.appliance.RaidPartition;
import com.kvo.talvern.appliance.RaidVolume;
import com.kvo.talvern.appliance.Sensor;
import java.time.Instant;

/** What is wrong with the appliance. */
final class Health {
    private static final int ALMOST_ALL = 90; // percent

    private final HardwareStatusUtils status = new HardwareStatusUtils();
    private final Table problems = new Table("state", "part", "problem");
    private State worst = State.OK;

    /** How well a part of the appliance is, and the whole: as its worst part. */
    enum State {
        OK, WARNING, FAILED
    }

    /** Asks the appliance for all that may be wrong. */
    Health() {
        check("fans", () -> sensors("fans", status.getFanStatus()));
        check("temperatures", () -> sensors("temperatures", status.getTemperatureStatus()));
        check("power supplies", () -> sensors("power supplies", status.getPowerStatus()));
        check("voltages", () -> sensors("voltages", status.getVoltageStatus()));
        check("volumes", () -> volumes(status.getRaidVolumes()));
        check("disks", () -> disks(status.getRaidPhysicalDiskStatus()));
        check("flash", () -> flash(status.getFlashStatus()));
        check("battery", () -> battery(status.getBatteryExpirationTime()));
        check("chassis", () -> warn(status.getIntrusionStatus() == IntrusionStatus.OPENED, "chassis", "was opened"));
        check("SSH host keys", () -> warn(!new ApplianceUtils().areHostSSHKeysStrong(), "SSH host keys", "are weak"));
        check("services", () -> ServicesCommands.services().forEach(service ->
                fail(Boolean.FALSE.equals(service.get("ready")), service.get("service"), "does not run")));
        check("network", () -> {
            int state = new ApplianceUtils().networkReady();
            warn(state != NetCommands.READY, "network", NetCommands.words(state));
        });
    }

    /** The state of the whole. */
    State state() {
        return worst;
    }

    /** What is wrong, a row each. */
    Table problems() {
        return problems;
    }

    private void check(String part, Runnable check) {
        try {
            check.run();
        } catch (TalvernException e) {
            fail(true, part, "can't be read: " + e.getMessage());
        }
    }

    private void warn(boolean isSo, Object part, String problem) {
        add(isSo, State.WARNING, part, problem);
    }

    private void fail(boolean isSo, Object part, String problem) {
        add(isSo, State.FAILED, part, problem);
    }

    private void add(boolean isSo, State state, Object part, String problem) {
        if (isSo) {
            problems.add(new Fields().and("state", state).and("part", part).and("problem", problem));
            worst = state.compareTo(worst) > 0 ? state : worst;
        }
    }

    private void sensors(String kind, Sensor[] sensors) {
        warn(sensors == null, kind, "give no readings");
        for (Sensor sensor : sensors == null ? new Sensor[0] : sensors) {
            fail(!sensor.isOk(), sensor.getName(), "reads " + sensor.getReading());
        }
    }

    private void volumes(RaidVolume[] volumes) {
        for (RaidVolume volume : volumes == null ? new RaidVolume[0] : volumes) {
            String name = "volume " + volume.getName();
            fail(!volume.isOk(), name, "does not work with all its disks");
            warn(volume.getSynchronised() < 100, name, "is synchronised by " + volume.getSynchronised() + " %");
            for (RaidPartition partition : volume.getPartitions()) {
                full("partition " + partition.getMountPoint(), partition.getUsed(), partition.getSize());
            }
        }
    }

    private void flash(FlashVolume flash) {
        if (flash != null) {
            full("flash", flash.getUsed(), flash.getSize());
        }
    }

    private void full(String part, long used, long size) {
        warn(size > 0 && used * 100 >= size * ALMOST_ALL, part, "is full by " + (size > 0 ? used * 100 / size : 0) + " %");
    }

    private void disks(DiskSnapShot[] disks) {
        for (DiskSnapShot disk : disks == null ? new DiskSnapShot[0] : disks) {
            String name = "disk " + disk.getDeviceName();
            boolean isUsed = disk.isPresent() && !disk.isSpare();
            fail(isUsed && !disk.isOnline(), name, "takes no part in its volume: " + disk.getState());
            warn(isUsed && disk.isOnline() && disk.getRebuilt() < 100, name, "is rebuilt by " + disk.getRebuilt() + " %");
            warn(disk.isFailurePredicted(), name, "expects to fail soon");
            warn(disk.getWear() >= ALMOST_ALL, name, "has spent " + disk.getWear() + " % of its life");
            warn(disk.getSelfTestResult() > 0, name, "failed its self-test (" + disk.getSelfTestResult() + ")");
        }
    }

    private void battery(long expiration) {
        warn(expiration != -1 && expiration < System.currentTimeMillis(), "battery",
                "is due for replacement since " + Instant.ofEpochMilli(expiration));
    }
}
