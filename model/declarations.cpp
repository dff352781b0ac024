#include "model/declarations.h"

#include <algorithm>
#include <initializer_list>

#include "base/text.h"

namespace qor {

namespace {

bool ContieneConFinal(std::string_view declaraciones, std::string_view texto, std::initializer_list<std::string_view> finales) {
    const std::string donde = Mayusculas(declaraciones);
    const std::string buscado = Mayusculas(texto);
    return std::any_of(finales.begin(), finales.end(),
                       [&](std::string_view final) { return Contiene(donde, buscado + Mayusculas(final)); });
}

}  // namespace

bool Menciona(std::string_view declaraciones, std::string_view nombre) {
    return Contiene(Mayusculas(declaraciones), Mayusculas(nombre));
}

bool EstaDefinido(std::string_view declaraciones, std::string_view nombre) {
    return ContieneConFinal(declaraciones, nombre, {".", " ", "("});
}

bool EstaDeclarado(std::string_view declaraciones, std::string_view nombre) {
    return ContieneConFinal(declaraciones, " " + std::string(nombre), {",", ".", "(", " "});
}

bool HayData(std::string_view declaraciones, std::string_view nombre) {
    return ContieneConFinal(declaraciones, "DATA: " + std::string(nombre), {",", ".", "(", " "});
}

bool HayDataConTipo(std::string_view declaraciones, std::string_view nombre, std::string_view tipo,
                    std::initializer_list<std::string_view> finales) {
    return ContieneConFinal(declaraciones, "DATA: " + std::string(nombre) + " LIKE " + std::string(tipo), finales);
}

std::string BuscarTipoVariable(const std::vector<std::string>& lineas, std::string_view nombre) {
    const std::string buscado = Mayusculas("DATA: " + std::string(Recortar(nombre)) + " LIKE ");
    for (const auto& linea : lineas) {
        const auto lugar = Posicion(Mayusculas(linea), buscado);
        if (lugar == 0) continue;
        std::string tipo(Recortar(TramoDesde(linea, lugar + buscado.size())));
        if (tipo.ends_with(',') || tipo.ends_with('.')) tipo.pop_back();
        return tipo;
    }
    return {};
}

}  // namespace qor
