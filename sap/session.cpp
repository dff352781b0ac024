#include "sap/session.h"

#include <string_view>
#include <utility>

#include "base/text.h"
#include "sap/remote_call.h"
#include "sap/remote_reports.h"

namespace qor {

namespace {

// Releases from this one on know encodings of files. Releases are compared as texts, so "46C" is an older one.
constexpr std::string_view primeraVersionConEncoding = "470";

// A row of a source without its line comment, cut, in upper case.
std::string NormalizarFila(std::string_view fila) { return Mayusculas(Recortar(AntesDe(fila, '"'))); }

// What a copy of the report runner may have differently.
bool EsDeLaCopia(std::string_view fila) {
    return fila.starts_with("FUNCTION ") || fila.starts_with("MESSAGE ") || fila == "ENDIF." || fila == "IF SY-SUBRC NE 0." ||
           fila == "IF SY-SUBRC <> 0.";
}

std::string NormalizarFuente(const std::vector<std::string>& filas) {
    std::string fuente;
    bool EnAutoridad = false;
    for (const auto& original : filas) {
        if (original.starts_with('*')) continue;
        const std::string fila = NormalizarFila(original);
        if (fila.starts_with("AUTHORITY-CHECK")) EnAutoridad = true;
        if (EnAutoridad) {
            if (fila.ends_with('.')) EnAutoridad = false;
        } else if (!EsDeLaCopia(fila)) {
            fuente += fila;
        }
    }
    return fuente;
}

std::string LeerFuente(SesionSAP& sesion, const std::string& lector, const std::string& nombre) {
    auto filas = Llamar(sesion, {lector, {"PROGRAM", nombre}, std::nullopt, "QTAB"});
    if (!filas || filas->empty()) return {};
    filas->pop_back();  // the last row is never looked at
    return NormalizarFuente(*filas);
}

std::string LeerFuenteA(SesionSAP& sesion, const std::string& nombre) {
    return LeerFuente(sesion, sesion.nombres.LectorFuenteA, nombre);
}

std::string LeerFuenteB(SesionSAP& sesion, const std::string& nombre) {
    return LeerFuente(sesion, sesion.nombres.LectorFuenteB, nombre);
}

std::string LeerFuenteBoA(SesionSAP& sesion, const std::string& nombre) {
    std::string fuente = LeerFuenteB(sesion, nombre);
    return EstaEnBlanco(fuente) ? LeerFuenteA(sesion, nombre) : fuente;
}

// The function group of a module; empty when there is no such module.
std::string GrupoDeFuncion(SesionSAP& sesion, const std::string& modulo) {
    const auto grupos = Llamar(sesion, {sesion.nombres.BusquedaDeFunciones, {"FUNCNAME", modulo}, std::nullopt, "FUNCTIONS", 2});
    return grupos && !grupos->empty() ? std::string(Recortar(grupos->front())) : std::string();
}

// Leaves no session.
void Soltar(SesionSAP& sesion) {
    sesion.SesionRFC.reset();
    sesion.VersionSistema.clear();
    sesion.Conectado = false;
    sesion.ConnectionStatus = textoSinConexion;
    sesion.Motivo.clear();
}

// Creates the service and shows its dialog. A failure is told when the user wants it, and is no more than a refused logon.
bool CrearYEntrar(SesionSAP& sesion, const OpcionesDeLogon& opciones, Vista& vista) {
    try {
        sesion.SesionRFC = sesion.CrearServicio();
        return sesion.SesionRFC != nullptr && sesion.SesionRFC->Connection().Logon(false);
    } catch (const FalloDelServicio& fallo) {
        const bool dePractica = sesion.SesionRFC != nullptr && sesion.SesionRFC->EsDePractica();
        const std::string que = dePractica ? "The practice system can't be opened."
                                           : "The logon has failed. The libraries of the SAP front-end may not be registered on "
                                             "this computer.";
        if (dePractica || opciones.ChequearErroresLogon) vista.Advertir(MensajeLiteral(que + "\r\n" + fallo.what()));
        return false;
    }
}

void AjustarEncoding(const SesionSAP& sesion, Preferencias& preferencias) {
    if (sesion.VersionSistema < primeraVersionConEncoding) {
        preferencias.AdicionesDataset = "NONE";
    } else if (preferencias.AdicionesDataset == "NONE") {
        preferencias.AdicionesDataset = "ENCODING DEFAULT.";
    }
}

}  // namespace

bool SesionActiva(SesionSAP& sesion) {
    if (sesion.SesionRFC == nullptr) return false;
    sesion.Motivo.clear();
    try {
        if (sesion.SesionRFC->Connection().Logon(true)) return true;
        sesion.Motivo = sesion.SesionRFC->UltimoError();
    } catch (const FalloDelServicio& fallo) {
        sesion.Motivo = fallo.what();
    }
    NotarPerdida(sesion);
    return false;
}

void NotarPerdida(SesionSAP& sesion) {
    if (sesion.SesionRFC == nullptr || sesion.SesionRFC->Connection().Abierta()) return;
    const std::string causa = sesion.Motivo.empty() ? "" : sesion.Motivo + "\r\n";
    const char* const perdida = sesion.EsDePractica() ? "The connection to the practice system is lost. Please log on again."
                                                      : "The connection to the SAP system is lost. Please log on again.";
    Soltar(sesion);
    sesion.Motivo = causa + perdida;
}

bool RecuperarDatosSistema(SesionSAP& sesion) {
    sesion.RolSistema.clear();
    sesion.VersionSistema.clear();
    const auto filas = EjecutarReporte(sesion, sesion.plantillas.PlantillaSistema);
    if (!filas) return false;
    if (!filas->empty()) sesion.RolSistema = filas->front();
    if (filas->size() >= 3) sesion.VersionSistema = std::string(Recortar((*filas)[2]));
    return true;
}

namespace {

// Chooses ModuloRFC: the customer's own module where it exists, else the standard one. False when the customer's differs from the
// standard one in more than comments, messages and the authority check, or when the sources can't be read.
bool ValidarModuloRFC(SesionSAP& sesion) {
    const auto& nombres = sesion.nombres;
    if (nombres.ModuloRFCPropio.empty()) {
        sesion.ModuloRFC = nombres.ModuloRFCEstandar;
        return true;
    }
    if (!SesionActiva(sesion)) return false;
    const std::string grupo = GrupoDeFuncion(sesion, nombres.ModuloRFCPropio);
    if (grupo.empty()) {
        sesion.ModuloRFC = nombres.ModuloRFCEstandar;
        return true;
    }
    sesion.ModuloRFC = nombres.ModuloRFCPropio;
    const std::string propia = LeerFuenteBoA(sesion, "L" + grupo + "U01");
    if (propia.empty()) return false;
    return propia == LeerFuenteBoA(sesion, nombres.IncludeEstandar);
}

// Leaves no session.
void DesconectarSAP(SesionSAP& sesion) {
    if (sesion.SesionRFC != nullptr) {
        try {
            sesion.SesionRFC->Connection().Logoff();
        } catch (const FalloDelServicio&) {
            // A connection that is gone needs no farewell.
        }
    }
    Soltar(sesion);
}

// Creates the service and logs on, chooses the report runner, reads the system's role and release, and sets the addition of
// OPEN DATASET by the release. False leaves no session.
bool ConectarSAP(SesionSAP& sesion, const OpcionesDeLogon& opciones, Preferencias& preferencias, Vista& vista) {
    if (!CrearYEntrar(sesion, opciones, vista)) {
        Soltar(sesion);
        sesion.RolSistema.clear();
        return false;
    }
    const bool valido = ValidarModuloRFC(sesion);
    const bool conDatos = valido && RecuperarDatosSistema(sesion);
    if (sesion.SesionRFC == nullptr) {
        vista.Advertir(MensajeLiteral(std::string("The logon has failed.") + "\r\n" + sesion.Motivo));
        return false;
    }
    if (!valido) {
        DesconectarSAP(sesion);
        vista.Advertir(MensajeLiteral("Invalid RFC Function module. Click Help / Contents > Troubleshooting."));
        return false;
    }
    // Practising is to leave no trace in what is made for a real system.
    if (conDatos && !sesion.EsDePractica()) AjustarEncoding(sesion, preferencias);
    return true;
}

}  // namespace

bool Logon_Click(SesionSAP& sesion, const OpcionesDeLogon& opciones, Preferencias& preferencias, const TextosIdioma& textos,
                 Vista& vista) {
    Logoff_Click(sesion);
    if (!ConectarSAP(sesion, opciones, preferencias, vista)) return false;
    const auto& conexion = sesion.SesionRFC->Connection();
    sesion.ConnectionStatus = Componer(textos, {407, " ", conexion.Client(), " ", 408, " ", conexion.System()}).texto;
    sesion.Conectado = true;
    return true;
}

void Logoff_Click(SesionSAP& sesion) {
    if (sesion.Conectado) DesconectarSAP(sesion);
}

bool ImportarTrasLogon(const OpcionesDeLogon& opciones, bool HayCambios, bool DocumentoBloqueado) {
    return opciones.ImportarSHDBLogon && !HayCambios && !DocumentoBloqueado;
}

EstadoDelMenu MenuConectado(bool conectado) {
    return {!conectado, conectado, conectado, !conectado, conectado, !conectado, !conectado};
}

Mensaje ConMotivo(const SesionSAP& sesion, Mensaje mensaje) {
    if (!sesion.Motivo.empty()) mensaje.texto += "\r\n" + sesion.Motivo;
    return mensaje;
}

}  // namespace qor
