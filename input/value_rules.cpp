#include "input/value_rules.h"

#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"

namespace qor {

namespace {}  // namespace

std::string LeerListaDeValores(const std::filesystem::path& directorio, const std::string& lista) {
    const auto archivo = directorio / RutaDelSistema(lista);
    try {
        return LeerArchivo(archivo, limiteDeCatalogo);
    } catch (const FalloDeArchivo& fallo) {
        throw FalloDeArchivo(std::string("The list of values that the checks of a field name can't be read: ") + fallo.what(),
                             archivo);
    }
}

ReglaDeValor::ReglaDeValor(const ClaseDeCampo& clase, const std::filesystem::path& directorio) : clase_(clase) {
    if (clase.tipo == ClaseDeCampo::Tipo::Fecha) {
        formato_ = FormatoDeFecha::Leer(clase.formato);
        if (!formato_) throw FalloDeEjecucion("no form of a date: " + clase.formato);
    }
    if (!clase.patron.empty()) patron_.emplace(clase.patron);
    if (clase.lista.empty()) return;
    const auto texto = LeerListaDeValores(directorio, clase.lista);
    for (const auto linea : PartirEnLineas(texto)) {
        if (!EstaEnBlanco(linea)) lista_.emplace(SinBlancosDetras(linea));
    }
}

std::optional<HallazgoDeEntrada> ReglaDeValor::Falta(std::string_view valor) const {
    const auto sinDetras = SinBlancosDetras(valor);
    if (sinDetras.empty()) return clase_.obligatorio ? std::optional(HallazgoDeEntrada::Obligatorio) : std::nullopt;
    const auto cortado = sinDetras.substr(sinDetras.find_first_not_of(' '));
    if (clase_.tipo == ClaseDeCampo::Tipo::Numero && !EsNumero(cortado, clase_.decimal)) return HallazgoDeEntrada::NoEsNumero;
    if (formato_ && !formato_->Admite(cortado)) return HallazgoDeEntrada::NoEsFecha;
    if (patron_ && !patron_->Admite(sinDetras)) return HallazgoDeEntrada::FueraDePatron;
    if (!clase_.lista.empty() && !lista_.contains(sinDetras)) return HallazgoDeEntrada::FueraDeLista;
    return std::nullopt;
}

std::string ReglaDeValor::Texto(HallazgoDeEntrada falta) const {
    switch (falta) {
        case HallazgoDeEntrada::Obligatorio: return "required, but blank";
        case HallazgoDeEntrada::NoEsNumero: return std::string("no number with \"") + clase_.decimal + "\" as its decimal sign";
        case HallazgoDeEntrada::NoEsFecha: return "no date of the form " + clase_.formato;
        case HallazgoDeEntrada::FueraDePatron: return "does not fit the pattern " + clase_.patron;
        case HallazgoDeEntrada::FueraDeLista: return "not in the list " + clase_.lista;
        default: return {};
    }
}

ReglasDeValores::ReglasDeValores(const ClasesDeCampos& clases, const std::filesystem::path& directorio) {
    for (const auto& [campo, clase] : clases.Todas()) {
        reglas_.emplace(campo, std::make_unique<const ReglaDeValor>(clase, directorio));
    }
}

const ReglaDeValor* ReglasDeValores::Buscar(std::string_view campo) const {
    const auto lugar = reglas_.find(Mayusculas(Recortar(campo)));
    return lugar == reglas_.end() ? nullptr : lugar->second.get();
}

}  // namespace qor
