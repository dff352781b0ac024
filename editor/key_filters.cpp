#include "editor/key_filters.h"

#include <algorithm>
#include <array>
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

enum class Clase { Libre, Mayusculas, Nombre, Digitos };

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

char SinComillas(char tecla) { return tecla == '"' ? teclaDescartada : tecla; }

char EnMayuscula(char tecla) { return static_cast<char>(Mayuscula(static_cast<unsigned char>(tecla))); }

char Transformar(Clase clase, char tecla) {
    const char limpia = SinComillas(tecla);
    switch (clase) {
        case Clase::Mayusculas: return EnMayuscula(limpia);
        case Clase::Digitos: return EsDigito(limpia) || limpia == retroceso ? limpia : teclaDescartada;
        case Clase::Nombre: {
            const char letra = EnMayuscula(limpia);
            const bool pasa = (letra >= 'A' && letra <= 'Z') || EsDigito(letra) || letra == retroceso || letra == teclaDescartada;
            return pasa ? letra : '_';
        }
        case Clase::Libre: break;
    }
    return limpia;
}

Clase ClaseDe(Columna columna) {
    switch (columna) {
        case Columna::Text1: return Clase::Nombre;
        case Columna::Text2: return Clase::Digitos;
        case Columna::Text5: return Clase::Libre;
        default: return Clase::Mayusculas;
    }
}

Clase ClaseDe(std::string_view control) {
    if (control == "TablaZ") return Clase::Nombre;
    if (control == "ProgID" || control == "Filas") return Clase::Digitos;
    constexpr std::array<std::string_view, 14> enMayusculas = {
        "TextoBuscado", "EncodingAdditional", "Nuevo",     "Transac",   "TextoBuscar", "GSprefijo", "GNprefijo",
        "GTprefijo",    "LSprefijo",          "LNprefijo", "LTprefijo", "GCprefijo",   "PSprefijo", "PNprefijo"};
    const bool hay = std::find(enMayusculas.begin(), enMayusculas.end(), control) != enMayusculas.end();
    return hay ? Clase::Mayusculas : Clase::Libre;
}

bool FilaAnteriorVacia(const Editor& editor, LugarDeCelda lugar) {
    const int anterior = FilaDe(editor, lugar) - 1;
    if (anterior < 0) return false;
    if (TablaDe(lugar.columna) == Tabla::Archivo) return editor.especificacion.TablaArchivo[anterior].campo.empty();
    return editor.especificacion.TablaTransaccion[anterior].CeldasVacias();
}

// The first of the reasons, in the order in which they are asked.
std::optional<Reparo> ReparoDeFila(const Editor& editor, LugarDeCelda lugar, char tecla) {
    const auto hayTexto = [&](Columna columna) { return !EstaEnBlanco(TextoDe(editor, {columna, lugar.linea})); };
    // Asked only in the program grid, which has fewer lines.
    const auto filaDeCampo = [&] { return hayTexto(Columna::Text4) || hayTexto(Columna::Text5); };
    const auto filaDeCabeza = [&] { return hayTexto(Columna::Text6) || hayTexto(Columna::Text3); };
    if (lugar.columna == Columna::Text2) {
        if (!hayTexto(Columna::Text1)) return Reparo{340, Columna::Text1};
        return std::nullopt;
    }
    if (FilaAnteriorVacia(editor, lugar)) return Reparo{339};
    switch (lugar.columna) {
        case Columna::Text6:
            if (filaDeCampo()) return Reparo{341};
            if (tecla == ';') return Reparo{351};
            break;
        case Columna::Text3:
            if (filaDeCampo()) return Reparo{341};
            if (!hayTexto(Columna::Text6)) return Reparo{342, Columna::Text6};
            break;
        case Columna::Text4:
            if (filaDeCabeza()) return Reparo{344};
            break;
        case Columna::Text5:
            if (filaDeCabeza()) return Reparo{344};
            if (!hayTexto(Columna::Text4)) return Reparo{349, Columna::Text4};
            break;
        default: break;
    }
    return std::nullopt;
}

// True when the row can't take the key; the user has been told.
bool Rechazada(Editor& editor, LugarDeCelda lugar, char tecla) {
    const auto reparo = ReparoDeFila(editor, lugar, tecla);
    if (!reparo) return false;
    editor.vista.Advertir(Componer(editor.textos, {reparo->mensaje}));
    if (reparo->foco) EnfocarCelda(editor, {*reparo->foco, lugar.linea});
    return true;
}

template <typename Filtro>
std::string Pasar(std::string_view texto, Filtro filtro) {
    std::string resultado;
    for (const char c : texto) {
        if (const char pasada = filtro(c); pasada != teclaDescartada) resultado += pasada;
    }
    return resultado;
}

}  // namespace

char FiltrarTeclaDeCelda(Editor& editor, LugarDeCelda lugar, char tecla) {
    if (Rechazada(editor, lugar, tecla)) return teclaDescartada;
    return Transformar(ClaseDe(lugar.columna), tecla);
}

std::string FiltrarTextoDeCelda(Editor& editor, LugarDeCelda lugar, std::string_view texto) {
    const bool conPuntoYComa = Contiene(texto, ";");
    if (Rechazada(editor, lugar, conPuntoYComa ? ';' : ' ')) return {};
    // A cell is one line: line breaks and tabs of the clipboard's text are no keys of it.
    std::string linea(texto);
    std::erase_if(linea, [](char c) { return c == '\r' || c == '\n' || c == '\t'; });
    return Pasar(linea, [&](char c) { return Transformar(ClaseDe(lugar.columna), c); });
}

char FiltrarTecla(std::string_view control, char tecla) { return Transformar(ClaseDe(control), tecla); }

std::string FiltrarTexto(std::string_view control, std::string_view texto) {
    return Pasar(texto, [&](char c) { return FiltrarTecla(control, c); });
}

}  // namespace qor
