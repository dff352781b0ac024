#include "generator/output.h"

#include <algorithm>
#include <system_error>

#include "base/files.h"
#include "base/paths.h"
#include "base/phrase.h"
#include "base/text.h"
#include "base/words.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

bool HayNombre(const PedidoDeGeneracion& pedido) {
    return !EstaEnBlanco(pedido.salida ? pedido.salida->string() : pedido.opciones.Programa);
}

fs::path RutaDeSalida(const PedidoDeGeneracion& pedido) {
    if (pedido.salida) return *pedido.salida;
    const fs::path programa = RutaDelSistema(pedido.opciones.Programa);
    if (!pedido.directorioDelDocumento) return programa;
    return RutaAbsoluta(*pedido.directorioDelDocumento / programa);
}

// Where a path leads in the end; also where a link at its end leads to nothing yet.
fs::path SinEnlaces(fs::path ruta) {
    constexpr int maximoDeEnlaces = 40;
    std::error_code error;
    for (int i = 0; i < maximoDeEnlaces && fs::is_symlink(ruta, error); ++i) {
        ruta = ruta.parent_path() / fs::read_symlink(ruta, error);
    }
    const fs::path resuelta = fs::weakly_canonical(ruta, error);
    return error ? ruta : resuelta;
}

bool EstaDentro(const fs::path& ruta, const fs::path& directorio) {
    return std::mismatch(directorio.begin(), directorio.end(), ruta.begin(), ruta.end()).first == directorio.end();
}

bool Negada(const PedidoDeGeneracion& pedido) {
    pedido.vista.Enfocar("Programa");
    return false;
}

// A document that somebody else made must not choose a file of the user's.
bool AceptarLugar(const PedidoDeGeneracion& pedido, const fs::path& salida, EstadoDelGenerador& estado) {
    const auto& directorio = pedido.directorioDelDocumento;
    if (!directorio || directorio->empty()) return true;
    const fs::path destino = SinEnlaces(salida);
    if (EstaDentro(destino, SinEnlaces(*directorio)) || estado.rutasAceptadas.contains(destino)) return true;
    auto pregunta = MensajeLiteral("The report is to be written outside of the document's directory:\r\n" + TextoDeRuta(destino) +
                                   "\r\nWrite it there?");
    pregunta.enPantalla = Llenar(pedido.textos.Palabra(palabra::ElReportFueraDeLaCarpeta), {TextoDeRuta(destino)});
    if (pedido.vista.Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return Negada(pedido);
    estado.rutasAceptadas.insert(destino);
    return true;
}

// The document's own report, as it was written.
bool EsElUltimo(const PedidoDeGeneracion& pedido, const fs::path& salida) {
    if (pedido.reporte == nullptr || !*pedido.reporte) return false;
    const auto& ultimo = **pedido.reporte;
    return salida == ultimo.ruta && Identidad(salida) == ultimo.identidad;
}

bool AceptarReemplazo(const PedidoDeGeneracion& pedido, const fs::path& salida) {
    std::error_code ignorado;
    if (!Existe(salida) || fs::is_directory(salida, ignorado)) return true;
    if (EsElUltimo(pedido, salida)) return true;
    const Mensaje pregunta = SobreArchivo(Componer(pedido.textos, {337}), salida);
    if (pedido.vista.Preguntar(pregunta, Botones::AceptarCancelar) == Respuesta::Aceptar) return true;
    return Negada(pedido);
}

}  // namespace

bool ChequearNombreDeSalida(const PedidoDeGeneracion& pedido) {
    if (HayNombre(pedido)) return true;
    pedido.vista.Enfocar("Programa");
    pedido.vista.Advertir(Componer(pedido.textos, {301}));
    return false;
}

bool ElegirSalida(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado) {
    fs::path salida;
    if (pedido.sistema == nullptr) {
        if (!ChequearNombreDeSalida(pedido)) return false;
        salida = RutaDeSalida(pedido);
        if (!AceptarLugar(pedido, salida, estado) || !AceptarReemplazo(pedido, salida)) return false;
    } else {
        salida = pedido.sistema->ArchivoTemporal();
    }
    BorrarReporteTemporal(estado);
    estado.UltimoPrograma = salida;
    estado.ProgramaTemporal = pedido.sistema != nullptr;
    return true;
}

fs::path RutaDelPrograma(const Documento& documento) {
    const fs::path programa = RutaDelSistema(documento.opciones.Programa);
    return programa.empty() ? programa : documento.ruta.parent_path() / programa;
}

fs::path NombreJuntoAlDocumento(const Documento& documento, const fs::path& ruta) {
    return ruta.parent_path() == documento.ruta.parent_path() ? ruta.filename() : ruta;
}

void AceptarLugarElegido(EstadoDelGenerador& estado, const fs::path& ruta) { estado.rutasAceptadas.insert(SinEnlaces(ruta)); }

void BorrarReporteTemporal(EstadoDelGenerador& estado) {
    if (!estado.ProgramaTemporal) return;
    std::error_code ignorado;
    fs::remove(estado.UltimoPrograma, ignorado);
    estado.ProgramaTemporal = false;
}

}  // namespace qor
