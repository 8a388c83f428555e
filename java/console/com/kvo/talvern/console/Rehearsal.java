package com.kvo.talvern.console;

import java.io.PrintWriter;
import java.io.Writer;

/**
 * Goes through commands of every kind, without any output. The build and the installation archive the classes that
 * are loaded then, so that the console starts quickly.
 */
final class Rehearsal {
    private Rehearsal() {}

    /**
     * @param jars a jar that fits the bridge and one that does not
     */
    public static void main(String[] jars) {
        String[][] commands = {
            {"--help"},
            {"show"},
            {"show", "--json"},
            {"config", "list"},
            {"config", "types", "LogTarget"},
            {"config", "validate", "ApplicationData", "{\"key\": [\"text\"]}"},
            {"net", "ping", "localhost"},
            {"users", "list"},
            {"capture", "info", "eth0"},
            {"firmware", "--help"},
            {"services", "ready"},
            {"device", "locale"},
            {"call", "NodeName"},
            {"call", "NodeName.getNodeName"},
            {"check", "--jar", jars[0]},
            {"check", "--jar", jars[0], "--json"},
            {"check", "--jar", jars[1]},
            {"check", "--help"},
            {"unknown"},
        };
        for (String[] command : commands) {
            PrintWriter nowhere = new PrintWriter(Writer.nullWriter());
            Console.execute(command, nowhere, nowhere);
        }
    }
}
