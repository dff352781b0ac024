#include "app/examples.h"

#include <algorithm>
#include <sstream>
#include <system_error>
#include <utility>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr const char* nombreDeLista = "examples.txt";
constexpr const char* codigoDeReserva = "en";

EjemploIncluido LeerCabeza(std::string_view linea) {
    std::istringstream palabras{std::string(linea)};
    EjemploIncluido ejemplo;
    std::string clase;
    std::string sobra;
    palabras >> ejemplo.carpeta >> ejemplo.archivo >> clase >> sobra;
    const bool conocida = clase.empty() || clase == "import" || clase == "dataset";
    if (ejemplo.archivo.empty() || !conocida || !sobra.empty()) {
        throw FalloDeEjecucion("the list of examples has a line that can't be read: " + std::string(linea));
    }
    if (clase == "import") ejemplo.clase = EjemploIncluido::Clase::Grabacion;
    if (clase == "dataset") ejemplo.clase = EjemploIncluido::Clase::JuegoDeDatos;
    return ejemplo;
}

void PermitirEscritura(const fs::path& copia) {
    fs::permissions(copia, fs::perms::owner_write, fs::perm_options::add);
    for (const auto& entrada : fs::recursive_directory_iterator(copia)) {
        fs::permissions(entrada.path(), fs::perms::owner_write, fs::perm_options::add);
    }
}

}  // namespace

fs::path DirectorioDeEjemplos(const fs::path& directorioDeDatos) {
    std::error_code ignorado;
    for (const auto& ruta : {directorioDeDatos / "examples", directorioDeDatos.parent_path() / "examples"}) {
        if (fs::is_directory(ruta, ignorado)) return ruta;
    }
    return {};
}

const std::string& EjemploIncluido::Frase(const std::string& codigo) const {
    static const std::string ninguna;
    for (const auto& elegido : {codigo, std::string(codigoDeReserva)}) {
        if (const auto frase = frases.find(elegido); frase != frases.end()) return frase->second;
    }
    return ninguna;
}

std::vector<EjemploIncluido> LeerListaDeEjemplos(std::string_view texto) {
    std::vector<EjemploIncluido> ejemplos;
    bool dentro = false;
    for (const auto linea : PartirEnLineas(texto)) {
        if (linea.starts_with('#')) continue;
        if (EstaEnBlanco(linea)) {
            dentro = false;
        } else if (!std::exchange(dentro, true)) {
            ejemplos.push_back(LeerCabeza(linea));
        } else {
            ejemplos.back().frases[std::string(AntesDe(linea, ' '))] = Recortar(DespuesDe(linea, ' '));
        }
    }
    return ejemplos;
}

std::vector<EjemploIncluido> LeerEjemplos(const fs::path& directorioDeDatos, const fs::path& directorio) {
    auto ejemplos = LeerListaDeEjemplos(LeerArchivo(directorioDeDatos / nombreDeLista));
    std::error_code ignorado;
    std::erase_if(ejemplos, [&](const EjemploIncluido& ejemplo) {
        return !fs::is_regular_file(directorio / ejemplo.carpeta / ejemplo.archivo, ignorado);
    });
    return ejemplos;
}

fs::path CopiarEjemplo(const fs::path& ejemplo, const fs::path& destino) {
    fs::path copia = destino / ejemplo.filename();
    bool hecha = false;
    try {
        fs::create_directories(destino);
        // Making the folder takes the name, also against another program that looks for one.
        for (int n = 2; !(hecha = fs::create_directory(copia)); ++n) {
            copia = destino / ejemplo.filename();
            copia += "-" + std::to_string(n);
        }
        fs::copy(ejemplo, copia, fs::copy_options::recursive);
        PermitirEscritura(copia);
    } catch (const fs::filesystem_error& fallo) {
        std::error_code ignorado;
        if (hecha) fs::remove_all(copia, ignorado);
        throw FalloDeArchivo(fallo.code().value(), copia);
    }
    return copia;
}

}  // namespace qor
