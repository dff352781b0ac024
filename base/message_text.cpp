#include "base/message_text.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "base/code_page.h"
#include "base/failure_reason.h"
#include "base/paths.h"
#include "base/phrase.h"
#include "base/words.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

// A message whose text guesses, and the words that only say what failed.
struct SinConjetura {
    int mensaje;
    int palabra;
};

constexpr std::array<SinConjetura, 5> sinConjeturas = {{{326, palabra::NoSePudoEscribirElPrograma},
                                                        {328, palabra::NoSePudoProcesarElArchivo},
                                                        {335, palabra::NoSePudoAbrirElArchivo},
                                                        {336, palabra::NoSePudoGuardarLaEspecificacion},
                                                        {382, palabra::NoSePudoLeerElCatalogo}}};

bool FaltaLaCarpeta(const fs::path& ruta) {
    std::error_code ignorado;
    return ruta.has_parent_path() && !fs::exists(ruta.parent_path(), ignorado);
}

// The words of a cause; 0 where only the system can tell it.
int PalabraDe(const FalloDeMensaje& fallo) {
    switch (fallo.causa) {
        case CausaDeFallo::Falta: return FaltaLaCarpeta(fallo.ruta) ? palabra::LaCarpetaNoExiste : palabra::ElArchivoNoExiste;
        case CausaDeFallo::EnUso: return palabra::OtroTieneElArchivo;
        case CausaDeFallo::SinPermiso: return palabra::SinPermisoParaElArchivo;
        case CausaDeFallo::SoloLectura: return palabra::ElDiscoEsDeSoloLectura;
        case CausaDeFallo::SinLugar: return palabra::ElDiscoEstaLleno;
        case CausaDeFallo::NoEsArchivo: return palabra::EsUnaCarpeta;
        case CausaDeFallo::Cambiado: return palabra::OtroCambioElArchivo;
        case CausaDeFallo::Danado: return palabra::ElArchivoEstaDanado;
        case CausaDeFallo::Otra: break;
    }
    return 0;
}

std::string MotivoEnIdioma(const FalloDeMensaje& fallo, const TextosIdioma& textos) {
    return FraseDeMotivo(fallo.motivo).En([&textos](std::string_view ingles) { return AUtf8(textos.PorIngles(ingles)); });
}

// A text in which each line that the core says in English is in the loaded language.
template <typename Linea>
std::string PorLineas(std::string_view texto, const Linea& enIdioma) {
    constexpr std::string_view fin = "\r\n";
    std::string traducido;
    for (std::size_t desde = 0; desde <= texto.size();) {
        const auto hasta = std::min(texto.find(fin, desde), texto.size());
        if (desde > 0) traducido += fin;
        traducido += enIdioma(texto.substr(desde, hasta - desde));
        desde = hasta + fin.size();
    }
    return traducido;
}

// What only the command line says in English. The reason of an action that failed is that of the system, unless there are words
// for it.
std::string DeLiteral(const Mensaje& mensaje, const TextosIdioma& textos) {
    for (const char* const ingles : {"The action failed: %1.", "The specification can't be worked with: %1."}) {
        const auto frase = ReconocerFrase(mensaje.texto, ingles);
        if (!frase) continue;
        if (mensaje.fallo && PalabraDe(*mensaje.fallo) != 0) return textos.Palabra(palabra::LaAccionSobreElArchivoFallo);
        return EnIdioma(frase->Con(FraseDeMotivo), textos);
    }
    return PorLineas(mensaje.texto, [&](std::string_view linea) {
        const auto palabra = textos.PorIngles(linea);
        return palabra == linea ? EnIdioma(FraseDeMotivo(linea), textos) : std::string(palabra);
    });
}

}  // namespace

std::string EnIdioma(const Frase& frase, const TextosIdioma& textos, int primeraFila) {
    return frase.En([&](std::string_view ingles) { return std::string(textos.PorIngles(ingles)); }, primeraFila);
}

TextoEnPantalla EnPantalla(const Mensaje& mensaje, const TextosIdioma& textos) {
    TextoEnPantalla visto{mensaje.enPantalla, mensaje.detalle};
    if (visto.texto.empty()) {
        const auto enIdioma = [&](std::string_view linea) { return textos.PorIngles(linea); };
        visto.texto = mensaje.numeros.empty() ? DeLiteral(mensaje, textos) : PorLineas(mensaje.texto, enIdioma);
    }
    if (!mensaje.fallo) return visto;
    const auto seguro = std::find_if(sinConjeturas.begin(), sinConjeturas.end(),
                                     [&](const SinConjetura& otro) { return otro.mensaje == mensaje.Numero(); });
    if (seguro != sinConjeturas.end()) visto.texto = textos.Palabra(seguro->palabra);
    const int causa = PalabraDe(*mensaje.fallo);
    if (causa == 0) {
        visto.detalle = EnPantalla(*mensaje.fallo, textos);
        return visto;
    }
    visto.texto += "\r\n" + textos.Palabra(causa);
    visto.detalle = RutaEntera(mensaje.fallo->ruta).string();
    return visto;
}

std::string EnPantalla(const FalloDeMensaje& fallo, const TextosIdioma& textos) {
    const int causa = PalabraDe(fallo);
    const std::string motivo = causa == 0 ? MotivoEnIdioma(fallo, textos) : AUtf8(textos.Palabra(causa));
    if (fallo.ruta.empty()) return motivo;
    return motivo + (causa == 0 ? ": " : " ") + RutaEntera(fallo.ruta).string();
}

}  // namespace qor
