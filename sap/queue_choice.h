#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "sap/import.h"
#include "sap/remote_reports.h"

// The dialog FormImport: a list of the recordings or sessions of the connected system, of which the user takes one. Its form shows
// the grid, calls LlenarGrilla when it is first shown and ActivarFila at a double click.
namespace qor {

// A row of the grid; column 0 is its margin. Columns 1 to 6 are client, name, creator, date, time and queue identifier.
using FilaDeGrilla = std::array<std::string, 7>;

struct FormularioImport {
    bool EsGrabacion = true;  // recordings, else sessions
    std::vector<FilaDeGrilla> Grilla;
    std::filesystem::path ArchivoImportado;  // the file of session records that was written; empty without a choice

    int Titulo() const { return EsGrabacion ? 224 : 225; }  // number of the caption
    const char* Tipo() const { return EsGrabacion ? tipoGrabacion : tipoSesion; }
};

// Numbers of the headings of columns 1 to 6.
constexpr std::array<int, 6> titulosGrilla = {229, 230, 231, 232, 233, 234};

// Fills the grid. False with message 415 when the system gives no list; the dialog closes then.
bool LlenarGrilla(FormularioImport& formulario, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista);

// Takes the entry of a row: fetches it and writes its file. The dialog closes in any case; without an identifier, or when the entry
// can't be had, `ArchivoImportado` stays empty. That is told when the connection was lost over it, or the identifier can't be asked
// for.
void ActivarFila(FormularioImport& formulario, const std::string& qid, SesionSAP& sesion, Vista& vista);

// The rows of an entry as session records of 309 characters, with line ends.
std::string RegistrosDeCola(const FilasDeLista& DatosCola);

// Runs the dialog to its end.
using DialogoImport = std::function<void(FormularioImport&)>;

// The buttons: choose a recording or a session, read it, delete the file. Nothing without a choice, or where it can't be read.
std::optional<Importacion> ButtonOnlineSHDB(const Especificacion& especificacion, const DialogoImport& FormImport,
                                            const TextosIdioma& textos, Vista& vista);
std::optional<Importacion> ButtonOnlineSM35(const Especificacion& especificacion, const DialogoImport& FormImport,
                                            const TextosIdioma& textos, Vista& vista);

}  // namespace qor
