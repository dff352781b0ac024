#include "sap/publish.h"

#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "sap/remote_reports.h"

namespace qor {

namespace {

constexpr std::size_t columnasDeFuente = 72;
constexpr std::size_t largoEnUnaSentencia = 62;  // from here on a literal of the whole line would not fit
constexpr std::size_t mitad = 36;

// The statements that fill LINE with a text without apostrophes.
void AsignarTexto(LineasABAP& lineas, const std::string& texto) {
    if (texto.size() < largoEnUnaSentencia) {
        lineas.push_back("LINE = '" + texto + "'.");
        return;
    }
    lineas.emplace_back("CLEAR: LINE.");
    lineas.push_back("LINE(36) = '" + texto.substr(0, mitad) + "'.");
    lineas.push_back("LINE+36  = '" + texto.substr(mitad) + "'.");
}

// Apostrophes go in afterwards, each by its offset, so the literals above are valid whatever the line holds.
void AsignarApostrofos(LineasABAP& lineas, std::string_view original) {
    for (std::size_t i = 0; i < original.size() && i < columnasDeFuente; ++i) {
        if (original[i] == '\'') lineas.push_back("LINE+" + std::to_string(i) + "(1) = ''''.");
    }
}

bool SistemaAdmiteProgramas(const SesionSAP& sesion, const TextosIdioma& textos, Vista& vista) {
    if (sesion.RolSistema == "P") {
        vista.Advertir(Componer(textos, {416, " ", 417}));
        return false;
    }
    if (sesion.RolSistema.empty()) {
        vista.Advertir(Componer(textos, {418}));
        return false;
    }
    return true;
}

bool PedirNombreYPublicar(SesionSAP& sesion, const std::filesystem::path& archivo, const std::string& propuesto,
                          const DialogoABAP& FormABAP, const TextosIdioma& textos, Vista& vista) {
    const std::string NombreElegido = FormABAP(propuesto);
    if (NombreElegido.empty()) return false;
    const ConPunteroOcupado puntero(vista);
    const bool publicado = PublicarPrograma(sesion, archivo, NombreElegido, textos, vista);
    if (publicado) {
        vista.Informar(Componer(textos, {410}));
    } else {
        vista.Advertir(ConMotivo(sesion, Componer(textos, {411})));
    }
    return publicado;
}

}  // namespace

ReporteDePublicacion ComponerPublicacion(std::string_view fuente, const std::string& nombre) {
    ReporteDePublicacion reporte;
    reporte.lineas = {"REPORT QORRFC.", "DATA: BEGIN OF LINE OCCURS 0,", "        DATA(72),", "      END OF LINE."};
    for (const auto original : PartirEnLineas(fuente)) {
        std::string texto = ReemplazarTodo(original, "'", " ");
        if (texto.size() > columnasDeFuente) {
            texto.resize(columnasDeFuente);
            reporte.Recortado = true;
        }
        AsignarTexto(reporte.lineas, texto);
        AsignarApostrofos(reporte.lineas, original);
        reporte.lineas.emplace_back("APPEND LINE.");
    }
    reporte.lineas.push_back("INSERT REPORT '" + EnLiteral(nombre) + "' FROM LINE.");
    reporte.lineas.emplace_back("WRITE: / SY-SUBRC.");
    return reporte;
}

bool PublicarPrograma(SesionSAP& sesion, const std::filesystem::path& archivo, const std::string& nombre,
                      const TextosIdioma& textos, Vista& vista) {
    ReporteDePublicacion reporte;
    try {
        reporte = ComponerPublicacion(LeerArchivo(archivo), nombre);
    } catch (const FalloDeEjecucion& fallo) {
        sesion.Motivo = fallo.what();
        return false;
    }
    const auto filas = EjecutarReporte(sesion, reporte.lineas);
    if (!filas || filas->empty() || Recortar(filas->front()) != "0") return false;
    if (reporte.Recortado) vista.Informar(Componer(textos, {419}));
    return true;
}

bool PublicarArchivo(SesionSAP& sesion, const std::filesystem::path& archivo, const std::string& propuesto,
                     const DialogoABAP& FormABAP, const TextosIdioma& textos, Vista& vista) {
    return SistemaAdmiteProgramas(sesion, textos, vista) &&
           PedirNombreYPublicar(sesion, archivo, propuesto, FormABAP, textos, vista);
}

void ButtonOnlinePublish(SesionSAP& sesion, const std::filesystem::path& ArchivoGenerado, const DialogoABAP& FormABAP,
                         const TextosIdioma& textos, Vista& vista) {
    if (ArchivoGenerado.empty() || !SistemaAdmiteProgramas(sesion, textos, vista)) return;
    PedirNombreYPublicar(sesion, ArchivoGenerado, "", FormABAP, textos, vista);
}

void ButtonOnlinePublishLocal(SesionSAP& sesion, const DialogoABAP& FormABAP, const TextosIdioma& textos, Vista& vista) {
    if (!SistemaAdmiteProgramas(sesion, textos, vista)) return;
    const auto archivo = vista.ElegirParaAbrir({ClaseDeArchivo::Programa});
    if (!archivo || archivo->empty()) return;
    PedirNombreYPublicar(sesion, *archivo, TextoDeRuta(archivo->stem()), FormABAP, textos, vista);
}

void OfrecerPublicacion(SesionSAP& sesion, const std::filesystem::path& ArchivoGenerado, const DialogoABAP& FormABAP,
                        const TextosIdioma& textos, Vista& vista) {
    if (!SistemaAdmiteProgramas(sesion, textos, vista)) return;
    if (vista.Preguntar(Componer(textos, {409}), Botones::SiNo) != Respuesta::Si) return;
    PedirNombreYPublicar(sesion, ArchivoGenerado, "", FormABAP, textos, vista);
}

std::optional<char> TeclaDeNombre(char tecla) {
    constexpr char retroceso = 8;
    if (tecla == '"') return std::nullopt;
    const auto mayuscula = static_cast<char>(Mayuscula(static_cast<unsigned char>(tecla)));
    const bool vale = (mayuscula >= 'A' && mayuscula <= 'Z') || (mayuscula >= '0' && mayuscula <= '9') || mayuscula == retroceso;
    return vale ? mayuscula : '_';
}

bool OKHabilitado(std::string_view NombreABAP) { return !EstaEnBlanco(NombreABAP); }

CierreABAP AceptarNombreABAP(SesionSAP& sesion, const std::string& NombreABAP, const TextosIdioma& textos, Vista& vista) {
    if (!NombreABAP.starts_with('Z') && !NombreABAP.starts_with('Y')) {
        vista.Advertir(Componer(textos, {412}));
        return {};
    }
    const auto programas = BuscarProgramas(sesion, "", true, NombreABAP);
    if (!programas) {
        vista.Advertir(ConMotivo(sesion, Componer(textos, {413})));
        return {true, ""};
    }
    if (!programas->empty() && vista.Preguntar(Componer(textos, {414}), Botones::SiNo) != Respuesta::Si) return {};
    return {true, std::string(Recortar(NombreABAP))};
}

}  // namespace qor
