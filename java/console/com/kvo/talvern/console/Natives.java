package com.kvo.talvern.console;

import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.Arrays;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The API's native methods, each represented by the public method over it. Nothing here loads the library. */
final class Natives {
    private static final List<String> CLASSES = List.of("appliance.ApplianceUtils", "appliance.DNSUtils",
            "appliance.EthernetInterfaces", "appliance.HardwareStatusUtils", "appliance.HostsUtils", "appliance.NTPUtils",
            "appliance.NodeName", "appliance.PacketCapture", "appliance.SNMPUtils", "appliance.TimeZoneUtils",
            "config.ServiceUtils", "config.Value", "core.TalvernCore", "firmwaremanager.FirmwareManagerUtils",
            "processmanager.ProcessManagerUtils", "services.ServicesUtils", "user.UserUtils");

    private Natives() {}

    /** All of a class, by its name without package; of all classes for null. */
    static List<Method> all(String className) {
        return CLASSES.stream().filter(name -> className == null || name.endsWith("." + className))
                .flatMap(Natives::ofClass).collect(Collectors.toList());
    }

    private static Stream<Method> ofClass(String name) {
        Method[] methods;
        try {
            methods = Class.forName("com.kvo.talvern." + name, false, Natives.class.getClassLoader()).getDeclaredMethods();
        } catch (ClassNotFoundException e) {
            throw new NoClassDefFoundError("The Java classes of the API lack " + e.getMessage() + ".");
        }
        return Arrays.stream(methods).filter(method -> Modifier.isNative(method.getModifiers()))
                .map(method -> over(method, methods)).sorted(Comparator.comparing(Natives::name));
    }

    private static Method over(Method nativeMethod, Method[] methods) {
        return Arrays.stream(methods).filter(method -> ("_" + method.getName()).equals(nativeMethod.getName())
                && method.getParameterCount() == nativeMethod.getParameterCount()).findFirst().orElse(nativeMethod);
    }

    /** The name by which the console knows a method, such as NodeName.getNodeName. */
    static String name(Method method) {
        return method.getDeclaringClass().getSimpleName() + "." + method.getName();
    }

    /** The method of this name, which may have the native method's underscore; null if there is none. */
    static Method find(String name) {
        String[] parts = name.replaceFirst("^com[.]kvo[.]talvern[.][a-z]+[.]", "").split("[.]_?", 2);
        return all(parts[0]).stream().filter(method -> parts.length == 2 && method.getName().equals(parts[1]))
                .findFirst().orElse(null);
    }
}
