// The project manager: the open projects, their events and their locks. GetProjectManager() gives the one of
// the running module.
#pragma once

#include "manager/addin_handler.h"
#include "manager/project_events.h"
#include "manager/project_manager.h"
#include "manager/virtual_file_locker.h"
