package com.kvo.talvern.console;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;

/** The appliance's firmware. */
final class FirmwareCommands extends Group {
    static final String REFLASH = "This overwrites the firmware.";

    FirmwareCommands() {
        super("firmware", "Shows and replaces the firmware.");
    }

    @Override
    void addCommands() {
        show("info", "Shows what is known of the firmware.", command -> firmware());
        change("upgrade", "Installs another firmware, and shows how far it has come.", command -> {
            Progress progress = new Progress(command.output());
            Refusal.unlessZero(new FirmwareManagerUtils().upgradeFirmware(command.text("IMAGE"), command.isSet("--force"),
                    command.isSet("--keep-previous"), progress), "image");
            progress.awaitEnd();
        }).parameter("IMAGE", "The name of the image.")
                .flag("--force", "Install an image that is not signed with the release keys, too.")
                .flag("--keep-previous", "Keep the firmware that runs now, to be able to go back to it.");
        change("rollback", "Goes back to the previous firmware.", command ->
                Refusal.unlessZero(new FirmwareManagerUtils().rollbackFirmware(), "firmware"));
        change("reflash", "Writes the firmware again.", command ->
                Refusal.unlessZero(new FirmwareManagerUtils().reflashFirmware(command.text("IMAGE")), "image"))
                .parameter("IMAGE", "The name of the image.").confirmed(REFLASH);
        change("delete-previous", "Deletes the previous firmware, which can't be gone back to any more.", command ->
                Refusal.unlessZero(new FirmwareManagerUtils().deletePreviousFirmware(), "firmware"));
    }

    /** The firmware of the appliance and of its components. */
    static Fields firmware() {
        return new Fields().and("releaseKeyed", new FirmwareManagerUtils().isReleaseKeyed())
                .and("components", Table.of(new ApplianceUtils().getComponentInfo()));
    }
}
