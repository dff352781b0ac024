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
    return RecuperarIdioma(programa.textos, programa.directorioDeDatos / "language.txt", idioma);
}

std::string SinComillas(std::string_view texto) {
    const bool entreComillas = texto.size() >= 2 && texto.front() == '"' && texto.back() == '"';
    return std::string(entreComillas ? texto.substr(1, texto.size() - 2) : texto);
}

// The path with its name as the directory has it: on a disk that doesn't tell case apart, the case of the letters.
std::string ConNombreDelDisco(const std::string& documento) {
    const fs::path ruta = RutaDelSistema(documento);
    std::error_code error;
    if (!fs::exists(ruta, error)) return documento;
    const fs::path directorio = ruta.has_parent_path() ? ruta.parent_path() : fs::path(".");
    std::string parecido;
    for (fs::directory_iterator lugar(directorio, error), fin; !error && lugar != fin; lugar.increment(error)) {
        const std::string nombre = RutaDelModelo(lugar->path().filename());
        if (nombre == NombreDeRuta(documento)) return documento;
        std::error_code ignorado;
        if (IgualesSinCaja(nombre, NombreDeRuta(documento)) && fs::equivalent(lugar->path(), ruta, ignorado)) parecido = nombre;
    }
    return parecido.empty() ? documento : ObtenerPath(documento) + parecido;
}

void GuardarTodo(Programa& programa, const Editor& editor) {
    programa.ajustes.DirectorioDocumentos = editor.DirectorioDocumentos;
    GuardarAjustes(programa.ini, programa.ajustes);
    programa.ini.GuardarINI(programa.rutaDeAjustes);
}

void BorrarTemporal(EstadoDelGenerador& generador) {
    if (!generador.ProgramaTemporal) return;
    std::error_code ignorado;
    fs::remove(RutaDelSistema(generador.UltimoPrograma), ignorado);
    generador.ProgramaTemporal = false;
}

}  // namespace

ResultadoIdioma CargarPrograma(Programa& programa, const Entorno& entorno, const fs::path& directorioDeDatos) {
    programa.directorioDeDatos = directorioDeDatos;
    programa.rutaDeAjustes = RutaDeAjustes(entorno);
    programa.ini.CargarINI(programa.rutaDeAjustes);
    programa.ajustes = LeerAjustes(programa.ini, RutaDelModelo(directorioDeDatos));
    std::string& elegido = programa.ajustes.IdiomaActual;
    if (!elegido.empty()) return CargarIdioma(programa, elegido);
    std::string idioma = primerIdioma;
    return CargarIdioma(programa, idioma);
}

ResultadoIdioma ElegirIdioma(Programa& programa, std::string_view nombre) {
    if (EstaEnBlanco(nombre)) return ResultadoIdioma::Bien;
    programa.ajustes.IdiomaActual = Recortar(nombre);
    return CargarIdioma(programa, programa.ajustes.IdiomaActual);
}

void PrepararEditor(const Programa& programa, Editor& editor) {
    editor.DirectorioDocumentos = programa.ajustes.DirectorioDocumentos;
    editor.RegistrarCambios = true;
    editor.HayCambios = false;
}

LineaDeComandos LeerLineaDeComandos(std::string_view linea) {
    const bool sinCaja = linea.starts_with(sinPresentacion);
    if (sinCaja) linea.remove_prefix(sinPresentacion.size());
    return {!sinCaja, SinComillas(linea)};
}

PrimeraActivacion PlanearPrimeraActivacion(const Programa& programa, const LineaDeComandos& linea) {
    return {linea.conPresentacion, EstaEnBlanco(programa.ajustes.IdiomaActual), linea.documento,
            linea.documento.empty() && programa.ajustes.LogonAlInicio};
}

bool AbrirInicial(Editor& editor, const std::string& documento) {
    editor.ArchivoInicial = documento;
    try {
        editor.ArchivoInicial = ConNombreDelDisco(documento);
    } catch (const FalloDeEjecucion&) {
        // Another file there has a name that the code page can't hold: the name stays as it was given.
    }
    editor.AbrirDesdeComando = true;
    return OpenOption(editor);
}

bool CerrarPrograma(Programa& programa, Editor& editor, const std::function<void()>& desconectar) {
    if (!CerrarDocumento(editor)) return false;
    GuardarTodo(programa, editor);
    BorrarTemporal(programa.generador);
    if (desconectar) desconectar();
    return true;
}

}  // namespace qor
