#include "base/system_calls.h"

#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/windows/errors.h"
#include "base/windows/handle.h"
#include "base/windows/random_name.h"

// Every file is opened so that others may read, write, rename and delete it meanwhile, as on POSIX; what holds others off is the
// lock. Descriptors are those of the C library.
namespace qor::sistema {

namespace {

namespace fs = std::filesystem;

constexpr DWORD compartido = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The lock stands on a byte far behind the end of every file: locks of Windows keep others from reading what they stand on.
constexpr DWORD lugarDelBloqueoBajo = 0xFFFFFFFE;
constexpr DWORD lugarDelBloqueoAlto = 0x7FFFFFFF;

HANDLE MangoDe(int descriptor) { return reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)); }

int Resultado(BOOL bien) { return bien ? 0 : FallarComoC(); }

int FallarCon(int error) {
    errno = error;
    return -1;
}

DWORD AccesoDe(unsigned modo) {
    if ((modo & modos::leerYEscribir) != 0) return GENERIC_READ | GENERIC_WRITE;
    return (modo & modos::soloEscribir) != 0 ? GENERIC_WRITE : GENERIC_READ;
}

DWORD DisposicionDe(unsigned modo) {
    if ((modo & modos::crear) == 0) return OPEN_EXISTING;
    return (modo & modos::soloNuevo) != 0 ? CREATE_NEW : OPEN_ALWAYS;
}

