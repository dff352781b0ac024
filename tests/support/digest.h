#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qor::pruebas {

struct Seccion {
    std::string nombre;
    std::string texto;
};

// The parts of a report: its banner, the declarations, the selection screen, the main flow, and each form with its comment.
std::vector<Seccion> PartirInforme(std::string_view informe);

// Many texts that shall stay as they are. Of each there is a line in a file: its name, a checksum of the whole, and a short one of
// each section, which tells where it differs. The texts of the last run without a difference lie in the build tree, so that the
// next run can tell what was there before.
class Compendio {
public:
    Compendio(std::filesystem::path esperado, std::filesystem::path anterior);

    void Agregar(const std::string& nombre, std::vector<Seccion> secciones);

    // What is different, with the new lines of the first ones; empty when nothing is. Where the variable QOR_UPDATE_EXPECTED is
    // set, the file is written anew instead.
    std::string Diferencias() const;

private:
    std::string DiferenciaDe(const std::string& nombre, const std::string& antes, const std::vector<Seccion>& secciones,
                             std::string_view anterior, std::map<std::string, int>& porSeccion) const;

    std::filesystem::path esperado_;
    std::filesystem::path anterior_;
    std::map<std::string, std::vector<Seccion>> textos_;
};

}  // namespace qor::pruebas
