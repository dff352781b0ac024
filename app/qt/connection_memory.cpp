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

}  // namespace

void RecuperarConexion(const fs::path& ruta, ParametrosDeLogon& parametros) {
    const QSettings memoria(NombreQt(ruta), QSettings::IniFormat);
    for (const auto& [clave, campo] : recordados) {
        // A value that the code page can't hold would come back shortened.
        parametros.*campo = DesdeUtf8(memoria.value(QLatin1String(clave)).toString().toStdString()).value_or("");
    }
}

void RecordarConexion(const fs::path& ruta, const ParametrosDeLogon& parametros) {
    QSettings memoria(NombreQt(ruta), QSettings::IniFormat);
    for (const auto& [clave, campo] : recordados) memoria.setValue(QLatin1String(clave), TextoQt(parametros.*campo));
    if (TieneClave(parametros.ruta)) memoria.remove(QStringLiteral("Router"));
    memoria.sync();
    std::error_code ignorado;
    fs::permissions(ruta, fs::perms::owner_read | fs::perms::owner_write, ignorado);
}

}  // namespace qor
