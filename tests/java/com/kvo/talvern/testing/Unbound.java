package com.kvo.talvern.testing;

/** A native method that no library implements. */
public class Unbound {
    native boolean _isNotImplemented();
}
