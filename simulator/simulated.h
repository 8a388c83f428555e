#pragma once

#include "platform/configService.h"

namespace talvern::config::simulated {

// The class's own names for these.
using AdminState = Service::AdminState;
using OpState = Service::OpState;
using ReturnCode = Service::ReturnCode;

}  // namespace talvern::config::simulated

#include "declarations.inc"  // each operation once more, in a namespace `simulated`
