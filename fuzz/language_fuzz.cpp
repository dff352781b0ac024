// Any bytes as a language file, with the name of a language in front of the first line break.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/language.h"
#include "base/text.h"
#include "fuzz/require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    using namespace qor;
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    const std::string nombre(AntesDe(texto, '\n'));

    TextosIdioma textos;
    std::string idioma = nombre;
    const auto resultado = RecuperarIdiomaDeTexto(textos, DespuesDe(texto, '\n'), idioma);

    Exigir(resultado != ResultadoIdioma::SinArchivo, "a content is a file");
    Exigir(idioma == nombre || idioma == "English", "only English stands in for another language");
    Exigir(textos.Texto(0).empty() || IgualesSinCaja(textos.Texto(0), Recortar(idioma)), "the texts are those of the language");
    Exigir(textos.Texto(1000).empty(), "numbers from 1000 on are no messages");
    for (int n = 1; n < 1000; ++n) {
        const bool enLiteral = n >= 500 && n <= 699;
        Exigir(!enLiteral || !Contiene(textos.Texto(n), "'"), "texts for literals have no apostrophe");
    }
    return 0;
}
