#include "app/qt/recent_documents.h"

#include <QSettings>
#include <QStringList>

#include "base/qt/text.h"

namespace qor {

namespace {

constexpr int maximoDeRecientes = 10;

QString Clave() { return QStringLiteral("documents/recent"); }

QSettings Memoria(const std::filesystem::path& ruta) { return QSettings(NombreQt(ruta), QSettings::IniFormat); }

}  // namespace

std::vector<std::filesystem::path> DocumentosRecientes(const std::filesystem::path& memoria) {
    std::vector<std::filesystem::path> recientes;
    for (const QString& nombre : Memoria(memoria).value(Clave()).toStringList()) recientes.push_back(RutaDeQt(nombre));
    return recientes;
}

void RecordarDocumento(const std::filesystem::path& memoria, const std::filesystem::path& documento) {
    auto ajustes = Memoria(memoria);
    QStringList nombres = ajustes.value(Clave()).toStringList();
    nombres.removeAll(NombreQt(documento));
    nombres.prepend(NombreQt(documento));
    ajustes.setValue(Clave(), QStringList(nombres.mid(0, maximoDeRecientes)));
}

void OlvidarDocumento(const std::filesystem::path& memoria, const std::filesystem::path& documento) {
    auto ajustes = Memoria(memoria);
    QStringList nombres = ajustes.value(Clave()).toStringList();
    nombres.removeAll(NombreQt(documento));
    ajustes.setValue(Clave(), nombres);
}

void OlvidarDocumentos(const std::filesystem::path& memoria) { Memoria(memoria).remove(Clave()); }

}  // namespace qor
