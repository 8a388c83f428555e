package com.kvo.talvern.processmanager;

import com.kvo.talvern.NativeLibrary;
import com.kvo.talvern.TalvernException;

/**
 * The appliance's process manager: restarts, the health of processes, how much all of them log.
 */
public class ProcessManagerUtils {
    private static final NativeLibrary LIBRARY = NativeLibrary.load(ProcessManagerUtils.class);

    {
        LIBRARY.require();
    }

    /**
     * How much is logged: messages of this level and the more important ones. The most important level comes
     * first, and each level's number is its ordinal.
     */
    public enum PlatformLogLevel {
        /** The appliance is unusable. */
        EMERGENCY,
        /** Somebody has to act at once. */
        ALERT,
        /** A part of the appliance has failed. */
        CRITICAL,
        /** An operation has failed. */
        ERROR,
        /** An operation may fail soon. */
        WARNING,
        /** Unusual, but in order. */
        NOTICE,
        /** What goes on. */
        INFO,
        /** What only a developer wants to know. */
        DEBUG
    }

    /**
     * @return what is traced, a bit for each subject
     * @throws TalvernException if the appliance fails; so does every method of this class
     */
    public int getPlatformTraceMask() {
        return _getPlatformTraceMask();
    }

    /**
     * @return how much the appliance's processes log
     */
    public PlatformLogLevel getPlatformLogLevel() {
        return _getPlatformLogLevel();
    }

    /**
     * Changes how much the appliance's processes log.
     *
     * @param level the new level, not null
     * @return whether the appliance accepted it
     */
    public boolean setPlatformLogLevel(PlatformLogLevel level) {
        if (level == null) {
            throw new TalvernException("null level argument");
        }
        return _setPlatformLogLevel(level.ordinal());
    }

    /**
     * Gives all processes of the appliance new settings for their logs.
     *
     * @param traceMask what to trace, a bit for each subject
     * @param level the number of the log level
     */
    public void distributeLogging(int traceMask, int level) {
        _distributeLogging(traceMask, level);
    }

    /**
     * Asks for a restart of the appliance.
     *
     * @return the appliance's answer, 0 if it will restart
     */
    public int requestReboot() {
        return _requestReboot();
    }

    /**
     * Asks for the appliance to be switched off.
     *
     * @return the appliance's answer, 0 if it will switch off
     */
    public int requestShutdown() {
        return _requestShutdown();
    }

    /**
     * Says that a process needs the process manager's attention.
     *
     * @param process the name of the process, not null
     * @return whether the process manager knows that now
     */
    public boolean signalProcessIsUnhealthy(String process) {
        return _signalProcessIsUnhealthy(process);
    }

    /**
     * Says that a process has started and is ready for work.
     *
     * @param process the name of the process, not null
     * @return whether the process manager knows that now
     */
    public boolean signalProcessIsReady(String process) {
        return _signalProcessIsReady(process);
    }

    private native int _getPlatformTraceMask();

    private native PlatformLogLevel _getPlatformLogLevel();

    private native boolean _setPlatformLogLevel(int level);

    private native void _distributeLogging(int traceMask, int level);

    private native int _requestReboot();

    private native int _requestShutdown();

    private native boolean _signalProcessIsUnhealthy(String process);

    private native boolean _signalProcessIsReady(String process);
}
