#include "app/language.h"

#include <algorithm>
#include <cmath>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "base/values.h"

namespace qor {

namespace {

constexpr const char* idiomaDeReserva = "English";
constexpr int primeroEnLiterales = 500;
constexpr int ultimoEnLiterales = 699;

struct Par {
    double numero;  // of any size
    std::string texto;
};

Par LeerPar(LectorValores& lector) {
    const Valor numero = lector.Leer();
    const Valor texto = lector.Leer();
    return {numero.clase == Valor::Clase::Numero ? std::nearbyint(Numero(numero.texto)) : 0, texto.ComoTexto()};
}

void Guardar(TextosIdioma& textos, const Par& par) {
    if (par.numero < 0) throw FalloDeEjecucion("a negative number in the language file");
    if (par.numero >= TextosIdioma::ultimo) return;
    const int numero = static_cast<int>(par.numero);
    std::string texto(Recortar(par.texto));
    // An apostrophe would end the literal that the text goes into.
    if (numero >= primeroEnLiterales && numero <= ultimoEnLiterales) std::replace(texto.begin(), texto.end(), '\'', ' ');
    textos.Poner(numero, texto);
}

// Loads one language; false when the file doesn't have it.
bool LeerSeccion(TextosIdioma& textos, std::string_view contenido, std::string_view nombre) {
    textos.Vaciar();
    LectorValores lector(contenido);
    bool encontrada = false;
    while (!lector.AlFinal()) {
        const Par par = LeerPar(lector);
        if (par.numero == 0) {
            if (encontrada) return true;
            encontrada = IgualesSinCaja(par.texto, nombre);
        }
        if (encontrada) Guardar(textos, par);
    }
    return encontrada;
}

}  // namespace

ResultadoIdioma RecuperarIdioma(TextosIdioma& textos, const std::filesystem::path& ruta, std::string& IdiomaActual,
                                std::string* detalle) {
    std::string contenido;
    try {
        contenido = LeerArchivo(ruta);
    } catch (const FalloDeArchivo& fallo) {
        if (detalle != nullptr) *detalle = fallo.Detalle();
        return ResultadoIdioma::SinArchivo;
    }
    return RecuperarIdiomaDeTexto(textos, contenido, IdiomaActual);
}

ResultadoIdioma RecuperarIdiomaDeTexto(TextosIdioma& textos, std::string_view contenido, std::string& IdiomaActual) {
    try {
        if (!LeerSeccion(textos, contenido, IdiomaActual) && !IgualesSinCaja(IdiomaActual, idiomaDeReserva)) {
            IdiomaActual = idiomaDeReserva;
            LeerSeccion(textos, contenido, IdiomaActual);
        }
        return ResultadoIdioma::Bien;
    } catch (const FalloDeEjecucion&) {
        return ResultadoIdioma::Fallo;
    }
}

ListaDeIdiomas ListarIdiomas(const std::filesystem::path& ruta) {
    ListaDeIdiomas lista;
    try {
        const std::string contenido = LeerArchivo(ruta);
        LectorValores lector(contenido);
        while (!lector.AlFinal()) {
            const Par par = LeerPar(lector);
            if (par.numero == 0) lista.nombres.push_back(ReemplazarTodo(par.texto, "\"", ""));
        }
    } catch (const FalloDeEjecucion& fallo) {
        lista.detalle = ConDetalle({}, fallo).detalle;
        lista.completa = false;
    }
    return lista;
}

}  // namespace qor
