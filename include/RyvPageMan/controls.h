// The project tree, the list of open projects, and the factory through which another module puts its own in
// their place.
#pragma once

#include "ui/tree/combo_box.h"
#include "ui/tree/control_factory.h"
#include "ui/tree/project_tree.h"
