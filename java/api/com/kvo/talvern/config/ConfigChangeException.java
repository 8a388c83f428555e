package com.kvo.talvern.config;

import com.kvo.talvern.TalvernException;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/**
 * The configuration service refuses a change that the present configuration does not allow.
 */
public class ConfigChangeException extends TalvernException {
    private static final long serialVersionUID = 1L;

    private final int code;
    private final String[] details;

    /**
     * @param code the service's number for the reason
     * @param text why the change is refused
     * @param details what stands in its way, for instance the names of the objects that use this one
     */
    public ConfigChangeException(int code, String text, String[] details) {
        super(text);
        this.code = code;
        this.details = details.clone();
    }

    /**
     * @return the service's number for the reason
     */
    public int getCode() {
        return code;
    }

    /**
     * @return what stands in the way of the change
     */
    public List<String> getDetails() {
        return Collections.unmodifiableList(Arrays.asList(details));
    }
}
