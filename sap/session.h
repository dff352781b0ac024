#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "base/messages.h"
#include "base/view.h"
#include "model/naming.h"
#include "sap/names.h"
#include "sap/service.h"
#include "sap/templates.h"

// The one connection to a system. Operations on it never raise: they answer false or nothing, and the caller shows the message.
namespace qor {

// Makes the service of a logon; null when the user backs out of it. Throws FalloDelServicio when it can't be had.
using FabricaDeServicio = std::function<std::unique_ptr<ServicioRFC>()>;

constexpr const char* textoSinConexion = "Not connected";

struct SesionSAP {
    // What the session is made of.
    NombresRFC nombres;  // complete
    FabricaDeServicio CrearServicio;
    PlantillasRFC plantillas;
    std::filesystem::path DirectorioTemporal;  // where files of a moment are written; chosen with the first one when it is empty
    std::shared_ptr<void> DirectorioPropio;    // removes that directory when it is the session's own

    // What it is at the moment.
    std::unique_ptr<ServicioRFC> SesionRFC;  // null while not logged on
    bool Conectado = false;
    std::string ConnectionStatus = textoSinConexion;  // the caption of the label
    std::string ModuloRFC;                            // the report runner in use
    std::string RolSistema;                           // role letter, "P" for a productive system; empty when it is not known
    std::string VersionSistema;                       // release, such as "46C"; empty while not connected
    std::string Motivo;                               // why the last operation failed, in the service's words; stays when
                                                      // there is no session any more

    bool EsDePractica() const { return SesionRFC != nullptr && SesionRFC->EsDePractica(); }
};

struct OpcionesDeLogon {
    bool ChequearErroresLogon = true;
    bool ImportarSHDBLogon = true;
};

// Whether the connection is usable. The first step of every remote operation.
bool SesionActiva(SesionSAP& sesion);

// Behind an operation that failed: when the connection was lost over it, there is no session any more, and `Motivo` says so.
void NotarPerdida(SesionSAP& sesion);

// Fills RolSistema and VersionSistema; false when the report could not be run.
bool RecuperarDatosSistema(SesionSAP& sesion);

// The menu commands. `Logon_Click` replaces a connection that is there; false leaves none.
bool Logon_Click(SesionSAP& sesion, const OpcionesDeLogon& opciones, Preferencias& preferencias, const TextosIdioma& textos,
                 Vista& vista);
void Logoff_Click(SesionSAP& sesion);

// Whether a recording is imported at once after a logon: the user wants it, and the document is new and untouched.
bool ImportarTrasLogon(const OpcionesDeLogon& opciones, bool HayCambios, bool DocumentoBloqueado);

// How the controls of the main form stand. What comes from the system and what comes from files exclude each other.
struct EstadoDelMenu {
    bool Logon = true;                       // enabled, with ButtonLogon
    bool Logoff = false;                     // enabled, with ButtonLogoff
    bool ConnectionStatus = false;           // visible
    bool GenerateProgram = true;             // visible, with Programa and ExaminarPrograma
    bool FrameOnline = false;                // enabled, with its five buttons
    bool FrameImportarTransacciones = true;  // enabled, with ReporteTrans, ExaminarReporte and ImportTrans
    bool FrameImportarAncho = true;          // enabled, with GenerarInfoCampos, then1 and ImportInfo
};

EstadoDelMenu MenuConectado(bool conectado);

// A message, and behind it on a line of its own what the service said about the last failure, where it said something.
Mensaje ConMotivo(const SesionSAP& sesion, Mensaje mensaje);

}  // namespace qor
