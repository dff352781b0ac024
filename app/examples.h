#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// The examples that come with the program.
namespace qor {

struct EjemploIncluido {
    enum class Clase : std::uint8_t { Documento, Grabacion, JuegoDeDatos };

    std::string carpeta;
    std::string archivo;  // in the folder, what is opened
    Clase clase = Clase::Documento;
    std::map<std::string, std::string> frases = {};  // one for each language, by its code such as "es"; UTF-8

    // The one of a language, or else that in English.
    const std::string& Frase(const std::string& codigo) const;
};

// Where they lie: beside the installed data, or in the source tree. Empty where they are not there.
std::filesystem::path DirectorioDeEjemplos(const std::filesystem::path& directorioDeDatos);

// The list holds blocks with blank lines between them: a line for the example, and behind it a sentence for each language, with the
// language's code in front of it.
//
// Those that examples.txt among the data lists and that lie in their directory, in the order of the list. Throws FalloDeArchivo,
// and FalloDeEjecucion for a line that is none of its own.
std::vector<EjemploIncluido> LeerEjemplos(const std::filesystem::path& directorioDeDatos, const std::filesystem::path& directorio);
std::vector<EjemploIncluido> LeerListaDeEjemplos(std::string_view texto);

// Copies the folder of an example into `destino`, which is made where it is missing: under its name, or with "-2", "-3" and so on
// behind it where that is taken. What is copied can be written by its owner. Gives the folder of the copy. Throws FalloDeArchivo;
// nothing of the copy is left then.
std::filesystem::path CopiarEjemplo(const std::filesystem::path& ejemplo, const std::filesystem::path& destino);

}  // namespace qor
