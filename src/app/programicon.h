#pragma once

#include <QIcon>

// The program's icon: three books standing on a shelf. Drawn rather than shipped as a file, so
// that it is sharp at every size the windows ask for.
QIcon ProgramIcon();

// The icon at one size, for the icon theme's pictures made at build time.
QPixmap ProgramIconPixmap(int size);
