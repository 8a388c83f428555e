package com.kvo.talvern.console;

import com.kvo.talvern.appliance.ApplianceUtils;
import com.kvo.talvern.appliance.DNSUtils;
import com.kvo.talvern.appliance.EthernetInterfaceStatus;
import com.kvo.talvern.appliance.EthernetInterfaces;
import com.kvo.talvern.appliance.HostsUtils;
import com.kvo.talvern.appliance.NTPUtils;
import com.kvo.talvern.appliance.NodeName;
import java.util.Map;
import java.util.TreeMap;
import java.util.function.Function;
import java.util.function.Predicate;
import java.util.function.Supplier;

/** The appliance's network. */
final class NetCommands extends Group {
    private static final String INTERFACE = "The name of an interface.";
    /** The number that the appliance gives a network that is ready. */
    static final int READY = 1;

    private static final String HOST = "A host name or an address.";

    NetCommands() {
        super("net", "Shows, changes and tests the network.");
    }

    @Override
    void addCommands() {
        addNames();
        addInterfaces();
        addHosts();
        addTests();
    }

    private void addNames() {
        show("name", "Shows or changes the node name.", command -> {
            NodeName node = new NodeName();
            if (command.isSet("--initial")) {
                Refusal.unlessZero(node.initNodeName(), "name");
            } else if (command.text("NAME") != null) {
                Refusal.unless(node.setNodeName(command.text("NAME")), "The appliance refuses this name.");
            }
            return new Fields().and("nodeName", node.getNodeName());
        }).optional("NAME", "The new name.").flag("--initial", "Give the appliance its initial name.");
        addServers("dns", "name servers", "nameServers",
                () -> new DNSUtils().getNameServers(), servers -> new DNSUtils().setNameServers(servers));
        addServers("domains", "search domains", "searchDomains",
                () -> new DNSUtils().getSearchDomains(), domains -> new DNSUtils().setSearchDomains(domains));
        addServers("ntp", "time servers", "timeServers",
                () -> new NTPUtils().getTimeServers(), servers -> new NTPUtils().setTimeServers(servers));
    }

    private void addServers(String name, String what, String field, Supplier<String[]> get, Predicate<String[]> set) {
        show(name, "Shows or replaces the " + what + ".", command -> {
            String[] given = command.list("NAME").toArray(new String[0]);
            if (given.length > 0 || command.isSet("--none")) {
                Refusal.unless(set.test(given), "The appliance refuses these " + what + ".");
            }
            return new Fields().and(field, get.get());
        }).list("NAME", "0..*", "The new ones, in order.").flag("--none", "Remove them all.");
    }

    private void addInterfaces() {
        show("interfaces", "Lists the interfaces with their attributes.", command ->
                new Fields().and("interfaces", interfaces()));
        show("interface", "Shows the attributes of an interface.", command ->
                (Fields) Values.plain(attributes(command.text("INTERFACE")))).parameter("INTERFACE", INTERFACE);
        show("status", "Shows the status of an interface.", command -> status(command.text("INTERFACE")))
                .parameter("INTERFACE", INTERFACE);
        change("set", "Changes attributes of an interface.", command -> {
            Map<String, String> attributes = new TreeMap<>(attributes(command.text("INTERFACE")));
            for (String pair : command.list("KEY=VALUE")) {
                int end = pair.indexOf('=');
                if (end <= 0) {
                    throw command.usageError("'" + pair + "' is not KEY=VALUE.");
                }
                attributes.put(pair.substring(0, end), pair.substring(end + 1));
            }
            Refusal.unlessZero(new EthernetInterfaces().setEthernetInterface(attributes), "interface");
        }).parameter("INTERFACE", INTERFACE).list("KEY=VALUE", "1..*", "An attribute. Those not given stay as they are.");
        change("clear", "Removes the configuration of an interface.", command ->
                Refusal.unlessZero(new EthernetInterfaces().clearEthernetInterface(command.text("INTERFACE")), "interface"))
                .parameter("INTERFACE", INTERFACE);

        Group addresses = group("vip", "Adds and removes virtual IP addresses.");
        addAddress(addresses, "add", "Adds a virtual IP address to an interface.", (interfaces, name, address) ->
                name.equals("lo") ? interfaces.addVIPToLoopback(address) : interfaces.addVIPToInterface(name, address));
        addAddress(addresses, "remove", "Removes a virtual IP address from an interface.", (interfaces, name, address) ->
                name.equals("lo") ? interfaces.removeVIPFromLoopback(address)
                        : interfaces.removeVIPFromInterface(name, address));
        Group hardware = group("hwaddr", "Changes hardware addresses.");
        addAddress(hardware, "set", "Gives an interface another hardware address.",
                EthernetInterfaces::setHWAddressImmediate);
        hardware.change("reset", "Gives an interface its built-in hardware address again.", command ->
                Refusal.unlessZero(new EthernetInterfaces().resetHWAddressImmediate(command.text("INTERFACE")), "interface"))
                .parameter("INTERFACE", INTERFACE);
    }

