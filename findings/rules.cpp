#include "findings/rules.h"

#include <array>
#include <string>

#include "findings/user_code.h"

namespace qor {

namespace {

template <typename Opciones>
struct TextoDeOpcion {
    std::string_view nombre;
    std::string Opciones::*texto;
};

constexpr std::array<TextoDeOpcion<Opciones>, 14> textosDeOpciones = {{
    {"ArchivoFuente", &Opciones::ArchivoFuente},
    {"Identificadores", &Opciones::Identificadores},
    {"NombreManual", &Opciones::NombreManual},
    {"SpaceCode", &Opciones::SpaceCode},
    {"TablaZ", &Opciones::TablaZ},
    {"ProgID", &Opciones::ProgID},
    {"Programa", &Opciones::Programa},
    {"Functional", &Opciones::Functional},
    {"Technical", &Opciones::Technical},
    {"Description", &Opciones::Description},
    {"Notes", &Opciones::Notes},
    {"DescripcionStatus", &Opciones::DescripcionStatus},
    {"ModuleCombo", &Opciones::ModuleCombo},
    {"PrioridadCombo", &Opciones::PrioridadCombo},
}};

constexpr std::array<TextoDeOpcion<Preferencias>, 10> textosDePreferencias = {{
    {"EncodingAdditional", &Preferencias::AdicionesDataset},
    {"GSprefijo", &Preferencias::GSprefijo},
    {"GNprefijo", &Preferencias::GNprefijo},
    {"GTprefijo", &Preferencias::GTprefijo},
    {"LSprefijo", &Preferencias::LSprefijo},
    {"LNprefijo", &Preferencias::LNprefijo},
    {"LTprefijo", &Preferencias::LTprefijo},
    {"GCprefijo", &Preferencias::GCprefijo},
    {"PSprefijo", &Preferencias::PSprefijo},
    {"PNprefijo", &Preferencias::PNprefijo},
}};

template <typename Registro, typename Textos>
std::string TextoDe(const Registro& registro, const Textos& textos, std::string_view nombre) {
    for (const auto& texto : textos) {
        if (texto.nombre == nombre) return registro.*texto.texto;
    }
    return {};
}

template <typename Fila, typename Columnas>
std::string_view Celda(const std::vector<Fila>& tabla, const Columnas& columnas, const Lugar& lugar) {
    const auto fila = static_cast<std::size_t>(lugar.fila);
    const auto columna = static_cast<std::size_t>(lugar.columna);
    return fila < tabla.size() && columna < columnas.size() ? std::string_view(tabla[fila].*columnas[columna]) : std::string_view{};
}

std::string_view TextoEntero(const Especificacion& e, const Lugar& lugar) {
    using Parte = Lugar::Parte;
    switch (lugar.parte) {
        case Parte::Archivo: return Celda(e.TablaArchivo, columnasDeArchivo, lugar);
        case Parte::Programa: return Celda(e.TablaTransaccion, columnasDeTransaccion, lugar);
        case Parte::Condiciones: return Celda(e.TablaCondiciones, columnasDeCondicion, lugar);
        case Parte::BAPIs: return Celda(e.TablaBAPIs, columnasDeBAPI, lugar);
        case Parte::VariablesGlobales: return e.VariablesGlobales;
        case Parte::OrigenVariables: return e.OrigenVariables;
        case Parte::OrigenForms: return e.OrigenForms;
        case Parte::OrigenSource: return e.OrigenSource;
        case Parte::Opcion:
        case Parte::Preferencia:
        case Parte::Ninguna: break;
    }
    return {};
}

}  // namespace

Hallazgo& Libreta::Agregar(int codigo, const Lugar& lugar, std::initializer_list<std::string_view> valores, int variante) {
    const auto celda = TextoEnLugar(g_.especificacion, g_.opciones, g_.preferencias, lugar);
    return lista_.emplace_back(NuevoHallazgo(g_.textos, codigo, lugar, celda, valores, variante));
}

std::string TextoEnLugar(const Especificacion& especificacion, const Opciones& opciones, const Preferencias& preferencias,
                         const Lugar& lugar) {
    if (lugar.parte == Lugar::Parte::Opcion) {
        return lugar.opcion == nullptr ? std::string() : TextoDe(opciones, textosDeOpciones, lugar.opcion);
    }
    if (lugar.parte == Lugar::Parte::Preferencia) {
        return lugar.opcion == nullptr ? std::string() : TextoDe(preferencias, textosDePreferencias, lugar.opcion);
    }
    const auto texto = TextoEntero(especificacion, lugar);
    if (lugar.linea == 0) return std::string(texto);
    std::string linea;
    PorCadaLinea(texto, [&](std::string_view una, int numero) {
        if (numero == lugar.linea) linea = una;
    });
    return linea;
}

}  // namespace qor
