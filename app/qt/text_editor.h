#pragma once

#include <QString>

namespace qor {

// Starts a text editor with a file, which is never opened by what its name ends in: the name of a report is a document's own, and
// a document can be anybody's. `comando` is a program, alone or with arguments, where quotes keep blanks together. When it is empty
// or doesn't start, the first graphical editor that is installed of those known is taken. False when none starts.
bool AbrirEnEditorDeTexto(const QString& comando, const QString& archivo);

}  // namespace qor
