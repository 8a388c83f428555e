package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.Value;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;

/** Calls every native method of the API. */
public final class EachNative {
    private EachNative() {}

    public static void main(String[] arguments) throws Exception {
        System.out.println(thrown());
    }

    /** What the native methods throw when called with plausible arguments: a line for each, empty for nothing. */
    public static String thrown() throws ReflectiveOperationException, java.io.IOException {
        String[] natives = Natives.list(System.getProperty("java.class.path").split(":")[0], "com/kvo/talvern/");
        Set<Class<?>> classes = new LinkedHashSet<>();
        for (int i = 0; i < natives.length; i += 3) {
            classes.add(Class.forName(natives[i].replace('/', '.')));
        }
        List<String> thrown = new ArrayList<>();
        for (Class<?> each : classes) {
            for (Method method : each.getDeclaredMethods()) {
                if (Modifier.isNative(method.getModifiers())) {
                    thrown.add(thrownBy(method, each == Value.class ? new SimpleValue("text", false)
                            : each.getDeclaredConstructor().newInstance()));
                }
            }
        }
        return String.join("\n", thrown);
    }

    private static String thrownBy(Method method, Object receiver) throws IllegalAccessException {
        Object[] arguments = new Object[method.getParameterCount()];
        for (int i = 0; i < arguments.length; i++) {
            arguments[i] = plausible(method.getParameterTypes()[i]);
        }
        method.setAccessible(true);
        try {
            method.invoke(receiver, arguments);
            return "";
        } catch (InvocationTargetException e) {
            return e.getCause().toString();
        }
    }

    private static Object plausible(Class<?> type) {
        if (type.isEnum()) {
            return type.getEnumConstants()[1];
        }
        return type == int.class ? (Object) 1
                : type == long.class ? (Object) 1L
                : type == boolean.class ? (Object) true
                : type == String[].class ? new String[] {"first", "second"}
                : type == FileError[].class ? new FileError[5]
                : type == Value.class ? new SimpleValue("text", false)
                : type == FirmwareManagerUtils.UpgradeCallback.class ? null
                : "text";
    }
}
