#pragma once

#include <filesystem>
#include <set>

#include "generator/request.h"

// The file that a run writes.
namespace qor {

// What outlives a run.
struct EstadoDelGenerador {
    std::filesystem::path UltimoPrograma;                 // the last file written
    bool ProgramaTemporal = false;                        // that file is to be deleted later
    std::set<std::filesystem::path> rutasAceptadas = {};  // outside of their documents' directories, links resolved
};

// False when no output file is named: message 301.
bool ChequearNombreDeSalida(const PedidoDeGeneracion& pedido);

// Decides where the report goes and puts it into `estado`; a temporary report of the run before is deleted. A file that is
// there, unless it is the document's last report, and a path outside of the document's directory are asked about.
// False when there is no name, or the user says no.
bool ElegirSalida(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado);

// Where the report of a document goes as its options have it; empty where they name none.
std::filesystem::path RutaDelPrograma(const Documento& documento);
// A path as the options hold it: beside the document the name is enough, so that both can be moved together.
std::filesystem::path NombreJuntoAlDocumento(const Documento& documento, const std::filesystem::path& ruta);

// The user has chosen a path for a report, which needs no question about its place any more.
void AceptarLugarElegido(EstadoDelGenerador& estado, const std::filesystem::path& ruta);

// Deletes the last file written where it is a temporary one.
void BorrarReporteTemporal(EstadoDelGenerador& estado);

}  // namespace qor
