#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// What the program asks of a remote-function service, and nothing more. The operations are those of SAP's automation object
// SAP.Functions, and `Abierta`; whatever offers them can take its place. Texts are windows-1252, rows and columns count from 1.
namespace qor {

// An operation of the service that failed; `what()` is a plain text in windows-1252, with the service's own message.
class FalloDelServicio : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class ConexionRFC {
public:
    virtual ~ConexionRFC() = default;

    // Shows the logon dialog and connects; false when the user backs out of it. With `silencioso` there is no dialog, and the
    // answer tells whether the existing connection is usable. Throws FalloDelServicio when the system can't be reached or refuses.
    virtual bool Logon(bool silencioso) = 0;
    virtual void Logoff() = 0;
    // False before a logon, and from the operation on over which the connection was lost. Asks nothing of the system.
    virtual bool Abierta() const = 0;
    virtual std::string Client() const = 0;
    virtual std::string System() const = 0;
};

// A table parameter of a function.
class TablaRFC {
public:
    virtual ~TablaRFC() = default;

    virtual void FreeTable() = 0;
    // Fills the first column, one row for each text.
    virtual void Data(const std::vector<std::string>& filas) = 0;
    virtual int RowCount() const = 0;
    // One cell, without the blanks behind its text.
    virtual std::string Value(int fila, int columna) const = 0;
};

// One call of a function module. All operations but Call throw FalloDelServicio.
class FuncionRFC {
public:
    virtual ~FuncionRFC() = default;

    virtual void Exports(std::string_view nombre, std::string_view valor) = 0;
    // Belongs to the function.
    virtual TablaRFC& Tables(std::string_view nombre) = 0;
    // True when the function ran to its end. After false the tables hold nothing that may be read.
    virtual bool Call() = 0;
};

class ServicioRFC {
public:
    virtual ~ServicioRFC() = default;

    virtual ConexionRFC& Connection() = 0;
    // Prepares a call; it must not outlive the service. Throws FalloDelServicio when there is no such function module.
    virtual std::unique_ptr<FuncionRFC> Add(std::string_view modulo) = 0;
    // Why the last Call, or the last silent Logon, answered false; empty when the service doesn't tell.
    virtual std::string UltimoError() const = 0;
    // Whether the system behind it is one to practise on, which is no SAP system.
    virtual bool EsDePractica() const { return false; }
};

}  // namespace qor
