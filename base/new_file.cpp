#include "base/new_file.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t bloque = std::size_t{1} << 20;
constexpr int maximoEnlaces = 40;
constexpr int maximoIntentos = 1000;
constexpr mode_t lecturaYEscritura = 0600;
constexpr mode_t todos = 0666;  // without what the process keeps from new files

fs::path DirectorioDe(const fs::path& ruta) { return ruta.has_parent_path() ? ruta.parent_path() : fs::path("."); }

// Links there lead to open files, which have to be written to as they are.
bool EstaEnProc(const fs::path& ruta) {
    struct statfs sistema {};
    return ::statfs(DirectorioDe(ruta).c_str(), &sistema) == 0 && sistema.f_type == PROC_SUPER_MAGIC;
}

// Where the links at a path lead; nothing where they lead to an open file of a process.
std::optional<fs::path> SeguirEnlaces(const fs::path& destino) {
    fs::path ruta = destino;
    for (int i = 0; i < maximoEnlaces; ++i) {
        char texto[PATH_MAX];
        const auto largo = llamadas::LeerEnlace(ruta.c_str(), texto, sizeof texto);
        if (largo < 0 && errno != EINVAL && errno != ENOENT && errno != ENOTDIR) throw FalloDeArchivo(errno, destino);
        if (largo < 0) return ruta;
        if (EstaEnProc(ruta)) return std::nullopt;
        // A target that isn't absolute is one seen from the link's directory.
        ruta = DirectorioDe(ruta) / std::string(texto, static_cast<std::size_t>(largo));
    }
    throw FalloDeArchivo(ELOOP, destino);
}

std::optional<struct stat> Mirar(const fs::path& ruta, const fs::path& destino) {
    struct stat datos {};
    if (llamadas::Mirar(ruta.c_str(), datos) == 0) return datos;
    if (errno != ENOENT && errno != ENOTDIR) throw FalloDeArchivo(errno, destino);
    return std::nullopt;
}

bool EsElMismo(const struct stat& uno, const struct stat& otro) { return uno.st_dev == otro.st_dev && uno.st_ino == otro.st_ino; }

}  // namespace

ArchivoNuevo::ArchivoNuevo(const fs::path& destino, std::string_view extension, const ArchivoAbierto* propio)
    : destino_(destino), extension_(extension), propio_(propio) {
    const auto hay = Mirar(destino_, destino_);
    if (hay && S_ISDIR(hay->st_mode)) Fallar(EISDIR);
    const bool regular = !hay || S_ISREG(hay->st_mode);
    const auto objetivo = regular ? SeguirEnlaces(destino_) : std::nullopt;
    if (objetivo) {
        objetivo_ = *objetivo;
        TomarDestino();
        AbrirTrabajo();
    } else {
        AbrirDirecto(regular);
    }
}

ArchivoNuevo::~ArchivoNuevo() {
    if (!trabajo_.empty()) llamadas::Borrar(trabajo_.c_str());
}

void ArchivoNuevo::Fallar(int error) const { throw FalloDeArchivo(error, destino_); }

void ArchivoNuevo::AbrirDirecto(bool regular) {
    directo_ = true;
    descriptor_ = Descriptor(llamadas::Abrir(destino_.c_str(), O_WRONLY));
    if (!descriptor_.Abierto()) Fallar(errno);
    if (!regular) return;
    Bloquear(descriptor_.Valor(), destino_);
    if (llamadas::Truncar(descriptor_.Valor(), 0) != 0) Fallar(errno);
}

