#pragma once

#include <filesystem>
#include <vector>

#include "app/command.h"
#include "input/kinds.h"

// What the data commands have to do with the files around their document.
namespace qor {

// The kinds beside a document. Names in them that are no field of it are told. Throws FalloDeArchivo.
ClasesDeCampos LeerClases(const ContextoDeComando& contexto, const Documento& documento);

// What no output may take the place of, whether it is there or not: the document, its kinds and their lists, the settings.
std::vector<std::filesystem::path> ArchivosDelDocumento(const ContextoDeComando& contexto, const std::filesystem::path& documento,
                                                        const ClasesDeCampos& clases);

// The option --max-findings of a command. `cuales` are counted, such as "findings".
void AgregarMaximo(Orden orden, std::uint64_t& maximo, const std::string& cuales);

}  // namespace qor
