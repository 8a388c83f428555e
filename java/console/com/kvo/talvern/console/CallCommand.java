package com.kvo.talvern.console;

import com.kvo.talvern.appliance.FileError;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.io.IOException;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.lang.reflect.Parameter;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.Objects;
import java.util.stream.Collectors;

/** Calls any native method. */
final class CallCommand {
    private static final Map<String, String> QUESTIONS = Map.of(
            "ApplianceUtils.deviceRESET", DeviceCommands.RESET,
            "ProcessManagerUtils.requestReboot", DeviceCommands.REBOOT,
            "ProcessManagerUtils.requestShutdown", DeviceCommands.SHUTDOWN,
            "FirmwareManagerUtils.reflashFirmware", FirmwareCommands.REFLASH);

    private CallCommand() {}

    static ActionCommand create() {
        ActionCommand call = new ActionCommand("call", "Calls a native method by the API's method for it. Without a method:"
                + " lists all, or those of a class, with their arguments. `null` is null, and \\null the text; a list has"
                + " commas between its elements; what follows -- is no option. Passwords are asked for.", command -> {
            Method method = method(command);
            return method == null ? new Fields().and("methods", describe(Natives.all(command.text("METHOD"))))
                    : call(command, method);
        });
        call.completedBy(() -> names().iterator())
                .optional("METHOD", "CLASS or CLASS.METHOD");
        call.list("ARG", "0..*", "An argument.").flag("--yes", "Don't ask whether to go on.").secret();
        call.checkedBy(CallCommand::check).spec.parser().unmatchedOptionsArePositionalParams(true); // such as -1
        return call;
    }

    /** The method that is to be called; null if methods are to be listed. */
    private static Method method(ActionCommand command) {
        String name = command.text("METHOD");
        if (name == null || name.indexOf('.') < 0 && !Natives.all(name).isEmpty()) {
            return null;
        }
        Method method = Natives.find(name);
        if (method == null) {
            throw command.usageError("There is no native method " + name + Nearest.hint(name, names()));
        }
        return method;
    }

    private static List<String> names() {
        return Natives.all(null).stream().map(Natives::name).collect(Collectors.toList());
    }

    private static void check(ActionCommand command) {
        Method method = method(command);
        int given = command.list("ARG").size();
        if (method == null && given > 0) {
            throw command.usageError("A list of methods takes no arguments.");
        }
        List<Argument> parameters = method == null ? List.of() : parameters(method);
        if (given != parameters.stream().filter(parameter -> !parameter.isPassword()).count()) {
            String taken = parameters.stream().map(Argument::toString).collect(Collectors.joining(", "));
            throw command.usageError(Natives.name(method) + " takes " + (taken.isEmpty() ? "no arguments" : taken) + ".");
        }
    }

    private static Table describe(List<Method> methods) {
        Table table = new Table();
        for (Method method : methods) {
            table.add(new Fields().and("method", Natives.name(method))
                    .and("arguments", parameters(method).stream().map(Argument::toString).collect(Collectors.toList()))
                    .and("result", method.getReturnType().getSimpleName()));
        }
        return table;
    }

    /** What an argument is for. */
    private static final class Argument {
        final String name;
        final Class<?> type;

        Argument(String name, Class<?> type) {
            this.name = name;
            this.type = type;
        }

        boolean isPassword() {
            return name.toLowerCase().endsWith("password");
        }

        @Override
        public String toString() {
            return name + (isPassword() ? " (asked for)" : ":" + Arguments.describe(type));
        }
    }

    /** The arguments that a method takes; that of an abstract class takes the object first. */
    private static List<Argument> parameters(Method method) {
        List<Argument> parameters = new ArrayList<>();
        if (isOfValue(method)) {
            parameters.add(new Argument("value", Value.class));
        }
        for (Parameter parameter : method.getParameters()) {
            parameters.add(new Argument(parameter.getName(), parameter.getType()));
        }
        return parameters;
    }

    private static boolean isOfValue(Method method) {
        return Modifier.isAbstract(method.getDeclaringClass().getModifiers());
    }

    private static Fields call(ActionCommand command, Method method) throws Exception {
        List<Object> arguments = arguments(command, method);
        String question = QUESTIONS.get(Natives.name(method));
        if (question != null) {
            command.confirm(question);
        }
        Object receiver = isOfValue(method) ? arguments.remove(0)
                : method.getDeclaringClass().getDeclaredConstructor().newInstance();
        Refusal.unless(receiver != null, "A null value has no methods.");
        Object result;
        try {
            result = method.invoke(receiver, arguments.toArray());
        } catch (InvocationTargetException e) {
            if (e.getCause() instanceof Error) {
                throw (Error) e.getCause();
            }
            throw (Exception) e.getCause();
        }
        Fields fields = new Fields();
        if (method.getReturnType() != void.class) {
            fields.and("result", result);
        }
        for (Object argument : arguments) {
            if (argument instanceof FileError[]) {
                fields.and("errors", Arrays.stream((FileError[]) argument).filter(Objects::nonNull).toArray());
            } else if (argument instanceof Progress && Integer.valueOf(0).equals(result)) {
                ((Progress) argument).awaitEnd();
            }
        }
        if (receiver instanceof ServiceUtils) {
            fields.and("returnCode", ((ServiceUtils) receiver).getReturnCode());
        }
        return fields.isEmpty() ? ActionCommand.DONE : fields;
    }

    private static List<Object> arguments(ActionCommand command, Method method) throws IOException {
        List<Argument> parameters = parameters(method);
        List<String> words = command.list("ARG");
        List<Object> arguments = new ArrayList<>();
        int next = 0;
        for (Argument parameter : parameters) {
            if (parameter.isPassword()) {
                arguments.add(command.password(words.get(0), false));
                continue;
            }
            try {
                arguments.add(Arguments.parse(parameter.type, words.get(next++), command.output()));
            } catch (IllegalArgumentException e) {
                throw command.usageError(parameter.name + ": " + e.getMessage());
            }
        }
        return arguments;
    }
}
