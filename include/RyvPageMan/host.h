// What the module tells of its host: idle and busy, saved drawings, the client manager, its palette set.
#pragma once

#include "host/exported_functions.h"
