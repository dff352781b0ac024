#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "abap/surroundings.h"
#include "base/piecewise_reader.h"
#include "practice/file_names.h"
#include "practice/value_lists.h"

namespace qor {

// The files of the application server: those that the user named, and those in the folder of the document. A read that fails, or a
// file that has become shorter, is the dump DATASET_READ_ERROR: half a file is not taken for a whole one. A write that fails is
// DATASET_WRITE_ERROR.
class ArchivosDePractica : public abap::Archivos {
public:
    explicit ArchivosDePractica(NombresDeArchivos& nombres);
    ~ArchivosDePractica() override;

    bool Abrir(std::string_view nombre, Modo modo, bool texto) override;
    bool Leer(std::string_view nombre, std::string& linea, std::size_t largo) override;
    void Escribir(std::string_view nombre, std::string_view linea) override;
    void Cerrar(std::string_view nombre) override;
    bool Borrar(std::string_view nombre) override;

private:
    struct Salida;
    struct Abierto {
        bool texto = true;
        std::unique_ptr<LectorPorTrozos> entrada;
        std::unique_ptr<Salida> salida;
    };

    Abierto& Exigir(std::string_view nombre);
    void Volcar(std::string_view nombre, Salida& salida);

    NombresDeArchivos& nombres_;
    std::unordered_map<std::string, Abierto, HashDeTexto, std::equal_to<>> abiertos_;
};

}  // namespace qor
