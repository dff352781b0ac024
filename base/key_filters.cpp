#include "base/key_filters.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace qor {

namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

char EnMayuscula(char tecla) { return static_cast<char>(Mayuscula(static_cast<unsigned char>(tecla))); }

ClaseDeTexto ClaseDe(std::string_view control) {
    if (control == "TablaZ") return ClaseDeTexto::Nombre;
    if (control == "ProgID" || control == "Filas") return ClaseDeTexto::Digitos;
    constexpr std::array<std::string_view, 14> enMayusculas = {
        "TextoBuscado", "EncodingAdditional", "Nuevo",     "Transac",   "TextoBuscar", "GSprefijo", "GNprefijo",
        "GTprefijo",    "LSprefijo",          "LNprefijo", "LTprefijo", "GCprefijo",   "PSprefijo", "PNprefijo"};
    const bool hay = std::find(enMayusculas.begin(), enMayusculas.end(), control) != enMayusculas.end();
    return hay ? ClaseDeTexto::Mayusculas : ClaseDeTexto::Libre;
}

}  // namespace

char FiltrarTecla(ClaseDeTexto clase, char tecla) {
    const char limpia = tecla == '"' ? teclaDescartada : tecla;
    switch (clase) {
        case ClaseDeTexto::Mayusculas: return EnMayuscula(limpia);
        case ClaseDeTexto::Digitos: return EsDigito(limpia) || limpia == retroceso ? limpia : teclaDescartada;
        case ClaseDeTexto::Nombre: {
            const char letra = EnMayuscula(limpia);
            const bool pasa = (letra >= 'A' && letra <= 'Z') || EsDigito(letra) || letra == retroceso || letra == teclaDescartada;
            return pasa ? letra : '_';
        }
        case ClaseDeTexto::Libre: break;
    }
    return limpia;
}

std::string FiltrarTexto(ClaseDeTexto clase, std::string_view texto) {
    std::string resultado;
    for (const char c : texto) {
        if (const char pasada = FiltrarTecla(clase, c); pasada != teclaDescartada) resultado += pasada;
    }
    return resultado;
}

char FiltrarTecla(std::string_view control, char tecla) { return FiltrarTecla(ClaseDe(control), tecla); }

std::string FiltrarTexto(std::string_view control, std::string_view texto) { return FiltrarTexto(ClaseDe(control), texto); }

}  // namespace qor
