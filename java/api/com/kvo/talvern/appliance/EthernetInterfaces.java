package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;
import java.util.HashMap;
import java.util.Map;

/**
 * The network interfaces of the appliance, each known by its name.
 *
 * <p>The configuration of an interface is a set of attributes, text by text; which there are is the
 * appliance's choice. Methods that return a number return the appliance's status, 0 for success. No argument
 * and no element of an array may be null.
 *
 * <p>There are three kinds of interfaces, each with a method of its own for the status, which is null for the other
 * kinds. Where the kind is not known, ask for one after the other:
 *
 * <pre>{@code
 * EthernetInterfaces interfaces = new EthernetInterfaces();
 * for (String name : interfaces.getInterfaceNames()) {
 *     EthernetInterfaceStatus status = interfaces.getEthernetInterfaceStatus(name);
 *     if (status == null) {
 *         status = interfaces.getAggregateStatus(name);
 *     }
 *     if (status == null) {
 *         status = interfaces.getVLANStatus(name);
 *     }
 *     System.out.println(name + (status != null && status.isUp() ? " is up" : " is down"));
 * }
 * }</pre>
 *
 * <p>To change some attributes, read all, change these and write all:
 *
 * <pre>{@code
 * EthernetInterfaces interfaces = new EthernetInterfaces();
 * Map<String, String> attributes = interfaces.getEthernetInterface("eth0");
 * attributes.put("mtu", "9000");
 * int status = interfaces.setEthernetInterface(attributes);
 * }</pre>
 */
public class EthernetInterfaces {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(EthernetInterfaces.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the names of all interfaces
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String[] getInterfaceNames() {
        return _getInterfaceNames();
    }

    /**
     * @return the attributes of each interface; null if the appliance can't read them
     */
    public Map<String, String>[] getEthernetInterfaces() {
        return _getEthernetInterfaces();
    }

    /**
     * @param name the name of an interface
     * @return its attributes; null if there is no such interface
     */
    public Map<String, String> getEthernetInterface(String name) {
        return _getEthernetInterface(name);
    }

    /**
     * Replaces the attributes of one interface, which is named by one of them.
     *
     * @param keys the keys of the attributes; of a key that comes again, the last value counts
     * @param values the value of each key, at the same index
     * @return the appliance's status; 112, without asking the appliance, if the arrays differ in length
     */
    public int setEthernetInterface(String[] keys, String[] values) {
        return _setEthernetInterface(keys, values);
    }

    /**
     * Replaces the attributes of one interface, which is named by one of them.
     *
     * @param attributes the attributes
     * @return the appliance's status
     */
    public int setEthernetInterface(Map<String, String> attributes) {
        if (attributes == null) {
            throw new TalvernException("null map argument");
        }
        return _setEthernetInterface(attributes.keySet().toArray(new String[0]),
                attributes.values().toArray(new String[0]));
    }

    /**
     * Removes the configuration of an interface.
     *
     * @param name the name of the interface
     * @return the appliance's status
     */
    public int clearEthernetInterface(String name) {
        return _clearEthernetInterface(name);
    }

    /**
     * @param name the name of a plain interface
     * @return its status; null if there is no such interface
     */
    public EthernetInterfaceStatus getEthernetInterfaceStatus(String name) {
        return _getEthernetInterfaceStatus(name);
    }

    /**
     * @param name the name of an aggregate of several interfaces
     * @return its status; null if there is no such aggregate
     */
    public EthernetInterfaceStatus getAggregateStatus(String name) {
        return _getAggregateStatus(name);
    }

    /**
     * @param name the name of a VLAN interface
     * @return its status; null if there is no such VLAN
     */
    public EthernetInterfaceStatus getVLANStatus(String name) {
        return _getVLANStatus(name);
    }

    /**
     * Adds a virtual IP address to an interface.
     *
     * @param name the name of the interface
     * @param address the virtual IP address
     * @return the appliance's status
     */
    public int addVIPToInterface(String name, String address) {
        return _addVIPToInterface(name, address);
    }

    /**
     * Removes a virtual IP address from an interface.
     *
     * @param name the name of the interface
     * @param address the virtual IP address
     * @return the appliance's status
     */
    public int removeVIPFromInterface(String name, String address) {
        return _removeVIPFromInterface(name, address);
    }

    /**
     * Adds a virtual IP address to the loopback interface.
     *
     * @param address the virtual IP address
     * @return the appliance's status
     */
    public int addVIPToLoopback(String address) {
        return _addVIPToLoopback(address);
    }

    /**
     * Removes a virtual IP address from the loopback interface.
     *
     * @param address the virtual IP address
     * @return the appliance's status
     */
    public int removeVIPFromLoopback(String address) {
        return _removeVIPFromLoopback(address);
    }

    /**
     * Gives an interface another hardware address at once.
     *
     * @param name the name of the interface
     * @param address the hardware address
     * @return the appliance's status
     */
    public int setHWAddressImmediate(String name, String address) {
        return _setHWAddressImmediate(name, address);
    }

    /**
     * Gives an interface its built-in hardware address again, at once.
     *
     * @param name the name of the interface
     * @return the appliance's status
     */
    public int resetHWAddressImmediate(String name) {
        return _resetHWAddressImmediate(name);
    }

    private native String[] _getInterfaceNames();

    private native HashMap<String, String>[] _getEthernetInterfaces();

    private native HashMap<String, String> _getEthernetInterface(String name);

    private native int _setEthernetInterface(String[] keys, String[] values);

    private native int _clearEthernetInterface(String name);

    private native EthernetInterfaceStatus _getEthernetInterfaceStatus(String name);

    private native EthernetInterfaceStatus _getAggregateStatus(String name);

    private native EthernetInterfaceStatus _getVLANStatus(String name);

    private native int _addVIPToInterface(String first, String second);

    private native int _removeVIPFromInterface(String first, String second);

    private native int _setHWAddressImmediate(String first, String second);

    private native int _addVIPToLoopback(String address);

    private native int _removeVIPFromLoopback(String address);

    private native int _resetHWAddressImmediate(String name);
}
