#include "editor/option_rules.h"

#include <initializer_list>

#include "editor/cell_rules.h"
#include "model/one_file.h"

namespace qor {

namespace {

using Nombres = std::initializer_list<std::string_view>;

void CambiarConLimite(Ventana& ventana, std::string Opciones::*opcion, const std::string& texto, std::size_t largo) {
    CambiarOpcion(ventana, opcion, texto.substr(0, largo));
    if (texto.size() <= largo) return;
    ventana.vista.Advertir(Componer(ventana.textos, {333, " " + std::to_string(largo) + "."}));
}

void Mostrar(EstadosDeControles& estados, Nombres nombres, bool visible) {
    for (const auto nombre : nombres) estados[nombre].visible = visible;
}

void Habilitar(EstadosDeControles& estados, Nombres nombres, bool habilitado) {
    for (const auto nombre : nombres) estados[nombre].habilitado = habilitado;
}

// The source of the data: a file or table, or the user's own code.
void EstadosDeOrigen(EstadosDeControles& estados, const Opciones& opciones, bool OrigenUsuario) {
    Mostrar(estados,
            {"SourceField", "TablaCh", "AnchoFijo", "DelimTab", "FileParameterCh", "AddF4", "ExaminarFuente", "SourceName",
             "ArchivoFuente"},
            !OrigenUsuario);
    Mostrar(estados, {"Otro1"}, OrigenUsuario);
    Habilitar(estados, {"AddF4"}, opciones.FileParameterCh == 1 && opciones.ClienteOp);
    Habilitar(estados, {"ExaminarFuente"}, opciones.ClienteOp);
}

// One file or several: a choice only where one file is possible.
void EstadosDeArchivos(EstadosDeControles& estados, const Documento& documento) {
    const bool elegible = AdmiteArchivoUnico(documento.especificacion, documento.opciones);
    Habilitar(estados, {"MultipleFilesOption", "OneFileOption"}, elegible);
    Habilitar(estados, {"IdentificadoresLabel", "IdentificadoresExplicacion", "Identificadores"},
              elegible && documento.opciones.OneFileOption());
}

void EstadosDeNombres(EstadosDeControles& estados, bool convenciones) {
    Mostrar(estados,
            {"LabelNamingConventions", "LabelGSprefix", "LabelGNprefix", "LabelGTprefix", "LabelLSprefix", "LabelLNprefix",
             "LabelLTprefix", "LabelGCprefix", "LabelPSprefix", "LabelPNprefix", "GSprefijo", "GNprefijo", "GTprefijo", "LSprefijo",
             "LNprefijo", "LTprefijo", "GCprefijo", "PSprefijo", "PNprefijo"},
            convenciones);
}

}  // namespace

void CambiarNombreManual(Ventana& ventana, const std::string& texto) {
    CambiarConLimite(ventana, &Opciones::NombreManual, texto, largoMaximoDeNombreManual);
}

void CambiarProgID(Ventana& ventana, const std::string& texto) {
    CambiarConLimite(ventana, &Opciones::ProgID, texto, largoMaximoDeProgID);
}

EstadosDeControles EstadoDeControles(const Ventana& ventana, const Preferencias& preferencias, bool OptionEncodingAdditional) {
    const Opciones& opciones = ventana.documento.opciones;
    EstadosDeControles estados;
    EstadosDeOrigen(estados, opciones, ventana.documento.especificacion.OrigenUsuario);
    EstadosDeArchivos(estados, ventana.documento);
    EstadosDeNombres(estados, preferencias.CheckActivateNamingConventions == 1);
    Mostrar(estados, {"CTFrame", "AOption", "NOption", "EOption", "ModeAsParameter"}, opciones.CallTransaction == 1);
    Mostrar(estados, {"ErroresExplicacion", "TablaZLabel", "TablaZ", "ProgIDLabel", "ProgID"}, opciones.ErrorHandlingCheck == 1);
    Mostrar(estados, {"ProgramCol", "DynproCol"}, !ventana.ExpandirCampo);
    Habilitar(estados, {"NombreManual"}, opciones.GeneracionManual());
    Habilitar(estados, {"SpaceCode"}, !opciones.ProcesarTodoOpt);
    Habilitar(estados, {"EncodingAdditional"}, OptionEncodingAdditional);
    Habilitar(estados, {"UndoButton"}, !ventana.documento.deshacer.Vacia());
    // They move the row of the cell.
    const auto& foco = ventana.foco;
    Habilitar(estados, {"UpButton", "DownButton"}, foco && TablaDe(foco->columna) == Tabla::Archivo);
    return estados;
}

int RotuloDeSourceName(const Opciones& opciones) {
    if (opciones.ClienteOp) return 51;
    return opciones.TablaCh == 1 ? 49 : 50;
}

std::string Porcentaje(const Opciones& opciones) { return std::to_string(opciones.HScroll1) + "%"; }

void ClicExpandirCampo(Ventana& ventana) { ventana.ExpandirCampo = !ventana.ExpandirCampo; }

const char* RotuloDeExpandirCampo(const Ventana& ventana) { return ventana.ExpandirCampo ? "-" : "+"; }

}  // namespace qor
