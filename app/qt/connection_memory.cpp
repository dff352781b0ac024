#include "app/qt/connection_memory.h"

#include <QSettings>
#include <array>
#include <string>
#include <system_error>
#include <utility>

#include "base/code_page.h"
#include "base/qt/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::pair<const char*, std::string ParametrosDeLogon::*>, 9> recordados = {{
    {"ApplicationServer", &ParametrosDeLogon::servidor},
    {"SystemNumber", &ParametrosDeLogon::numeroDeSistema},
    {"MessageServer", &ParametrosDeLogon::servidorDeMensajes},
    {"System", &ParametrosDeLogon::sistema},
    {"Group", &ParametrosDeLogon::grupo},
    {"Client", &ParametrosDeLogon::cliente},
    {"User", &ParametrosDeLogon::usuario},
    {"Language", &ParametrosDeLogon::idioma},
    {"Router", &ParametrosDeLogon::ruta},
}};

const QString claveDePractica = QStringLiteral("Practice");

}  // namespace

void RecuperarConexion(const fs::path& ruta, EleccionDeLogon& eleccion) {
    const QSettings memoria(NombreQt(ruta), QSettings::IniFormat);
    eleccion.practica = memoria.value(claveDePractica, false).toBool();
    for (const auto& [clave, campo] : recordados) {
        // A value that the code page can't hold would come back shortened.
        eleccion.parametros.*campo = DesdeUtf8(memoria.value(QLatin1String(clave)).toString().toStdString()).value_or("");
    }
}

void RecordarConexion(const fs::path& ruta, const EleccionDeLogon& eleccion) {
    QSettings memoria(NombreQt(ruta), QSettings::IniFormat);
    memoria.setValue(claveDePractica, eleccion.practica);
    for (const auto& [clave, campo] : recordados) memoria.setValue(QLatin1String(clave), TextoQt(eleccion.parametros.*campo));
    if (TieneClave(eleccion.parametros.ruta)) memoria.remove(QStringLiteral("Router"));
    memoria.sync();
    std::error_code ignorado;
    fs::permissions(ruta, fs::perms::owner_read | fs::perms::owner_write, ignorado);
}

}  // namespace qor
