package com.kvo.talvern.console;

import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.StructValue;
import com.kvo.talvern.config.Value;
import java.util.List;

/** The configuration objects. */
final class ConfigCommands extends Group {
    private static final String VALUE = "KEY=VALUE pairs, whose values may be JSON; or one JSON value; or one text.";

    private static final String DESCRIPTIONS = "TypeDescription";

    ConfigCommands() {
        super("config", "Shows and changes the configuration objects.");
    }

    @Override
    void addCommands() {
        show("list", "Lists the objects.", command -> {
            String type = command.text("TYPE");
            return new Fields().and("objects", type == null ? objects() : objects(new Table(), type, parent(command)));
        }).optional("TYPE", "A type; without it those of all types that belong to the appliance itself.")
                .option("--parent", "NAME", String.class, "The object that they belong to.");
        show("types", "Lists the types of objects, or the fields of one: what they accept, and an example.", command ->
                command.text("TYPE") == null ? new Fields().and("types", new ServiceUtils().getObjectTypes())
                        : description(command.text("TYPE"))).optional("TYPE", "A type.");
        object(show("get", "Shows an object.", ConfigCommands::get));
        object(change("set", "Changes an object. Fields that are not given stay as they are.", command -> done(command,
                new ServiceUtils().updateObject(command.text("TYPE"), parent(command), command.text("NAME"), value(command),
                        !command.isSet("--whole"))))
                .flag("--whole", "Replace the whole value.")).list("VALUE", "1..*", VALUE);
        object(change("create", "Creates an object.", command -> done(command,
                new ServiceUtils().createObject(command.text("TYPE"), parent(command), command.text("NAME"), value(command),
                        command.isSet("--disabled") ? AdminState.DISABLED : AdminState.ENABLED, command.isSet("--replace"))))
                .flag("--disabled", "Let it rest.").flag("--replace", "Replace an object of this name."))
                .list("VALUE", "1..*", VALUE);
        object(change("delete", "Deletes an object.", command -> done(command,
                new ServiceUtils().deleteObject(command.text("TYPE"), parent(command), command.text("NAME")))));
        object(change("reset", "Gives an object its initial value and state back.", command -> done(command,
                new ServiceUtils().resetObject(command.text("TYPE"), parent(command), command.text("NAME")))));
        object(change("enable", "Lets an object work.", command -> setState(command, AdminState.ENABLED)));
        object(change("disable", "Lets an object rest.", command -> setState(command, AdminState.DISABLED)));
        change("validate", "Checks a value without changing anything.", command -> done(command,
                new ServiceUtils().validateObject(command.text("TYPE"), value(command))))
                .parameter("TYPE", "The type that it is for.").list("VALUE", "1..*", VALUE);
        object(show("xml", "Shows the value of an object as XML.", command ->
                new Fields().and("xml", query(new ServiceUtils(), command).asXML())));
    }

    private static ActionCommand object(ActionCommand command) {
        return command.parameter("TYPE", "The type of the object.").parameter("NAME", "Its name.")
                .option("--parent", "NAME", String.class, "The object that it belongs to; without it the appliance itself.");
    }

    private static String parent(ActionCommand command) {
        return command.option("--parent", "");
    }

    private static Value value(ActionCommand command) {
        try {
            return ConfigText.value(command.list("VALUE"));
        } catch (IllegalArgumentException e) {
            throw command.usageError(e.getMessage());
        }
    }

    private static void done(ActionCommand command, ReturnCode code) {
        done(command.text("TYPE"), code);
    }

    private static void done(String type, ReturnCode code) {
        Refusal.unless(code != null, "The appliance gives an answer that has no name in Java.");
        if (code == ReturnCode.INVALID_TYPE) {
            List<String> types = new ServiceUtils().getObjectTypes();
            throw new Refusal("There is no type '" + type + "'" + Nearest.hint(type, types) + " (status "
                    + code.getValue() + ")");
        }
        Refusal.unlessZero(code.getValue(), "object");
    }

    private static void setState(ActionCommand command, AdminState state) {
        done(command, new ServiceUtils().setAdminState(command.text("TYPE"), parent(command), command.text("NAME"), state));
    }

    private static Value query(ServiceUtils service, ActionCommand command) {
        Value value = service.queryObject(command.text("TYPE"), parent(command), command.text("NAME"));
        if (value == null) {
            done(command, service.getReturnCode());
        }
        Refusal.unless(value != null, "The object has no value.");
        return value;
    }

    /** What the appliance says about a type, as an object of the type {@value #DESCRIPTIONS}. */
    private static Fields description(String type) {
        ServiceUtils service = new ServiceUtils();
        if (!service.getObjectTypes().contains(type)) {
            done(type, ReturnCode.INVALID_TYPE);
        }
        Value value = service.queryObject(DESCRIPTIONS, "", type);
        Refusal.unless(value instanceof StructValue, "The appliance does not describe its types.");
        Fields description = (Fields) Values.plain(value);
        Table fields = new Table("name", "required", "accepts", "example");
        StringBuilder example = new StringBuilder("config create " + type + " NAME");
        if (description.get("parentType") != null) {
            example.append(" --parent PARENT");
        }
        for (Object element : (List<?>) description.getOrDefault("fields", List.of())) {
            Fields field = (Fields) element;
            fields.add(new Fields().and("name", field.get("name")).and("required", "true".equals(field.get("required")))
                    .and("accepts", field.get("accepts")).and("example", field.get("example")));
            String text = String.valueOf(field.get("example"));
            String quote = text.matches("[\\w.:-]+") ? "" : "'";
            example.append(' ').append(field.get("name")).append('=').append(quote).append(text).append(quote);
        }
        if (fields.isEmpty()) {
            example.append(" KEY=VALUE");
        }
        return new Fields().and("type", type).and("parentType", description.get("parentType"))
                .and("accepts", description.get("accepts")).and("fields", fields).and("example", example.toString());
    }

    private static Fields get(ActionCommand command) {
        ServiceUtils service = new ServiceUtils();
        Value value = query(service, command);
        return object(service, command.text("TYPE"), parent(command), command.text("NAME")).and("value", value);
    }

    private static Fields object(ServiceUtils service, String type, String parent, String name) {
        return new Fields().and("type", type).and("parent", parent).and("name", name)
                .and("adminState", service.getAdminState(type, parent, name))
                .and("opState", service.getOpState(type, parent, name));
    }

    /** The objects of all types that belong to the appliance itself. */
    static Table objects() {
        Table table = new Table("type", "name", "adminState", "opState");
        new ServiceUtils().getObjectTypes().forEach(type -> objects(table, type, ""));
        return table;
    }

    private static Table objects(Table table, String type, String parent) {
        ServiceUtils service = new ServiceUtils();
        List<String> names = service.getNamesofObject(type, parent);
        if (names == null) {
            done(type, service.getReturnCode());
        } else {
            names.forEach(name -> table.add(object(service, type, parent, name)));
        }
        return table;
    }
}
