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

// The same with what their values have to be.
struct CampoDeTabla {
    ConversorDeCampo conversor;
    const ReglaDeValor* regla;  // null for none
};
std::vector<CampoDeTabla> CamposDeTabla(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, const ClasesDeCampos& clases,
                                        const ReglasDeValores& reglas, const OpcionesDeCeldas& opciones);

// A record that came out of a table.
struct RegistroDeTabla {
    std::uint64_t numero = 0;          // of the column "#"; 0 where there is none
    std::vector<std::string> valores;  // of the fields, windows-1252
    bool bien = true;                  // all values have their place, and are what they have to be
};

// Reads the records of a table.
class LectorDeTabla {
public:
    // `tabla` is the place that findings name. Reads up to the headings; throws FalloDeEjecucion where they are missing
    // and where none of them is a field.
    LectorDeTabla(std::unique_ptr<FuenteDeFilas> filas, const ClaseDeRegistro& clase, std::vector<CampoDeTabla> campos,
                  bool conNumero, int tabla, const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente);

    bool Siguiente(RegistroDeTabla& registro);

    // Nothing is wrong so far with the table as a whole: its headings, and the numbers in its column "#".
    bool Entera() const { return entera_; }

private:
    // Columns that are no field.
    static constexpr int columnaDelNumero = -1;
    static constexpr int columnaDeNada = -2;

    void LeerTitulos();
    void PonerPorOrden();
    void ExigirCampos(const std::vector<bool>& tomados);
    void LeerValor(const CeldaDeHoja& celda, std::size_t columna, RegistroDeTabla& registro);
    void LeerNumero(const CeldaDeHoja& celda, std::size_t columna, RegistroDeTabla& registro);
    HallazgoDeDatos Hallazgo(HallazgoDeEntrada clase, int campo) const;
    void Decir(std::size_t columna, const CeldaDeHoja& celda, const std::string& texto);

    std::unique_ptr<FuenteDeFilas> filas_;
    const ClaseDeRegistro& clase_;
    std::vector<CampoDeTabla> campos_;
    bool conNumero_;
    int tabla_;
    const OpcionesDeConversion& opciones_;
    const OyenteDeConversion& oyente_;
    std::vector<int> columnas_;  // for each column of the table a place in the fields, or one of the above
    FilaDeHoja fila_;
    std::uint64_t ultimo_ = 0;  // number
    bool entera_ = true;
};

}  // namespace qor
