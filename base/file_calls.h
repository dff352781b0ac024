#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <utility>

namespace qor {

// The kinds of calls, as tests name them.
enum class LlamadaDeArchivo {
    Abrir,
    Leer,
    Escribir,
    LlevarAlDisco,
    Mirar,
    LeerEnlace,
    Bloquear,
    Truncar,
    Colocar,
    DarPermisos,
    DarDueno,
    Nombrar,
    Renombrar,
    Borrar,
    Cerrar
};

// The operating system's calls on files: every one that this system makes goes through here. Each takes and answers what the call
// of the system does, with its error in errno; `Leer`, `LeerEn` and `Escribir` begin again after a signal.
namespace llamadas {

int Abrir(const char* ruta, int modo, mode_t permisos = 0);
ssize_t Leer(int descriptor, void* donde, std::size_t cuanto);
ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, off_t lugar);
ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto);
int LlevarAlDisco(int descriptor);
int Mirar(int descriptor, struct stat& datos);
int Mirar(const char* ruta, struct stat& datos);
int MirarEnlace(const char* ruta, struct stat& datos);
ssize_t LeerEnlace(const char* ruta, char* donde, std::size_t cuanto);
int Bloquear(int descriptor);  // exclusively, without waiting
int Truncar(int descriptor, off_t largo);
off_t Colocar(int descriptor, off_t lugar);
int DarPermisos(int descriptor, mode_t permisos);
int DarDueno(int descriptor, uid_t dueno, gid_t grupo);
int Nombrar(int descriptor, const char* ruta);  // gives a name to an opened file that has none
int Renombrar(const char* vieja, const char* nueva);
int Borrar(const char* ruta);
int Cerrar(int descriptor);

// Tells the system that a file will be read from its beginning to its end; nothing depends on it.
void AnunciarLectura(int descriptor);

}  // namespace llamadas

// The hook of the tests, asked before each call: an error number makes the call fail with it, 0 lets it pass. A file is closed even
// where its closing is told to fail. A flush that is told `sinDisco` answers as if it were done, without waiting for a disk. No
// program sets the hook.
constexpr int sinDisco = -1;
using TrampaDeLlamadas = std::function<int(LlamadaDeArchivo)>;
void PonerTrampa(TrampaDeLlamadas trampa);

// Owns an open descriptor, or none.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int valor) : valor_(valor) {}
    Descriptor(Descriptor&& otro) noexcept : valor_(std::exchange(otro.valor_, -1)) {}
    Descriptor& operator=(Descriptor&& otro) noexcept {
        if (this != &otro) {
            Cerrar();
            valor_ = std::exchange(otro.valor_, -1);
        }
        return *this;
    }
    ~Descriptor() { Cerrar(); }

    bool Abierto() const { return valor_ >= 0; }
    int Valor() const { return valor_; }

    // The answer of the call; 0 where nothing is open.
    int Cerrar() { return Abierto() ? llamadas::Cerrar(std::exchange(valor_, -1)) : 0; }

private:
    int valor_ = -1;
};

// What both programs do first. Descriptors 0 to 2 that are closed are opened onto the null device, so that no file gets one of
// their numbers and messages are never written into it; and a file that grows over the limit of the process is a failed call, no
// signal.
void PrepararProceso();

}  // namespace qor
