package com.kvo.talvern.testing;

import java.io.File;
import java.net.URL;
import java.net.URLClassLoader;

/** Loads the API twice in one program, as an application server may. */
public final class TwoLoaders {
    private TwoLoaders() {}

    /**
     * @param jar the API's jar
     */
    public static void main(String[] jar) throws Exception {
        URL[] path = {new File(jar[0]).toURI().toURL()};
        for (int i = 0; i < 2; ++i) {
            // Closed by no one: what they have loaded stays in use.
            @SuppressWarnings("resource")
            ClassLoader loader = new URLClassLoader(path, null);
            Class.forName("com.kvo.talvern.appliance.NodeName", true, loader).getConstructor().newInstance();
        }
    }
}