// Whether the file is a name for another one: a symbolic link or a junction.
bool EsEnlace(HANDLE mango) {
    FILE_ATTRIBUTE_TAG_INFO dato{};
    return ::GetFileInformationByHandleEx(mango, FileAttributeTagInfo, &dato, sizeof dato) &&
           (dato.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && IsReparseTagNameSurrogate(dato.ReparseTag);
}

Mango AbrirParaMirar(const fs::path& ruta, DWORD marcas) {
    return Mango(::CreateFileW(ruta.c_str(), FILE_READ_ATTRIBUTES, compartido, nullptr, OPEN_EXISTING,
                               FILE_FLAG_BACKUP_SEMANTICS | marcas, nullptr));
}

// Of a file that was renamed while it is open, Wine doesn't tell the volume; its drive does.
DWORD VolumenDe(HANDLE mango, DWORD dicho) {
    if (dicho != 0) return dicho;
    std::wstring nombre(32768, L'\0');
    nombre.resize(::GetFinalPathNameByHandleW(mango, nombre.data(), static_cast<DWORD>(nombre.size()), VOLUME_NAME_DOS));
    constexpr std::wstring_view comienzo = LR"(\\?\)";
    constexpr std::size_t largoDeRaiz = 3;
    if (!nombre.starts_with(comienzo)) return 0;
    DWORD serie = 0;
    const std::wstring raiz = nombre.substr(comienzo.size(), largoDeRaiz);
    return ::GetVolumeInformationW(raiz.c_str(), nullptr, 0, &serie, nullptr, nullptr, nullptr, 0) ? serie : 0;
}

int MirarMango(HANDLE mango, EstadoDeArchivo& estado) {
    using Clase = EstadoDeArchivo::Clase;
    estado = {};
    if (::GetFileType(mango) != FILE_TYPE_DISK) return 0;
    BY_HANDLE_FILE_INFORMATION datos{};
    if (!::GetFileInformationByHandle(mango, &datos)) return FallarComoC();
    const auto junto = [](DWORD alto, DWORD bajo) { return (std::uint64_t{alto} << 32) | bajo; };
    constexpr std::int64_t desde1601Hasta1970 = 116'444'736'000'000'000;  // in steps of 100 nanoseconds
    const auto hora = junto(datos.ftLastWriteTime.dwHighDateTime, datos.ftLastWriteTime.dwLowDateTime);
    const bool carpeta = (datos.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    estado.clase = EsEnlace(mango) ? Clase::Otra : carpeta ? Clase::Directorio : Clase::Regular;
    estado.dispositivo = VolumenDe(mango, datos.dwVolumeSerialNumber);
    estado.inodo = junto(datos.nFileIndexHigh, datos.nFileIndexLow);
    estado.tamano = junto(datos.nFileSizeHigh, datos.nFileSizeLow);
    estado.cambiadoEn = (static_cast<std::int64_t>(hora) - desde1601Hasta1970) * 100;
    return 0;
}

int MirarRuta(const fs::path& ruta, DWORD marcas, EstadoDeArchivo& estado) {
    const Mango mango = AbrirParaMirar(ruta, marcas);
    return mango.Abierto() ? MirarMango(mango.Valor(), estado) : FallarComoC();
}

// Who may do what with the old file holds for the new one too. Where that can't be read or given, the new one has what its
// directory gives.
void CopiarDerechos(const fs::path& de, const fs::path& a) {
    PACL derechos = nullptr;
    PSECURITY_DESCRIPTOR todo = nullptr;
    std::wstring nombre = de.wstring();
    if (::GetNamedSecurityInfoW(nombre.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &derechos, nullptr,
                                &todo) != ERROR_SUCCESS) {
        return;
    }
    nombre = a.wstring();
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    ::GetSecurityDescriptorControl(todo, &control, &revision);
    const SECURITY_INFORMATION herencia =
        (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
    ::SetNamedSecurityInfoW(nombre.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | herencia, nullptr, nullptr, derechos,
                            nullptr);
    ::LocalFree(todo);
}

// The rename that file systems of Windows 10 have: one step, and the old file may be open.
bool RenombrarComoPosix(const fs::path& vieja, const fs::path& nueva) {
    constexpr auto claseDeLlamada = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);  // FileRenameInfoEx
    constexpr DWORD reemplazar = 1;
    constexpr DWORD comoPosix = 2;
    struct Pedido {
        DWORD marcas;
        HANDLE raiz;
        DWORD largo;
        WCHAR nombre[1];
    };
    const Mango mango(::CreateFileW(vieja.c_str(), DELETE | SYNCHRONIZE, compartido, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    std::error_code error;
    const auto entera = fs::absolute(nueva, error).make_preferred().wstring();
    if (!mango.Abierto() || error) return false;
    const auto bytes = entera.size() * sizeof(WCHAR);
    std::vector<std::max_align_t> lugar((sizeof(Pedido) + bytes) / sizeof(std::max_align_t) + 1);
    auto* const pedido = reinterpret_cast<Pedido*>(lugar.data());
    *pedido = {reemplazar | comoPosix, nullptr, static_cast<DWORD>(bytes), {}};
    std::copy(entera.begin(), entera.end(), pedido->nombre);
    return ::SetFileInformationByHandle(mango.Valor(), claseDeLlamada, pedido, static_cast<DWORD>(sizeof(Pedido) + bytes)) != 0;
}

constexpr DWORD alDisco = MOVEFILE_WRITE_THROUGH;

// For file systems where an opened file can't be replaced: it steps aside, and goes when it is closed. It steps back when the new
// one can't take its place.
bool RenombrarApartando(const fs::path& vieja, const fs::path& nueva) {
    const auto aparte = nueva.parent_path() / (L"qor-" + NombreAlAzar() + L".old");
    if (!::MoveFileExW(nueva.c_str(), aparte.c_str(), 0)) return false;
    if (::MoveFileExW(vieja.c_str(), nueva.c_str(), alDisco)) {
        ::DeleteFileW(aparte.c_str());
        return true;
    }
    const DWORD error = ::GetLastError();
    ::MoveFileExW(aparte.c_str(), nueva.c_str(), 0);
    ::SetLastError(error);
    return false;
}

bool EstaAbiertoPorOtro(DWORD error) { return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION; }

}  // namespace

int Abrir(const fs::path& ruta, unsigned modo, unsigned /*permisos*/) {
    if ((modo & modos::sinNombre) != 0) return FallarCon(ENOTSUP);
    const bool sinEnlaces = (modo & modos::sinEnlaces) != 0;
    const bool carpeta = (modo & modos::directorio) != 0;
    // The entries of a directory reach the disk through an opening that may write.
    const DWORD acceso = carpeta ? GENERIC_READ | GENERIC_WRITE : AccesoDe(modo);
    // Who only reads may open a directory too, and sees what it is.
    const DWORD paraCarpetas = carpeta || acceso == GENERIC_READ ? FILE_FLAG_BACKUP_SEMANTICS : 0;
    const DWORD marcas = FILE_ATTRIBUTE_NORMAL | paraCarpetas | (sinEnlaces ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    Mango mango(::CreateFileW(ruta.c_str(), acceso, compartido, nullptr, DisposicionDe(modo), marcas, nullptr));
    if (!mango.Abierto()) {
        const int fallo = FallarComoC();
        const DWORD atributos = ::GetFileAttributesW(ruta.c_str());
        const bool esCarpeta = atributos != INVALID_FILE_ATTRIBUTES && (atributos & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (esCarpeta && !carpeta && errno == EACCES) errno = (modo & modos::soloNuevo) != 0 ? EEXIST : EISDIR;
        return fallo;
    }
    if (sinEnlaces && EsEnlace(mango.Valor())) return FallarCon(ELOOP);
    const int descriptor =
        ::_open_osfhandle(reinterpret_cast<std::intptr_t>(mango.Valor()), (modo & modos::alFinal) != 0 ? _O_APPEND : 0);
    if (descriptor >= 0) mango.Soltar();
    return descriptor;
}

ssize_t Leer(int descriptor, void* donde, std::size_t cuanto) {
    const auto pedido = std::min<std::size_t>(cuanto, std::numeric_limits<int>::max());
    return ::_read(descriptor, donde, static_cast<unsigned>(pedido));
}

// A reading at a place moves the place of the next reading, which is put back.
ssize_t LeerEn(int descriptor, void* donde, std::size_t cuanto, std::int64_t lugar) {
    const HANDLE mango = MangoDe(descriptor);
    constexpr LARGE_INTEGER aqui{};
    LARGE_INTEGER anterior{};
    if (!::SetFilePointerEx(mango, aqui, &anterior, FILE_CURRENT)) return FallarComoC();
    OVERLAPPED desde{};
    desde.Offset = static_cast<DWORD>(lugar & 0xFFFFFFFF);
    desde.OffsetHigh = static_cast<DWORD>(lugar >> 32);
    DWORD leidos = 0;
    const auto pedido = std::min<std::size_t>(cuanto, std::numeric_limits<int>::max());
    const bool bien = ::ReadFile(mango, donde, static_cast<DWORD>(pedido), &leidos, &desde) || ::GetLastError() == ERROR_HANDLE_EOF;
    const int fallo = bien ? 0 : FallarComoC();
    ::SetFilePointerEx(mango, anterior, nullptr, FILE_BEGIN);
    return bien ? static_cast<ssize_t>(leidos) : fallo;
}

ssize_t Escribir(int descriptor, const void* que, std::size_t cuanto) {
    const auto pedido = std::min<std::size_t>(cuanto, std::numeric_limits<int>::max());
    return ::_write(descriptor, que, static_cast<unsigned>(pedido));
}

int LlevarAlDisco(int descriptor) {
    const HANDLE mango = MangoDe(descriptor);
    return ::GetFileType(mango) == FILE_TYPE_DISK ? Resultado(::FlushFileBuffers(mango)) : FallarCon(EINVAL);
}

int Mirar(int descriptor, EstadoDeArchivo& estado) { return MirarMango(MangoDe(descriptor), estado); }

int Mirar(const fs::path& ruta, EstadoDeArchivo& estado) { return MirarRuta(ruta, 0, estado); }

int MirarEnlace(const fs::path& ruta, EstadoDeArchivo& estado) { return MirarRuta(ruta, FILE_FLAG_OPEN_REPARSE_POINT, estado); }

// The answer is where all links on the way lead, which has to be there.
int LeerEnlace(const fs::path& ruta, fs::path& destino) {
    {
        const Mango enlace = AbrirParaMirar(ruta, FILE_FLAG_OPEN_REPARSE_POINT);
        if (!enlace.Abierto()) return FallarComoC();
        if (!EsEnlace(enlace.Valor())) return FallarCon(EINVAL);
    }
    const Mango mango = AbrirParaMirar(ruta, 0);
    std::wstring nombre(32768, L'\0');
    const DWORD largo =
        mango.Abierto() ? ::GetFinalPathNameByHandleW(mango.Valor(), nombre.data(), static_cast<DWORD>(nombre.size()), 0) : 0;
    // A link that leads nowhere is no name that a new file could have: what it says can be seen from another place.
    if (largo == 0) return FallarComoC() < 0 && errno == ENOENT ? FallarCon(EACCES) : -1;
    nombre.resize(largo);
    destino = nombre;
    return 0;
}

int Bloquear(int descriptor) {
    OVERLAPPED lugar{};
    lugar.Offset = lugarDelBloqueoBajo;
    lugar.OffsetHigh = lugarDelBloqueoAlto;
    return Resultado(::LockFileEx(MangoDe(descriptor), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &lugar));
}

int Truncar(int descriptor, std::int64_t largo) {
    FILE_END_OF_FILE_INFO fin{};
    fin.EndOfFile.QuadPart = largo;
    return Resultado(::SetFileInformationByHandle(MangoDe(descriptor), FileEndOfFileInfo, &fin, sizeof fin));
}

std::int64_t Colocar(int descriptor, std::int64_t lugar) { return ::_lseeki64(descriptor, lugar, SEEK_SET); }

int DarPermisos(int /*descriptor*/, unsigned /*permisos*/) { return FallarCon(ENOTSUP); }

int DarDueno(int /*descriptor*/, unsigned /*dueno*/, unsigned /*grupo*/) { return FallarCon(ENOTSUP); }

int Nombrar(int /*descriptor*/, const fs::path& /*ruta*/) { return FallarCon(ENOTSUP); }

int Renombrar(const fs::path& vieja, const fs::path& nueva) {
    if (::GetFileAttributesW(nueva.c_str()) != INVALID_FILE_ATTRIBUTES) CopiarDerechos(nueva, vieja);
    if (RenombrarComoPosix(vieja, nueva)) return 0;
    if (::MoveFileExW(vieja.c_str(), nueva.c_str(), MOVEFILE_REPLACE_EXISTING | alDisco)) return 0;
    if (EstaAbiertoPorOtro(::GetLastError()) && RenombrarApartando(vieja, nueva)) return 0;
    return FallarComoC();
}

int Borrar(const fs::path& ruta) { return Resultado(::DeleteFileW(ruta.c_str())); }

int Cerrar(int descriptor) { return ::_close(descriptor); }

int Duplicar(int descriptor) { return ::_dup(descriptor); }

void AnunciarLectura(int /*descriptor*/) {}

fs::path RutaDeAbierto(int /*descriptor*/) { return {}; }

bool LlevaAAbierto(const fs::path& /*enlace*/) { return false; }

bool EsMismoNombre(const fs::path& uno, const fs::path& otro) {
    return ::CompareStringOrdinal(uno.c_str(), -1, otro.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool SePuedeEscribir(const fs::path& ruta) {
    constexpr int escribir = 2;
    return ::_waccess(ruta.c_str(), escribir) == 0;
}

}  // namespace qor::sistema
