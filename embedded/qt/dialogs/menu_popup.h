// Menu models as menus on the screen.
#pragma once

#include "toolkit/menu.h"

#include <QMenu>

namespace drafta {

/// Fills a menu; the commands' numbers are the data of its actions. The model is not needed afterwards.
void fillMenu(QMenu& menu, const ryv::Menu& model);

/// The number of the command that an action stands for; 0 for none.
int commandOf(const QAction* action);

} // namespace drafta
