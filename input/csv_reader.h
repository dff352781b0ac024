#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/piecewise_reader.h"
#include "input/sheet.h"

namespace qor {

// The rows of a file of values with a separator between them, as RFC 4180 has them: a value between double quotes may hold
// separators, line ends and doubled quotes. All cells are texts. Lines end with CR LF, LF or CR; an empty line is a row without
// values. The code page is found by rule.
class LectorDeCsv : public FuenteDeFilas {
public:
    LectorDeCsv(const std::filesystem::path& ruta, char separador);

    bool Siguiente(FilaDeHoja& fila) override;

private:
    bool Caracter(char& c);
    bool ValorEntreComillas();
    void PonerCelda(FilaDeHoja& fila, std::size_t lugar);
    [[noreturn]] void Fallar(const std::string& motivo) const;

    std::filesystem::path ruta_;
    bool utf8_ = false;
    char separador_;
    LectorPorTrozos lector_;
    std::string trozo_;
    std::size_t aqui_ = 0;
    std::uint64_t linea_ = 1;  // of the next character
    bool trasCR_ = false;      // a LF that comes next belongs to the line end before it
    std::size_t largo_ = 0;    // of the row, as far as it was read
    std::string valor_;
};

// The separator of a file, comma or semicolon, by the line of the headings, from 1: the one that stands there outside of quotes,
// and of both the one between which all texts are among `titulos`, whatever their case. 0 where that doesn't tell it.
char SeparadorDe(const std::filesystem::path& ruta, std::uint64_t linea, const std::vector<std::string>& titulos);

}  // namespace qor
