#include "abap/compile/used_components.h"

#include <algorithm>
#include <unordered_set>

#include "abap/statements.h"
#include "base/text.h"

namespace qor::abap {

namespace {

// Macros and data objects are of no interest here.
class SinConocidos : public Conocidos {
public:
    bool EsMacro(Clave) const override { return false; }
    bool EsDato(Clave) const override { return false; }
};

// The component of NAME-COMPONENT, in upper case; empty where the word has none.
std::string ComponenteDe(const Palabra& palabra) {
    if (palabra.tipo != Palabra::Tipo::Nombre || palabra.largoBase == 0 || palabra.largoBase >= palabra.texto.size()) return {};
    auto resto = palabra.texto.substr(palabra.largoBase);
    if (resto.front() != '-') return {};
    resto.remove_prefix(1);
    return Mayusculas(resto.substr(0, resto.find_first_of("+([-")));
}

bool DeclaraTipo(const Palabra& palabra) {
    switch (palabra.clave) {
        case "LIKE"_c:
        case "TYPE"_c:
        case "STRUCTURE"_c: return true;
        default: return false;
    }
}

// The structure itself: nothing of STRUCTURE-COMPONENT.
Clave EstructuraNombrada(const Palabra& palabra) { return palabra.tipo == Palabra::Tipo::Nombre ? palabra.clave : 0; }

}  // namespace

ComponentesUsados::ComponentesUsados(std::string_view reporte) {
    const SinConocidos conocidos;
    LectorDeSentencias lector(reporte, conocidos);
    Sentencia sentencia;
    Clave registro = 0;  // between BEGIN OF and END OF
    while (lector.Siguiente(sentencia)) {
        const auto palabras = sentencia.palabras;
        for (const auto& palabra : palabras) {
            if (auto componente = ComponenteDe(palabra); !componente.empty())
                usos_.push_back({palabra.base, std::move(componente)});
        }
        if (palabras.size() < 2) continue;
        const Clave primera = palabras[0].clave;
        if (primera == "EXEC"_c) lector.Saltar("ENDEXEC");
        if (primera == "DEFINE"_c) lector.Saltar("END-OF-DEFINITION");
        if (primera == "TABLES"_c) declarados_[palabras[1].clave].push_back(palabras[1].clave);
        const bool declara = primera == "DATA"_c || primera == "CONSTANTS"_c || primera == "STATICS"_c || primera == "TYPES"_c;
        if (declara && palabras.size() > 3 && palabras[1].clave == "BEGIN"_c)
            registro = palabras[3].base;
        else if (declara && palabras[1].clave == "END"_c)
            registro = 0;
        else if (declara && registro != 0)
            propios_[registro].push_back(Mayusculas(palabras[1].texto.substr(0, palabras[1].largoBase)));
        if (primera == "INCLUDE"_c && palabras.size() > 2 && registro != 0)
            declarados_[EstructuraNombrada(palabras[2])].push_back(registro);
        for (std::size_t i = 2; i + 1 < palabras.size(); ++i) {
            if (DeclaraTipo(palabras[i])) declarados_[EstructuraNombrada(palabras[i + 1])].push_back(palabras[i - 1].base);
        }
    }
}

std::vector<std::string> ComponentesUsados::De(std::string_view estructura) const {
    const Clave clave = ClaveDe(estructura);
    std::vector<Clave> nombres{clave};
    if (const auto declarados = declarados_.find(clave); declarados != declarados_.end()) {
        nombres.insert(nombres.end(), declarados->second.begin(), declarados->second.end());
    }
    std::unordered_set<std::string> ya;
    for (const Clave nombre : nombres) {
        if (const auto propios = propios_.find(nombre); propios != propios_.end())
            ya.insert(propios->second.begin(), propios->second.end());
    }
    std::vector<std::string> componentes;
    for (const auto& uso : usos_) {
        if (std::find(nombres.begin(), nombres.end(), uso.nombre) == nombres.end()) continue;
        if (ya.insert(uso.componente).second) componentes.push_back(uso.componente);
    }
    return componentes;
}

}  // namespace qor::abap
