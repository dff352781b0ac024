#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/database.h"
#include "practice/session_queue.h"

namespace qor {

// A recording that the practice system holds.
struct GrabacionGuardada {
    std::string nombre;  // of its file
    std::string grupo;   // as the queue names it: at most twelve characters
    std::string qid;     // twenty digits
    std::string creador;
    std::string fecha;  // YYYYMMDD
    std::string hora;   // HHMMSS
    std::string texto;  // as it was recorded
};

// The name in the queue of a recording of a file: its name without the extension, in upper case.
std::string GrupoDeGrabacion(std::string_view nombre);

// The recordings of the practice system. What changes them belongs to the unit of work. Texts are windows-1252.
class GrabacionesDePractica {
public:
    explicit GrabacionesDePractica(BaseDePractica& base) : base_(base) {}

    // Takes the place of one of the same name, and keeps its id.
    void Poner(const std::string& nombre, const std::string& texto);
    std::vector<GrabacionGuardada> Todas();  // by name
    std::optional<GrabacionGuardada> Buscar(std::string_view qid);
    void Borrar(std::string_view qid);
    // The recording as records of the queue, 309 characters each, the header first.
    static void CadaRegistro(const GrabacionGuardada& grabacion, const ColaDeSesiones::Registro& registro);

private:
    std::vector<GrabacionGuardada> Consultar(const char* donde, std::string_view valor);

    BaseDePractica& base_;
};

}  // namespace qor
