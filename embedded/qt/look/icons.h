// The program's icons: drawings in one colour that follow the theme.
#pragma once

#include <QIcon>

namespace drafta {

/// The icon of a name such as "project" (resources/icons/NAME.svg), in the text colour of the theme applied
/// last and greyed when disabled; sharp at every scale. Made once for each theme. An empty icon when there is
/// none of that name.
QIcon themeIcon(const char* name);

/// By which the project tree's images are known: project, drawing, reference, subfolder.
QIcon treeIcon(int image);

/// By which rows of lists and entries of menus are known (toolkit/images.h); an empty icon for none.
QIcon rowIcon(int image);

} // namespace drafta
