#include "abap/check/report_faults.h"

#include <algorithm>
#include <tuple>

namespace qor::abap {

void Informe::EmpezarSentencia(int linea, bool muda) {
    sentencia_ = linea;
    inicio_ = faltas_.size();
    muda_ = muda;
}

void Informe::Agregar(Falta::Clase clase, const Palabra& palabra, std::string_view nombre, int otraLinea) {
    if (muda_ || (sinBloques_ && clase == Falta::Clase::BloqueAbierto)) return;
    faltas_.push_back({clase, palabra.linea, palabra.columna, otraLinea, std::string(nombre), sentencia_});
}

void Informe::AgregarDe(int sentencia, Falta::Clase clase, const Palabra& palabra) {
    const int esta = CambiarSentencia(sentencia);
    Agregar(clase, palabra);
    sentencia_ = esta;
}

void Informe::AgregarDeForma(Falta::Clase clase, const Palabra& palabra, std::string_view nombre) {
    const auto deNombres = [](const Falta& falta) {
        return falta.clase == Falta::Clase::NombreSinDeclarar || falta.clase == Falta::Clase::ComponenteAjeno ||
               falta.clase == Falta::Clase::FueraDelCampo || falta.clase == Falta::Clase::ConstanteCambiada ||
               falta.clase == Falta::Clase::NoEsTabla;
    };
    faltas_.erase(std::remove_if(faltas_.begin() + static_cast<std::ptrdiff_t>(inicio_), faltas_.end(), deNombres), faltas_.end());
    Agregar(clase, palabra, nombre);
}

std::vector<Falta> Informe::Tomar() {
    std::stable_sort(faltas_.begin(), faltas_.end(), [](const Falta& uno, const Falta& otro) {
        return std::tie(uno.linea, uno.columna) < std::tie(otro.linea, otro.columna);
    });
    return std::move(faltas_);
}

}  // namespace qor::abap
