#include "app/repetition.h"

#include "abap/values/conversion.h"
#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

bool TieneValor(const abap::Campo& campo) { return campo.datos != nullptr && !abap::EsInicial(campo); }

}  // namespace

bool Repeticion::EsRepeticion(abap::Ejecucion& ejecucion) const {
    return TieneValor(ejecucion.BuscarVariable(nombres_.ParamViejoBatch));
}

void Repeticion::Anotar(abap::Ejecucion& ejecucion) {
    const auto numero = EsRepeticion(ejecucion) ? ejecucion.BuscarVariable(nombres_.ParamNumeroBatch)
                                                : ejecucion.BuscarVariable(nombres_.GNprefijo + "MAXNUM");
    numero_ = TieneValor(numero) ? std::string(Recortar(abap::TextoPlano(numero))) : std::string();
    numero_.erase(0, std::min(numero_.find_first_not_of('0'), numero_.size()));
}

std::vector<std::string> Repeticion::Pasos(const std::string& que, const std::string& sistema) const {
    if (tabla_.empty() || numero_.empty()) return {};
    const std::string tabla = AUtf8(tabla_);
    if (sistema.empty()) {
        return {"The failed records went with the run. With --system FILE they stay in " + tabla + " and can be posted again."};
    }
    const std::string orden = "  qorgen system --system " + sistema;
    return {"The failed records are in " + tabla + " as run " + numero_ + ". To correct them and post them again:",
            orden + " download " + tabla + " errors.txt", orden + " upload " + tabla + " errors.txt",
            "  qorgen run " + que + " --system " + sistema + " --param " + AUtf8(nombres_.ParamViejoBatch) + "=X --param " +
                AUtf8(nombres_.ParamNumeroBatch) + "=" + numero_};
}

}  // namespace qor
