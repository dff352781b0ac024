#include "app/qt/text_editor.h"

#include <QFileInfo>
#include <QProcess>
#include <QStringList>

namespace qor {

namespace {

constexpr const char* editoresConocidos[] = {"gedit", "gnome-text-editor", "kate",  "kwrite", "mousepad", "xed",
                                             "pluma", "featherpad",        "geany", "leafpad"};

QStringList PartesDe(const QString& comando) {
    // A path with blanks needs no quotes when it is all there is.
    if (QFileInfo(comando).isFile()) return {comando};
    return QProcess::splitCommand(comando);
}

bool Arrancar(QStringList partes, const QString& archivo) {
    if (partes.isEmpty()) return false;
    const QString programa = partes.takeFirst();
    return QProcess::startDetached(programa, partes << archivo);
}

}  // namespace

bool AbrirEnEditorDeTexto(const QString& comando, const QString& archivo) {
    if (Arrancar(PartesDe(comando), archivo)) return true;
    for (const char* const editor : editoresConocidos) {
        if (Arrancar({QString::fromLatin1(editor)}, archivo)) return true;
    }
    return false;
}

}  // namespace qor
