#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editor/window.h"
#include "generator/data_source_models.h"

// The rules of FormDataSource: the user's own source of data, and the code models for it.
namespace qor {

struct DialogoDeOrigen {
    Estructuras estructuras;  // `tablas` is the list of ComboItabs, the main table first
    std::string ComboItabs;   // the chosen table
};

// The click of OtherSource. Nothing when the declarations of the report could not be made; the view has shown why.
std::optional<DialogoDeOrigen> AbrirOrigen(Ventana& ventana, const Preferencias& preferencias);

// The check box CheckOtroOrigen, which is set when `especificacion.OrigenUsuario` is. With it off, all controls of the dialog are
// disabled but itself, OKButton and Ayuda.
void CambiarOtroOrigen(Ventana& ventana, bool encendido);
bool HabilitadoEnOrigen(const Ventana& ventana, std::string_view control);

// A change of Variables, Forms or Source. `texto` is OrigenVariables, OrigenForms or OrigenSource.
void CambiarTextoDeOrigen(Ventana& ventana, std::string Especificacion::*texto, const std::string& nuevo);

// The model buttons. For ModeloArchivo the form asks for the kind of source first (FormConsultaOrigen).
void ClicModeloArchivo(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo, FuenteDeModelo fuente);
void ClicModeloOpenSQL(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo);
void ClicModeloSQLNativo(Ventana& ventana, const Preferencias& preferencias, const DialogoDeOrigen& dialogo);

// Eliminar: the answer of FormConsultadeEliminar, "1" or "0" for Variables, Forms and Source in this order.
void EliminarDeOrigen(Ventana& ventana, const std::string& eleccion);

// PreviewButton, here and on the main form: the declarations to show, empty when they could not be made.
std::string TextoDePreview(Ventana& ventana, const Preferencias& preferencias);
// The same without a word to the user, for a pane that follows the document.
std::string EstructurasDe(const Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos);

}  // namespace qor
