package com.kvo.talvern.testing;

import java.io.DataInputStream;
import java.io.IOException;
import java.util.zip.ZipEntry;
import java.util.zip.ZipFile;

/** Defines classes without telling where they come from, and serves them as classes only. */
public final class BareLoader extends ClassLoader {
    private final ZipFile jar;

    private BareLoader(ZipFile jar) {
        super(null);
        this.jar = jar;
    }

    /**
     * Uses the API: each jar by a loader of its own, as an application server may.
     *
     * @param jars the API's jar, once or several times
     */
    public static void main(String[] jars) throws Exception {
        for (String jar : jars) {
            try (ZipFile content = new ZipFile(jar)) {
                Class<?> nodeName = new BareLoader(content).loadClass("com.kvo.talvern.appliance.NodeName");
                nodeName.getMethod("getNodeName").invoke(nodeName.getConstructor().newInstance());
            }
        }
    }

    @Override
    protected Class<?> findClass(String name) throws ClassNotFoundException {
        ZipEntry entry = jar.getEntry(name.replace('.', '/') + ".class");
        try (DataInputStream content = new DataInputStream(jar.getInputStream(entry))) {
            byte[] bytes = new byte[(int) entry.getSize()];
            content.readFully(bytes);
            return defineClass(name, bytes, 0, bytes.length);
        } catch (IOException | NullPointerException e) {
            throw new ClassNotFoundException(name, e);
        }
    }
}
