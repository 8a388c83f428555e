package com.kvo.talvern.console;

import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertTrue;

import com.kvo.talvern.firmwaremanager.UpgradeCode;
import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.lang.reflect.Method;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import org.junit.Before;
import org.junit.Test;

/** The console's commands, on the simulated appliance in this process. */
public class CommandsTest {
    private static final String SECRET = "hunter2";
    private static final String IMAGE = "talvern-2.1.img";

    private final StringWriter out = new StringWriter();
    private final StringWriter err = new StringWriter();

    /** Runs a command whose words have blanks between them; ~ stands for a blank in a word. */
    private int run(String command) {
        out.getBuffer().setLength(0);
        err.getBuffer().setLength(0);
        String[] words = command.split(" ");
        for (int i = 0; i < words.length; ++i) {
            words[i] = words[i].replace('~', ' ');
        }
        return Console.commandLine(words).setOut(new PrintWriter(out, true)).setErr(new PrintWriter(err, true))
                .execute(words);
    }

    private void type(String lines) {
        System.setIn(new ByteArrayInputStream(lines.getBytes(StandardCharsets.UTF_8)));
    }

    private Fields json(String command) {
        assertEquals(command + ": " + err, ExitCode.DONE, run(command + " --json"));
        return (Fields) Json.read(out.toString());
    }

    private void assertFails(String command, int exitCode) {
        assertEquals(command, exitCode, run(command));
        assertTrue(command + ": " + err, err.toString().matches("talvern-console: [^\n]*[^\n ][^\n ]\n"));
        assertFalse(command + ": " + err, err.toString().contains("Exception") || err.toString().contains(SECRET));
    }

    @Before
    public void reset() {
        type("");
        run("device reset --yes");
    }

    @Test
    public void wrongCommandLinesGiveOneLine() {
        String[] commands = {"show bogus", "config", "config get LogTarget", "config get LogTarget a b",
            "config create LogTarget main host=a port", "config create LogTarget main {",
            "config set LogTarget main {\"a\":[1}", "config validate LogTarget {\"a\":1}2",
            "config validate LogTarget {\"a\":1,\"a\":2}", "config xml",
            "config validate LogTarget " + "[".repeat(2000), "net", "net bogus", "net name a b",
            "net connect localhost port", "net ping", "net set eth0 mtu", "net set eth0", "net vip", "net vip add eth0",
            "net hosts set 10.0.0.1", "net hwaddr set eth0", "users", "users add", "users add bob",
            "users add bob " + SECRET, "users ad bob " + SECRET, "users add bob --password=" + SECRET,
            "users login bob " + SECRET, "users key add bob", "capture start eth0",
            "capture start eth0 file --max-bytes many", "capture info", "firmware upgrade", "firmware reflash " + IMAGE,
            "services test start database often", "services snmp", "device reset", "device reboot", "device shutdown",
            "device led maybe", "call NodeName.setNodeName", "call NodeName.bogus", "call Bogus", "call .",
            "call NodeName.getNodeName a", "call UserUtils.addUser bob " + SECRET,
            "call ProcessManagerUtils.setPlatformLogLevel LOUD", "call ApplianceUtils.tcpConnect localhost 99999999999",
            "call HardwareStatusUtils.setLocateLED maybe", "call ApplianceUtils.deviceRESET -1",
            "call ApplianceUtils.deviceRESET 1", "call Value.asXML {", "run /nowhere", "run / --bogus",
            "completion bogus"};
        for (String command : commands) {
            assertFails(command, ExitCode.USAGE);
            assertEquals(command, "", out.toString());
        }
    }

    @Test
    public void refusalsGiveOneLine() {
        String[] commands = {"net name not~a~host", "net dns bogus", "net interface eth9", "net status eth9", "net set eth0 mtu=1",
            "net set eth9 mtu=1500", "net clear eth9", "net vip add eth9 10.0.9.1", "net vip remove lo 10.0.9.1",
            "net hwaddr set lo 02:00:00:00:00:01", "net hosts set bogus name", "net hosts delete 10.9.9.9",
            "net resolve nowhere.invalid", "net ping nowhere.invalid", "net connect localhost 1",
            "config get Bogus main", "config get LogTarget bogus", "config set EthernetInterface eth0 mtu=1",
            "config create EthernetInterface eth0 address=10.0.0.1", "config delete LogTarget bogus",
            "config validate LogTarget port=1", "config list Bogus", "config enable LogTarget bogus",
            "users delete nobody", "users key delete admin", "users key add admin bogus key", "capture start eth9 file",
            "capture start eth0 file --max-seconds -1", "capture stop eth0", "capture remove eth0", "firmware rollback",
            "firmware delete-previous", "firmware reflash bogus --yes", "services test start bogus 5",
            "services test stop database", "device locale xx_XX", "device timezone Mars", "device reset --yes",
            "call ApplianceUtils.triggerException two\nlines", "call NodeName.setNodeName null",
            "call Value.asXML null"};
        for (String command : commands) {
            assertFails(command, ExitCode.REFUSED);
        }
    }

