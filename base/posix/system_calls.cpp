#include "base/system_calls.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>
#include <utility>

namespace qor::sistema {

namespace {

template <typename Llamada>
auto SinInterrupcion(Llamada llamada) {
    auto resultado = llamada();
    while (resultado < 0 && errno == EINTR) resultado = llamada();
    return resultado;
}

int ModoDelSistema(unsigned modo) {
    constexpr std::pair<unsigned, int> marcas[] = {
        {modos::soloEscribir, O_WRONLY}, {modos::leerYEscribir, O_RDWR},   {modos::crear, O_CREAT},
        {modos::soloNuevo, O_EXCL},      {modos::alFinal, O_APPEND},       {modos::sinEsperar, O_NONBLOCK},
        {modos::sinEnlaces, O_NOFOLLOW}, {modos::directorio, O_DIRECTORY}, {modos::sinNombre, O_TMPFILE}};
    int delSistema = O_RDONLY | O_CLOEXEC;
    for (const auto& [marca, suya] : marcas) {
        if ((modo & marca) != 0) delSistema |= suya;
    }
    return delSistema;
}

int Tomar(int resultado, const struct stat& datos, EstadoDeArchivo& estado) {
    if (resultado != 0) return resultado;
    using Clase = EstadoDeArchivo::Clase;
    estado.clase = S_ISREG(datos.st_mode) ? Clase::Regular : S_ISDIR(datos.st_mode) ? Clase::Directorio : Clase::Otra;
    estado.dispositivo = datos.st_dev;
    estado.inodo = datos.st_ino;
    estado.tamano = static_cast<std::uintmax_t>(datos.st_size);
    estado.cambiadoEn = static_cast<std::int64_t>(datos.st_mtim.tv_sec) * 1'000'000'000 + datos.st_mtim.tv_nsec;
    estado.permisos = datos.st_mode & 07777;
    estado.dueno = datos.st_uid;
    estado.grupo = datos.st_gid;
    return 0;
}

}  // namespace

int Abrir(const std::filesystem::path& ruta, unsigned modo, unsigned permisos) {
    return ::open(ruta.c_str(), ModoDelSistema(modo), static_cast<mode_t>(permisos));
}

ssize_t Leer(int descriptor, void* donde, std::size_t cuanto) {
    return SinInterrupcion([&] { return ::read(descriptor, donde, cuanto); });
}

ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, std::int64_t lugar) {
    return SinInterrupcion([&] { return ::pread(descriptor, donde, cuanto, lugar); });
}

ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto) {
    return SinInterrupcion([&] { return ::write(descriptor, que, cuanto); });
}

int LlevarAlDisco(int descriptor) { return ::fsync(descriptor); }

int Mirar(int descriptor, EstadoDeArchivo& estado) {
    struct stat datos {};
    return Tomar(::fstat(descriptor, &datos), datos, estado);
}

int Mirar(const std::filesystem::path& ruta, EstadoDeArchivo& estado) {
    struct stat datos {};
    return Tomar(::stat(ruta.c_str(), &datos), datos, estado);
}

int MirarEnlace(const std::filesystem::path& ruta, EstadoDeArchivo& estado) {
    struct stat datos {};
    return Tomar(::lstat(ruta.c_str(), &datos), datos, estado);
}

int LeerEnlace(const std::filesystem::path& ruta, std::filesystem::path& destino) {
    char texto[PATH_MAX];
    const auto largo = ::readlink(ruta.c_str(), texto, sizeof texto);
    if (largo < 0) return -1;
    destino = std::string(texto, static_cast<std::size_t>(largo));
    return 0;
}

int Bloquear(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB); }

int Truncar(int descriptor, std::int64_t largo) { return ::ftruncate(descriptor, largo); }

std::int64_t Colocar(int descriptor, std::int64_t lugar) { return ::lseek(descriptor, lugar, SEEK_SET); }

int DarPermisos(int descriptor, unsigned permisos) { return ::fchmod(descriptor, static_cast<mode_t>(permisos)); }

int DarDueno(int descriptor, unsigned dueno, unsigned grupo) { return ::fchown(descriptor, dueno, grupo); }

int Nombrar(int descriptor, const std::filesystem::path& ruta) {
    return ::linkat(AT_FDCWD, RutaDeAbierto(descriptor).c_str(), AT_FDCWD, ruta.c_str(), AT_SYMLINK_FOLLOW);
}

int Renombrar(const std::filesystem::path& vieja, const std::filesystem::path& nueva) {
    return ::rename(vieja.c_str(), nueva.c_str());
}

int Borrar(const std::filesystem::path& ruta) { return ::unlink(ruta.c_str()); }

int Cerrar(int descriptor) { return ::close(descriptor); }

int Duplicar(int descriptor) { return ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0); }

void AnunciarLectura(int descriptor) { ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL); }

std::filesystem::path RutaDeAbierto(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

bool LlevaAAbierto(const std::filesystem::path& enlace) {
    const auto carpeta = enlace.has_parent_path() ? enlace.parent_path() : std::filesystem::path(".");
    struct statfs sistema {};
    return ::statfs(carpeta.c_str(), &sistema) == 0 && sistema.f_type == PROC_SUPER_MAGIC;
}

bool EsMismoNombre(const std::filesystem::path& uno, const std::filesystem::path& otro) { return uno == otro; }

int ErrorDeC(int delSistema) { return delSistema; }

bool SePuedeEscribir(const std::filesystem::path& ruta) { return ::access(ruta.c_str(), W_OK) == 0; }

}  // namespace qor::sistema
