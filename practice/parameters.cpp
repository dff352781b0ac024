#include "practice/parameters.h"

#include <algorithm>

#include "abap/short_dump.h"
#include "abap/values/conversion.h"
#include "base/paths.h"
#include "base/text.h"
#include "practice/batch_rows.h"

namespace qor {

namespace {

using abap::ParametroDePantalla;
using abap::Tipo;

ParametroDePantalla* BuscarParametro(std::vector<ParametroDePantalla>& parametros, std::string_view nombre) {
    for (auto& parametro : parametros) {
        if (IgualesSinCaja(nombre, parametro.nombre)) return &parametro;
    }
    for (auto& parametro : parametros) {
        if (EsElNombre(parametro.nombre, nombre)) return &parametro;
    }
    return nullptr;
}

// A date or a time as the user writes it, such as 31.12.2026, as its digits.
std::string SinSignos(std::string_view texto, Tipo tipo) {
    const bool fecha = tipo == Tipo::D && texto.size() == 10 && texto[2] == '.' && texto[5] == '.';
    const bool hora = tipo == Tipo::T && texto.size() == 8 && texto[2] == ':' && texto[5] == ':';
    std::string digitos(texto);
    if (fecha) {
        digitos.assign(texto.substr(6)).append(texto.substr(3, 2)).append(texto.substr(0, 2));
    } else if (hora) {
        std::erase(digitos, ':');
    }
    return digitos;
}

void PonerValor(const ParametroDePantalla& parametro, const abap::Campo& campo, const std::string& valor) {
    const std::string texto = SinSignos(parametro.conMinusculas ? valor : Mayusculas(valor), campo.tipo);
    try {
        abap::PonerTexto(texto, campo);
    } catch (const abap::Volcado&) {
        throw ParametroImposible(parametro.nombre + " can't hold \"" + valor + "\"");
    }
}

// A line I EQ of a SELECT-OPTIONS.
void AgregarARango(const ParametroDePantalla& parametro, const std::string& valor) {
    const auto& linea = parametro.rango->Linea();
    std::uint8_t* const fila = parametro.rango->Agregar();
    const auto campo = [&](const char* nombre) { return abap::CampoDeComponente(*linea.estructura->Buscar(nombre), fila); };
    abap::PonerInicial(parametro.rango->CampoDeFila(parametro.rango->Filas() - 1), linea.estructura);
    abap::PonerTexto("I", campo("SIGN"));
    abap::PonerTexto("EQ", campo("OPTION"));
    PonerValor(parametro, campo("LOW"), valor);
}

void Poner(std::vector<ParametroDePantalla>& parametros, const ParametroDePantalla& parametro, const std::string& valor) {
    if (parametro.rango != nullptr) return AgregarARango(parametro, valor);
    PonerValor(parametro, parametro.campo, valor);
    if (parametro.grupo.empty() || abap::EsInicial(parametro.campo)) return;
    for (const auto& otro : parametros) {
        if (otro.grupo == parametro.grupo && otro.nombre != parametro.nombre) abap::PonerInicial(otro.campo, nullptr);
    }
}

bool EsDeTexto(const abap::Campo& campo) {
    return (campo.tipo == Tipo::C && campo.largo > 0) || (campo.tipo == Tipo::Cadena && campo.cadena != nullptr);
}

// The parameters and global variables that hold texts and bear a name.
std::vector<abap::Campo> ObjetosDeNombre(abap::Ejecucion& ejecucion, std::string_view pedido) {
    std::vector<abap::Campo> objetos;
    for (const auto& parametro : ejecucion.Parametros()) {
        if (parametro.rango == nullptr && EsElNombre(parametro.nombre, pedido)) objetos.push_back(parametro.campo);
    }
    for (const auto& nombre : ejecucion.Variables()) {
        if (EsElNombre(nombre, pedido)) objetos.push_back(ejecucion.BuscarVariable(nombre));
    }
    std::erase_if(objetos, [](const abap::Campo& campo) { return !EsDeTexto(campo); });
    return objetos;
}

// FILE, FILE_1, SLOOP_1 and their kin.
bool EsNombreDeArchivo(std::string_view nombre) {
    for (const std::string_view raiz : {"FILE_", "FILE", "SLOOP_"}) {
        if (nombre.starts_with(raiz)) return nombre.find_first_not_of("0123456789", raiz.size()) == std::string_view::npos;
    }
    return false;
}

// A report without file parameters holds the names of its files in global variables, which count as parameters then.
bool PonerNombreDeArchivo(abap::Ejecucion& ejecucion, const std::string& nombre, const std::string& valor) {
    bool alguno = false;
    for (const auto& variable : ejecucion.Variables()) {
        const auto raya = variable.find('_');
        const bool deArchivo =
            EsNombreDeArchivo(variable) || (raya <= 3 && EsNombreDeArchivo(std::string_view(variable).substr(raya + 1)));
        const auto campo = ejecucion.BuscarVariable(variable);
        if (!deArchivo || campo.soloLectura || !EsDeTexto(campo) || !EsElNombre(variable, nombre)) continue;
        abap::PonerTexto(valor, campo);
        alguno = true;
    }
    return alguno;
}

}  // namespace

void LlenarParametros(abap::Ejecucion& ejecucion, const std::vector<ArchivoNombrado>& archivos,
                      const std::vector<ValorDeParametro>& valores) {
    for (const auto& archivo : archivos) {
        for (const auto& campo : ObjetosDeNombre(ejecucion, archivo.nombre)) {
            if (!campo.soloLectura && abap::EsInicial(campo)) abap::PonerTexto(TextoDeRuta(archivo.ruta), campo);
        }
    }
    auto& parametros = ejecucion.Parametros();
    for (const auto& [nombre, valor] : valores) {
        const auto* const parametro = BuscarParametro(parametros, nombre);
        if (parametro != nullptr) {
            Poner(parametros, *parametro, valor);
        } else if (!PonerNombreDeArchivo(ejecucion, nombre, valor)) {
            throw ParametroImposible("the report has no parameter " + nombre);
        }
    }
}

std::string ParametroSinValor(abap::Ejecucion& ejecucion) {
    for (const auto& parametro : ejecucion.Parametros()) {
        if (!parametro.obligatorio) continue;
        const bool vacio = parametro.rango != nullptr ? parametro.rango->Filas() == 0 : abap::EsInicial(parametro.campo);
        if (vacio) return parametro.nombre;
    }
    return {};
}

void VariablesDelReporte::PonerEjecucion(abap::Ejecucion* ejecucion) {
    ejecucion_ = ejecucion;
    objetos_.clear();
}

bool VariablesDelReporte::Vale(std::string_view pedido, std::string_view valor) {
    const auto& objetos = Objetos(pedido);
    return !valor.empty() && std::any_of(objetos.begin(), objetos.end(),
                                         [valor](const abap::Campo& campo) { return SinBlancosDetras(campo.Texto()) == valor; });
}

const std::vector<abap::Campo>& VariablesDelReporte::Objetos(std::string_view pedido) {
    auto hallados = objetos_.find(pedido);
    if (hallados == objetos_.end()) {
        auto objetos = ejecucion_ == nullptr ? std::vector<abap::Campo>() : ObjetosDeNombre(*ejecucion_, pedido);
        hallados = objetos_.emplace(pedido, std::move(objetos)).first;
    }
    return hallados->second;
}

}  // namespace qor
