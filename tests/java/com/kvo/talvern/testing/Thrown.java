package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.NodeName;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ConfigChangeException;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.SimpleValue;

/** Shows what arrives of a platform library's exceptions in native methods with each kind of frame. */
public final class Thrown {
    private Thrown() {}

    /**
     * @param arguments not used
     */
    public static void main(String[] arguments) {
        ServiceUtils service = new ServiceUtils();
        SimpleValue value = new SimpleValue("", false);
        show(() -> service.createObject("type", null, "name", value, AdminState.ENABLED, true));
        show(() -> service.validateObject("type", value));
        show(() -> new NodeName().setNodeName("name"));
    }

    private static void show(Runnable call) {
        for (int i = 0; i < 5; ++i) {
            try {
                call.run();
            } catch (ConfigChangeException e) {
                System.out.println("ConfigChangeException " + e.getCode() + " " + e.getMessage() + e.getDetails());
            } catch (RuntimeException e) {
                System.out.println(e.getClass().getSimpleName() + " " + e.getMessage());
            }
        }
    }
}
