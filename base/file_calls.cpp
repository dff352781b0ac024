#include "base/file_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>

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

template <typename Llamada>
auto SinInterrupcion(Llamada llamada) {
    auto resultado = llamada();
    while (resultado < 0 && errno == EINTR) resultado = llamada();
    return resultado;
}

}  // namespace

void PonerTrampa(TrampaDeLlamadas trampa) { Trampa() = std::move(trampa); }

namespace llamadas {

int Abrir(const char* ruta, int modo, mode_t permisos) {
    return Falla(LlamadaDeArchivo::Abrir) ? -1 : ::open(ruta, modo | O_CLOEXEC, permisos);
}

ssize_t Leer(int descriptor, void* donde, std::size_t cuanto) {
    if (Falla(LlamadaDeArchivo::Leer)) return -1;
    return SinInterrupcion([&] { return ::read(descriptor, donde, cuanto); });
}

ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, off_t lugar) {
    if (Falla(LlamadaDeArchivo::Leer)) return -1;
    return SinInterrupcion([&] { return ::pread(descriptor, donde, cuanto, lugar); });
}

ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto) {
    if (Falla(LlamadaDeArchivo::Escribir)) return -1;
    return SinInterrupcion([&] { return ::write(descriptor, que, cuanto); });
}

int LlevarAlDisco(int descriptor) {
    const int dicho = Trampa() ? Trampa()(LlamadaDeArchivo::LlevarAlDisco) : 0;
    if (dicho == sinDisco) return 0;
    if (dicho != 0) errno = dicho;
    return dicho != 0 ? -1 : ::fsync(descriptor);
}

int Mirar(int descriptor, struct stat& datos) { return Falla(LlamadaDeArchivo::Mirar) ? -1 : ::fstat(descriptor, &datos); }

int Mirar(const char* ruta, struct stat& datos) { return Falla(LlamadaDeArchivo::Mirar) ? -1 : ::stat(ruta, &datos); }

int MirarEnlace(const char* ruta, struct stat& datos) { return Falla(LlamadaDeArchivo::Mirar) ? -1 : ::lstat(ruta, &datos); }

ssize_t LeerEnlace(const char* ruta, char* donde, std::size_t cuanto) {
    return Falla(LlamadaDeArchivo::LeerEnlace) ? -1 : ::readlink(ruta, donde, cuanto);
}

int Bloquear(int descriptor) { return Falla(LlamadaDeArchivo::Bloquear) ? -1 : ::flock(descriptor, LOCK_EX | LOCK_NB); }

int Truncar(int descriptor, off_t largo) { return Falla(LlamadaDeArchivo::Truncar) ? -1 : ::ftruncate(descriptor, largo); }

off_t Colocar(int descriptor, off_t lugar) { return Falla(LlamadaDeArchivo::Colocar) ? -1 : ::lseek(descriptor, lugar, SEEK_SET); }

int DarPermisos(int descriptor, mode_t permisos) {
    return Falla(LlamadaDeArchivo::DarPermisos) ? -1 : ::fchmod(descriptor, permisos);
}

int DarDueno(int descriptor, uid_t dueno, gid_t grupo) {
    return Falla(LlamadaDeArchivo::DarDueno) ? -1 : ::fchown(descriptor, dueno, grupo);
}

int Nombrar(int descriptor, const char* ruta) {
    if (Falla(LlamadaDeArchivo::Nombrar)) return -1;
    const std::string abierto = "/proc/self/fd/" + std::to_string(descriptor);
    return ::linkat(AT_FDCWD, abierto.c_str(), AT_FDCWD, ruta, AT_SYMLINK_FOLLOW);
}

int Renombrar(const char* vieja, const char* nueva) { return Falla(LlamadaDeArchivo::Renombrar) ? -1 : ::rename(vieja, nueva); }

int Borrar(const char* ruta) { return Falla(LlamadaDeArchivo::Borrar) ? -1 : ::unlink(ruta); }

int Cerrar(int descriptor) {
    const int resultado = ::close(descriptor);
    return Falla(LlamadaDeArchivo::Cerrar) ? -1 : resultado;
}

void AnunciarLectura(int descriptor) { ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL); }

}  // namespace llamadas

void PrepararProceso() {
    for (int descriptor = 0; descriptor <= 2; ++descriptor) {
        // The lowest free number is given, which is this one.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF && ::open("/dev/null", O_RDWR) < 0) return;
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace qor