// Looks at the file that is to be replaced and holds it against others. It is opened for writing, so that one that is protected
// against that stays.
void ArchivoNuevo::TomarDestino() {
    for (int i = 0; i < maximoIntentos; ++i) {
        const auto hay = Mirar(objetivo_, destino_);
        hayDestino_ = hay.has_value();
        if (!hay) return;
        anterior_ = hay;
        struct stat tomado {};
        if (bloqueo_.Abierto() && llamadas::Mirar(bloqueo_.Valor(), tomado) != 0) Fallar(errno);
        if (bloqueo_.Abierto() && EsElMismo(*hay, tomado)) return;
        bloqueo_ = Descriptor(llamadas::Abrir(objetivo_.c_str(), O_WRONLY | O_NONBLOCK));
        if (!bloqueo_.Abierto() && errno == ENOENT) continue;
        if (!bloqueo_.Abierto()) Fallar(errno);
        if (propio_ != nullptr && propio_->Abierto() && propio_->Identidad().EsElMismo(IdentidadDe(*hay))) return;
        // Locked, but perhaps no longer the file of that name: once more.
        Bloquear(bloqueo_.Valor(), destino_);
    }
    throw FalloDeArchivo("The file is in use", destino_);
}

void ArchivoNuevo::AbrirTrabajo() {
    if (AbrirSinNombre()) return;
    DarNombreDeTrabajo([this](const char* nombre) {
        const int modo = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
        descriptor_ = Descriptor(llamadas::Abrir(nombre, modo, hayDestino_ ? lecturaYEscritura : todos));
        return descriptor_.Abierto();
    });
}

// Such a file gets its name by way of /proc, which must be there.
bool ArchivoNuevo::AbrirSinNombre() {
    const auto permisos = hayDestino_ ? lecturaYEscritura : todos;
    Descriptor sinNombre(llamadas::Abrir(DirectorioDe(objetivo_).c_str(), O_TMPFILE | O_RDWR, permisos));
    struct stat propio {};
    struct stat deProc {};
    const std::string enProc = "/proc/self/fd/" + std::to_string(sinNombre.Valor());
    if (!sinNombre.Abierto() || llamadas::Mirar(sinNombre.Valor(), propio) != 0 || llamadas::Mirar(enProc.c_str(), deProc) != 0 ||
        !EsElMismo(propio, deProc)) {
        return false;
    }
    descriptor_ = std::move(sinNombre);
    return true;
}

fs::path ArchivoNuevo::NombreDeTrabajo(int intento) const {
    if (intento == 0) {
        const fs::path dicho = QuitarExtension(objetivo_.string()) + extension_;
        if (dicho.parent_path() == objetivo_.parent_path() && dicho != objetivo_) return dicho;
        ++intento;
    }
    return DirectorioDe(objetivo_) / ("qor-" + std::to_string(::getpid()) + "-" + std::to_string(intento) + extension_);
}

// Tries names until one is free. What has a name already is never touched.
template <typename Hacer>
void ArchivoNuevo::DarNombreDeTrabajo(Hacer hacer) {
    for (int intento = 0; intento < maximoIntentos; ++intento) {
        const auto nombre = NombreDeTrabajo(intento);
        if (hacer(nombre.c_str())) {
            trabajo_ = nombre;
            return;
        }
        const bool ocupado = errno == EEXIST || errno == ELOOP || (errno == ENAMETOOLONG && intento == 0);
        if (!ocupado) Fallar(errno);
    }
    Fallar(EEXIST);
}

void ArchivoNuevo::Escribir(std::string_view texto) {
    pendiente_.append(texto);
    if (pendiente_.size() >= bloque) Vaciar();
}

void ArchivoNuevo::Vaciar() {
    if (std::exchange(incompleto_, true)) throw FalloDeArchivo("The file is incomplete", destino_);
    EscribirEn(descriptor_.Valor(), pendiente_, destino_);
    incompleto_ = false;
    pendiente_.clear();
}

void ArchivoNuevo::LlevarAlDisco() {
    Vaciar();
    if (llamadas::LlevarAlDisco(descriptor_.Valor()) == 0) return;
    // Devices and pipes that have nothing to bring there say so.
    const bool nadaQueLlevar = errno == EINVAL || errno == EROFS || errno == ENOTSUP;
    if (!directo_ || !nadaQueLlevar) Fallar(errno);
}

