package com.kvo.talvern.testing;

import com.kvo.talvern.config.SimpleValue;
import com.kvo.talvern.config.Value;
import java.lang.reflect.Array;
import java.lang.reflect.Constructor;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.util.HashMap;
import java.util.Map;

/** Calls every native method, and prints the exceptions. */
public final class Refusals {
    private Refusals() {}

    public static void main(String[] jar) throws ReflectiveOperationException, java.io.IOException {
        String[] natives = Natives.list(jar[0], "com/kvo/talvern/");
        for (int i = 0; i < natives.length; i += 3) {
            Class<?> owner = Class.forName(natives[i].replace('/', '.'));
            for (Method method : owner.getDeclaredMethods()) {
                if (method.getName().equals(natives[i + 1])) {
                    call(method, argument(owner));
                }
            }
        }
    }

    private static void call(Method method, Object receiver) throws ReflectiveOperationException {
        method.setAccessible(true);
        Object[] arguments = new Object[method.getParameterCount()];
        for (int i = 0; i < arguments.length; i++) {
            arguments[i] = argument(method.getParameterTypes()[i]);
        }
        try {
            method.invoke(receiver, arguments);
        } catch (InvocationTargetException e) {
            System.out.println(e.getCause());
        }
    }

    /** One that no native method refuses by itself. */
    private static Object argument(Class<?> type) throws ReflectiveOperationException {
        if (type.isPrimitive() || type.isArray()) {
            Object array = Array.newInstance(type.isArray() ? type.getComponentType() : type, type.isArray() ? 0 : 1);
            return type.isArray() ? array : Array.get(array, 0);
        }
        if (type.isInterface()) {
            return type == Map.class ? new HashMap<>() : null;
        }
        if (type.isEnum()) {
            return type.getEnumConstants()[0];
        }
        if (type == Value.class) {
            return new SimpleValue("text", false);
        }
        Constructor<?> create = type.getDeclaredConstructor();
        create.setAccessible(true);
        return create.newInstance();
    }
}
