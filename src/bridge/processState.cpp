#include "bridge/processState.h"

JavaVM* g_vm = nullptr;
jobject sJCallback = nullptr;
FwUpgradeProgressCallback* sFwCallback = nullptr;
