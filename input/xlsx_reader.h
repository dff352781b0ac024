#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "input/sheet.h"
#include "input/xlsx_package.h"
#include "input/xlsx_strings.h"

namespace qor {

// A workbook in the format .xlsx. Only a row at a time is in memory, and what was read last of the strings that cells share.
// Whatever fails throws FalloDeArchivo.
class LibroXlsx {
public:
    explicit LibroXlsx(const std::filesystem::path& ruta);
    ~LibroXlsx();

    struct Hoja {
        std::string nombre;  // UTF-8
        bool oculta = false;
        std::string parte;
    };
    // Those with cells, in the order of the workbook.
    const std::vector<Hoja>& Hojas() const { return hojas_; }

    // The rows of a sheet, hidden ones too. Of merged cells the first one has the value. Several sheets can be read by turns; the
    // book has to live as long.
    std::unique_ptr<FuenteDeFilas> Abrir(const Hoja& hoja);

private:
    class Filas;

    void LeerLibro();
    void LeerEstilos(const std::string& parte);
    const FormatoDeNumero* Formato(unsigned estilo) const;
    TextosCompartidos* Textos();

    PaqueteXlsx paquete_;
    std::vector<Hoja> hojas_;
    bool desde1904_ = false;
    std::string parteDeTextos_;
    std::unique_ptr<TextosCompartidos> textos_;  // once they are asked for
    std::map<int, FormatoDeNumero> formatos_;
    std::vector<const FormatoDeNumero*> estilos_;
};

}  // namespace qor
