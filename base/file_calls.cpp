#include "base/file_calls.h"

#include <cerrno>

#include "base/system_calls.h"

namespace qor {

namespace {

TrampaDeLlamadas& Trampa() {
    static TrampaDeLlamadas trampa;
    return trampa;
}

bool Falla(LlamadaDeArchivo llamada) {
    if (!Trampa()) return false;
    const int error = Trampa()(llamada);
    if (error > 0) errno = error;
    return error > 0;
}

}  // namespace

void PonerTrampa(TrampaDeLlamadas trampa) { Trampa() = std::move(trampa); }

namespace llamadas {

int Abrir(const std::filesystem::path& ruta, unsigned modo, unsigned permisos) {
    return Falla(LlamadaDeArchivo::Abrir) ? -1 : sistema::Abrir(ruta, modo, permisos);
}

ssize_t Leer(int descriptor, void* donde, std::size_t cuanto) {
    return Falla(LlamadaDeArchivo::Leer) ? -1 : sistema::Leer(descriptor, donde, cuanto);
}

ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, std::int64_t lugar) {
    return Falla(LlamadaDeArchivo::Leer) ? -1 : sistema::LeerEn(descriptor, donde, cuanto, lugar);
}

ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto) {
    return Falla(LlamadaDeArchivo::Escribir) ? -1 : sistema::Escribir(descriptor, que, cuanto);
}

int LlevarAlDisco(int descriptor) {
    const int dicho = Trampa() ? Trampa()(LlamadaDeArchivo::LlevarAlDisco) : 0;
    if (dicho == sinDisco) return 0;
    if (dicho != 0) errno = dicho;
    return dicho != 0 ? -1 : sistema::LlevarAlDisco(descriptor);
}

int Mirar(int descriptor, EstadoDeArchivo& estado) {
    return Falla(LlamadaDeArchivo::Mirar) ? -1 : sistema::Mirar(descriptor, estado);
}

int Mirar(const std::filesystem::path& ruta, EstadoDeArchivo& estado) {
    return Falla(LlamadaDeArchivo::Mirar) ? -1 : sistema::Mirar(ruta, estado);
}

int MirarEnlace(const std::filesystem::path& ruta, EstadoDeArchivo& estado) {
    return Falla(LlamadaDeArchivo::Mirar) ? -1 : sistema::MirarEnlace(ruta, estado);
}

int LeerEnlace(const std::filesystem::path& ruta, std::filesystem::path& destino) {
    return Falla(LlamadaDeArchivo::LeerEnlace) ? -1 : sistema::LeerEnlace(ruta, destino);
}

int Bloquear(int descriptor) { return Falla(LlamadaDeArchivo::Bloquear) ? -1 : sistema::Bloquear(descriptor); }

int Truncar(int descriptor, std::int64_t largo) {
    return Falla(LlamadaDeArchivo::Truncar) ? -1 : sistema::Truncar(descriptor, largo);
}

std::int64_t Colocar(int descriptor, std::int64_t lugar) {
    return Falla(LlamadaDeArchivo::Colocar) ? -1 : sistema::Colocar(descriptor, lugar);
}

int DarPermisos(int descriptor, unsigned permisos) {
    return Falla(LlamadaDeArchivo::DarPermisos) ? -1 : sistema::DarPermisos(descriptor, permisos);
}

int DarDueno(int descriptor, unsigned dueno, unsigned grupo) {
    return Falla(LlamadaDeArchivo::DarDueno) ? -1 : sistema::DarDueno(descriptor, dueno, grupo);
}

int Nombrar(int descriptor, const std::filesystem::path& ruta) {
    return Falla(LlamadaDeArchivo::Nombrar) ? -1 : sistema::Nombrar(descriptor, ruta);
}

int Renombrar(const std::filesystem::path& vieja, const std::filesystem::path& nueva) {
    return Falla(LlamadaDeArchivo::Renombrar) ? -1 : sistema::Renombrar(vieja, nueva);
}

int Borrar(const std::filesystem::path& ruta) { return Falla(LlamadaDeArchivo::Borrar) ? -1 : sistema::Borrar(ruta); }

int Cerrar(int descriptor) {
    const int resultado = sistema::Cerrar(descriptor);
    return Falla(LlamadaDeArchivo::Cerrar) ? -1 : resultado;
}

int Duplicar(int descriptor) { return sistema::Duplicar(descriptor); }

void AnunciarLectura(int descriptor) { sistema::AnunciarLectura(descriptor); }

}  // namespace llamadas

}  // namespace qor
