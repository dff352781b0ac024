#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "practice/queue.h"

// Sessions as files of records, in the columns that sap/import.h tells; windows-1252, CR LF at line ends. The data-set editor opens
// them, and they can be imported into a specification.
namespace qor {

constexpr std::size_t largoDeRegistro = 309;

// Hands out the records of an entry of the queue, 309 characters each; texts that are too long are cut.
class EscritorDeRegistros {
public:
    explicit EscritorDeRegistros(const ColaDeSesiones::Registro& registro) : registro_(registro) {}

    void Cabeza(std::string_view grupo) { Escribir({}, {}, 'M', grupo, {}); }
    void Transaccion(std::string_view codigo) { Escribir({}, {}, 'T', codigo, {}); }
    void Fila(const FilaDeBDC& fila) { Escribir(fila.programa, fila.dynpro, fila.abre ? 'X' : ' ', fila.campo, fila.valor); }

private:
    void Escribir(std::string_view programa, std::string_view dynpro, char clase, std::string_view campo, std::string_view valor);

    const ColaDeSesiones::Registro& registro_;
    std::string bytes_;
};

// Writes an entry of the queue into a file.
void ExportarSesion(ColaDePractica& cola, const EntradaDeCola& entrada, const std::filesystem::path& archivo);

// Puts the session of a file at the end of the queue, as one unit of work; its id. Throws FalloDeArchivo, with the line, for a file
// that holds none, or lines that are no records of one; nothing is put in then.
std::string ImportarSesion(BaseDePractica& base, ColaDePractica& cola, std::string_view usuario,
                           const std::filesystem::path& archivo);

}  // namespace qor
