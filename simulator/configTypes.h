#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/value.h"

/// One member of a configuration object's value.
struct ConfigField {
    std::string name;
    bool isRequired;
    bool isList;  ///< of texts; otherwise it is one text
    std::function<bool(const std::string& text)> accepts;
    std::string accepted;  ///< in words
    std::string example;
    std::string refersTo;  ///< the type of the object that the text names; empty if it names none
};

/// A type of configuration objects.
struct ConfigType {
    std::string name;
    std::string parentType;  ///< of the object that such objects belong to; empty for the appliance itself
    bool takesAnyValue;      ///< there are no fields then
    std::vector<ConfigField> fields;
};

/// The types that the appliance knows.
const std::vector<ConfigType>& configTypes();

/// The type of this name; null if there is none.
const ConfigType* configType(const std::string& name);

/// What there is to say about a type, for people.
std::unique_ptr<talvern::config::Value> description(const ConfigType& type);
