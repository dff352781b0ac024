#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "sap/session.h"

// Nothing is installed in a system ahead of time: every question is a throw-away report, sent as source to the report runner, and
// its answer is the list that the report writes. Nothing, or false, when the session is not usable or the call fails, and no call
// is made when an argument holds a control character; `Motivo` tells why.
namespace qor {

using FilasDeLista = std::vector<std::string>;

// Runs a report (MODE "F", tables PROGRAM and WRITES) and answers all rows of its list.
std::optional<FilasDeLista> EjecutarReporte(SesionSAP& sesion, const LineasABAP& programa);

// The list rows of these reports but the last one, which each of them writes to mark its end.

// Programs by user and name, with "*" for any text and "+" for one character. An empty name stands for all customer programs.
std::optional<FilasDeLista> BuscarProgramas(SesionSAP& sesion, const std::string& usuario, bool porCreador,
                                            const std::string& programa);

constexpr const char* tipoGrabacion = "%BDC";
constexpr const char* tipoSesion = "BDC";

// The entries of the batch-input queue of a type: columns of 12, 20, 12, 8, 6 and 3 characters with name, queue identifier,
// creator, date, time and client.
std::optional<FilasDeLista> ListarColas(SesionSAP& sesion, const std::string& tipo);

// Objects and BAPIs, as the type 1 and type 2 records of a catalogue.
std::optional<FilasDeLista> ListarBAPIs(SesionSAP& sesion);

// Appends the documentation and the parameters of a BAPI to a file, as catalogue records.
bool BajarBAPI(SesionSAP& sesion, const std::string& funcion, std::ostream& archivo);

// The contents of a queue entry, all rows: a tag "1" to "5", a character that means nothing, and a piece of 62 characters.
std::optional<FilasDeLista> LeerCola(SesionSAP& sesion, const std::string& qid, const std::string& tipo);

// The reports of these queries: templates with the arguments put into their literals. Throw FalloDeEjecucion when an argument holds
// a control character.
LineasABAP ReporteDeProgramas(const PlantillasRFC& plantillas, const std::string& usuario, bool porCreador,
                              const std::string& programa);
LineasABAP ReporteDeColas(const PlantillasRFC& plantillas, const std::string& tipo);
LineasABAP ReporteDeBAPI(const PlantillasRFC& plantillas, const std::string& funcion);
LineasABAP ReporteDeCola(const PlantillasRFC& plantillas, const std::string& qid, const std::string& tipo);

}  // namespace qor
