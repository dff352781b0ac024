#include "input/value_rules.h"

#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "input/encoding.h"

namespace qor {

std::vector<std::string> LeerListaDeValores(const std::filesystem::path& directorio, const std::string& lista) {
    const auto archivo = directorio / RutaDelSistema(lista);
    const auto entero = LeerArchivo(archivo, limiteDeCatalogo);
    std::string_view texto = entero;
    const auto codificacion = CodificacionDe(texto);
    if (codificacion == Codificacion::Utf16) {
        throw FalloDeArchivo("the file is in UTF-16; allowed are windows-1252 and UTF-8", archivo);
    }
    if (MarcaDeOrden(texto) == Codificacion::Utf8) texto.remove_prefix(largoDeMarcaUtf8);
    std::vector<std::string> valores;
    std::size_t numero = 0;
    for (const auto linea : PartirEnLineas(texto)) {
        ++numero;
        if (EstaEnBlanco(linea)) continue;
        std::optional<std::string> valor(linea);
        if (codificacion == Codificacion::Utf8) valor = DesdeUtf8(linea);
        if (!valor) {
            throw FalloDeArchivo("line " + std::to_string(numero) +
                                     " of the list is no UTF-8, or has a character outside windows-1252, " +
                                     "which no value can have",
                                 archivo);
        }
        valores.emplace_back(SinBlancosDetras(*valor));
    }
    return valores;
}

std::vector<std::string> LeerListaDeCampo(const std::filesystem::path& directorio, const ClasesDeCampos& clases,
                                          const std::string& campo) {
    const auto& lista = clases.Buscar(campo)->lista;
    try {
        return LeerListaDeValores(directorio, lista);
    } catch (const FalloDeArchivo& fallo) {
        std::string donde = clases.Origen();
        if (const auto linea = clases.LineasDe(campo).lista; linea > 0) {
            donde += (donde.empty() ? "line " : ", line ") + std::to_string(linea);
        }
        throw FalloDeArchivo(donde + (donde.empty() ? "" : ": ") + AUtf8(campo) +
                                 ": the list, a text file whose name is relative to the document, can't be read: " + fallo.what(),
                             directorio / RutaDelSistema(lista));
    }
}

ReglaDeValor::ReglaDeValor(const ClaseDeCampo& clase, const std::vector<std::string>& lista)
    : clase_(clase), lista_(lista.begin(), lista.end()) {
    if (clase.tipo == ClaseDeCampo::Tipo::Fecha) {
        formato_ = FormatoDeFecha::Leer(clase.formato);
        if (!formato_) throw FalloDeEjecucion("no form of a date: " + clase.formato);
    }
    if (!clase.patron.empty()) patron_.emplace(clase.patron);
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
        const auto lista = clase.lista.empty() ? std::vector<std::string>() : LeerListaDeCampo(directorio, clases, campo);
        reglas_.emplace(campo, std::make_unique<const ReglaDeValor>(clase, lista));
    }
}

const ReglaDeValor* ReglasDeValores::Buscar(std::string_view campo) const {
    const auto lugar = reglas_.find(Mayusculas(Recortar(campo)));
    return lugar == reglas_.end() ? nullptr : lugar->second.get();
}

}  // namespace qor
