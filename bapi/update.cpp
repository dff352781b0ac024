#include "bapi/update.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <vector>

#include "base/clock.h"
#include "base/failure.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/text.h"
#include "sap/remote_reports.h"

namespace qor {

namespace {

constexpr const char* finDeLinea = "\r\n";
constexpr std::size_t bytesPorCopia = std::size_t{1} << 20;

void Borrar(const std::filesystem::path& ruta) {
    std::error_code ignorado;
    if (!ruta.empty()) std::filesystem::remove(ruta, ignorado);
}

// The first partial file of the directory, by name; empty when there is none.
std::filesystem::path BuscarParcial(const std::filesystem::path& directorio) {
    std::filesystem::path primero;
    std::error_code ignorado;
    for (const auto& entrada : std::filesystem::directory_iterator(directorio, ignorado)) {
        if (entrada.path().extension() != ".bap") continue;
        if (primero.empty() || entrada.path() < primero) primero = entrada.path();
    }
    return primero;
}

// What an interrupted run has left: the lines of its whole BAPIs, and the place to go on at. Its last BAPI may be incomplete and is
// fetched again.
struct Continuacion {
    std::string lineas;
    std::string UltimoObjeto;
    std::string UltimaBAPI;
};

class Actualizacion {
public:
    explicit Actualizacion(const PedidoDeActualizacion& pedido) : p_(pedido) {}

    ResultadoActualizacion Correr() {
        bool enProgreso = false;
        try {
            CrearDirectorio(p_.directorio);
            PrepararContinuacion();
            const auto lista = ListarBAPIs(p_.sesion);
            if (!lista) throw FalloDeEjecucion("the list of BAPIs can't be had");
            ChequearQueHay(*lista);
            nuevo_ = p_.directorio / (FechaParaNombre(HoraActual()) + ".bap");
            ArchivoDeSalida archivo(nuevo_);
            archivo.Escribir(std::string(cabezaDeCatalogo) + finDeLinea);
            if (continuacion_) archivo.Escribir("0 " + p_.sesion.VersionSistema + finDeLinea + continuacion_->lineas);
            Borrar(viejo_);
            p_.ConfigurarActualizacionEnProgreso(enProgreso = true);
            const bool completa = Bajar(*lista, archivo);
            p_.ConfigurarActualizacionEnProgreso(enProgreso = false);
            if (!completa) return ResultadoActualizacion::Detenida;
            if (!empezado_) {
                p_.vista.Advertir(Componer(p_.textos, {258}));
                Borrar(nuevo_);
                return ResultadoActualizacion::Fallida;
            }
        } catch (const std::exception& fallo) {
            if (enProgreso) p_.ConfigurarActualizacionEnProgreso(false);
            return Fallar(fallo);
        }
        return Instalar();
    }

private:
    ResultadoActualizacion Fallar(const std::exception& fallo) {
        Borrar(viejo_);
        Borrar(nuevo_);
        p_.vista.Advertir(ConMotivo(p_.sesion, ConDetalle(Componer(p_.textos, {441}), fallo)));
        return ResultadoActualizacion::Fallida;
    }

    // The practice system has the BAPIs of the catalogue in use. Without one there are none, and nothing worth a catalogue.
    void ChequearQueHay(const std::vector<std::string>& lista) {
        const bool hay = std::any_of(lista.begin(), lista.end(), [](const auto& fila) { return LeerRegistro(fila).tipo == '2'; });
        if (hay || !p_.sesion.EsDePractica()) return;
        p_.sesion.Motivo = "The practice system has no BAPIs, since there is no catalogue that could fill it.";
        throw FalloDeEjecucion(p_.sesion.Motivo);
    }

    // A partial file is used once: of the same release, and when the user wants it.
    void PrepararContinuacion() {
        const auto parcial = BuscarParcial(p_.directorio);
        if (parcial.empty()) return;
        viejo_ = std::filesystem::path(parcial).replace_extension(".tmp");
        ReemplazarArchivo(parcial, viejo_);
        const std::string texto = LeerArchivo(viejo_, limiteDeCatalogo);
        const auto lineas = PartirEnLineas(texto);
        const bool deEstaVersion =
            lineas.size() >= 2 && lineas[0] == cabezaDeCatalogo && Recortar(lineas[1]) == "0 " + p_.sesion.VersionSistema;
        if (!deEstaVersion) return;
        const std::string nombre = parcial.filename().string();
        const std::string Fecha =
            nombre.substr(0, 4) + "-" + std::string(Tramo(nombre, 5, 2)) + "-" + std::string(Tramo(nombre, 7, 2));
        const auto pregunta = Componer(p_.textos, {256, " ", Fecha, ". ", 257});
        if (p_.vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si) Continuar(lineas);
    }

