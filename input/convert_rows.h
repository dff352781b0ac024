#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "input/convert.h"
#include "input/sheet.h"

namespace qor {

// The fields of a kind of records with what takes their values over.
std::vector<ConversorDeCampo> ConversoresDe(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase,
                                            const ClasesDeCampos& clases, const OpcionesDeCeldas& opciones);

// A record that came out of a table.
struct RegistroDeTabla {
    std::uint64_t numero = 0;          // of the column "#"; 0 where there is none
    std::vector<std::string> valores;  // of the fields, windows-1252
    bool bien = true;                  // all values have their place
};

// Reads the records of a table.
class LectorDeTabla {
public:
    // `tabla` is the place that findings name. Reads up to the headings; throws FalloDeEjecucion where they are missing.
    LectorDeTabla(std::unique_ptr<FuenteDeFilas> filas, const ClaseDeRegistro& clase, std::vector<ConversorDeCampo> conversores,
                  const ReglasDeValores& reglas, bool conNumero, int tabla, const OpcionesDeConversion& opciones,
                  const OyenteDeConversion& oyente);

    bool Siguiente(RegistroDeTabla& registro);

    // Every record so far had a number of its own in the column "#", in their order, where there has to be one.
    bool ConOrden() const { return conOrden_; }

private:
    // Columns that are no field.
    static constexpr int columnaDelNumero = -1;
    static constexpr int columnaDeNada = -2;

    void LeerTitulos();
    void PonerPorOrden();
    void LeerNumero(const CeldaDeHoja& celda, std::size_t columna, RegistroDeTabla& registro);
    void Revisar(RegistroDeTabla& registro);
    void Decir(std::uint64_t fila, std::size_t columna, const CeldaDeHoja& celda, const std::string& texto,
               HallazgoDeEntrada falta = HallazgoDeEntrada::CeldaSinLugar);

    std::unique_ptr<FuenteDeFilas> filas_;
    const ClaseDeRegistro& clase_;
    std::vector<ConversorDeCampo> conversores_;
    std::vector<const ReglaDeValor*> reglas_;  // of the fields; null for none
    bool conNumero_;
    int tabla_;
    const OpcionesDeConversion& opciones_;
    const OyenteDeConversion& oyente_;
    std::vector<int> columnas_;  // for each column of the table a place in the fields, or one of the above
    std::vector<bool> dichos_;   // fields of the row of which something was told
    FilaDeHoja fila_;
    std::uint64_t ultimo_ = 0;  // number
    bool conOrden_ = true;
};

}  // namespace qor
