package com.kvo.talvern.demo;

import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ArrayValue;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.StructValue;

/** Configuration objects: create, change, look at, delete. */
final class ConfigDemo {
    private ConfigDemo() {}

    static void run() {
        Demo.title("Configuration objects");
        ServiceUtils service = new ServiceUtils();
        Demo.show("there are objects of the types", service.getObjectTypes());
        Demo.show("Ethernet interfaces", service.getNamesofObject("EthernetInterface", ""));
        Demo.show("value of eth0", service.queryObject("EthernetInterface", "", "eth0"));

        StructValue target = struct("host", "log.example");
        target.put("port", new SimpleValue("514", false));
        target.put("interface", new SimpleValue("eth1", false));
        Demo.show("create log target 'main'",
                service.createObject("LogTarget", "", "main", target, AdminState.ENABLED, false));
        Demo.show("create it again",
                service.createObject("LogTarget", "", "main", target, AdminState.ENABLED, false));
        Demo.show("change its port",
                service.updateObject("LogTarget", "", "main", struct("port", "6514"), true));
        Demo.refused("port 70000", () ->
                service.updateObject("LogTarget", "", "main", struct("port", "70000"), true));
        Demo.show("as XML", "\n" + service.queryObject("LogTarget", "", "main").asXML());

        Demo.refused("disabling eth1", () ->
                service.setAdminState("EthernetInterface", "", "eth1", AdminState.DISABLED));
        Demo.show("disable the log target",
                service.setAdminState("LogTarget", "", "main", AdminState.DISABLED));
        Demo.show("it is now", service.getOpState("LogTarget", "", "main"));
        Demo.show("delete it", service.deleteObject("LogTarget", "", "main"));
        Demo.show("its value", service.queryObject("LogTarget", "", "main"));
        Demo.show("because", service.getReturnCode());

        ArrayValue inItself = new ArrayValue(false);
        inItself.add(inItself);
        Demo.refused("a list that contains itself", () -> service.validateObject("ApplicationData", inItself));
    }

    private static StructValue struct(String key, String text) {
        StructValue value = new StructValue(false);
        value.put(key, new SimpleValue(text, false));
        return value;
    }
}
