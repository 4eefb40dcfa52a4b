// The border between the host and its modules, for those who write one.
#pragma once

#include "platform/host/module.h"
