package com.kvo.talvern.testing;

import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.Value;
import com.kvo.talvern.firmwaremanager.FirmwareManagerUtils;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.ArrayList;
import java.util.List;
import java.util.stream.Stream;

/** Calls every native method of the API. */
public final class EachNative {
    private EachNative() {}

    public static void main(String[] arguments) throws Exception {
        System.out.println(thrown());
    }

    /** What the native methods throw when called with plausible arguments: a line for each, empty for nothing. */
    public static String thrown() throws ReflectiveOperationException, java.io.IOException {
        List<String> thrown = new ArrayList<>();
        for (Method method : Natives.of(System.getProperty("java.class.path").split(":")[0], "com/kvo/talvern/")) {
            Class<?> owner = method.getDeclaringClass();
            Object receiver = owner == Value.class ? plausible(owner) : owner.getDeclaredConstructor().newInstance();
            method.setAccessible(true);
            try {
                method.invoke(receiver, Stream.of(method.getParameterTypes()).map(EachNative::plausible).toArray());
                thrown.add("");
            } catch (InvocationTargetException e) {
                thrown.add(e.getCause().toString());
            }
        }
        return String.join("\n", thrown);
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
