#include "practice/files.h"

#include <cerrno>

#include "abap/short_dump.h"
#include "base/failure.h"
#include "base/file_calls.h"
#include "base/files.h"
#include "practice/batch_rows.h"

namespace qor {

namespace {

constexpr std::size_t bytesQueSeJuntan = std::size_t{1} << 16;

// Opens a regular file for writing, and follows no link: the path was resolved before.
Descriptor AbrirParaEscribir(const std::filesystem::path& ruta, bool anadir) {
    const unsigned modo =
        modos::soloEscribir | modos::crear | modos::sinEsperar | modos::sinEnlaces | (anadir ? modos::alFinal : 0U);
    Descriptor descriptor(llamadas::Abrir(ruta, modo, 0666));
    if (!descriptor.Abierto()) throw FalloDeArchivo(errno, ruta);
    EstadoDeArchivo datos;
    if (llamadas::Mirar(descriptor.Valor(), datos) != 0) throw FalloDeArchivo(errno, ruta);
    if (!datos.EsRegular()) throw FalloDeArchivo(CausaDeFallo::NoEsArchivo, ruta);
    Bloquear(descriptor.Valor(), ruta);
    if (!anadir && llamadas::Truncar(descriptor.Valor(), 0) != 0) throw FalloDeArchivo(errno, ruta);
    return descriptor;
}

std::string ConMotivo(std::string_view nombre, const char* motivo) { return std::string(nombre) + ": " + motivo; }

}  // namespace

struct ArchivosDePractica::Salida {
    Descriptor descriptor;
    std::filesystem::path ruta;
    std::string pendiente;
};

ArchivosDePractica::ArchivosDePractica(NombresDeArchivos& nombres) : nombres_(nombres) {}

ArchivosDePractica::~ArchivosDePractica() {
    for (auto& [nombre, abierto] : abiertos_) {
        try {
            if (abierto.salida) Volcar(nombre, *abierto.salida);
        } catch (const abap::Volcado&) {
            // Told to the listener already; there is no report any more that could end with it.
        }
    }
}

bool ArchivosDePractica::Abrir(std::string_view nombre, Modo modo, bool texto) {
    nombre = SinBlancosDetras(nombre);
    Cerrar(nombre);
    try {
        Abierto abierto;
        abierto.texto = texto;
        if (modo == Modo::Leer) {
            const auto ruta = nombres_.ParaLeer(nombre);
            if (!ruta) return false;
            abierto.entrada = std::make_unique<LectorPorTrozos>(ArchivoAbierto(*ruta));
        } else {
            const auto ruta = nombres_.ParaEscribir(nombre);
            if (!ruta) return false;
            abierto.salida = std::make_unique<Salida>(Salida{AbrirParaEscribir(*ruta, modo == Modo::Anadir), *ruta, {}});
        }
        abiertos_.emplace(nombre, std::move(abierto));
        return true;
    } catch (const FalloDeArchivo& fallo) {
        nombres_.SinLeer(nombre, fallo);
        return false;
    }
}

bool ArchivosDePractica::Leer(std::string_view nombre, std::string& linea, std::size_t largo) {
    auto& abierto = Exigir(nombre);
    if (!abierto.entrada) throw abap::Volcado("DATASET_NOT_OPEN", ConMotivo(nombre, "The file is open for writing"));
    try {
        if (!abierto.texto) return abierto.entrada->Bytes(linea, largo);
        std::string_view leida;
        if (!abierto.entrada->Linea(leida)) return false;
        linea = leida;
        return true;
    } catch (const FalloDeArchivo& fallo) {
        nombres_.SinLeer(nombre, fallo);
        throw abap::Volcado("DATASET_READ_ERROR", ConMotivo(SinBlancosDetras(nombre), fallo.what()));
    }
}

void ArchivosDePractica::Escribir(std::string_view nombre, std::string_view linea) {
    auto& abierto = Exigir(nombre);
    if (!abierto.salida) {
        throw abap::Volcado("DATASET_READ_ONLY", ConMotivo(SinBlancosDetras(nombre), "The file is open for reading"));
    }
    auto& pendiente = abierto.salida->pendiente;
    pendiente += abierto.texto ? SinBlancosDetras(linea) : linea;
    if (abierto.texto) pendiente += '\n';
    if (pendiente.size() >= bytesQueSeJuntan) Volcar(nombre, *abierto.salida);
}

void ArchivosDePractica::Cerrar(std::string_view nombre) {
    const auto lugar = abiertos_.find(SinBlancosDetras(nombre));
    if (lugar == abiertos_.end()) return;
    const Abierto abierto = std::move(lugar->second);
    abiertos_.erase(lugar);
    if (abierto.salida) Volcar(nombre, *abierto.salida);
}

bool ArchivosDePractica::Borrar(std::string_view nombre) {
    const auto ruta = nombres_.ParaEscribir(nombre);
    if (!ruta) return false;
    EstadoDeArchivo datos;
    if (llamadas::MirarEnlace(*ruta, datos) != 0 || !datos.EsRegular()) return false;
    return llamadas::Borrar(*ruta) == 0;
}

ArchivosDePractica::Abierto& ArchivosDePractica::Exigir(std::string_view nombre) {
    const auto recortado = SinBlancosDetras(nombre);
    const auto lugar = abiertos_.find(recortado);
    if (lugar == abiertos_.end()) throw abap::Volcado("DATASET_NOT_OPEN", ConMotivo(recortado, "The file is not open"));
    return lugar->second;
}

void ArchivosDePractica::Volcar(std::string_view nombre, Salida& salida) {
    const std::string texto = std::move(salida.pendiente);
    salida.pendiente.clear();
    try {
        EscribirEn(salida.descriptor.Valor(), texto, salida.ruta);
    } catch (const FalloDeArchivo& fallo) {
        nombres_.SinLeer(nombre, fallo);
        throw abap::Volcado("DATASET_WRITE_ERROR", ConMotivo(SinBlancosDetras(nombre), fallo.what()));
    }
}

}  // namespace qor
