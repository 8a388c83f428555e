package com.kvo.talvern.console;

import static org.junit.Assert.assertArrayEquals;
import static org.junit.Assert.assertEquals;
import static org.junit.Assert.assertFalse;
import static org.junit.Assert.assertThrows;
import static org.junit.Assert.assertTrue;

import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.PrintWriter;
import java.io.StringWriter;
import java.lang.reflect.Method;
import java.lang.reflect.Parameter;
import java.net.ServerSocket;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.function.Consumer;
import java.util.stream.Collectors;
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
        String[] words = command.isEmpty() ? new String[0] : command.split(" ");
        for (int i = 0; i < words.length; ++i) {
            words[i] = words[i].replace('~', ' ');
        }
        return Console.execute(words, new PrintWriter(out), new PrintWriter(err));
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
        String[] commands = {"bogus", "help bogus", "check --bogus", "check --bridge /", "check --platform /nowhere --json",
            "show bogus", "show health --watch 0", "config get LogTarget a b", "config create LogTarget main host=a port",
            "config create LogTarget main {", "config validate LogTarget {\"a\":1}2",
            "config validate LogTarget {\"a\":1,\"a\":2}", "config validate LogTarget " + "[".repeat(2000),
            "net connect localhost port", "users add bob " + SECRET, "users ad bob " + SECRET,
            "users add bob --password=" + SECRET, "firmware reflash " + IMAGE, "device led maybe", "call NodeName.bogus",
            "call Bogus", "call .", "call NodeName.getNodeName a", "call NodeName a", "call UserUtils.addUser bob " + SECRET,
            "call ProcessManagerUtils.setPlatformLogLevel LOUD", "call ApplianceUtils.tcpConnect localhost 99999999999",
            "call HardwareStatusUtils.setLocateLED maybe", "call ApplianceUtils.deviceRESET -1",
            "call ApplianceUtils.deviceRESET 1", "call Value.asXML {", "simulate slow nodeName::get 3600001",
            "simulate fail nodeName::get --times 0", "run /nowhere", "completion bogus"};
        for (String command : commands) {
            assertFails(command, ExitCode.USAGE);
            assertEquals(command, "", out.toString());
        }
        for (String command : new String[] {"", "config", "net hosts"}) {
            assertEquals(command, ExitCode.USAGE, run(command));
            assertTrue(command + out, out.toString().isEmpty() && err.toString().startsWith("Usage: "));
        }
        String[] mistyped = {"chekc check", "net~stats status", "net~name~--jsn --json", "show~helth health",
            "call~NodeName.setName NodeName.setNodeName"};
        for (String line : mistyped) {
            assertFails(line.split(" ")[0].replace('~', ' '), ExitCode.USAGE);
            assertTrue(err.toString(), err.toString().contains("; did you mean `" + line.split(" ")[1] + "`?"));
        }
        assertEquals(ExitCode.DONE, run("help net hosts"));
        String help = out.toString();
        assertEquals(ExitCode.DONE, run("net hosts --help"));
        assertEquals(help, out.toString());
    }

    @Test
    public void refusalsGiveOneLine() {
        String[] commands = {"net name not~a~host", "net dns bogus", "net interface eth9", "net status eth9",
            "net set eth9 mtu=1500", "net clear eth9", "net vip add eth9 10.0.9.1", "net vip remove lo 10.0.9.1",
            "net hosts set bogus name", "net hosts delete 10.9.9.9", "net resolve nowhere.invalid",
            "net ping nowhere.invalid", "net connect localhost 1", "config get Bogus main",
            "config create EthernetInterface eth0 address=10.0.0.1", "config delete LogTarget bogus", "config list Bogus",
            "config types Bogus", "config enable LogTarget bogus", "users key delete admin",
            "users key add admin bogus key", "capture start eth9 file", "capture start eth0 file --max-seconds -1",
            "capture stop eth0", "capture remove eth0", "firmware rollback", "firmware delete-previous",
            "firmware reflash bogus --yes", "services test start bogus 5", "services test stop database",
            "device locale xx_XX", "device timezone Mars", "device reset --yes",
            "call ApplianceUtils.triggerException two\nlines", "call NodeName.setNodeName null", "call Value.asXML null"};
        for (String command : commands) {
            assertFails(command, ExitCode.REFUSED);
        }
        String[][] reasons = {{"config validate EthernetInterface address=192.0.2.256", ": address: "},
            {"config validate EthernetInterface mtu=1500", ": address: "},
            {"config validate EthernetInterface address=192.0.2.1 mtu=9001", ": mtu: "},
            {"config validate EthernetInterface address=192.0.2.1 nameServers=10.0.0.1", ": nameServers: "},
            {"config validate UserGroup role=king", ": role: "}, {"config validate UserGroup colour=red", ": colour: "},
            {"config validate LogTarget port=1", ": host: "}, {"config validate LogTarget {\"host\":null}", ": host: "},
            {"users delete nobody", ": There is no such user (status 2)."},
            {"config create UserGroup administrators role=viewer --replace", ": The appliance does not permit this (status 4)."},
            {"config create UserGroup administrators role=viewer", ": The object exists already (status 3)."},
            {"net hwaddr set lo 02:00:00:00:00:01", ": This is not for that type of interface or address (status 7)."},
            {"config list LogTraget", ": There is no type 'LogTraget'; did you mean `LogTarget`? (status 7)"}};
        for (String[] reason : reasons) {
            assertFails(reason[0], ExitCode.REFUSED);
            assertTrue(reason[0] + ": " + err, err.toString().contains(reason[1]));
        }
    }

    @Test
    public void healthSaysWhatIsWrong() {
        assertEquals(ExitCode.UNHEALTHY, run("show identity health"));
        assertTrue(out.toString(), out.toString().contains("FAILED   fan 3          reads 1250 rpm\n"));
        assertEquals(ExitCode.UNHEALTHY, run("show health --json"));
        Fields health = (Fields) ((Fields) Json.read(out.toString())).get("health");
        assertEquals("FAILED", health.get("state"));
        assertEquals(Set.of("state", "part", "problem"), ((Fields) ((List<?>) health.get("problems")).get(0)).keySet());
    }

    @Test
    public void typesAreDescribedAsTheApplianceTakesThem() {
        for (Object type : (List<?>) json("config types").get("types")) {
            Fields description = json("config types " + type);
            type(description.get("example").toString().replace("NAME", "example").replace("PARENT", "eth0"));
            assertEquals(type + ": " + err, ExitCode.DONE, run("run"));
            List<?> fields = (List<?>) description.get("fields");
            for (Object left : fields) {
                String others = fields.stream().filter(field -> field != left).map(field -> (Fields) field)
                        .map(field -> field.get("name") + "=" + field.get("example")).collect(Collectors.joining(" "));
                boolean isRequired = ((Fields) left).get("required").equals("true");
                assertEquals(type + " without " + left, isRequired ? ExitCode.REFUSED : ExitCode.DONE,
                        run("config validate " + type + " " + (others.isEmpty() ? "{}" : others)));
            }
        }
    }

    @Test
    public void jsonHasStableFields() {
        String[] commands = {
            "show = identity network sensors storage health configuration users captures firmware",
            "config list = objects", "config types = types", "config xml EthernetInterface eth0 = xml",
            "config get EthernetInterface eth0 = type parent name adminState opState value", "net name = nodeName",
            "net dns = nameServers", "net domains = searchDomains", "net ntp = timeServers",
            "net interfaces = interfaces", "net status agg0 = name kind enabled up details", "net hosts list = hosts",
            "net ready = networkReady meaning", "net resolve localhost = address", "users list = users",
            "capture list = captures", "capture info eth0 = interfaceName state files",
            "firmware info = releaseKeyed components", "services ready = services", "device timezone = timeZone timeZones",
            "device locale = locale", "net clear eth1 = done", "net sync ntp = done", "services snmp restart = done",
            "services test perform network = done", "capture start eth0 file = done", "device led on = done",
            "device reboot --yes = done", "firmware reflash " + IMAGE + " --yes = done"};
        for (String command : commands) {
            String[] parts = command.split(" = ");
            assertEquals(command, Set.of(parts[1].split(" ")), json(parts[0]).keySet());
        }
        assertEquals(ExitCode.DONE, run("show"));
        assertTrue(out.toString(), out.toString().startsWith("identity\n"));
        Fields show = json("show");
        assertEquals("TV0042", ((Fields) show.get("identity")).get("serialNumber"));
        Fields fan = (Fields) ((List<?>) ((Fields) show.get("sensors")).get("fans")).get(2);
        assertEquals(Set.of("name", "reading", "ok", "minimum", "maximum", "lowerWarning", "upperWarning",
                "lowerCritical", "upperCritical"), fan.keySet());

        String otherJar = System.getProperty("talvern.build") + "/picocli.jar";
        assertEquals(ExitCode.MISMATCH, run("check --json --jar " + otherJar));
        Fields check = (Fields) Json.read(out.toString());
        assertEquals(Set.of("fits", "jars", "bridge", "platforms", "appliance", "natives", "members", "operations", "notCompared",
                "findings"), check.keySet());
        assertEquals(Set.of("party", "kind", "name", "symbol", "problem", "header"),
                ((Fields) ((List<?>) check.get("findings")).get(0)).keySet());
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
        try (ServerSocket open = new ServerSocket(0)) {
            json("net connect localhost " + open.getLocalPort());
            assertFails("net connect localhost " + (65536 + open.getLocalPort()), ExitCode.REFUSED);
        }
        json("services test start storage 5");
        assertFails("services test start storage 5", ExitCode.REFUSED);
        json("capture start eth0 first");
        assertFails("capture start eth0 other", ExitCode.REFUSED);
        assertFails("capture remove eth0", ExitCode.REFUSED);
        json("capture stop eth0");
        json("capture start eth0 second");
        assertEquals(List.of("first", "second"), json("capture info eth0").get("files"));
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
        json("config create ApplicationData red \u001b[31mred");
        run("config get ApplicationData red");
        assertTrue(out.toString(), out.toString().contains("?[31mred")); // and no escape sequence
        json("config create VirtualAddress v --parent eth0 address=10.0.0.9");
        Object objects = json("config list VirtualAddress --parent eth0").get("objects");
        assertEquals("v", ((Fields) ((List<?>) objects).get(0)).get("name"));
    }

    @Test
    public void passwordsComeFromTheInputAndAreNeverShown() {
        String[] commands = {"0 users add bob", "0 users login bob", "1 users add bob --json", "1 users login nobody",
            "0 users password bob --json", "1 users password nobody", "0 call UserUtils.authenticateUser bob",
            "0 call --json UserUtils.changePassword bob", "0 show users"};
        StringBuilder seen = new StringBuilder();
        type((SECRET + "\n").repeat(commands.length));
        for (String command : commands) {
            int exitCode = run(command.substring(2));
            assertEquals(command + err, command.charAt(0) - '0', exitCode);
            seen.append(out).append(err);
        }
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
            for (Parameter parameter : method.getParameters()) {
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
        assertTrue(err.toString(), err.toString().contains("talvern-console: line 5: There is no interface eth9."));
        assertEquals("rack-9", json("net name").get("nodeName"));
        for (String line : List.of("run x", "net name 'open", "bogus", "! bogus", "\u0080".repeat(1 << 20))) {
            Files.writeString(file, line + "\nnet name rack-10");
            assertFails("run " + file, ExitCode.USAGE);
            assertTrue(err.toString(), err.toString().matches("(?i)talvern-console: line 1.*\n"));
        }
        Files.write(file, new byte[] {'#', (byte) 0x80, '\n'});
        assertFails("run " + file, ExitCode.USAGE);
        Files.writeString(file, "net name\nusers list\nexit\nnet name rack-10");
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
    public void aLineThatMayBeAPasswordIsNotShown() {
        String[] wrongLines = {"users add bob and eve", "! users add", "! usres add bob", "users add 'bob",
            "! call UserUtils.addUser bob " + SECRET, "users add bob\n" + SECRET};
        for (String line : wrongLines) {
            type(line + "\n" + SECRET + "\n");
            assertEquals(line, ExitCode.USAGE, run("run --echo"));
            assertFalse(line + out + err, (out.toString() + err).contains(SECRET));
        }
    }

    @Test
    public void fileOfTheApplianceIsChangedAsAWholeOrStaysAsItIs() throws IOException {
        Path folder = Files.createTempDirectory("appliance");
        Path file = folder.resolve("appliance.json");
        Path lock = folder.resolve("appliance.json.lock");
        ApplianceFile appliance = new ApplianceFile(Files.createSymbolicLink(folder.resolve("link"), file.getFileName()));
        Consumer<Fields> change = content -> content.put("nodeName", "rack-7");
        appliance.change(change);
        assertEquals("rack-7", appliance.read().get("nodeName"));
        Set<PosixFilePermission> mode = PosixFilePermissions.fromString("rw-r-----");
        Files.setPosixFilePermissions(file, mode);
        Object user = Files.getAttribute(folder, "unix:uid");
        Object owner = user.equals(0) ? 65534 : user; // root can give files away
        Files.setAttribute(file, "unix:uid", owner);
        Files.delete(lock);
        appliance.change(change);
        for (Path made : List.of(file, lock)) {
            assertEquals(mode, Files.getPosixFilePermissions(made));
            assertEquals(owner, Files.getAttribute(made, "unix:uid"));
        }
        Map<String, String> problems = Map.of("", "There is no JSON value.", "[]", "is no JSON object.", "{\n]",
                "Wrong JSON in line 2: ", "\"\u00ff\"", "a text is not Unicode.", "{\"a\": \"\\ud800\"}", "a text is not Unicode.");
        for (Map.Entry<String, String> problem : problems.entrySet()) {
            byte[] text = problem.getKey().getBytes(StandardCharsets.ISO_8859_1);
            Files.write(file, text);
            Refusal refusal = assertThrows(Refusal.class, () -> appliance.change(change));
            assertTrue(refusal.getMessage(), refusal.getMessage().startsWith(file + ": " + problem.getValue()));
            assertArrayEquals(text, Files.readAllBytes(file));
        }
        Files.writeString(file, "{}");
        Files.setPosixFilePermissions(file, PosixFilePermissions.fromString("r--r--r--"));
        assertEquals(file + ": is read-only.", assertThrows(Refusal.class, () -> appliance.change(change)).getMessage());
        assertEquals(Set.of("appliance.json", "appliance.json.lock", "link"), Set.of(folder.toFile().list()));
        assertThrows(Refusal.class, () -> new ApplianceFile(folder).read());
    }
}
