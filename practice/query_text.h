#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "abap/surroundings.h"
#include "practice/sqlite.h"
#include "practice/table_definition.h"

// Open SQL as statements of SQLite.
namespace qor {

// A statement with the values of its "?" in their order. The values may lie in what it was made from.
struct TextoDeConsulta {
    std::string texto;
    std::vector<const abap::ValorDeBase*> valores;
    std::vector<std::unique_ptr<abap::ValorDeBase>> propios;  // those that were made for it

    void Ligar(Sentencia& sentencia, bool copia) const;
};

// `lugar` is the table as a statement names it; `cliente` is asked for where the table has a column for it. Throws
// SAPSQL_INVALID_FIELDNAME for a column that the table lacks.
TextoDeConsulta EscribirSeleccion(const DefinicionDeTabla& tabla, const std::string& lugar, const abap::ConsultaDeBase& consulta,
                                  const std::string& cliente);
TextoDeConsulta EscribirActualizacion(const DefinicionDeTabla& tabla, const std::string& lugar,
                                      std::span<const abap::AsignacionDeBase> cambios, const abap::CondicionDeBase& donde,
                                      const std::string& cliente);
TextoDeConsulta EscribirBorrado(const DefinicionDeTabla& tabla, const std::string& lugar, const abap::CondicionDeBase& donde,
                                const std::string& cliente);

// CREATE TABLE, and the statements on one row by its key.
std::string EscribirCreacion(const DefinicionDeTabla& tabla, const std::string& lugar);
std::string EscribirInsercion(const DefinicionDeTabla& tabla, const std::string& lugar);
std::string EscribirActualizacionDeFila(const DefinicionDeTabla& tabla, const std::string& lugar);
std::string EscribirBorradoDeFila(const DefinicionDeTabla& tabla, const std::string& lugar);

// The pattern of a LIKE as one of GLOB, which looks at upper and lower case.
std::string PatronDeGlob(std::string_view patron, char escape);

// How a column lies in the database.
enum class ClaseDeColumna { Texto, Decimal, Entero, Flotante };
ClaseDeColumna ClaseDe(const abap::TipoDeCampo& tipo);

// A value as a text, with plain digits.
std::string TextoDeValor(const abap::ValorDeBase& valor);

// Binds a value in the way of its column; nothing is the initial value.
void LigarValor(Sentencia& sentencia, int lugar, const abap::ValorDeBase& valor, const abap::TipoDeCampo& tipo);

}  // namespace qor
