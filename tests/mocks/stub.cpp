// Nothing: stands in for the platform's file, so that the bridge loads. The operations are those of the mocks
// in the test program, which the dynamic linker finds first.
