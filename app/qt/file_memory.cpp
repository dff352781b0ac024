#include "app/qt/file_memory.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include "base/qt/text.h"

namespace qor {

namespace {

QString Clave(ClaseDeArchivo clase) { return QStringLiteral("files/") + QString::fromLatin1(NombreDeClase(clase)); }

QSettings Memoria(const Programa& programa) { return QSettings(NombreQt(RutaDeMemoria(programa)), QSettings::IniFormat); }

std::filesystem::path DelUsuario() {
    const QString documentos = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return RutaDeQt(QDir(documentos).exists() ? documentos : QDir::homePath());
}

}  // namespace

LugaresDeDialogo LugaresDe(const Programa& programa, const std::filesystem::path& documento, ClaseDeArchivo clase) {
    const auto& ajustes = programa.ajustes;
    const auto elegido = HayDirectorioElegido(ajustes) ? ajustes.DirectorioDocumentos : std::filesystem::path();
    const auto ultimo = clase == ClaseDeArchivo::Documento ? elegido : RutaDeQt(Memoria(programa).value(Clave(clase)).toString());
    return {ultimo, documento.parent_path(), elegido.empty() ? DelUsuario() : elegido};
}

void RecordarLugar(Programa& programa, ClaseDeArchivo clase, const std::filesystem::path& elegido) {
    if (clase == ClaseDeArchivo::Documento) {
        programa.ajustes.DirectorioDocumentos = elegido.parent_path() / "";
        return;
    }
    Memoria(programa).setValue(Clave(clase), NombreQt(elegido.parent_path()));
}

}  // namespace qor
