#pragma once

#include <functional>
#include <mutex>
#include <utility>
#include <vector>

/// All parts of the appliance's memory: what a device reset restores.
inline std::vector<std::function<void()>>& restorers() {
    static std::vector<std::function<void()>> all;
    return all;
}

/// One namespace's part of the appliance's memory, used by one thread at a time. A device reset brings the
/// state back to what a new `State` holds.
template <typename State>
class Memory {
  public:
    Memory() {
        restorers().emplace_back([this] { use([](State& state) { state = State{}; }); });
    }

    /// Runs `action` on the state, alone.
    template <typename Action>
    decltype(auto) use(Action action) {
        const std::lock_guard lock{mutex_};
        return action(state_);
    }

  private:
    std::mutex mutex_;
    State state_;
};
