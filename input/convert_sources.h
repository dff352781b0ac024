#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "base/files.h"
#include "input/convert.h"
#include "input/sheet.h"

namespace qor {

class LibroXlsx;

// The tables of an input, one for each kind of records. Each can be read several times.
class FuentesDeTablas {
public:
    // Keeps the references.
    FuentesDeTablas(const DisenoDeEntrada& diseno, const Tablas& tablas, const OpcionesDeConversion& opciones);
    ~FuentesDeTablas();

    std::unique_ptr<FuenteDeFilas> Abrir(int clase);

private:
    char Separador(int clase, const std::filesystem::path& ruta) const;

    const DisenoDeEntrada& diseno_;
    const Tablas& tablas_;
    const OpcionesDeConversion& opciones_;
    std::unique_ptr<LibroXlsx> libro_;
};

// Files that are read more than once, and have to stay what they are meanwhile.
class LecturaRepetida {
public:
    explicit LecturaRepetida(const std::vector<std::filesystem::path>& archivos);
    // Throws FalloDeArchivo for one that has changed.
    void ExigirIguales() const;

private:
    std::vector<std::filesystem::path> archivos_;
    std::vector<std::optional<IdentidadDeArchivo>> identidades_;
};

}  // namespace qor
