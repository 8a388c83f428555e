#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/messaging.h"
#include "platform/value.h"

namespace talvern::config {

/// The configuration service: objects of several types, each with a value, an administrative and an
/// operational state.
///
/// Three strings identify an object: its type, the name of the object that it belongs to (`parent`) and its
/// own name; what an empty one means is the service's to say. A null string from Java arrives as an empty
/// one. Texts are modified UTF-8. Every operation may be called from any thread, and may throw.
///
/// Values that are passed in belong to the bridge and are valid during the call. The pointer is null where
/// Java passed a value of a kind that the bridge does not know. Trees are at most 1,000 levels deep, of
/// 4,000,000 values and, passed in, of 256 MiB of text.
class Service {
  public:
    /// Reaches Java by the name in `OPSTATE_STR`, comes from Java by its number.
    enum class OpState : std::int32_t { UNKNOWN, UP, DOWN, PENDING, FAILED };

    /// Reaches Java by the name in `ADMINSTATE_STR`, comes from Java by its number.
    enum class AdminState : std::int32_t { UNKNOWN, ENABLED, DISABLED };

    /// What came of a request. Reaches Java by the name in `RETURNCODE_STR`.
    enum class ReturnCode : std::int32_t {
        OK,
        FAILED,
        NOT_FOUND,
        ALREADY_EXISTS,
        NOT_PERMITTED,
        BUSY,
        INVALID_NAME,
        INVALID_TYPE,
        IN_USE,
        NULL_VALUE,  ///< also the bridge's own answer to a null value
    };

    // A ConfigChangeException or ValidationException that one of the next five throws reaches Java as such.

    /// Creates an object. `state` is any number that Java passed; `replace` permits that the object exists.
    static ReturnCode createObject(
        const std::string& type, const std::string& parent, const std::string& name, const Value* value,
        AdminState state, bool replace);

    /// Changes an object's value. With `merge`, members that `value` does not name stay.
    static ReturnCode updateObject(
        const std::string& type, const std::string& parent, const std::string& name, const Value* value, bool merge);

    static ReturnCode deleteObject(const std::string& type, const std::string& parent, const std::string& name);

    /// Gives an object its initial value and states back.
    static ReturnCode resetObject(const std::string& type, const std::string& parent, const std::string& name);

    static ReturnCode
    setAdminState(const std::string& type, const std::string& parent, const std::string& name, AdminState state);

    /// Checks a value for an object of the type, without changing anything. A ValidationException that it
    /// throws reaches Java as such.
    static ReturnCode validateObject(const std::string& type, const Value* value);

    /// Points `value`, which is null at first, to the object's value. The bridge does not delete the tree: it
    /// stays the service's, unchanged at least until the same thread's next query. A tree that is set is
    /// given to Java whatever is returned.
    static ReturnCode
    queryObject(const std::string& type, const std::string& parent, const std::string& name, Value** value);

    /// Appends the names of the objects of a type that belong to `parent` to `names`, which is empty at
    /// first.
    static ReturnCode
    getNamesofObject(const std::string& type, const std::string& parent, std::vector<std::string>& names);

    static std::vector<std::string> getObjectTypes();

    /// Sets `state`, which is read only if the result is OK.
    static ReturnCode
    getAdminState(const std::string& type, const std::string& parent, const std::string& name, AdminState& state);

    /// Sets `state`, which is read only if the result is OK.
    static ReturnCode
    getOpState(const std::string& type, const std::string& parent, const std::string& name, OpState& state);

    static ReturnCode
    setOpState(const std::string& type, const std::string& parent, const std::string& name, OpState state);
};

// The names of the constants, indexed by their numbers. Each must be the name of a constant of the Java enum,
// and every number that the service returns must have one: the bridge does not test the index.
extern const char* const OPSTATE_STR[];
extern const char* const ADMINSTATE_STR[];
extern const char* const RETURNCODE_STR[];

}  // namespace talvern::config
