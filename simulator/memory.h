#pragma once

#include <mutex>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "applianceFile.h"
#include "members.h"

/// What a device reset does to a part of the memory.
enum class OnReset { restored, stays };

/// A part of the appliance's memory: a member of the file, if there is one.
class Section {
  public:
    Section(const char* sectionName, OnReset reset) : name{sectionName}, onReset{reset} {}
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

    /// Gives it the state that a new appliance has.
    virtual void restore() = 0;
    virtual void readFrom(const json::Node& node) = 0;
    virtual void writeTo(json::Text& out) = 0;

    /// Puts elements of its list in the place of others, if its state has a `replaceElements`. False, or a
    /// json::Problem, if all of it has to be read anew.
    virtual bool readElements(const json::Node& before, const json::Node& now) = 0;

    const std::string name;
    const OnReset onReset;
    std::string text = {};      ///< as it stands in the file; empty if that is not known
    bool hasLineStarts = true;  ///< all elements of its list, and nothing else, begin with `lineStart` in the text

  protected:
    ~Section() = default;  // none is ever destroyed
};

inline void fromJson(const json::Node& node, Section& section) { section.readFrom(node); }

/// All parts, in the order of their names; never destroyed.
std::vector<Section*>& sections();

/// Makes a part known.
void addSection(Section& section);

/// The memory is used by one thread at a time.
[[gnu::visibility("hidden")]] extern std::mutex memoryMutex;

/// Makes the memory what the file holds now.
void refreshMemory();

/// Restores what a device reset restores.
void resetMemory();

/// A change of parts of memory that is kept in a file, which nobody else changes meanwhile. `keep` ends it;
/// if it ends otherwise, the memory becomes what the file holds again.
class KeptChange {
  public:
    explicit KeptChange(std::vector<Section*> parts);
    ~KeptChange();
    KeptChange(const KeptChange&) = delete;
    KeptChange& operator=(const KeptChange&) = delete;

    /// Writes the parts into the file, if they have changed.
    void keep();

  private:
    FileLock lock_{FileLock::state};
    std::vector<Section*> parts_;
    bool isFinished_ = false;
};

/// One namespace's part of the appliance's memory. It is never destroyed: other threads may still use it
/// while the process ends.
template <typename State>
class Memory : private Section {
  public:
    static Memory& make(const char* name, OnReset onReset = OnReset::restored) {
        auto& memory = *new Memory{name, onReset};
        addSection(memory);
        return memory;
    }

    /// Runs `action` on the state, alone.
    template <typename Action>
    auto read(Action action) {
        const std::lock_guard lock{memoryMutex};
        if (isKept) [[unlikely]]
            refreshMemory();
        return action(std::as_const(state_));
    }

    /// Runs `action`, which may change the state, alone.
    template <typename Action>
    auto change(Action action) {
        const std::lock_guard lock{memoryMutex};
        if (!isKept) [[likely]]
            return action(state_);
        KeptChange change{{this}};
        if constexpr (std::is_void_v<decltype(action(state_))>) {
            action(state_);
            change.keep();
        } else {
            auto result = action(state_);
            change.keep();
            return result;
        }
    }

  private:
    using Section::Section;
    ~Memory() = default;

    void restore() override { state_ = State{}; }

    void readFrom(const json::Node& node) override {
        restore();
        Reader::read(node, state_);
        if constexpr (requires { check(state_); }) check(state_);
    }

    void writeTo(json::Text& out) override { Writer::write(out, state_); }

    bool readElements([[maybe_unused]] const json::Node& before, [[maybe_unused]] const json::Node& now) override {
        if constexpr (requires { replaceElements(state_, before, now); }) return replaceElements(state_, before, now);
        return false;
    }

    State state_;
};
