#include "app/qt/toolkit_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace qor {

void CambiarIdiomaDeQt(const std::string& codigo) {
    static QTranslator traductor;
    QCoreApplication::removeTranslator(&traductor);
    const QString archivo = QStringLiteral("qtbase_") + QString::fromStdString(codigo);
    if (!codigo.empty() && traductor.load(archivo, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&traductor);
    }
}

}  // namespace qor
