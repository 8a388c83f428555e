package com.kvo.talvern.bench;

import com.kvo.talvern.appliance.HardwareStatusUtils.IntrusionStatus;
import com.kvo.talvern.appliance.RaidVolume;
import com.kvo.talvern.appliance.Sensor;
import com.kvo.talvern.config.AdminState;
import com.kvo.talvern.config.ReturnCode;
import com.kvo.talvern.config.ServiceUtils;
import com.kvo.talvern.config.Value;
import java.util.HashMap;

/** The measured operations in bare JNI code, and the control of the benchmark's platform. */
final class Floor {
    static {
        System.load(System.getProperty("talvern.bench.floor"));
    }

    native int getCPUCount();

    native String getNodeName();

    native boolean setNodeName(String name);

    native String[] getNameServers();

    native boolean setTimeServers(String[] servers);

    native HashMap<String, String> getEthernetInterface(String name);

    native Sensor[] getFanStatus();

    native RaidVolume[] getRaidVolumes();

    native IntrusionStatus getIntrusionStatus();

    native AdminState getAdminState(ServiceUtils receiver, String type, String parent, String name);

    native ReturnCode validateObject(ServiceUtils receiver, String type, Value value);

    native Value queryObject(ServiceUtils receiver, String type, String parent, String name);

    native void setSize(int size);

    native void makeLists(int count);

    native void setRecording(boolean isRecording);

    native String received();
}
