#include "app/qt/input_memory.h"

#include <QSettings>

#include "base/qt/text.h"

namespace qor {

namespace {

// A path as one key: "/" would make groups of it.
QString ClaveDe(const std::filesystem::path& documento, const std::string& parametro) {
    return QStringLiteral("input/") + QString::fromLatin1(NombreQt(documento).toUtf8().toPercentEncoding()) + QLatin1Char('/') +
           QString::fromStdString(parametro);
}

}  // namespace

std::filesystem::path ArchivoRecordado(const std::filesystem::path& memoria, const std::filesystem::path& documento,
                                       const std::string& parametro) {
    if (documento.empty()) return {};
    return RutaDeQt(QSettings(NombreQt(memoria), QSettings::IniFormat).value(ClaveDe(documento, parametro)).toString());
}

void RecordarArchivo(const std::filesystem::path& memoria, const std::filesystem::path& documento, const std::string& parametro,
                     const std::filesystem::path& archivo) {
    if (documento.empty()) return;
    QSettings ajustes(NombreQt(memoria), QSettings::IniFormat);
    ajustes.setValue(ClaveDe(documento, parametro), NombreQt(archivo));
}

}  // namespace qor
