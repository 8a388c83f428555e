#pragma once

#include <jni.h>

#include <string>
#include <vector>

/// The ways in which each case is measured; not every case has the last.
enum Way : int { bridge, floorCode, jna };

/// How the JVM is set up: to run as steadily as it can, or to start quickly and compile little.
enum class Jvm { steady, quick };

/// The Java class that makes the measured calls, in a JVM of this process.
class Cases {
  public:
    explicit Cases(Jvm kind);

    [[nodiscard]] int count() const { return callInt("count"); }
    [[nodiscard]] int size(int index) const { return callInt("size", index); }
    [[nodiscard]] int ways(int index) const { return callInt("ways", index); }
    [[nodiscard]] std::string name(int index) const { return callText("name", index); }

    /// Makes the data of a case ready. What differs between the results of the ways; empty if nothing does.
    [[nodiscard]] std::string prepare(int index) const { return callText("prepare", index); }

    /// Lets the platform make ready what it will hand out in this many calls; to be done before these.
    void makeReady(int index, int calls) const;

    /// Nanoseconds that `calls` calls take.
    [[nodiscard]] double time(int index, Way way, int calls) const { return callTime("time", index, way, calls); }

    /// The same while a second thread makes as many.
    [[nodiscard]] double timeOfTwoThreads(int index, Way way, int calls) const {
        return callTime("timeOfTwoThreads", index, way, calls);
    }

    /// Bytes on the Java heap that the current thread has allocated so far.
    [[nodiscard]] double javaBytes() const;

  private:
    [[nodiscard]] jmethodID method(const char* name, const char* signature) const;
    [[nodiscard]] int callInt(const char* name) const;
    [[nodiscard]] int callInt(const char* name, int index) const;
    [[nodiscard]] std::string callText(const char* name, int index) const;
    [[nodiscard]] double callTime(const char* name, int index, Way way, int calls) const;
    void stopAfterException() const;

    JNIEnv* env_ = nullptr;
    jclass class_ = nullptr;
};