    @Test
    public void jsonHasStableFields() {
        Map<String, Set<String>> fields = new LinkedHashMap<>();
        fields.put("show", Set.of("identity", "network", "sensors", "storage", "health", "configuration", "users", "captures",
                "firmware"));
        fields.put("show users", Set.of("users"));
        fields.put("config list", Set.of("objects"));
        fields.put("config types", Set.of("types"));
        fields.put("config get EthernetInterface eth0", Set.of("type", "parent", "name", "adminState", "opState", "value"));
        fields.put("config xml EthernetInterface eth0", Set.of("xml"));
        fields.put("net name", Set.of("nodeName"));
        fields.put("net dns", Set.of("nameServers"));
        fields.put("net domains", Set.of("searchDomains"));
        fields.put("net ntp", Set.of("timeServers"));
        fields.put("net interfaces", Set.of("interfaces"));
        fields.put("net status agg0", Set.of("name", "kind", "enabled", "up", "details"));
        fields.put("net hosts list", Set.of("hosts"));
        fields.put("net ready", Set.of("networkReady"));
        fields.put("net resolve localhost", Set.of("address"));
        fields.put("users list", Set.of("users"));
        fields.put("capture list", Set.of("captures"));
        fields.put("capture info eth0", Set.of("interfaceName", "state", "files"));
        fields.put("firmware info", Set.of("releaseKeyed", "components"));
        fields.put("services ready", Set.of("services"));
        fields.put("device timezone", Set.of("timeZone", "timeZones"));
        fields.put("device locale", Set.of("locale"));
        for (String change : List.of("net clear eth1", "net sync ntp", "services snmp restart", "services test perform network",
                "capture start eth0 file", "device led on", "device reboot --yes", "firmware reflash " + IMAGE + " --yes")) {
            fields.put(change, Set.of("done"));
        }
        fields.forEach((command, names) -> assertEquals(command, names, json(command).keySet()));

        Fields show = json("show");
        assertEquals("TV0042", ((Fields) show.get("identity")).get("serialNumber"));
        Fields fan = (Fields) ((List<?>) ((Fields) show.get("sensors")).get("fans")).get(2);
        assertEquals("false", fan.get("ok"));
        assertEquals(Set.of("name", "reading", "ok", "minimum", "maximum", "lowerWarning", "upperWarning", "lowerCritical",
                "upperCritical"), fan.keySet());
    }

    @Test
    public void whatIsSetIsShown() throws IOException {
        assertEquals("rack-7", json("net name rack-7").get("nodeName"));
        assertEquals(List.of("10.0.0.1", "10.0.0.2"), json("net dns 10.0.0.1 10.0.0.2").get("nameServers"));
        assertEquals(List.of(), json("net ntp --none").get("timeServers"));
        json("net set eth0 mtu=9000");
        assertEquals("9000", json("net interface eth0").get("mtu"));
        json("net vip add lo 10.0.9.1");
        assertTrue(json("net status lo").get("details").toString().contains("10.0.9.1"));

        json("config create LogTarget main host=log.example --disabled");
        json("config set LogTarget main {\"port\":514}");
        Fields target = json("config get LogTarget main");
        assertEquals("DISABLED", target.get("adminState"));
        assertEquals(new Fields().and("host", "log.example").and("port", "514"), target.get("value"));
        json("config set LogTarget main --whole host=other");
        assertEquals(new Fields().and("host", "other"), json("config get LogTarget main").get("value"));
        json("config create ApplicationData data a={\"b\":[1,[],\"x\"]} c=d=e");
        run("config get ApplicationData data");
        assertTrue(out.toString(), out.toString().contains("\n  c  d=e\n"));
        assertTrue(out.toString(), out.toString().contains("\n  a\n    b  1, (none), x\n"));
        json("config create UserGroup group role=operator description=\u001b[31mred");
        run("config get UserGroup group");
        assertTrue(out.toString(), out.toString().contains("?[31mred")); // and no escape sequence
        json("config create VirtualAddress v --parent eth0 address=10.0.0.9");
        Object objects = json("config list VirtualAddress --parent eth0").get("objects");
        assertEquals("v", ((Fields) ((List<?>) objects).get(0)).get("name"));
    }

    @Test
    public void passwordsComeFromTheInputAndAreNeverShown() {
        StringBuilder seen = new StringBuilder();
        Map<String, Integer> commands = new LinkedHashMap<>();
        commands.put("users add bob", ExitCode.DONE);
        commands.put("users login bob", ExitCode.DONE);
        commands.put("users add bob --json", ExitCode.REFUSED);
        commands.put("users login nobody", ExitCode.REFUSED);
        commands.put("users password bob --json", ExitCode.DONE);
        commands.put("users password nobody", ExitCode.REFUSED);
        commands.put("call UserUtils.authenticateUser bob", ExitCode.DONE);
        commands.put("call --json UserUtils.changePassword bob", ExitCode.DONE);
        commands.put("show users", ExitCode.DONE);
        type((SECRET + "\n").repeat(commands.size()));
        commands.forEach((command, exitCode) -> {
            assertEquals(command + err, (int) exitCode, run(command));
            seen.append(out).append(err);
        });
        assertFalse(seen.toString(), seen.toString().contains(SECRET));
    }

