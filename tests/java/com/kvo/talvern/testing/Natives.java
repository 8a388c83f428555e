package com.kvo.talvern.testing;

import java.io.File;
import java.io.IOException;
import java.lang.invoke.MethodType;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import java.util.jar.JarEntry;
import java.util.jar.JarFile;

/** Finds native methods, and shows Java objects as text. */
public final class Natives {
    private Natives() {}

    /** All native methods of a jar's classes in a package and below: class, name, signature of each. */
    public static String[] list(String jar, String folder) throws IOException, ClassNotFoundException {
        List<String> natives = new ArrayList<>();
        try (JarFile file = new JarFile(new File(jar))) {
            for (JarEntry entry : Collections.list(file.entries())) {
                if (!entry.getName().startsWith(folder) || !entry.getName().endsWith(".class")) {
                    continue;
                }
                String name = entry.getName().substring(0, entry.getName().length() - ".class".length());
                for (Method method : Class.forName(name.replace('/', '.')).getDeclaredMethods()) {
                    if (Modifier.isNative(method.getModifiers())) {
                        natives.add(name);
                        natives.add(method.getName());
                        natives.add(MethodType.methodType(method.getReturnType(), method.getParameterTypes())
                                .toMethodDescriptorString());
                    }
                }
            }
        }
        return natives.toArray(new String[0]);
    }

    /** The object as text; arrays with their elements. */
    public static String describe(Object object) {
        String inBrackets = Arrays.deepToString(new Object[] {object});
        return inBrackets.substring(1, inBrackets.length() - 1);
    }
}
