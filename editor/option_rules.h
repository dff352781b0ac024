#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>

#include "editor/window.h"
#include "model/naming.h"

// The option controls of the main form: their changes, the limits of their texts, and which of them can be seen and used.
namespace qor {

// Every change of an option control goes through here. The keys of its text box have been filtered (base/key_filters.h).
template <typename T>
void CambiarOpcion(Ventana& ventana, T Opciones::*opcion, const std::type_identity_t<T>& valor) {
    if (ventana.documento.opciones.*opcion == valor) return;
    ventana.documento.opciones.*opcion = valor;
    ventana.documento.Cambiar();
}

constexpr std::size_t largoMaximoDeNombreManual = 12;
constexpr std::size_t largoMaximoDeProgID = 10;

// The two texts with a limit. A longer one is cut, with message 333; the option holds what the box is to show.
void CambiarNombreManual(Ventana& ventana, const std::string& texto);
void CambiarProgID(Ventana& ventana, const std::string& texto);

struct EstadoDeControl {
    bool visible = true;
    bool habilitado = true;
    bool operator==(const EstadoDeControl&) const = default;
};

// By name of the control. Controls that are not named are always seen and enabled, as far as these rules go; what depends on a
// connection is not told here.
using EstadosDeControles = std::map<std::string_view, EstadoDeControl>;

// `OptionEncodingAdditional`: of the options for OPEN DATASET, the one with a text of its own is on.
EstadosDeControles EstadoDeControles(const Ventana& ventana, const Preferencias& preferencias, bool OptionEncodingAdditional);

// Number of the text that SourceName shows, and the text of Porcentaje.
int RotuloDeSourceName(const Opciones& opciones);
std::string Porcentaje(const Opciones& opciones);

// The small button ExpandirCampo, "+" or "-". With "-" the heads ProgramCol and DynproCol are hidden, and the columns of the
// program grid have other widths: by so many twips more (15 twips are a pixel).
constexpr int expansionDeText6 = -500;
constexpr int expansionDeText3 = -1400;
constexpr int expansionDeText4 = 1900;
void ClicExpandirCampo(Ventana& ventana);
const char* RotuloDeExpandirCampo(const Ventana& ventana);

}  // namespace qor
