package com.kvo.talvern.testing;

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
import java.util.stream.Stream;

/** Finds native methods, and shows Java objects as text. */
public final class Natives {
    private Natives() {}

    /** All native methods of a jar's classes in a package and below. */
    static List<Method> of(String jar, String folder) throws IOException, ClassNotFoundException {
        List<Method> natives = new ArrayList<>();
        try (JarFile file = new JarFile(jar)) {
            for (JarEntry entry : Collections.list(file.entries())) {
                if (entry.getName().startsWith(folder) && entry.getName().endsWith(".class")) {
                    String name = entry.getName().replace(".class", "").replace('/', '.');
                    Stream.of(Class.forName(name).getDeclaredMethods())
                            .filter(method -> Modifier.isNative(method.getModifiers())).forEach(natives::add);
                }
            }
        }
        return natives;
    }

    /** The same: class, name, signature of each. */
    public static String[] list(String jar, String folder) throws IOException, ClassNotFoundException {
        return of(jar, folder).stream().flatMap(method -> Stream.of(
                method.getDeclaringClass().getName().replace('.', '/'), method.getName(),
                MethodType.methodType(method.getReturnType(), method.getParameterTypes()).toMethodDescriptorString()))
                .toArray(String[]::new);
    }

    /** The object as text; arrays with their elements. */
    public static String describe(Object object) {
        String inBrackets = Arrays.deepToString(new Object[] {object});
        return inBrackets.substring(1, inBrackets.length() - 1);
    }
}
