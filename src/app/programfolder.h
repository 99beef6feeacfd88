#pragma once

#include <QString>

// The file name every catalogue carries; the program opens no other.
inline const QString CatalogueFileName = QStringLiteral("QuireshelfCatalog01.mdb");

// The program's own folder: where the open form and its file dialog start. A portable copy
// keeps its catalogue beside itself; an installed program, whose folder it cannot write to,
// keeps it in the user's documents folder under "Shelvane".
QString ProgramFolder();

// The rule behind ProgramFolder(), for a given program folder and documents folder.
QString ProgramFolderFor(const QString &executableFolder, const QString &documentsFolder);

// A file that comes with the program (the help, the empty catalogue): beside the program in a
// build or a portable copy, otherwise in the installed data folder.
QString ProgramFile(const QString &name);

// On the first start of an installed program: makes its folder and puts an empty catalogue,
// copied from the template, in it. A catalogue already there is never replaced.
void ProvideFirstCatalogue(const QString &folder, const QString &templatePath);

// ProvideFirstCatalogue for ProgramFolder() and the installed template, when the program's
// folder is not its own executable's.
void PrepareProgramFolder();
