#include "base/failure.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace qor {

namespace {

const char* MotivoDe(CausaDeFallo causa) {
    switch (causa) {
        case CausaDeFallo::EnUso: return "The file is in use";
        case CausaDeFallo::Cambiado: return "Another program has changed the file";
        case CausaDeFallo::NoEsArchivo: return "Not a regular file";
        default: return "The operation failed";
    }
}

}  // namespace

CausaDeFallo CausaDe(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: return CausaDeFallo::Falta;
        case EACCES:
        case EPERM: return CausaDeFallo::SinPermiso;
        case EROFS: return CausaDeFallo::SoloLectura;
#ifdef EDQUOT
        case EDQUOT:
#endif
        case ENOSPC: return CausaDeFallo::SinLugar;
        case EISDIR: return CausaDeFallo::NoEsArchivo;
        case EBUSY:
        case ETXTBSY: return CausaDeFallo::EnUso;
        default: return CausaDeFallo::Otra;
    }
}

FalloDeArchivo::FalloDeArchivo(const std::string& motivo, std::filesystem::path ruta, CausaDeFallo causa)
    : FalloDeEjecucion(motivo), ruta_(std::move(ruta)), causa_(causa) {}

FalloDeArchivo::FalloDeArchivo(int error, std::filesystem::path ruta)
    : FalloDeArchivo(std::strerror(error), std::move(ruta), CausaDe(error)) {}

FalloDeArchivo::FalloDeArchivo(CausaDeFallo causa, std::filesystem::path ruta)
    : FalloDeArchivo(MotivoDe(causa), std::move(ruta), causa) {}

std::string FalloDeArchivo::Detalle() const { return std::string(what()) + ": " + ruta_.string(); }

}  // namespace qor
