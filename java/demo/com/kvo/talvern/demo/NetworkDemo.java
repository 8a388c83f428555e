package com.kvo.talvern.demo;

import com.kvo.talvern.appliance.DNSUtils;
import com.kvo.talvern.appliance.EthernetInterfaces;
import com.kvo.talvern.appliance.HostsUtils;
import com.kvo.talvern.appliance.NTPUtils;
import java.util.Arrays;
import java.util.Map;

/** Reads and changes the network settings. */
final class NetworkDemo {
    private NetworkDemo() {}

    static void run() {
        servers();
        hosts();
        interfaces();
    }

    private static void servers() {
        Demo.title("Name servers and time servers");
        DNSUtils dns = new DNSUtils();
        NTPUtils ntp = new NTPUtils();
        String[] nameServers = dns.getNameServers();
        Demo.show("name servers", Arrays.toString(nameServers));
        Demo.show("accepts 10.0.2.53 and 2001:db8::53", dns.setNameServers("10.0.2.53", "2001:db8::53"));
        Demo.show("name servers", Arrays.toString(dns.getNameServers()));
        Demo.show("accepts 10.0.2.999", dns.setNameServers("10.0.2.999"));
        dns.setNameServers(nameServers);
        Demo.show("search domains", Arrays.toString(dns.getSearchDomains()));
        Demo.show("time servers", Arrays.toString(ntp.getTimeServers()));
        Demo.refused("a null among the time servers", () -> ntp.setTimeServers("ntp1.example.com", null));
    }

    private static void hosts() {
        Demo.title("Hosts table");
        HostsUtils hosts = new HostsUtils();
        hosts.setHostnames("10.0.0.30", "backup.example.com", "backup");
        for (String address : hosts.getAddresses()) {
            Demo.show(address, String.join(" ", hosts.getHostnames(address)));
        }
        Demo.show("removes 10.0.0.30", hosts.deleteHostnames("10.0.0.30"));
        Demo.show("removes it again", hosts.deleteHostnames("10.0.0.30"));
    }

    private static void interfaces() {
        Demo.title("Network interfaces");
        EthernetInterfaces interfaces = new EthernetInterfaces();
        String row = "  %-8s %-10s %-8s %-6s %-16s %s%n";
        System.out.printf(row, "name", "type", "enabled", "mode", "address", "hardware address");
        for (Map<String, String> attributes : interfaces.getEthernetInterfaces()) {
            System.out.printf(row, attributes.get("name"), attributes.get("type"), attributes.get("enabled"),
                    attributes.getOrDefault("mode", "-"), attributes.getOrDefault("ipAddress", "-"),
                    attributes.getOrDefault("hwAddress", "-"));
        }
        Demo.show("status of agg0", interfaces.getAggregateStatus("agg0"));
        Demo.show("status of vlan100", interfaces.getVLANStatus("vlan100"));
        Demo.show("agg0 as a VLAN", interfaces.getVLANStatus("agg0"));

        Demo.show("adds 10.0.0.99 to eth0, status", interfaces.addVIPToInterface("eth0", "10.0.0.99"));
        Demo.show("adds it to lo as well, status", interfaces.addVIPToLoopback("10.0.0.99"));
        Demo.show("status of eth0", interfaces.getEthernetInterfaceStatus("eth0"));
        interfaces.removeVIPFromInterface("eth0", "10.0.0.99");

        Map<String, String> eth0 = interfaces.getEthernetInterface("eth0");
        eth0.put("mtu", "1400");
        Demo.show("sets the MTU of eth0 to 1400, status", interfaces.setEthernetInterface(eth0));
        eth0.put("mtu", "huge");
        Demo.show("sets it to 'huge', status", interfaces.setEthernetInterface(eth0));
        Demo.show("the MTU of eth0", interfaces.getEthernetInterface("eth0").get("mtu"));
        eth0.put("mtu", "1500");
        interfaces.setEthernetInterface(eth0);
    }
}