    @Test
    public void everyNativeCanBeCalled() {
        List<Method> methods = Natives.all(null);
        assertEquals(116, methods.size());
        for (Method method : methods) {
            type(SECRET + "\n");
            List<String> words = new ArrayList<>(List.of("call", "--yes", "--json", Natives.name(method)));
            if (method.getDeclaringClass().getSimpleName().equals("Value")) {
                words.add("a=b");
            }
            for (java.lang.reflect.Parameter parameter : method.getParameters()) {
                if (!parameter.getName().toLowerCase().endsWith("password")) {
                    words.add(argument(parameter.getType()));
                }
            }
            int exitCode = run(String.join(" ", words));
            if (method.getName().equals("triggerException")) {
                assertEquals(ExitCode.REFUSED, exitCode);
            } else {
                assertEquals(words + err.toString(), ExitCode.DONE, exitCode);
                Json.read(out.toString());
            }
        }
        run("call");
        assertEquals(117, out.toString().lines().count());
        assertTrue(out.toString().contains("\nNodeName.setNodeName "));
        run("call com.kvo.talvern.appliance.NodeName._setNodeName rack-8");
        assertEquals("yes\n", out.toString());
    }

    private static String argument(Class<?> type) {
        if (type.isEnum()) {
            return type.getEnumConstants()[1].toString().toLowerCase();
        }
        return type == boolean.class ? "true" : type.isPrimitive() || type.isArray() && type != String[].class ? "1"
                : type.getSimpleName().equals("UpgradeCallback") ? "null" : "localhost";
    }

    @Test
    public void argumentsAreWhatTheWordsSay() {
        assertEquals("null", Arguments.parse(String.class, "\\null", null));
        assertEquals(null, Arguments.parse(String.class, "null", null));
        assertEquals(0x80000001, Arguments.parse(int.class, "0x80000001", null));
        assertEquals(List.of("a", "", "b"), List.of((Object[]) Arguments.parse(String[].class, "a,,b", null)));
        assertEquals(0, ((Object[]) Arguments.parse(String[].class, "", null)).length);
    }

    @Test
    public void commandsOfAFileRunUntilOneFails() throws IOException {
        Path file = Files.createTempFile("commands", "");
        Files.writeString(file, "# Names\n\nnet name 'rack-9'\n! net name \"not a\\\" host\"\n"
                + "net interface eth9\nnet name rack-10\n");
        assertEquals(ExitCode.REFUSED, run("run --echo " + file));
        assertTrue(out.toString(), out.toString().startsWith("Names\n\ntalvern> net name 'rack-9'\nrack-9\n"));
        assertEquals("rack-9", json("net name").get("nodeName"));
        for (String line : List.of("run x", "net name 'open", "bogus")) {
            Files.writeString(file, line);
            assertFails("run " + file, ExitCode.USAGE);
        }
        Files.writeString(file, "net name\nusers list");
        assertEquals(ExitCode.DONE, run("run --json " + file));
        assertTrue(out.toString(), out.toString().matches("(?s)\\{.*\"nodeName\" : \"rack-9\".*\"users\" : .*\\}\n"));
        Files.writeString(file, "! net name rack-11");
        assertFails("run " + file, ExitCode.REFUSED);
        Files.delete(file);
        type("net name rack-12\nusers add eve\n" + SECRET + "\nusers login eve\n" + SECRET);
        assertEquals(ExitCode.DONE, run("run"));
        assertEquals("rack-12\nDone.\nDone.\n", out.toString());
    }

    @Test
    public void progressIsABarOnATerminalOnly() throws Exception {
        Output output = new Output(new PrintWriter(out), Terminal.colors(), false);
        for (int width : new int[] {0, 30, 80}) {
            out.getBuffer().setLength(0);
            if (width > 0) {
                System.setProperty(Terminal.COLUMNS, String.valueOf(width));
            }
            Progress progress = new Progress(output);
            progress.progress(0, 0, UpgradeCode.VERIFYING);
            progress.progress(5, 10, UpgradeCode.VERIFYING);
            progress.progress(Integer.MAX_VALUE, Integer.MAX_VALUE, UpgradeCode.FINISHED);
            progress.awaitEnd();
            output.flush();
            System.clearProperty(Terminal.COLUMNS);
            if (width == 0) {
                assertEquals("  0 %  verifying\n100 %  finished\n", out.toString());
            } else {
                String[] bars = out.toString().split("\r");
                assertTrue(bars[2], bars[2].length() < width && bars[2].contains("#."));
                assertTrue(bars[3], bars[3].length() < width + 1 && bars[3].contains("##]"));
            }
        }
    }
}
