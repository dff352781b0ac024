#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "sap/session.h"

// Putting a program into the connected system under a name that the user gives. A productive system takes none.
namespace qor {

// The report that carries a program's source inside itself and installs it. No line has more than 72 columns.
struct ReporteDePublicacion {
    LineasABAP lineas;
    bool Recortado = false;  // a source line was cut to 72 characters
};

// Throws FalloDeEjecucion when the name holds a control character.
ReporteDePublicacion ComponerPublicacion(std::string_view fuente, const std::string& nombre);

// Installs the program of a source file. True when the system has taken it; message 419 when lines were cut.
bool PublicarPrograma(SesionSAP& sesion, const std::filesystem::path& archivo, const std::string& nombre,
                      const TextosIdioma& textos, Vista& vista);

// The dialog that asks for the name, with the name that it shows at first. Answers an empty name when the user backs out.
using DialogoABAP = std::function<std::string(const std::string& NombreElegido)>;

// Publishes the program that was generated last; nothing happens when there is none.
void ButtonOnlinePublish(SesionSAP& sesion, const std::filesystem::path& ArchivoGenerado, const DialogoABAP& FormABAP,
                         const TextosIdioma& textos, Vista& vista);

// Publishes a source file that the user chooses, with its own name as the first proposal.
void ButtonOnlinePublishLocal(SesionSAP& sesion, const DialogoABAP& FormABAP, const TextosIdioma& textos, Vista& vista);

// Publishes a source file, after the test of the system, under the name that the dialog answers to `propuesto`. True when the
// system has taken it.
bool PublicarArchivo(SesionSAP& sesion, const std::filesystem::path& archivo, const std::string& propuesto,
                     const DialogoABAP& FormABAP, const TextosIdioma& textos, Vista& vista);

// The same offered at the end of a generation.
void OfrecerPublicacion(SesionSAP& sesion, const std::filesystem::path& ArchivoGenerado, const DialogoABAP& FormABAP,
                        const TextosIdioma& textos, Vista& vista);

// The rules of the dialog.

// What a typed key puts into the name: letters in upper case, digits, "_" for all others; nothing for a double quote. Backspace,
// the character 8, stays itself.
std::optional<char> TeclaDeNombre(char tecla);

// OK is enabled and the default button; else Cancel is the default.
bool OKHabilitado(std::string_view NombreABAP);

struct CierreABAP {
    bool cerrar = false;        // else the dialog stays
    std::string NombreElegido;  // empty: publishing stops
};

// OK: asks for a name of the customer's, and before a program of that name is replaced.
CierreABAP AceptarNombreABAP(SesionSAP& sesion, const std::string& NombreABAP, const TextosIdioma& textos, Vista& vista);

}  // namespace qor
