#include "app/practice_file.h"

#include "base/failure.h"
#include "base/new_file.h"
#include "practice/role.h"

namespace qor {

namespace {

constexpr const char* nombreDePractica = "practice.sqlite";

}  // namespace

std::filesystem::path RutaDePractica(const Entorno& entorno) {
    // A relative $XDG_DATA_HOME is invalid and counts as unset.
    std::filesystem::path datos = entorno("XDG_DATA_HOME");
    if (!datos.is_absolute()) datos = std::filesystem::path(entorno("HOME")) / ".local" / "share";
    return datos / "qor-generator" / nombreDePractica;
}

std::filesystem::path RutaDePracticaConDirectorio(const Entorno& entorno) {
    auto ruta = RutaDePractica(entorno);
    CrearDirectorio(ruta.parent_path());
    return ruta;
}

OpcionesDeSistema OpcionesDelUsuario(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                     const std::filesystem::path& directorioDeAjustes) {
    OpcionesDeSistema opciones;
    opciones.diccionario = directorioDeDatos / nombreDeDiccionario;
    opciones.diccionariosPropios = {directorioDeAjustes / nombreDeDiccionario};
    opciones.anchos = ajustes.ArchivoAnchos;
    opciones.catalogo = ajustes.ArchivoBAPI;
    return opciones;
}

OpcionesDeSistema OpcionesDelUsuario(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                     const std::filesystem::path& directorioDeAjustes, const std::filesystem::path& archivo) {
    auto opciones = OpcionesDelUsuario(ajustes, directorioDeDatos, directorioDeAjustes);
    opciones.archivo = archivo;
    opciones.valores = archivo.parent_path() / "values";
    return opciones;
}

std::string LeerRolDeSistema(const std::filesystem::path& archivo) {
    try {
        BaseDePractica base(archivo, Acceso::Leer);
        return RolDeSistema(base);
    } catch (const FalloDeEjecucion&) {
        BaseDePractica nueva;
        return RolDeSistema(nueva);
    }
}

std::filesystem::path DirectorioDeCatalogosDePractica(const std::filesystem::path& directorioDeAjustes) {
    return directorioDeAjustes / "practice";
}

}  // namespace qor