ArchivoBloqueado ArchivoNuevo::PonerEnSuLugar(const std::optional<IdentidadDeArchivo>& esperada) {
    if (directo_) {
        LlevarAlDisco();
        if (descriptor_.Cerrar() != 0) Fallar(errno);
        return {};
    }
    Vaciar();
    TomarDestino();
    if (esperada && (!hayDestino_ || IdentidadDe(*anterior_) != *esperada)) {
        throw FalloDeArchivo(motivoCambiado, destino_);
    }
    if (anterior_) DarAtributos();
    LlevarAlDisco();
    Bloquear(descriptor_.Valor(), destino_);
    struct stat nuevo {};
    if (llamadas::Mirar(descriptor_.Valor(), nuevo) != 0) Fallar(errno);
    Colocar();
    identidad_ = IdentidadDe(nuevo);
    LlevarDirectorioAlDisco(objetivo_);
    bloqueo_.Cerrar();
    return ArchivoBloqueado(std::move(descriptor_), destino_);
}

void ArchivoNuevo::PonerLoHecho() {
    try {
        PonerEnSuLugar();
    } catch (const FalloDeArchivo&) {
        return;
    }
}

void ArchivoNuevo::DarAtributos() {
    const int descriptor = descriptor_.Valor();
    struct stat nuevo {};
    if (llamadas::Mirar(descriptor, nuevo) != 0) Fallar(errno);
    const uid_t dueno = nuevo.st_uid == anterior_->st_uid ? static_cast<uid_t>(-1) : anterior_->st_uid;
    const gid_t grupo = nuevo.st_gid == anterior_->st_gid ? static_cast<gid_t>(-1) : anterior_->st_gid;
    const bool otroDueno = dueno != static_cast<uid_t>(-1);
    const bool otroGrupo = grupo != static_cast<gid_t>(-1);
    mode_t permisos = anterior_->st_mode & 0777;
    if ((otroDueno || otroGrupo) && llamadas::DarDueno(descriptor, dueno, grupo) != 0 && otroGrupo &&
        (!otroDueno || llamadas::DarDueno(descriptor, static_cast<uid_t>(-1), grupo) != 0)) {
        permisos &= 0707 | ((permisos & 07) << 3);
    }
    if ((nuevo.st_mode & 07777) != permisos && llamadas::DarPermisos(descriptor, permisos) != 0) Fallar(errno);
}

void ArchivoNuevo::Colocar() {
    if (trabajo_.empty()) {
        const auto nombrar = [this](const char* nombre) { return llamadas::Nombrar(descriptor_.Valor(), nombre) == 0; };
        if (!hayDestino_) {
            if (nombrar(objetivo_.c_str())) return;
            if (errno == EEXIST) throw FalloDeArchivo(motivoCambiado, destino_);  // it has come up since it was looked for
            Fallar(errno);
        }
        DarNombreDeTrabajo(nombrar);
    }
    if (llamadas::Renombrar(trabajo_.c_str(), objetivo_.c_str()) != 0) Fallar(errno);
    trabajo_.clear();
}

void CrearDirectorio(const std::filesystem::path& directorio) {
    std::error_code error;
    std::filesystem::create_directories(directorio, error);
    if (error) throw FalloDeArchivo(error.value(), directorio);
}

void GuardarArchivo(const fs::path& destino, std::string_view texto, std::string_view extension) {
    ArchivoNuevo archivo(destino, extension);
    archivo.Escribir(texto);
    archivo.PonerEnSuLugar();
}

bool EsElMismoLugar(const fs::path& uno, const fs::path& otro) {
    const auto hayUno = Mirar(uno, uno);
    const auto hayOtro = Mirar(otro, otro);
    if (hayUno && hayOtro) return !S_ISCHR(hayUno->st_mode) && EsElMismo(*hayUno, *hayOtro);
    if (hayUno || hayOtro) return false;
    const auto lugar = [](const fs::path& ruta) {
        std::error_code error;
        auto entera = fs::weakly_canonical(fs::absolute(SeguirEnlaces(ruta).value_or(ruta), error), error);
        if (error) throw FalloDeArchivo(error.value(), ruta);
        return entera;
    };
    return lugar(uno) == lugar(otro);
}

}  // namespace qor
