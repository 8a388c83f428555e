package example;

import com.kvo.talvern.TalvernException;
import com.kvo.talvern.appliance.HardwareStatusUtils;
import com.kvo.talvern.appliance.NodeName;
import com.kvo.talvern.appliance.Sensor;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ConfigChangeException;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.ValidationException;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.TimeUnit;
import java.util.function.Supplier;

/** Reads and changes an appliance, and upgrades its firmware. */
public final class FirstSteps {
    public static void main(String[] arguments) throws InterruptedException {
        nodeName();
        sensors();
        configuration();
        firmware();
    }

    private static void nodeName() {
        NodeName nodeName = new NodeName(); // the first use of a class loads the native library
        System.out.println("The appliance is called " + nodeName.getNodeName() + ".");
        if (nodeName.setNodeName("rack-7")) {
            System.out.println("Now it is called " + nodeName.getNodeName() + ".");
        }
    }

    private static void sensors() {
        Sensor[] fans = new HardwareStatusUtils().getFanStatus();
        if (fans == null) { // they can't be read
            return;
        }
        for (Sensor fan : fans) {
            System.out.println(fan.getName() + ": " + fan.getReading() + (fan.isOk() ? "" : ", not as it should be"));
        }
    }

    private static void configuration() {
        ServiceUtils service = new ServiceUtils();
        StructValue target = new StructValue(false);
        target.put("host", new SimpleValue("log.example", false));
        target.put("port", new SimpleValue("514", false));
        target.put("interface", new SimpleValue("eth1", false));
        request("validate", () -> service.validateObject("LogTarget", target));
        request("create", () -> service.createObject("LogTarget", "", "main", target, AdminState.ENABLED, false));

        target.put("port", new SimpleValue("70000", false));
        request("change", () -> service.updateObject("LogTarget", "", "main", target, true));
        request("disable", () -> service.setAdminState("EthernetInterface", "", "eth1", AdminState.DISABLED));
        request("forget a state", () -> service.setAdminState("EthernetInterface", "", "eth1", null));

        System.out.print(service.queryObject("LogTarget", "", "main").asXML());
        request("delete", () -> service.deleteObject("LogTarget", "", "main"));
        request("delete again", () -> service.deleteObject("LogTarget", "", "main"));
    }

    /** What may come of a request. The first two exceptions are kinds of the third. */
    private static void request(String what, Supplier<ReturnCode> request) {
        try {
            System.out.println(what + ": " + request.get());
        } catch (ValidationException e) {
            System.out.println(what + ": not with this " + e.getField() + ". " + e.getMessage());
        } catch (ConfigChangeException e) {
            System.out.println(what + ": not now. " + e.getMessage() + " " + e.getDetails());
        } catch (TalvernException e) {
            System.out.println(what + ": failed. " + e.getMessage());
        }
    }

    private static void firmware() throws InterruptedException {
        FirmwareManagerUtils firmware = new FirmwareManagerUtils();
        CountDownLatch end = new CountDownLatch(1);
        int status = firmware.upgradeFirmware("talvern-2.1.img", false, true, (done, total, code) -> {
            if (total > 0 && 4 * done % total == 0) { // each quarter
                System.out.println("upgrade: " + 100 * done / total + " % " + code);
            }
            if (code.isLast()) {
                end.countDown();
            }
        });
        if (status != 0) { // refused: nothing will be reported
            System.out.println("upgrade: refused with status " + status);
            return;
        }
        if (!end.await(10, TimeUnit.MINUTES)) { // the reports may come on a thread of the appliance
            System.out.println("upgrade: no end was reported");
        }
    }
}
