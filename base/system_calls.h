#pragma once

#include "base/file_calls.h"

// The calls of base/file_calls.h as an operating system has them, without the hook of the tests. Each system has its own file of
// them: base/posix/system_calls.cpp, base/windows/system_calls.cpp.
namespace qor::sistema {

int Abrir(const std::filesystem::path& ruta, unsigned modo, unsigned permisos);
ssize_t Leer(int descriptor, void* donde, std::size_t cuanto);
ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, std::int64_t lugar);
ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto);
int LlevarAlDisco(int descriptor);
int Mirar(int descriptor, EstadoDeArchivo& estado);
int Mirar(const std::filesystem::path& ruta, EstadoDeArchivo& estado);
int MirarEnlace(const std::filesystem::path& ruta, EstadoDeArchivo& estado);
int LeerEnlace(const std::filesystem::path& ruta, std::filesystem::path& destino);
int Bloquear(int descriptor);
int Truncar(int descriptor, std::int64_t largo);
std::int64_t Colocar(int descriptor, std::int64_t lugar);
int DarPermisos(int descriptor, unsigned permisos);
int DarDueno(int descriptor, unsigned dueno, unsigned grupo);
int Nombrar(int descriptor, const std::filesystem::path& ruta);
int Renombrar(const std::filesystem::path& vieja, const std::filesystem::path& nueva);
int Borrar(const std::filesystem::path& ruta);
int Cerrar(int descriptor);
int Duplicar(int descriptor);
void AnunciarLectura(int descriptor);

// A path that leads to an opened file of this process; empty where the system has no such thing.
std::filesystem::path RutaDeAbierto(int descriptor);

// Whether a link leads to an opened file of a process, which has to be written to as it is.
bool LlevaAAbierto(const std::filesystem::path& enlace);

// Whether two paths of one directory are the same name there: where the system doesn't tell case apart, without it.
bool EsMismoNombre(const std::filesystem::path& uno, const std::filesystem::path& otro);

// The error number of C for one that the system's own calls have.
int ErrorDeC(int delSistema);

// Whether this process may write to a file or a directory.
bool SePuedeEscribir(const std::filesystem::path& ruta);

}  // namespace qor::sistema
