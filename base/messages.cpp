#include "base/messages.h"

#include <filesystem>
#include <utility>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/paths.h"
#include "base/phrase.h"

namespace qor {

namespace {

const std::string vacio;

const std::string& Buscar(const std::map<int, std::string>& palabras, int numero) {
    const auto palabra = palabras.find(numero);
    return palabra == palabras.end() ? vacio : palabra->second;
}

}  // namespace

const std::string& TextosIdioma::Texto(int numero) const {
    return numero >= 0 && numero <= ultimo ? textos_[static_cast<std::size_t>(numero)] : vacio;
}

void TextosIdioma::Poner(int numero, std::string_view texto) { textos_.at(static_cast<std::size_t>(numero)) = texto; }

const std::string& TextosIdioma::Palabra(int numero) const { return Buscar(palabras_, numero); }

const std::string& TextosIdioma::PalabraInglesa(int numero) const { return Buscar(inglesas_, numero); }

void TextosIdioma::PonerPalabra(int numero, std::string_view texto) { palabras_[numero] = texto; }

void TextosIdioma::CompletarPalabras(const TextosIdioma& otro) {
    palabras_.insert(otro.palabras_.lower_bound(primeraCompartida), otro.palabras_.end());
}

void TextosIdioma::CompletarInglesas(const TextosIdioma& ingles) {
    inglesas_.insert(ingles.palabras_.begin(), ingles.palabras_.end());
    for (const auto& [numero, texto] : inglesas_) numeros_.emplace(texto, numero);
}

std::string_view TextosIdioma::PorIngles(std::string_view ingles) const {
    const auto numero = numeros_.find(ingles);
    return numero == numeros_.end() ? ingles : std::string_view(Palabra(numero->second));
}

void TextosIdioma::Vaciar() {
    textos_.fill({});
    palabras_.clear();
    inglesas_.clear();
    numeros_.clear();
}

Mensaje Componer(const TextosIdioma& textos, std::initializer_list<Pieza> piezas) {
    Mensaje mensaje;
    for (const auto& pieza : piezas) {
        if (const int* numero = std::get_if<int>(&pieza)) {
            mensaje.numeros.push_back(*numero);
            mensaje.texto += textos.Texto(*numero);
        } else {
            mensaje.texto += std::get<std::string_view>(pieza);
        }
    }
    return mensaje;
}

Mensaje MensajeLiteral(std::string_view texto) { return {{}, std::string(texto)}; }

Mensaje MensajeDePalabra(const TextosIdioma& textos, int palabra, const std::vector<std::string>& partes) {
    return MensajeLiteral(Llenar(textos.Palabra(palabra), partes));
}

FalloDeMensaje FalloDe(const std::exception& fallo) {
    if (const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo)) {
        return {deArchivo->Causa(), deArchivo->Ruta(), fallo.what()};
    }
    if (const auto* const delSistema = dynamic_cast<const std::filesystem::filesystem_error*>(&fallo)) {
        return {CausaDe(delSistema->code().default_error_condition().value()), delSistema->path1(), delSistema->code().message()};
    }
    return {CausaDeFallo::Otra, {}, AUtf8(fallo.what())};
}

Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo) {
    const auto deArchivo = FalloDe(fallo);
    if (deArchivo.ruta.empty()) return mensaje;
    mensaje.detalle = deArchivo.motivo + ": " + deArchivo.ruta.string();
    mensaje.fallo = deArchivo;
    return mensaje;
}

Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo, const std::filesystem::path& ruta) {
    mensaje = ConDetalle(std::move(mensaje), fallo);
    if (mensaje.fallo) return mensaje;
    mensaje.detalle = FalloDe(fallo).motivo + ": " + ruta.string();
    mensaje.fallo = {CausaDeFallo::Danado, ruta, {}};
    return mensaje;
}

Mensaje SobreArchivo(Mensaje mensaje, const std::filesystem::path& ruta) {
    mensaje.enPantalla = mensaje.texto + "\r\n" + TextoDeRuta(RutaEntera(ruta));
    return mensaje;
}

}  // namespace qor
