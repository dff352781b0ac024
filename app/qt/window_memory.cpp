#include "app/qt/window_memory.h"

#include <QSettings>
#include <QSplitter>

#include "base/qt/text.h"

namespace qor {

namespace {

QString Clave(const QWidget& ventana, const QString& que) { return ventana.objectName() + QLatin1Char('/') + que; }

}  // namespace

bool RecuperarLugares(const std::filesystem::path& memoria, QWidget& ventana) {
    if (memoria.empty()) return false;
    const QSettings ajustes(NombreQt(memoria), QSettings::IniFormat);
    const auto valor = [&](const QString& que) { return ajustes.value(Clave(ventana, que)).toByteArray(); };
    for (auto* const division : ventana.findChildren<QSplitter*>()) division->restoreState(valor(division->objectName()));
    return ventana.restoreGeometry(valor(QStringLiteral("geometry")));
}

void RecordarLugares(const std::filesystem::path& memoria, const QWidget& ventana) {
    if (memoria.empty()) return;
    QSettings ajustes(NombreQt(memoria), QSettings::IniFormat);
    ajustes.setValue(Clave(ventana, QStringLiteral("geometry")), ventana.saveGeometry());
    for (const auto* const division : ventana.findChildren<QSplitter*>()) {
        ajustes.setValue(Clave(ventana, division->objectName()), division->saveState());
    }
}

}  // namespace qor
