#include "base/new_file.h"

#include <cerrno>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/process.h"
#include "base/system_calls.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t bloque = std::size_t{1} << 20;
constexpr int maximoEnlaces = 40;
constexpr int maximoIntentos = 1000;
constexpr unsigned lecturaYEscritura = 0600;
constexpr unsigned todos = 0666;  // without what the process keeps from new files

fs::path DirectorioDe(const fs::path& ruta) { return ruta.has_parent_path() ? ruta.parent_path() : fs::path("."); }

// Where the links at a path lead; nothing where they lead to an open file of a process.
std::optional<fs::path> SeguirEnlaces(const fs::path& destino) {
    fs::path ruta = destino;
    for (int i = 0; i < maximoEnlaces; ++i) {
        fs::path siguiente;
        const bool esEnlace = llamadas::LeerEnlace(ruta, siguiente) == 0;
        if (!esEnlace && errno != EINVAL && errno != ENOENT && errno != ENOTDIR) throw FalloDeArchivo(errno, destino);
        if (!esEnlace) return ruta;
        if (sistema::LlevaAAbierto(ruta)) return std::nullopt;
        // A target that isn't absolute is one seen from the link's directory.
        ruta = DirectorioDe(ruta) / siguiente;
    }
    throw FalloDeArchivo(ELOOP, destino);
}

std::optional<EstadoDeArchivo> Mirar(const fs::path& ruta, const fs::path& destino) {
    EstadoDeArchivo estado;
    if (llamadas::Mirar(ruta, estado) == 0) return estado;
    if (errno != ENOENT && errno != ENOTDIR) throw FalloDeArchivo(errno, destino);
    return std::nullopt;
}

bool EsElMismo(const EstadoDeArchivo& uno, const EstadoDeArchivo& otro) {
    return uno.dispositivo == otro.dispositivo && uno.inodo == otro.inodo;
}

}  // namespace

ArchivoNuevo::ArchivoNuevo(const fs::path& destino, std::string_view extension, const ArchivoAbierto* propio)
    : destino_(destino), extension_(extension), propio_(propio) {
    const auto hay = Mirar(destino_, destino_);
    if (hay && hay->EsDirectorio()) Fallar(EISDIR);
    const bool regular = !hay || hay->EsRegular();
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
    if (!trabajo_.empty()) llamadas::Borrar(trabajo_);
}

void ArchivoNuevo::Fallar(int error) const { throw FalloDeArchivo(error, destino_); }

void ArchivoNuevo::AbrirDirecto(bool regular) {
    directo_ = true;
    descriptor_ = Descriptor(llamadas::Abrir(destino_, modos::soloEscribir));
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
        EstadoDeArchivo tomado;
        if (bloqueo_.Abierto() && llamadas::Mirar(bloqueo_.Valor(), tomado) != 0) Fallar(errno);
        if (bloqueo_.Abierto() && EsElMismo(*hay, tomado)) return;
        bloqueo_ = Descriptor(llamadas::Abrir(objetivo_, modos::soloEscribir | modos::sinEsperar));
        if (!bloqueo_.Abierto() && errno == ENOENT) continue;
        if (!bloqueo_.Abierto()) Fallar(errno);
        if (propio_ != nullptr && propio_->Abierto() && propio_->Identidad().EsElMismo(IdentidadDe(*hay))) return;
        // Locked, but perhaps no longer the file of that name: once more.
        Bloquear(bloqueo_.Valor(), destino_);
    }
    throw FalloDeArchivo(CausaDeFallo::EnUso, destino_);
}

void ArchivoNuevo::AbrirTrabajo() {
    if (AbrirSinNombre()) return;
    DarNombreDeTrabajo([this](const fs::path& nombre) {
        constexpr unsigned modo = modos::leerYEscribir | modos::crear | modos::soloNuevo | modos::sinEnlaces;
        descriptor_ = Descriptor(llamadas::Abrir(nombre, modo, hayDestino_ ? lecturaYEscritura : todos));
        return descriptor_.Abierto();
    });
}

// Such a file gets its name by way of /proc, which must be there.
bool ArchivoNuevo::AbrirSinNombre() {
    const auto permisos = hayDestino_ ? lecturaYEscritura : todos;
    Descriptor sinNombre(llamadas::Abrir(DirectorioDe(objetivo_), modos::sinNombre | modos::leerYEscribir, permisos));
    EstadoDeArchivo propio;
    EstadoDeArchivo deProc;
    if (!sinNombre.Abierto() || llamadas::Mirar(sinNombre.Valor(), propio) != 0 ||
        llamadas::Mirar(sistema::RutaDeAbierto(sinNombre.Valor()), deProc) != 0 || !EsElMismo(propio, deProc)) {
        return false;
    }
    descriptor_ = std::move(sinNombre);
    return true;
}

fs::path ArchivoNuevo::NombreDeTrabajo(int intento) const {
    if (intento == 0) {
        const fs::path dicho = QuitarExtension(objetivo_.string()) + extension_;
        if (dicho.parent_path() == objetivo_.parent_path() && !sistema::EsMismoNombre(dicho, objetivo_)) return dicho;
        ++intento;
    }
    return DirectorioDe(objetivo_) / ("qor-" + std::to_string(NumeroDeProceso()) + "-" + std::to_string(intento) + extension_);
}

// Tries names until one is free. What has a name already is never touched.
template <typename Hacer>
void ArchivoNuevo::DarNombreDeTrabajo(Hacer hacer) {
    for (int intento = 0; intento < maximoIntentos; ++intento) {
        const auto nombre = NombreDeTrabajo(intento);
        if (hacer(nombre)) {
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
        throw FalloDeArchivo(CausaDeFallo::Cambiado, destino_);
    }
    if (anterior_) DarAtributos();
    LlevarAlDisco();
    Bloquear(descriptor_.Valor(), destino_);
    EstadoDeArchivo nuevo;
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
    EstadoDeArchivo nuevo;
    if (llamadas::Mirar(descriptor, nuevo) != 0) Fallar(errno);
    const bool otroDueno = nuevo.dueno != anterior_->dueno;
    const bool otroGrupo = nuevo.grupo != anterior_->grupo;
    const unsigned dueno = otroDueno ? anterior_->dueno : llamadas::mismo;
    const unsigned grupo = otroGrupo ? anterior_->grupo : llamadas::mismo;
    unsigned permisos = anterior_->permisos & 0777;
    if ((otroDueno || otroGrupo) && llamadas::DarDueno(descriptor, dueno, grupo) != 0 && otroGrupo &&
        (!otroDueno || llamadas::DarDueno(descriptor, llamadas::mismo, grupo) != 0)) {
        permisos &= 0707 | ((permisos & 07) << 3);
    }
    if (nuevo.permisos != permisos && llamadas::DarPermisos(descriptor, permisos) != 0) Fallar(errno);
}

void ArchivoNuevo::Colocar() {
    if (trabajo_.empty()) {
        const auto nombrar = [this](const fs::path& nombre) { return llamadas::Nombrar(descriptor_.Valor(), nombre) == 0; };
        if (!hayDestino_) {
            if (nombrar(objetivo_)) return;
            if (errno == EEXIST) throw FalloDeArchivo(CausaDeFallo::Cambiado, destino_);  // it has come up since it was looked for
            Fallar(errno);
        }
        DarNombreDeTrabajo(nombrar);
    }
    if (llamadas::Renombrar(trabajo_, objetivo_) != 0) Fallar(errno);
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
    if (hayUno && hayOtro) return hayUno->clase != EstadoDeArchivo::Clase::Otra && EsElMismo(*hayUno, *hayOtro);
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
