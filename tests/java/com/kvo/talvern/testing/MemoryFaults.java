package com.kvo.talvern.testing;

/** Native methods whose faults only a sanitizer sees. */
public class MemoryFaults {
    native void _losesMemory();

    native void _writesBeyond();

    native void _overflows();
}
