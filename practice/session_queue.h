#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "practice/batch_rows.h"

namespace qor {

// Where batch-input sessions are kept: what BDC_OPEN_GROUP and its companions need of the database. One session at a time is open
// for writing; who calls sees to that. What is written belongs to the unit of work of the report.
class ColaDeSesiones {
public:
    virtual ~ColaDeSesiones() = default;

    // Opens a new session at the end of the queue, and answers its id of twenty digits.
    virtual std::string Abrir(std::string_view grupo, std::string_view usuario, std::string_view conservar) = 0;
    // A transaction behind the others of the open session.
    virtual void Insertar(std::string_view transaccion, std::span<const FilaDeBDC> filas) = 0;
    virtual void Cerrar() = 0;

    // The records of an entry in order, 309 characters each, in the columns that sap/import.h tells. The data type is BDC of a
    // session, %BDC of a recording. False where there is no such entry, or one of another data type.
    using Registro = std::function<void(std::string_view registro)>;
    virtual bool Leer(std::string_view id, std::string_view tipoDeDatos, const Registro& registro) = 0;
};

}  // namespace qor