    private interface AddressChange {
        int of(EthernetInterfaces interfaces, String name, String address);
    }

    private static void addAddress(Group group, String name, String description, AddressChange change) {
        group.change(name, description, command -> Refusal.unlessZero(
                change.of(new EthernetInterfaces(), command.text("INTERFACE"), command.text("ADDRESS")),
                "interface or address"))
                .parameter("INTERFACE", INTERFACE).parameter("ADDRESS", "The address.");
    }

    /** The attributes of all interfaces; null if the appliance can't read them. */
    static Table interfaces() {
        return Table.of(new EthernetInterfaces().getEthernetInterfaces(),
                "name", "type", "enabled", "ipAddress", "netmask", "mtu", "hwAddress");
    }

    private static Map<String, String> attributes(String name) {
        Map<String, String> attributes = new EthernetInterfaces().getEthernetInterface(name);
        Refusal.unless(attributes != null, "There is no interface " + name + ".");
        return attributes;
    }

    private static Fields status(String name) {
        EthernetInterfaces interfaces = new EthernetInterfaces();
        Map<String, Function<String, EthernetInterfaceStatus>> kinds = new TreeMap<>();
        kinds.put("plain", interfaces::getEthernetInterfaceStatus);
        kinds.put("aggregate", interfaces::getAggregateStatus);
        kinds.put("vlan", interfaces::getVLANStatus);
        for (Map.Entry<String, Function<String, EthernetInterfaceStatus>> kind : kinds.entrySet()) {
            EthernetInterfaceStatus status = kind.getValue().apply(name);
            if (status != null) {
                return new Fields().and("name", status.getName()).and("kind", kind.getKey())
                        .and("enabled", status.isEnabled()).and("up", status.isUp()).and("details", status.getDetails());
            }
        }
        throw new Refusal("There is no interface " + name + ".");
    }

    private void addHosts() {
        Group hosts = group("hosts", "Shows and changes the hosts table.");
        hosts.show("list", "Lists the addresses with their host names.", command -> new Fields().and("hosts", hosts()));
        hosts.change("set", "Replaces the host names of an address.", command -> Refusal.unless(
                new HostsUtils().setHostnames(command.text("ADDRESS"), command.list("NAME").toArray(new String[0])),
                "The appliance refuses this address or one of these names."))
                .parameter("ADDRESS", "An IP address.").list("NAME", "1..*", "Its host names.");
        hosts.change("delete", "Removes an address and its host names.", command -> Refusal.unless(
                new HostsUtils().deleteHostnames(command.text("ADDRESS")), "The hosts table has no such address."))
                .parameter("ADDRESS", "An IP address.");
    }

    /** The hosts table. */
    static Table hosts() {
        HostsUtils hosts = new HostsUtils();
        Table table = new Table("address", "hostnames");
        for (String address : hosts.getAddresses()) {
            table.add(new Fields().and("address", address).and("hostnames", hosts.getHostnames(address)));
        }
        return table;
    }

    /** What the appliance's number for the state of the network says. */
    static String words(int networkReady) {
        return networkReady == READY ? "ready" : networkReady == 2 ? "on the way" : "not ready";
    }

    private void addTests() {
        show("ready", "Shows whether the network is ready: 1 ready, 2 on the way, 3 not ready.", command -> {
            int state = new ApplianceUtils().networkReady();
            return new Fields().and("networkReady", state).and("meaning", words(state));
        });
        show("resolve", "Resolves a host name on the appliance.", command -> {
            String address = new ApplianceUtils().dnsResolve(command.text("HOST"));
            Refusal.unless(!address.isEmpty(), "The host name can't be resolved.");
            return new Fields().and("address", address);
        }).parameter("HOST", "A host name.");
        change("ping", "Pings a host from the appliance.", command -> Refusal.unless(
                new ApplianceUtils().pingHost(command.text("HOST")), "The host does not answer."))
                .parameter("HOST", HOST);
        change("connect", "Opens a TCP connection from the appliance and closes it.", command -> {
            String problem = new ApplianceUtils().tcpConnect(command.text("HOST"), command.number("PORT"));
            Refusal.unless(problem.isEmpty(), "No connection: " + problem);
        }).parameter("HOST", HOST).number("PORT", "The port.");
        change("sync", "Sets the appliance's clock by a time server.", command -> Refusal.unless(
                new ApplianceUtils().syncNTPServer(command.text("SERVER")), "The clock was not set."))
                .parameter("SERVER", HOST);
    }
}
