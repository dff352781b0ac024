#include "app/language.h"

#include <algorithm>
#include <cmath>

#include "app/data_directory.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "base/values.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr const char* idiomaDeReserva = "English";
constexpr const char* nombreDelArchivo = "language.txt";
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
    if (par.numero > TextosIdioma::ultimaPalabra) return;
    const int numero = static_cast<int>(par.numero);
    if (numero >= TextosIdioma::ultimo) return textos.PonerPalabra(numero, par.texto);
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

// The words that are missing, from a language of a file; what fails in it leaves them out.
void CompletarPalabras(TextosIdioma& textos, std::string_view contenido, std::string_view idioma) {
    TextosIdioma otro;
    try {
        LeerSeccion(otro, contenido, idioma);
    } catch (const FalloDeEjecucion&) {
    }
    textos.CompletarPalabras(otro);
    if (IgualesSinCaja(idioma, idiomaDeReserva)) textos.CompletarInglesas(otro);
}

void CompletarDelPrograma(TextosIdioma& textos, const std::filesystem::path& leida, std::string_view idioma) {
    const auto propia = DirectorioDeDatos() / nombreDelArchivo;
    std::error_code ignorado;
    if (std::filesystem::equivalent(leida, propia, ignorado)) return;
    try {
        const std::string contenido = LeerArchivo(propia);
        CompletarPalabras(textos, contenido, idioma);
        CompletarPalabras(textos, contenido, idiomaDeReserva);
    } catch (const FalloDeArchivo&) {
        // The program has lost its data, which the reading of the user's own file has told or will tell.
    }
}

}  // namespace

ResultadoIdioma RecuperarIdioma(TextosIdioma& textos, const std::filesystem::path& ruta, std::string& IdiomaActual,
                                std::string* detalle) {
    std::string contenido;
    try {
        contenido = LeerArchivo(ruta);
    } catch (const FalloDeArchivo& fallo) {
        if (detalle != nullptr) *detalle = fallo.Detalle();
        CompletarDelPrograma(textos, ruta, IdiomaActual);
        return ResultadoIdioma::SinArchivo;
    }
    const auto resultado = RecuperarIdiomaDeTexto(textos, contenido, IdiomaActual);
    CompletarDelPrograma(textos, ruta, IdiomaActual);
    return resultado;
}

ResultadoIdioma RecuperarIdiomaDeTexto(TextosIdioma& textos, std::string_view contenido, std::string& IdiomaActual) {
    auto resultado = ResultadoIdioma::Bien;
    try {
        if (!LeerSeccion(textos, contenido, IdiomaActual) && !IgualesSinCaja(IdiomaActual, idiomaDeReserva)) {
            IdiomaActual = idiomaDeReserva;
            LeerSeccion(textos, contenido, IdiomaActual);
        }
    } catch (const FalloDeEjecucion&) {
        resultado = ResultadoIdioma::Fallo;
    }
    CompletarPalabras(textos, contenido, idiomaDeReserva);
    return resultado;
}

ListaDeIdiomas ListarIdiomas(const std::filesystem::path& ruta) {
    ListaDeIdiomas lista;
    try {
        const std::string contenido = LeerArchivo(ruta);
        LectorValores lector(contenido);
        while (!lector.AlFinal()) {
            const Par par = LeerPar(lector);
            if (par.numero == 0) {
                lista.nombres.push_back(ReemplazarTodo(par.texto, "\"", ""));
                lista.presentes.emplace_back();
            } else if (!lista.presentes.empty() &&
                       (par.numero == palabra::NombreDelIdioma || par.numero == palabra::ElijaUnIdioma)) {
                lista.presentes.back().PonerPalabra(static_cast<int>(par.numero), par.texto);
            }
        }
    } catch (const FalloDeEjecucion& fallo) {
        lista.detalle = ConDetalle({}, fallo).detalle;
        lista.completa = false;
    }
    return lista;
}

}  // namespace qor