    void Continuar(const std::vector<std::string_view>& lineas) {
        continuacion_.emplace();
        std::string objeto;
        std::string memoria;
        for (std::size_t i = 2; i < lineas.size(); ++i) {
            const auto registro = LeerRegistro(lineas[i]);
            if (registro.tipo == '1') objeto = Recortar(registro.contenido);
            if (registro.tipo == '2') {
                continuacion_->lineas += memoria;
                memoria.clear();
                // The object of this BAPI: a run that was stopped behind a later object goes on at the BAPI all the same.
                continuacion_->UltimoObjeto = objeto;
                continuacion_->UltimaBAPI = Recortar(registro.contenido);
            }
            memoria.append(lineas[i]).append(finDeLinea);
        }
    }

    // Fetches the BAPIs of the list, from the place to go on at. False when the user stopped.
    bool Bajar(const std::vector<std::string>& lista, ArchivoDeSalida& archivo) {
        empezado_ = !continuacion_;
        std::string objeto;
        for (std::size_t i = 0; i < lista.size(); ++i) {
            const auto registro = LeerRegistro(lista[i]);
            const std::string contenido(Recortar(registro.contenido));
            if (registro.tipo == '1') objeto = contenido;
            if (registro.tipo == '2' && !empezado_) {
                empezado_ = objeto == continuacion_->UltimoObjeto && contenido == continuacion_->UltimaBAPI;
            }
            if (empezado_) {
                archivo.Escribir(lista[i] + finDeLinea);
                if (registro.tipo == '2') BajarUna(contenido, archivo);
            }
            const auto n = i + 1;
            if (n % 3 == 0 && !p_.aviso(static_cast<int>(n * 100 / lista.size()))) return false;
        }
        return true;
    }

    void BajarUna(const std::string& nombre, ArchivoDeSalida& archivo) {
        std::ostringstream filas;
        if (!BajarBAPI(p_.sesion, nombre, filas)) throw FalloDeEjecucion("the BAPI " + nombre + " can't be had");
        archivo.Escribir(filas.str());
    }

    ResultadoActualizacion Instalar() {
        const auto destino = p_.directorio / ("BAPI" + std::string(Recortar(p_.sesion.VersionSistema)));
        try {
            ArchivoAbierto bajado(nuevo_);
            ArchivoNuevo catalogo(destino);
            std::vector<char> bloque(bytesPorCopia);
            while (const auto leidos = bajado.Leer(bloque.data(), bloque.size())) catalogo.Escribir({bloque.data(), leidos});
            catalogo.PonerEnSuLugar();
        } catch (const FalloDeEjecucion& fallo) {
            return Fallar(fallo);
        }
        Borrar(nuevo_);
        p_.ArchivoBAPI = destino;
        return ResultadoActualizacion::Hecha;
    }

    const PedidoDeActualizacion& p_;
    std::filesystem::path viejo_;  // the partial file while it is read
    std::filesystem::path nuevo_;
    std::optional<Continuacion> continuacion_;
    bool empezado_ = false;
};

}  // namespace

ResultadoActualizacion ActualizarCatalogo(const PedidoDeActualizacion& pedido) {
    if (!pedido.sesion.Conectado) {
        pedido.vista.Informar(InstruccionesDeActualizacion(pedido.textos));
        return ResultadoActualizacion::NoIniciada;
    }
    if (pedido.vista.Preguntar(Componer(pedido.textos, {255}), Botones::SiNo) != Respuesta::Si) {
        return ResultadoActualizacion::NoIniciada;
    }
    return Actualizacion(pedido).Correr();
}

Mensaje InstruccionesDeActualizacion(const TextosIdioma& textos) {
    const char* const paso = "\r\n    ";
    return Componer(textos, {420,        "\r\n\r\n", 421,  paso, 422,  paso, 423,  paso, 424,        paso, 425,
                             "\r\n\r\n", 426,        paso, 427,  paso, 428,  paso, 429,  "\r\n\r\n", 430});
}

}  // namespace qor
