#include "app/start_up.h"

#include <system_error>

#include "base/failure.h"
#include "base/paths.h"
#include "base/text.h"
#include "editor/document_commands.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view sinPresentacion = "#$%";
constexpr const char* primerIdioma = "English";

ResultadoIdioma CargarIdioma(Programa& programa, std::string& idioma) {
    return RecuperarIdioma(programa.textos, programa.directorioDeDatos / "language.txt", idioma, &programa.detalleDeIdioma);
}

std::string SinComillas(std::string_view texto) {
    const bool entreComillas = texto.size() >= 2 && texto.front() == '"' && texto.back() == '"';
    return std::string(entreComillas ? texto.substr(1, texto.size() - 2) : texto);
}

// The path with its name as the directory has it: on a disk that doesn't tell case apart, the case of the letters.
fs::path ConNombreDelDisco(const fs::path& documento) {
    std::error_code error;
    if (!fs::exists(documento, error)) return documento;
    const fs::path directorio = documento.has_parent_path() ? documento.parent_path() : fs::path(".");
    fs::path parecido;
    for (fs::directory_iterator lugar(directorio, error), fin; !error && lugar != fin; lugar.increment(error)) {
        const fs::path nombre = lugar->path().filename();
        if (nombre == documento.filename()) return documento;
        std::error_code ignorado;
        const bool igual = IgualesSinCaja(TextoDeRuta(nombre), TextoDeRuta(documento.filename()));
        if (igual && fs::equivalent(lugar->path(), documento, ignorado)) parecido = nombre;
    }
    return parecido.empty() ? documento : documento.parent_path() / parecido;
}

bool GuardarINI(Programa& programa) {
    if (!programa.ajustesLeidos) {
        // Why is what stood in the way of reading them, which `falloDeAjustes` still tells.
        programa.falloDeAjustes.texto = avisoAjustesSinGuardar;
        return false;
    }
    try {
        programa.ini.GuardarINI(programa.rutaDeAjustes);
        return true;
    } catch (const std::exception& fallo) {
        programa.falloDeAjustes = ConDetalle(MensajeLiteral(avisoAjustesSinGuardar), fallo);
        return false;
    }
}

void GuardarTodo(Programa& programa, Vista& vista) {
    if (!GuardarElecciones(programa)) vista.Advertir(programa.falloDeAjustes);
}

}  // namespace

fs::path RutaDeMemoria(const Programa& programa) { return programa.rutaDeAjustes.parent_path() / "qor-window.ini"; }

fs::path RutaDeEntradas(const Programa& programa) { return programa.rutaDeAjustes.parent_path() / "qor-input.ini"; }

ResultadoIdioma CargarPrograma(Programa& programa, const Entorno& entorno, const fs::path& directorioDeDatos) {
    programa.directorioDeDatos = directorioDeDatos;
    programa.rutaDeAjustes = RutaDeAjustes(entorno);
    try {
        programa.ini.CargarINI(programa.rutaDeAjustes);
    } catch (const FalloDeArchivo& fallo) {
        programa.ajustesLeidos = false;
        programa.falloDeAjustes = ConDetalle(MensajeLiteral(avisoAjustesSinLeer), fallo);
    }
    programa.ajustes = LeerAjustes(programa.ini, directorioDeDatos);
    std::string& elegido = programa.ajustes.IdiomaActual;
    if (!elegido.empty()) return CargarIdioma(programa, elegido);
    std::string idioma = primerIdioma;
    return CargarIdioma(programa, idioma);
}

ResultadoIdioma ElegirIdioma(Programa& programa, std::string_view nombre) {
    if (EstaEnBlanco(nombre)) return ResultadoIdioma::Bien;
    programa.ajustes.IdiomaActual = Recortar(nombre);
    const auto resultado = CargarIdioma(programa, programa.ajustes.IdiomaActual);
    programa.ini.EscribirClave("Language", programa.ajustes.IdiomaActual);
    GuardarINI(programa);
    return resultado;
}

bool GuardarElecciones(Programa& programa) {
    GuardarAjustes(programa.ini, programa.ajustes);
    return GuardarINI(programa);
}

void RecordarDirectorio(Programa& programa, const Documento& documento) {
    programa.ajustes.DirectorioDocumentos = documento.ruta.parent_path() / "";
}

Arranque LeerArranque(std::string_view linea) {
    const bool sinCaja = linea.starts_with(sinPresentacion);
    if (sinCaja) linea.remove_prefix(sinPresentacion.size());
    return {!sinCaja, SinComillas(linea)};
}

PrimeraActivacion PlanearPrimeraActivacion(const Programa& programa, const Arranque& arranque) {
    return {arranque.conPresentacion, EstaEnBlanco(programa.ajustes.IdiomaActual), arranque.documento,
            arranque.documento.empty() && programa.ajustes.LogonAlInicio};
}

bool AbrirInicial(Programa& programa, Ventana& ventana, const fs::path& documento) {
    if (!OpenOption(ventana, ConNombreDelDisco(documento))) return false;
    RecordarDirectorio(programa, ventana.documento);
    return true;
}

bool CerrarPrograma(Programa& programa, Ventana& ventana, const std::function<void()>& desconectar) {
    if (!CerrarDocumento(ventana)) return false;
    GuardarTodo(programa, ventana.vista);
    BorrarReporteTemporal(programa.generador);
    if (desconectar) desconectar();
    return true;
}

}  // namespace qor
