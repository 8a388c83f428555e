package com.kvo.talvern.appliance;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * How the appliance resolves host names.
 */
public class DNSUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(DNSUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * @return the addresses of the name servers, in order of preference; empty if there are none
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public String[] getNameServers() {
        return _getNameServers();
    }

    /**
     * Replaces the name servers. What else the appliance keeps with them stays as it is.
     *
     * @param servers addresses in order of preference; neither the array nor an element is null
     * @return whether the appliance accepted them; if not, nothing has changed
     */
    public boolean setNameServers(String... servers) {
        return _setNameServers(servers);
    }

    /**
     * @return the domains in which a name without dots is looked up, in order; empty if there are none
     */
    public String[] getSearchDomains() {
        return _getSearchDomains();
    }

    /**
     * Replaces the search domains.
     *
     * @param domains the domains in order; neither the array nor an element is null
     * @return whether the appliance accepted them; if not, nothing has changed
     */
    public boolean setSearchDomains(String... domains) {
        return _setSearchDomains(domains);
    }

    private native String[] _getNameServers();

    private native boolean _setNameServers(String[] servers);

    private native String[] _getSearchDomains();

    private native boolean _setSearchDomains(String[] domains);
}
