#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "abap/values/structure.h"

// Files of definitions in the form of data/dictionary.txt, whose head tells of it. Names are in upper case.
namespace qor {

struct CampoDeDiccionario {
    std::string nombre;
    std::string clase;  // CHAR, NUMC, DATS and so on
    int largo = 0;      // in characters or digits
    abap::TipoDeCampo tipo;
    bool clave = false;
};

struct EntradaDeDiccionario {
    enum class Clase : std::uint8_t { Estructura, Tabla, Campos, Elemento };

    Clase clase = Clase::Estructura;
    std::vector<CampoDeDiccionario> campos;

    const CampoDeDiccionario* Buscar(std::string_view nombre) const;
};

using EntradasDeDiccionario = std::map<std::string, EntradaDeDiccionario, std::less<>>;

// Reads the text of a file, in windows-1252, on top of what is there. Of two definitions of one name the later one counts. Throws
// FalloDeEjecucion, with the line, for what is no definition; what is there then stays as it was.
void LeerDiccionario(EntradasDeDiccionario& entradas, std::string_view texto);

}  // namespace qor
