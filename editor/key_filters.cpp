#include "editor/key_filters.h"

#include <optional>

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"

namespace qor {

namespace {

// Why a row can't take a key, and where the focus goes for it.
struct Reparo {
    int mensaje;
    std::optional<Columna> foco = std::nullopt;
};

ClaseDeTexto ClaseDe(Columna columna) {
    switch (columna) {
        case Columna::CampoDeArchivo: return ClaseDeTexto::Nombre;
        case Columna::Ancho: return ClaseDeTexto::Digitos;
        case Columna::Valor: return ClaseDeTexto::Libre;
        default: return ClaseDeTexto::Mayusculas;
    }
}

bool FilaAnteriorVacia(const Ventana& ventana, LugarDeCelda lugar) {
    const int anterior = FilaDe(ventana, lugar) - 1;
    if (anterior < 0) return false;
    if (TablaDe(lugar.columna) == Tabla::Archivo) return ventana.documento.especificacion.TablaArchivo[anterior].campo.empty();
    return ventana.documento.especificacion.TablaTransaccion[anterior].CeldasVacias();
}

// The first of the reasons, in the order in which they are asked.
std::optional<Reparo> ReparoDeFila(const Ventana& ventana, LugarDeCelda lugar, char tecla) {
    const auto hayTexto = [&](Columna columna) { return !EstaEnBlanco(TextoDe(ventana, {columna, lugar.linea})); };
    // Asked only in the program grid, which has fewer lines.
    const auto filaDeCampo = [&] { return hayTexto(Columna::Campo) || hayTexto(Columna::Valor); };
    const auto filaDeCabeza = [&] { return hayTexto(Columna::Programa) || hayTexto(Columna::Dynpro); };
    if (lugar.columna == Columna::Ancho) {
        if (!hayTexto(Columna::CampoDeArchivo)) return Reparo{340, Columna::CampoDeArchivo};
        return std::nullopt;
    }
    if (FilaAnteriorVacia(ventana, lugar)) return Reparo{339};
    switch (lugar.columna) {
        case Columna::Programa:
            if (filaDeCampo()) return Reparo{341};
            if (tecla == ';') return Reparo{351};
            break;
        case Columna::Dynpro:
            if (filaDeCampo()) return Reparo{341};
            if (!hayTexto(Columna::Programa)) return Reparo{342, Columna::Programa};
            break;
        case Columna::Campo:
            if (filaDeCabeza()) return Reparo{344};
            break;
        case Columna::Valor:
            if (filaDeCabeza()) return Reparo{344};
            if (!hayTexto(Columna::Campo)) return Reparo{349, Columna::Campo};
            break;
        default: break;
    }
    return std::nullopt;
}

// True when the row can't take the key; the user has been told.
bool Rechazada(Ventana& ventana, LugarDeCelda lugar, char tecla) {
    const auto reparo = ReparoDeFila(ventana, lugar, tecla);
    if (!reparo) return false;
    ventana.vista.Advertir(Componer(ventana.textos, {reparo->mensaje}));
    if (reparo->foco) EnfocarCelda(ventana, {*reparo->foco, lugar.linea});
    return true;
}

}  // namespace

char FiltrarTeclaDeCelda(Ventana& ventana, LugarDeCelda lugar, char tecla) {
    if (Rechazada(ventana, lugar, tecla)) return teclaDescartada;
    return FiltrarTecla(ClaseDe(lugar.columna), tecla);
}

std::string FiltrarTextoDeCelda(Ventana& ventana, LugarDeCelda lugar, std::string_view texto) {
    const bool conPuntoYComa = Contiene(texto, ";");
    if (Rechazada(ventana, lugar, conPuntoYComa ? ';' : ' ')) return {};
    // A cell is one line: line breaks and tabs of the clipboard's text are no keys of it.
    std::string linea(texto);
    std::erase_if(linea, [](char c) { return c == '\r' || c == '\n' || c == '\t'; });
    return FiltrarTexto(ClaseDe(lugar.columna), linea);
}

}  // namespace qor
