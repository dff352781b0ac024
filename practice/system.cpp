#include "practice/system.h"

#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "practice/error_table_use.h"
#include "practice/session_count.h"
#include "practice/stored_recordings.h"
#include "practice/table_load.h"

namespace qor {

namespace {

LugaresDeArchivos LugaresDe(const OpcionesDeSistema& opciones) {
    LugaresDeArchivos lugares{opciones.archivos, opciones.carpeta, opciones.valores, opciones.ajenos};
    if (!opciones.archivo.empty()) {
        for (auto& archivo : ArchivosDeSistema(opciones.archivo)) lugares.ajenos.push_back(std::move(archivo));
    }
    return lugares;
}

std::string LeerSiHay(const std::filesystem::path& archivo) {
    return archivo.empty() || !Existe(archivo) ? std::string() : LeerArchivo(archivo, limiteDeCatalogo);
}

}  // namespace

SistemaDePractica::SistemaDePractica(const OpcionesDeSistema& opciones, OyenteDePractica& oyente, const FallosPedidos& fallos)
    : base_(opciones.archivo, opciones.acceso),
      nombres_(
          LugaresDe(opciones), [this](std::string_view nombre, std::string_view valor) { return variables_.Vale(nombre, valor); },
          oyente),
      listas_(opciones.valores,
              [&oyente](const std::string& nombre, const std::string& motivo) { oyente.ArchivoSinLeer(nombre, motivo); }),
      diccionario_(base_, LeerSiHay(opciones.catalogo), [&oyente](const std::string& texto) { oyente.Aviso(texto); }),
      tablas_(base_, diccionario_),
      probador_(grabaciones_, listas_, [this](std::string_view campo) { return diccionario_.BuscarElemento(campo); }),
      cola_(base_, MomentoActual()),
      colaSinGuardar_(opciones.guardaSesiones ? nullptr : std::make_unique<ColaSinGuardar>()),
      sesiones_(colaSinGuardar_ ? *colaSinGuardar_ : cola_, probador_, fallos, oyente),
      bapis_(diccionario_.Catalogo(), listas_, fallos, oyente),
      funciones_(sesiones_, bapis_, diccionario_.Catalogo(), nombres_, base_),
      transacciones_(probador_, fallos, oyente, [this] { base_.TerminarUnidad(); }),
      programas_(base_),
      archivos_(nombres_) {
    if (!opciones.diccionario.empty()) diccionario_.AgregarArchivo(opciones.diccionario, true);
    for (const auto& archivo : opciones.diccionariosPropios) diccionario_.AgregarArchivo(archivo, false);
    diccionario_.AgregarAnchos(LeerSiHay(opciones.anchos));
    for (const auto& guardada : GrabacionesDePractica(base_).Todas()) grabaciones_.Agregar(guardada.texto);
    for (const auto& archivo : opciones.grabaciones) {
        try {
            if (grabaciones_.Agregar(LeerArchivo(archivo, limiteDeSesion)) > 0) continue;
        } catch (const FalloDeArchivo&) {
            throw;
        } catch (const FalloDeEjecucion& fallo) {
            throw FalloDeArchivo(fallo.what(), archivo);
        }
        throw FalloDeArchivo("No recording and no session", archivo);
    }
    for (const auto& [nombre, archivo] : opciones.tablas) CargarTablaDeArchivo(base_, nombre, archivo);
    for (const auto& bapi : opciones.bapis) funciones_.AgregarBapi(bapi);
    // What was loaded is there when the report starts; nobody is told of it.
    base_.PonerOyente(&oyente);
}

SistemaDePractica::~SistemaDePractica() = default;

abap::Compilacion SistemaDePractica::Compilar(std::string_view reporte) {
    if (const auto uso = BuscarTablaDeErrores(reporte)) base_.CrearTablaDeErrores(uso->nombre, uso->largoDeLinea);
    return abap::Compilar(reporte, diccionario_);
}

abap::Entorno SistemaDePractica::Entorno(abap::SalidaDeLista& lista, abap::Seguimiento& seguimiento) {
    return {diccionario_, base_, archivos_, funciones_, transacciones_, programas_, lista, seguimiento, MomentoActual()};
}

bool SistemaDePractica::LeeSesiones(std::string_view reporte) {
    const std::string texto = Mayusculas(reporte);
    if (texto.find("BDC_OBJECT_READ") != std::string::npos) return true;
    for (auto lugar = texto.find("APQ"); lugar != std::string::npos; lugar = texto.find("APQ", lugar + 1)) {
        const auto delante = std::string_view(texto).substr(0, lugar);
        const auto fin = delante.find_last_not_of(" \r\n");
        if (fin != std::string_view::npos && fin + 1 < lugar && delante.substr(0, fin + 1).ends_with("FROM")) return true;
    }
    return false;
}

}  // namespace qor
