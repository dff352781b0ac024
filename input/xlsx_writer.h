#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/new_file.h"
#include "input/sheet_work_file.h"

struct lxw_data_validation;
struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace qor {

constexpr std::uint64_t maximoDeFilasDeHoja = 1048576;
constexpr std::size_t maximoDeTextoDeCelda = 32767;  // characters

// Writes a workbook in the format .xlsx, which takes its place whole or not at all. Texts are windows-1252, rows and columns count
// from 0. Whatever fails throws FalloDeArchivo.
class LibroNuevo {
public:
    enum class Modo {
        PorFilas,  // rows of a sheet come in their order, and only one is in memory
        Libre,
    };
    // `grande`: a sheet may become larger than 4 gigabytes.
    LibroNuevo(const std::filesystem::path& destino, Modo modo, bool grande = false);
    ~LibroNuevo();
    LibroNuevo(const LibroNuevo&) = delete;
    LibroNuevo& operator=(const LibroNuevo&) = delete;

    // A new sheet, and its place among them.
    std::size_t AgregarHoja(std::string_view nombre);
    void Ocultar(std::size_t hoja);

    // What cells of a column take that are not written, and the width in characters.
    struct FormatoDeColumna {
        std::string codigo = "@";  // a number format
        double ancho = 0;
    };
    // The headings stay in sight, in the row 0. Those of `marcadas` are marked.
    void PonerTitulos(std::size_t hoja, const std::vector<std::string>& titulos, const std::vector<FormatoDeColumna>& columnas,
                      const std::vector<bool>& marcadas = {});
    // The formats of the columns without headings.
    void PonerColumnas(std::size_t hoja, const std::vector<FormatoDeColumna>& columnas);

    void Texto(std::size_t hoja, std::uint64_t fila, std::size_t columna, std::string_view texto);
    void Numero(std::size_t hoja, std::uint64_t fila, std::size_t columna, double numero, const std::string& codigo);
    void Nota(std::size_t hoja, std::uint64_t fila, std::size_t columna, std::string_view texto);
    // For the rows behind the headings.
    void Validar(std::size_t hoja, std::size_t columna, lxw_data_validation& regla);

    void PonerEnSuLugar();

private:
    lxw_format* Formato(const std::string& codigo);
    void Exigir(int error) const;
    void Cerrar();
    void Repasar();
    [[noreturn]] void Fallar(const std::string& motivo) const;

    std::filesystem::path destino_;
    ArchivoNuevo archivo_;
    ArchivoDeTrabajo trabajo_;
    std::string temporal_;
    lxw_workbook* libro_ = nullptr;
    std::vector<lxw_worksheet*> hojas_;
    std::map<std::string, lxw_format*> formatos_;
};

// The number format of a date as ClaseDeCampo has its form.
std::string CodigoDeFecha(std::string_view formato);
// That of a number with so many decimals.
std::string CodigoDeDecimales(int decimales);

}  // namespace qor
