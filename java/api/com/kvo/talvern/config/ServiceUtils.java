package com.kvo.talvern.config;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;
import java.util.ArrayList;
import java.util.List;

/**
 * The configuration service of the appliance: objects of several types, each with a value, an administrative and
 * an operational state.
 *
 * <pre>{@code
 * ServiceUtils service = new ServiceUtils();
 * StructValue value = new StructValue(false);
 * value.put("host", new SimpleValue("log.example", false));
 * value.put("port", new SimpleValue("514", false));
 * try {
 *     ReturnCode code = service.createObject("LogTarget", null, "main", value, AdminState.ENABLED, false);
 *     System.out.println(code == ReturnCode.OK ? "created" : "refused: " + code);
 * } catch (ValidationException e) {
 *     System.out.println(e.getField() + " is not acceptable: " + e.getMessage());
 * } catch (ConfigChangeException e) {
 *     System.out.println("in the way: " + e.getDetails());
 * }
 * List<String> names = service.getNamesofObject("LogTarget", null);
 * System.out.println(names != null ? names : "refused: " + service.getReturnCode());
 * }</pre>
 *
 * <p>Three strings identify an object: its type, the name of the object that it belongs to (its parent), and its
 * own name. Null stands for the empty string, which is the parent of an object that belongs to the appliance
 * itself.
 *
 * <p>Each request has a {@link ReturnCode}. Those that don't return it leave it in {@link #getReturnCode()}. A
 * refusal for a reason is a {@link ValidationException}, if the value is the reason, or a
 * {@link ConfigChangeException}, if other objects are; every method throws a {@link TalvernException} if the
 * appliance fails.
 *
 * <p>An object of this class keeps nothing but the last return code. Threads that read it use one object each.
 */
public class ServiceUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(ServiceUtils.class);

    {
        LIBRARY.require();
    }

    private volatile ReturnCode returnCode = ReturnCode.OK;

    /**
     * @return what came of the last request; a request that ends in an exception leaves it as it was
     */
    public ReturnCode getReturnCode() {
        return returnCode;
    }

    /**
     * Is called with what came of each request, in the midst of it: hence no other code may run here.
     *
     * @param returnCode the code
     */
    protected final void setReturnCode(ReturnCode returnCode) {
        this.returnCode = returnCode;
    }

    /**
     * Creates an object.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @param value its value; null is answered with {@link ReturnCode#NULL_VALUE}
     * @param state its administrative state, not null
     * @param replace whether an object of this name that exists already is replaced
     * @return what came of it
     * @throws ValidationException if the value is not acceptable
     * @throws ConfigChangeException if other objects stand in the way
     */
    public ReturnCode createObject(
            String type, String parent, String name, Value value, AdminState state, boolean replace) {
        if (state == null) {
            throw new TalvernException("null state argument");
        }
        return _createObject(type, parent, name, value, state.getValue(), replace);
    }

    /**
     * Changes the value of an object.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @param value the new value; null is answered with {@link ReturnCode#NULL_VALUE}
     * @param merge whether the members that {@code value} does not name stay as they are
     * @return what came of it
     * @throws ValidationException if the value is not acceptable
     * @throws ConfigChangeException if other objects stand in the way
     */
    public ReturnCode updateObject(String type, String parent, String name, Value value, boolean merge) {
        return _updateObject(type, parent, name, value, merge);
    }

    /**
     * Deletes an object.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @return what came of it
     * @throws ConfigChangeException if other objects use it
     */
    public ReturnCode deleteObject(String type, String parent, String name) {
        return _deleteObject(type, parent, name);
    }

    /**
     * Gives an object its initial value and state back.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @return what came of it
     * @throws ConfigChangeException if other objects stand in the way
     */
    public ReturnCode resetObject(String type, String parent, String name) {
        return _resetObject(type, parent, name);
    }

    /**
     * @param type the type of an object
     * @param parent the object that it belongs to
     * @param name its name
     * @return its value, which is the caller's own copy; null if there is none: {@link #getReturnCode()} says why
     */
    public Value queryObject(String type, String parent, String name) {
        return _queryObject(type, parent, name);
    }

    /**
     * Checks a value without changing anything.
     *
     * @param type the type of the object that it is for
     * @param value the value; null is answered with {@link ReturnCode#NULL_VALUE}
     * @return what came of it
     * @throws ValidationException if the value is not acceptable
     */
    public ReturnCode validateObject(String type, Value value) {
        return _validateObject(type, value);
    }

    /**
     * @param type a type
     * @param parent the object that the objects belong to
     * @return the names of all such objects; null if the service refuses: {@link #getReturnCode()} says why
     */
    public List<String> getNamesofObject(String type, String parent) {
        return _getNamesofObject(type, parent);
    }

    /**
     * Lists the types. Appliances that describe them do so by objects of the type {@code TypeDescription}, which is not
     * among them: the object with the name of a type has the members {@code accepts}, {@code parentType} (the type
     * of the parent, if it has one) and {@code fields}, a list of structures with the members {@code name},
     * {@code required}, {@code accepts} and {@code example}.
     *
     * @return all types that objects can have
     */
    public List<String> getObjectTypes() {
        return _getObjectTypes();
    }

    /**
     * @param type the type of an object
     * @param parent the object that it belongs to
     * @param name its name
     * @return what it shall do; null if the service refuses: {@link #getReturnCode()} says why
     */
    public AdminState getAdminState(String type, String parent, String name) {
        return _getAdminState(type, parent, name);
    }

    /**
     * Lets an object work or rest.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @param state what it shall do, not null
     * @return what came of it
     * @throws ValidationException if an object can't be brought into this state
     * @throws ConfigChangeException if other objects stand in the way
     */
    public ReturnCode setAdminState(String type, String parent, String name, AdminState state) {
        return _setAdminState(type, parent, name, state);
    }

    /**
     * @param type the type of an object
     * @param parent the object that it belongs to
     * @param name its name
     * @return what it is doing; null if the service refuses: {@link #getReturnCode()} says why
     */
    public OpState getOpState(String type, String parent, String name) {
        return _getOpState(type, parent, name);
    }

    /**
     * Tells the service what an object is doing.
     *
     * @param type its type
     * @param parent the object that it belongs to
     * @param name its name
     * @param state what it is doing, not null
     * @return what came of it
     */
    public ReturnCode setOpState(String type, String parent, String name, OpState state) {
        return _setOpState(type, parent, name, state);
    }

    private native ReturnCode _createObject(
            String type, String parent, String name, Value value, int state, boolean replace);

    private native ReturnCode _updateObject(
            String type, String parent, String name, Value value, boolean merge);

    private native ReturnCode _deleteObject(String type, String parent, String name);

    private native ReturnCode _resetObject(String type, String parent, String name);

    private native Value _queryObject(String type, String parent, String name);

    private native ReturnCode _validateObject(String type, Value value);

    private native ArrayList<String> _getNamesofObject(String type, String parent);

    private native ArrayList<String> _getObjectTypes();

    private native AdminState _getAdminState(String type, String parent, String name);

    private native ReturnCode _setAdminState(String type, String parent, String name, AdminState state);

    private native OpState _getOpState(String type, String parent, String name);

    private native ReturnCode _setOpState(String type, String parent, String name, OpState state);
}
