package com.kvo.talvern.console;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DNSUtils;
import com.kvo.talvern.appliance.FlashVolume;
import com.kvo.talvern.appliance.HWInfo;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.NTPUtils;
import com.kvo.talvern.appliance.NodeName;
import com.kvo.talvern.appliance.RaidPartition;
import com.kvo.talvern.appliance.RaidVolume;
import com.kvo.talvern.appliance.Sensor;
import com.kvo.talvern.appliance.TimeZoneUtils;
import com.kvo.talvern.processmanager.ProcessManagerUtils;
import com.kvo.talvern.user.UserUtils;
import java.time.Instant;
import java.time.temporal.ChronoUnit;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.TreeMap;
import java.util.concurrent.TimeUnit;
import java.util.function.Supplier;

/** Everything about the appliance, in sections. */
final class ShowCommand {
    private static final Map<String, Supplier<Object>> SECTIONS = new LinkedHashMap<>();

    static {
        SECTIONS.put("identity", ShowCommand::identity);
        SECTIONS.put("network", ShowCommand::network);
        SECTIONS.put("sensors", ShowCommand::sensors);
        SECTIONS.put("storage", ShowCommand::storage);
        SECTIONS.put("health", ShowCommand::health);
        SECTIONS.put("configuration", ConfigCommands::objects);
        SECTIONS.put("users", () -> new UserUtils().listUsers());
        SECTIONS.put("captures", CaptureCommands::captures);
        SECTIONS.put("firmware", FirmwareCommands::firmware);
    }

    private ShowCommand() {}

    static ActionCommand create() {
        return new ActionCommand("show", "Shows the appliance: " + String.join(", ", SECTIONS.keySet()) + ".", command -> {
            List<String> chosen = command.list("SECTION");
            for (String name : chosen) {
                if (!SECTIONS.containsKey(name)) {
                    throw command.usageError("There is no section '" + name + "'" + Nearest.hint(name, SECTIONS.keySet()));
                }
            }
            Integer seconds = command.option("--watch", null);
            if (seconds == null) {
                return sections(command, chosen);
            } else if (seconds <= 0) {
                throw command.usageError("--watch takes a number of seconds that is greater than 0.");
            }
            while (true) {
                command.output().again(Instant.now().truncatedTo(ChronoUnit.SECONDS).toString());
                command.output().show(sections(command, chosen));
                command.output().flush();
                TimeUnit.SECONDS.sleep(seconds);
            }
        }).completedBy(SECTIONS.keySet()).list("SECTION", "0..*", "What to show; everything without it.")
                .option("--watch", "SECONDS", Integer.class, "Show it again and again, so many seconds apart.");
    }

    private static Fields sections(ActionCommand command, List<String> chosen) {
        Fields sections = new Fields();
        for (String name : chosen.isEmpty() ? SECTIONS.keySet() : chosen) {
            sections.and(name, SECTIONS.get(name).get());
        }
        boolean isUnhealthy = chosen.contains("health") && !((Fields) sections.get("health")).get("state").equals("OK");
        command.endWith(isUnhealthy ? ExitCode.UNHEALTHY : ExitCode.DONE);
        return sections;
    }

    private static Fields identity() {
        ApplianceUtils appliance = new ApplianceUtils();
        HWInfo hardware = appliance.getHardwareInfo();
        return new Fields().and("nodeName", new NodeName().getNodeName())
                .and("manufacturer", hardware.getManufacturer()).and("product", hardware.getProductName())
                .and("serialNumber", appliance.getSerialNumber()).and("machineType", appliance.getMachineType())
                .and("machineTypeModel", appliance.getMTM()).and("appliance", appliance.isAppliance())
                .and("virtual", hardware.isVirtual()).and("processors", appliance.getCPUCount())
                .and("biosVersion", hardware.getBiosVersion()).and("biosDate", hardware.getBiosDate())
                .and("locale", appliance.getLocale()).and("timeZone", new TimeZoneUtils().getConfiguredTimeZone())
                .and("dateTime", appliance.getDateTime());
    }

