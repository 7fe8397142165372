#include "host/CoreContext.h"

CoreContext::~CoreContext() = default;
