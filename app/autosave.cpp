#include "app/autosave.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "base/clock.h"
#include "base/failure.h"
#include "base/new_file.h"
#include "base/process.h"
#include "base/text.h"
#include "base/values.h"
#include "model/document_format.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view cabeza = "QORWORK 1";
constexpr std::string_view extension = ".qorwork";
constexpr std::string_view finDeLinea = "\r\n";
constexpr std::string_view porEscapar = "%\r\n";

std::string Escapar(std::string_view texto) {
    constexpr std::string_view cifras = "0123456789ABCDEF";
    std::string escapado;
    for (const char c : texto) {
        if (porEscapar.find(c) == std::string_view::npos) {
            escapado += c;
        } else {
            escapado += '%';
            escapado += cifras[static_cast<std::size_t>(c) >> 4U];
            escapado += cifras[static_cast<std::size_t>(c) & 0xFU];
        }
    }
    return escapado;
}

std::string SinEscapar(std::string_view texto) {
    std::string limpio;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        unsigned int codigo = 0;
        const auto cifras = texto.substr(i, 3);
        if (cifras.size() == 3 && cifras.front() == '%' &&
            std::from_chars(cifras.data() + 1, cifras.data() + 3, codigo, 16).ptr == cifras.data() + 3) {
            limpio += static_cast<char>(codigo);
            i += 2;
        } else {
            limpio += texto[i];
        }
    }
    return limpio;
}

std::string TextoDeIdentidad(const std::optional<IdentidadDeArchivo>& identidad) {
    if (!identidad) return {};
    return std::to_string(identidad->dispositivo) + " " + std::to_string(identidad->inodo) + " " +
           std::to_string(identidad->tamano) + " " + std::to_string(identidad->cambiadoEn);
}

template <typename T>
bool LeerNumero(std::string_view& texto, T& numero) {
    const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    if (leido.ec != std::errc()) return false;
    texto.remove_prefix(static_cast<std::size_t>(leido.ptr - texto.data()));
    if (texto.starts_with(' ')) texto.remove_prefix(1);
    return true;
}

std::optional<IdentidadDeArchivo> LeerIdentidad(std::string_view texto) {
    IdentidadDeArchivo identidad;
    const bool entera = LeerNumero(texto, identidad.dispositivo) && LeerNumero(texto, identidad.inodo) &&
                        LeerNumero(texto, identidad.tamano) && LeerNumero(texto, identidad.cambiadoEn);
    return entera ? std::optional(identidad) : std::nullopt;
}

std::string_view TomarLinea(std::string_view& texto) {
    const auto fin = texto.find(finDeLinea);
    if (fin == std::string_view::npos) throw FalloDeEjecucion("a copy of work that is cut off");
    const auto linea = texto.substr(0, fin);
    texto.remove_prefix(fin + finDeLinea.size());
    return linea;
}

std::string TextoDeCopia(const Documento& documento) {
    std::string texto(cabeza);
    texto.append(finDeLinea).append(Escapar(documento.ruta.string())).append(finDeLinea);
    texto.append(TextoDeIdentidad(documento.identidad)).append(finDeLinea);
    return texto + EscribirTrabajo(documento.especificacion, documento.opciones);
}

Documento LeerCopia(std::string_view texto) {
    if (TomarLinea(texto) != cabeza) throw FalloDeEjecucion("no copy of work");
    Documento documento;
    documento.ruta = SinEscapar(TomarLinea(texto));
    documento.identidad = LeerIdentidad(TomarLinea(texto));
    LectorValores lector(texto);
    LeerDocumento(lector, documento.especificacion, documento.opciones);
    documento.Cambiar();
    return documento;
}

std::string Momento(const IdentidadDeArchivo& identidad) {
    constexpr std::int64_t porSegundo = 1'000'000'000;
    const auto instante = static_cast<std::time_t>(identidad.cambiadoEn / porSegundo);
    std::tm hora{};
    ::localtime_r(&instante, &hora);
    return FechaYHora(hora);
}

void Borrar(ArchivoBloqueado& archivo) {
    if (!archivo.Abierto()) return;
    std::error_code ignorado;
    fs::remove(archivo.Ruta(), ignorado);
    archivo.Cerrar();
}

// A name that no copy has: one that was left behind can be of a process with the same number.
fs::path NombreLibre(const fs::path& directorio) {
    const std::string proceso = std::to_string(NumeroDeProceso());
    fs::path ruta = directorio / (proceso + std::string(extension));
    for (int n = 2; ExisteNombre(ruta); ++n) ruta = directorio / (proceso + "-" + std::to_string(n) + std::string(extension));
    return ruta;
}

void CrearDirectorioPropio(const fs::path& directorio) {
    CrearDirectorio(directorio);
    std::error_code error;
    fs::permissions(directorio, fs::perms::owner_all, error);
    if (error) throw FalloDeArchivo(error.value(), directorio);
}

}  // namespace

std::vector<CopiaDeTrabajo> CopiasDeTrabajo::Abandonadas() const {
    std::vector<CopiaDeTrabajo> copias;
    std::error_code error;
    for (fs::directory_iterator lugar(directorio_, error), fin; !error && lugar != fin; lugar.increment(error)) {
        if (lugar->path().extension() != extension) continue;
        try {
            auto archivo = ArchivoBloqueado::Abrir(lugar->path());
            Documento documento = LeerCopia(archivo.LeerTodo());
            const std::string cuando = Momento(archivo.Identidad());
            copias.push_back({std::move(archivo), std::move(documento), cuando});
        } catch (const FalloDeEjecucion&) {
            continue;  // another program's, or no copy
        }
    }
    std::sort(copias.begin(), copias.end(), [](const auto& una, const auto& otra) { return una.cuando > otra.cuando; });
    return copias;
}

void CopiasDeTrabajo::Actualizar(const Documento& documento) {
    QuitarSiGuardado(documento);
    if (!documento.HayCambios() || (propia_.Abierto() && revision_ == documento.Revision())) return;
    CrearDirectorioPropio(directorio_);
    const auto ruta = propia_.Abierto() ? propia_.Ruta() : NombreLibre(directorio_);
    ArchivoNuevo nueva(ruta, ".tmp", propia_.Abierto() ? &propia_ : nullptr);
    nueva.Escribir(TextoDeCopia(documento));
    propia_ = nueva.PonerEnSuLugar();
    revision_ = documento.Revision();
}

void CopiasDeTrabajo::QuitarSiGuardado(const Documento& documento) {
    if (!documento.HayCambios()) Quitar();
}

void CopiasDeTrabajo::Adoptar(CopiaDeTrabajo& copia, const Documento& documento) {
    Quitar();
    propia_ = std::move(copia.archivo);
    revision_ = documento.Revision();
}

void CopiasDeTrabajo::Quitar() { Borrar(propia_); }

void CopiasDeTrabajo::Descartar(CopiaDeTrabajo& copia) { Borrar(copia.archivo); }

}  // namespace qor