    private static Fields network() {
        int state = new ApplianceUtils().networkReady();
        return new Fields().and("networkReady", state).and("meaning", NetCommands.words(state))
                .and("nameServers", new DNSUtils().getNameServers()).and("searchDomains", new DNSUtils().getSearchDomains())
                .and("timeServers", new NTPUtils().getTimeServers())
                .and("interfaces", NetCommands.interfaces()).and("hosts", NetCommands.hosts());
    }

    private static Fields sensors() {
        HardwareStatusUtils status = new HardwareStatusUtils();
        String[] columns = {"name", "reading", "ok"};
        return new Fields().and("fans", Table.of(status.getFanStatus(), columns))
                .and("temperatures", Table.of(status.getTemperatureStatus(), columns))
                .and("powerSupplies", Table.of(status.getPowerStatus(), columns))
                .and("voltages", voltages(status.getVoltageStatus()));
    }

    private static Table voltages(Sensor[] sensors) {
        Table table = Table.of(sensors, "name", "reading", "ok", "minimum mV", "maximum mV", "lowerWarning mV",
                "upperWarning mV");
        if (table != null) {
            table.forEach(row -> row.replaceAll((name, value) -> Double.valueOf(0).equals(value) ? null : value)); // not set
        }
        return table;
    }

    private static Fields storage() {
        HardwareStatusUtils status = new HardwareStatusUtils();
        RaidVolume[] raidVolumes = status.getRaidVolumes();
        Table volumes = null;
        Table partitions = null;
        if (raidVolumes != null) {
            volumes = new Table();
            partitions = new Table();
            for (RaidVolume volume : raidVolumes) {
                volumes.add(new Fields().and("name", volume.getName()).and("raidLevel", volume.getRaidLevel())
                        .and("ok", volume.isOk()).and("synchronisedPercent", volume.getSynchronised()));
                for (RaidPartition partition : volume.getPartitions()) {
                    partitions.add(new Fields().and("volume", volume.getName()).and("mountPoint", partition.getMountPoint())
                            .and("fileSystem", partition.getFileSystem()).and("mounted", partition.isMounted())
                            .and("sizeMiB", partition.getSize()).and("usedMiB", partition.getUsed()));
                }
            }
        }
        FlashVolume flash = status.getFlashStatus();
        return new Fields().and("flashSizeMiB", flash == null ? null : flash.getSize())
                .and("flashUsedMiB", flash == null ? null : flash.getUsed())
                .and("volumes", volumes).and("partitions", partitions)
                .and("disks", Table.of(status.getRaidPhysicalDiskStatus(), "deviceName", "product", "serialNumber", "state",
                        "temperature C", "failurePredicted", "size bytes"));
    }

    private static Fields health() {
        HardwareStatusUtils status = new HardwareStatusUtils();
        ProcessManagerUtils processManager = new ProcessManagerUtils();
        Health health = new Health();
        return new Fields().and("state", health.state()).and("problems", health.problems())
                .and("uptimeSeconds", status.getUptime())
                .and("totalMemoryKiB", memory(status.getTotalMemory()))
                .and("freeMemoryKiB", memory(status.getFreeMemory()))
                .and("batteryInstalled", date(status.getBatteryInstallationTime()))
                .and("batteryExpires", date(status.getBatteryExpirationTime()))
                .and("intrusion", status.getIntrusionStatus())
                .and("strongSshHostKeys", new ApplianceUtils().areHostSSHKeysStrong())
                .and("logLevel", processManager.getPlatformLogLevel())
                .and("traceMask", String.format("0x%08x", processManager.getPlatformTraceMask()))
                .and("processorPercent", values(status.getCPUUsage()))
                .and("loadPercent", load(status.getCPUDetailedUsage()))
                .and("services", ServicesCommands.services());
    }

    private static Long memory(int size) {
        return size == -1 ? null : Integer.toUnsignedLong(size);
    }

    private static String date(long milliseconds) {
        return milliseconds == -1 ? null : Instant.ofEpochMilli(milliseconds).toString();
    }

    private static Iterable<Integer> values(Map<Integer, Integer> map) {
        return map == null ? null : new TreeMap<>(map).values();
    }

    private static Fields load(Map<Integer, Integer> load) {
        return load == null ? null : new Fields().and("user", load.get(0)).and("system", load.get(1))
                .and("waiting", load.get(2)).and("idle", load.get(3));
    }
}
