#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/piecewise_reader.h"
#include "input/convert.h"

namespace qor {

// Reads the records of a file of a layout.
class LectorDeLayout {
public:
    // `archivo` is its place in the layout.
    LectorDeLayout(const DisenoDeEntrada& diseno, int archivo, const std::filesystem::path& ruta, const OyenteDeConversion& oyente);

    // The next line, with what is wrong with it told. `clase` is -1 for one that is no record. Values live until the next call.
    bool Siguiente(int& clase, std::vector<std::string_view>& valores);
    std::uint64_t Linea() const { return linea_; }
    std::string_view Texto() const { return texto_; }

    // It is in windows-1252; of another one nothing is read, which was told.
    bool Legible() const { return legible_; }

    // Tells what is wrong with the field of the present line; of the line as a whole without one.
    void Decir(HallazgoDeEntrada clase, const ClaseDeRegistro* registro, std::size_t campo, std::string_view valor,
               const std::string& texto) const;

private:
    bool PartirAnchoFijo(const ClaseDeRegistro& clase, std::string_view linea, std::vector<std::string_view>& valores) const;
    bool PartirTabuladores(const ClaseDeRegistro& clase, std::string_view linea, std::vector<std::string_view>& valores) const;

    const DisenoDeEntrada& diseno_;
    int archivo_;
    const OyenteDeConversion& oyente_;
    LectorPorTrozos lector_;
    std::uint64_t linea_ = 0;
    std::string_view texto_;
    bool legible_ = true;
};

// The line of a record, without its end.
void PonerLinea(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, const std::vector<std::string>& valores,
                std::string& linea);

}  // namespace qor
