#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "model/record_layout.h"

namespace qor {

// The file that the records of a group come from, as it lies on the disk; 0 is the main record.
using ArchivoDeGrupo = std::function<std::string(int grupo)>;

// Finds the lines of the input files that values of a run came from. Files are read when they are first looked into; what is too
// large or took too long to look through is not found.
class LineasDeRegistros {
public:
    explicit LineasDeRegistros(const DisenoDeRegistros& diseno) : diseno_(diseno) {}

    void PonerArchivos(ArchivoDeGrupo archivo) { archivo_ = std::move(archivo); }
    std::string Archivo(int grupo) const;

    // The line, from 1, of a main record, or of the line of a group that belongs to it and holds that value; 0: not found.
    std::size_t Buscar(std::size_t registro, int grupo, int filaDeArchivo, std::string_view valor);

private:
    struct Archivado {
        std::string texto;
        std::vector<std::string_view> lineas;
        std::vector<std::size_t> principales;  // in the one file
    };

    Archivado& Leer(const std::string& archivo);
    std::size_t LineaPrincipal(std::size_t registro);
    std::size_t BuscarDetras(const Archivado& unico, std::size_t principal, int grupo, int filaDeArchivo,
                             std::string_view valor) const;
    std::size_t BuscarPorClaves(std::string_view principal, int grupo, int filaDeArchivo, std::string_view valor);

    const DisenoDeRegistros& diseno_;
    ArchivoDeGrupo archivo_;
    std::map<std::string, Archivado> leidos_;
    std::size_t miradas_ = 0;  // lines that were looked at
};

}  // namespace qor
