#pragma once

#include <memory>

#include "json.h"
#include "platform/value.h"

// Values of configuration objects in the appliance's file: a text, an object or a list; null for none. A
// value with the flag `mu` is the only member, @mu, of an object; a key that begins with @ itself gets
// another one.

namespace talvern::config {

void fromJson(const json::Node& node, std::unique_ptr<Value>& value);
void toJson(json::Text& out, const std::unique_ptr<Value>& value);

}  // namespace talvern::config
