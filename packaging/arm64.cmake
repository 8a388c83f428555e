# Builds for ARM64 with Debian's cross compiler and the system that scripts/package and scripts/matrix unpack.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/matrix/bookworm-arm64)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static -L ${CMAKE_SYSROOT})
set(JAVA_JVM_LIBRARY ${CMAKE_SYSROOT}/usr/lib/jvm/java-17-openjdk-arm64/lib/server/libjvm.so)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)

# Libraries and CMake's files of packages are those of ARM64. Programs and jars run here; jni.h is the same for both.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig)
