#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
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

// How a file is opened: one of the first three, and any of the others.
namespace modos {

constexpr unsigned soloLeer = 0;
constexpr unsigned soloEscribir = 1U << 0;
constexpr unsigned leerYEscribir = 1U << 1;
constexpr unsigned crear = 1U << 2;       // makes it where it is missing
constexpr unsigned soloNuevo = 1U << 3;   // with `crear`: what is there already is an error
constexpr unsigned alFinal = 1U << 4;     // every write goes behind what is there
constexpr unsigned sinEsperar = 1U << 5;  // keeps the name of a pipe from blocking the opener; nothing for a regular file
constexpr unsigned sinEnlaces = 1U << 6;  // a link is an error
constexpr unsigned directorio = 1U << 7;  // anything but a directory is an error
constexpr unsigned sinNombre = 1U << 8;   // a new file without a name in the told directory; an error where there is no such thing

}  // namespace modos

// What is behind a name or an open descriptor.
struct EstadoDeArchivo {
    enum class Clase { Regular, Directorio, Otra };

    Clase clase = Clase::Otra;
    std::uintmax_t dispositivo = 0;
    std::uintmax_t inodo = 0;
    std::uintmax_t tamano = 0;
    std::int64_t cambiadoEn = 0;  // nanoseconds
    // Of POSIX; 0 on systems that have no such thing.
    unsigned permisos = 0;
    unsigned dueno = 0;
    unsigned grupo = 0;

    bool EsRegular() const { return clase == Clase::Regular; }
    bool EsDirectorio() const { return clase == Clase::Directorio; }
};

// The operating system's calls on files: every one that this system makes goes through here. Each answers what the POSIX call of
// its kind does, with its error in errno; `Leer`, `LeerEn` and `Escribir` begin again after a signal. base/system_calls.h is what
// each operating system has to bring for them.
namespace llamadas {

int Abrir(const std::filesystem::path& ruta, unsigned modo, unsigned permisos = 0);
ssize_t Leer(int descriptor, void* donde, std::size_t cuanto);
ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, std::int64_t lugar);
ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto);
int LlevarAlDisco(int descriptor);
int Mirar(int descriptor, EstadoDeArchivo& estado);
int Mirar(const std::filesystem::path& ruta, EstadoDeArchivo& estado);
int MirarEnlace(const std::filesystem::path& ruta, EstadoDeArchivo& estado);
int LeerEnlace(const std::filesystem::path& ruta, std::filesystem::path& destino);  // EINVAL for what is no link
int Bloquear(int descriptor);                                                       // exclusively, without waiting
int Truncar(int descriptor, std::int64_t largo);
std::int64_t Colocar(int descriptor, std::int64_t lugar);
int DarPermisos(int descriptor, unsigned permisos);
int DarDueno(int descriptor, unsigned dueno, unsigned grupo);    // `mismo` leaves one as it is
int Nombrar(int descriptor, const std::filesystem::path& ruta);  // gives a name to an opened file that has none
int Renombrar(const std::filesystem::path& vieja, const std::filesystem::path& nueva);  // in the place of what has the name
int Borrar(const std::filesystem::path& ruta);
int Cerrar(int descriptor);
int Duplicar(int descriptor);  // for a library that closes what it gets

constexpr unsigned mismo = static_cast<unsigned>(-1);

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

}  // namespace qor
