#include "practice/dictionary_file.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

using abap::Tipo;

struct ClaseDeDato {
    std::string_view nombre;
    Tipo tipo;
    int largo;  // 0: the line tells
    std::uint32_t bytes;
};

constexpr std::uint32_t comoElLargo = 0;

constexpr std::array clases = {ClaseDeDato{"CHAR", Tipo::C, 0, comoElLargo}, ClaseDeDato{"LCHR", Tipo::C, 0, comoElLargo},
                               ClaseDeDato{"NUMC", Tipo::N, 0, comoElLargo}, ClaseDeDato{"RAW", Tipo::X, 0, comoElLargo},
                               ClaseDeDato{"DEC", Tipo::P, 0, comoElLargo},  ClaseDeDato{"CURR", Tipo::P, 0, comoElLargo},
                               ClaseDeDato{"QUAN", Tipo::P, 0, comoElLargo}, ClaseDeDato{"CLNT", Tipo::C, 3, 3},
                               ClaseDeDato{"LANG", Tipo::C, 1, 1},           ClaseDeDato{"CUKY", Tipo::C, 5, 5},
                               ClaseDeDato{"UNIT", Tipo::C, 3, 3},           ClaseDeDato{"ACCP", Tipo::N, 6, 6},
                               ClaseDeDato{"DATS", Tipo::D, 8, 8},           ClaseDeDato{"TIMS", Tipo::T, 6, 6},
                               ClaseDeDato{"INT1", Tipo::I, 3, 4},           ClaseDeDato{"INT2", Tipo::I, 5, 4},
                               ClaseDeDato{"INT4", Tipo::I, 10, 4},          ClaseDeDato{"FLTP", Tipo::F, 16, 8}};

constexpr int maximoDeLargo = 65535;
constexpr int maximoDeCifrasNumc = 255;
constexpr int maximoDeCifras = 31;
constexpr int maximoDeDecimales = 14;
constexpr std::size_t maximoDeNombre = 30;

class Lector {
public:
    EntradasDeDiccionario Leer(std::string_view texto) {
        for (const auto linea : PartirEnLineas(texto)) {
            ++linea_;
            Partir(linea);
            if (!palabras_.empty() && !linea.starts_with('*')) LeerLinea();
        }
        for (const auto& [nombre, entrada] : entradas_) {
            if (entrada.campos.empty()) Fallar(nombre + " has no fields");
        }
        return std::move(entradas_);
    }

private:
    void Partir(std::string_view linea) {
        palabras_.clear();
        const std::string mayusculas = Mayusculas(linea);
        std::size_t desde = 0;
        while ((desde = mayusculas.find_first_not_of(" \t", desde)) != std::string::npos) {
            const auto hasta = std::min(mayusculas.find_first_of(" \t", desde), mayusculas.size());
            palabras_.push_back(mayusculas.substr(desde, hasta - desde));
            desde = hasta;
        }
    }

    void LeerLinea() {
        using Clase = EntradaDeDiccionario::Clase;
        constexpr std::array cabezas = {std::pair("STRUCTURE", Clase::Estructura), std::pair("TABLE", Clase::Tabla),
                                        std::pair("FIELDS", Clase::Campos)};
        for (const auto& [palabra, clase] : cabezas) {
            // A field may bear the name of one of these words, and then has a type behind it.
            if (palabras_.size() != 2 || palabras_[0] != palabra || EsClase(palabras_[1])) continue;
            if (palabras_[1].size() > maximoDeNombre) Fallar("the name is longer than 30 characters");
            abierta_ = &entradas_[palabras_[1]];
            *abierta_ = {};
            abierta_->clase = clase;
            return;
        }
        if (palabras_[0] == "ELEMENT" && palabras_.size() > 2) {
            palabras_.erase(palabras_.begin());
            auto& elemento = entradas_[palabras_[0]];
            elemento = {Clase::Elemento, {LeerCampo()}};
            abierta_ = nullptr;
            return;
        }
        if (abierta_ == nullptr) Fallar("a field stands in front of every STRUCTURE, TABLE and FIELDS");
        auto campo = LeerCampo();
        if (abierta_->Buscar(campo.nombre) != nullptr) Fallar("the field " + campo.nombre + " stands there twice");
        abierta_->campos.push_back(std::move(campo));
    }

    static bool EsClase(std::string_view palabra) {
        return std::any_of(clases.begin(), clases.end(), [&](const auto& clase) { return clase.nombre == palabra; });
    }

    CampoDeDiccionario LeerCampo() {
        CampoDeDiccionario campo;
        campo.nombre = palabras_[0];
        if (campo.nombre.size() > maximoDeNombre) Fallar("the name is longer than 30 characters");
        if (palabras_.back() == "KEY" && palabras_.size() > 2) {
            campo.clave = true;
            palabras_.pop_back();
        }
        if (palabras_.size() < 2 || !EsClase(palabras_[1])) Fallar("the field " + campo.nombre + " has no type");
        const auto& clase = *std::find_if(clases.begin(), clases.end(), [&](const auto& c) { return c.nombre == palabras_[1]; });
        campo.clase = clase.nombre;
        campo.tipo.tipo = clase.tipo;
        std::size_t palabra = 2;
        campo.largo = clase.largo != 0 ? clase.largo : Numero(palabra++, 1, MaximoDe(clase.tipo));
        campo.tipo.largo = clase.bytes != comoElLargo ? clase.bytes : static_cast<std::uint32_t>(campo.largo);
        if (clase.tipo == Tipo::P) {
            campo.tipo.largo = static_cast<std::uint32_t>(campo.largo / 2 + 1);
            if (palabra < palabras_.size()) {
                campo.tipo.decimales = static_cast<std::uint8_t>(Numero(palabra++, 0, std::min(campo.largo, maximoDeDecimales)));
            }
        }
        if (palabra < palabras_.size()) Fallar("\"" + palabras_[palabra] + "\" has no place there");
        return campo;
    }

    static int MaximoDe(Tipo tipo) {
        if (tipo == Tipo::P) return maximoDeCifras;
        return tipo == Tipo::N ? maximoDeCifrasNumc : maximoDeLargo;
    }

    int Numero(std::size_t palabra, int minimo, int maximo) const {
        if (palabra >= palabras_.size()) Fallar("the length is missing");
        const auto& texto = palabras_[palabra];
        int numero = 0;
        const auto [hasta, error] = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
        if (error != std::errc{} || hasta != texto.data() + texto.size() || numero < minimo || numero > maximo) {
            Fallar("\"" + texto + "\" is no number from " + std::to_string(minimo) + " to " + std::to_string(maximo));
        }
        return numero;
    }

    [[noreturn]] void Fallar(const std::string& motivo) const {
        throw FalloDeEjecucion("line " + std::to_string(linea_) + ": " + motivo);
    }

    EntradasDeDiccionario entradas_;
    EntradaDeDiccionario* abierta_ = nullptr;
    std::vector<std::string> palabras_;
    std::size_t linea_ = 0;
};

}  // namespace

const CampoDeDiccionario* EntradaDeDiccionario::Buscar(std::string_view nombre) const {
    const auto lugar = std::find_if(campos.begin(), campos.end(), [&](const auto& campo) { return campo.nombre == nombre; });
    return lugar == campos.end() ? nullptr : &*lugar;
}

void LeerDiccionario(EntradasDeDiccionario& entradas, std::string_view texto) {
    for (auto& [nombre, entrada] : Lector().Leer(texto)) entradas.insert_or_assign(nombre, std::move(entrada));
}

}  // namespace qor
